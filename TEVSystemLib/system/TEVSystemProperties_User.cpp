#include <TEVSystemLib/system/TEVSysCnst.h>
#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <TEVSystemLib/util/file/TEVIO.h>

#include "TEVSystemLib/system/detail/ConfigurationFolders.h"
#include "TEVSystemLib/system/detail/StoreTables.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"

namespace TAMO::TEV::System {

namespace {

std::string Lines(const detail::Properties& table) {
    std::string lines;
    for (const auto& [key, value] : table) lines.append(key).append(" = ").append(value) += '\n';
    return lines;
}

}  // namespace

bool TEVSystemProperties::SetUserProperty(const char* key, const char* value) try {
    if (value == nullptr) return false;
    const std::string name(Util::detail::OrEmpty(key));
    const detail::StoreState store = detail::MadeStore();
    std::set<std::string> mark;
    if (store.unsaved.count(name) == 0) mark.insert(name);
    // The value is made first: an entry without one would be left behind when memory is exhausted.
    store.index.Put(*store.tables.user.insert_or_assign(name, std::string(value)).first);
    store.unsaved.merge(mark);
    return true;
} catch (...) {
    return false;
}

bool TEVSystemProperties::SaveUserProperties() try {
    const detail::Properties& table = detail::MadeStore().tables.user;
    // KEEP: the search accepts only a folder that holds the file, so saving never creates one.
    const std::string folder = detail::FindUserFolder();
    if (folder.empty() || table.empty()) return false;
    // KEEP: the old content goes before the new text is made and written, and the count of the one
    // write decides: what fails on closing is not seen.
    Util::TEVIO file(folder + TEVSysCnst::PropertyKey::TEV_USER_PROPERTIES_FILE_NAME,
                     Util::TEVIO::Write);
    if (!file) return false;
    const std::string lines = Lines(table);
    return file.write(lines.data(), lines.size()) == lines.size();
} catch (...) {
    return false;
}

}  // namespace TAMO::TEV::System
