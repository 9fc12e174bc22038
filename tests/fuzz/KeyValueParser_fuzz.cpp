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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const tev::fuzz::Exact exact(text);
    tev::fuzz::ExpectSame(Parse(exact, KeyValueSyntax::EqualSeparated),
                          KeyValueModel(false).Run(text), "key = value");
    tev::fuzz::ExpectSame(Parse(exact, KeyValueSyntax::BlankSeparated),
                          KeyValueModel(true).Run(text), "key value");
    return 0;
}
