#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

// Measured values on exact integers: a magnitude is counted in units of its 20th decimal. A model
// of the rounding on digit text, for magnitudes up to 1e18.
namespace tev::test {

__extension__ typedef unsigned __int128 Units;

constexpr int kDecimals = 20;

inline Units PowerOfTen(int exponent) {
    Units power = 1;
    for (; exponent > 0; --exponent) power *= 10;
    return power;
}

inline std::string Digits(Units number) {
    std::string digits;
    for (; number > 0; number /= 10)
        digits.insert(digits.begin(), static_cast<char>('0' + static_cast<int>(number % 10)));
    return digits;
}

// Nearest to the double, as its text with 20 decimals is; a tie goes to the even neighbour.
inline Units UnitsOf(double magnitude) {
    constexpr int kMantissaBits = 53;
    constexpr int kUnitsBits = 128;
    int exponent = 0;
    const double fraction = std::frexp(magnitude, &exponent);
    const auto mantissa = static_cast<std::uint64_t>(std::ldexp(fraction, kMantissaBits));
    const Units scaled = mantissa * PowerOfTen(kDecimals);
    exponent -= kMantissaBits;
    if (exponent >= 0) return scaled << exponent;
    if (exponent <= -kUnitsBits) return 0;
    const Units kept = scaled >> -exponent;
    const Units rest = scaled - (kept << -exponent);
    const Units half = Units{1} << (-exponent - 1);
    return kept + (rest > half || (rest == half && kept % 2 == 1) ? 1 : 0);
}

// The power of ten at which the first digit stands.
inline int LeadingPlace(Units units) {
    return static_cast<int>(Digits(units).size()) - 1 - kDecimals;
}

// kept * 10^place. Figures were asked for; a carry makes the number one digit longer.
struct Rounded {
    Units kept = 0;
    int place = 0;
    int figures = 0;
    bool fromHalf = false;
    bool carried = false;
};

inline Rounded RoundedTo(Units units, int place) {
    Rounded result;
    result.place = place;
    result.figures = LeadingPlace(units) - place + 1;
    const Units weight = PowerOfTen(kDecimals + place);
    const Units dropped = units % weight;
    result.kept = units / weight;
    if (place <= -kDecimals) {
        result.kept = units * PowerOfTen(-kDecimals - place);
        return result;
    }
    const Units missing = weight - dropped;
    const Units lastDigit = result.kept % 10;
    result.fromHalf = dropped == missing;
    if (dropped > missing || (result.fromHalf && (lastDigit % 2 == 1 || lastDigit == 0)))
        ++result.kept;
    result.carried = Digits(result.kept).size() > static_cast<std::size_t>(result.figures);
    return result;
}

// "12.30", "120.", with the point always.
inline std::string FixedText(const Rounded& number) {
    std::string text = Digits(number.kept);
    if (number.place >= 0)
        return text + std::string(static_cast<std::size_t>(number.place), '0') + '.';
    const auto decimals = static_cast<std::size_t>(-number.place);
    if (text.size() <= decimals) text.insert(0, decimals + 1 - text.size(), '0');
    return text.insert(text.size() - decimals, 1, '.');
}

// "1.23e+01", with the point always.
inline std::string ExponentText(const Rounded& number) {
    std::string digits = Digits(number.kept);
    const int exponent = number.place + static_cast<int>(digits.size()) - 1;
    if (number.carried) digits.pop_back();
    const std::string size = std::to_string(std::abs(exponent));
    return digits.insert(1, 1, '.') + (exponent < 0 ? "e-" : "e+") + (size.size() == 1 ? "0" : "") +
           size;
}

inline std::string Tidied(std::string text) {
    const std::size_t point = text.find('.');
    const bool atEnd = point + 1 == text.size() && text[point - 1] != '0';
    const bool beforeExponent = point + 1 < text.size() && text[point + 1] == 'e';
    return atEnd || beforeExponent ? text.erase(point, 1) : text;
}

struct MeasuredTexts {
    std::string value;
    std::string uncertainty;
};

struct Measured {
    Rounded value;
    Rounded uncertainty;
    MeasuredTexts fixed;
    MeasuredTexts scientific;
};

inline Measured Measure(double value, double uncertainty) {
    Measured result;
    const Units uncertaintyUnits = UnitsOf(uncertainty);
    result.uncertainty = RoundedTo(uncertaintyUnits, LeadingPlace(uncertaintyUnits));
    result.fixed = {"0.0", Tidied(FixedText(result.uncertainty))};
    result.scientific = {"0.e+00", Tidied(ExponentText(result.uncertainty))};
    if (value == 0) return result;

    const double magnitude = std::abs(value);
    const Units units = UnitsOf(magnitude);
    const int exponent = result.uncertainty.place + (result.uncertainty.carried ? 1 : 0);
    // A value of 1 alone has a figure more, and counts the exponent without its sign.
    const int place =
        magnitude == 1.0 ? -std::abs(exponent) - 1 : std::min(exponent, LeadingPlace(units));
    result.value = RoundedTo(units, place);
    const std::string sign = value < 0 ? "-" : "";
    result.fixed.value = sign + Tidied(FixedText(result.value));
    result.scientific.value = sign + Tidied(ExponentText(result.value));
    return result;
}

}  // namespace tev::test
