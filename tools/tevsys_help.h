#pragma once

#include <string>

namespace tevsys {

// The manual of a verb, what follows its usage and options; of the program when the verb is empty.
// Each line of its examples is a command that ends with 0, or with the code in the comment behind.
std::string Manual(const std::string& verb);

}  // namespace tevsys
