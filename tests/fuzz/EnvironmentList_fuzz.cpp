#include "TEVSystemLib/util/windows/detail/EnvironmentList.h"
#include "fuzz/Fuzz.h"
#include "models/ListModel.h"

using namespace TAMO::TEV::System::Util::detail;
using tev::fuzz::Exact;
using tev::fuzz::ExpectSame;
using tev::test::ListModel;

namespace {

using Entry = std::optional<std::pair<std::string, std::string>>;

void CheckEdits(const std::string& list, const std::string& element) {
    const Exact exactList(list);
    const Exact exactElement(element);
    const ListModel model(list);
    for (const bool atFront : {false, true}) {
        const auto edge = atFront ? ListPlace::Front : ListPlace::Back;
        const auto added = AddToList(exactList.View(), exactElement.View(), edge);
        ExpectSame(added, model.With(element, atFront), "added, when it is new");
        if (!added || element.find(';') != std::string::npos) continue;
        ExpectSame(AddToList(*added, element, edge).has_value(), false, "added once only");
        ExpectSame(RemoveFromList(*added, element), model.Text(), "taken back");
    }
    ExpectSame(RemoveFromList(exactList.View(), exactElement.View()), model.Without(element),
               "the first equal one is removed");
}

Entry EntryModel(const std::string& whole) {
    const std::string text = tev::test::TrimmedIfSpaced(whole);
    if (text.size() < 3) return std::nullopt;
    if (tev::test::Lowered(text.substr(0, 6)) == "=c:=c:")
        return std::pair{text.substr(0, 3), text.substr(4)};
    const std::size_t equal = text.find('=');
    if (equal == std::string::npos || equal == 0 || equal == text.size() - 1) return std::nullopt;
    return std::pair{text.substr(0, equal), text.substr(equal + 1)};
}

void CheckEntry(const std::string& text) {
    const Exact exact(text);
    Entry entry;
    if (const auto split = SplitEnvironmentEntry(exact.View())) {
        tev::fuzz::Expect(exact.Holds(split->name) && exact.Holds(split->value),
                          "points into the entry");
        entry = {std::string(split->name), std::string(split->value)};
    }
    ExpectSame(entry, EntryModel(text), "an entry's name and value");
}

}  // namespace

// LIST, ELEMENT, and an ENTRY of the environment block.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tev::fuzz::Fields fields(data, size);
    const std::string list = fields.Next();
    // Elements come in trimmed, and none is empty.
    const std::string element = tev::test::TrimmedIfSpaced(fields.Next());
    if (!element.empty()) CheckEdits(list, element);
    CheckEntry(fields.Rest());
    return 0;
}
