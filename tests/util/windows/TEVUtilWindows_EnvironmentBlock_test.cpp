#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;
using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Pair;
using testing::ThrowsMessage;
using tev::test::Text;
using tev::test::TextArray;

using Variables = std::vector<std::pair<std::string, std::string>>;

// Sets a variable by wide text, in the system's environment only: names and values that the ANSI
// code page or the C runtime would not take. Puts the old state back at the end of the scope.
class WideVariable {
 public:
    WideVariable(const wchar_t* name, const wchar_t* value) : name_(name) {
        std::wstring before(32767, L'\0');
        SetLastError(ERROR_SUCCESS);
        before.resize(GetEnvironmentVariableW(name, before.data(), 32767));
        if (!before.empty() || GetLastError() != ERROR_ENVVAR_NOT_FOUND) before_ = before;
        EXPECT_TRUE(SetEnvironmentVariableW(name, value));
    }
    ~WideVariable() { SetEnvironmentVariableW(name_, before_ ? before_->c_str() : nullptr); }
    WideVariable(const WideVariable&) = delete;
    WideVariable& operator=(const WideVariable&) = delete;

 private:
    const wchar_t* name_;
    std::optional<std::wstring> before_;
};

// Takes every variable out of the system's environment until the end of the scope.
class EmptyEnvironment {
 public:
    EmptyEnvironment() {
        wchar_t* const block = GetEnvironmentStringsW();
        for (const wchar_t* entry = block; *entry != L'\0'; entry += entries_.back().size() + 1)
            entries_.emplace_back(entry);
        FreeEnvironmentStringsW(block);
        for (const std::wstring& entry : entries_)
            SetEnvironmentVariableW(entry.substr(0, Separator(entry)).c_str(), nullptr);
    }
    ~EmptyEnvironment() {
        for (const std::wstring& entry : entries_) {
            const std::size_t separator = Separator(entry);
            SetEnvironmentVariableW(entry.substr(0, separator).c_str(),
                                    entry.substr(separator + 1).c_str());
        }
    }
    EmptyEnvironment(const EmptyEnvironment&) = delete;
    EmptyEnvironment& operator=(const EmptyEnvironment&) = delete;

 private:
    // The name of a per-drive folder begins with "=".
    static std::size_t Separator(const std::wstring& entry) { return entry.find(L'=', 1); }

    std::vector<std::wstring> entries_;
};

Variables ListVariables() {
    TextArray names;
    TextArray values;
    EXPECT_TRUE(TEVUtilWindows::GetCurrentProcessEnvironmentVariables(names.array, values.array,
                                                                      names.count));
    values.count = names.count;
    const std::vector<std::string> nameTexts = names.Strings();
    const std::vector<std::string> valueTexts = values.Strings();
    Variables variables;
    for (std::size_t i = 0; i < nameTexts.size(); ++i)
        variables.emplace_back(nameTexts[i], valueTexts[i]);
    return variables;
}

TEST(GetCurrentProcessEnvironmentVariables, ListsTheProcessAsItIs) {
    const WideVariable variable(L"TEV_TEST_VARIABLE", L"value");
    const Variables variables = ListVariables();
    EXPECT_THAT(variables, Contains(Pair("TEV_TEST_VARIABLE", "value")));
    EXPECT_GT(variables.size(), 1u);
    EXPECT_TRUE(std::is_sorted(variables.begin(), variables.end()));
    for (const auto& [name, value] : variables) {
        EXPECT_NE(name, "") << value;
        EXPECT_NE(value, "") << name;
    }
}

TEST(GetCurrentProcessEnvironmentVariables, NamesAndValuesStandSideBySide) {
    const EmptyEnvironment empty;
    const WideVariable first(L"TEV_FIRST", L"C:\\bin;C:\\tools");
    const WideVariable second(L"TEV_SECOND", L"two words");
    EXPECT_THAT(ListVariables(), ElementsAre(Pair("TEV_FIRST", "C:\\bin;C:\\tools"),
                                             Pair("TEV_SECOND", "two words")));
}

TEST(GetCurrentProcessEnvironmentVariables, SortedByNameBytewise) {
    const EmptyEnvironment empty;
    const WideVariable b(L"b", L"1");
    const WideVariable a(L"a", L"2");
    const WideVariable shout(L"Z", L"3");
    const WideVariable longer(L"a1", L"4");
    const WideVariable accent(L"\u00e9", L"5");
    const WideVariable line(L"_", L"6");
    EXPECT_THAT(ListVariables(), ElementsAre(Pair("Z", "3"), Pair("_", "6"), Pair("a", "2"),
                                             Pair("a1", "4"), Pair("b", "1"), Pair("\xE9", "5")));
}

TEST(GetCurrentProcessEnvironmentVariables, EntriesAreTrimmedAndSplitAtTheFirstEqual) {
    const struct {
        const wchar_t* name;
        const wchar_t* value;
        Variables listed;
    } rows[] = {
        {L"A", L"b", {{"A", "b"}}},
        {L"TEV", L"=", {{"TEV", "="}}},
        {L"TEV", L"x=y=", {{"TEV", "x=y="}}},
        {L"TEV", L"value \t ", {{"TEV", "value"}}},
        {L"TEV", L"value\t", {{"TEV", "value\t"}}},
        {L"TEV", L" \tvalue", {{"TEV", " \tvalue"}}},
        {L"  TEV", L"value\t", {{"TEV", "value"}}},
        {L"\tTEV", L"value", {{"\tTEV", "value"}}},
        {L"TEV ", L"value", {{"TEV ", "value"}}},
        {L"TEV", L"\u00e9\u00ff", {{"TEV", "\xE9\xFF"}}},
        {L"T", L"", {}},
        {L"TEV", L"", {}},
        {L"TEV", L"  ", {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.name << "=" << row.value);
        const EmptyEnvironment empty;
        const WideVariable other(L"ZZZ", L"last");
        const WideVariable variable(row.name, row.value);
        Variables expected = row.listed;
        expected.emplace_back("ZZZ", "last");
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(ListVariables(), expected);
    }
}

TEST(GetCurrentProcessEnvironmentVariables, RepeatedNameKeepsOneValue) {
    const EmptyEnvironment empty;
    const WideVariable plain(L"TEV", L"1");
    const WideVariable spaced(L" TEV", L"2");
    EXPECT_THAT(ListVariables(), ElementsAre(Pair("TEV", AnyOf("1", "2"))));
}

TEST(GetCurrentProcessEnvironmentVariables, OnlyDriveCIsListed_Kept) {
    const struct {
        const wchar_t* name;
        const wchar_t* value;
        Variables listed;
    } rows[] = {
        {L"=C:", L"C:\\Work", {{"=C:", "C:\\Work"}}},
        {L"=C:", L"c:\\Work", {{"=C:", "c:\\Work"}}},
        {L"=c:", L"C:\\Work", {{"=c:", "C:\\Work"}}},
        {L"=C:", L"D:\\Work", {}},
        {L"=D:", L"D:\\Work", {}},
        {L"=ExitCode", L"00000001", {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.name << "=" << row.value);
        const EmptyEnvironment empty;
        const WideVariable other(L"ZZZ", L"last");
        const WideVariable drive(row.name, row.value);
        Variables expected = row.listed;
        expected.emplace_back("ZZZ", "last");
        EXPECT_EQ(ListVariables(), expected);
    }
}

TEST(GetCurrentProcessEnvironmentVariables, EntryBeyondTheCLocaleIsLeftOut) {
    const EmptyEnvironment empty;
    const WideVariable value(L"TEV_VALUE", L"\u4e2d");
    const WideVariable name(L"TEV_\u20ac", L"value");
    const WideVariable other(L"ZZZ", L"last");
    EXPECT_THAT(ListVariables(), ElementsAre(Pair("ZZZ", "last")));
}

TEST(GetCurrentProcessEnvironmentVariables, LongestValue) {
    const EmptyEnvironment empty;
    const std::wstring value(32766, L'x');
    const WideVariable variable(L"TEV", value.c_str());
    EXPECT_TRUE(ListVariables() == (Variables{{"TEV", std::string(32766, 'x')}}));
}

void ExpectNothingListed() {
    char* held[] = {nullptr};
    char** names = held;
    char** values = held;
    std::size_t count = 99;
    EXPECT_FALSE(TEVUtilWindows::GetCurrentProcessEnvironmentVariables(names, values, count));
    EXPECT_EQ(names, nullptr);
    EXPECT_EQ(values, nullptr);
    EXPECT_EQ(count, 0u);
}

TEST(GetCurrentProcessEnvironmentVariables, NothingToListIsAFailure) {
    const EmptyEnvironment empty;
    ExpectNothingListed();
    const WideVariable skipped(L"=D:", L"D:\\Work");
    ExpectNothingListed();
}

TEST(GetEnv, NameAndValueInTheCLocale) {
    const WideVariable variable(L"TEV_TEST_\u00e9", L"caf\u00e9 \u00ff");
    Text value;
    TEVUtilWindows::GetEnv("TEV_TEST_\xE9", value.Out());
    EXPECT_EQ(value.str(), "caf\xE9 \xFF");
}

constexpr const wchar_t* kBeyondTheCLocale[] = {L"\u4e2d", L"\u20ac", L"C:\\\u0100\\"};

TEST(GetEnv, ValueBeyondTheCLocaleGivesNull) {
    for (const wchar_t* wide : kBeyondTheCLocale) {
        const WideVariable variable(L"TEV_TEST_VARIABLE", wide);
        char held[] = "held";
        char* value = held;
        EXPECT_NO_THROW(TEVUtilWindows::GetEnv("TEV_TEST_VARIABLE", &value));
        EXPECT_EQ(value, nullptr);
        EXPECT_FALSE(TEVUtilWindows::EnvironmentVariableExists("TEV_TEST_VARIABLE"));
    }
}

// A value that GetEnv gives as null makes this one throw.
TEST(GetPathEnvVariable, MessageIsSpelledEncironment_Kept) {
    for (const wchar_t* wide : kBeyondTheCLocale) {
        const WideVariable variable(L"TEV_TEST_VARIABLE", wide);
        char held[] = "held";
        char* value = held;
        EXPECT_THAT(
            [&value] { TEVUtilWindows::GetPathEnvVariable("TEV_TEST_VARIABLE", &value); },
            ThrowsMessage<std::runtime_error>("Runtime error encountered while retrieving Windows "
                                              "System encironment variable."));
        EXPECT_EQ(value, nullptr);
    }
}

TEST(ModifySessionEnvironmentVariable, ListBeyondTheCLocaleIsRefusedWithoutChange) {
    const WideVariable variable(L"TEV_TEST_LIST", L"a;\u4e2d");
    for (const int operation : {0, 1})
        EXPECT_FALSE(TEVUtilWindows::ModifySessionEnvironmentVariable("TEV_TEST_LIST", "a", false,
                                                                      operation));
    wchar_t stored[8] = {};
    GetEnvironmentVariableW(L"TEV_TEST_LIST", stored, 8);
    EXPECT_STREQ(stored, L"a;\u4e2d");
}

}  // namespace
