#include "TEVSystemLib/util/string/detail/NumberText.h"
#include "fuzz/Fuzz.h"
#include "models/NumberModel.h"

using namespace TAMO::TEV::System::Util::detail;
using tev::fuzz::Exact;
using tev::fuzz::ExpectSame;

namespace {

using Halves = std::pair<std::string, std::string>;

int Class(IntegerText text) { return static_cast<int>(text); }

Halves HalvesModel(const std::string& text) {
    const std::size_t comma = text.find(',');
    const bool isPair = text.size() >= 5 && text[0] == '[' && text[text.size() - 1] == ']' &&
                        comma != std::string::npos;
    if (!isPair) return {};
    return {std::string(&text[1], &text[comma]),
            std::string(&text[comma + 1], &text[text.size() - 1])};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const Exact exact(text);
    ExpectSame(Class(ClassifyInteger(exact.View(), Sign::PlusOrMinus)),
               Class(tev::test::IntegerShape(text, "+-")), "a signed integer");
    ExpectSame(Class(ClassifyInteger(exact.View(), Sign::PlusOnly)),
               Class(tev::test::IntegerShape(text, "+")), "an unsigned integer");
    ExpectSame(MayBeReal(exact.View()), tev::test::LooksReal(text), "a real number");
    const IndexTexts indices = SplitIndices(exact.View());
    ExpectSame(Halves(indices.first, indices.second), HalvesModel(text), "an index pair");
    return 0;
}
