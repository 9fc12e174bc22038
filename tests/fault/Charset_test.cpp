// Conversions of text when the system's own fails, or when the size that it tells and the length
// that it writes disagree.
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <string>

#include "fault/SystemCalls.h"
#include "support/Com.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::fault::Fail;
using tev::fault::Replace;
using tev::fault::SystemCall;
using tev::test::Bstr;
using tev::test::Text;

namespace calls = tev::fault::calls;

// What the system answers when it is asked for the size, and then for the text; nothing for the
// truth. The text "text" has four characters on every side.
struct Answers {
    const char* what;
    std::optional<int> size;
    std::optional<int> written;
};

constexpr Answers kRefusals[] = {
    {"no size", 0, std::nullopt},        {"negative size", -1, std::nullopt},
    {"size too small", 3, std::nullopt}, {"size too large", 5, std::nullopt},
    {"text refused", std::nullopt, 0},   {"text negative", std::nullopt, -1},
    {"shorter text", std::nullopt, 3},   {"longer text", std::nullopt, 5},
    {"nothing of either", 0, 0},
};

// Answers the first two calls until the end of the scope.
template <typename Result, typename... Args>
[[nodiscard]] Replace<Result, Args...> Answer(SystemCall<Result(Args...)>& call,
                                              const Answers& answers) {
    return {call, [&call, answers, made = 0](Args... args) mutable -> Result {
                const auto& answer = made++ == 0 ? answers.size : answers.written;
                return answer ? *answer : call.Real(args...);
            }};
}

TEST(CharsetFaults, FromUtf8IsFalseWithNothing) {
    for (const Answers& answers : kRefusals) {
        SCOPED_TRACE(answers.what);
        const auto refuses = Answer(calls::MultiByteToWideChar, answers);
        wchar_t stale[] = L"stale";
        wchar_t* wide = stale;
        std::size_t length = 77;
        EXPECT_FALSE(TEVUtilString::ConvertFromMultiByteCharToWChar("tex\xFF", 4, &wide, &length));
        EXPECT_EQ(wide, nullptr);
        EXPECT_EQ(length, 0U);
    }
}

TEST(CharsetFaults, ToUtf8IsFalseWithNothing) {
    for (const Answers& answers : kRefusals) {
        SCOPED_TRACE(answers.what);
        const auto refuses = Answer(calls::WideCharToMultiByte, answers);
        char stale[] = "stale";
        char* text = stale;
        std::size_t length = 77;
        EXPECT_FALSE(
            TEVUtilString::ConvertFromWCharToMultiByteChar(&text, L"t\xD800t", 4, &length));
        EXPECT_EQ(text, nullptr);
        EXPECT_EQ(length, 0U);
    }
}

TEST(CharsetFaults, FromTheAnsiCodePageIsFalseWithNull) {
    for (const Answers& answers : kRefusals) {
        SCOPED_TRACE(answers.what);
        const auto refuses = Answer(calls::MultiByteToWideChar, answers);
        wchar_t stale[] = L"stale";
        wchar_t* text = stale;
        EXPECT_FALSE(TEVUtilWindows::FromMultibyteCharToBSTR("t\xE9xt", &text));
        EXPECT_EQ(text, nullptr);
    }
}

TEST(CharsetFaults, ToTheAnsiCodePageIsFalseWithNull) {
    const Bstr wide(L"t\x00E9xt");
    for (const Answers& answers : kRefusals) {
        SCOPED_TRACE(answers.what);
        const auto refuses = Answer(calls::WideCharToMultiByte, answers);
        char stale[] = "stale";
        char* text = stale;
        EXPECT_FALSE(TEVUtilWindows::FromBSTRToMultibyteChar(wide.get(), &text));
        EXPECT_EQ(text, nullptr);
    }
}

// The refusals above are those of the answers.
TEST(CharsetFaults, TrueAnswersConvert) {
    for (const Answers& truth : {Answers{"the system's", std::nullopt, std::nullopt},
                                 {"the size told", 4, std::nullopt}}) {
        SCOPED_TRACE(truth.what);
        const auto widens = Answer(calls::MultiByteToWideChar, truth);
        Bstr wide;
        EXPECT_TRUE(TEVUtilWindows::FromMultibyteCharToBSTR("t\xE9xt", wide.Out()));
        EXPECT_EQ(wide.str(), L"t\x00E9xt");
        const auto narrows = Answer(calls::WideCharToMultiByte, truth);
        Text narrow;
        EXPECT_TRUE(TEVUtilWindows::FromBSTRToMultibyteChar(wide.get(), narrow.Out()));
        EXPECT_EQ(narrow.str(), "t\xE9xt");
    }
}

TEST(CharsetFaults, FromTheLocaleIsFalseWithNull) {
    for (const std::size_t written : {static_cast<std::size_t>(-1), std::size_t{3}}) {
        const auto refuses = Fail(calls::mbstowcs, written);
        wchar_t stale[] = L"stale";
        wchar_t* wide = stale;
        EXPECT_FALSE(TEVUtilString::ConvertFromCharToWChar("t\xE9xt", &wide));
        EXPECT_EQ(wide, nullptr);
    }
}

TEST(CharsetFaults, ToTheLocaleThrowsWithNull) {
    const auto refuses = Fail(calls::wcstombs, static_cast<std::size_t>(-1));
    char stale[] = "stale";
    char* text = stale;
    try {
        TEVUtilString::ConvertFromWCharToChar(L"t\xE9xt", &text);
        ADD_FAILURE() << "nothing thrown";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "Failed to convert data from wchar to char.");
    }
    EXPECT_EQ(text, nullptr);
}

}  // namespace
