// Writes measured values with their uncertainty: one significant figure for the uncertainty, the
// value to the same place.
#include <TEVSystemLib/TEVOwned.h>

#include <iostream>

using namespace TAMO::TEV::System::Host;
using TAMO::TEV::System::Util::TEVUtilString;

namespace {

void Show(double value, double uncertainty, bool scientific) {
    OwnedText valueText;
    OwnedText uncertaintyText;
    if (TEVUtilString::SignificantFigures(value, uncertainty, Out(valueText), Out(uncertaintyText),
                                          scientific))
        std::cout << valueText.View() << " +- " << uncertaintyText.View() << '\n';
    else
        std::cout << "refused: " << value << " +- " << uncertainty << '\n';
}

}  // namespace

int main() {
    for (const bool scientific : {false, true}) {
        Show(123.456, 0.0234, scientific);
        Show(0.001234, 0.00002, scientific);
        Show(12345.6, 78.9, scientific);
    }
    // An uncertainty is above 0.
    Show(1.5, 0.0, false);
}
