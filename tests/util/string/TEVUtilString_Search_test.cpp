#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using testing::StrEq;
using testing::ThrowsMessage;

const char* const kNull = nullptr;

int Sign(int comparison) { return (comparison > 0) - (comparison < 0); }

struct Pair {
    const char* first;
    const char* second;
};

// Every pair with a null in it, and every pair of texts with an empty one in it.
constexpr Pair kNullPairs[] = {{nullptr, "x"}, {"x", nullptr}, {nullptr, nullptr}};
constexpr Pair kEmptyPairs[] = {{"", "x"}, {"x", ""}, {"", ""}, {nullptr, ""}, {"", nullptr}};

TEST(Compare, NullOrdersBeforeAnyText) {
    EXPECT_EQ(TEVUtilString::Compare(kNull, kNull), 0);
    EXPECT_EQ(TEVUtilString::Compare(kNull, "x"), -1);
    EXPECT_EQ(TEVUtilString::Compare("x", kNull), 1);
    EXPECT_EQ(TEVUtilString::Compare(kNull, ""), -1);
    EXPECT_EQ(TEVUtilString::Compare("", kNull), 1);
    for (const bool ignoreCase : {false, true}) {
        EXPECT_EQ(TEVUtilString::Compare(ignoreCase, kNull, kNull), 0) << ignoreCase;
        EXPECT_EQ(TEVUtilString::Compare(ignoreCase, kNull, "x"), -1) << ignoreCase;
        EXPECT_EQ(TEVUtilString::Compare(ignoreCase, "x", kNull), 1) << ignoreCase;
        EXPECT_EQ(TEVUtilString::Compare(ignoreCase, kNull, ""), -1) << ignoreCase;
    }
}

TEST(Compare, OrdersBytewise) {
    const struct {
        const char* first;
        const char* second;
        int sign;
        int signIgnoringCase;
    } rows[] = {
        {"", "", 0, 0},
        {"abc", "abc", 0, 0},
        {"abc", "abd", -1, -1},
        {"abd", "abc", 1, 1},
        {"ab", "abc", -1, -1},
        {"abc", "ab", 1, 1},
        {"", "a", -1, -1},
        {"ABC", "abc", -1, 0},
        {"abc", "ABC", 1, 0},
        {"AB", "abc", -1, -1},
        {"ABC", "ab", -1, 1},
        {"B", "a", -1, 1},
        // The letters are lowered, so "_" comes before all of them.
        {"A", "_", -1, 1},
        // Bytes above 127 come last and have no case.
        {"\x80", "z", 1, 1},
        {"\xC4", "\xE4", -1, -1},
        {"\xE4", "\xC4", 1, 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.first) + " and " + row.second);
        const std::string first = row.first;
        const std::string second = row.second;
        EXPECT_EQ(Sign(TEVUtilString::Compare(row.first, row.second)), row.sign);
        EXPECT_EQ(Sign(TEVUtilString::Compare(false, row.first, row.second)), row.sign);
        EXPECT_EQ(Sign(TEVUtilString::Compare(false, first, second)), row.sign);
        EXPECT_EQ(Sign(TEVUtilString::Compare(true, row.first, row.second)), row.signIgnoringCase);
        EXPECT_EQ(Sign(TEVUtilString::Compare(true, first, second)), row.signIgnoringCase);
    }
}

TEST(Compare, IgnoringCaseATieIsBrokenByLength) {
    EXPECT_EQ(TEVUtilString::Compare(true, "AB", "abcd"), -1);
    EXPECT_EQ(TEVUtilString::Compare(true, "abcd", "AB"), 1);
    EXPECT_EQ(TEVUtilString::Compare(true, std::string("AB"), std::string("abcd")), -1);
    EXPECT_EQ(TEVUtilString::Compare(true, std::string("abcd"), std::string("AB")), 1);
}

TEST(Compare, StringsAreComparedBeyondNulBytes) {
    const std::string first("a\0b", 3);
    const std::string second("a\0c", 3);
    EXPECT_LT(TEVUtilString::Compare(false, first, second), 0);
    EXPECT_GT(TEVUtilString::Compare(false, second, first), 0);
    EXPECT_EQ(TEVUtilString::Compare(false, first, first), 0);
}

TEST(Compare, StringsEndAtTheirFirstNulByteOnlyIgnoringCase_Kept) {
    const std::string first("a\0b", 3);
    const std::string second("a\0c", 3);
    EXPECT_EQ(TEVUtilString::Compare(true, first, second), 0);
    EXPECT_EQ(TEVUtilString::Compare(true, first, std::string("A")), 0);
    EXPECT_NE(TEVUtilString::Compare(false, first, second), 0);
    EXPECT_NE(TEVUtilString::Compare(false, first, std::string("a")), 0);
}

struct Search {
    const char* text;
    const char* wanted;
    int position;
};

TEST(Find, FirstOccurrenceOfTheSubstring) {
    const Search rows[] = {
        {"abcabc", "abc", 0}, {"abcabc", "bc", 1}, {"abcabc", "ca", 2},   {"aab", "ab", 1},
        {"abc", "c", 2},      {"abc", "abc", 0},   {"abc", "abcd", -1},   {"abc", "x", -1},
        {"abc", "B", -1},     {"a=b;c", ";=", -1}, {"a\xE9z", "\xE9", 1}, {"aXa", "aa", -1},
    };
    for (const Search& row : rows)
        EXPECT_EQ(TEVUtilString::Find(row.text, row.wanted), row.position)
            << row.wanted << " in " << row.text;
}

TEST(IndexOf, FirstCharacterOfASetNotASubstring_Kept) {
    const Search rows[] = {
        {"a=b;c", ";=", 1}, {"a;b=c", ";=", 1},    {"abc", "c", 2},
        {"abc", "cba", 0},  {"abc", "xyz", -1},    {"abc", "ABC", -1},
        {"abab", "b", 1},   {"a\xE9z", "\xE9", 1}, {"abc", "xyzc", 2},
    };
    for (const Search& row : rows)
        EXPECT_EQ(TEVUtilString::IndexOf(row.text, row.wanted), row.position)
            << row.wanted << " in " << row.text;
}

TEST(LastIndexOf, LastCharacterOfASetNotASubstring_Kept) {
    const Search rows[] = {
        {"a=b;c", ";=", 3}, {"a;b=c", ";=", 3},    {"abc", "a", 0},
        {"abc", "ab", 1},   {"abc", "xyz", -1},    {"abc", "ABC", -1},
        {"abab", "b", 3},   {"a\xE9z", "\xE9", 1}, {"c:\\dir/file", "\\/", 6},
    };
    for (const Search& row : rows)
        EXPECT_EQ(TEVUtilString::LastIndexOf(row.text, row.wanted), row.position)
            << row.wanted << " in " << row.text;
}

// Each search words its refusal in its own way.
template <typename Function>
void ExpectRefusalOfNullAndEmpty(Function search, const char* message) {
    for (const Pair& pair : kNullPairs)
        EXPECT_THAT([&] { search(pair.first, pair.second); },
                    ThrowsMessage<std::invalid_argument>(StrEq(message)));
    for (const Pair& pair : kEmptyPairs)
        EXPECT_THAT([&] { search(pair.first, pair.second); },
                    ThrowsMessage<std::invalid_argument>(StrEq(message)));
}

TEST(Find, NullOrEmptyThrowsInItsOwnWords_Kept) {
    ExpectRefusalOfNullAndEmpty(TEVUtilString::Find,
                                "Input arguments cannot be NULL or empty strings.");
}

TEST(IndexOf, NullOrEmptyThrowsInItsOwnWords_Kept) {
    ExpectRefusalOfNullAndEmpty(TEVUtilString::IndexOf,
                                "Input arguments cannot be a nullptr or an empty string.");
}

TEST(LastIndexOf, NullOrEmptyThrowsInItsOwnWords_Kept) {
    ExpectRefusalOfNullAndEmpty(TEVUtilString::LastIndexOf,
                                "Input arguments cannot be a nullptr or empty strings.");
}

TEST(Contains, SubstringTest) {
    const struct {
        const char* text;
        const char* sub;
        bool contained;
    } rows[] = {
        {"abc", "bc", true}, {"abc", "abc", true}, {"abc", "ac", false}, {"abc", "abcd", false},
        {"abc", "B", false}, {"abc", "", true},    {"", "", true},       {"", "a", false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(TEVUtilString::Contains(row.text, row.sub), row.contained)
            << row.sub << " in " << row.text;
}

TEST(Contains, NullThrows) {
    for (const Pair& pair : kNullPairs)
        EXPECT_THAT(
            [&] { TEVUtilString::Contains(pair.first, pair.second); },
            ThrowsMessage<std::invalid_argument>(StrEq("Input arguments cannot be a nullptr.")));
}

TEST(CharacterCount, CountsEqualBytes) {
    const struct {
        char character;
        const char* text;
        std::size_t count;
    } rows[] = {
        {'a', "banana", 3}, {'b', "banana", 1}, {'x', "banana", 0},       {'A', "banana", 0},
        {'a', "", 0},       {'a', nullptr, 0},  {'\xE9', "\xE9t\xE9", 2}, {'\0', "abc", 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(TEVUtilString::CharacterCount(row.character, row.text), row.count)
            << row.character << " in " << (row.text == nullptr ? "null" : row.text);
}

TEST(IsInRange, EachOfTheFirstCharactersIsAllowed) {
    const struct {
        const char* allowed;
        const char* text;
        std::size_t count;
        bool inRange;
        bool wholeInRange;
    } rows[] = {
        {"0123456789", "2024", 4, true, true},
        {"0123456789", "20x4", 2, true, false},
        {"0123456789", "20x4", 3, false, false},
        {"0123456789", "20x4", 0, false, false},
        {"0123456789", "2024", 99, true, true},
        {"0123456789", "202x", 99, false, false},
        {"cba", "abcabc", 0, true, true},
        {"abc", "ABC", 1, false, false},
        {"\xE9", "\xE9\xE9", 0, true, true},
        {"", "abc", 1, false, false},
        {"abc", "", 1, false, false},
        {nullptr, "abc", 1, false, false},
        {"abc", nullptr, 1, false, false},
        {nullptr, nullptr, 0, false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << &row - rows);
        const char* allowed = row.allowed;
        std::size_t count = row.count;
        EXPECT_EQ(TEVUtilString::IsInRange(allowed, row.text, &count), row.inRange);
        EXPECT_EQ(TEVUtilString::IsInRange(allowed, row.text, nullptr), row.wholeInRange);
        EXPECT_EQ(allowed, row.allowed);
        EXPECT_EQ(count, row.count);
    }
}

struct Affix {
    const char* pattern;
    const char* text;
    bool found;
    bool foundIgnoringCase;
};

TEST(StartWith, PatternIsFirstArgument_Kept) {
    const Affix rows[] = {
        {"ab", "abc", true, true},       {"abc", "ab", false, false},   {"abc", "abc", true, true},
        {"bc", "abc", false, false},     {"AB", "abc", false, true},    {"ab", "ABC", false, true},
        {"", "abc", false, false},       {"abc", "", false, false},     {"", "", false, false},
        {"\xC4", "\xE4x", false, false}, {"\xE4", "\xE4x", true, true},
    };
    for (const Affix& row : rows) {
        SCOPED_TRACE(std::string(row.pattern) + " before " + row.text);
        EXPECT_EQ(TEVUtilString::StartWith(row.pattern, row.text), row.found);
        EXPECT_EQ(TEVUtilString::StartWith(false, row.pattern, row.text), row.found);
        EXPECT_EQ(TEVUtilString::StartWith(true, row.pattern, row.text), row.foundIgnoringCase);
    }
}

TEST(EndWith, PatternIsFirstArgument_Kept) {
    const Affix rows[] = {
        {"bc", "abc", true, true},     {"abc", "bc", false, false},
        {"abc", "abc", true, true},    {"ab", "abc", false, false},
        {"BC", "abc", false, true},    {"bc", "ABC", false, true},
        {"", "abc", false, false},     {"abc", "", false, false},
        {"", "", false, false},        {"\xC4", "x\xE4", false, false},
        {"\xE4", "x\xE4", true, true}, {"bc", "bcbd", false, false},
        {"ab", "abab", true, true},
    };
    for (const Affix& row : rows) {
        SCOPED_TRACE(std::string(row.pattern) + " after " + row.text);
        EXPECT_EQ(TEVUtilString::EndWith(row.pattern, row.text), row.found);
        EXPECT_EQ(TEVUtilString::EndWith(false, row.pattern, row.text), row.found);
        EXPECT_EQ(TEVUtilString::EndWith(true, row.pattern, row.text), row.foundIgnoringCase);
    }
}

TEST(StartWith, NullThrowsInItsOwnWords_Kept) {
    const auto message =
        ThrowsMessage<std::invalid_argument>(StrEq("Input arguments cannot be NULL."));
    for (const Pair& pair : kNullPairs) {
        EXPECT_THAT([&] { TEVUtilString::StartWith(pair.first, pair.second); }, message);
        EXPECT_THAT([&] { TEVUtilString::StartWith(false, pair.first, pair.second); }, message);
        EXPECT_THAT([&] { TEVUtilString::StartWith(true, pair.first, pair.second); }, message);
    }
}

TEST(EndWith, NullThrowsInItsOwnWords_Kept) {
    const auto message =
        ThrowsMessage<std::invalid_argument>(StrEq("Input arguments cannot be a nullptr."));
    for (const Pair& pair : kNullPairs) {
        EXPECT_THAT([&] { TEVUtilString::EndWith(pair.first, pair.second); }, message);
        EXPECT_THAT([&] { TEVUtilString::EndWith(false, pair.first, pair.second); }, message);
        EXPECT_THAT([&] { TEVUtilString::EndWith(true, pair.first, pair.second); }, message);
    }
}

// The number of wrong answers about a text of `size` letters "x" with the name in its middle.
int WrongAnswers(const std::string& name, std::size_t size) {
    const std::string filling(size, 'x');
    const std::string text = filling + name + filling;
    const std::string shouted = TEVUtilString::ToUpper(text);
    const int position = static_cast<int>(size);
    int wrong = 0;
    wrong += TEVUtilString::Find(text.c_str(), name.c_str()) != position;
    wrong += TEVUtilString::IndexOf(text.c_str(), name.c_str()) != position;
    wrong += TEVUtilString::LastIndexOf(shouted.c_str(), name.c_str()) != -1;
    wrong += TEVUtilString::Compare(true, text.c_str(), shouted.c_str()) != 0;
    wrong += TEVUtilString::Compare(text.c_str(), shouted.c_str()) <= 0;
    wrong += !TEVUtilString::EndWith(true, shouted.c_str(), text.c_str());
    return wrong;
}

TEST(TEVUtilString, ThreadsSearchAndCompareDistinctTextsAtOnce) {
    const std::string names[] = {"a", "bc", "def", "ghij"};
    int wrong[std::size(names)] = {};
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < std::size(names); ++i)
        threads.emplace_back([i, &names, &wrong] {
            for (std::size_t size = 1; size <= 500; ++size)
                wrong[i] += WrongAnswers(names[i], size);
        });
    for (std::thread& thread : threads) thread.join();
    for (std::size_t i = 0; i < std::size(names); ++i) EXPECT_EQ(wrong[i], 0) << names[i];
}

}  // namespace
