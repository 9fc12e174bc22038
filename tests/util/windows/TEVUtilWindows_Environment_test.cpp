#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <optional>
#include <string>

#include "support/Environment.h"
#include "support/Owned.h"

namespace {

using namespace std::string_literals;
using TAMO::TEV::System::Util::TEVUtilString;
using TAMO::TEV::System::Util::TEVUtilWindows;
using testing::AnyOf;
using testing::Optional;
using tev::test::SystemVariable;
using tev::test::Text;
using tev::test::Variable;

constexpr char kName[] = "TEV_TEST_VARIABLE";
constexpr std::size_t kLongest = 32766;

std::string GetEnv(const char* name) {
    Text value;
    TEVUtilWindows::GetEnv(name, value.Out());
    return value.str();
}

// What the C runtime's own copy of the environment holds.
std::optional<std::string> RuntimeVariable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

TEST(GetEnv, NewCopyOfTheValue) {
    const Variable variable(kName, "some; value=1");
    char held[] = "held";
    char* value = held;
    TEVUtilWindows::GetEnv(kName, &value);
    EXPECT_STREQ(value, "some; value=1");
    EXPECT_STREQ(held, "held");
    TEVUtilString::DeleteCString(&value);
}

TEST(GetEnv, BlanksAroundTheName) {
    const Variable variable(kName, "found");
    const std::string name = kName;
    const struct {
        std::string name;
        const char* value;
    } rows[] = {
        {" " + name, "found"},        {name + " ", "found"},       {"  " + name + "  ", "found"},
        {" \t" + name, "found"},      {name + "\r\n\t ", "found"}, {"\t" + name + " ", "found"},
        {" " + name + "\v", "found"}, {"\t" + name, "(null)"},     {name + "\t", "(null)"},
        {name + "\n", "(null)"},
    };
    for (const auto& row : rows) EXPECT_EQ(GetEnv(row.name.c_str()), row.value) << row.name;
}

TEST(GetEnv, BlanksAroundPath) {
    const Variable variable("PATH", "C:\\bin;C:\\tools");
    EXPECT_EQ(GetEnv("  PATH  "), "C:\\bin;C:\\tools");
}

TEST(GetEnv, NullForWhatIsNotSet) {
    const Variable variable(kName);
    for (const char* name : {kName, static_cast<const char*>(nullptr), "", " ", " \t "}) {
        SCOPED_TRACE(name == nullptr ? "(null)" : name);
        char held[] = "held";
        char* value = held;
        TEVUtilWindows::GetEnv(name, &value);
        EXPECT_EQ(value, nullptr);
    }
}

TEST(GetEnv, EmptyVariableCountsAsNotSet_Kept) {
    const Variable variable(kName, "");
    ASSERT_EQ(SystemVariable(kName), "");
    EXPECT_EQ(GetEnv(kName), "(null)");
}

TEST(GetEnv, NullOutputDoesNothing) {
    const Variable variable(kName, "value");
    EXPECT_NO_THROW(TEVUtilWindows::GetEnv(kName, nullptr));
}

TEST(GetEnv, BlanksOfTheValueAreKept) {
    const Variable variable(kName, " \tvalue\t ");
    EXPECT_EQ(GetEnv(kName), " \tvalue\t ");
}

TEST(GetEnv, ValuesOfEveryLength) {
    for (const std::size_t length :
         {std::size_t{1}, std::size_t{1000}, std::size_t{16384}, kLongest - 1, kLongest}) {
        std::string expected(length, 'x');
        expected.back() = 'y';
        const Variable variable(kName, expected);
        EXPECT_TRUE(GetEnv(kName) == expected) << length << " characters";
    }
}

TEST(GetPathEnvVariable, EndsWithASeparator) {
    const struct {
        const char* value;
        const char* folder;
    } rows[] = {
        {"C:\\data", "C:\\data/"},
        {"C:/data", "C:/data/"},
        {"C:\\data\\", "C:\\data\\"},
        {"C:/data/", "C:/data/"},
        {"C:", "C:/"},
        {"\\", "\\"},
        {" C:\\data ", "C:\\data/"},
        {" \tC:\\data\\\t ", "C:\\data\\"},
        {"C:\\data\\ ", "C:\\data\\"},
        {"\tC:\\data", "\tC:\\data/"},
        {"C:\\data\\\t", "C:\\data\\\t/"},
        {"   ", "/"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value);
        const Variable variable(kName, row.value);
        Text folder;
        TEVUtilWindows::GetPathEnvVariable(kName, folder.Out());
        EXPECT_EQ(folder.str(), row.folder);
    }
}

TEST(GetPathEnvVariable, AppendsAForwardSlash_Kept) {
    const Variable variable(kName, "C:\\data");
    Text folder;
    TEVUtilWindows::GetPathEnvVariable(kName, folder.Out());
    EXPECT_EQ(folder.str(), "C:\\data/");
}

TEST(GetPathEnvVariable, BlanksAroundTheName) {
    const Variable variable(kName, "C:\\data\\");
    Text folder;
    TEVUtilWindows::GetPathEnvVariable(" TEV_TEST_VARIABLE\t ", folder.Out());
    EXPECT_EQ(folder.str(), "C:\\data\\");
}

TEST(GetPathEnvVariable, NullForWhatIsNotSet) {
    const Variable unset(kName);
    const Variable empty("TEV_TEST_EMPTY", "");
    for (const char* name : {kName, "TEV_TEST_EMPTY", static_cast<const char*>(nullptr), "", " "}) {
        SCOPED_TRACE(name == nullptr ? "(null)" : name);
        char held[] = "held";
        char* folder = held;
        TEVUtilWindows::GetPathEnvVariable(name, &folder);
        EXPECT_EQ(folder, nullptr);
    }
}

TEST(GetPathEnvVariable, NullOutputIsNothingToDo) {
    EXPECT_NO_THROW(TEVUtilWindows::GetPathEnvVariable(kName, nullptr));
}

TEST(EnvironmentVariableExists, SetAndNotEmpty) {
    const Variable set(kName, "value");
    const Variable unset("TEV_TEST_UNSET");
    const struct {
        const char* name;
        bool exists;
    } rows[] = {{kName, true},
                {" TEV_TEST_VARIABLE ", true},
                {"TEV_TEST_UNSET", false},
                {nullptr, false},
                {"", false},
                {" ", false}};
    for (const auto& row : rows)
        EXPECT_EQ(TEVUtilWindows::EnvironmentVariableExists(row.name), row.exists)
            << (row.name == nullptr ? "(null)" : row.name);
}

TEST(EnvironmentVariableExists, EmptyVariableCountsAsAbsent_Kept) {
    const Variable variable(kName, "");
    EXPECT_FALSE(TEVUtilWindows::EnvironmentVariableExists(kName));
}

TEST(SetSessionEnvironmentVariable, SystemAndRuntimeAgree) {
    const Variable variable(kName);
    const struct {
        const char* name;
        const char* value;
        std::optional<std::string> stored;
    } rows[] = {
        {kName, "value", "value"},
        {kName, "another value;=", "another value;="},
        {kName, nullptr, std::nullopt},
        {"  TEV_TEST_VARIABLE  ", "  value  ", "value"},
        {"TEV_TEST_VARIABLE\t ", " \tvalue\t\r\n", "value"},
        {kName, "\tvalue\t", "\tvalue\t"},
        {kName, "", std::nullopt},
        {kName, "\t", "\t"},
        {kName, " \t ", std::nullopt},
        {kName, "caf\xE9", "caf\xE9"},
        {kName, "   ", std::nullopt},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value == nullptr ? "(null)" : row.value);
        EXPECT_TRUE(TEVUtilWindows::SetSessionEnvironmentVariable(row.name, row.value));
        EXPECT_EQ(SystemVariable(kName), row.stored);
        EXPECT_EQ(RuntimeVariable(kName), row.stored);
        EXPECT_EQ(GetEnv(kName), row.stored.value_or("(null)"));
    }
}

TEST(SetSessionEnvironmentVariable, NameIsNeeded) {
    for (const char* name : {static_cast<const char*>(nullptr), "", " ", " \t "})
        EXPECT_FALSE(TEVUtilWindows::SetSessionEnvironmentVariable(name, "value"))
            << (name == nullptr ? "(null)" : name);
}

TEST(SetSessionEnvironmentVariable, RefusalOfTheSystemShows) {
    const Variable variable("TEV_TEST", "before");
    EXPECT_FALSE(TEVUtilWindows::SetSessionEnvironmentVariable("TEV_TEST=NAME", "value"));
    // The C runtime is told all the same. One that does not refuse takes the text apart at its
    // first "=".
    EXPECT_THAT(RuntimeVariable("TEV_TEST"), AnyOf(Optional("before"s), Optional("NAME=value"s)));
    EXPECT_EQ(SystemVariable("TEV_TEST"), RuntimeVariable("TEV_TEST"));
}

TEST(SetSessionEnvironmentVariable, LengthLimit) {
    const std::string longest(kLongest, 'x');
    const struct {
        std::string value;
        bool accepted;
    } rows[] = {{longest, true},
                {longest + "x", false},
                {longest + "xx", false},
                {std::string(40'000, 'x'), false},
                {"  " + longest + "  ", true},
                {"\t" + longest, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.value.size()) + " characters");
        const Variable variable(kName, "before");
        EXPECT_EQ(TEVUtilWindows::SetSessionEnvironmentVariable(kName, row.value.c_str()),
                  row.accepted);
        const std::string& stored = row.accepted ? longest : "before";
        EXPECT_TRUE(SystemVariable(kName) == stored);
        EXPECT_TRUE(RuntimeVariable(kName) == stored);
        EXPECT_TRUE(GetEnv(kName) == stored);
    }
}

}  // namespace
