#include <algorithm>

#include "TEVSystemLib/util/string/detail/Bits.h"
#include "fuzz/Fuzz.h"
#include "models/BitModel.h"

using namespace TAMO::TEV::System::Util::detail;
using tev::fuzz::Exact;
using tev::fuzz::ExpectSame;
using tev::test::BinaryText;

namespace {

constexpr std::size_t kMaxBytes = 8;

void CheckNumbers(const std::string& bytes, unsigned choice) {
    const Exact exact(bytes);
    const std::string bits = BinaryText(bytes);
    tev::fuzz::Expect(UnsignedFromBytes(exact.View()) == tev::test::Unsigned(bits), "unsigned");
    if (bytes.empty()) return;
    const std::size_t count = 1 + choice % bits.size();
    tev::fuzz::Expect(SignedFromBits(exact.View(), count, BitAlignment::Left) ==
                          tev::test::Signed(bits.substr(0, count)),
                      "the first bits");
    tev::fuzz::Expect(SignedFromBits(exact.View(), count, BitAlignment::Right) ==
                          tev::test::Signed(bits.substr(bits.size() - count)),
                      "the last bits");
}

// Column by column, as on paper; nothing when an element is no bit.
std::optional<std::string> SumModel(const std::string& first, const std::string& second,
                                    bool& carry) {
    const auto isBit = [](char c) { return c == '\0' || c == '\1'; };
    if (!std::all_of(first.begin(), first.end(), isBit) ||
        !std::all_of(second.begin(), second.end(), isBit))
        return std::nullopt;
    std::string sum = first;
    for (std::size_t column = sum.size(); column > 0; --column) {
        const char one = first[column - 1];
        const char other = second[column - 1];
        const bool isSet = ((one != other) != carry);
        carry = (one != 0 && other != 0) || (carry && one != other);
        sum[column - 1] = isSet ? '\1' : '\0';
    }
    return sum;
}

void CheckSum(const std::string& elements) {
    const std::string first = elements.substr(0, elements.size() / 2);
    const std::string second = elements.substr(first.size(), first.size());
    bool expectedCarry = false;
    const auto expected = SumModel(first, second, expectedCarry);
    std::string sum(first.size(), '\x55');
    bool carry = true;
    const bool added = AddBitArrays(Exact(first).View().data(), Exact(second).View().data(),
                                    sum.data(), sum.size(), carry);
    ExpectSame(added, expected.has_value(), "bits only");
    ExpectSame(sum, expected.value_or(std::string(first.size(), '\0')), "sum");
    ExpectSame(carry, added && expectedCarry, "carry");
}

void CheckSwap(const std::string& bytes) {
    for (const std::size_t elementSize : {std::size_t{2}, std::size_t{4}, std::size_t{8}}) {
        const std::size_t count = bytes.size() / elementSize;
        std::string expected;
        for (std::size_t i = 0; i < count * elementSize; ++i)
            expected += bytes[i / elementSize * elementSize + elementSize - 1 - i % elementSize];
        std::string swapped = bytes.substr(0, count * elementSize);
        SwapBytes(swapped.data(), count, elementSize);
        ExpectSame(swapped, expected, "swapped");
    }
}

}  // namespace

// One byte that chooses a bit count, then bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tev::fuzz::Fields fields(data, size);
    const unsigned choice = fields.Choice();
    const std::string bytes = fields.Rest();
    CheckNumbers(bytes.substr(0, kMaxBytes), choice);
    CheckSum(bytes);
    CheckSwap(bytes);
    ExpectSame(BitsOf(static_cast<unsigned char>(choice)),
               BinaryText(std::string(1, static_cast<char>(choice))), "the bits of a byte");
    return 0;
}
