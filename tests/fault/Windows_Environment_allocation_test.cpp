// Environment variables and paths when memory is exhausted at any step.
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "fault/TextRows.h"
#include "support/Environment.h"
#include "support/Folder.h"
#include "support/Owned.h"

namespace {

using namespace tev::fault;
using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::Folder;
using tev::test::SystemVariable;
using tev::test::Text;
using tev::test::TextArray;
using tev::test::Variable;

constexpr const char* kName = "TEV_FAULT_VARIABLE_WITH_A_LONG_NAME";
constexpr const char* kSpacedName = "  TEV_FAULT_VARIABLE_WITH_A_LONG_NAME ";
constexpr const char* kValue = "a value that is longer than what a string keeps in itself";
// More than what is read without memory of its own.
constexpr std::size_t kLongValue = 3000;

template <std::size_t length>
void ReadsAVariable(Attempt& attempt) {
    const std::string value(length, 'v');
    const Variable variable(kName, value);
    HandsOut(attempt, value.c_str(), [](char** out) { TEVUtilWindows::GetEnv(kSpacedName, out); });
}

void ByTheExceptionOfPaths(Attempt& attempt) {
    // A name that cannot be converted is no variable's, so it reads as not set.
    if (attempt.ThrownText() == "(nothing)") return;
    EXPECT_TRUE(attempt.Threw<std::runtime_error>());
    if (attempt.ThrownText() !=
        "Runtime error encountered while retrieving Windows System encironment variable.")
        ByRuntimeError(attempt);
}

void ReadsAPathVariable(Attempt& attempt) {
    const Variable variable(kName, "C:\\a folder with a long name");
    HandsOut(
        attempt, "C:\\a folder with a long name/",
        [](char** out) { TEVUtilWindows::GetPathEnvVariable(kSpacedName, out); },
        ByTheExceptionOfPaths);
}

void ListsVariables(Attempt& attempt) {
    const Variable variable(kName, kValue);
    char* none[] = {nullptr};
    TextArray names;
    TextArray values;
    names.array = values.array = none;
    names.count = 77;
    const bool isListed = attempt.Call([&] {
        return TEVUtilWindows::GetCurrentProcessEnvironmentVariables(names.array, values.array,
                                                                     names.count);
    });
    values.count = names.count;
    const bool succeeded = attempt.Succeeded(isListed);
    EXPECT_EQ(names.array != nullptr, succeeded);
    EXPECT_EQ(values.array != nullptr, succeeded);
    EXPECT_EQ(names.count != 0, succeeded);
    const auto listed = names.Strings();
    const auto found = std::find(listed.begin(), listed.end(), kName);
    ASSERT_EQ(found != listed.end(), succeeded);
    if (succeeded) {
        EXPECT_STREQ(values.array[found - listed.begin()], kValue);
    }
}

// A change of the variable from `before` to `after`, which on failure leaves it alone.
template <typename Change>
void Changes(Attempt& attempt, const std::optional<std::string>& before,
             const std::optional<std::string>& after, Change change) {
    const Variable variable(kName, before);
    const bool isChanged = attempt.Call(change);
    EXPECT_EQ(SystemVariable(kName), attempt.Succeeded(isChanged) ? after : before);
    EXPECT_TRUE(change());
    EXPECT_EQ(SystemVariable(kName), after);
}

const AllocatingFunctions environment{
    {"TEVUtilWindows::GetEnv(char const*, char**)", "", ReadsAVariable<60>},
    {"TEVUtilWindows::GetEnv(char const*, char**)", "long value", ReadsAVariable<kLongValue>},
    {"TEVUtilWindows::GetPathEnvVariable(char const*, char**)", "", ReadsAPathVariable},
    {"TEVUtilWindows::EnvironmentVariableExists(char const*)", "",
     [](Attempt& attempt) {
         const Variable variable(kName, kValue);
         attempt.Succeeded(
             attempt.Call([] { return TEVUtilWindows::EnvironmentVariableExists(kSpacedName); }));
     }},
    {"TEVUtilWindows::GetCurrentProcessEnvironmentVariables(char**&, char**&, "
     "unsigned long long&)",
     "", ListsVariables},
    {"TEVUtilWindows::SetSessionEnvironmentVariable(char const*, char const*)", "",
     [](Attempt& attempt) {
         Changes(attempt, "old", kValue,
                 [] { return TEVUtilWindows::SetSessionEnvironmentVariable(kName, kValue); });
     }},
    {"TEVUtilWindows::SetSessionEnvironmentVariable(char const*, char const*)", "deleted",
     [](Attempt& attempt) {
         Changes(attempt, "old", std::nullopt,
                 [] { return TEVUtilWindows::SetSessionEnvironmentVariable(kName, nullptr); });
     }},
    {"TEVUtilWindows::ModifySessionEnvironmentVariable(char const*, char const*, bool, int)",
     "added",
     [](Attempt& attempt) {
         Changes(attempt, "first", std::string(kValue) + ";first", [] {
             return TEVUtilWindows::ModifySessionEnvironmentVariable(kName, kValue, true, 0);
         });
     }},
    {"TEVUtilWindows::ModifySessionEnvironmentVariable(char const*, char const*, bool, int)",
     "removed",
     [](Attempt& attempt) {
         const std::string rest = std::string("the rest of ") + kValue;
         Changes(attempt, kValue + (";" + rest), rest, [] {
             return TEVUtilWindows::ModifySessionEnvironmentVariable(kName, kValue, false, 1);
         });
     }},
};

const AllocatingFunctions paths{
    {"TEVUtilWindows::GetDirectory(char const*)", "",
     [](Attempt& attempt) {
         const Text folder(attempt.Call(
             [] { return TEVUtilWindows::GetDirectory(" C:/a folder with a long name/a file "); }));
         EXPECT_EQ(folder.str(), attempt.Succeeded(!folder.IsNull())
                                     ? "C:\\a folder with a long name\\"
                                     : "(null)");
     }},
    {"TEVUtilWindows::DirectoryExists(char const*)", "with a separator",
     [](Attempt& attempt) {
         const Folder folder;
         const std::string path = folder.Path() + "\\";
         attempt.Succeeded(
             attempt.Call([&] { return TEVUtilWindows::DirectoryExists(path.c_str()); }));
     }},
    {"TEVUtilWindows::FileExists(char const*)", "with a separator",
     [](Attempt& attempt) {
         const Folder folder;
         const std::string path = folder.Path() + "\\";
         attempt.Succeeded(attempt.Call([&] { return TEVUtilWindows::FileExists(path.c_str()); }));
     }},
};

}  // namespace
