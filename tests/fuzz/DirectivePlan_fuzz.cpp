#include <set>

#include "TEVSystemLib/system/detail/DirectivePlan.h"
#include "fuzz/Fuzz.h"
#include "models/TextModel.h"

using TAMO::TEV::System::detail::Directive;
using TAMO::TEV::System::detail::DirectiveKind;
using TAMO::TEV::System::detail::PlanDirectives;

namespace {

using Table = std::map<std::string, std::string>;

// In the order of execution.
const struct Group {
    const char* prefix;
    const char* butNot;
    DirectiveKind kind;
    bool isPath;
} kGroups[] = {
    {"tev.env.add.", "tev.env.add.path.", DirectiveKind::Add, false},
    {"tev.env.add.path.", nullptr, DirectiveKind::AddPath, true},
    {"tev.env.del.", nullptr, DirectiveKind::Delete, false},
    {"tev.env.new.", "tev.env.new.path.", DirectiveKind::New, false},
    {"tev.env.new.path.", nullptr, DirectiveKind::NewPath, true},
    {"tev.env.replace.", "tev.env.replace.path.", DirectiveKind::Replace, false},
    {"tev.env.replace.path.", nullptr, DirectiveKind::ReplacePath, true},
    {"tev.env.rm.", nullptr, DirectiveKind::RemoveElement, false},
};
constexpr unsigned kGroupCount = sizeof kGroups / sizeof *kGroups;

using Line = std::pair<int, std::pair<std::string, std::string>>;
using Lines = std::vector<Line>;

Line LineOf(DirectiveKind kind, const std::string& variable, const std::string& value) {
    return {static_cast<int>(kind), {variable, value}};
}

bool IsFolder(const std::string& path) { return path.find('?') == std::string::npos; }

bool Begins(const std::string& key, const char* prefix) { return key.rfind(prefix, 0) == 0; }

void AddGroup(const Group& group, const Table& table, Lines& plan, std::set<std::string>& tested) {
    for (const auto& [key, text] : table) {
        if (!Begins(key, group.prefix)) continue;
        if (group.butNot != nullptr && Begins(key, group.butNot)) continue;
        const std::string whole = tev::test::TrimmedIfSpaced(text);
        if (group.kind == DirectiveKind::Delete) {
            if (!whole.empty()) plan.push_back(LineOf(group.kind, whole, ""));
            continue;
        }
        const auto pieces = tev::test::PiecesOf("|", text);
        if (pieces.size() != 2) continue;
        const std::string variable = tev::test::TrimmedIfSpaced(pieces[0]);
        std::string value = tev::test::TrimmedIfSpaced(pieces[1]);
        if (variable.empty() || value.empty()) continue;
        if (group.isPath) {
            value = tev::test::Turned(value);
            tested.insert(value);
            if (!IsFolder(value)) continue;
        }
        plan.push_back(LineOf(group.kind, variable, value));
    }
}

// A digit at the start stands for the prefix of that group, so that a search finds them at once.
std::string KeyOf(const std::string& field) {
    if (field.empty() || field[0] < '0') return field;
    const auto group = static_cast<unsigned>(field[0] - '0');
    return group < kGroupCount ? kGroups[group].prefix + field.substr(1) : field;
}

}  // namespace

// KEY and TEXT in turn.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tev::fuzz::Fields fields(data, size);
    Table table;
    while (!fields.AtEnd()) {
        const std::string key = KeyOf(fields.Next());
        table[key] = fields.Next();
    }
    Lines expected;
    std::set<std::string> expectedTests;
    for (const Group& group : kGroups) AddGroup(group, table, expected, expectedTests);

    std::set<std::string> tested;
    Lines plan;
    for (const Directive& directive : PlanDirectives(table, [&tested](const std::string& folder) {
             tested.insert(folder);
             return IsFolder(folder);
         }))
        plan.push_back(LineOf(directive.kind, directive.variable, directive.value));
    tev::fuzz::ExpectSame(plan, expected, "the plan");
    tev::fuzz::Expect(tested == expectedTests, "only folders of path directives are tested");
    return 0;
}
