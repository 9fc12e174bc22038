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

template <typename Number, typename Read, typename Bare>
void Add(const char* work, Read read, Bare bare) {
    const auto expect = [bare](const Bytes& bytes) {
        Each<Number> numbers;
        for (std::size_t i = 0; i < bytes.size(); i += sizeof(Number))
            numbers.values.push_back(bare(reinterpret_cast<const char*>(&bytes[i])));
        return numbers;
    };
    Work(
        work, 0, [] { return RandomBytes(kNumbers * sizeof(Number)); }, expect)
        .Ours(ForEach(sizeof(Number), read))
        .CheckedLimit("Boost.Endian and a shift, inlined", ForEach(sizeof(Number), bare));
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
    Add<std::uint64_t>(
        "bytes-to-uint64",
        [](const char* bytes) {
            std::uint64_t number = 0;
            TEVUtilString::BinaryToUnsignedInt64(bytes, 8, number);
            return number;
        },
        Load64);
    Add<unsigned long>(
        "bytes-to-ulong",
        [](const char* bytes) {
            unsigned long number = 0;
            TEVUtilString::BinaryToUnsignedLong(bytes, 4, number);
            return number;
        },
        Load32);
    Add<std::int64_t>(
        "bits-to-int64",
        [](const char* bytes) {
            std::int64_t number = 0;
            TEVUtilString::BitsToSignedInt64('R', bytes, number, kBits64, 8);
            return number;
        },
        [](const char* bytes) { return Signed<std::int64_t>(Load64(bytes), kBits64); });
    Add<long>(
        "bits-to-long",
        [](const char* bytes) {
            long number = 0;
            TEVUtilString::BitsToSignedLong('R', bytes, number, kBits32, 4);
            return number;
        },
        [](const char* bytes) { return Signed<long>(Load32(bytes), kBits32); });
}

}  // namespace tev::bench
