#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <absl/strings/str_cat.h>
#include <fmt/format.h>

#include <charconv>
#include <cstdio>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "Rows.h"

namespace tev::bench {

namespace {

using TAMO::TEV::System::Util::TEVUtilString;

constexpr int kNumbers = 64;
constexpr char kLeading = 'R';

template <typename Number>
std::vector<Number> Integers() {
    std::mt19937_64 random(20240304);
    std::vector<Number> numbers;
    for (int i = 0; i < kNumbers; ++i)
        numbers.push_back(static_cast<Number>(static_cast<Number>(random()) >> (i % 24)));
    return numbers;
}

// Of so many digits.
std::vector<int> IntegersOf(int digits) {
    std::mt19937_64 random(20240304);
    int least = 1;
    for (int i = 1; i < digits; ++i) least *= 10;
    std::uniform_int_distribution<int> number(least, 10 * (least - 1) + 9);
    std::vector<int> numbers;
    for (int i = 0; i < kNumbers; ++i) numbers.push_back(number(random));
    return numbers;
}

std::vector<double> Doubles() {
    std::mt19937_64 random(20240305);
    std::uniform_real_distribution<double> number(-10000, 10000);
    std::vector<double> numbers;
    for (int i = 0; i < kNumbers; ++i) numbers.push_back(number(random));
    return numbers;
}

// Each number in turn; `format` gives the text.
template <typename Format>
auto ForEach(Format format) {
    return [format](const auto& numbers, auto keep) {
        for (const auto number : numbers) keep(format(number));
    };
}

// to_chars with its options, on the stack.
template <typename... Options>
auto OnStack(Options... options) {
    return [=](const auto& numbers, auto keep) {
        for (const auto number : numbers) {
            char text[400];
            const char* end = std::to_chars(text, text + sizeof text, number, options...).ptr;
            keep(std::string_view(text, static_cast<std::size_t>(end - text)));
        }
    };
}

// The expected texts are those of printf.
template <typename Make>
auto Start(const char* work, int size, Make make, const std::string& format) {
    return Work(work, size, make, [format](const auto& numbers) {
        Each<std::string> each;
        for (const auto number : numbers) {
            char text[400];
            std::snprintf(text, sizeof text, format.c_str(), number);
            each.values.emplace_back(text);
        }
        return each;
    });
}

template <typename Number, typename Make>
void AddInteger(const char* work, int size, Make make, const char* format) {
    Start(work, size, make, format)
        .Ours(ForEach([](Number number) { return TEVUtilString::ToString(number); }))
        .Peer("fmt", ForEach([](Number number) { return fmt::to_string(number); }))
        .Peer("Abseil", ForEach([](Number number) { return absl::StrCat(number); }))
        .Peer("std::to_string", ForEach([](Number number) { return std::to_string(number); }))
        .CheckedLimit("to_chars on the stack", OnStack());
}

void AddJustifiedInteger() {
    Start("int-justified", 0, Integers<int>, "%+014d")
        .Ours(ForEach(
            [](int number) { return TEVUtilString::ToString(kLeading, number, 14, true, true); }))
        .Peer("fmt", ForEach([](int number) { return fmt::format("{:+014d}", number); }))
        .Limit("to_chars on the stack", OnStack());
}

void AddDouble(const char* work, int size, bool scientific, int precision) {
    const auto notation = scientific ? std::chars_format::scientific : std::chars_format::fixed;
    const std::string form = "." + std::to_string(precision) + (scientific ? "e" : "f");
    const std::string fmtFormat = "{:" + form + "}";
    Start(work, size, Doubles, "%" + form)
        .Ours(ForEach(
            [=](double number) { return TEVUtilString::ToString(number, scientific, precision); }))
        .Peer("fmt",
              ForEach([=](double number) { return fmt::format(fmt::runtime(fmtFormat), number); }))
        .CheckedLimit("to_chars on the stack", OnStack(notation, precision));
}

void AddJustifiedDouble() {
    Start("double-justified", 0, Doubles, "%+020.6f")
        .Ours(ForEach([](double number) {
            return TEVUtilString::ToString(kLeading, number, 20, 6, true, true);
        }))
        .Peer("fmt", ForEach([](double number) { return fmt::format("{:+020.6f}", number); }))
        .Limit("to_chars on the stack", OnStack(std::chars_format::fixed, 6));
}

void AddCString() {
    Start("double-c-string", 0, Doubles, "%.20f")
        .Ours([](const std::vector<double>& numbers, auto keep) {
            for (const double number : numbers) {
                char* text = nullptr;
                TEVUtilString::ToString(&text, number, false, 20);
                keep(text);
                TEVUtilString::DeleteCString(&text);
            }
        })
        .Peer("fmt", ForEach([](double number) { return fmt::format("{:.20f}", number); }))
        .CheckedLimit("to_chars on the stack", OnStack(std::chars_format::fixed, 20));
}

}  // namespace

void RegisterRows() {
    AddInteger<int>("int", 0, Integers<int>, "%d");
    AddInteger<std::int64_t>("int64", 0, Integers<std::int64_t>, "%I64d");
    AddJustifiedInteger();
    AddDouble("double-fixed-20", 0, false, 20);
    AddDouble("double-fixed-6", 0, false, 6);
    AddDouble("double-scientific-10", 0, true, 10);
    AddJustifiedDouble();
    AddCString();
    for (const int digits : {1, 3, 6, 9})
        AddInteger<int>(
            "int-digits", digits, [digits] { return IntegersOf(digits); }, "%d");
    for (const int decimals : {2, 6, 12, 20})
        AddDouble("double-fixed-decimals", decimals, false, decimals);
}

}  // namespace tev::bench
