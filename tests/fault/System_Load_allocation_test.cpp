// Loading the store when memory is exhausted at any step.
#include <gtest/gtest.h>

#include <algorithm>
#include <list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "TEVSystemLib/system/detail/ConfigurationFolders.h"
#include "TEVSystemLib/system/detail/StoreTables.h"
#include "fault/TextRows.h"
#include "support/Environment.h"
#include "system/StoreFixture.h"

namespace {

using namespace tev::fault;
using tev::test::kSystemFile;
using tev::test::kUserFile;
using tev::test::OpenStore;
using tev::test::Store;
using tev::test::StoreFolders;
using tev::test::SystemVariable;
using tev::test::Table;
using tev::test::Variable;

// One directive of each kind that can be told from its variable, and what it is when none or all
// have been executed.
struct DirectiveCase {
    const char* key;
    const char* value;
    const char* variable;
    std::optional<std::string> before;
    std::optional<std::string> after;
};

std::vector<DirectiveCase> Directives() {
    return {
        {"tev.env.add.1", "TEV_FAULT_LIST_ADDED_TO|an element of some length",
         "TEV_FAULT_LIST_ADDED_TO", "first", "first;an element of some length"},
        {"tev.env.add.path.1", "TEV_FAULT_LIST_OF_FOLDERS|C:/windows/system32",
         "TEV_FAULT_LIST_OF_FOLDERS", "first", "C:\\windows\\system32;first"},
        {"tev.env.del.1", "TEV_FAULT_VARIABLE_DELETED", "TEV_FAULT_VARIABLE_DELETED", "set", {}},
        {"tev.env.new.1",
         "TEV_FAULT_VARIABLE_CREATED|a value of some length",
         "TEV_FAULT_VARIABLE_CREATED",
         {},
         "a value of some length"},
        {"tev.env.replace.1", "TEV_FAULT_VARIABLE_REPLACED|a value of some length",
         "TEV_FAULT_VARIABLE_REPLACED", "set", "a value of some length"},
        {"tev.env.rm.1", "TEV_FAULT_LIST_REMOVED_FROM|an element of some length",
         "TEV_FAULT_LIST_REMOVED_FROM", "an element of some length;last", "last"},
    };
}

// Texts of the system file beside the directives, and what the store makes of them.
const Table kWritten{{"a.reference.to.a.variable", "%TEV_FAULT_VARIABLE_NAMED% and %unknown%"},
                     {"tev.log.loggers", "a logger that does not exist"},
                     {"tev.logging.status", "YES"}};
const Table kMade{{"a.reference.to.a.variable", "the value of the variable and %unknown%"},
                  {"tev.log.loggers", "plain.file"},
                  {"tev.logging.status", "true"}};
constexpr const char* kUserText = "a.reference.of.the.user = %tev.log.loggers%\n";

std::string Lines(const Table& table) {
    std::string lines;
    for (const auto& [key, value] : table) lines += key + "=" + value + "\n";
    return lines;
}

Table Joined(Table table, const Table& other) {
    table.insert(other.begin(), other.end());
    return table;
}

// The variables of some directives, as before these have been executed.
class DirectiveVariables {
 public:
    explicit DirectiveVariables(std::vector<DirectiveCase> directives)
        : directives_(std::move(directives)) {
        for (const DirectiveCase& each : directives_) variables_.emplace_back(each.variable);
        Rewind();
    }

    void Rewind() const {
        auto variable = variables_.begin();
        for (const DirectiveCase& each : directives_) (variable++)->Set(each.before);
    }

    // How many have not been executed.
    std::ptrdiff_t Missing() const {
        return std::count_if(directives_.begin(), directives_.end(), [](const auto& each) {
            const auto value = SystemVariable(each.variable);
            EXPECT_TRUE(value == each.before || value == each.after) << each.variable;
            return value != each.after;
        });
    }

    Table Entries() const {
        Table entries;
        for (const DirectiveCase& each : directives_) entries[each.key] = each.value;
        return entries;
    }

 private:
    const std::vector<DirectiveCase> directives_;
    std::list<Variable> variables_;
};

// The files are there, the variables as before the directives; the store is not loaded.
class Unloaded : public StoreFolders {
 public:
    Unloaded() {
        system_.Write(kSystemFile, Lines(Joined(kWritten, directives.Entries())));
        user_.Write(kUserFile, kUserText);
    }

    Table System() const {
        return Joined(Joined(kMade, directives.Entries()),
                      {{"TEV_FAULT_VARIABLE_NAMED", "the value of the variable"},
                       {"tev.sys.config.dir", system_.Path() + "/"},
                       {kSystemFile, system_.Path() + "/" + kSystemFile}});
    }
    Table User() const {
        return {{"a.reference.of.the.user", "a logger that does not exist"},
                {"tev.user.config.dir", user_.Path() + "/"},
                {kUserFile, user_.Path() + "/" + kUserFile}};
    }

    bool IsLoaded() const {
        return OpenStore::System() == System() && OpenStore::User() == User() &&
               directives.Missing() == 0;
    }

    // One list and one variable: all kinds are tested by themselves.
    const DirectiveVariables directives{{Directives()[1], Directives()[2]}};

 private:
    const Variable named_{"TEV_FAULT_VARIABLE_NAMED", "the value of the variable"};
};

// What a skipped step leaves: no entry that was not written, and the values as written or as made.
void ExpectNothingForeign(const Table& table, const Table& written, const Table& made) {
    for (const auto& [key, value] : table) {
        const auto complete = made.find(key);
        ASSERT_NE(complete, made.end()) << key;
        const auto raw = written.find(key);
        EXPECT_TRUE(value == complete->second || (raw != written.end() && value == raw->second))
            << key << " is " << value;
    }
}

void ExpectUsable() {
    EXPECT_TRUE(Store::SetUserProperty("a.key.that.was.set.afterwards", "value"));
    const char* value = nullptr;
    EXPECT_TRUE(Store::GetProperty("a.key.that.was.set.afterwards", value));
    EXPECT_STREQ(value, "value");
}

void Loads(Attempt& attempt) {
    const Unloaded files;
    attempt.MaySucceedDespiteFault(
        "directives are sorted in place without a buffer, and an unknown name is not found anyway");
    attempt.Call([] { Store::InitializeProperties(); });
    if (attempt.Succeeded(files.IsLoaded())) return;
    ExpectNothingForeign(OpenStore::System(),
                         Joined(kWritten, {{"tev.sys.config.dir", ""}, {kSystemFile, kSystemFile}}),
                         files.System());
    ExpectNothingForeign(OpenStore::User(), {{"a.reference.of.the.user", "%tev.log.loggers%"}},
                         files.User());
    ExpectUsable();
    files.directives.Rewind();
    Store::InitializeProperties();
    EXPECT_TRUE(files.IsLoaded());
}

const AllocatingFunctions loading{
    {"TEVSystemProperties::InitializeProperties()", "", Loads},
};

// Calls `use` with the n-th allocation failing, until none is left to fail.
template <typename Use, typename Check>
std::ptrdiff_t ForEachFault(Mode mode, Use use, Check check) {
    for (std::ptrdiff_t n = 0;; ++n) {
        SCOPED_TRACE(testing::Message() << "allocation " << n << " fails"
                                        << (mode == Mode::Once ? "" : " and all that follow"));
        if (!IsRefused({n, mode}, use)) return n;
        check();
    }
}

// The most directives that a fault of the mode costs. Each is executed as a whole or not at all.
std::ptrdiff_t MostLost(Mode mode) {
    const DirectiveVariables directives(Directives());
    const Table entries = directives.Entries();
    std::ptrdiff_t lost = 0;
    ForEachFault(
        mode, [&] { TAMO::TEV::System::detail::ExecuteDirectives(entries); },
        [&] {
            lost = std::max(lost, directives.Missing());
            directives.Rewind();
        });
    EXPECT_EQ(directives.Missing(), 0) << "with enough memory";
    return lost;
}

TEST(ExecuteDirectives, AFaultCostsOneDirectiveAtMost) { EXPECT_EQ(MostLost(Mode::Once), 1); }

TEST(ExecuteDirectives, WithoutMemoryNoneIsExecutedByHalf) {
    EXPECT_EQ(MostLost(Mode::FromThenOn), static_cast<std::ptrdiff_t>(Directives().size()));
}

// The user's file in both candidate folders.
class TwoCandidates : public StoreFolders {
 public:
    TwoCandidates() {
        user_.Write(kUserFile, kUserText);
        appData_.MakeFolder("Tamo");
        appData_.Write(std::string("Tamo\\") + kUserFile, kUserText);
    }
    std::string First() const { return user_.Path() + "/"; }
    std::string Second() const { return appData_.Path() + "\\Tamo\\"; }
};

TEST(FindUserFolder, AFaultMovesTheSearchOn) {
    const TwoCandidates folders;
    const std::pair<Mode, std::string> rows[] = {{Mode::Once, folders.Second()},
                                                 {Mode::FromThenOn, ""}};
    for (const auto& [mode, expected] : rows) {
        std::string found;
        const auto find = [&found] { found = TAMO::TEV::System::detail::FindUserFolder(); };
        const std::string& other = expected;
        EXPECT_GT(ForEachFault(mode, find, [&] { EXPECT_EQ(found, other); }), 0);
        EXPECT_EQ(found, folders.First());
    }
}

TEST(FindSystemFolder, ExhaustedMemoryFindsNone) {
    const Unloaded files;
    std::string found = "before";
    FailAllocation(0, Mode::FromThenOn);
    found = TAMO::TEV::System::detail::FindSystemFolder();
    StopFailing();
    EXPECT_EQ(found, "");
}

}  // namespace
