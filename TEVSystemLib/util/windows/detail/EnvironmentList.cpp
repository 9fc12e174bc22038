#include "TEVSystemLib/util/windows/detail/EnvironmentList.h"

#include <TEVSystemLib/system/TEVSysCnst.h>

#include <algorithm>
#include <vector>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/Tokens.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

using Elements = std::vector<std::string_view>;

Elements Split(std::string_view list) {
    Elements elements;
    for (const std::string_view piece : Tokens(TEVSysCnst::DELIMITER_SEMICOLON, list)) {
        const std::string_view element = TrimIfSpaced(piece);
        if (!element.empty()) elements.push_back(element);
    }
    return elements;
}

std::string Join(const Elements& elements) {
    std::string list;
    for (const std::string_view element : elements) {
        if (!list.empty()) list += TEVSysCnst::DELIMITER_SEMICOLON;
        list += element;
    }
    return list;
}

Elements::iterator Find(Elements& elements, std::string_view element) {
    return std::find_if(elements.begin(), elements.end(), [element](std::string_view other) {
        return EqualsIgnoringCase(other, element);
    });
}

}  // namespace

std::optional<std::string> AddToList(std::string_view list, std::string_view element,
                                     ListPlace place) {
    Elements elements = Split(list);
    if (Find(elements, element) != elements.end()) return std::nullopt;
    elements.insert(place == ListPlace::Front ? elements.begin() : elements.end(), element);
    return Join(elements);
}

std::string RemoveFromList(std::string_view list, std::string_view element) {
    Elements elements = Split(list);
    const auto found = Find(elements, element);
    if (found != elements.end()) elements.erase(found);
    return Join(elements);
}

std::optional<EnvironmentEntry> SplitEnvironmentEntry(std::string_view entry) {
    constexpr std::string_view kDriveC = "=C:=C:";
    constexpr std::size_t kDriveNameLength = 3;
    constexpr std::size_t kMinimumLength = 3;

    entry = TrimIfSpaced(entry);
    if (entry.size() < kMinimumLength) return std::nullopt;
    // KEEP: of the per-drive entries only drive C's is recognised; hosts know no other.
    if (EqualsIgnoringCase(entry.substr(0, kDriveC.size()), kDriveC))
        return EnvironmentEntry{entry.substr(0, kDriveNameLength),
                                entry.substr(kDriveNameLength + 1)};
    const std::size_t separator = entry.find('=');
    if (separator == std::string_view::npos || separator == 0 || separator + 1 == entry.size())
        return std::nullopt;
    return EnvironmentEntry{entry.substr(0, separator), entry.substr(separator + 1)};
}

}  // namespace TAMO::TEV::System::Util::detail
