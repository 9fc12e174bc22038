#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <clocale>
#include <cmath>
#include <cstdio>
#include <sstream>
#include <string_view>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/ClassicLocale.h"
#include "TEVSystemLib/util/string/detail/NumberText.h"

namespace TAMO::TEV::System::Util {

namespace {

std::string_view Prepared(const char* text) { return detail::TrimIfSpaced(detail::OrEmpty(text)); }

// KEEP: values outside 32 bits are the C runtime's affair, and a fraction ends the scan.
bool ScanInt(std::string_view text, int& value) {
    if (detail::ReadLeadingInteger(text, value)) return true;
    return sscanf_s(std::string(text).c_str(), "%d", &value) == 1;
}

// KEEP: the stream's verdict is not asked; a bare sign and an overflow count as converted.
template <typename T>
bool Extract(std::string_view text, T& value) {
    if (detail::IsClassicLocale() && detail::ReadLeadingInteger(text, value)) return true;
    std::istringstream stream{std::string(text)};
    // A stream keeps exhausted memory to itself, too, unless asked.
    stream.exceptions(std::ios::badbit);
    stream >> value;
    return true;
}

bool HasPoint() {
    const char* point = std::localeconv()->decimal_point;
    return point[0] == '.' && point[1] == '\0';
}

bool ScanReal(std::string_view text, double& value) {
    return sscanf_s(std::string(text).c_str(), "%lf", &value) == 1;
}

// Converts a text of digits; one without a digit before its point is 0.
template <typename T, typename Convert>
bool ParseInteger(const char* text, T& value, detail::Sign sign, Convert convert) {
    const std::string_view prepared = Prepared(text);
    switch (detail::ClassifyInteger(prepared, sign)) {
        case detail::IntegerText::Invalid:
            return false;
        case detail::IntegerText::Zero:
            value = 0;
            return true;
        default:
            return convert(prepared, value);
    }
}

bool ParseInt(const char* text, int& value, detail::Sign sign) {
    return detail::ReadPlainInteger(text, sign, value) || ParseInteger(text, value, sign, ScanInt);
}

template <typename T>
bool Parse64(const char* text, T& value, detail::Sign sign) {
    return (detail::IsClassicLocale() && detail::ReadPlainInteger(text, sign, value)) ||
           ParseInteger(text, value, sign, Extract<T>);
}

// In one pass, without asking for the length.
bool IsPlainWord(const char* text, const char* lowerCaseWord) {
    for (; *lowerCaseWord != '\0'; ++lowerCaseWord, ++text)
        if (detail::ToLower(*text) != *lowerCaseWord) return false;
    return *text == '\0';
}

template <typename Is>
bool ReadBool(Is is, bool& value) {
    const bool isTrue = is("true");
    if (!isTrue && !is("false")) return false;
    value = isTrue;
    return true;
}

}  // namespace

bool TEVUtilString::IsValidSignedInteger(bool& isZero, const std::string& text) {
    const auto form = detail::ClassifyInteger(text, detail::Sign::PlusOrMinus);
    isZero = form == detail::IntegerText::Zero;
    return form != detail::IntegerText::Invalid;
}

bool TEVUtilString::IsValidUnsignedInteger(bool& isZero, const std::string& text) {
    const auto form = detail::ClassifyInteger(text, detail::Sign::PlusOnly);
    isZero = form == detail::IntegerText::Zero;
    return form != detail::IntegerText::Invalid;
}

bool TEVUtilString::ToBool(const char* const text, bool& value) {
    if (text == nullptr) return false;
    const auto isPlain = [text](const char* word) { return IsPlainWord(text, word); };
    const auto isTrimmed = [text](const char* word) {
        return detail::EqualsIgnoringCase(Prepared(text), word);
    };
    return ReadBool(isPlain, value) || ReadBool(isTrimmed, value);
}

bool TEVUtilString::ToInteger(const char* const text, int& value) try {
    return ParseInt(text, value, detail::Sign::PlusOrMinus);
} catch (...) {
    return false;
}

bool TEVUtilString::ToLong(const char* const text, long& value) try {
    int scanned = 0;
    if (!ParseInt(text, scanned, detail::Sign::PlusOrMinus)) return false;
    value = scanned;
    return true;
} catch (...) {
    return false;
}

bool TEVUtilString::ToUnsignedInt(const char* const text, unsigned int& value) try {
    // KEEP: scanned as a signed number, so nothing above its limit comes out.
    int scanned = -1;
    if (!ParseInt(text, scanned, detail::Sign::PlusOnly) || scanned < 0) return false;
    value = static_cast<unsigned int>(scanned);
    return true;
} catch (...) {
    return false;
}

bool TEVUtilString::ToInt64(const char* const text, std::int64_t& value) try {
    return Parse64(text, value, detail::Sign::PlusOrMinus);
} catch (...) {
    return false;
}

bool TEVUtilString::ToUInt64(const char* const text, std::uint64_t& value) try {
    return Parse64(text, value, detail::Sign::PlusOnly);
} catch (...) {
    return false;
}

bool TEVUtilString::ToDouble(const char* const text, double& value) try {
    const bool hasPoint = HasPoint();
    if (hasPoint && detail::ReadPlainReal(text, value)) return true;
    const std::string_view prepared = Prepared(text);
    // What reads as a number from end to end may be one, too.
    if (hasPoint && detail::ReadReal(prepared, value)) return true;
    // KEEP: an overflow is refused with infinity already in the output.
    return detail::MayBeReal(prepared) && ScanReal(prepared, value) && !std::isinf(value);
} catch (...) {
    return false;
}

bool TEVUtilString::ExtractIndices(const char* const text, int& first, int& second) try {
    // KEEP: unlike the parsers this one writes its outputs on failure too.
    first = second = -1;
    const auto halves = detail::SplitIndices(detail::OrEmpty(text));
    const std::string firstText(halves.first);
    const std::string secondText(halves.second);
    int one = 0;
    int two = 0;
    if (!ToInteger(firstText.c_str(), one) || !ToInteger(secondText.c_str(), two)) return false;
    first = one;
    second = two;
    return true;
} catch (...) {
    return false;
}

}  // namespace TAMO::TEV::System::Util
