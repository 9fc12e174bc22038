#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Base64 told on texts of binary digits.
namespace tev::test {

constexpr std::string_view kBase64Alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

inline std::string Base64Model(const std::string& bytes) {
    std::string digits;
    for (const char c : bytes)
        for (int bit = 7; bit >= 0; --bit) digits += ((c >> bit) & 1) != 0 ? '1' : '0';
    while (digits.size() % 6 != 0) digits += '0';
    std::string text;
    for (std::size_t i = 0; i < digits.size(); i += 6)
        text += kBase64Alphabet[std::stoul(digits.substr(i, 6), nullptr, 2)];
    while (text.size() % 4 != 0) text += '=';
    return text;
}

// The first foreign character ends the text; of the bits left over no byte is made.
inline std::string Base64DecodeModel(const std::string& text) {
    std::string digits;
    for (const char c : text) {
        const std::size_t value = kBase64Alphabet.find(c);
        if (value == std::string_view::npos) break;
        for (int bit = 5; bit >= 0; --bit) digits += ((value >> bit) & 1) != 0 ? '1' : '0';
    }
    std::string bytes;
    for (std::size_t i = 0; i + 8 <= digits.size(); i += 8)
        bytes += static_cast<char>(std::stoul(digits.substr(i, 8), nullptr, 2));
    return bytes;
}

}  // namespace tev::test
