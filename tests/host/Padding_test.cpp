#include "TEVSystemLib/util/string/detail/Padding.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace {

using TAMO::TEV::System::Util::detail::Fill;
using TAMO::TEV::System::Util::detail::Pad;

TEST(Pad, ThreeWaysToFill) {
    const struct {
        std::string_view number;
        std::uint64_t width;
        std::string_view blanksRight;
        std::string_view blanksLeft;
        std::string_view zerosBehindSign;
    } rows[] = {
        {"42", 0, "42", "42", "42"},
        {"42", 1, "42", "42", "42"},
        {"42", 2, "42", "42", "42"},
        {"42", 3, "42 ", " 42", "042"},
        {"42", 5, "42   ", "   42", "00042"},
        {"-42", 3, "-42", "-42", "-42"},
        {"-42", 4, "-42 ", " -42", "-042"},
        {"+42", 5, "+42  ", "  +42", "+0042"},
        {"-3.5", 6, "-3.5  ", "  -3.5", "-003.5"},
        {"5.", 4, "5.  ", "  5.", "005."},
        // The sign of an exponent is not the number's.
        {"1e-05", 6, "1e-05 ", " 1e-05", "01e-05"},
        {"-inf", 6, "-inf  ", "  -inf", "-00inf"},
        {"-", 3, "-  ", "  -", "-00"},
        {"", 2, "  ", "  ", "00"},
        {"", 0, "", "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.number) + " to " + std::to_string(row.width));
        EXPECT_EQ(Pad(row.number, row.width, Fill::BlanksRight), row.blanksRight);
        EXPECT_EQ(Pad(row.number, row.width, Fill::BlanksLeft), row.blanksLeft);
        EXPECT_EQ(Pad(row.number, row.width, Fill::ZerosBehindSign), row.zerosBehindSign);
    }
}

TEST(Pad, WidthOfMillions) {
    constexpr std::uint64_t kWidth = 3000000;
    const std::string blanks(kWidth - 2, ' ');
    EXPECT_TRUE(Pad("-7", kWidth, Fill::BlanksRight) == "-7" + blanks);
    EXPECT_TRUE(Pad("-7", kWidth, Fill::BlanksLeft) == blanks + "-7");
    EXPECT_TRUE(Pad("-7", kWidth, Fill::ZerosBehindSign) ==
                '-' + std::string(kWidth - 2, '0') + '7');
}

TEST(Pad, WidthBeyondMemoryThrows) {
    for (const Fill fill : {Fill::BlanksRight, Fill::BlanksLeft, Fill::ZerosBehindSign}) {
        EXPECT_THROW(Pad("7", UINT64_MAX, fill), std::exception);
        EXPECT_THROW(Pad("", UINT64_MAX, fill), std::exception);
    }
}

}  // namespace
