#include "TEVSystemLib/system/detail/ReferenceExpansion.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace {

using TAMO::TEV::System::detail::ExpandReferences;

using Names = std::map<std::string, std::string>;

std::string Expand(const std::string& text, const Names& names) {
    return ExpandReferences(text, [&names](const std::string& name) {
        const auto found = names.find(name);
        return found == names.end() ? nullptr : &found->second;
    });
}

TEST(ExpandReferences, PutsTheValuesOfKnownNamesIn) {
    const Names names{{"a", "1"}, {"b b", "two words"}, {"empty", ""}, {"x", "<%a%>"}};
    const struct {
        const char *text, *expanded;
    } rows[] = {
        {"", ""},
        {"plain", "plain"},
        {"%a%", "1"},
        {"x%a%x", "x1x"},
        {"%a%%a%", "11"},
        {"%a% and %b b%", "1 and two words"},
        {"[%empty%]", "[]"},
        {"%x%", "<%a%>"},
        {"%x%a%", "<%a%>a%"},
        {"%", "%"},
        {"a%b", "a%b"},
        {"100%", "100%"},
        {"%a", "%a"},
        {"%a%%", "1%"},
        {"%%", "%%"},
        {"%%%", "%%%"},
        {"%%%%", "%%%%"},
        {"%%a%", "%%a%"},
        {"%%%a%", "%%1"},
        {"%unknown%x", "%unknown%x"},
        {"abc%unknown%defghi", "abc%unknown%defghi"},
        {"%unknown%a%", "%unknown%a%"},
        {"%unknown%%a%", "%unknown%1"},
        {"%A%", "%A%"},
        {"% a %", "% a %"},
        {"%a\n%", "%a\n%"},
    };
    for (const auto& row : rows) EXPECT_EQ(Expand(row.text, names), row.expanded) << row.text;
}

TEST(ExpandReferences, EmptyNameIsANameToo) {
    EXPECT_EQ(Expand("<%%>", {{"", "nameless"}}), "<nameless>");
    EXPECT_EQ(Expand("%%%", {{"", "nameless"}}), "nameless%");
}

TEST(ExpandReferences, LooksEachNameUpOnceFromLeftToRight) {
    std::vector<std::string> asked;
    const std::string value = "%c%";
    const auto expanded = ExpandReferences("%a%%b%-%a%", [&](const std::string& name) {
        asked.push_back(name);
        return name == "a" ? &value : nullptr;
    });
    EXPECT_EQ(expanded, "%c%%b%-%c%");
    EXPECT_EQ(asked, (std::vector<std::string>{"a", "b", "a"}));
}

TEST(ExpandReferences, ValueNeedOnlyLastUntilTheNextLookup) {
    std::string value;
    const auto expanded = ExpandReferences("%a%%b%", [&value](const std::string& name) {
        value = name + name;
        return &value;
    });
    EXPECT_EQ(expanded, "aabb");
}

TEST(ExpandReferences, KeepsNulBytes) {
    using namespace std::string_literals;
    EXPECT_EQ(Expand("x\0%a%\0"s, {{"a", "1\0"s}}),
              "x\0"
              "1\0\0"s);
    EXPECT_EQ(Expand("%a\0%"s, {{"a", "1"}}), "%a\0%"s);
}

TEST(ExpandReferences, LongTexts) {
    std::string text, expanded;
    for (int i = 0; i < 100'000; ++i) {
        text += "%a%;";
        expanded += "value;";
    }
    EXPECT_EQ(Expand(text, {{"a", "value"}}), expanded);
    EXPECT_EQ(Expand(std::string(100'001, '%'), {}), std::string(100'001, '%'));
}

TEST(HasReference, WantsTwoMarks) {
    for (const char* text : {"%a%", "%%", "x%a b%x", "100% of 5%"})
        EXPECT_TRUE(TAMO::TEV::System::detail::HasReference(text)) << text;
    for (const char* text : {"", "%", "a", "100%"})
        EXPECT_FALSE(TAMO::TEV::System::detail::HasReference(text)) << text;
}

}  // namespace
