#include "TEVSystemLib/util/windows/detail/EnvironmentList.h"

#include <TEVSystemLib/system/TEVSysCnst.h>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/Tokens.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

class Elements {
 public:
    explicit Elements(std::string_view list) : tokens_(TEVSysCnst::DELIMITER_SEMICOLON, list) {}

    std::optional<std::string_view> Next() {
        while (const auto token = tokens_.Next()) {
            const std::string_view element = TrimIfSpaced(*token);
            if (!element.empty()) return element;
        }
        return std::nullopt;
    }

 private:
    Tokenizer tokens_;
};

bool Has(std::string_view list, std::string_view element) {
    Elements elements(list);
    while (const auto other = elements.Next()) {
        if (EqualsIgnoringCase(*other, element)) return true;
    }
    return false;
}

void Append(std::string& list, std::string_view element) {
    if (!list.empty()) list += TEVSysCnst::DELIMITER_SEMICOLON;
    list += element;
}

}  // namespace

std::optional<std::string> AddToList(std::string_view list, std::string_view element,
                                     ListPlace place) {
    if (Has(list, element)) return std::nullopt;
    std::string added;
    added.reserve(list.size() + 1 + element.size());
    if (place == ListPlace::Front) Append(added, element);
    Elements elements(list);
    while (const auto other = elements.Next()) Append(added, *other);
    if (place == ListPlace::Back) Append(added, element);
    return added;
}

std::string RemoveFromList(std::string_view list, std::string_view element) {
    std::string kept;
    kept.reserve(list.size());
    bool isRemoved = false;
    Elements elements(list);
    while (const auto other = elements.Next()) {
        if (isRemoved || !EqualsIgnoringCase(*other, element))
            Append(kept, *other);
        else
            isRemoved = true;
    }
    return kept;
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
