#include "TEVSystemLib/util/string/detail/Tokens.h"
#include "fuzz/Fuzz.h"
#include "models/TextModel.h"

// DELIMITERS, TEXT.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tev::fuzz::Fields fields(data, size);
    const std::string delimiters = fields.Next();
    const std::string text = fields.Rest();
    const tev::fuzz::Exact exactDelimiters(delimiters);
    const tev::fuzz::Exact exactText(text);
    std::vector<std::string> tokens;
    for (const std::string_view token :
         TAMO::TEV::System::Util::detail::Tokens(exactDelimiters.View(), exactText.View())) {
        tev::fuzz::Expect(exactText.Holds(token), "points into the text");
        tokens.emplace_back(token);
    }
    tev::fuzz::ExpectSame(tokens, tev::test::PiecesOf(delimiters, text), "tokens");
    return 0;
}
