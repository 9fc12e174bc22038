#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Base64 told as one stream of bits, cut anew.
namespace tev::test {

constexpr std::string_view kBase64Alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// The bits that came in and have not gone out yet.
class BitStream {
 public:
    void Put(unsigned value, unsigned count) {
        bits_ = (bits_ << count | value) & 0xFFFF;
        count_ += count;
    }
    bool Holds(unsigned count) const { return count_ >= count; }
    bool IsEmpty() const { return count_ == 0; }
    unsigned Take(unsigned count) {
        count_ -= count;
        return bits_ >> count_ & ((1U << count) - 1);
    }
    void FillUpTo(unsigned count) { Put(0, count - count_); }

 private:
    unsigned bits_ = 0;
    unsigned count_ = 0;
};

inline std::string Base64Model(std::string_view bytes) {
    std::string text;
    BitStream bits;
    for (const char c : bytes)
        for (bits.Put(static_cast<unsigned char>(c), 8); bits.Holds(6);)
            text += kBase64Alphabet[bits.Take(6)];
    if (!bits.IsEmpty()) {
        bits.FillUpTo(6);
        text += kBase64Alphabet[bits.Take(6)];
    }
    while (text.size() % 4 != 0) text += '=';
    return text;
}

// The first foreign character ends the text; of the bits left over no byte is made.
inline std::string Base64DecodeModel(std::string_view text) {
    std::string bytes;
    BitStream bits;
    for (const char c : text) {
        const std::size_t value = kBase64Alphabet.find(c);
        if (value == std::string_view::npos) break;
        bits.Put(static_cast<unsigned>(value), 6);
        if (bits.Holds(8)) bytes += static_cast<char>(bits.Take(8));
    }
    return bytes;
}

}  // namespace tev::test
