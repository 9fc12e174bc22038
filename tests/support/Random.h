#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace tev::test {

// Choices, the same ones for the same seed. One draw makes eight characters: a million comparisons
// are to spend their time on what they compare.
class Random {
 public:
    explicit Random(unsigned seed) : engine_(seed) {
        testing::Test::RecordProperty("seed", std::to_string(seed));
    }

    std::uint64_t Bits() { return engine_(); }
    // `end` is at most 32 bits long.
    std::size_t Below(std::size_t end) { return (Bits() >> 32) * end >> 32; }
    bool OneIn(std::size_t count) { return Below(count) == 0; }
    bool Coin() { return OneIn(2); }

    // Out of at most 256 characters.
    template <typename Char>
    std::basic_string<Char> Text(std::basic_string_view<Char> alphabet, std::size_t length) {
        std::basic_string<Char> text(length, Char{});
        Fill(text, [alphabet](std::size_t bits) { return alphabet[bits * alphabet.size() >> 8]; });
        return text;
    }
    std::string Text(std::string_view alphabet, std::size_t length) {
        return Text<char>(alphabet, length);
    }

    std::string Bytes(std::size_t length) {
        std::string bytes(length, '\0');
        Fill(bytes, [](std::size_t bits) { return static_cast<char>(bits); });
        return bytes;
    }

 private:
    template <typename Text, typename Make>
    void Fill(Text& text, Make make) {
        std::uint64_t bits = 0;
        for (std::size_t i = 0; i < text.size(); ++i, bits >>= 8) {
            if (i % 8 == 0) bits = Bits();
            text[i] = make(bits & 0xFF);
        }
    }

    std::mt19937_64 engine_;
};

}  // namespace tev::test
