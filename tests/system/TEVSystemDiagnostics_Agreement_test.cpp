// What the diagnostics say, and what the store of another process then does.
#include <TEVSystemLib/system/TEVSystemDiagnostics.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "fixtures/HostProgram.h"
#include "fixtures/Loaded.h"
#include "fixtures/Modules.h"
#include "support/Effort.h"
#include "support/Environment.h"
#include "support/Folder.h"
#include "system/Configurations.h"

namespace {

using TAMO::TEV::System::TEVSystemDiagnostics;
using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::Configuration;
using tev::test::Configurations;
using tev::test::Folder;
using tev::test::kBetween;
using tev::test::Variable;

using Table = std::map<std::string, std::string>;
using Findings = std::vector<TEVSystemDiagnostics::Finding>;
using Steps = std::vector<TEVSystemDiagnostics::DirectiveStep>;
using Explanations = std::vector<TEVSystemDiagnostics::Explanation>;
using Lines = std::set<std::size_t>;
using Layer = TEVSystemDiagnostics::Layer;

constexpr char kSystemFile[] = "tev.system.properties";
constexpr char kUserFile[] = "tev.user.properties";

// What the other process's store became.
struct Loaded {
    Table system, user, variables;
};

Loaded ReadLoaded(const std::string& folder) {
    Loaded loaded;
    std::istringstream in(tev::test::ReadAll(folder + "\\loaded"));
    for (std::string line; std::getline(in, line);) {
        const std::size_t name = line.find(kBetween) + 1;
        const std::size_t value = line.find(kBetween, name) + 1;
        Table& table = line[0] == 's'   ? loaded.system
                       : line[0] == 'u' ? loaded.user
                                        : loaded.variables;
        table[line.substr(name, value - 1 - name)] = line.substr(value);
    }
    return loaded;
}

std::set<std::string> KeysOf(const Loaded& loaded) {
    std::set<std::string> keys;
    for (const auto& [key, value] : loaded.system) keys.insert(key);
    for (const auto& [key, value] : loaded.user) keys.insert(key);
    return keys;
}

bool IsOneOf(const std::string& id, std::initializer_list<const char*> ids) {
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

// A text with the given lines emptied.
std::string Without(const std::string& text, const Lines& lines) {
    std::string kept;
    std::istringstream in(text);
    std::size_t number = 1;
    for (std::string line; std::getline(in, line); ++number)
        kept += (lines.count(number) > 0 ? "" : line) + '\n';
    return kept;
}

// What was said of one configuration before any store was loaded from it.
struct Said {
    Configuration configuration;
    std::string folder;
    Explanations explanations;
    Steps steps;
    Findings system, user;
};

class Agreement : public ::testing::Test {
 protected:
    std::string Place(const std::string& name, const Configuration& configuration) {
        const std::string folder = root_.MakeFolder(name);
        root_.Write(name + "\\" + kSystemFile, configuration.system);
        root_.Write(name + "\\" + kUserFile, configuration.user);
        std::string variables;
        for (const auto& [variable, value] : configuration.variables)
            variables += variable + (value ? '=' + *value : "") + '\n';
        root_.Write(name + "\\variables", variables);
        list_ += folder + '\n';
        return folder;
    }

    Said Ask(const std::string& name, Configuration configuration) {
        Said said{std::move(configuration), {}, {}, {}, {}, {}};
        said.folder = Place(name, said.configuration);
        systemVariable_.Set(said.folder);
        userVariable_.Set(said.folder);
        std::vector<std::unique_ptr<Variable>> variables;
        for (const auto& [variable, value] : said.configuration.variables)
            variables.push_back(std::make_unique<Variable>(variable, value));
        EXPECT_TRUE(TEVSystemDiagnostics::ExplainProperties(said.explanations));
        EXPECT_TRUE(TEVSystemDiagnostics::PlanEnvironmentDirectives(said.steps));
        // As the store writes the folder.
        said.system = Check(said.folder + '/' + kSystemFile);
        said.user = Check(said.folder + '/' + kUserFile);
        return said;
    }

    static Findings Check(const std::string& path) {
        Findings findings;
        EXPECT_TRUE(TEVSystemDiagnostics::CheckPropertiesFile(
            path.c_str(), TEVSystemDiagnostics::FileRole::ByName, findings));
        return findings;
    }

    // Loads all that was placed in a process of its own.
    void LoadAll() {
        systemVariable_.Set(std::nullopt);
        userVariable_.Set(std::nullopt);
        const Variable path("PATH", tev::test::FolderOf(tev::test::FileNameOf(nullptr)) + ";" +
                                        tev::test::SystemVariable("PATH").value_or(""));
        tev::test::HostProgram batch(tev::test::Fixture("tevbatch\\tevbatch.exe"),
                                     {root_.Write("list", list_)});
        EXPECT_EQ(batch.End(), 0U);
        list_.clear();
    }

    const Folder root_;

 private:
    const Variable systemVariable_{"TEV_SYS_CONFIG_DIR"};
    const Variable userVariable_{"TEV_USER_CONFIG_DIR"};
    const Variable appData_{"APPDATA"};
    std::string list_;
};

void ExpectAnswers(const Said& said, const Loaded& loaded) {
    std::set<std::string> keys;
    for (const auto& explanation : said.explanations) {
        SCOPED_TRACE(explanation.key);
        keys.insert(explanation.key);
        const bool isUser = loaded.user.count(explanation.key) > 0;
        const Table& table = isUser ? loaded.user : loaded.system;
        ASSERT_EQ(table.count(explanation.key), 1U);
        EXPECT_EQ(explanation.answer.value, table.at(explanation.key));
        EXPECT_EQ(isUser, explanation.answer.layer == Layer::UserFile ||
                              (explanation.answer.layer == Layer::Noted &&
                               explanation.key.find("tev.user.") == 0));
    }
    EXPECT_EQ(keys, KeysOf(loaded));
}

// The system does not tell the cases of letters apart.
std::string Folded(const std::string& name) {
    std::string folded = TEVUtilString::ToUpper(name);
    std::replace(folded.begin(), folded.end(), '\xE9', '\xC9');
    return folded;
}

void ExpectVariables(const Said& said, const Loaded& loaded) {
    Table expected;
    const auto expect = [&](const std::string& name, const std::optional<std::string>& value) {
        const std::string upper = Folded(name);
        expected.erase(upper);
        if (value) expected[upper] = *value;
    };
    expect("TEV_SYS_CONFIG_DIR", said.folder);
    expect("TEV_USER_CONFIG_DIR", said.folder);
    for (const auto& [name, value] : said.configuration.variables) expect(name, value);
    for (const auto& step : said.steps)
        if (!step.variable.empty()) expect(step.variable, step.after);
    Table found;
    for (const auto& [name, value] : loaded.variables) found[Folded(name)] = value;
    EXPECT_EQ(found, expected);
}

// A value without references in it is changed exactly where the lint says so.
void ExpectCorrections(const Said& said, const Loaded& loaded) {
    Table corrected;
    for (const auto& finding : said.system)
        if (IsOneOf(finding.id, {"default-taken", "rewritten"}))
            corrected[finding.key] = finding.value;
    for (const auto& [key, value] : corrected) {
        SCOPED_TRACE(key);
        EXPECT_NE(loaded.system.at(key), value);
    }
    for (const auto& explanation : said.explanations) {
        if (explanation.answer.layer != Layer::SystemFile) continue;
        const std::string& written = explanation.answer.written;
        if (written.find('%') != std::string::npos) continue;
        SCOPED_TRACE(explanation.key);
        EXPECT_EQ(loaded.system.at(explanation.key) != written,
                  corrected.count(explanation.key) > 0);
    }
}

// A name that nothing has stays in the value where the lint says so.
void ExpectUnresolved(const Findings& findings, const Table& table) {
    std::set<std::string> corrected;
    for (const auto& finding : findings)
        if (finding.id == "default-taken") corrected.insert(finding.key);
    for (const auto& finding : findings) {
        if (finding.id != "unresolved-reference" || corrected.count(finding.key) > 0) continue;
        const std::string name = finding.message.substr(0, finding.message.find('%', 1) + 1);
        EXPECT_THAT(table.at(finding.key), ::testing::HasSubstr(name));
    }
}

bool HasReference(const std::string& value) {
    return std::count(value.begin(), value.end(), '%') > 1;
}

// A value may also have got a reference from another one, which is told of there.
bool HasInherited(const TEVSystemDiagnostics::Explanation& explanation) {
    const auto& all = explanation.references;
    return std::any_of(all.begin(), all.end(), [](const auto& reference) {
        return reference.fate == TEVSystemDiagnostics::Fate::Resolved &&
               reference.value.find('%') != std::string::npos;
    });
}

// What is loaded still holds a reference only where the lint says so of the line that counts.
void ExpectReferences(const Said& said, const Loaded& loaded) {
    for (const auto& explanation : said.explanations) {
        const std::string& key = explanation.key;
        const TEVSystemDiagnostics::Source& answer = explanation.answer;
        const bool isUser = answer.layer == Layer::UserFile;
        const bool isCorrected = explanation.correction != TEVSystemDiagnostics::Correction::None;
        if ((!isUser && answer.layer != Layer::SystemFile) || isCorrected ||
            !HasReference(answer.written) || HasInherited(explanation))
            continue;
        const Findings& findings = isUser ? said.user : said.system;
        const bool isTold = std::any_of(findings.begin(), findings.end(), [&](const auto& finding) {
            return finding.key == key && IsOneOf(finding.id, {"unresolved-reference",
                                                              "self-reference", "expanded-later"});
        });
        const std::string& value = (isUser ? loaded.user : loaded.system).at(key);
        SCOPED_TRACE(key + " is " + value);
        EXPECT_TRUE(isTold || !HasReference(value));
        EXPECT_TRUE(!isTold || value.find('%') != std::string::npos);
    }
}

Lines LinesOf(const Findings& findings, std::initializer_list<const char*> ids) {
    Lines lines;
    for (const auto& finding : findings)
        if (IsOneOf(finding.id, ids)) lines.insert(finding.place.line);
    return lines;
}

bool HasBytesThatEndLines(const Said& said) {
    return !LinesOf(said.system, {"nul-byte"}).empty() || !LinesOf(said.user, {"nul-byte"}).empty();
}

Configuration Stripped(const Said& said, std::initializer_list<const char*> ids) {
    return {Without(said.configuration.system, LinesOf(said.system, ids)),
            Without(said.configuration.user, LinesOf(said.user, ids)),
            said.configuration.variables};
}

Table WithoutPlaces(Table table) {
    for (const char* key : {"tev.sys.config.dir", "tev.user.config.dir", kSystemFile, kUserFile})
        table.erase(key);
    return table;
}

Table WithoutFolders(Table variables) {
    for (const char* name : {"TEV_SYS_CONFIG_DIR", "TEV_USER_CONFIG_DIR"}) variables.erase(name);
    return variables;
}

constexpr int kBatch = 100;

TEST_F(Agreement, TheStoreOfAnotherProcessDoesWhatWasSaid) {
    const std::int64_t wanted = tev::test::Repetitions(200);
    Configurations configurations(8, root_.Path());
    for (std::int64_t done = 0; done < wanted; done += kBatch) {
        std::vector<Said> all;
        for (int i = 0; i < kBatch; ++i)
            all.push_back(Ask(std::to_string(done + i), configurations.Next()));
        LoadAll();
        for (const Said& said : all) {
            SCOPED_TRACE(said.configuration.system + "--- user\n" + said.configuration.user);
            const Loaded loaded = ReadLoaded(said.folder);
            ExpectAnswers(said, loaded);
            ExpectVariables(said, loaded);
            ExpectCorrections(said, loaded);
            ExpectUnresolved(said.system, loaded.system);
            ExpectUnresolved(said.user, loaded.user);
            ExpectReferences(said, loaded);
            if (HasFailure()) return;
        }
    }
}

// The file says where its folder is; a value that refers to it would differ.
TEST_F(Agreement, LinesThatAreSaidToAddNothingAddNothing) {
    const auto adding = {"no-key", "no-separator", "no-value", "duplicate-key", "noted-key"};
    const auto idle = {"no-key",    "no-separator",      "no-value",          "duplicate-key",
                       "noted-key", "ignored-directive", "unknown-directive", "user-directive"};
    const std::int64_t wanted = tev::test::Repetitions(100);
    Configurations configurations(9, root_.Path());
    for (std::int64_t done = 0; done < wanted; done += kBatch) {
        std::vector<Said> all;
        for (int i = 0; i < kBatch; ++i) {
            const std::string name = std::to_string(done + i);
            all.push_back(Ask(name, configurations.Next()));
            if (HasBytesThatEndLines(all.back())) {
                all.pop_back();
                continue;
            }
            Place(name + "a", Stripped(all.back(), adding));
            Place(name + "b", Stripped(all.back(), idle));
        }
        LoadAll();
        for (const Said& said : all) {
            SCOPED_TRACE(said.configuration.system + "--- user\n" + said.configuration.user);
            const Loaded whole = ReadLoaded(said.folder);
            const Loaded shorter = ReadLoaded(said.folder + "a");
            EXPECT_EQ(WithoutPlaces(shorter.system), WithoutPlaces(whole.system));
            EXPECT_EQ(WithoutPlaces(shorter.user), WithoutPlaces(whole.user));
            EXPECT_EQ(WithoutFolders(shorter.variables), WithoutFolders(whole.variables));
            EXPECT_EQ(WithoutFolders(ReadLoaded(said.folder + "b").variables),
                      WithoutFolders(whole.variables));
            if (HasFailure()) return;
        }
    }
}

}  // namespace
