#include "TEVSystemLib/util/windows/detail/VariableEdit.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace {

using namespace TAMO::TEV::System::Util::detail;

TEST(EditToSet, TrimsNameAndValueThatHaveASpaceAtAnEnd) {
    const struct {
        const char *name, *value, *editedName, *text;
    } rows[] = {
        {"N", "v", "N", "v"},         {" N\t", " v\t", "N", "v"}, {"\tN", "\tv", "\tN", "\tv"},
        {"N", "", "N", ""},           {"N", "  ", "N", ""},       {"A=B", "=", "A=B", "="},
        {"N M", "v w", "N M", "v w"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const auto edit = EditToSet(row.name, row.value);
        ASSERT_TRUE(edit.has_value());
        EXPECT_EQ(edit->name, row.editedName);
        EXPECT_EQ(edit->text, row.text);
    }
}

TEST(EditToSet, RefusesABlankNameAndALongValue) {
    EXPECT_FALSE(EditToSet("", "v").has_value());
    EXPECT_FALSE(EditToSet("  ", "v").has_value());
    EXPECT_TRUE(EditToSet("N", std::string(32766, 'v')).has_value());
    EXPECT_TRUE(EditToSet("N", std::string(32766, 'v') + ' ').has_value());
    EXPECT_FALSE(EditToSet("N", std::string(32767, 'v')).has_value());
}

TEST(ListChangeOf, AddsWithZeroAndRemovesWithOne) {
    EXPECT_EQ(ListChangeOf(true, 0), ListChange::Prepend);
    EXPECT_EQ(ListChangeOf(false, 0), ListChange::Append);
    EXPECT_EQ(ListChangeOf(true, 1), ListChange::Remove);
    EXPECT_EQ(ListChangeOf(false, 1), ListChange::Remove);
    for (const int operation : {-1, 2, 3}) EXPECT_EQ(ListChangeOf(true, operation), std::nullopt);
}

TEST(ChangedList, AtItsEndsOrWithoutTheElement) {
    const struct {
        const char *list, *element;
        ListChange change;
        std::optional<std::string> changed;
    } rows[] = {
        {"a;b", "c", ListChange::Append, "a;b;c"},
        {"a;b", "c", ListChange::Prepend, "c;a;b"},
        {"a;b", "B", ListChange::Append, std::nullopt},
        {"a;b", "A", ListChange::Prepend, std::nullopt},
        {"a;b", "A", ListChange::Remove, "b"},
        {"a;b", "c", ListChange::Remove, "a;b"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ChangedList(row.list, row.element, row.change), row.changed) << row.element;
}

}  // namespace
