#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using TAMO::TEV::System::Util::TEVUtilString;

bool IsValidSigned(bool& isZero, std::string& text);
bool IsValidUnsigned(bool& isZero, std::string& text);

// The validators are private; an explicit instantiation may name them all the same.
template <auto kSigned, auto kUnsigned>
struct Opened {
    friend bool IsValidSigned(bool& isZero, std::string& text) { return kSigned(isZero, text); }
    friend bool IsValidUnsigned(bool& isZero, std::string& text) { return kUnsigned(isZero, text); }
};
template struct Opened<&TEVUtilString::IsValidSignedInteger,
                       &TEVUtilString::IsValidUnsignedInteger>;

// What a validator says: "invalid", "zero" or "digits". The flag must be set in either direction.
template <typename Validator>
std::string Verdict(Validator isValid, const char* text) {
    std::string words[2];
    for (const bool before : {false, true}) {
        std::string copy = text;
        bool isZero = before;
        const bool valid = isValid(isZero, copy);
        EXPECT_EQ(copy, text);
        EXPECT_TRUE(valid || !isZero) << "a refused text is not zero: " << text;
        words[before] = !valid ? "invalid" : isZero ? "zero" : "digits";
    }
    EXPECT_EQ(words[0], words[1]) << text;
    return words[0];
}

const struct {
    const char* text;
    const char* asSigned;
    const char* asUnsigned;
} kRows[] = {
    {"0", "digits", "digits"},       {"007", "digits", "digits"},
    {"12.", "digits", "digits"},     {"12.75", "digits", "digits"},
    {"+42", "digits", "digits"},     {"+", "digits", "digits"},
    {".", "zero", "zero"},           {".25", "zero", "zero"},
    {"+.", "zero", "zero"},          {"+.5", "zero", "zero"},
    {"-12.75", "digits", "invalid"}, {"-", "digits", "invalid"},
    {"-.5", "zero", "invalid"},      {"-.", "zero", "invalid"},
    {"", "invalid", "invalid"},      {" 1", "invalid", "invalid"},
    {"1 ", "invalid", "invalid"},    {"1.2.3", "invalid", "invalid"},
    {"--1", "invalid", "invalid"},   {"+-1", "invalid", "invalid"},
    {"++1", "invalid", "invalid"},   {"1-", "invalid", "invalid"},
    {"1+", "invalid", "invalid"},    {".+", "invalid", "invalid"},
    {".-5", "invalid", "invalid"},   {".5.", "invalid", "invalid"},
    {"1e3", "invalid", "invalid"},   {"0x1A", "invalid", "invalid"},
    {"\t1", "invalid", "invalid"},   {"4\xB2", "invalid", "invalid"},
};

TEST(IsValidSignedInteger, Table) {
    for (const auto& row : kRows)
        EXPECT_EQ(Verdict(IsValidSigned, row.text), row.asSigned) << row.text;
}

TEST(IsValidUnsignedInteger, Table) {
    for (const auto& row : kRows)
        EXPECT_EQ(Verdict(IsValidUnsigned, row.text), row.asUnsigned) << row.text;
}

}  // namespace
