#include <TEVSystemLib/util/file/TEVUtilFile.h>
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "docs/Page.h"
#include "system/StoreFixture.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilFile;
using tev::test::Cells;
using tev::test::CodesIn;
using tev::test::Folder;
using tev::test::RowsOf;
using tev::test::Variable;

constexpr char kPage[] = "configuration-files.md";
using Pairs = std::map<std::string, std::string>;

TEST(ConfigurationPage, LinesHold) {
    const Folder folder;
    for (const Cells& row : RowsOf(kPage, "Lines")) {
        const auto adds = CodesIn(row[1]);
        ASSERT_TRUE(adds.size() == 2 || row[1] == "nothing") << row[1];
        const Pairs expected = adds.empty() ? Pairs{} : Pairs{{adds[0], adds[1]}};
        for (const std::string& line : CodesIn(row[0])) {
            Pairs pairs;
            TEVUtilFile::GetKeyValuePairsFromFile(folder.Write("lines", line), pairs, false);
            EXPECT_EQ(pairs, expected) << line;
        }
    }
}

std::string Replaced(std::string text, const std::string& pattern, const std::string& by) {
    for (std::size_t at = 0; (at = text.find(pattern, at)) != std::string::npos; at += by.size())
        text.replace(at, pattern.size(), by);
    return text;
}

class ConfigurationPageDirectives : public tev::test::StoreFixture {
 protected:
    ConfigurationPageDirectives() {
        kit_.MakeFolder("bin");
        kit_.MakeFolder("data");
    }

    // The page's folder C:\kit is one that exists, with slashes where the page has them.
    std::string Fill(const std::string& text) const {
        const std::string slashes = Replaced(kit_.Path(), "\\", "/");
        return Replaced(Replaced(text, "C:\\kit", kit_.Path()), "C:/kit", slashes);
    }

    std::optional<std::string> State(const std::string& cell) const {
        if (cell == "not set") return std::nullopt;
        return Fill(CodesIn(cell).at(0));
    }

    const Folder kit_;
};

TEST_F(ConfigurationPageDirectives, ExamplesHold) {
    int checked = 0;
    for (const Cells& row : RowsOf(kPage, "Environment directives")) {
        ASSERT_EQ(row.size(), 5U);
        const std::string prefix = CodesIn(row[0]).at(0);
        const std::string value = CodesIn(row[2]).at(0);
        const std::string name = value.substr(0, value.find('|'));
        const Variable variable(name, State(row[3]));
        Load(prefix + "x = " + Fill(value));
        EXPECT_EQ(tev::test::SystemVariable(name.c_str()), State(row[4])) << prefix;
        ++checked;
    }
    EXPECT_EQ(checked, 8);
}

class ConfigurationPageReferences : public tev::test::StoreFixture {};

TEST_F(ConfigurationPageReferences, NamesThatAreNotFoundStay) {
    const Variable temp("TEMP", std::string("T:\\t"));
    for (const Cells& row : RowsOf(kPage, "References"))
        for (const std::string& value : CodesIn(row[0])) {
            Load("demo.install = K:\\k\na = " + value + "\nz = last");
            const bool isSame = row[1] == "the same text";
            const std::string expected =
                isSame ? value
                       : Replaced(Replaced(value, "%TEMP%", "T:\\t"), "%demo.install%", "K:\\k");
            EXPECT_EQ(Get("a"), expected);
        }
}

class ConfigurationPageDefaults : public tev::test::StoreFixture {};

TEST_F(ConfigurationPageDefaults, WrongValuesBecomeThem) {
    int checked = 0;
    for (const Cells& row : RowsOf(kPage, "Well-known keys")) {
        if (row.size() != 3) continue;
        const std::string key = CodesIn(row[0]).at(0);
        const bool isFree = row[1] == "free text";
        Load(key + " = no right value");
        EXPECT_EQ(Get(key.c_str()), isFree ? "no right value" : CodesIn(row[2]).at(0)) << key;
        ++checked;
    }
    EXPECT_EQ(checked, 10);
}

}  // namespace
