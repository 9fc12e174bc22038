#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Trimming, letter case and splitting as the rules tell them, one character after the other.
namespace tev::test {

constexpr std::string_view kBlanks = " \t\n\v\f\r";

inline std::string Trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string::npos) return "";
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Only a plain space at an end starts the trimming.
inline std::string TrimmedIfSpaced(const std::string& text) {
    if (text.empty() || (text.front() != ' ' && text.back() != ' ')) return text;
    return Trimmed(text);
}

inline std::string Lowered(std::string text) {
    constexpr std::string_view kUpper = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    constexpr std::string_view kLower = "abcdefghijklmnopqrstuvwxyz";
    for (char& c : text) {
        const std::size_t letter = kUpper.find(c);
        if (letter != std::string_view::npos) c = kLower[letter];
    }
    return text;
}

inline std::string Turned(std::string path) {
    for (char& c : path)
        if (c == '/') c = '\\';
    return path;
}

// The texts between delimiters, without the empty ones.
inline std::vector<std::string> PiecesOf(std::string_view delimiters, std::string_view text) {
    std::vector<std::string> pieces(1);
    for (const char c : text) {
        if (delimiters.find(c) == std::string_view::npos) {
            pieces.back() += c;
        } else if (!pieces.back().empty()) {
            pieces.emplace_back();
        }
    }
    if (pieces.back().empty()) pieces.pop_back();
    return pieces;
}

}  // namespace tev::test
