#include "TEVSystemLib/util/string/detail/NumberText.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

#include "models/NumberModel.h"

namespace TAMO::TEV::System::Util::detail {

void PrintTo(IntegerText text, std::ostream* out) {
    *out << (text == IntegerText::Invalid ? "Invalid"
             : text == IntegerText::Zero  ? "Zero"
                                          : "Digits");
}

}  // namespace TAMO::TEV::System::Util::detail

namespace {

using namespace std::string_view_literals;
using TAMO::TEV::System::Util::detail::ClassifyInteger;
using TAMO::TEV::System::Util::detail::IntegerText;
using TAMO::TEV::System::Util::detail::MayBeReal;
using TAMO::TEV::System::Util::detail::ReadLeadingInteger;
using TAMO::TEV::System::Util::detail::ReadReal;
using TAMO::TEV::System::Util::detail::Sign;
using TAMO::TEV::System::Util::detail::SplitIndices;
using tev::test::IntegerShape;
using tev::test::LooksReal;

// Calls `visit` with every text of at most `longest` characters of the alphabet.
template <typename Visitor>
void ForEachText(std::string_view alphabet, std::size_t longest, Visitor visit,
                 const std::string& text = {}) {
    visit(text);
    if (text.size() == longest) return;
    for (const char c : alphabet) ForEachText(alphabet, longest, visit, text + c);
}

TEST(ClassifyInteger, Tables) {
    constexpr auto kInvalid = IntegerText::Invalid;
    constexpr auto kZero = IntegerText::Zero;
    constexpr auto kDigits = IntegerText::Digits;
    const struct {
        std::string_view text;
        IntegerText plusOrMinus;
        IntegerText plusOnly;
    } rows[] = {
        {"0", kDigits, kDigits},
        {"9", kDigits, kDigits},
        {"007", kDigits, kDigits},
        {"0123456789", kDigits, kDigits},
        {"99999999999999999999999999999999", kDigits, kDigits},
        {"12.", kDigits, kDigits},
        {"12.75", kDigits, kDigits},
        {"0.5", kDigits, kDigits},
        {"+42", kDigits, kDigits},
        {"+12.9", kDigits, kDigits},
        {"-42", kDigits, kInvalid},
        {"-12.75", kDigits, kInvalid},
        {"-0", kDigits, kInvalid},
        {"+", kDigits, kDigits},
        {"-", kDigits, kInvalid},
        {".", kZero, kZero},
        {".25", kZero, kZero},
        {".0", kZero, kZero},
        {"+.", kZero, kZero},
        {"+.5", kZero, kZero},
        {"-.", kZero, kInvalid},
        {"-.5", kZero, kInvalid},
        {"", kInvalid, kInvalid},
        {" ", kInvalid, kInvalid},
        {" 1", kInvalid, kInvalid},
        {"1 ", kInvalid, kInvalid},
        {"1 2", kInvalid, kInvalid},
        {"+ 1", kInvalid, kInvalid},
        {"\t1", kInvalid, kInvalid},
        {"1\n", kInvalid, kInvalid},
        {"1.2.3", kInvalid, kInvalid},
        {"..", kInvalid, kInvalid},
        {".5.", kInvalid, kInvalid},
        {"+..", kInvalid, kInvalid},
        {"--1", kInvalid, kInvalid},
        {"++1", kInvalid, kInvalid},
        {"+-1", kInvalid, kInvalid},
        {"-+1", kInvalid, kInvalid},
        {"1-", kInvalid, kInvalid},
        {"1+", kInvalid, kInvalid},
        {"1-2", kInvalid, kInvalid},
        {".+", kInvalid, kInvalid},
        {".-5", kInvalid, kInvalid},
        {"+1+", kInvalid, kInvalid},
        {"1e3", kInvalid, kInvalid},
        {"1E3", kInvalid, kInvalid},
        {"0x1A", kInvalid, kInvalid},
        {"1,000", kInvalid, kInvalid},
        {"1/2", kInvalid, kInvalid},
        {"1:2", kInvalid, kInvalid},
        {"abc", kInvalid, kInvalid},
        {"42a", kInvalid, kInvalid},
        {"a42", kInvalid, kInvalid},
        // Superscript digits of Latin-1, and Arabic ones in UTF-8.
        {"4\xB2", kInvalid, kInvalid},
        {"\xD9\xA3", kInvalid, kInvalid},
        {"1\0"sv, kInvalid, kInvalid},
        {"\0"sv, kInvalid, kInvalid},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::string(row.text)));
        EXPECT_EQ(ClassifyInteger(row.text, Sign::PlusOrMinus), row.plusOrMinus);
        EXPECT_EQ(ClassifyInteger(row.text, Sign::PlusOnly), row.plusOnly);
    }
}

TEST(ClassifyInteger, OnlyTenBytesAreDigits) {
    for (int byte = 0; byte <= 255; ++byte) {
        const std::string alone(1, static_cast<char>(byte));
        const bool digit = byte >= '0' && byte <= '9';
        const auto behindADigit = digit || byte == '.' ? IntegerText::Digits : IntegerText::Invalid;
        for (const Sign sign : {Sign::PlusOrMinus, Sign::PlusOnly}) {
            EXPECT_EQ(ClassifyInteger("1" + alone, sign), behindADigit) << byte;
            EXPECT_EQ(ClassifyInteger("1.5" + alone, sign),
                      digit ? IntegerText::Digits : IntegerText::Invalid)
                << byte;
        }
    }
}

TEST(ClassifyInteger, EveryShortTextFollowsTheShape) {
    std::size_t accepted = 0;
    ForEachText("05.+-e \x80", 6, [&](const std::string& text) {
        const IntegerText expected = IntegerShape(text, "+-");
        accepted += expected != IntegerText::Invalid ? 1 : 0;
        ASSERT_EQ(ClassifyInteger(text, Sign::PlusOrMinus), expected)
            << testing::PrintToString(text);
        ASSERT_EQ(ClassifyInteger(text, Sign::PlusOnly), IntegerShape(text, "+"))
            << testing::PrintToString(text);
    });
    EXPECT_GT(accepted, 500U);
}

TEST(MayBeReal, Table) {
    const struct {
        std::string_view text;
        bool accepted;
    } rows[] = {
        {"0", true},
        {"42", true},
        {"-42", true},
        {"+42", true},
        {"1.5", true},
        {".5", true},
        {"5.", true},
        {"-.5", true},
        {"1.5e3", true},
        {"-2.5E-3", true},
        {"+1e+5", true},
        {"1e400", true},
        // What does not convert is left to the scan.
        {".", true},
        {"-", true},
        {"+", true},
        {"-.", true},
        {"1e", true},
        {"1e.5", true},
        {"+.e5", true},
        {"-1e", true},
        // With an exponent marker signs stand anywhere, up to two of them.
        {"5-e3", true},
        {"1e5-", true},
        {"1-e-3", true},
        {"--1e3", true},
        {"1e--3", true},
        {"1e3+", true},
        {"1+2e3", true},
        {"5.e3", true},
        {"12.e5", true},
        {"1-.e5", true},
        {"1--1e5", true},
        {"+-1-e5", false},
        {"-1e-5-", false},
        {"---e5", false},
        // Without one, one sign at the front.
        {"--1", false},
        {"+-", false},
        {"1-", false},
        {"1-2", false},
        {".-5", false},
        {"1.2.3", false},
        {"..", false},
        {"1.5e.5", false},
        {"1e3e", false},
        {"1eE5", false},
        {"1EE5", false},
        // An exponent marker needs something in front of it.
        {"e5", false},
        {"E5", false},
        {"e", false},
        {"e-5", false},
        {".e5", false},
        {".E5", false},
        {"-e5", false},
        {"+e5", false},
        {"-e", false},
        {" 1", false},
        {"1 ", false},
        {"1 2", false},
        {"\t1", false},
        {"1\n", false},
        {"0x1A", false},
        {"0x1p3", false},
        {"1d3", false},
        {"1D3", false},
        {"inf", false},
        {"-inf", false},
        {"infinity", false},
        {"nan", false},
        {"NAN", false},
        {"1,5", false},
        {"1f", false},
        {"4\xB2", false},
        {"1\0"sv, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(MayBeReal(row.text), row.accepted)
            << testing::PrintToString(std::string(row.text));
}

TEST(MayBeReal, OnlyFifteenBytesAreNumberCharacters) {
    for (int byte = 0; byte <= 255; ++byte) {
        const char c = static_cast<char>(byte);
        // The sign is welcome behind the exponent marker only.
        const bool plain = "0123456789.eE"sv.find(c) != std::string_view::npos;
        const bool sign = c == '+' || c == '-';
        EXPECT_EQ(MayBeReal(std::string("1") + c), plain) << byte;
        EXPECT_EQ(MayBeReal(std::string("1e") + c), (plain || sign) && c != 'e' && c != 'E')
            << byte;
    }
}

TEST(MayBeReal, EveryShortTextAgreesWithTheModel) {
    std::size_t accepted = 0;
    ForEachText("05.+-eE \x80", 6, [&](const std::string& text) {
        const bool expected = LooksReal(text);
        accepted += expected ? 1 : 0;
        ASSERT_EQ(MayBeReal(text), expected) << testing::PrintToString(text);
    });
    EXPECT_GT(accepted, 500U);
}

TEST(ReadNumber, NothingIsReadFromAnEmptyTextOrAPlusSign) {
    for (const char* text : {"", "+"}) {
        int integer = 7;
        double real = 7;
        EXPECT_FALSE(ReadLeadingInteger(text, integer));
        EXPECT_FALSE(ReadReal(text, real));
        EXPECT_EQ(integer, 7);
        EXPECT_EQ(real, 7);
    }
}

TEST(SplitIndices, Table) {
    const struct {
        std::string_view text;
        std::string_view first;
        std::string_view second;
    } rows[] = {
        {"[3,14]", "3", "14"},
        {"[1,2]", "1", "2"},
        {"[-1,+2]", "-1", "+2"},
        {"[ 3 , 14 ]", " 3 ", " 14 "},
        {"[a,b]", "a", "b"},
        // The first comma parts, the last bracket ends.
        {"[1,2,3]", "1", "2,3"},
        {"[[,]]", "[", "]"},
        {"[,12]", "", "12"},
        {"[12,]", "12", ""},
        {"[,,,]", "", ",,"},
        {"", "", ""},
        {"[]", "", ""},
        {"[,]", "", ""},
        // Four characters are too few, whatever they are.
        {"[,1]", "", ""},
        {"[1,]", "", ""},
        {"[123]", "", ""},
        {"[1;2]", "", ""},
        {"1,2,3", "", ""},
        {"[1,23", "", ""},
        {"12,3]", "", ""},
        {"(1,2)", "", ""},
        {"]1,2[", "", ""},
        {" [1,2]", "", ""},
        {"[1,2] ", "", ""},
        {"[1,2]x", "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.text));
        EXPECT_EQ(SplitIndices(row.text).first, row.first);
        EXPECT_EQ(SplitIndices(row.text).second, row.second);
    }
}

}  // namespace
