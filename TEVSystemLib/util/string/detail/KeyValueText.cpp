#include "TEVSystemLib/util/string/detail/KeyValueText.h"

#include "TEVSystemLib/util/string/detail/AsciiText.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

struct Halves {
    std::string_view key;
    std::string_view value;
};

std::optional<Halves> Split(std::string_view pair, std::size_t minimumLength) {
    // KEEP: only a plain space starts the trimming.
    if (!pair.empty() && pair.front() == ' ') pair = Trim(pair, true, false);
    const std::size_t separator = pair.find('=');
    if (pair.size() < minimumLength || separator == std::string_view::npos || separator == 0)
        return std::nullopt;
    return Halves{pair.substr(0, separator), pair.substr(separator + 1)};
}

}  // namespace

std::optional<std::string_view> KeyOf(std::string_view pair) {
    // KEEP: a key needs one character more than a value does, so that "a=" has a value but no key.
    const auto halves = Split(pair, 3);
    if (!halves) return std::nullopt;
    const std::string_view key = Trim(halves->key, false, true);
    if (key.empty()) return std::nullopt;
    return key;
}

// KEEP: blanks around a value are part of it.
std::optional<std::string_view> ValueOf(std::string_view pair) {
    const auto halves = Split(pair, 2);
    if (!halves) return std::nullopt;
    return halves->value;
}

}  // namespace TAMO::TEV::System::Util::detail
