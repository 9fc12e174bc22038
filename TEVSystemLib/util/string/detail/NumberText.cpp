#include "TEVSystemLib/util/string/detail/NumberText.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "TEVSystemLib/util/string/detail/AsciiText.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

// How often a kind of character occurs, and where first.
struct Occurrence {
    std::size_t count = 0;
    std::size_t first = std::string_view::npos;

    void Note(std::size_t at) {
        if (count++ == 0) first = at;
    }
    bool IsAt(std::size_t position) const { return count > 0 && first == position; }
};

struct Scan {
    Occurrence points;
    Occurrence signs;
    Occurrence exponents;
    Occurrence others;
};

Scan ScanNumber(std::string_view text) {
    Scan scan;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (IsDigit(c)) continue;
        if (c == '.') {
            scan.points.Note(i);
        } else if (c == '+' || c == '-') {
            scan.signs.Note(i);
        } else if (c == 'e' || c == 'E') {
            scan.exponents.Note(i);
        } else {
            scan.others.Note(i);
        }
    }
    return scan;
}

// How many digits stand there; they go behind those of the number, which may overflow.
template <typename Unsigned>
std::ptrdiff_t TakeDigits(const char*& at, Unsigned& number) {
    const char* const begin = at;
    for (; IsDigit(*at); ++at) number = number * 10 + static_cast<Unsigned>(*at - '0');
    return at - begin;
}

// Without the plus sign that a conversion does not know.
std::string_view WithoutPlus(std::string_view text) {
    if (!text.empty() && text[0] == '+') text.remove_prefix(1);
    return text;
}

}  // namespace

IntegerText ClassifyInteger(std::string_view text, Sign sign) {
    if (text.empty()) return IntegerText::Invalid;
    const Scan scan = ScanNumber(text);
    const bool isForeign = scan.others.count > 0 || scan.exponents.count > 0 ||
                           (sign == Sign::PlusOnly && text.find('-') != std::string_view::npos);
    const bool isSigned = scan.signs.count > 0;
    if (isForeign || scan.points.count > 1 || scan.signs.count > 1 ||
        (isSigned && !scan.signs.IsAt(0)))
        return IntegerText::Invalid;
    return scan.points.IsAt(isSigned ? 1 : 0) ? IntegerText::Zero : IntegerText::Digits;
}

bool MayBeReal(std::string_view text) {
    const Scan scan = ScanNumber(text);
    const bool hasExponent = scan.exponents.count > 0;
    if (text.empty() || scan.others.count > 0 || scan.exponents.count > 1 || scan.points.count > 1)
        return false;
    if (scan.signs.count > (hasExponent ? 2U : 1U)) return false;
    if (!hasExponent) return scan.signs.count == 0 || scan.signs.IsAt(0);
    // KEEP: where a sign or a point stands beside an exponent marker is not looked at; the scan
    // ends there.
    return !scan.exponents.IsAt(0) &&
           !(scan.exponents.IsAt(1) && (scan.points.IsAt(0) || scan.signs.IsAt(0)));
}

template <typename T>
bool ReadPlainInteger(const char* text, Sign sign, T& value) {
    if (text == nullptr) return false;
    const bool isNegative = *text == '-';
    if (isNegative && sign == Sign::PlusOnly) return false;
    if (isNegative || *text == '+') ++text;
    std::make_unsigned_t<T> number = 0;
    const auto digits = TakeDigits(text, number);
    if (digits == 0 || digits > std::numeric_limits<T>::digits10) return false;
    if (*text == '.') {
        do {
            ++text;
        } while (IsDigit(*text));
    }
    if (*text != '\0') return false;
    value = static_cast<T>(isNegative ? 0 - number : number);
    return true;
}

template bool ReadPlainInteger(const char* text, Sign sign, int& value);
template bool ReadPlainInteger(const char* text, Sign sign, std::int64_t& value);
template bool ReadPlainInteger(const char* text, Sign sign, std::uint64_t& value);

template <typename T>
bool ReadLeadingInteger(std::string_view text, T& value) {
    const std::string_view digits = WithoutPlus(text);
    return std::from_chars(digits.data(), digits.data() + digits.size(), value).ec == std::errc();
}

template bool ReadLeadingInteger(std::string_view text, int& value);
template bool ReadLeadingInteger(std::string_view text, std::int64_t& value);
template bool ReadLeadingInteger(std::string_view text, std::uint64_t& value);

bool ReadPlainReal(const char* text, double& value) {
    // So many digits, and the powers of ten up to there, are doubles themselves: dividing rounds
    // once.
    constexpr int kMaxDigits = std::numeric_limits<double>::digits10;
    constexpr double kPowers[kMaxDigits + 1] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    if (text == nullptr) return false;
    const bool isNegative = *text == '-';
    if (isNegative || *text == '+') ++text;
    std::uint64_t number = 0;
    const auto digits = TakeDigits(text, number);
    if (*text == '.') ++text;
    const auto decimals = TakeDigits(text, number);
    if (*text != '\0' || digits + decimals == 0 || digits + decimals > kMaxDigits) return false;
    const double magnitude = static_cast<double>(number) / kPowers[decimals];
    value = isNegative ? -magnitude : magnitude;
    return true;
}

bool ReadReal(std::string_view text, double& value) {
    const std::string_view number = WithoutPlus(text);
    const bool hasTwoSigns = number.size() < text.size() && !number.empty() && number[0] == '-';
    double read = 0;
    const char* end = number.data() + number.size();
    const auto result = std::from_chars(number.data(), end, read);
    const bool isPlain = read == 0 || std::isnormal(read);
    if (hasTwoSigns || result.ec != std::errc() || result.ptr != end || !isPlain) return false;
    value = read;
    return true;
}

IndexTexts SplitIndices(std::string_view text) {
    constexpr std::size_t kMinimumLength = 5;
    if (text.size() < kMinimumLength || text.front() != '[' || text.back() != ']') return {};
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos) return {};
    return {text.substr(1, comma - 1), text.substr(comma + 1, text.size() - comma - 2)};
}

}  // namespace TAMO::TEV::System::Util::detail
