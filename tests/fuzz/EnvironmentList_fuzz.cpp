#include "TEVSystemLib/util/windows/detail/EnvironmentList.h"
#include "fuzz/Fuzz.h"
#include "models/TextModel.h"

using namespace TAMO::TEV::System::Util::detail;
using tev::fuzz::Exact;
using tev::fuzz::ExpectSame;

namespace {

using Elements = std::vector<std::string>;
using Entry = std::optional<std::pair<std::string, std::string>>;

Elements ElementsOf(const std::string& list) {
    Elements elements;
    for (const std::string& piece : tev::test::PiecesOf(";", list)) {
        const std::string element = tev::test::TrimmedIfSpaced(piece);
        if (!element.empty()) elements.push_back(element);
    }
    return elements;
}

std::string Joined(const Elements& elements) {
    std::string list;
    for (const std::string& element : elements) list += ';' + element;
    return list.empty() ? list : list.substr(1);
}

std::size_t PlaceOf(const Elements& elements, const std::string& element) {
    std::size_t place = 0;
    while (place < elements.size() &&
           tev::test::Lowered(elements[place]) != tev::test::Lowered(element))
        ++place;
    return place;
}

std::string Without(Elements elements, std::size_t place) {
    if (place < elements.size()) elements.erase(elements.begin() + static_cast<long>(place));
    return Joined(elements);
}

Elements With(Elements elements, const std::string& element, bool atFront) {
    elements.insert(atFront ? elements.begin() : elements.end(), element);
    return elements;
}

void CheckEdits(const std::string& list, const std::string& element) {
    const Exact exactList(list);
    const Exact exactElement(element);
    const Elements elements = ElementsOf(list);
    const std::size_t place = PlaceOf(elements, element);
    for (const bool atFront : {false, true}) {
        const auto edge = atFront ? ListPlace::Front : ListPlace::Back;
        const auto added = AddToList(exactList.View(), exactElement.View(), edge);
        const bool isThere = place < elements.size();
        ExpectSame(added.has_value(), !isThere, "stored only when it is new");
        if (!added) continue;
        ExpectSame(*added, Joined(With(elements, element, atFront)), "added");
        if (element.find(';') != std::string::npos) continue;
        ExpectSame(AddToList(*added, element, edge).has_value(), false, "added once only");
        ExpectSame(RemoveFromList(*added, element), Joined(elements), "taken back");
    }
    ExpectSame(RemoveFromList(exactList.View(), exactElement.View()), Without(elements, place),
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
