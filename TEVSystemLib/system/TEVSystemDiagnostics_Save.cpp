#include <TEVSystemLib/system/TEVSystemDiagnostics.h>

#include "TEVSystemLib/system/detail/ConfigurationFolders.h"
#include "TEVSystemLib/system/detail/StoreTables.h"
#include "TEVSystemLib/system/detail/TableLoad.h"
#include "TEVSystemLib/util/file/detail/FileContent.h"
#include "TEVSystemLib/util/file/detail/KeyValueEdit.h"

namespace TAMO::TEV::System {

namespace {

using Util::detail::TextPairs;

// What the store notes about its file stays its own.
TextPairs Unsaved(const detail::StoreState& store, const detail::FilePlace& file) {
    TextPairs pairs;
    for (const std::string& key : store.unsaved) {
        const auto found = store.tables.user.find(key);
        if (found != store.tables.user.end() && !detail::IsNoted(file, key)) pairs.insert(*found);
    }
    return pairs;
}

std::vector<TEVSystemDiagnostics::Change> ChangesBy(const TextPairs& pairs,
                                                    const std::string& text) {
    const TextPairs old = Util::detail::PairsOf(text);
    std::vector<TEVSystemDiagnostics::Change> changes;
    for (const auto& [key, value] : pairs) {
        const auto found = old.find(key);
        if (found != old.end() && found->second == value) continue;
        std::optional<std::string> before;
        if (found != old.end()) before = found->second;
        changes.push_back(
            {TEVSystemDiagnostics::Table::User, key, std::move(before), std::optional(value)});
    }
    return changes;
}

}  // namespace

bool TEVSystemDiagnostics::SaveUserPropertiesPreserving(std::vector<Change>* changes) try {
    if (changes != nullptr) changes->clear();
    const detail::StoreState store = detail::MadeStore();
    const detail::FilePlace file = detail::UserFileIn(detail::FindUserFolder());
    if (file.folder.empty()) return false;
    const auto text = Util::detail::ReadContent(file.Path());
    if (!text) return false;
    const TextPairs pairs = Unsaved(store, file);
    const auto edited = Util::detail::WithPairs(*text, pairs);
    if (!edited) return false;
    std::vector<Change> made = ChangesBy(pairs, *text);
    if (*edited != *text && !Util::detail::ReplaceContent(file.Path(), *edited)) return false;
    store.unsaved.clear();
    if (changes != nullptr) changes->swap(made);
    return true;
} catch (...) {
    return false;
}

}  // namespace TAMO::TEV::System
