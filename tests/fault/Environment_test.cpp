// The environment when the system refuses one of the calls.
#include "support/Environment.h"

#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cwchar>
#include <optional>
#include <stdexcept>
#include <string>

#include "fault/SystemCalls.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::fault::Calls;
using tev::fault::Fail;
using tev::fault::FailNth;
using tev::fault::Replace;
using tev::test::SystemVariable;
using tev::test::Text;
using tev::test::Variable;

namespace calls = tev::fault::calls;

constexpr const char* kName = "TEV_FAULT_VARIABLE";
// What the library tells the system at most.
constexpr DWORD kMostChars = 32767;

std::string Value(const char* name = kName) {
    Text value;
    TEVUtilWindows::GetEnv(name, value.Out());
    return value.str();
}

std::string PathValue(const char* name = kName) {
    Text value;
    TEVUtilWindows::GetPathEnvVariable(name, value.Out());
    return value.str();
}

// A variable that at the first `attempts` reads needs so many characters, more than there is room
// for, and then reads as "value".
class Growing {
 public:
    Growing(int attempts, DWORD needed) : attempts_(attempts), needed_(needed) {}

 private:
    DWORD Read(wchar_t* out, DWORD size) {
        // The room is there, to its end.
        std::wmemset(out, L'x', size);
        if (size < kMostChars) return needed_;
        EXPECT_EQ(size, kMostChars);
        if (attempts_-- > 0) return needed_;
        std::wmemcpy(out, L"value", 6);
        return 5;
    }

    int attempts_;
    DWORD needed_;
    const Replace<DWORD, const wchar_t*, wchar_t*, DWORD> reads_{
        calls::GetEnvironmentVariableW,
        [this](const wchar_t*, wchar_t* out, DWORD size) { return Read(out, size); }};
};

TEST(EnvironmentReads, ValueThatGrowsIsReadAgain) {
    for (const int attempts : {1, 2, 9}) {
        for (const DWORD needed : {kMostChars, kMostChars + 1, 100000UL}) {
            SCOPED_TRACE(needed);
            const Growing variable(attempts, needed);
            const Calls reads(calls::GetEnvironmentVariableW);
            EXPECT_EQ(Value(), "value");
            EXPECT_EQ(reads.Made(), 1 + attempts + 1);
        }
    }
}

TEST(EnvironmentReads, ValueThatGrowsTenTimesIsNotSet) {
    const Variable isSet(kName, "value");
    const Calls reads(calls::GetEnvironmentVariableW);
    {
        const Growing variable(10, kMostChars + 1);
        EXPECT_EQ(Value(), "(null)");
        EXPECT_EQ(reads.Made(), 1 + 10);
    }
    {
        const Growing variable(10, kMostChars + 1);
        EXPECT_EQ(PathValue(), "(null)") << "and nothing thrown";
    }
    const Growing variable(10, kMostChars + 1);
    EXPECT_FALSE(TEVUtilWindows::EnvironmentVariableExists(kName));
    EXPECT_EQ(reads.Made(), 3 * (1 + 10));
}

TEST(EnvironmentReads, OrdinaryValueIsReadAtOnce) {
    for (const std::size_t length : {std::size_t{1}, std::size_t{2047}}) {
        const Variable isSet(kName, std::string(length, 'x').c_str());
        const Calls reads(calls::GetEnvironmentVariableW);
        EXPECT_EQ(Value(), std::string(length, 'x'));
        EXPECT_EQ(reads.Made(), 1);
    }
    const Variable isSet(kName, std::string(2048, 'x').c_str());
    const Calls reads(calls::GetEnvironmentVariableW);
    EXPECT_EQ(Value(), std::string(2048, 'x'));
    EXPECT_EQ(reads.Made(), 2);
}

TEST(EnvironmentReads, LongestValueIsReadAtTheSecondCall) {
    const Replace longest(calls::GetEnvironmentVariableW,
                          [](const wchar_t*, wchar_t* out, DWORD size) {
                              std::wmemset(out, L'x', size);
                              return size < kMostChars ? kMostChars : size - 1;
                          });
    const Calls reads(calls::GetEnvironmentVariableW);
    EXPECT_EQ(Value(), std::string(kMostChars - 1, 'x'));
    EXPECT_EQ(reads.Made(), 2);
}

TEST(EnvironmentReads, ValueMayFillAllTheRoomThatIsOffered) {
    DWORD offered = 0;
    const Replace fills(calls::GetEnvironmentVariableW,
                        [&](const wchar_t*, wchar_t* out, DWORD size) {
                            offered = size;
                            std::wmemset(out, L'x', size - 1);
                            out[size - 1] = L'\0';
                            return size - 1;
                        });
    const Calls reads(calls::GetEnvironmentVariableW);
    const std::string value = Value();
    EXPECT_EQ(value, std::string(offered - 1, 'x'));
    EXPECT_GT(offered, 1000U);
    EXPECT_EQ(reads.Made(), 1);
}

TEST(EnvironmentReads, RefusalReadsAsNotSet) {
    const Variable isSet(kName, "value");
    const Calls reads(calls::GetEnvironmentVariableW);
    const auto fails = Fail(calls::GetEnvironmentVariableW, 0U, ERROR_ACCESS_DENIED);
    EXPECT_EQ(Value(), "(null)");
    EXPECT_EQ(PathValue(), "(null)");
    EXPECT_FALSE(TEVUtilWindows::EnvironmentVariableExists(kName));
    EXPECT_FALSE(TEVUtilWindows::ModifySessionEnvironmentVariable(kName, "more", false, 0));
    EXPECT_EQ(reads.Made(), 4);
}

TEST(EnvironmentReads, LongValueThatIsGoneAtTheSecondCallIsNotSet) {
    const Variable isSet(kName, std::string(2048, 'x').c_str());
    const Calls reads(calls::GetEnvironmentVariableW);
    const auto fails = FailNth(1, calls::GetEnvironmentVariableW, 0U, ERROR_ENVVAR_NOT_FOUND);
    EXPECT_EQ(Value(), "(null)");
    EXPECT_EQ(reads.Made(), 2);
}

TEST(EnvironmentReads, NameThatDoesNotConvertIsNotSet) {
    constexpr const char* kForeign = "TEV_FAULT_\xE9";
    const Variable isSet(kForeign, "value");
    EXPECT_EQ(Value(kForeign), "value");
    for (const std::size_t converted : {static_cast<std::size_t>(-1), std::size_t{3}}) {
        const Calls reads(calls::GetEnvironmentVariableW);
        const auto fails = Fail(calls::mbstowcs, converted);
        EXPECT_EQ(Value(kForeign), "(null)");
        EXPECT_EQ(PathValue(kForeign), "(null)");
        EXPECT_EQ(reads.Made(), 0);
    }
}

TEST(EnvironmentReads, ValueThatDoesNotConvertThrowsFromThePathFormOnly) {
    const Variable isSet(kName, "valu\xE9");
    const auto fails = Fail(calls::wcstombs, static_cast<std::size_t>(-1));
    EXPECT_EQ(Value(), "(null)");
    EXPECT_FALSE(TEVUtilWindows::EnvironmentVariableExists(kName));
    char stale[] = "stale";
    char* value = stale;
    try {
        TEVUtilWindows::GetPathEnvVariable(kName, &value);
        ADD_FAILURE() << "nothing thrown";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(),
                     "Runtime error encountered while retrieving Windows System encironment "
                     "variable.");
    }
    EXPECT_EQ(value, nullptr);
}

// The lists of names and values; the outputs hold something of their own before.
struct Listing {
    Listing()
        : isListed(TEVUtilWindows::GetCurrentProcessEnvironmentVariables(names, values, count)) {}

    void ExpectNone() const {
        EXPECT_FALSE(isListed);
        EXPECT_EQ(names, nullptr);
        EXPECT_EQ(values, nullptr);
        EXPECT_EQ(count, 0U);
    }

    char* stale[1] = {};
    char** names = stale;
    char** values = stale;
    std::size_t count = 77;
    bool isListed;
};

TEST(EnvironmentBlock, RefusalIsFalseWithNothing) {
    const Calls released(calls::FreeEnvironmentStringsW);
    const auto fails = Fail(calls::GetEnvironmentStringsW, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    Listing().ExpectNone();
    EXPECT_EQ(released.Made(), 0);
}

TEST(EnvironmentBlock, WithoutAnyVariableThatConvertsIsFalseAndGivenBack) {
    wchar_t block[] = L"ONE=\x153\0TWO=\x153\0";
    const Replace foreign(calls::GetEnvironmentStringsW, [&] { return block; });
    const Replace release(calls::FreeEnvironmentStringsW, [](wchar_t*) { return TRUE; });
    const Calls released(calls::FreeEnvironmentStringsW);
    Listing().ExpectNone();
    EXPECT_EQ(released.Made(), 1);
}

TEST(EnvironmentBlock, EmptyOneIsFalse) {
    wchar_t block[] = L"\0";
    const Replace empty(calls::GetEnvironmentStringsW, [&] { return block; });
    const Replace release(calls::FreeEnvironmentStringsW, [&](wchar_t* given) {
        EXPECT_EQ(given, block);
        return TRUE;
    });
    Listing().ExpectNone();
}

TEST(EnvironmentWrites, RefusalIsFalseAndTheRuntimesCopyIsMadeAllTheSame) {
    const Variable variable(kName, "before");
    const Calls copies(calls::_putenv_s);
    for (const BOOL refusal : {FALSE, -1}) {
        const auto fails = Fail(calls::SetEnvironmentVariableA, refusal, ERROR_ACCESS_DENIED);
        EXPECT_FALSE(TEVUtilWindows::SetSessionEnvironmentVariable(kName, "after"));
        EXPECT_FALSE(TEVUtilWindows::SetSessionEnvironmentVariable(kName, nullptr));
    }
    EXPECT_EQ(copies.Made(), 4);
}

TEST(EnvironmentWrites, RefusalIsTheResultOfAListEditToo) {
    const Variable variable(kName, "a;b");
    const auto fails = Fail(calls::SetEnvironmentVariableA, FALSE, ERROR_ACCESS_DENIED);
    EXPECT_FALSE(TEVUtilWindows::ModifySessionEnvironmentVariable(kName, "c", false, 0));
    EXPECT_FALSE(TEVUtilWindows::ModifySessionEnvironmentVariable(kName, "a", false, 1));
    EXPECT_TRUE(TEVUtilWindows::ModifySessionEnvironmentVariable(kName, "c", true, 0))
        << "it is there already, in the runtime's copy that was made";
}

TEST(EnvironmentWrites, RefusalOfTheRuntimesCopyIsNoFailure) {
    const Variable variable(kName, "before");
    const auto fails = Fail(calls::_putenv_s, EINVAL);
    EXPECT_TRUE(TEVUtilWindows::SetSessionEnvironmentVariable(kName, "after"));
    EXPECT_EQ(SystemVariable(kName), "after");
    EXPECT_TRUE(TEVUtilWindows::SetSessionEnvironmentVariable(kName, nullptr));
    EXPECT_EQ(SystemVariable(kName), std::nullopt);
}

// A look-up inside the system call of another finds the store's room for keys taken.
TEST(LookUpInsideAnother, HasATextOfItsOwn) {
    using TAMO::TEV::System::TEVSystemProperties;
    ASSERT_TRUE(TEVSystemProperties::SetUserProperty("inner", "1"));
    const char* inner = nullptr;
    int depth = 0;
    const Replace asks(calls::GetEnvironmentVariableW,
                       [&](const wchar_t* name, wchar_t* buffer, DWORD size) {
                           if (depth++ == 0) TEVSystemProperties::GetProperty("inner", inner);
                           return calls::GetEnvironmentVariableW.Real(name, buffer, size);
                       });
    const char* outer = nullptr;
    EXPECT_FALSE(TEVSystemProperties::GetProperty("tev.is.not.there", outer));
    EXPECT_STREQ(inner, "1");
    EXPECT_EQ(depth, 1);
    TEVSystemProperties::InitializeProperties();
}

}  // namespace
