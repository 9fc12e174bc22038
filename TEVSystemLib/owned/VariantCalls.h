#pragma once

#include <TEVSystemLib/owned/Owners.h>
#include <TEVSystemLib/owned/TextCalls.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <map>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

// COM data with owners, and with names for the variant's part: writers take the data first and the
// variant last, readers the other way round. Exhausted memory throws std::bad_alloc.
namespace TAMO::TEV::System::Host {

// The variant that a call fills: what it held is lost, so clear it first.
class Into {
 public:
    // Names the variant; get() is for the call.
    explicit Into(tagVARIANT& variant) noexcept : variant_(&variant) {}
    tagVARIANT* get() const noexcept { return variant_; }

 private:
    tagVARIANT* variant_;
};

// The variant that a call reads.
class From {
 public:
    // Names the variant; get() is for the call.
    explicit From(tagVARIANT& variant) noexcept : variant_(&variant) {}
    tagVARIANT* get() const noexcept { return variant_; }

 private:
    tagVARIANT* variant_;
};

// The functions of TEVUtilWindows ask for writable data but only read it.
template <typename Number, typename Range>
Number* ReadOnly(const Range& numbers) {
    static_assert(std::is_same_v<std::decay_t<decltype(*std::data(numbers))>, Number>,
                  "the numbers are of another type than the array in the variant");
    return const_cast<Number*>(std::data(numbers));
}

// The numbers of a std::vector, a std::array, an array or an owner.
template <typename Range>
bool SetDoubleArrayVARIANT(const Range& numbers, Into variant) {
    return Util::TEVUtilWindows::SetDoubleArrayVARIANT(ReadOnly<double>(numbers),
                                                       std::size(numbers), variant.get());
}

template <typename Range>
bool SetIntArrayVARIANT(const Range& numbers, Into variant) {
    return Util::TEVUtilWindows::SetIntArrayVARIANT(ReadOnly<int>(numbers), std::size(numbers),
                                                    variant.get());
}

// What is extracted; nothing when the variant is refused.
[[nodiscard]] inline OwnedDoubles ExtractDoubleArrayFromVARIANT(From variant) {
    OwnedDoubles numbers;
    Util::TEVUtilWindows::ExtractDoubleArrayFromVARIANT(Out(numbers), Count(numbers),
                                                        variant.get());
    return numbers;
}

[[nodiscard]] inline OwnedInts ExtractIntArrayFromVARIANT(From variant) {
    OwnedInts numbers;
    Util::TEVUtilWindows::ExtractIntArrayFromVARIANT(Out(numbers), Count(numbers), variant.get());
    return numbers;
}

// A text of a table or an array, as a C string.
inline const char* CString(const char* text) noexcept { return text; }
inline const char* CString(const std::string& text) noexcept { return text.c_str(); }
inline const char* CString(const OwnedText& text) noexcept { return text.get(); }

// The texts of a range of C strings, which may be null, std::strings or owners.
template <typename Range>
bool SetStringArrayVARIANT(const Range& texts, Into variant) {
    std::vector<const char*> strings;
    for (const auto& text : texts) strings.push_back(CString(text));
    const char** first = strings.data();
    return Util::TEVUtilWindows::SetStringArrayVARIANT(first, strings.size(), variant.get());
}

// An empty text comes out as null.
[[nodiscard]] inline OwnedTextArray ExtractStringArrayFromVariant(From variant) {
    OwnedTextArray texts;
    Util::TEVUtilWindows::ExtractStringArrayFromVariant(Out(texts), Count(texts), variant.get());
    return texts;
}

// The row in front of a table.
using FirstKey = NamedText<struct FirstKeyPart>;
using FirstValue = NamedText<struct FirstValuePart>;

// A table by rows out of a map from std::string to C strings, std::strings or owners.
template <typename Map>
bool CreateKeyValueDataVariant(const Map& entries, Into variant, FirstKey firstKey,
                               FirstValue firstValue) {
    std::map<std::string, char*> table;
    for (const auto& [key, value] : entries) table[key] = const_cast<char*>(CString(value));
    return Util::TEVUtilWindows::CreateKeyValueDataVariant(&table, variant.get(), firstKey.get(),
                                                           firstValue.get());
}

template <typename Map>
bool CreateKeyValueDataVariant(const Map& entries, Into variant) {
    return CreateKeyValueDataVariant(entries, variant, FirstKey(nullptr), FirstValue(nullptr));
}

// A table as the library hands it out, for as long as its values have no owners of their own.
struct ExtractedTable {
    ExtractedTable() = default;
    ExtractedTable(const ExtractedTable&) = delete;
    ExtractedTable& operator=(const ExtractedTable&) = delete;
    ~ExtractedTable() {
        for (auto& [key, value] : values) Util::TEVUtilWindows::DeleteCharBuffer(&value);
    }

    // By key.
    std::map<std::string, char*> values;
};

// The entries of a table by columns, an empty value as an empty owner; nothing when it is refused.
[[nodiscard]] inline std::map<std::string, OwnedText> ExtractKeyValueDataFromVARIANT(From variant) {
    std::map<std::string, OwnedText> entries;
    ExtractedTable table;
    Util::TEVUtilWindows::ExtractKeyValueDataFromVARIANT(variant.get(), table.values);
    for (auto& [key, value] : table.values) {
        char** entry = Out(entries[key]);
        std::swap(*entry, value);
    }
    return entries;
}

// BSTRs, which no other owner may take: the compiler cannot tell their wchar_t** from a wide
// text's.
[[nodiscard]] inline OwnedBstr CopyBSTR(const wchar_t* source) {
    OwnedBstr copy;
    Util::TEVUtilWindows::CopyBSTR(const_cast<wchar_t*>(source), Out(copy));
    return copy;
}

// Empty for a null or empty text. Throws _com_error when memory is exhausted.
[[nodiscard]] inline OwnedBstr FromMultibyteCharToBSTR(Text text) {
    OwnedBstr made;
    Util::TEVUtilWindows::FromMultibyteCharToBSTR(text.get(), Out(made));
    return made;
}

}  // namespace TAMO::TEV::System::Host
