#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

// Random inputs, the same in every run.
namespace tev::bench {

inline std::string RandomText(std::size_t size, std::string_view alphabet) {
    std::mt19937 random(20240229);
    std::uniform_int_distribution<std::size_t> position(0, alphabet.size() - 1);
    std::string text(size, '\0');
    for (char& character : text) character = alphabet[position(random)];
    return text;
}

inline std::vector<unsigned char> RandomBytes(std::size_t size) {
    std::mt19937_64 random(20240301);
    std::vector<unsigned char> bytes(size);
    for (unsigned char& byte : bytes) byte = static_cast<unsigned char>(random());
    return bytes;
}

}  // namespace tev::bench
