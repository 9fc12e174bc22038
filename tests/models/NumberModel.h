#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "TEVSystemLib/util/string/detail/NumberText.h"

// Which texts are taken for numbers.
namespace tev::test {

// The rule told as a shape: a sign or none, then digits of which one place may hold a point.
inline TAMO::TEV::System::Util::detail::IntegerText IntegerShape(std::string_view text,
                                                                 std::string_view signs) {
    using TAMO::TEV::System::Util::detail::IntegerText;
    if (text.empty()) return IntegerText::Invalid;
    if (signs.find(text[0]) != std::string_view::npos) text.remove_prefix(1);
    const std::size_t point = text.find('.');
    std::string digits(text.substr(0, point));
    if (point != std::string_view::npos) digits += text.substr(point + 1);
    if (digits.find_first_not_of("0123456789") != std::string::npos) return IntegerText::Invalid;
    return point == 0 ? IntegerText::Zero : IntegerText::Digits;
}

inline bool LooksReal(const std::string& text) {
    const auto count = [&text](std::string_view set) {
        return std::count_if(text.begin(), text.end(),
                             [set](char c) { return set.find(c) != std::string_view::npos; });
    };
    if (text.empty() || text.find_first_not_of("0123456789.+-eE") != std::string::npos)
        return false;
    if (count(".") > 1 || count("eE") > 1) return false;
    const std::size_t lastSign = text.find_last_of("+-");
    const std::size_t marker = text.find_first_of("eE");
    if (marker == std::string::npos) return lastSign == std::string::npos || lastSign == 0;
    if (marker == 0 || (marker == 1 && (text[0] < '0' || text[0] > '9'))) return false;
    return count("+-") <= 2;
}

}  // namespace tev::test
