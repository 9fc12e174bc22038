#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <boost/endian/conversion.hpp>
#include <cstring>
#include <vector>

#include "Inputs.h"
#include "Rows.h"

namespace tev::bench {

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using Bytes = std::vector<unsigned char>;

constexpr std::size_t kNumbers = 64;
constexpr std::uint64_t kBits64 = 37;
constexpr std::uint64_t kBits32 = 19;

// Each number in turn, `size` bytes apart.
template <typename Read>
auto ForEach(std::size_t size, Read read) {
    return [=](const Bytes& bytes, auto keep) {
        for (std::size_t i = 0; i < bytes.size(); i += size)
            keep(read(reinterpret_cast<const char*>(&bytes[i])));
    };
}

// Numbers of `width` bytes.
template <typename Number, typename Read, typename Bare>
void Add(const char* work, std::size_t size, std::size_t width, const char* limit, Read read,
         Bare bare) {
    const auto expect = [=](const Bytes& bytes) {
        Each<Number> numbers;
        for (std::size_t i = 0; i < bytes.size(); i += width)
            numbers.values.push_back(bare(reinterpret_cast<const char*>(&bytes[i])));
        return numbers;
    };
    Work(
        work, static_cast<std::int64_t>(size), [width] { return RandomBytes(kNumbers * width); },
        expect)
        .Ours(ForEach(width, read))
        .CheckedLimit(limit, ForEach(width, bare));
}

template <typename Number, typename Read, typename Bare>
void AddWhole(const char* work, Read read, Bare bare) {
    Add<Number>(work, 0, sizeof(Number), "Boost.Endian and a shift, inlined", read, bare);
}

// The size is that of a number, in bytes.
void AddWidth(std::size_t width) {
    const auto read = [width](const char* bytes) {
        std::uint64_t number = 0;
        TEVUtilString::BinaryToUnsignedInt64(bytes, width, number);
        return number;
    };
    const auto bare = [width](const char* bytes) {
        std::uint64_t number = 0;
        for (std::size_t i = 0; i < width; ++i)
            number = number << 8 | static_cast<unsigned char>(bytes[i]);
        return number;
    };
    Add<std::uint64_t>("uint64-of-bytes", width, width, "a loop of shifts, inlined", read, bare);
}

std::uint64_t Load64(const char* bytes) {
    return boost::endian::load_big_u64(reinterpret_cast<const unsigned char*>(bytes));
}

unsigned long Load32(const char* bytes) {
    return boost::endian::load_big_u32(reinterpret_cast<const unsigned char*>(bytes));
}

// Two's complement in the last bits.
template <typename Number, typename Word>
Number Signed(Word word, std::uint64_t bits) {
    const auto shift = sizeof(Number) * 8 - bits;
    return static_cast<Number>(word << shift) >> shift;
}

}  // namespace

void RegisterRows() {
    AddWhole<std::uint64_t>(
        "bytes-to-uint64",
        [](const char* bytes) {
            std::uint64_t number = 0;
            TEVUtilString::BinaryToUnsignedInt64(bytes, 8, number);
            return number;
        },
        Load64);
    AddWhole<unsigned long>(
        "bytes-to-ulong",
        [](const char* bytes) {
            unsigned long number = 0;
            TEVUtilString::BinaryToUnsignedLong(bytes, 4, number);
            return number;
        },
        Load32);
    AddWhole<std::int64_t>(
        "bits-to-int64",
        [](const char* bytes) {
            std::int64_t number = 0;
            TEVUtilString::BitsToSignedInt64('R', bytes, number, kBits64, 8);
            return number;
        },
        [](const char* bytes) { return Signed<std::int64_t>(Load64(bytes), kBits64); });
    AddWhole<long>(
        "bits-to-long",
        [](const char* bytes) {
            long number = 0;
            TEVUtilString::BitsToSignedLong('R', bytes, number, kBits32, 4);
            return number;
        },
        [](const char* bytes) { return Signed<long>(Load32(bytes), kBits32); });
    for (const std::size_t width : {1U, 2U, 4U, 8U}) AddWidth(width);
}

}  // namespace tev::bench
