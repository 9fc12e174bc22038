#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <sstream>
#include <type_traits>

#include "TEVSystemLib/util/string/detail/ClassicLocale.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"
#include "TEVSystemLib/util/string/detail/Padding.h"

namespace TAMO::TEV::System::Util {

namespace {

using Flags = std::ios_base::fmtflags;

constexpr Flags kNoFlags{};
constexpr int kDefaultPrecision = 20;
// No double has more digits behind the point than this: what follows are zeros.
constexpr std::uint64_t kMaxPrecision = 1100;

template <typename T>
std::string FormatByStream(T value, Flags flags, std::uint64_t precision = 0) {
    std::ostringstream stream;
    stream.exceptions(std::ios::badbit | std::ios::failbit);
    stream.setf(flags);
    stream.precision(static_cast<std::streamsize>(precision));
    stream << value;
    return stream.str();
}

// Puts a plus sign into the place in front of the text.
std::string WithSign(bool isPlusShown, char* first, const char* last) {
    if (isPlusShown) *--first = '+';
    return {first, static_cast<std::size_t>(last - first)};
}

template <typename T>
std::string FormatInteger(T value, bool showPlus) {
    const Flags flags = showPlus ? std::ios::showpos : kNoFlags;
    if (!detail::IsClassicLocale()) return FormatByStream(value, flags);
    constexpr std::size_t kMaxCharacters = 20;
    char buffer[1 + kMaxCharacters];
    char* const text = buffer + 1;
    const char* end = std::to_chars(text, text + kMaxCharacters, value).ptr;
    const bool hasSign = std::is_signed_v<T> && showPlus && value >= 0;
    return WithSign(hasSign, text, end);
}

// Streams format on the stack, which a large precision would overrun.
std::string FormatDoubleByStream(double value, Flags flags, std::uint64_t precision) {
    std::string text = FormatByStream(value, flags, std::min(precision, kMaxPrecision));
    if (precision > kMaxPrecision && std::isfinite(value))
        text.insert(std::min(text.find('e'), text.size()), precision - kMaxPrecision, '0');
    return text;
}

std::string FormatDouble(double value, Flags flags, std::uint64_t precision) {
    constexpr std::uint64_t kMaxFastPrecision = 64;
    // The sign, all digits of the largest number, the point and the decimals.
    constexpr std::size_t kMaxCharacters =
        std::numeric_limits<double>::max_exponent10 + 4 + kMaxFastPrecision;
    if (precision > kMaxFastPrecision || !std::isfinite(value) || !detail::IsClassicLocale())
        return FormatDoubleByStream(value, flags, precision);
    const bool isScientific = (flags & std::ios::scientific) != 0;
    char buffer[1 + kMaxCharacters];
    char* const text = buffer + 1;
    char* end =
        std::to_chars(text, text + kMaxCharacters - 1, value,
                      isScientific ? std::chars_format::scientific : std::chars_format::fixed,
                      static_cast<int>(precision))
            .ptr;
    if (precision == 0 && (flags & std::ios::showpoint) != 0) *end++ = '.';
    const bool hasSign = (flags & std::ios::showpos) != 0 && !std::signbit(value);
    return WithSign(hasSign, text, end);
}

// KEEP: filled with blanks on the left, a number never shows a plus sign.
bool ShowsPlus(char justification, bool showPlus, bool zeroFill) {
    return showPlus && (justification == 'L' || zeroFill);
}

detail::Fill FillOf(char justification, bool zeroFill) {
    // KEEP: 'L' ignores the zero fill; zeros behind a number would change it.
    if (justification == 'L') return detail::Fill::BlanksRight;
    return zeroFill ? detail::Fill::ZerosBehindSign : detail::Fill::BlanksLeft;
}

template <typename T>
std::string Justify(char justification, T value, std::uint64_t width, bool showPlus,
                    bool zeroFill) try {
    if (width < (showPlus ? 2U : 1U)) return {};
    const bool showsPlus = ShowsPlus(justification, showPlus, zeroFill);
    return detail::Pad(FormatInteger(value, showsPlus), width, FillOf(justification, zeroFill));
} catch (...) {
    return {};
}

template <typename T>
std::string Plain(T value) try {
    return FormatInteger(value, false);
} catch (...) {
    return {};
}

std::string FormatReal(double value, bool scientific, int precision) {
    return FormatDouble(value, scientific ? std::ios::scientific : std::ios::fixed,
                        static_cast<std::uint64_t>(precision < 0 ? kDefaultPrecision : precision));
}

}  // namespace

std::string TEVUtilString::ToString(char justification, int value, std::uint64_t width,
                                    bool showPlus, bool zeroFill) {
    return Justify(justification, value, width, showPlus, zeroFill);
}

std::string TEVUtilString::ToString(char justification, long value, std::uint64_t width,
                                    bool showPlus, bool zeroFill) {
    return Justify(justification, value, width, showPlus, zeroFill);
}

std::string TEVUtilString::ToString(char justification, std::int64_t value, std::uint64_t width,
                                    bool showPlus, bool zeroFill) {
    return Justify(justification, value, width, showPlus, zeroFill);
}

std::string TEVUtilString::ToString(char justification, std::uint64_t value, std::uint64_t width,
                                    bool showPlus, bool zeroFill) {
    return Justify(justification, value, width, showPlus, zeroFill);
}

// KEEP: the 64-bit argument is the width, and so comes before the value here.
std::string TEVUtilString::ToString(char justification, std::uint64_t width, unsigned int value,
                                    bool showPlus, bool zeroFill) {
    return Justify(justification, value, width, showPlus, zeroFill);
}

std::string TEVUtilString::ToString(char justification, double value, std::uint64_t width,
                                    std::uint64_t precision, bool showPlus, bool zeroFill) try {
    const std::uint64_t besidesDigits = showPlus ? 2 : 1;
    if (width <= precision || width - precision <= besidesDigits) return {};
    const Flags flags =
        std::ios::fixed | std::ios::showpoint |
        (ShowsPlus(justification, showPlus, zeroFill) ? std::ios::showpos : kNoFlags);
    return detail::Pad(FormatDouble(value, flags, precision), width,
                       FillOf(justification, zeroFill));
} catch (...) {
    return {};
}

std::string TEVUtilString::ToString(int value) { return Plain(value); }
std::string TEVUtilString::ToString(unsigned int value) { return Plain(value); }
std::string TEVUtilString::ToString(long value) { return Plain(value); }
std::string TEVUtilString::ToString(unsigned long value) { return Plain(value); }
std::string TEVUtilString::ToString(std::int64_t value) { return Plain(value); }
std::string TEVUtilString::ToString(std::uint64_t value) { return Plain(value); }

std::string TEVUtilString::ToString(double value, bool scientific, int precision) try {
    return FormatReal(value, scientific, precision);
} catch (...) {
    return {};
}

bool TEVUtilString::ToString(char** out, double value, bool scientific, int precision) try {
    if (out == nullptr) return false;
    *out = nullptr;
    return detail::HandOutUnlessEmpty(FormatReal(value, scientific, precision), out);
} catch (...) {
    return false;
}

}  // namespace TAMO::TEV::System::Util
