#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>

#include "support/Base64Texts.h"

namespace {

using TAMO::TEV::System::Util::detail::Base64DecodedCapacity;
using TAMO::TEV::System::Util::detail::Base64EncodedSize;
using tev::test::Decoded;
using tev::test::Encoded;
using namespace std::string_view_literals;

TEST(Base64Encode, GroupEdges) {
    const struct {
        std::string_view bytes;
        std::string_view expected;
    } rows[] = {
        {"", ""},
        {"f", "Zg=="},
        {"fo", "Zm8="},
        {"foo", "Zm9v"},
        {"foob", "Zm9vYg=="},
        {"\0"sv, "AA=="},
        {"\0\0\0"sv, "AAAA"},
        {"\xFF\xFF\xFF", "////"},
        // One bit at each edge between two characters.
        {"\x04", "BA=="},
        {"\x02", "Ag=="},
        {"\0\x10"sv, "ABA="},
        {"\0\x08"sv, "AAg="},
        {"\0\0\x40"sv, "AABA"},
        {"\0\0\x20"sv, "AAAg"},
    };
    for (const auto& row : rows) EXPECT_EQ(Encoded(row.bytes), row.expected) << row.expected;
}

TEST(Base64Decode, GroupEdges) {
    const struct {
        std::string_view text;
        std::string_view expected;
    } rows[] = {
        {"", ""},
        {"=", ""},
        {"Z", ""},
        {"Zm", "f"},
        {"Zm9", "fo"},
        {"Zm9v", "foo"},
        {"Zm9vY", "foo"},
        {"Zm9vYg", "foob"},
        {"Zh==", "f"},
        {"Zm9=", "fo"},
        {"Zm9v\nYmFy", "foo"},
        {"Zm9\nv", "fo"},
        {"Zm9v\0YmFy"sv, "foo"},
        {"\nZm9v", ""},
        {"AAAA", "\0\0\0"sv},
        {"////", "\xFF\xFF\xFF"},
    };
    for (const auto& row : rows) EXPECT_EQ(Decoded(row.text), row.expected) << row.text;
}

TEST(Base64Decode, NeighboursOfTheAlphabetEndTheInput) {
    for (const char c : {'*', ',', '-', '.', ':', '@', '[', '^', '_', '`', '{', '~', '\x7F', '\x80',
                         '\xC1', '\xFF'})
        EXPECT_EQ(Decoded(std::string("Zm9v") + c + "YmFy"), "foo") << c;
}

TEST(Base64Decode, EveryPairOfBytesComesBack) {
    for (int first = 0; first <= 255; ++first) {
        for (int second = 0; second <= 255; ++second) {
            const std::string bytes{static_cast<char>(first), static_cast<char>(second)};
            ASSERT_EQ(Decoded(Encoded(bytes)), bytes) << first << ' ' << second;
        }
    }
}

TEST(Base64Decode, EveryLengthComesBack) {
    std::string bytes;
    for (std::size_t length = 0; length <= 100; ++length) {
        const std::string encoded = Encoded(bytes);
        EXPECT_EQ(encoded.size(), (length + 2) / 3 * 4);
        EXPECT_EQ(Decoded(encoded), bytes);
        bytes += static_cast<char>(length * 37);
    }
}

TEST(Base64EncodedSize, RefusesWhatNoBufferHolds) {
    EXPECT_EQ(Base64EncodedSize(0), 0u);
    EXPECT_EQ(Base64EncodedSize(1), 4u);
    EXPECT_EQ(Base64EncodedSize(4), 8u);
    constexpr std::size_t kMostGroups = std::numeric_limits<std::ptrdiff_t>::max() / 4;
    EXPECT_EQ(Base64EncodedSize(3 * kMostGroups), 4 * kMostGroups);
    for (const std::size_t size : {3 * kMostGroups + 1, std::numeric_limits<std::size_t>::max()}) {
        try {
            Base64EncodedSize(size);
            ADD_FAILURE() << size;
        } catch (const std::length_error& error) {
            EXPECT_STREQ(error.what(), "too many bytes to encode");
        }
    }
}

TEST(Base64DecodedCapacity, IsThatOfThreeBytesForFourCharacters) {
    const struct {
        std::size_t characters, bytes;
    } rows[] = {{0, 0}, {1, 1}, {3, 3}, {4, 3}, {7, 6}, {8, 6}, {400, 300}};
    for (const auto& row : rows) EXPECT_EQ(Base64DecodedCapacity(row.characters), row.bytes);
}

}  // namespace
