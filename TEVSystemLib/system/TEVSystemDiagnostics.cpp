#include <TEVSystemLib/system/TEVSystemDiagnostics.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include <utility>

#include "TEVSystemLib/system/detail/ConfigurationFolders.h"
#include "TEVSystemLib/system/detail/ConfigurationLint.h"
#include "TEVSystemLib/system/detail/ConfigurationModel.h"
#include "TEVSystemLib/system/detail/StoreTables.h"
#include "TEVSystemLib/util/file/detail/FileContent.h"
#include "TEVSystemLib/util/file/detail/PathText.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/LocaleText.h"
#include "TEVSystemLib/util/windows/detail/AnsiText.h"
#include "TEVSystemLib/util/windows/detail/ProcessEnvironment.h"

namespace TAMO::TEV::System {

namespace {

using detail::ConfigurationModel;
using Diagnostics = TEVSystemDiagnostics;

// Values are set in the ANSI code page, and read in the C locale.
std::optional<std::string> ReadBack(const std::string& value) {
    const std::wstring wide = Util::detail::FromAnsi(value);
    const auto text = Util::detail::ToLocaleIfPossible(wide);
    if (!text) return std::nullopt;
    return text.get();
}

detail::Surroundings ThisProcess() {
    const auto readVariable = [](const std::string& name) {
        return Util::detail::TryReadVariable(name);
    };
    const auto folderExists = [](const std::string& folder) {
        return Util::TEVUtilWindows::DirectoryExists(folder.c_str());
    };
    return {readVariable, folderExists, ReadBack};
}

// A file that cannot be read adds nothing.
detail::SourceFile Scan(detail::FilePlace place) {
    const auto text = Util::detail::ReadContent(place.Path());
    return detail::ScanFile(std::move(place), text.value_or(""));
}

detail::SourceFile SystemFile() { return Scan(detail::SystemFileIn(detail::FindSystemFolder())); }

detail::SourceFile UserFile() {
    detail::FilePlace place = detail::UserFileIn(detail::FindUserFolder());
    return place.folder.empty() ? detail::ScanFile(std::move(place), "") : Scan(std::move(place));
}

// What supplied an entry that the store holds, where it can be told: the store keeps values only.
Diagnostics::Layer LayerOfHeld(const ConfigurationModel& model, Diagnostics::Table table,
                               const std::string& key, const std::string& value) {
    const auto& expected = model.Final(table);
    const Diagnostics::Layer layer = model.LayerOf(table, key);
    if (const auto same = expected.find(key); same != expected.end() && same->second == value)
        return layer;
    // The variable may have another value by now.
    const bool isCopied =
        layer == Diagnostics::Layer::CachedEnvironment && Util::detail::TryReadVariable(key);
    return isCopied ? layer : Diagnostics::Layer::SetInProcess;
}

Diagnostics::Source HeldIn(const ConfigurationModel& model, Diagnostics::Table table,
                           const std::string& key, const std::string& value) {
    Diagnostics::Source held;
    held.layer = LayerOfHeld(model, table, key, value);
    if (held.layer != Diagnostics::Layer::SetInProcess) held.place = model.PlaceOf(table, key);
    held.value = value;
    return held;
}

void AddHeld(const ConfigurationModel& model, Diagnostics::Explanation& explanation) {
    const auto store = detail::ExistingStore();
    if (!store) return;
    explanation.isStoreMade = true;
    const std::string& key = explanation.key;
    const auto& [system, user] = store->tables;
    if (const auto set = user.find(key); set != user.end()) {
        explanation.held = HeldIn(model, Diagnostics::Table::User, key, set->second);
    } else if (const auto loaded = system.find(key); loaded != system.end()) {
        explanation.held = HeldIn(model, Diagnostics::Table::System, key, loaded->second);
    } else if (auto variable = Util::detail::TryReadVariable(key)) {
        explanation.held.layer = Diagnostics::Layer::Environment;
        explanation.held.value = *std::move(variable);
    }
    explanation.held.written = explanation.held.value;
}

Diagnostics::Explanation ExplainHere(const ConfigurationModel& model, const std::string& key) {
    Diagnostics::Explanation explanation = detail::Explain(model, key);
    AddHeld(model, explanation);
    return explanation;
}

std::string FolderOfName(const std::string& path) {
    return path.substr(0, path.find_last_of("\\/") + 1);
}

bool IsUserFile(const std::string& path, Diagnostics::FileRole role) {
    if (role != Diagnostics::FileRole::ByName) return role == Diagnostics::FileRole::User;
    const std::string name = path.substr(FolderOfName(path).size());
    return Util::detail::EqualsIgnoringCase(name, detail::UserFileIn({}).fileName);
}

}  // namespace

bool TEVSystemDiagnostics::ExplainProperty(const char* key, Explanation& explanation) try {
    explanation = {};
    const ConfigurationModel model(SystemFile(), UserFile(), ThisProcess());
    explanation = ExplainHere(model, std::string(Util::detail::OrEmpty(key)));
    return true;
} catch (...) {
    return false;
}

bool TEVSystemDiagnostics::ExplainProperties(std::vector<Explanation>& explanations) try {
    explanations.clear();
    const ConfigurationModel model(SystemFile(), UserFile(), ThisProcess());
    std::vector<Explanation> all;
    for (const std::string& key : detail::KeysOf(model)) all.push_back(ExplainHere(model, key));
    explanations.swap(all);
    return true;
} catch (...) {
    return false;
}

bool TEVSystemDiagnostics::CheckPropertiesFile(const char* path, FileRole role,
                                               std::vector<Finding>& findings) try {
    findings.clear();
    const std::string name(Util::detail::OrEmpty(path));
    const auto text = Util::detail::ReadContent(name);
    if (!text) return false;
    const bool isUser = IsUserFile(name, role);
    const std::string folder = FolderOfName(name);
    detail::SourceFile file =
        detail::ScanFile(isUser ? detail::UserFileIn(folder) : detail::SystemFileIn(folder), *text);
    file.path = name;
    const ConfigurationModel model(isUser ? SystemFile() : file, isUser ? file : UserFile(),
                                   ThisProcess());
    findings = detail::Lint(model, isUser ? Table::User : Table::System);
    return true;
} catch (...) {
    return false;
}

bool TEVSystemDiagnostics::PlanEnvironmentDirectives(std::vector<DirectiveStep>& steps) try {
    steps.clear();
    const ConfigurationModel model(SystemFile(), UserFile(), ThisProcess());
    steps = model.Steps();
    return true;
} catch (...) {
    return false;
}

bool TEVSystemDiagnostics::TakePropertiesSnapshot(Snapshot& snapshot) try {
    snapshot = nullptr;
    const auto [system, user] = detail::MadeStore().tables;
    snapshot = std::make_shared<const Tables>(Tables{system, user});
    return true;
} catch (...) {
    return false;
}

namespace {

using Map = std::map<std::string, std::string>;

std::optional<std::string> Find(const Map& table, const std::string& key) {
    const auto found = table.find(key);
    if (found == table.end()) return std::nullopt;
    return found->second;
}

void AddChanges(Diagnostics::Table table, const Map& before, const Map& after,
                std::vector<Diagnostics::Change>& changes) {
    Map keys = before;
    keys.insert(after.begin(), after.end());
    for (const auto& [key, value] : keys) {
        auto old = Find(before, key);
        auto fresh = Find(after, key);
        if (old != fresh) changes.push_back({table, key, std::move(old), std::move(fresh)});
    }
}

}  // namespace

bool TEVSystemDiagnostics::CompareSnapshots(const Snapshot& before, const Snapshot& after,
                                            std::vector<Change>& changes) try {
    changes.clear();
    const Tables none;
    const Tables& first = before ? *before : none;
    const Tables& second = after ? *after : none;
    std::vector<Change> found;
    AddChanges(Table::System, first.system, second.system, found);
    AddChanges(Table::User, first.user, second.user, found);
    changes.swap(found);
    return true;
} catch (...) {
    return false;
}

}  // namespace TAMO::TEV::System
