#pragma once

#include <string_view>

// Which texts are taken for numbers, and the value of those about which there is no doubt. Digits
// are ASCII digits.
namespace TAMO::TEV::System::Util::detail {

enum class Sign { PlusOrMinus, PlusOnly };

enum class IntegerText {
    Invalid,
    Zero,   // no digit stands before the point: the integer value is 0 whatever follows
    Digits  // to be scanned; may still be a bare sign
};

// An optional leading sign and digits with at most one point among them, in any arrangement.
IntegerText ClassifyInteger(std::string_view text, Sign sign);

// Digits, signs, points and exponent markers in an arrangement that is worth scanning; not every
// such text converts.
bool MayBeReal(std::string_view text);

// The number of a plain text: perhaps a sign, digits that surely fit, perhaps a point and digits
// behind it, the terminator. False, with nothing stored, for any other, such as null.
template <typename T>
bool ReadPlainInteger(const char* text, Sign sign, T& value);

// The number that a text of IntegerText::Digits begins with, up to its point. False, with nothing
// stored, when it has no digit there or does not fit.
template <typename T>
bool ReadLeadingInteger(std::string_view text, T& value);

// The number of a plain text, correctly rounded: perhaps a sign, up to 19 digits with perhaps a "."
// among them, perhaps an exponent of up to four digits, the terminator. The last digit must stand
// for a power of ten from -27 to 27. False, with nothing stored, for any other, such as null.
bool ReadPlainReal(const char* text, double& value);

// The number that all of a text is, correctly rounded; the point is ".". False, with nothing
// stored, for an overflow, an underflow and for what does not look like a number from end to end.
bool ReadReal(std::string_view text, double& value);

struct IndexTexts {
    std::string_view first;
    std::string_view second;
};

// The two halves of "[first,second]", which may be empty; both are empty for any other text.
IndexTexts SplitIndices(std::string_view text);

}  // namespace TAMO::TEV::System::Util::detail
