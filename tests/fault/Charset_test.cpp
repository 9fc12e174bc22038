// Conversions of text when the system's own fails, or when the size that it tells and the length
// that it writes disagree.
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <array>
#include <cwchar>
#include <optional>
#include <stdexcept>
#include <string>

#include "fault/SystemCalls.h"
#include "support/Com.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::fault::Calls;
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

// Text of three bytes a character, more than two gigabytes in all; its memory is one piece that
// stands again and again.
class EndlessText {
 public:
    EndlessText() {
        void* place = VirtualAlloc(nullptr, kPieces * kPieceBytes, MEM_RESERVE, PAGE_NOACCESS);
        VirtualFree(place, 0, MEM_RELEASE);
        auto* next = static_cast<char*>(place);
        for (void*& piece : pieces_) {
            piece = MapViewOfFileEx(section_, FILE_MAP_ALL_ACCESS, 0, 0, kPieceBytes, next);
            if (piece == nullptr) throw std::runtime_error("no place for the text");
            next += kPieceBytes;
        }
        std::wmemset(static_cast<wchar_t*>(pieces_[0]), L'\x4e2d', kPieceBytes / sizeof(wchar_t));
    }
    ~EndlessText() {
        for (const void* piece : pieces_) UnmapViewOfFile(piece);
        CloseHandle(section_);
    }
    EndlessText(const EndlessText&) = delete;
    EndlessText& operator=(const EndlessText&) = delete;

    const wchar_t* get() const { return static_cast<const wchar_t*>(pieces_[0]); }
    static std::size_t Length() { return kPieces * kPieceBytes / sizeof(wchar_t); }

 private:
    static constexpr std::size_t kPieceBytes = std::size_t{1} << 26;
    static constexpr std::size_t kPieces = 22;

    HANDLE section_ =
        CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, kPieceBytes, nullptr);
    std::array<void*, kPieces> pieces_{};
};

TEST(CharsetFaults, TextOfMoreThanTwoGigabytesIsNotConverted) {
    const EndlessText wide;
    const auto refuses = Fail(calls::WideCharToMultiByte, 0, ERROR_INVALID_PARAMETER);
    const Calls asked(calls::WideCharToMultiByte);
    Text text;
    std::size_t length = 77;
    EXPECT_FALSE(TEVUtilString::ConvertFromWCharToMultiByteChar(text.Out(), wide.get(),
                                                                EndlessText::Length(), &length));
    EXPECT_TRUE(text.IsNull());
    EXPECT_EQ(length, 0U);
    EXPECT_EQ(asked.Made(), 1) << "for the size only";
}

}  // namespace
