#include "TEVSystemLib/util/string/detail/SignificantFigures.h"

#include <algorithm>
#include <limits>

#include "TEVSystemLib/util/string/detail/AsciiText.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

constexpr auto kNone = std::string_view::npos;

constexpr bool IsSign(char c) { return c == '+' || c == '-'; }
// Asked of signs, points and digits only, of which the others come first.
constexpr bool IsNonZeroDigit(char c) { return c > '0'; }

// The place of the first such character from `from` on, or npos.
template <bool (*isMeant)(char)>
std::size_t FindFirst(std::string_view text, std::size_t from = 0) {
    while (from < text.size() && !isMeant(text[from])) ++from;
    return from < text.size() ? from : kNone;
}

// The place of the last such character, which there must be.
template <bool (*isMeant)(char)>
std::size_t FindLast(std::string_view text) {
    std::size_t at = text.size() - 1;
    while (!isMeant(text[at])) --at;
    return at;
}

// Does a number of digits go up when those from `next` on are dropped?
bool RoundsUp(std::string_view number, std::size_t last, std::size_t next) {
    if (number[next] != '5') return number[next] > '5';
    if (FindFirst<IsNonZeroDigit>(number, next + 1) != kNone) return true;
    // KEEP: an exact half goes down onto 2, 4, 6, 8 only; a kept 0 goes up, so that 10.5 gives 11.
    constexpr std::string_view kStays = "2468";
    return kStays.find(number[last]) == kNone;
}

// Adds one to the digit at `last`, carrying to the left across the point.
void Increment(std::string& number, std::size_t last) {
    for (std::size_t i = last + 1; i-- > 0;) {
        if (number[i] == '.') continue;
        if (number[i] != '9') {
            ++number[i];
            return;
        }
        number[i] = '0';
    }
    number.insert(0, 1, '1');
}

std::size_t NextDigit(std::string_view number, std::size_t at) {
    return FindFirst<IsDigit>(number, at + 1);
}

}  // namespace

std::optional<Figures> AnalyseFigures(std::string_view number) {
    const std::size_t start = !number.empty() && IsSign(number[0]) ? 1 : 0;
    const std::string_view digits = number.substr(start);
    const std::size_t point = digits.find('.');
    const auto digitCount = std::count_if(digits.begin(), digits.end(), IsDigit);
    const std::size_t others = digits.size() - static_cast<std::size_t>(digitCount);
    if (digits.empty() || others != (point == kNone ? 0U : 1U)) return std::nullopt;

    const std::size_t first = FindFirst<IsNonZeroDigit>(digits);
    Figures figures;
    figures.hasPoint = point != kNone;
    // KEEP: an integer of zeros is a number without figures, zeros with a point are none at all.
    if (first == kNone) {
        if (figures.hasPoint) return std::nullopt;
        return figures;
    }
    // KEEP: trailing zeros count in a number with a point only.
    const std::size_t last =
        figures.hasPoint ? FindLast<IsDigit>(digits) : FindLast<IsNonZeroDigit>(digits);
    const bool spansPoint = figures.hasPoint && first < point && point < last;
    figures.hasDigits = true;
    figures.first = static_cast<int>(start + first);
    figures.last = static_cast<int>(start + last);
    if (figures.hasPoint) figures.point = static_cast<int>(start + point);
    figures.count = figures.last - figures.first + (spansPoint ? 0 : 1);
    return figures;
}

std::optional<std::string> RoundToFigures(std::string number, int figures) {
    if (number.find('.') == kNone) number += '.';
    const auto analysed = AnalyseFigures(number);
    if (!analysed || figures < 1) return std::nullopt;
    if (analysed->count < figures)
        number.append(static_cast<std::size_t>(figures - analysed->count), '0');

    auto last = static_cast<std::size_t>(analysed->first);
    for (int kept = 1; kept < figures; ++kept) last = NextDigit(number, last);
    const std::size_t next = NextDigit(number, last);
    const bool goesUp = next != kNone && RoundsUp(number, last, next);

    const std::size_t point = number.find('.');
    if (last < point) {
        std::fill(number.begin() + static_cast<std::ptrdiff_t>(last) + 1,
                  number.begin() + static_cast<std::ptrdiff_t>(point), '0');
        number.resize(point + 1);
    } else {
        number.resize(last + 1);
    }
    if (goesUp) Increment(number, last);
    return number;
}

std::string InExponentForm(std::string_view rounded, int figures) {
    const std::size_t first = FindFirst<IsNonZeroDigit>(rounded);
    const std::size_t point = rounded.find('.');
    std::string text;
    std::size_t digit = first;
    for (int kept = 0; kept < figures; ++kept, digit = NextDigit(rounded, digit)) {
        text += rounded[digit];
        if (kept == 0) text += '.';
    }
    const bool isNegative = first > point;
    const std::string exponent = std::to_string(isNegative ? first - point : point - first - 1);
    return text + (isNegative ? "e-" : "e+") + (exponent.size() < 2 ? "0" : "") + exponent;
}

std::optional<Exponent> ExponentOf(std::string_view text) {
    const std::size_t marker = text.find_last_of("eE");
    if (marker == kNone || marker + 3 >= text.size() || !IsSign(text[marker + 1]))
        return std::nullopt;
    int magnitude = 0;
    for (const char c : text.substr(marker + 2)) {
        const int digit = c - '0';
        if (!IsDigit(c) || magnitude > (std::numeric_limits<int>::max() - digit) / 10)
            return std::nullopt;
        magnitude = 10 * magnitude + digit;
    }
    return Exponent{text[marker + 1] == '-', magnitude};
}

int FiguresWorthShowing(double magnitude, const Figures& value, double uncertainty,
                        Exponent exponent) {
    int figures = 1;
    if (magnitude > 1.0) {
        figures = value.point + (exponent.isNegative ? exponent.magnitude : -exponent.magnitude);
    } else if (!(magnitude < 1.0 && uncertainty > 1.0)) {
        // KEEP: the exponent is added whatever its sign; a magnitude of exactly 1 gets more
        // figures.
        figures = value.point + 1 + exponent.magnitude - value.first;
    }
    return std::max(figures, 1);
}

std::string SeparatorOrPoint(const char* separator) {
    return IsNullOrEmpty(separator) ? "." : separator;
}

std::string WithoutIdlePoint(std::string text) {
    const std::size_t size = text.size();
    if (size >= 2 && text[size - 1] == '.') {
        // KEEP: behind a 0 the point stays, to mark the 0 as significant.
        if (text[size - 2] != '0') text.pop_back();
        return text;
    }
    for (const std::size_t point : {std::size_t{1}, std::size_t{2}}) {
        if (point + 1 < size && text[point] == '.' &&
            (text[point + 1] == 'e' || text[point + 1] == 'E'))
            return text.erase(point, 1);
    }
    return text;
}

}  // namespace TAMO::TEV::System::Util::detail
