#include "TEVSystemLib/util/string/detail/Tokens.h"

namespace TAMO::TEV::System::Util::detail {

std::vector<std::string_view> Tokens(std::string_view delimiters, std::string_view text) {
    std::vector<std::string_view> tokens;
    Tokenizer tokenizer(delimiters, text);
    while (const auto token = tokenizer.Next()) tokens.push_back(*token);
    return tokens;
}

}  // namespace TAMO::TEV::System::Util::detail
