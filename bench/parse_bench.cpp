#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <absl/strings/numbers.h>
#include <fast_float/fast_float.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "Rows.h"

namespace tev::bench {

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using Texts = std::vector<std::string>;

constexpr int kTexts = 64;

// Numbers in as many places of magnitude each.
template <typename Number>
Number RandomNumber(std::mt19937_64& random, int places) {
    std::uint64_t bound = 1;
    for (int i = static_cast<int>(random() % static_cast<unsigned>(places)); i >= 0; --i)
        bound *= 10;
    const auto number = static_cast<Number>(random() % bound);
    return random() % 2 == 0 ? number : -number;
}

template <typename Text>
Texts MakeTexts(const Text& text) {
    std::mt19937_64 random(20240303);
    Texts texts;
    for (int i = 0; i < kTexts; ++i) texts.push_back(text(random));
    return texts;
}

std::string IntText(std::mt19937_64& random) {
    return std::to_string(RandomNumber<int>(random, 9));
}

std::string FractionText(std::mt19937_64& random) {
    return IntText(random) + "." + std::to_string(random() % 1000);
}

std::string Int64Text(std::mt19937_64& random) {
    return std::to_string(RandomNumber<std::int64_t>(random, 18));
}

std::string DoubleText(std::mt19937_64& random, const std::string& format) {
    char text[64];
    std::snprintf(text, sizeof text, format.c_str(),
                  std::uniform_real_distribution<double>(-10000, 10000)(random));
    return text;
}

// So many digits, the first of them not 0.
std::string DigitsText(std::mt19937_64& random, std::size_t digits) {
    std::string text(1, static_cast<char>('1' + random() % 9));
    while (text.size() < digits) text += static_cast<char>('0' + random() % 10);
    return text;
}

auto OfDigits(std::size_t digits) {
    return [digits](std::mt19937_64& random) { return DigitsText(random, digits); };
}

std::string BoolText(std::mt19937_64& random) { return random() % 2 == 0 ? "true" : "False"; }

// Each text in turn; `parse` gives the value.
template <typename Parse>
auto ForEach(Parse parse) {
    return [parse](const Texts& texts, auto keep) {
        for (const std::string& text : texts) keep(parse(text));
    };
}

// The bare work: digits up to the first other character.
template <typename Number>
Number DigitLoop(const std::string& text) {
    const char* c = text.c_str();
    const bool isNegative = *c == '-';
    if (isNegative) ++c;
    Number value = 0;
    for (; *c >= '0' && *c <= '9'; ++c) value = static_cast<Number>(value * 10 + (*c - '0'));
    return isNegative ? -value : value;
}

template <typename Number>
Number FromChars(const std::string& text) {
    Number value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

double FastFloat(const std::string& text) {
    double value = 0;
    fast_float::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

template <typename Number, typename Function>
auto Out(Function function) {
    return ForEach([function](const std::string& text) {
        Number value = 0;
        function(text, value);
        return value;
    });
}

template <typename Number, typename Make, typename Parse>
auto Start(const char* work, std::size_t size, Make make, Parse parse) {
    return Work(
        work, static_cast<std::int64_t>(size), [make] { return MakeTexts(make); },
        [parse](const Texts& texts) {
            Each<Number> each;
            for (const std::string& text : texts) each.values.push_back(parse(text));
            return each;
        });
}

int StandardInt(const std::string& text) { return std::stoi(text); }

auto OurInt() {
    return Out<int>(
        [](const std::string& text, int& value) { TEVUtilString::ToInteger(text.c_str(), value); });
}

template <typename Make>
void AddInt(const char* work, std::size_t size, Make make) {
    Start<int>(work, size, make, StandardInt)
        .Ours(OurInt())
        .Peer("from_chars", ForEach(FromChars<int>))
        .Peer("Abseil", Out<int>([](const std::string& text, int& value) {
                  static_cast<void>(absl::SimpleAtoi(text, &value));
              }))
        .CheckedLimit("digit loop", ForEach(DigitLoop<int>));
}

void AddIntWithFraction() {
    const auto strtol = ForEach(
        [](const std::string& text) { return int{std::strtol(text.c_str(), nullptr, 10)}; });
    Start<int>("int-with-fraction", 0, FractionText, StandardInt)
        .Ours(OurInt())
        .Peer("from_chars", ForEach(FromChars<int>))
        .Peer("strtol", strtol)
        .CheckedLimit("digit loop", ForEach(DigitLoop<int>));
}

template <typename Make>
void AddInt64(const char* work, std::size_t size, Make make) {
    Start<std::int64_t>(work, size, make, [](const std::string& text) { return std::stoll(text); })
        .Ours(Out<std::int64_t>([](const std::string& text, std::int64_t& value) {
            TEVUtilString::ToInt64(text.c_str(), value);
        }))
        .Peer("from_chars", ForEach(FromChars<std::int64_t>))
        .Peer("Abseil", Out<std::int64_t>([](const std::string& text, std::int64_t& value) {
                  static_cast<void>(absl::SimpleAtoi(text, &value));
              }))
        .CheckedLimit("digit loop", ForEach(DigitLoop<std::int64_t>));
}

void AddDoubles(const char* work, std::size_t size, const std::string& format) {
    const auto make = [format](std::mt19937_64& random) { return DoubleText(random, format); };
    Start<double>(work, size, make, FastFloat)
        .Ours(Out<double>([](const std::string& text, double& value) {
            TEVUtilString::ToDouble(text.c_str(), value);
        }))
        .Peer("from_chars", ForEach(FromChars<double>))
        .Peer("Abseil", Out<double>([](const std::string& text, double& value) {
                  static_cast<void>(absl::SimpleAtod(text, &value));
              }))
        .CheckedLimit("fast_float", ForEach(FastFloat));
}

void AddBool() {
    // int, since a vector of bool has no elements to point at.
    Start<int>("bool", 0, BoolText, [](const std::string& text) { return text == "true"; })
        .Ours(Out<bool>([](const std::string& text, bool& value) {
            TEVUtilString::ToBool(text.c_str(), value);
        }))
        .Peer("Abseil", Out<bool>([](const std::string& text, bool& value) {
                  static_cast<void>(absl::SimpleAtob(text, &value));
              }))
        .CheckedLimit("strcmp with the word", ForEach([](const std::string& text) {
                          return std::strcmp(text.c_str(), "true") == 0;
                      }));
}

}  // namespace

void RegisterRows() {
    AddInt("int", 0, IntText);
    AddIntWithFraction();
    AddInt64("int64", 0, Int64Text);
    AddDoubles("double-short", 0, "%.3f");
    AddDoubles("double-17-digits", 0, "%.16e");
    AddBool();
    for (const std::size_t digits : {1U, 3U, 6U, 9U})
        AddInt("int-digits", digits, OfDigits(digits));
    for (const std::size_t digits : {2U, 6U, 12U, 18U})
        AddInt64("int64-digits", digits, OfDigits(digits));
    for (const std::size_t digits : {2U, 6U, 12U, 17U})
        AddDoubles("double-digits", digits, "%." + std::to_string(digits - 1) + "e");
}

}  // namespace tev::bench
