#include "TEVSystemLib/util/windows/detail/EnvironmentList.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "models/ListModel.h"
#include "support/Effort.h"
#include "support/Random.h"

namespace {

using namespace TAMO::TEV::System::Util::detail;

TEST(AddToList, AtEitherEnd) {
    const struct {
        const char* list;
        const char* element;
        const char* back;
        const char* front;
    } rows[] = {
        {"a;c", "b", "a;c;b", "b;a;c"},
        {"a", "b", "a;b", "b;a"},
        {"a; ;c", "b", "a;c;b", "b;a;c"},
        {";;a;;c;;", "b", "a;c;b", "b;a;c"},
        {" a ; \tc\r ", "b", "a;c;b", "b;a;c"},
        {"\ta;c\t", "b", "\ta;c\t;b", "b;\ta;c\t"},
        {"a;\t;c", "b", "a;\t;c;b", "b;a;\t;c"},
        {"a b;c", "b", "a b;c;b", "b;a b;c"},
        {"ab;bc", "b", "ab;bc;b", "b;ab;bc"},
        {"\xC9", "\xE9", "\xC9;\xE9", "\xE9;\xC9"},
        {"", "b", "b", "b"},
        {" ;; ", "b", "b", "b"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.list);
        EXPECT_EQ(AddToList(row.list, row.element, ListPlace::Back), row.back);
        EXPECT_EQ(AddToList(row.list, row.element, ListPlace::Front), row.front);
    }
}

TEST(AddToList, NothingToStoreForWhatIsThere) {
    for (const char* list : {"b", "a;b;c", "a;B", " b ;c", "a; \tb ;;", "b;B"}) {
        SCOPED_TRACE(list);
        for (const char* element : {"b", "B"}) {
            EXPECT_EQ(AddToList(list, element, ListPlace::Back), std::nullopt);
            EXPECT_EQ(AddToList(list, element, ListPlace::Front), std::nullopt);
        }
    }
}

TEST(RemoveFromList, FirstMatchOnly) {
    const struct {
        const char* list;
        const char* element;
        const char* result;
    } rows[] = {
        {"a;b;c", "B", "a;c"},    {"a;B;c", "b", "a;c"},
        {"b;a;b", "b", "a;b"},    {"a;b;B", "B", "a;B"},
        {"a; b ;;c", "b", "a;c"}, {"a;\tb;c", "b", "a;\tb;c"},
        {"a;c", "b", "a;c"},      {" a;; c ;", "b", "a;c"},
        {"ab;bc", "b", "ab;bc"},  {"\xC9;a", "\xE9", "\xC9;a"},
        {"b", "b", ""},           {" ; b", "b", ""},
        {" ;;", "b", ""},         {"", "b", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(RemoveFromList(row.list, row.element), row.result) << row.list;
}

// Of few characters, so that an element is often there.
TEST(EnvironmentList, RandomEditsAgreeWithModel) {
    tev::test::Random random(81205);
    for (std::int64_t i = 0; i < tev::test::Repetitions(1'000'000); ++i) {
        const std::string list = random.Text("aAb;;; \t", random.Below(13));
        // Elements come in trimmed, and none is empty.
        const std::string element = random.Text("aAbb", 1 + random.Below(2));
        const tev::test::ListModel model(list);
        const bool atFront = random.Coin();
        ASSERT_EQ(AddToList(list, element, atFront ? ListPlace::Front : ListPlace::Back),
                  model.With(element, atFront))
            << testing::PrintToString(list) << ' ' << element << (atFront ? " front" : " back");
        ASSERT_EQ(RemoveFromList(list, element), model.Without(element))
            << testing::PrintToString(list) << ' ' << element;
    }
}

TEST(SplitEnvironmentEntry, AtTheFirstEqual) {
    const struct {
        const char* entry;
        const char* name;
        const char* value;
    } rows[] = {
        {"A=b", "A", "b"},
        {"PATH=C:\\bin;C:\\tools", "PATH", "C:\\bin;C:\\tools"},
        {"NAME=x=y=", "NAME", "x=y="},
        {"NAME==", "NAME", "="},
        {" NAME=value", "NAME", "value"},
        {"NAME=value \t", "NAME", "value \t"},
        {"NAME=value\t ", "NAME", "value"},
        {" \tNAME= value\r ", "NAME", " value"},
        {"\tNAME=value", "\tNAME", "value"},
        {"NAME =value", "NAME ", "value"},
        {"N\xE9=\xFF", "N\xE9", "\xFF"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.entry);
        const auto entry = SplitEnvironmentEntry(row.entry);
        ASSERT_TRUE(entry.has_value());
        EXPECT_EQ(entry->name, row.name);
        EXPECT_EQ(entry->value, row.value);
    }
}

TEST(SplitEnvironmentEntry, DriveCsFolder_Kept) {
    const struct {
        const char* entry;
        const char* name;
        const char* value;
    } rows[] = {
        {"=C:=C:\\Work", "=C:", "C:\\Work"},
        {"=c:=c:\\work", "=c:", "c:\\work"},
        {"=C:=c:\\Work", "=C:", "c:\\Work"},
        {" =C:=C:\\Work ", "=C:", "C:\\Work"},
        {"=C:=C:", "=C:", "C:"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.entry);
        const auto entry = SplitEnvironmentEntry(row.entry);
        ASSERT_TRUE(entry.has_value());
        EXPECT_EQ(entry->name, row.name);
        EXPECT_EQ(entry->value, row.value);
    }
}

TEST(SplitEnvironmentEntry, NothingWithoutNameOrValue) {
    for (const char* entry : {"", " ", "A", "A=", "=A", "==", "NAME=", "NAME= ", " NAME=\t ",
                              "no separator", "===", "=value", "=D:=D:\\Work", "=C:=D:\\Work",
                              "=C:=CD", "=C:", "=ExitCode=00000001", "  A=  "})
        EXPECT_FALSE(SplitEnvironmentEntry(entry).has_value()) << entry;
}

}  // namespace
