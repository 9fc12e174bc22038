#include "TEVSystemLib/system/detail/DirectivePlan.h"

#include <TEVSystemLib/system/TEVSysCnst.h>

#include <algorithm>
#include <optional>
#include <string_view>

#include "TEVSystemLib/util/file/detail/PathText.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/Tokens.h"

namespace TAMO::TEV::System::detail {

namespace {

using Util::detail::Tokens;
using Util::detail::TrimIfSpaced;

bool StartsWith(std::string_view text, std::string_view prefix) {
    return text.substr(0, prefix.size()) == prefix;
}

std::optional<DirectiveKind> KindOf(std::string_view key) {
    using Key = TEVSysCnst::PropertyKey;
    // A path prefix continues a plain one, so it is tried first.
    const struct {
        const char* prefix;
        DirectiveKind kind;
    } prefixes[] = {{Key::TEV_ENV_ADD_PATH, DirectiveKind::AddPath},
                    {Key::TEV_ENV_ADD, DirectiveKind::Add},
                    {Key::TEV_ENV_DEL, DirectiveKind::Delete},
                    {Key::TEV_ENV_NEW_PATH, DirectiveKind::NewPath},
                    {Key::TEV_ENV_NEW, DirectiveKind::New},
                    {Key::TEV_ENV_REPLACE_PATH, DirectiveKind::ReplacePath},
                    {Key::TEV_ENV_REPLACE, DirectiveKind::Replace},
                    {Key::TEV_ENV_RM, DirectiveKind::RemoveElement}};
    for (const auto& [prefix, kind] : prefixes) {
        if (StartsWith(key, prefix)) return kind;
    }
    return std::nullopt;
}

bool IsPathKind(DirectiveKind kind) {
    return kind == DirectiveKind::AddPath || kind == DirectiveKind::NewPath ||
           kind == DirectiveKind::ReplacePath;
}

std::optional<Directive> Parse(DirectiveKind kind, std::string_view text,
                               const FolderTest& folderExists) {
    if (kind == DirectiveKind::Delete) {
        const std::string_view variable = TrimIfSpaced(text);
        if (variable.empty()) return std::nullopt;
        return Directive{kind, std::string(variable), {}};
    }
    const auto pieces = Tokens(TEVSysCnst::PropertyKey::TEV_LOG_DELIMITER, text);
    if (pieces.size() != 2) return std::nullopt;
    const std::string_view variable = TrimIfSpaced(pieces[0]);
    const std::string_view value = TrimIfSpaced(pieces[1]);
    if (variable.empty() || value.empty()) return std::nullopt;
    Directive directive{kind, std::string(variable), std::string(value)};
    if (IsPathKind(kind)) {
        directive.value = Util::detail::WithBackslashes(value);
        if (!folderExists(directive.value)) return std::nullopt;
    }
    return directive;
}

// An entry that fails, because memory is exhausted, costs no other.
void Append(std::vector<Directive>& plan, std::string_view key, std::string_view text,
            const FolderTest& folderExists) noexcept try {
    const auto kind = KindOf(key);
    if (!kind) return;
    if (auto directive = Parse(*kind, text, folderExists)) plan.push_back(*std::move(directive));
} catch (...) {
    return;
}

}  // namespace

std::vector<Directive> PlanDirectives(const std::map<std::string, std::string>& properties,
                                      const FolderTest& folderExists) {
    std::vector<Directive> plan;
    for (const auto& [key, text] : properties) Append(plan, key, text, folderExists);
    std::stable_sort(plan.begin(), plan.end(),
                     [](const Directive& a, const Directive& b) { return a.kind < b.kind; });
    return plan;
}

}  // namespace TAMO::TEV::System::detail
