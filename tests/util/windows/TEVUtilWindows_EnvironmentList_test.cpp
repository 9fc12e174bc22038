#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

#include "support/Environment.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::SystemVariable;
using tev::test::Variable;

constexpr char kList[] = "TEV_TEST_LIST";
constexpr int kAdd = 0;
constexpr int kRemove = 1;
constexpr bool kAppend = false;
constexpr bool kPrepend = true;

struct Row {
    const char* before;
    const char* element;
    bool prepend;
    int operation;
    std::optional<std::string> after;
};

// The edit succeeds, and the system's environment and the C runtime's hold the same.
template <std::size_t count>
void ExpectEdits(const Row (&rows)[count]) {
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.before) + " and " + row.element);
        const Variable variable(kList, row.before);
        EXPECT_TRUE(TEVUtilWindows::ModifySessionEnvironmentVariable(kList, row.element,
                                                                     row.prepend, row.operation));
        EXPECT_EQ(SystemVariable(kList), row.after);
        const char* const runtime = std::getenv(kList);
        EXPECT_EQ(runtime == nullptr ? std::nullopt : std::optional<std::string>(runtime),
                  row.after);
    }
}

TEST(ModifySessionEnvironmentVariable, Adds) {
    const Row rows[] = {
        {"a;c", "b", kAppend, kAdd, "a;c;b"},
        {"a;c", "b", kPrepend, kAdd, "b;a;c"},
        {"a; ;c", "b", kAppend, kAdd, "a;c;b"},
        {"a; ;c", "b", kPrepend, kAdd, "b;a;c"},
        {"a", "b", kAppend, kAdd, "a;b"},
        {";;a;;c;;", "b", kAppend, kAdd, "a;c;b"},
        {" a ; \tc\t ", "b", kAppend, kAdd, "a;c;b"},
        {"\ta;c\t", "b", kAppend, kAdd, "\ta;c\t;b"},
        {"a", "  b\t ", kAppend, kAdd, "a;b"},
        {"a", "\tb", kAppend, kAdd, "a;\tb"},
        {"ab;bc", "b", kAppend, kAdd, "ab;bc;b"},
        {"C:\\bin;C:\\tools", "C:\\bin\\", kPrepend, kAdd, "C:\\bin\\;C:\\bin;C:\\tools"},
        {" ; ;", "b", kAppend, kAdd, "b"},
        {";;", "b", kPrepend, kAdd, "b"},
    };
    ExpectEdits(rows);
}

TEST(ModifySessionEnvironmentVariable, AddingWhatIsThereChangesNothing) {
    const Row rows[] = {
        {"a;b;c", "b", kAppend, kAdd, "a;b;c"},  {"a;b;c", "b", kPrepend, kAdd, "a;b;c"},
        {"a;b;c", "B", kPrepend, kAdd, "a;b;c"}, {"a;;B ; c", "b", kAppend, kAdd, "a;;B ; c"},
        {" ;b;", "b", kAppend, kAdd, " ;b;"},    {"b", " b ", kAppend, kAdd, "b"},
    };
    ExpectEdits(rows);
}

TEST(ModifySessionEnvironmentVariable, RemovesTheFirstMatch) {
    const Row rows[] = {
        {"a;b;c", "B", kAppend, kRemove, "a;c"},
        {"a;b;c", "B", kPrepend, kRemove, "a;c"},
        {"a;b;B;c;b", "b", kAppend, kRemove, "a;B;c;b"},
        {"a;b", "a", kAppend, kRemove, "b"},
        {"a;b", "b", kAppend, kRemove, "a"},
        {"a; b ;;c", " b\t ", kAppend, kRemove, "a;c"},
        {"a;bc", "b", kAppend, kRemove, "a;bc"},
        {" a;; c ", "b", kAppend, kRemove, "a;c"},
    };
    ExpectEdits(rows);
}

TEST(ModifySessionEnvironmentVariable, RemovingTheLastElementDeletesTheVariable) {
    const Row rows[] = {
        {"b", "b", kAppend, kRemove, std::nullopt},
        {" ; B; ;", "b", kAppend, kRemove, std::nullopt},
        {" ; ;", "b", kAppend, kRemove, std::nullopt},
    };
    ExpectEdits(rows);
}

TEST(ModifySessionEnvironmentVariable, RefusedWithoutChange) {
    const Variable variable(kList, "a;;b");
    const struct {
        const char* name;
        const char* element;
        int operation;
    } rows[] = {
        {kList, "c", 2},
        {kList, "c", -1},
        {kList, "b", 2},
        {kList, nullptr, kAdd},
        {kList, "", kAdd},
        {kList, " ", kAdd},
        {kList, "", kRemove},
        {nullptr, "c", kAdd},
        {"", "c", kAdd},
        {" \t ", "c", kAdd},
        {nullptr, nullptr, kRemove},
    };
    for (const auto& row : rows) {
        for (const bool prepend : {false, true})
            EXPECT_FALSE(TEVUtilWindows::ModifySessionEnvironmentVariable(row.name, row.element,
                                                                          prepend, row.operation))
                << (row.name == nullptr ? "(null)" : row.name) << " "
                << (row.element == nullptr ? "(null)" : row.element) << " " << row.operation;
        EXPECT_EQ(SystemVariable(kList), "a;;b");
    }
}

TEST(ModifySessionEnvironmentVariable, NeverCreatesAVariable_Kept) {
    for (const std::optional<std::string>& before :
         {std::optional<std::string>(), std::optional<std::string>("")}) {
        const Variable variable(kList, before);
        for (const int operation : {kAdd, kRemove, 2}) {
            EXPECT_FALSE(
                TEVUtilWindows::ModifySessionEnvironmentVariable(kList, "b", kAppend, operation));
            EXPECT_EQ(SystemVariable(kList), before);
        }
    }
}

TEST(ModifySessionEnvironmentVariable, BlanksAroundTheName) {
    const Variable variable(kList, "a");
    EXPECT_TRUE(
        TEVUtilWindows::ModifySessionEnvironmentVariable(" TEV_TEST_LIST\t ", "b", kAppend, kAdd));
    EXPECT_EQ(SystemVariable(kList), "a;b");
}

TEST(ModifySessionEnvironmentVariable, ListAtItsLimit) {
    const std::string list(32760, 'x');
    const Variable variable(kList, list);
    EXPECT_FALSE(TEVUtilWindows::ModifySessionEnvironmentVariable(kList, "123456", kAppend, kAdd));
    EXPECT_TRUE(SystemVariable(kList) == list);
    EXPECT_TRUE(TEVUtilWindows::ModifySessionEnvironmentVariable(kList, "12345", kPrepend, kAdd));
    EXPECT_TRUE(SystemVariable(kList) == "12345;" + list);
}

}  // namespace
