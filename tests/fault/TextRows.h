#pragma once

#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>

#include "fault/AllocationFaults.h"

// What rows of text functions have in common.
namespace tev::fault {

// Longer than what a std::string keeps in itself, so that each copy allocates.
inline constexpr const char* kText = "A Text That Is Longer Than What A String Keeps In Itself";
inline constexpr const char* kSpacedText =
    "  A Text That Is Longer Than What A String Keeps In Itself  ";

// How a call fails: by its result alone, or by an exception.
using Failure = void (*)(Attempt&);

inline void Quietly(Attempt&) {}

inline void ByBadAlloc(Attempt& attempt) { EXPECT_TRUE(attempt.Threw<std::bad_alloc>()); }

inline void ByRuntimeError(Attempt& attempt) {
    EXPECT_TRUE(attempt.Threw<std::runtime_error>());
    EXPECT_EQ(attempt.ThrownText(),
              "Failed to allocate enough memory to perform requested operation.");
}

inline void Release(char** text) { TAMO::TEV::System::Util::TEVUtilString::DeleteCString(text); }
inline void Release(wchar_t** text) {
    TAMO::TEV::System::Util::TEVUtilString::DeleteWCharBuffer(text);
}

// Makes the call and gives its success: its result, or true when it has none and throws nothing.
template <typename Work>
bool Made(Attempt& attempt, Work work) {
    if constexpr (std::is_same_v<std::invoke_result_t<Work>, bool>) return attempt.Call(work);
    bool isThrough = false;
    attempt.Call([&] {
        work();
        isThrough = true;
    });
    return isThrough;
}

// A call that stores a new text in *out, and null when it fails, whatever stood there.
template <typename Char, typename Work>
void HandsOut(Attempt& attempt, const Char* expected, Work work, Failure failure = Quietly) {
    Char stale[1] = {};
    Char* out = stale;
    const bool isMade = Made(attempt, [&] { return work(&out); });
    ASSERT_NE(out, stale);
    const bool succeeded = attempt.Succeeded(isMade && out != nullptr);
    EXPECT_EQ(out != nullptr, succeeded);
    if (out != nullptr) {
        EXPECT_STREQ(out, expected);
    }
    if (!succeeded) failure(attempt);
    Release(&out);
}

// A call that gives a std::string, empty when it fails.
template <typename Work>
void Gives(Attempt& attempt, const std::string& expected, Work work, Failure failure = Quietly) {
    const std::string made = attempt.Call(work);
    const bool succeeded = attempt.Succeeded(!made.empty());
    EXPECT_EQ(made, succeeded ? expected : std::string());
    if (!succeeded) failure(attempt);
}

// A call that throws `text`, and when there is no memory for that, what says so.
template <typename Exception = std::invalid_argument, typename Work>
void Refuses(Attempt& attempt, const char* text, Work work) {
    attempt.Call([&] { static_cast<void>(work()); });
    const bool isRefused = attempt.Threw<Exception>() && attempt.ThrownText() == text;
    if (!attempt.Succeeded(isRefused)) ByRuntimeError(attempt);
}

// A call that gives `expected` and needs no memory for it.
template <typename Value, typename Work>
void Finds(Attempt& attempt, Value expected, Work work) {
    attempt.Succeeded(attempt.Call(work) == expected);
}

template <typename Value>
Value Other(Value value) {
    return value == Value() ? Value(1) : Value();
}

// A call that converts a text, and leaves the output alone when it fails.
template <typename Value, typename Work>
void Converts(Attempt& attempt, Value expected, Work work) {
    const Value before = Other(expected);
    Value value = before;
    const bool isConverted = attempt.Call([&] { return work(value); });
    EXPECT_EQ(value, attempt.Succeeded(isConverted) ? expected : before);
}

}  // namespace tev::fault
