#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <random>
#include <string>
#include <string_view>

#include "models/Base64Model.h"
#include "support/Owned.h"

using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::Base64Model;
using tev::test::kBase64Alphabet;
using tev::test::Text;

namespace {

const unsigned char* Bytes(const std::string& text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

// "(refused)" when the library says false.
std::string Encode(const std::string& bytes) {
    Text encoded;
    if (!TEVUtilString::Base64Encode(Bytes(bytes), bytes.size(), encoded.Out())) return "(refused)";
    return encoded.str();
}

std::string Decode(const std::string& text) {
    Text decoded;
    std::size_t length = 0;
    if (!TEVUtilString::Base64Decode(text.c_str(), decoded.Out(), length)) return "(refused)";
    return decoded.IsNull() ? "(null)" : std::string(decoded.get(), length);
}

std::string RandomBytes(std::mt19937& engine, std::size_t size) {
    std::string bytes;
    while (bytes.size() < size) bytes += static_cast<char>(engine() & 0xFF);
    return bytes;
}

const struct {
    const char* plain;
    const char* encoded;
} kVectors[] = {
    {"f", "Zg=="},        {"fo", "Zm8="},           {"foo", "Zm9v"},
    {"foob", "Zm9vYg=="}, {"fooba", "Zm9vYmE="},    {"foobar", "Zm9vYmFy"},
    {"\xFF", "/w=="},     {"\xFF\xFF", "//8="},     {"\xFF\xFF\xFF", "////"},
    {"\xFB", "+w=="},     {"\xFB\xEF\xBE", "++++"}, {"\x80", "gA=="},
};

TEST(Base64Encode, StandardVectors) {
    for (const auto& row : kVectors) EXPECT_EQ(Encode(row.plain), row.encoded) << row.encoded;
}

TEST(Base64Encode, NulBytesAreData) {
    EXPECT_EQ(Encode(std::string(1, '\0')), "AA==");
    EXPECT_EQ(Encode(std::string(2, '\0')), "AAA=");
    EXPECT_EQ(Encode(std::string(3, '\0')), "AAAA");
    EXPECT_EQ(Encode(std::string("a\0b\0", 4)), "YQBiAA==");
}

TEST(Base64Encode, SizeDecidesNotTheTerminator) {
    Text encoded;
    ASSERT_TRUE(TEVUtilString::Base64Encode(Bytes("foobar"), 3, encoded.Out()));
    EXPECT_EQ(encoded.str(), "Zm9v");
}

TEST(Base64Encode, EveryCharacterOfTheAlphabet) {
    std::string bytes;
    for (unsigned value = 0; value < 64; value += 4) {
        const unsigned group = value << 18 | (value + 1) << 12 | (value + 2) << 6 | (value + 3);
        bytes += static_cast<char>(group >> 16 & 0xFF);
        bytes += static_cast<char>(group >> 8 & 0xFF);
        bytes += static_cast<char>(group & 0xFF);
    }
    EXPECT_EQ(Encode(bytes), kBase64Alphabet);
    EXPECT_EQ(Decode(std::string(kBase64Alphabet)), bytes);
}

TEST(Base64Encode, NoLineBreaks) {
    const std::string encoded = Encode(std::string(3000, 'a'));
    EXPECT_EQ(encoded.size(), 4000U);
    EXPECT_EQ(encoded.find_first_not_of(kBase64Alphabet), std::string::npos);
}

TEST(Base64Encode, NothingToEncodeLeavesTheOutputUntouched) {
    const unsigned char data[] = {'f'};
    char held[] = "held";
    char* encoded = held;
    EXPECT_FALSE(TEVUtilString::Base64Encode(nullptr, 1, &encoded));
    EXPECT_EQ(encoded, held);
    EXPECT_FALSE(TEVUtilString::Base64Encode(data, 0, &encoded));
    EXPECT_EQ(encoded, held);
    EXPECT_FALSE(TEVUtilString::Base64Encode(data, 1, nullptr));
}

TEST(Base64Encode, OutputIsOverwrittenNotFreed) {
    const unsigned char data[] = {'f'};
    char held[] = "held";
    char* encoded = held;
    ASSERT_TRUE(TEVUtilString::Base64Encode(data, 1, &encoded));
    ASSERT_NE(encoded, held);
    const Text owner(encoded);
    EXPECT_EQ(owner.str(), "Zg==");
    EXPECT_STREQ(held, "held");
}

TEST(Base64Encode, RandomBytesAgreeWithModelAndComeBack) {
    std::mt19937 engine(20240229);
    for (std::size_t size = 1; size <= 300; ++size) {
        const std::string bytes = RandomBytes(engine, size);
        const std::string encoded = Encode(bytes);
        ASSERT_EQ(encoded, Base64Model(bytes)) << size;
        ASSERT_EQ(Decode(encoded), bytes) << size;
    }
}

TEST(Base64Encode, MegabyteAgreesWithModelAndComesBack) {
    std::mt19937 engine(7);
    const std::string bytes = RandomBytes(engine, 1024 * 1024 + 1);
    const std::string encoded = Encode(bytes);
    EXPECT_TRUE(encoded == Base64Model(bytes));
    EXPECT_TRUE(Decode(encoded) == bytes);
}

TEST(Base64Decode, StandardVectors) {
    for (const auto& row : kVectors) EXPECT_EQ(Decode(row.encoded), row.plain) << row.encoded;
}

struct DecodeRow {
    const char* text;
    std::string expected;
};

TEST(Base64Decode, ForeignCharacterEndsTheInputSilently_Kept) {
    const DecodeRow rows[] = {
        {"Zm9v\nYmFy", "foo"},
        {"Zm9v\r\nYmFy", "foo"},
        {"Zm9v YmFy", "foo"},
        {"Zm9v\tYmFy", "foo"},
        {"Zm9v=YmFy", "foo"},
        {"Zm9v====", "foo"},
        {"Zm9v-", "foo"},
        {"Zm9v_m", "foo"},
        {"Zm9v\x80", "foo"},
        // The last group is cut by what is foreign.
        {"Zm\n9v", "f"},
        {"Zm9\nv", "fo"},
        {"Z\nm9v", ""},
        // Input that stops at once.
        {"=", ""},
        {"====", ""},
        {" Zm9v", ""},
        {"\nZm9v", ""},
    };
    for (const DecodeRow& row : rows) EXPECT_EQ(Decode(row.text), row.expected) << row.text;
}

TEST(Base64Decode, LoneLastCharacterAddsNothing_Kept) {
    const DecodeRow rows[] = {{"Zm9vY", "foo"}, {"Zm9vY===", "foo"}, {"Z", ""}};
    for (const DecodeRow& row : rows) EXPECT_EQ(Decode(row.text), row.expected) << row.text;
}

TEST(Base64Decode, LenientInput) {
    const DecodeRow rows[] = {
        // Without the padding, and with too little of it.
        {"Zg", "f"},
        {"Zg=", "f"},
        {"Zm8", "fo"},
        // Bits that no byte needs are dropped.
        {"Zh==", "f"},
        {"Zm9=", "fo"},
        {"AAAA", std::string(3, '\0')},
        {"YQBiAA==", std::string("a\0b\0", 4)},
    };
    for (const DecodeRow& row : rows) EXPECT_EQ(Decode(row.text), row.expected) << row.text;
}

TEST(Base64Decode, EveryByteOutsideTheAlphabetEndsTheInput_Kept) {
    for (int byte = 1; byte <= 255; ++byte) {
        const char c = static_cast<char>(byte);
        const bool inside = kBase64Alphabet.find(c) != std::string_view::npos;
        const std::string decoded = Decode("Zm9v" + std::string(1, c) + "YmFy");
        EXPECT_EQ(decoded.size(), inside ? 6U : 3U) << byte;
        EXPECT_EQ(decoded.substr(0, 3), "foo") << byte;
    }
}

TEST(Base64Decode, LengthAndTerminator) {
    const struct {
        const char* text;
        std::size_t length;
    } rows[] = {{"Zm9v", 3}, {"Zm8=", 2}, {"Zg==", 1}, {"AAAA", 3}, {"=", 0}, {"A", 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        Text decoded;
        std::size_t length = 77;
        ASSERT_TRUE(TEVUtilString::Base64Decode(row.text, decoded.Out(), length));
        EXPECT_EQ(length, row.length);
        ASSERT_FALSE(decoded.IsNull());
        EXPECT_EQ(decoded.get()[length], '\0');
    }
}

TEST(Base64Decode, NullOrEmptyArgumentsLeaveTheOutputsUntouched) {
    char held[] = "held";
    for (const char* text : {static_cast<const char*>(nullptr), ""}) {
        char* decoded = held;
        std::size_t length = 77;
        EXPECT_FALSE(TEVUtilString::Base64Decode(text, &decoded, length));
        EXPECT_EQ(decoded, held);
        EXPECT_EQ(length, 77U);
    }
    std::size_t length = 77;
    EXPECT_FALSE(TEVUtilString::Base64Decode("Zm9v", nullptr, length));
    EXPECT_EQ(length, 77U);
}

TEST(Base64Decode, OutputIsOverwrittenNotFreed) {
    char held[] = "held";
    char* decoded = held;
    std::size_t length = 0;
    ASSERT_TRUE(TEVUtilString::Base64Decode("Zg==", &decoded, length));
    ASSERT_NE(decoded, held);
    const Text owner(decoded);
    EXPECT_EQ(owner.str(), "f");
    EXPECT_STREQ(held, "held");
}

TEST(Base64Decode, RandomTextAgreesWithModel) {
    std::mt19937 engine(4648);
    for (std::size_t size = 1; size <= 200; ++size) {
        std::string text;
        while (text.size() < size) text += kBase64Alphabet[engine() % 64];
        const std::string decoded = Decode(text);
        const std::size_t rest = size % 4;
        ASSERT_EQ(decoded.size(), size / 4 * 3 + (rest == 0 ? 0 : rest - 1)) << text;
        const std::string again = Base64Model(decoded);
        ASSERT_EQ(again.substr(0, size / 4 * 4), text.substr(0, size / 4 * 4));
    }
}

}  // namespace
