#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <string_view>

namespace tev::test {

// Random texts of digits, signs, points, exponents, blanks and some foreign bytes, the same ones
// for the same seed.
class RandomTexts {
 public:
    explicit RandomTexts(unsigned seed) : engine_(seed) {}

    // About half of the texts start as a number, so that many are accepted.
    std::string Number() {
        std::string text = Below(2) == 0 ? WellFormed() : Characters(Below(12));
        if (Below(4) == 0) Insert(text, Character());
        if (Below(16) == 0) Insert(text, Character());
        if (Below(8) == 0) text = Some(3, " \t\n ") + text + Some(3, "  \r\v\f");
        return text;
    }

    // Of "true" and "false" in mixed letter case.
    std::string Word() {
        std::string text = Below(2) == 0 ? "true" : "false";
        for (char& c : text)
            if (Below(2) == 0) c = static_cast<char>(c - 'a' + 'A');
        if (Below(2) == 0) Insert(text, Character());
        if (Below(8) == 0) text.erase(Below(text.size()), 1);
        if (Below(4) == 0) text = Some(3, " \t\n ") + text + Some(3, "  \r\v\f");
        return text;
    }

    std::string Pair() {
        std::string text = '[' + Number() + ',' + Number() + ']';
        if (Below(8) == 0) text.erase(Below(text.size()), 1);
        if (Below(8) == 0) Insert(text, "[,] "[Below(4)]);
        return text;
    }

 private:
    static constexpr std::string_view kDigits = "0123456789";

    std::size_t Below(std::size_t end) { return engine_() % end; }

    char OneOf(std::string_view alphabet) { return alphabet[Below(alphabet.size())]; }

    // Fewer than `end` characters of an alphabet.
    std::string Some(std::size_t end, std::string_view alphabet) {
        std::string text;
        for (std::size_t size = Below(end); size > 0; --size) text += OneOf(alphabet);
        return text;
    }

    char Character() {
        const std::size_t kind = Below(10);
        if (kind < 5) return OneOf(kDigits);
        return kind < 9 ? OneOf("++--..eE") : OneOf(" \t\nxXaDfin,_/:%\x7F\x80\xA0\xB2\xE9\xFF");
    }

    std::string Characters(std::size_t size) {
        std::string text;
        while (text.size() < size) text += Character();
        return text;
    }

    void Insert(std::string& text, char c) { text.insert(Below(text.size() + 1), 1, c); }

    std::string WellFormed() {
        std::string text = Some(2, "+-");
        text += Some(Below(3) == 0 ? 24 : 9, kDigits);
        if (Below(3) == 0) text += '.' + Some(6, kDigits);
        if (Below(4) == 0) {
            text += OneOf("eE");
            text += Some(2, "+-");
            text += OneOf(kDigits);
            text += Some(3, kDigits);
        }
        return text;
    }

    std::mt19937 engine_;
};

}  // namespace tev::test
