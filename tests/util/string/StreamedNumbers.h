#pragma once

#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <cstddef>
#include <cstdint>
#include <ios>
#include <sstream>
#include <string>
#include <type_traits>

// Numbers as the standard streams write and read them under the global C++ locale.
namespace tev::test {

template <typename T>
std::string Streamed(T value, std::ios_base::fmtflags flags = {}) {
    std::ostringstream stream;
    stream.setf(flags);
    stream << value;
    return stream.str();
}

inline std::string Streamed(double value, bool scientific, int precision,
                            std::ios_base::fmtflags more = {}) {
    std::ostringstream stream;
    stream.setf(more | (scientific ? std::ios::scientific : std::ios::fixed));
    stream.precision(precision);
    stream << value;
    return stream.str();
}

// The verdict of the stream is not asked.
template <typename T>
bool Extracted(const std::string& text, T& value) {
    std::istringstream(text) >> value;
    return true;
}

// How a number is to stand in its field.
struct Justification {
    char selector;
    std::uint64_t width;
    bool showPlus;
    bool zeroFill;

    // Filled with blanks on the left, a number has no plus sign.
    std::ios_base::fmtflags Flags() const {
        return showPlus && (selector == 'L' || zeroFill) ? std::ios::showpos
                                                         : std::ios_base::fmtflags{};
    }

    std::string Filled(std::string number) const {
        const std::size_t behindSign = number[0] == '-' || number[0] == '+' ? 1 : 0;
        while (number.size() < width) {
            if (selector == 'L')
                number += ' ';
            else if (zeroFill)
                number.insert(behindSign, 1, '0');
            else
                number.insert(0, 1, ' ');
        }
        return number;
    }
};

// By the library; of one kind of integer the width comes first.
template <typename T>
std::string Justified(const Justification& how, T value) {
    using TAMO::TEV::System::Util::TEVUtilString;
    if constexpr (std::is_same_v<T, unsigned int>)
        return TEVUtilString::ToString(how.selector, how.width, value, how.showPlus, how.zeroFill);
    else
        return TEVUtilString::ToString(how.selector, value, how.width, how.showPlus, how.zeroFill);
}

}  // namespace tev::test
