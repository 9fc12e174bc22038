// Transformed and split text when memory is exhausted at any step.
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fault/TextRows.h"
#include "support/Owned.h"

namespace {

using namespace tev::fault;
using String = TAMO::TEV::System::Util::TEVUtilString;
using tev::test::TextArray;

constexpr const char* kLower = "a text that is longer than what a string keeps in itself";
constexpr const char* kUpper = "A TEXT THAT IS LONGER THAN WHAT A STRING KEEPS IN ITSELF";
constexpr const char* kStartTrimmed = "A Text That Is Longer Than What A String Keeps In Itself  ";
constexpr const char* kEndTrimmed = "  A Text That Is Longer Than What A String Keeps In Itself";
constexpr const char* kReplaced = "A Word That Is Longer Than What A String Keeps In Itself";
constexpr const char* kTwice =
    "A Text That Is Longer Than What A String Keeps In Itself"
    "A Text That Is Longer Than What A String Keeps In Itself";
constexpr const char* kPair =
    "a key that is longer than a short one=A Text That Is Longer Than What A String Keeps In "
    "Itself";
constexpr const char* kKey = "a key that is longer than a short one";
constexpr const char* kNotAPair =
    "Invalid input string. Input string must be in \"key=value\" format.";

// The members that give a new string throw when they cannot.
template <typename Work>
void GivesOrThrows(Attempt& attempt, const char* expected, Work work) {
    Gives(attempt, expected, work, ByRuntimeError);
}

template <typename Work>
void HandsOutOrThrows(Attempt& attempt, const char* expected, Work work) {
    HandsOut(attempt, expected, work, ByRuntimeError);
}

// A refusal that leaves null in the output.
template <typename Work>
void RefusesWithNull(Attempt& attempt, const char* text, Work work) {
    char stale[1] = {};
    char* out = stale;
    Refuses(attempt, text, [&] { return work(&out), 0; });
    EXPECT_EQ(out, nullptr);
}

const AllocatingFunctions concatenation{
    {"TEVUtilString::Concat(char const*, char const*)", "",
     [](Attempt& attempt) { Gives(attempt, kTwice, [] { return String::Concat(kText, kText); }); }},
    {"TEVUtilString::Concat(char const*, char const*, char**)", "",
     [](Attempt& attempt) {
         HandsOut(attempt, kTwice, [](char** out) { String::Concat(kText, kText, out); });
     }},
};

const AllocatingFunctions replacement{
    {"TEVUtilString::Replace(std::string const&, std::string const&, std::string const&)", "",
     [](Attempt& attempt) {
         const std::string input = kText;
         const std::string word = "Word";
         const std::string text = "Text";
         GivesOrThrows(attempt, kReplaced, [&] { return String::Replace(input, word, text); });
     }},
    {"TEVUtilString::Replace(char const*, char const*, char const*)", "",
     [](Attempt& attempt) {
         GivesOrThrows(attempt, kReplaced, [] { return String::Replace(kText, "Word", "Text"); });
     }},
    {"TEVUtilString::Replace(char const*, char const*, char const*)", "no pattern",
     [](Attempt& attempt) {
         GivesOrThrows(attempt, kText, [] { return String::Replace(kText, "Word", nullptr); });
     }},
    {"TEVUtilString::Replace(char const*, char const*, char const*)", "refused",
     [](Attempt& attempt) {
         Refuses(attempt, "Argument \"aInputStr\" cannot be a nullptr.",
                 [] { return String::Replace(static_cast<const char*>(nullptr), "Word", "Text"); });
     }},
    {"TEVUtilString::Replace(char const*, char const*, char const*, char**)", "",
     [](Attempt& attempt) {
         HandsOutOrThrows(attempt, kReplaced,
                          [](char** out) { String::Replace(kText, "Word", "Text", out); });
     }},
    {"TEVUtilString::Replace(char const*, char const*, char const*, char**)", "refused",
     [](Attempt& attempt) {
         RefusesWithNull(attempt, "Argument \"aInputStr\" cannot be a nullptr.",
                         [](char** out) { String::Replace(nullptr, "Word", "Text", out); });
     }},
};

const AllocatingFunctions letterCase{
    {"TEVUtilString::ToLower(std::string const&)", "",
     [](Attempt& attempt) {
         const std::string text = kText;
         GivesOrThrows(attempt, kLower, [&] { return String::ToLower(text); });
     }},
    {"TEVUtilString::ToLower(char const*)", "",
     [](Attempt& attempt) {
         GivesOrThrows(attempt, kLower, [] { return String::ToLower(kText); });
     }},
    {"TEVUtilString::ToLower(char const*)", "refused",
     [](Attempt& attempt) {
         Refuses(attempt, "Input argument cannot be a nullptr.",
                 [] { return String::ToLower(static_cast<const char*>(nullptr)); });
     }},
    {"TEVUtilString::ToLower(char const*, char**)", "",
     [](Attempt& attempt) {
         HandsOutOrThrows(attempt, kLower, [](char** out) { String::ToLower(kText, out); });
     }},
    {"TEVUtilString::ToLower(char const*, char**)", "refused",
     [](Attempt& attempt) {
         RefusesWithNull(attempt, "Input arguments cannot be a nullptr.",
                         [](char** out) { String::ToLower("", out); });
     }},
    {"TEVUtilString::ToUpper(std::string const&)", "",
     [](Attempt& attempt) {
         const std::string text = kText;
         GivesOrThrows(attempt, kUpper, [&] { return String::ToUpper(text); });
     }},
    {"TEVUtilString::ToUpper(char const*)", "",
     [](Attempt& attempt) {
         GivesOrThrows(attempt, kUpper, [] { return String::ToUpper(kText); });
     }},
    {"TEVUtilString::ToUpper(char const*)", "refused",
     [](Attempt& attempt) {
         Refuses(attempt, "Input argument cannot be a nullptr.",
                 [] { return String::ToUpper(static_cast<const char*>(nullptr)); });
     }},
    {"TEVUtilString::ToUpper(char const*, char**)", "",
     [](Attempt& attempt) {
         HandsOutOrThrows(attempt, kUpper, [](char** out) { String::ToUpper(kText, out); });
     }},
    {"TEVUtilString::ToUpper(char const*, char**)", "refused",
     [](Attempt& attempt) {
         RefusesWithNull(attempt, "Input arguments cannot be a nullptr.",
                         [](char** out) { String::ToUpper("", out); });
     }},
};

const AllocatingFunctions trimming{
    {"TEVUtilString::Trim(std::string const&)", "",
     [](Attempt& attempt) {
         const std::string text = kSpacedText;
         GivesOrThrows(attempt, kText, [&] { return String::Trim(text); });
     }},
    {"TEVUtilString::Trim(char const*)", "",
     [](Attempt& attempt) {
         GivesOrThrows(attempt, kText, [] { return String::Trim(kSpacedText); });
     }},
    {"TEVUtilString::Trim(char const*)", "refused",
     [](Attempt& attempt) {
         Refuses(attempt, "Input argument cannot be a nullptr.",
                 [] { return String::Trim(static_cast<const char*>(nullptr)); });
     }},
    {"TEVUtilString::TrimStart(char const*)", "",
     [](Attempt& attempt) {
         GivesOrThrows(attempt, kStartTrimmed, [] { return String::TrimStart(kSpacedText); });
     }},
    {"TEVUtilString::TrimStart(char const*)", "refused",
     [](Attempt& attempt) {
         Refuses(attempt, "Input argument cannot be a nullptr.",
                 [] { return String::TrimStart(nullptr); });
     }},
    {"TEVUtilString::TrimEnd(char const*)", "",
     [](Attempt& attempt) {
         GivesOrThrows(attempt, kEndTrimmed, [] { return String::TrimEnd(kSpacedText); });
     }},
    {"TEVUtilString::TrimEnd(char const*)", "refused",
     [](Attempt& attempt) {
         Refuses(attempt, "Input argument cannot be a nullptr.",
                 [] { return String::TrimEnd(nullptr); });
     }},
    {"TEVUtilString::Trim(char const*, char**)", "",
     [](Attempt& attempt) {
         HandsOut(attempt, kText, [](char** out) { String::Trim(kSpacedText, out); });
     }},
    {"TEVUtilString::Trim(char const*, char**)", "null text",
     [](Attempt& attempt) {
         HandsOut(attempt, "", [](char** out) { String::Trim(nullptr, out); });
     }},
    {"TEVUtilString::TrimStart(char const*, char**)", "",
     [](Attempt& attempt) {
         HandsOut(attempt, kStartTrimmed, [](char** out) { String::TrimStart(kSpacedText, out); });
     }},
    {"TEVUtilString::TrimEnd(char const*, char**)", "",
     [](Attempt& attempt) {
         HandsOut(attempt, kEndTrimmed, [](char** out) { String::TrimEnd(kSpacedText, out); });
     }},
};

const AllocatingFunctions keyValuePairs{
    {"TEVUtilString::GetKeyFromKeyValuePair(char const*)", "",
     [](Attempt& attempt) {
         GivesOrThrows(attempt, kKey, [] { return String::GetKeyFromKeyValuePair(kPair); });
     }},
    {"TEVUtilString::GetKeyFromKeyValuePair(char const*)", "refused",
     [](Attempt& attempt) {
         Refuses(attempt, kNotAPair, [] { return String::GetKeyFromKeyValuePair("pair"); });
     }},
    {"TEVUtilString::GetKeyFromKeyValuePair(char const*, char**)", "",
     [](Attempt& attempt) {
         HandsOutOrThrows(attempt, kKey,
                          [](char** out) { String::GetKeyFromKeyValuePair(kPair, out); });
     }},
    {"TEVUtilString::GetKeyFromKeyValuePair(char const*, char**)", "refused",
     [](Attempt& attempt) {
         RefusesWithNull(attempt, kNotAPair,
                         [](char** out) { String::GetKeyFromKeyValuePair("pair", out); });
     }},
    {"TEVUtilString::GetKeyFromKeyValuePair(char const*, char**)", "no output",
     [](Attempt& attempt) {
         Refuses(attempt,
                 "ERROR: Input parameters cannot be NULL or an empty string and must be given in "
                 "format \"key=value\".",
                 [] { return String::GetKeyFromKeyValuePair(kPair, nullptr), 0; });
     }},
    {"TEVUtilString::GetValueFromKeyValuePair(char const*)", "",
     [](Attempt& attempt) {
         GivesOrThrows(attempt, kText, [] { return String::GetValueFromKeyValuePair(kPair); });
     }},
    {"TEVUtilString::GetValueFromKeyValuePair(char const*)", "refused",
     [](Attempt& attempt) {
         Refuses(attempt, kNotAPair, [] { return String::GetValueFromKeyValuePair("pair"); });
     }},
    {"TEVUtilString::GetValueFromKeyValuePair(char const*, char**)", "",
     [](Attempt& attempt) {
         HandsOutOrThrows(attempt, kText,
                          [](char** out) { String::GetValueFromKeyValuePair(kPair, out); });
     }},
    {"TEVUtilString::GetValueFromKeyValuePair(char const*, char**)", "refused",
     [](Attempt& attempt) {
         RefusesWithNull(attempt, kNotAPair,
                         [](char** out) { String::GetValueFromKeyValuePair("pair", out); });
     }},
    {"TEVUtilString::GetValueFromKeyValuePair(char const*, char**)", "no output",
     [](Attempt& attempt) {
         Refuses(attempt,
                 "ERROR: Input parameters cannot be a nullptr or an empty string and must be given "
                 "in format \"key=value\".",
                 [] { return String::GetValueFromKeyValuePair(kPair, nullptr), 0; });
     }},
};

void Tokenizes(Attempt& attempt) {
    const std::vector<std::string> expected{"one", "two", "three", "four", "five"};
    TextArray tokens;
    const bool isSplit = attempt.Call([&] {
        return String::Tokenize(", ", "one,two three, four,,five,", tokens.array, tokens.count);
    });
    const bool succeeded = attempt.Succeeded(isSplit);
    EXPECT_EQ(tokens.array != nullptr, succeeded);
    EXPECT_EQ(tokens.Strings(), succeeded ? expected : std::vector<std::string>());
}

const AllocatingFunctions splitting{
    {"TEVUtilString::Tokenize(char const*, char const*, char**&, unsigned long long&)", "",
     Tokenizes},
};

}  // namespace
