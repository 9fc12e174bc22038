#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>

#include "support/GlobalLocale.h"
#include "support/Owned.h"
#include "util/string/StreamedNumbers.h"

// Under another global C++ locale than the classic one numbers are written and read as the streams
// do it there.
namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::Extracted;
using tev::test::GlobalLocale;
using tev::test::Justification;
using tev::test::Justified;
using tev::test::Punctuation;
using tev::test::Streamed;
using tev::test::Text;

std::string HandedOut(double value, bool scientific, int precision) {
    Text text;
    TEVUtilString::ToString(text.Out(), value, scientific, precision);
    return text.str();
}

struct Row {
    std::string text;
    std::string streamed;
    const char* expected;
};

template <std::size_t count>
void ExpectRows(const Row (&rows)[count]) {
    for (const Row& row : rows) {
        EXPECT_EQ(row.text, row.expected);
        EXPECT_EQ(row.streamed, row.expected);
    }
}

TEST(ToString, DoublesFollowTheGlobalLocale) {
    const GlobalLocale locale(new Punctuation(',', "\3"));
    const double value = 1234567.5;
    const auto pointed = [value](std::ios_base::fmtflags flags = {}) {
        return Streamed(value, false, 2, std::ios::showpoint | flags);
    };
    ExpectRows({
        {TEVUtilString::ToString(value, false, 2), Streamed(value, false, 2), "1'234'567,50"},
        {TEVUtilString::ToString(-value, false, 0), Streamed(-value, false, 0), "-1'234'568"},
        {TEVUtilString::ToString(value, true, 3), Streamed(value, true, 3), "1,235e+06"},
        {HandedOut(value, false, 2), Streamed(value, false, 2), "1'234'567,50"},
        {HandedOut(-value, true, 3), Streamed(-value, true, 3), "-1,235e+06"},
        {TEVUtilString::ToString('R', value, 15, 2, false, false),
         Justification{'R', 15, false, false}.Filled(pointed()), "   1'234'567,50"},
        {TEVUtilString::ToString('R', value, 15, 2, true, true),
         Justification{'R', 15, true, true}.Filled(pointed(std::ios::showpos)), "+001'234'567,50"},
        {TEVUtilString::ToString('L', value, 15, 2, true, false),
         Justification{'L', 15, true, false}.Filled(pointed(std::ios::showpos)), "+1'234'567,50  "},
    });
}

template <typename... T>
void ExpectGrouped() {
    ExpectRows({{TEVUtilString::ToString(T{1234567}), Streamed(T{1234567}), "1'234'567"}...});
}

template <typename... T>
void ExpectGroupedAndJustified(const Justification& how, const char* isSigned,
                               const char* isUnsigned) {
    ExpectRows({{Justified(how, T{1234567}), how.Filled(Streamed(T{1234567}, how.Flags())),
                 std::is_signed_v<T> ? isSigned : isUnsigned}...});
}

TEST(ToString, IntegersFollowTheGlobalLocale) {
    const GlobalLocale locale(new Punctuation(',', "\3"));
    ExpectGrouped<int, unsigned, long, unsigned long, std::int64_t, std::uint64_t>();
    const struct {
        Justification how;
        const char* isSigned;
        const char* isUnsigned;
    } rows[] = {
        {{'R', 12, true, true}, "+001'234'567", "0001'234'567"},
        {{'R', 12, true, false}, "   1'234'567", "   1'234'567"},
        {{'L', 12, true, false}, "+1'234'567  ", "1'234'567   "},
    };
    for (const auto& row : rows)
        ExpectGroupedAndJustified<int, unsigned, long, std::int64_t, std::uint64_t>(
            row.how, row.isSigned, row.isUnsigned);
}

// The point is read as what stands between groups, and not as the end of the number.
template <typename T>
void ExpectGroupsAreRead(bool (*parse)(const char*, T&)) {
    const struct {
        const char* text;
        T expected;
    } rows[] = {{"1.234", 1234}, {"+12.345", 12345}, {" 1.234 ", 1234}, {"1234", 1234}};
    for (const auto& row : rows) {
        T streamed = 77;
        Extracted<T>(row.text, streamed);
        EXPECT_EQ(streamed, row.expected) << row.text;
        T value = 77;
        EXPECT_TRUE(parse(row.text, value)) << row.text;
        EXPECT_EQ(value, row.expected) << row.text;
    }
}

TEST(ToInt64, FollowsTheGlobalLocale) {
    const GlobalLocale locale(new Punctuation(',', "\3", '.'));
    ExpectGroupsAreRead<std::int64_t>(TEVUtilString::ToInt64);
}

TEST(ToUInt64, FollowsTheGlobalLocale) {
    const GlobalLocale locale(new Punctuation(',', "\3", '.'));
    ExpectGroupsAreRead<std::uint64_t>(TEVUtilString::ToUInt64);
}

}  // namespace
