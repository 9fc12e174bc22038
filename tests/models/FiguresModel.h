#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <optional>
#include <string>

// Significant figures on digit text of any length: the digits apart from the point.
namespace tev::test {

struct FiguresModel {
    bool hasDigits = false;
    bool hasPoint = false;
    int first = -1;
    int last = -1;
    int point = -1;
    int count = 0;
};

inline std::optional<FiguresModel> AnalyseModel(const std::string& text) {
    FiguresModel figures;
    const std::size_t start = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
    for (std::size_t i = start; i < text.size(); ++i) {
        const bool isDigit = text[i] >= '0' && text[i] <= '9';
        if (!isDigit && (text[i] != '.' || figures.hasPoint)) return std::nullopt;
        if (!isDigit) figures.hasPoint = true, figures.point = static_cast<int>(i);
        if (isDigit && text[i] != '0') {
            if (figures.first == -1) figures.first = static_cast<int>(i);
            figures.last = static_cast<int>(i);
        }
    }
    if (start == text.size() || (figures.hasPoint && figures.first == -1)) return std::nullopt;
    if (figures.first == -1) return figures;
    figures.hasDigits = true;
    if (figures.hasPoint)
        figures.last = static_cast<int>(text.size()) - (text.back() == '.' ? 2 : 1);
    for (int i = figures.first; i <= figures.last; ++i) figures.count += i == figures.point ? 0 : 1;
    return figures;
}

inline std::string PlusOne(std::string digits) {
    std::size_t nines = 0;
    while (nines < digits.size() && digits[digits.size() - 1 - nines] == '9') ++nines;
    const std::string front = digits.substr(0, digits.size() - nines);
    if (front.empty()) return '1' + std::string(nines, '0');
    return front.substr(0, front.size() - 1) + static_cast<char>(front.back() + 1) +
           std::string(nines, '0');
}

// The places of a number: so many digits stand in front of the point.
struct RoundedDigits {
    std::string digits;
    std::size_t whole = 0;
    std::string exponentForm;
};

inline std::string ExponentFormModel(const std::string& digits, int exponent) {
    const std::string size = std::to_string(std::abs(exponent));
    return digits.substr(0, 1) + '.' + digits.substr(1) + (exponent < 0 ? "e-" : "e+") +
           (size.size() == 1 ? "0" : "") + size;
}

// A number without sign to so many figures, one at least; nothing for one without figures.
inline std::optional<RoundedDigits> RoundModel(const std::string& text, std::size_t figures) {
    const std::optional<FiguresModel> analysed = AnalyseModel(text);
    if (!analysed || !analysed->hasDigits) return std::nullopt;
    RoundedDigits result;
    result.whole = std::min(text.find('.'), text.size());
    std::string digits = text;
    if (analysed->hasPoint) digits.erase(result.whole, 1);
    const std::size_t zeros = digits.find_first_not_of('0');
    digits += std::string(figures, '0');

    std::string kept = digits.substr(zeros, figures);
    const std::string rest = digits.substr(zeros + figures);
    std::string half(rest.size(), '0');
    if (!half.empty()) half[0] = '5';
    const bool stays = std::string("2468").find(kept.back()) != std::string::npos;
    const bool goesUp = rest > half || (rest == half && !rest.empty() && !stays);
    if (goesUp) kept = PlusOne(kept);
    const bool carried = kept.size() > figures;
    const auto exponent =
        static_cast<int>(result.whole) - static_cast<int>(zeros) - (carried ? 0 : 1);
    result.exponentForm = ExponentFormModel(kept.substr(0, figures), exponent);

    const std::size_t size = zeros + figures;
    result.digits = std::string(zeros - (carried && zeros > 0 ? 1 : 0), '0') + kept;
    if (size < result.whole) result.digits += std::string(result.whole - size, '0');
    if (carried && zeros == 0) ++result.whole;
    return result;
}

inline std::string FixedFormModel(const RoundedDigits& number) {
    return number.digits.substr(0, number.whole) + '.' + number.digits.substr(number.whole);
}

}  // namespace tev::test
