#include "TEVSystemLib/system/detail/DirectivePlan.h"

#include <TEVSystemLib/system/TEVSysCnst.h>

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "TEVSystemLib/util/file/detail/PathText.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/OrNothing.h"
#include "TEVSystemLib/util/string/detail/Tokens.h"

namespace TAMO::TEV::System::detail {

namespace {

using Util::detail::Tokens;
using Util::detail::TrimIfSpaced;

bool StartsWith(std::string_view text, std::string_view prefix) {
    return text.substr(0, prefix.size()) == prefix;
}

struct Prefix {
    const char* text;
    DirectiveKind kind;
};

// A path prefix continues a plain one, so it is tried first.
const auto& Prefixes() {
    using Key = TEVSysCnst::PropertyKey;
    static const Prefix prefixes[] = {{Key::TEV_ENV_ADD_PATH, DirectiveKind::AddPath},
                                      {Key::TEV_ENV_ADD, DirectiveKind::Add},
                                      {Key::TEV_ENV_DEL, DirectiveKind::Delete},
                                      {Key::TEV_ENV_NEW_PATH, DirectiveKind::NewPath},
                                      {Key::TEV_ENV_NEW, DirectiveKind::New},
                                      {Key::TEV_ENV_REPLACE_PATH, DirectiveKind::ReplacePath},
                                      {Key::TEV_ENV_REPLACE, DirectiveKind::Replace},
                                      {Key::TEV_ENV_RM, DirectiveKind::RemoveElement}};
    return prefixes;
}

std::optional<DirectiveKind> KindOf(std::string_view key) {
    for (const auto& [prefix, kind] : Prefixes()) {
        if (StartsWith(key, prefix)) return kind;
    }
    return std::nullopt;
}

bool IsPathKind(DirectiveKind kind) {
    return kind == DirectiveKind::AddPath || kind == DirectiveKind::NewPath ||
           kind == DirectiveKind::ReplacePath;
}

using Flaw = DirectiveFlaw;

DirectiveEntry Deletion(DirectiveEntry entry, std::string_view text) {
    entry.directive.variable = TrimIfSpaced(text);
    if (entry.directive.variable.empty()) entry.flaw = Flaw::NoVariable;
    return entry;
}

Flaw FlawOf(const std::vector<std::string_view>& pieces, std::string_view text) {
    if (pieces.size() > 2) return Flaw::ManyPieces;
    if (pieces.size() == 2) return Flaw::None;
    const std::string_view bar = TEVSysCnst::PropertyKey::TEV_LOG_DELIMITER;
    return text.find(bar) == std::string_view::npos ? Flaw::NoBar : Flaw::OnePiece;
}

DirectiveEntry Assignment(DirectiveEntry entry, std::string_view text,
                          const FolderTest& folderExists) {
    const auto pieces = Tokens(TEVSysCnst::PropertyKey::TEV_LOG_DELIMITER, text);
    entry.flaw = FlawOf(pieces, text);
    if (!pieces.empty()) entry.directive.variable = TrimIfSpaced(pieces[0]);
    if (entry.flaw != Flaw::None) return entry;
    auto& [kind, variable, value] = entry.directive;
    value = TrimIfSpaced(pieces[1]);
    if (variable.empty() || value.empty()) {
        entry.flaw = Flaw::BlankPiece;
    } else if (IsPathKind(kind)) {
        value = Util::detail::WithBackslashes(value);
        if (!folderExists(value)) entry.flaw = Flaw::NoFolder;
    }
    return entry;
}

DirectiveEntry Examine(const std::string& key, std::string_view text,
                       const FolderTest& folderExists) {
    const auto kind = KindOf(key);
    if (!kind) return {key, Flaw::UnknownPrefix, {}};
    DirectiveEntry entry{key, Flaw::None, {*kind, {}, {}}};
    return *kind == DirectiveKind::Delete ? Deletion(std::move(entry), text)
                                          : Assignment(std::move(entry), text, folderExists);
}

enum ListOperation : int { kAdd = 0, kRemove = 1 };

void Append(std::vector<Directive>& plan, const std::string& key, std::string_view text,
            const FolderTest& folderExists) {
    if (!KindOf(key)) return;
    DirectiveEntry entry = Examine(key, text, folderExists);
    if (entry.flaw == Flaw::None) plan.push_back(std::move(entry.directive));
}

template <typename Entry, typename Kind>
void SortForExecution(std::vector<Entry>& entries, Kind kind) {
    std::stable_sort(entries.begin(), entries.end(),
                     [kind](const Entry& a, const Entry& b) { return kind(a) < kind(b); });
}

}  // namespace

std::vector<DirectiveEntry> ExamineDirectives(const std::map<std::string, std::string>& properties,
                                              const FolderTest& folderExists) {
    constexpr std::string_view kFamily = "tev.env.";
    std::vector<DirectiveEntry> entries;
    for (auto at = properties.lower_bound(std::string(kFamily));
         at != properties.end() && StartsWith(at->first, kFamily); ++at)
        entries.push_back(Examine(at->first, at->second, folderExists));
    SortForExecution(entries, [](const DirectiveEntry& entry) { return entry.directive.kind; });
    return entries;
}

std::vector<Directive> PlanDirectives(const std::map<std::string, std::string>& properties,
                                      const FolderTest& folderExists) {
    std::vector<Directive> plan;
    // An entry that fails, because memory is exhausted, costs no other.
    for (const auto& property : properties) {
        Util::detail::OrNothing(
            [&] { Append(plan, property.first, property.second, folderExists); });
    }
    SortForExecution(plan, [](const Directive& directive) { return directive.kind; });
    return plan;
}

std::string NameOf(DirectiveKind kind) {
    constexpr std::size_t kFamilyLength = 8;
    for (const auto& [prefix, candidate] : Prefixes()) {
        if (candidate != kind) continue;
        const std::string_view word = std::string_view(prefix).substr(kFamilyLength);
        return std::string(word.substr(0, word.size() - 1));
    }
    return {};
}

bool NeedsVariable(DirectiveKind kind) {
    return kind != DirectiveKind::New && kind != DirectiveKind::NewPath;
}

bool Execute(const Directive& directive, VariableSession& session) {
    const auto& [kind, variable, value] = directive;
    switch (kind) {
        case DirectiveKind::Add:
            return session.Modify(variable, value, false, kAdd);
        case DirectiveKind::AddPath:
            return session.Modify(variable, value, true, kAdd);
        case DirectiveKind::Delete:
            return session.Exists(variable) && session.Set(variable, nullptr);
        case DirectiveKind::New:
        case DirectiveKind::NewPath:
            return session.Set(variable, value.c_str());
        case DirectiveKind::Replace:
        case DirectiveKind::ReplacePath:
            return session.Exists(variable) && session.Set(variable, value.c_str());
        case DirectiveKind::RemoveElement:
            return session.Exists(variable) && session.Modify(variable, value, false, kRemove);
    }
    return false;
}

}  // namespace TAMO::TEV::System::detail
