#include "TEVSystemLib/system/detail/DirectivePlan.h"

#include <gtest/gtest.h>

#include <map>
#include <ostream>
#include <set>
#include <string>
#include <vector>

namespace TAMO::TEV::System::detail {

bool operator==(const Directive& a, const Directive& b) {
    return a.kind == b.kind && a.variable == b.variable && a.value == b.value;
}

void PrintTo(const Directive& directive, std::ostream* out) {
    *out << static_cast<int>(directive.kind) << ':' << directive.variable << '|' << directive.value;
}

}  // namespace TAMO::TEV::System::detail

namespace {

using TAMO::TEV::System::detail::Directive;
using TAMO::TEV::System::detail::DirectiveFlaw;
using TAMO::TEV::System::detail::DirectiveKind;
using TAMO::TEV::System::detail::ExamineDirectives;
using TAMO::TEV::System::detail::PlanDirectives;

using Plan = std::vector<Directive>;
using Table = std::map<std::string, std::string>;

constexpr char kFolder[] = "C:\\tools";

// The plan where the folder C:\tools is the only one.
Plan PlanFor(const Table& table) {
    return PlanDirectives(table, [](const std::string& folder) { return folder == kFolder; });
}

TEST(PlanDirectives, KindIsThePrefixOfTheKey) {
    const struct {
        const char* key;
        DirectiveKind kind;
    } rows[] = {
        {"tev.env.add.1", DirectiveKind::Add},
        {"tev.env.add.path.1", DirectiveKind::AddPath},
        {"tev.env.new.1", DirectiveKind::New},
        {"tev.env.new.path.1", DirectiveKind::NewPath},
        {"tev.env.replace.1", DirectiveKind::Replace},
        {"tev.env.replace.path.1", DirectiveKind::ReplacePath},
        {"tev.env.rm.1", DirectiveKind::RemoveElement},
        // Nothing need follow the prefix, and what follows does not matter.
        {"tev.env.add.", DirectiveKind::Add},
        {"tev.env.add.path.", DirectiveKind::AddPath},
        {"tev.env.add.path", DirectiveKind::Add},
        {"tev.env.new.paths.1", DirectiveKind::New},
        {"tev.env.replace.Path.1", DirectiveKind::Replace},
        {"tev.env.rm.path.1", DirectiveKind::RemoveElement},
        {"tev.env.rm.tev.env.add.", DirectiveKind::RemoveElement},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(PlanFor({{row.key, "X|C:\\tools"}}), (Plan{{row.kind, "X", kFolder}})) << row.key;
    }
    EXPECT_EQ(PlanFor({{"tev.env.del.1", "X"}}), (Plan{{DirectiveKind::Delete, "X", ""}}));
    EXPECT_EQ(PlanFor({{"tev.env.del.path.1", "X"}}), (Plan{{DirectiveKind::Delete, "X", ""}}));
}

TEST(PlanDirectives, OtherKeysAreNone) {
    for (const char* key : {"", "tev.env.", "tev.env.add", "tev.env.del", "tev.env.new",
                            "tev.env.rm", "tev.env.replace", "TEV.ENV.ADD.1", "tev.env.Add.1",
                            "tev.env.adds.1", "tev.env.set.1", "tev.env.remove.1", " tev.env.add.1",
                            "x.tev.env.add.1", "tev.environment.add.1", "tev.log.level"})
        EXPECT_EQ(PlanFor({{key, "X|1"}}), Plan{}) << key;
    EXPECT_EQ(PlanFor({}), Plan{});
}

TEST(PlanDirectives, ValueIsANameAndOneValue) {
    const struct {
        const char *text, *variable, *value;
    } rows[] = {
        {"X|1", "X", "1"},
        {"X|a;b;c", "X", "a;b;c"},
        {"X|1=2", "X", "1=2"},
        {"X=Y|1", "X=Y", "1"},
        {"X|C:/missing/folder", "X", "C:/missing/folder"},
        {" X | 1 ", "X", "1"},
        {"X \t| \t1 2\t ", "X \t", "1 2"},
        {"\tX|1\t", "\tX", "1\t"},
        {" \tX\t|\t1\t ", "X", "1"},
        {"my name|my value", "my name", "my value"},
        // A run of delimiters is one, and those at the ends are none.
        {"X||1", "X", "1"},
        {"|X|1|", "X", "1"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(PlanFor({{"tev.env.add.1", row.text}}),
                  (Plan{{DirectiveKind::Add, row.variable, row.value}}))
            << row.text;
    }
}

TEST(PlanDirectives, AnyOtherValueIsLeftOut) {
    for (const char* text :
         {"", " ", "X", "X|", "|1", "|", "||", "X|1|2", "X| |1", "X| ", " |1", "X;1", "X=1"}) {
        for (const char* key :
             {"tev.env.add.1", "tev.env.new.1", "tev.env.replace.1", "tev.env.rm.1",
              "tev.env.add.path.1", "tev.env.new.path.1", "tev.env.replace.path.1"})
            EXPECT_EQ(PlanFor({{key, text}}), Plan{}) << key << '=' << text;
    }
}

TEST(PlanDirectives, DeleteTakesTheWholeValueAsName) {
    const struct {
        const char *text, *variable;
    } rows[] = {
        {"X", "X"}, {"  X ", "X"}, {" \tX\t ", "X"}, {"\tX", "\tX"}, {"X|1", "X|1"}, {"a b", "a b"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(PlanFor({{"tev.env.del.1", row.text}}),
                  (Plan{{DirectiveKind::Delete, row.variable, ""}}))
            << row.text;
    }
    EXPECT_EQ(PlanFor({{"tev.env.del.1", "  "}}), Plan{});
}

TEST(PlanDirectives, PathsMustNameAnExistingFolder) {
    const struct {
        const char* key;
        DirectiveKind kind;
    } kinds[] = {{"tev.env.add.path.1", DirectiveKind::AddPath},
                 {"tev.env.new.path.1", DirectiveKind::NewPath},
                 {"tev.env.replace.path.1", DirectiveKind::ReplacePath}};
    for (const auto& row : kinds) {
        SCOPED_TRACE(row.key);
        for (const char* text : {"X|C:\\tools", "X|C:/tools", " X |  C:/tools  "})
            EXPECT_EQ(PlanFor({{row.key, text}}), (Plan{{row.kind, "X", kFolder}})) << text;
        EXPECT_EQ(PlanFor({{row.key, "X|C:/missing"}}), Plan{});
    }
}

TEST(PlanDirectives, FoldersAreTestedWithBackslashesAndOnlyForPaths) {
    std::multiset<std::string> tested;
    PlanDirectives({{"tev.env.add.1", "X|C:/plain"},
                    {"tev.env.add.path.1", "X| C:/a/b/ "},
                    {"tev.env.del.1", "C:/name"},
                    {"tev.env.new.path.1", "X|//server\\share/c"},
                    {"tev.env.new.path.2", "X|two|pieces"},
                    {"tev.env.rm.1", "X|C:/element"}},
                   [&tested](const std::string& folder) {
                       tested.insert(folder);
                       return true;
                   });
    EXPECT_EQ(tested, (std::multiset<std::string>{"C:\\a\\b\\", "\\\\server\\share\\c"}));
}

TEST(PlanDirectives, OrderIsByGroupThenByKey) {
    const Plan plan = PlanFor({
        {"tev.env.rm.1", "A|1"},
        {"tev.env.replace.path.1", "B|C:/tools"},
        {"tev.env.replace.z", "C|1"},
        {"tev.env.new.path.1", "D|C:/tools"},
        {"tev.env.new.2", "E|2"},
        {"tev.env.new.10", "E|10"},
        {"tev.env.new.B", "E|B"},
        {"tev.env.new.z", "E|z"},
        {"tev.env.del.1", "F"},
        {"tev.env.add.path.2", "G|C:/tools"},
        {"tev.env.add.path.1", "H|C:/tools"},
        {"tev.env.add.z", "I|1"},
        {"tev.env.add.a", "J|1"},
    });
    const Plan expected{
        {DirectiveKind::Add, "J", "1"},           {DirectiveKind::Add, "I", "1"},
        {DirectiveKind::AddPath, "H", kFolder},   {DirectiveKind::AddPath, "G", kFolder},
        {DirectiveKind::Delete, "F", ""},         {DirectiveKind::New, "E", "10"},
        {DirectiveKind::New, "E", "2"},           {DirectiveKind::New, "E", "B"},
        {DirectiveKind::New, "E", "z"},           {DirectiveKind::NewPath, "D", kFolder},
        {DirectiveKind::Replace, "C", "1"},       {DirectiveKind::ReplacePath, "B", kFolder},
        {DirectiveKind::RemoveElement, "A", "1"},
    };
    EXPECT_EQ(plan, expected);
}

TEST(ExamineDirectives, TellsWhyAnEntryIsLeftOut) {
    const struct {
        const char *key, *text, *variable;
        DirectiveFlaw flaw;
    } rows[] = {
        {"tev.env.new.1", "X|1", "X", DirectiveFlaw::None},
        {"tev.env.new.1", "X", "X", DirectiveFlaw::NoBar},
        {"tev.env.new.1", "", "", DirectiveFlaw::NoBar},
        {"tev.env.new.1", "X|", "X", DirectiveFlaw::OnePiece},
        {"tev.env.new.1", "|", "", DirectiveFlaw::OnePiece},
        {"tev.env.new.1", "X|1|2", "X", DirectiveFlaw::ManyPieces},
        {"tev.env.new.1", "X| ", "X", DirectiveFlaw::BlankPiece},
        {"tev.env.new.1", " |1", "", DirectiveFlaw::BlankPiece},
        {"tev.env.new.path.1", "X|C:/tools", "X", DirectiveFlaw::None},
        {"tev.env.new.path.1", "X|C:/none", "X", DirectiveFlaw::NoFolder},
        {"tev.env.del.1", "X", "X", DirectiveFlaw::None},
        {"tev.env.del.1", " ", "", DirectiveFlaw::NoVariable},
        {"tev.env.bad.1", "X|1", "", DirectiveFlaw::UnknownPrefix},
        {"tev.env.", "X|1", "", DirectiveFlaw::UnknownPrefix},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.key) + " = " + row.text);
        const auto entries =
            ExamineDirectives({{"a", "b"}, {row.key, row.text}, {"tev.envy", "c"}, {"tev.f", "g"}},
                              [](const std::string& folder) { return folder == kFolder; });
        ASSERT_EQ(entries.size(), 1U);
        EXPECT_EQ(entries[0].key, row.key);
        EXPECT_EQ(entries[0].flaw, row.flaw);
        EXPECT_EQ(entries[0].directive.variable, row.variable);
    }
}

TEST(ExamineDirectives, OtherKeysMayBeMissing) {
    const auto anyFolder = [](const std::string&) { return true; };
    EXPECT_TRUE(ExamineDirectives({}, anyFolder).empty());
    EXPECT_TRUE(ExamineDirectives({{"a", "b"}}, anyFolder).empty());
    EXPECT_EQ(ExamineDirectives({{"tev.env.del.1", "X"}}, anyFolder).size(), 1U);
}

TEST(NameOf, IsWhatTheKeysCallTheKind) {
    const struct {
        DirectiveKind kind;
        const char* name;
    } rows[] = {{DirectiveKind::Add, "add"},
                {DirectiveKind::AddPath, "add.path"},
                {DirectiveKind::Delete, "del"},
                {DirectiveKind::New, "new"},
                {DirectiveKind::NewPath, "new.path"},
                {DirectiveKind::Replace, "replace"},
                {DirectiveKind::ReplacePath, "replace.path"},
                {DirectiveKind::RemoveElement, "rm"}};
    for (const auto& row : rows) EXPECT_EQ(TAMO::TEV::System::detail::NameOf(row.kind), row.name);
}

}  // namespace
