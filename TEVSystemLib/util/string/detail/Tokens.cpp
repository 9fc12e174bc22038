#include "TEVSystemLib/util/string/detail/Tokens.h"

namespace TAMO::TEV::System::Util::detail {

std::vector<std::string_view> Tokens(std::string_view delimiters, std::string_view text) {
    std::vector<std::string_view> tokens;
    std::size_t start = text.find_first_not_of(delimiters);
    while (start != std::string_view::npos) {
        const std::size_t end = text.find_first_of(delimiters, start);
        tokens.push_back(text.substr(start, end - start));
        start = text.find_first_not_of(delimiters, end);
    }
    return tokens;
}

}  // namespace TAMO::TEV::System::Util::detail
