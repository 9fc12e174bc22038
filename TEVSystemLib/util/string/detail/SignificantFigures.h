#pragma once

#include <optional>
#include <string>
#include <string_view>

// Rounding on decimal digit text, never by binary arithmetic. Numbers are in fixed notation: digits
// with at most one point, no exponent, no blanks.
namespace TAMO::TEV::System::Util::detail {

struct Figures {
    bool hasDigits = false;  // false for a number that is all zeros
    bool hasPoint = false;
    // Positions in the text, its sign included; -1 for none.
    int first = -1;
    int last = -1;
    int point = -1;
    int count = 0;
};

// Where the significant figures of a number stand. Trailing zeros count behind a point, and in
// front of one that is written. Nothing for a text that is no such number, and for zeros with a
// point.
std::optional<Figures> AnalyseFigures(std::string_view number);

// A number without sign, rounded to so many figures, in fixed notation with its point. An exact
// half goes up, but down onto 2, 4, 6 and 8. Nothing for a number without significant figures.
std::optional<std::string> RoundToFigures(std::string number, int figures);

// A rounded number in exponent form: 1.23e+04, with one figure 1.e+04. Its exponent has two digits
// at least.
std::string InExponentForm(std::string_view rounded, int figures);

// The decimal exponent of a text in that form, its sign apart; nothing when it has none or one that
// is no int.
struct Exponent {
    bool isNegative;
    int magnitude;
};
std::optional<Exponent> ExponentOf(std::string_view text);

// How many figures of a value are worth showing beside an uncertainty whose exponent is given.
// `value` is the analysed magnitude in fixed notation.
int FiguresWorthShowing(double magnitude, const Figures& value, double uncertainty,
                        Exponent exponent);

// The decimal separator of a locale, "." when it has none.
std::string SeparatorOrPoint(const char* separator);

// Takes away a point that ends the text, unless it marks a 0 as significant, or that stands
// directly before an exponent.
std::string WithoutIdlePoint(std::string text);

}  // namespace TAMO::TEV::System::Util::detail
