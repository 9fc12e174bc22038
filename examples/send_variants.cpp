// Sends arrays and a table through VARIANTs, and receives a table.
#include <TEVSystemLib/TEVOwned.h>
#include <windows.h>
// oleauto.h needs windows.h before it.
#include <oleauto.h>

#include <iostream>
#include <map>
#include <string>
#include <vector>

using namespace TAMO::TEV::System::Host;

namespace {

// A table as another program sends it: keys at (0, entry), values at (1, entry).
void PutEntry(SAFEARRAY* table, LONG entry, const OwnedBstr& key, const OwnedBstr& value) {
    LONG keyAt[] = {0, entry};
    LONG valueAt[] = {1, entry};
    SafeArrayPutElement(table, keyAt, key.get());
    SafeArrayPutElement(table, valueAt, value.get());
}

}  // namespace

int main() {
    VARIANT variant;
    VariantInit(&variant);

    SetDoubleArrayVARIANT(std::vector<double>{0.5, 1.5}, Into(variant));
    for (const double number : ExtractDoubleArrayFromVARIANT(From(variant)))
        std::cout << "double " << number << '\n';
    VariantClear(&variant);

    SetStringArrayVARIANT(std::vector<std::string>{"red", "green"}, Into(variant));
    for (const char* text : ExtractStringArrayFromVariant(From(variant)))
        std::cout << "string " << text << '\n';
    VariantClear(&variant);

    // What is written has a row an entry; receivers of this library expect a column an entry.
    const std::map<std::string, std::string> entries = {{"bands", "4"}, {"pixel", "0.5"}};
    CreateKeyValueDataVariant(entries, Into(variant), FirstKey("type"), FirstValue("frame"));
    std::cout << "table of " << variant.parray->rgsabound[1].cElements << " rows\n";
    VariantClear(&variant);

    SAFEARRAYBOUND bounds[] = {{2, 0}, {1, 0}};
    variant.vt = VT_ARRAY | VT_BSTR;
    variant.parray = SafeArrayCreate(VT_BSTR, 2, bounds);
    PutEntry(variant.parray, 0, CopyBSTR(L"bands"), CopyBSTR(L"4"));
    for (const auto& [key, value] : ExtractKeyValueDataFromVARIANT(From(variant)))
        std::cout << key << " = " << value.View() << '\n';
    VariantClear(&variant);
}
