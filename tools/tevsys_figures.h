#pragma once

#include <optional>
#include <string>

namespace tevsys {

// A measured value and its uncertainty as texts.
struct Figures {
    std::string value;
    std::string uncertainty;
};

// Both rounded to what the uncertainty allows; nothing when the library refuses the numbers.
std::optional<Figures> SignificantFigures(double value, double uncertainty, bool scientific);

}  // namespace tevsys
