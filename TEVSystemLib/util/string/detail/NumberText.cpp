#include "TEVSystemLib/util/string/detail/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
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

// Whether a minus sign stands there.
bool TakeSign(const char*& at) {
    const bool isNegative = *at == '-';
    if (isNegative || *at == '+') ++at;
    return isNegative;
}

// False when a marker stands there without a number of a few digits behind it.
bool TakeExponent(const char*& at, int& exponent) {
    constexpr std::ptrdiff_t kMaxDigits = 4;
    if (*at != 'e' && *at != 'E') return true;
    ++at;
    const bool isNegative = TakeSign(at);
    unsigned number = 0;
    const auto digits = TakeDigits(at, number);
    if (digits == 0 || digits > kMaxDigits) return false;
    exponent = isNegative ? -static_cast<int>(number) : static_cast<int>(number);
    return true;
}

// Only a typedef can be marked as an extension.
__extension__ typedef unsigned __int128 Wide;  // NOLINT(modernize-use-using)

// The powers of ten up to there are doubles, those of five up to there fit 64 bits.
constexpr int kMaxTen = 22;
constexpr int kMaxExponent = 27;

template <typename T, int last>
constexpr std::array<T, last + 1> PowersOf(T base) {
    std::array<T, last + 1> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * base;
    return powers;
}

constexpr auto kTens = PowersOf<double, kMaxTen>(10);
constexpr auto kFives = PowersOf<std::uint64_t, kMaxExponent>(5);

double PowerOfTwo(int exponent) {
    constexpr int kBias = std::numeric_limits<double>::max_exponent - 1;
    constexpr int kMantissaBits = std::numeric_limits<double>::digits - 1;
    const std::uint64_t bits = static_cast<std::uint64_t>(kBias + exponent) << kMantissaBits;
    double power = 0;
    std::memcpy(&power, &bits, sizeof power);
    return power;
}

// Such numbers and powers are doubles themselves.
bool AreDoubles(std::uint64_t number, int exponent) {
    return number >> std::numeric_limits<double>::digits == 0 && std::abs(exponent) <= kMaxTen;
}

double ByDouble(double number, int exponent) {
    return exponent < 0 ? number / kTens[static_cast<std::size_t>(-exponent)]
                        : number * kTens[static_cast<std::size_t>(exponent)];
}

double ByPowerOfFive(std::uint64_t number, int exponent) {
    const Wide product = Wide{number} * kFives[static_cast<std::size_t>(exponent)];
    return static_cast<double>(product) * PowerOfTwo(exponent);
}

// Both are shifted up, so that the quotient has more bits than a double; one is for the rest.
double OverPowerOfFive(std::uint64_t number, int exponent) {
    constexpr int kBitsLeft = 63;
    const std::uint64_t power = kFives[static_cast<std::size_t>(exponent)];
    const int numberShift = __builtin_clzll(number);
    const int powerShift = __builtin_clzll(power);
    const Wide dividend = Wide{number << numberShift} << kBitsLeft;
    const std::uint64_t divisor = power << powerShift;
    const auto quotient = static_cast<std::uint64_t>(dividend / divisor);
    const std::uint64_t hasRest = Wide{quotient} * divisor != dividend ? 1 : 0;
    return static_cast<double>(quotient | hasRest) *
           PowerOfTwo(powerShift - numberShift - kBitsLeft - exponent);
}

// Each way rounds once.
double ByPowerOfTen(std::uint64_t number, int exponent) {
    if (number == 0) return 0;
    if (AreDoubles(number, exponent)) return ByDouble(static_cast<double>(number), exponent);
    return exponent < 0 ? OverPowerOfFive(number, -exponent) : ByPowerOfFive(number, exponent);
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
    if (*text == '-' && sign == Sign::PlusOnly) return false;
    const bool isNegative = TakeSign(text);
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
    if (text == nullptr) return false;
    const bool isNegative = TakeSign(text);
    std::uint64_t number = 0;
    const auto digits = TakeDigits(text, number);
    if (*text == '.') ++text;
    const auto decimals = TakeDigits(text, number);
    if (digits + decimals == 0 || digits + decimals > std::numeric_limits<std::uint64_t>::digits10)
        return false;
    int exponent = 0;
    if (!TakeExponent(text, exponent) || *text != '\0') return false;
    exponent -= static_cast<int>(decimals);
    if (std::abs(exponent) > kMaxExponent) return false;
    const double magnitude = ByPowerOfTen(number, exponent);
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
