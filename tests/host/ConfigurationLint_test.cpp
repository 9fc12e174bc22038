#include "TEVSystemLib/system/detail/ConfigurationLint.h"

#include <gtest/gtest.h>

#include <string>

#include "host/Models.h"

namespace {

using namespace std::string_literals;
using TAMO::TEV::System::TEVSystemDiagnostics;
using TAMO::TEV::System::detail::Lint;
using tev::test::Models;

using Table = TEVSystemDiagnostics::Table;

const Models::Variables kVariables{{"L", "l"}};

// "line id" of each finding.
std::string Ids(const std::vector<TEVSystemDiagnostics::Finding>& findings) {
    std::string ids;
    for (const auto& finding : findings) {
        if (!ids.empty()) ids += ", ";
        ids += std::to_string(finding.place.line) + " " + finding.id;
    }
    return ids;
}

struct Row {
    std::string text;
    const char* ids;
};

TEST(Lint, FindsWhatIsOddInASystemFile) {
    const Row rows[] = {
        {"", ""},
        {"a = 1\n# b\n\nc==2\n", ""},
        {"a\nb=\n= c\n", "1 no-separator, 2 no-value, 3 no-key"},
        {"a=1\nb=2\na=3\na=4\n", "1 duplicate-key, 3 duplicate-key"},
        {"a\na=1\n", "1 no-separator"},
        {"tev.lgo.level=x\n", "1 unknown-key"},
        {"tev.log.level=warn\n", ""},
        {"Tev.log.level=warn\n", "1 key-case"},
        {"tev.log.level=loud\n", "1 default-taken"},
        {"tev.log.level=%L%\n", "1 default-taken"},
        {"tev.logging.status=YES\n", "1 rewritten"},
        {"tev.logging.status=true\n", ""},
        {"tev.sys.config.dir=x\n", "1 noted-key"},
        {"a=%nope%\n", "1 unresolved-reference"},
        {"a=%a%\n", "1 self-reference"},
        {"a=%b%\nb=%L%\n", "1 expanded-later"},
        {"a=%b%\nb=1\n", ""},
        {"b=%a%\na=%L%\n", ""},
        {"a=5 % off\n", ""},
        {"tev.env.add.1=L|x\n", ""},
        {"tev.env.add.1=X|x\n", "1 ignored-directive"},
        {"tev.env.add.1=L\n", "1 ignored-directive"},
        {"tev.env.add.1=L|x|y\n", "1 ignored-directive"},
        {"tev.env.add.path.1=L|C:/kit\n", ""},
        {"tev.env.add.path.1=L|C:/no\n", "1 ignored-directive"},
        {"tev.env.set.1=L|x\n", "1 unknown-directive"},
        {"TEV.ENV.NEW.1=A|b\ntev.ENV.new.2=A\n", "1 unknown-directive, 2 unknown-directive"},
        {"TEV.PATH.DTED0=1\nTEV.Sys.Config.Dir=x\n", "1 key-case, 2 key-case"},
        {"TAMO:corvid.log.dir=x\nKEV.x=1\n", "1 key-case"},
        {"tev.ENVY=x\n", "1 unknown-key"},
        {"\xEF\xBB\xBF# a\n", "1 byte-order-mark, 1 no-separator"},
        {"a=1\nb=1\0\n"s, "2 nul-byte"},
        {"a=1\0\0\nb=1\0\n"s, "1 nul-byte, 1 no-separator, 2 nul-byte"},
        {"a=1\0\nb=1\0\0\n"s, "1 nul-byte, 2 nul-byte, 2 no-separator"},
        {"a=1\na\n", "2 no-separator"},
        {"tevx=1\nkev.x=1\n", ""},
        {"tev.env.del.1=X\na\n", "1 ignored-directive, 2 no-separator"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        const auto model = Models(kVariables).Make(row.text);
        EXPECT_EQ(Ids(Lint(model, Table::System)), row.ids);
        EXPECT_EQ(Ids(Lint(model, Table::User)), "");
    }
}

TEST(Lint, DirectiveFromTheEnvironmentHasNoLineToFind) {
    const Models models(Models::Variables{{"tev.env.rm.1", "X|x"}});
    const auto model = models.Make("a=%tev.env.rm.1%\n");
    ASSERT_EQ(model.Steps().size(), 1U);
    EXPECT_EQ(model.Steps()[0].place.line, 0U);
    EXPECT_EQ(Ids(Lint(model, Table::System)), "");
}

TEST(Lint, FindsWhatIsOddInAUserFile) {
    const Row rows[] = {
        {"tev.log.level=loud\n", "1 not-put-right"},
        {"tev.logging.status=YES\n", ""},
        {"tev.user.properties=x\ntev.user.config.dir=y\n", ""},
        {"tev.env.add.1=L|x\ntev.ENV.add.1=L|x\n", "1 user-directive, 2 user-directive"},
        {"TEV.path.dted0=1\n", "1 key-case"},
        {"a=%s%\n", ""},
        {"tevx=1\n", ""},
        {"TEV.log.level=info\n", "1 key-case"},
        {"a=%nope%\n", "1 unresolved-reference"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        const auto model = Models(kVariables).Make("s=1\n", row.text);
        EXPECT_EQ(Ids(Lint(model, Table::User)), row.ids);
    }
}

// A finding as one text: "file:line severity id [key] {value} message".
std::string Whole(const TEVSystemDiagnostics::Finding& finding) {
    return finding.place.file + ":" + std::to_string(finding.place.line) +
           (finding.severity == TEVSystemDiagnostics::Severity::Note ? " note " : " warning ") +
           finding.id + " [" + finding.key + "] {" + finding.value + "} " + finding.message;
}

struct WholeRow {
    std::string text;
    const char* finding;
};

TEST(Lint, TellsAllAboutAFindingInASystemFile) {
    const WholeRow rows[] = {
        {"\xEF\xBB\xBF=1",
         "1 warning byte-order-mark [] {} the file begins with a byte order mark, which counts as "
         "part of its first line"},
        {"b=1\n\0"s,
         "2 warning nul-byte [] {} a NUL byte may end the value here; is the file UTF-16?"},
        {"=c", "1 warning no-key [] {} the line begins with \"=\" and adds nothing"},
        {"a=1\na",
         "2 warning no-separator [a] {a} \"a\" has no \"=\" behind it; the line adds nothing"},
        {"a=", "1 warning no-value [a] {} \"a\" has no value; the line adds nothing"},
        {"a=1\n\na=2",
         "1 warning duplicate-key [a] {} \"a\" is written again in line 3, which counts"},
        {"tev.system.properties=1",
         "1 warning noted-key [tev.system.properties] {} the store puts its own value in place of "
         "\"tev.system.properties\""},
        {"TEV.log.level=warn",
         "1 warning key-case [TEV.log.level] {} no lookup of \"tev.log.level\" finds this key: "
         "case counts"},
        {"tev.lgo.level=x",
         "1 warning unknown-key [tev.lgo.level] {} unknown key \"tev.lgo.level\"; did you mean "
         "\"tev.log.level\"?"},
        {"tev.quite.another.thing=x",
         "1 warning unknown-key [tev.quite.another.thing] {} unknown key "
         "\"tev.quite.another.thing\""},
        {"tev.environment.of.quite.another.kind=x",
         "1 warning unknown-key [tev.environment.of.quite.another.kind] {} unknown key "
         "\"tev.environment.of.quite.another.kind\""},
        {"a=%nope%",
         "1 warning unresolved-reference [a] {%nope%} %nope% is in no table and no environment "
         "variable; "
         "it stays as it is"},
        {"a=%a%",
         "1 warning self-reference [a] {%a%} %a% refers to its own line; the text is put in "
         "unexpanded"},
        {"b=%L%\na=%b%",
         "2 warning expanded-later [a] {%b%} %b% is expanded after \"a\"; its own references are "
         "put "
         "in unexpanded"},
        {"tev.logging.status=YES",
         "1 note rewritten [tev.logging.status] {YES} \"YES\" reads back in canonical form, true "
         "or "
         "false"},
        {"tev.logging.status=maybe",
         "1 warning default-taken [tev.logging.status] {maybe} \"maybe\" is no switch; the default "
         "\"off\" is taken"},
        {"tev.log.level=loud",
         "1 warning default-taken [tev.log.level] {loud} \"loud\" is no level; the default "
         "\"DEBUG\" is taken"},
        {"tev.log.loggers=%L%",
         "1 warning default-taken [tev.log.loggers] {l} \"l\" is no logger list; the default "
         "\"plain.file\" is taken"},
        {"tamo:corvid.csmxform.operation.mode=x",
         "1 warning default-taken [tamo:corvid.csmxform.operation.mode] {x} \"x\" is no mode; the "
         "default \"minimum\" is taken"},
        {"\ntev.env.replace.1=X|1",
         "2 warning ignored-directive [tev.env.replace.1] {} the directive is ignored: the "
         "variable is not set (X)"},
        {"tev.env.del.1=X",
         "1 warning ignored-directive [tev.env.del.1] {X} the directive is ignored: the variable "
         "is not set (\"X\")"},
        {"Tev.env.new.1=X|1",
         "1 warning unknown-directive [Tev.env.new.1] {} a directive's key is in lower case; this "
         "one does nothing"},
        {"tev.env.new.1=swordfish",
         "1 warning ignored-directive [tev.env.new.1] {swordfish} the directive is ignored: there "
         "is no \"|\" between name and value (\"swordfish\")"},
        {"tev.env.new.1=|",
         "1 warning ignored-directive [tev.env.new.1] {} the directive is ignored: nothing stands "
         "on one side of the \"|\""},
        {"tev.env.add.path.1=L|C:/no",
         "1 warning ignored-directive [tev.env.add.path.1] {C:\\no} the directive is ignored: "
         "there "
         "is no such folder: \"C:\\no\" (L)"},
        {"tev.env.set.1=L|x",
         "1 warning unknown-directive [tev.env.set.1] {} the directive is ignored: no directive "
         "begins like this key"},
    };
    for (const WholeRow& row : rows) {
        SCOPED_TRACE(row.text);
        const auto findings = Lint(Models(kVariables).Make(row.text), Table::System);
        ASSERT_FALSE(findings.empty());
        EXPECT_EQ(Whole(findings[0]), std::string("S/tev.system.properties:") + row.finding);
    }
}

TEST(Lint, ValueBelongsToItsFinding) {
    const auto findings =
        Lint(Models(kVariables).Make("s=1\n", "=c\ntev.log.level=loud"), Table::User);
    ASSERT_EQ(findings.size(), 2U);
    EXPECT_EQ(findings[0].value, "");
    EXPECT_EQ(findings[1].value, "loud");
}

TEST(Lint, TellsAllAboutAFindingInAUserFile) {
    const WholeRow rows[] = {
        {"tev.log.level=loud",
         "1 warning not-put-right [tev.log.level] {loud} \"loud\" is no level; a user value is not "
         "put right, and wins as it is"},
        {"a=1\ntev.env.add.1=L|x",
         "2 warning user-directive [tev.env.add.1] {} directives count in the system file only; "
         "here it does nothing"},
        {"tev.environment.of.quite.another.kind=x",
         "1 warning unknown-key [tev.environment.of.quite.another.kind] {} unknown key "
         "\"tev.environment.of.quite.another.kind\""},
    };
    for (const WholeRow& row : rows) {
        SCOPED_TRACE(row.text);
        const auto findings = Lint(Models(kVariables).Make("s=1\n", row.text), Table::User);
        ASSERT_EQ(findings.size(), 1U);
        EXPECT_EQ(Whole(findings[0]), std::string("U/tev.user.properties:") + row.finding);
    }
}

TEST(Lint, SaysWhereAMessageShowsAValue) {
    const struct {
        const char *text, *value, *start;
    } rows[] = {
        {"db.password swordfish", "db.password swordfish", "\""},
        {"a=%nope%", "%nope%", ""},
        {"a=%a%", "%a%", ""},
        {"a=%b%\nb=%L%", "%b%", ""},
        {"tev.log.level=is", "is", "\""},
        {"tev.env.add.path.1=L|e", "e", "the directive is ignored: there is no such folder: \""},
        {"tev.env.add.1=X|x", "", ""},
    };
    for (const auto& row : rows) {
        const auto findings = Lint(Models(kVariables).Make(row.text), Table::System);
        ASSERT_EQ(findings.size(), 1U) << row.text;
        EXPECT_EQ(findings[0].value, row.value);
        EXPECT_EQ(findings[0].message.find(row.start + findings[0].value), 0U) << row.text;
    }
}

TEST(Lint, CallsOnlyARewrittenSwitchANote) {
    const auto findings =
        Lint(Models().Make("tev.logging.status=on\ntev.log.level=x\n"), Table::System);
    ASSERT_EQ(findings.size(), 2U);
    EXPECT_EQ(findings[0].severity, TEVSystemDiagnostics::Severity::Note);
    EXPECT_EQ(findings[1].severity, TEVSystemDiagnostics::Severity::Warning);
}

}  // namespace
