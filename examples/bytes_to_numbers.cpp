// Takes numbers out of bytes as sensors send them: the most significant byte first.
#include <TEVSystemLib/TEVOwned.h>

#include <cstdint>
#include <iostream>

using namespace TAMO::TEV::System::Host;
using TAMO::TEV::System::Util::TEVUtilString;

int main() {
    // A counter of three bytes.
    const char counter[] = {'\x01', '\x02', '\x03'};
    std::uint64_t count = 0;
    if (!TEVUtilString::BinaryToUnsignedInt64(counter, sizeof counter, count)) return 1;
    std::cout << "counter      " << count << '\n';

    // A signed field of 12 bits at the front of two bytes, and one at their end.
    const char field[] = {'\xff', '\xe5'};
    std::int64_t number = 0;
    if (!TEVUtilString::BitsToSignedInt64('L', field, number, 12, sizeof field)) return 1;
    std::cout << "12 on left   " << number << '\n';
    if (!TEVUtilString::BitsToSignedInt64('R', field, number, 12, sizeof field)) return 1;
    std::cout << "12 on right  " << number << '\n';

    // An array whose bytes are in the wrong order for this machine.
    unsigned short samples[] = {0x0100, 0x0200, 0xff00};
    if (!TEVUtilString::Swap16BitWord(samples, 3)) return 1;
    for (const unsigned short sample : samples) std::cout << "sample       " << sample << '\n';

    // Bytes for people to read.
    OwnedText text;
    const bool commas = true;
    const bool asBits = true;
    if (TEVUtilString::DecimalRepresentationOfBinary(counter, 3, Out(text), commas, !asBits))
        std::cout << "bytes        " << text.View() << '\n';
    if (TEVUtilString::DecimalRepresentationOfBinary(field, 2, Out(text), commas, asBits))
        std::cout << "bits         " << text.View() << '\n';
}
