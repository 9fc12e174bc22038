#include "TEVSystemLib/util/file/detail/KeyValueParser.h"
#include "fuzz/Fuzz.h"
#include "models/KeyValueModel.h"

using namespace TAMO::TEV::System::Util::detail;
using tev::test::KeyValueModel;

namespace {

KeyValueModel::Pairs Parse(const tev::fuzz::Exact& text, KeyValueSyntax syntax) {
    KeyValueParser parser(text.View(), syntax);
    KeyValueModel::Pairs pairs;
    while (const auto pair = parser.Next()) {
        tev::fuzz::Expect(text.Holds(pair->key) && text.Holds(pair->value), "points into the text");
        tev::fuzz::Expect(!pair->key.empty() && !pair->value.empty(), "no half is empty");
        pairs.emplace_back(pair->key, pair->value);
    }
    tev::fuzz::Expect(!parser.Next(), "nothing comes behind the end");
    return pairs;
}

KeyValueModel::Lines Lines(const tev::fuzz::Exact& text, KeyValueSyntax syntax) {
    KeyValueParser parser(text.View(), syntax);
    KeyValueModel::Lines lines;
    while (const auto line = parser.NextLine()) {
        const auto& [key, value] = line->pair;
        tev::fuzz::Expect(text.Holds(key), "the line's key points into the text");
        lines.emplace_back(static_cast<int>(line->fault),
                           KeyValueModel::Pair(std::string(key), std::string(value)));
    }
    return lines;
}

void Check(const std::string& text, KeyValueSyntax syntax, bool isBlankSeparated) {
    const tev::fuzz::Exact exact(text);
    tev::fuzz::ExpectSame(Parse(exact, syntax), KeyValueModel(isBlankSeparated).Run(text), "pairs");
    tev::fuzz::ExpectSame(Lines(exact, syntax), KeyValueModel(isBlankSeparated).RunLines(text),
                          "lines and what is wrong with them");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    Check(text, KeyValueSyntax::EqualSeparated, false);
    Check(text, KeyValueSyntax::BlankSeparated, true);
    return 0;
}
