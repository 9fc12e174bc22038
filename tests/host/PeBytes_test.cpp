#include "TEVSystemLib/util/windows/detail/PeBytes.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace {

using namespace TAMO::TEV::System::Util::detail;
using namespace std::literals;

constexpr std::string_view kFile = "\x81\x02\x83\x04\x85\x06\x87\x08\x09"sv;

TEST(PeBytes, NumbersEndWithTheFile) {
    const struct {
        std::uint64_t offset;
        std::uint16_t number16;
        std::uint32_t number32;
        std::uint64_t number64;
    } rows[] = {
        {0, 0x0281, 0x04830281, 0x0887068504830281},
        {1, 0x8302, 0x85048302, 0x0908870685048302},
        {2, 0x0483, 0x06850483, 0},
        {5, 0x8706, 0x09088706, 0},
        {6, 0x0887, 0, 0},
        {7, 0x0908, 0, 0},
        {8, 0, 0, 0},
        {9, 0, 0, 0},
        {std::numeric_limits<std::uint64_t>::max(), 0, 0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.offset);
        PeBytes for16(kFile), for32(kFile), for64(kFile);
        EXPECT_EQ(for16.Number16(row.offset), row.number16);
        EXPECT_EQ(for16.IsAllInside(), row.number16 != 0);
        EXPECT_EQ(for32.Number32(row.offset), row.number32);
        EXPECT_EQ(for32.IsAllInside(), row.number32 != 0);
        EXPECT_EQ(for64.Number64(row.offset), row.number64);
        EXPECT_EQ(for64.IsAllInside(), row.number64 != 0);
    }
}

TEST(PeBytes, OnceOutsideIsRemembered) {
    PeBytes bytes(kFile);
    EXPECT_EQ(bytes.Part(9, 0), "");
    EXPECT_EQ(bytes.Part(0, 9), kFile);
    EXPECT_EQ(bytes.Part(8, 1), "\x09");
    EXPECT_TRUE(bytes.IsAllInside());
    EXPECT_EQ(bytes.Part(8, 2), "");
    EXPECT_EQ(bytes.Part(8, 1), "\x09");
    EXPECT_FALSE(bytes.IsAllInside());
    PeBytes other(kFile);
    EXPECT_EQ(other.Part(10, 0), "");
    EXPECT_FALSE(other.IsAllInside());
}

TEST(PeBytes, TextsEndWithANulWithinALimit) {
    const std::string longest = std::string(4096, 'n') + '\0';
    const struct {
        std::string file;
        std::uint64_t offset;
        std::string text;
        bool isInside;
    } rows[] = {
        {"ab\0c\0"s, 0, "ab", true},
        {"ab\0c\0"s, 2, "", true},
        {"ab\0c\0"s, 3, "c", true},
        {"ab\0c\0"s, 5, "", false},
        {"ab", 0, "", false},
        {"ab", 9, "", false},
        {longest, 0, longest.substr(0, 4096), true},
        {'n' + longest, 0, "", false},
    };
    for (const auto& row : rows) {
        PeBytes bytes(row.file);
        EXPECT_EQ(bytes.Text(row.offset), row.text);
        EXPECT_EQ(bytes.IsAllInside(), row.isInside);
    }
}

TEST(PeMemory, TakesTheFirstSectionThatHoldsTheAddress) {
    const struct {
        std::uint64_t address;
        std::uint16_t number;
    } rows[] = {
        {99, 0},  {100, 0x8302}, {101, 0x0483}, {102, 0x8504}, {103, 0},
        {199, 0}, {200, 0x0887}, {201, 0x0908}, {202, 0},
    };
    for (const auto& row : rows) {
        PeBytes bytes(kFile);
        PeMemory memory(bytes, {{100, 3, 1}, {101, 1, 7}, {200, 2, 6}});
        EXPECT_EQ(memory.Number16(row.address), row.number) << row.address;
        EXPECT_EQ(memory.IsAllInside(), row.number != 0) << row.address;
    }
}

}  // namespace
