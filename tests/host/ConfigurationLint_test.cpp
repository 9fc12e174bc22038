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
        {"\xEF\xBB\xBF# a\n", "1 byte-order-mark, 1 no-separator"},
        {"a=1\nb=1\0\n"s, "2 nul-byte"},
        {"a=1\0\0\nb=1\0\n"s, "1 nul-byte, 1 no-separator, 2 nul-byte"},
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
        {"tev.env.add.1=L|x\n", "1 user-directive"},
        {"a=%s%\n", ""},
        {"a=%nope%\n", "1 unresolved-reference"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        const auto model = Models(kVariables).Make("s=1\n", row.text);
        EXPECT_EQ(Ids(Lint(model, Table::User)), row.ids);
    }
}

TEST(Lint, SaysWhatIsMeant) {
    const struct {
        const char *text, *message;
    } rows[] = {
        {"tev.lgo.level=x", "unknown key \"tev.lgo.level\"; did you mean \"tev.log.level\"?"},
        {"tev.quite.another.thing=x", "unknown key \"tev.quite.another.thing\""},
        {"a=1\na=2", "\"a\" is written again in line 2, which counts"},
        {"tev.log.level=loud", "\"loud\" is no level; the default \"DEBUG\" is taken"},
        {"tev.env.replace.1=X|1", "the directive is ignored: the variable is not set (X)"},
    };
    for (const auto& row : rows) {
        const auto findings = Lint(Models().Make(row.text), Table::System);
        ASSERT_EQ(findings.size(), 1U) << row.text;
        EXPECT_EQ(findings[0].message, row.message);
        EXPECT_EQ(findings[0].place.file, "S/tev.system.properties");
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
