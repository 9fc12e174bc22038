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
auto Start(const char* work, Make make, const char* format) {
    return Work(work, 0, make, [format](const auto& numbers) {
        Each<std::string> each;
        for (const auto number : numbers) {
            char text[400];
            std::snprintf(text, sizeof text, format, number);
            each.values.emplace_back(text);
        }
        return each;
    });
}

template <typename Number>
void AddInteger(const char* work, const char* format) {
    Start(work, Integers<Number>, format)
        .Ours(ForEach([](Number number) { return TEVUtilString::ToString(number); }))
        .Peer("fmt", ForEach([](Number number) { return fmt::to_string(number); }))
        .Peer("Abseil", ForEach([](Number number) { return absl::StrCat(number); }))
        .Peer("std::to_string", ForEach([](Number number) { return std::to_string(number); }))
        .CheckedLimit("to_chars on the stack", OnStack());
}

void AddJustifiedInteger() {
    Start("int-justified", Integers<int>, "%+014d")
        .Ours(ForEach(
            [](int number) { return TEVUtilString::ToString(kLeading, number, 14, true, true); }))
        .Peer("fmt", ForEach([](int number) { return fmt::format("{:+014d}", number); }))
        .Limit("to_chars on the stack", OnStack());
}

void AddDouble(const char* work, const char* format, const char* fmtFormat, bool scientific,
               int precision) {
    const auto notation = scientific ? std::chars_format::scientific : std::chars_format::fixed;
    Start(work, Doubles, format)
        .Ours(ForEach(
            [=](double number) { return TEVUtilString::ToString(number, scientific, precision); }))
        .Peer("fmt",
              ForEach([=](double number) { return fmt::format(fmt::runtime(fmtFormat), number); }))
        .CheckedLimit("to_chars on the stack", OnStack(notation, precision));
}

void AddJustifiedDouble() {
    Start("double-justified", Doubles, "%+020.6f")
        .Ours(ForEach([](double number) {
            return TEVUtilString::ToString(kLeading, number, 20, 6, true, true);
        }))
        .Peer("fmt", ForEach([](double number) { return fmt::format("{:+020.6f}", number); }))
        .Limit("to_chars on the stack", OnStack(std::chars_format::fixed, 6));
}

void AddCString() {
    Start("double-c-string", Doubles, "%.20f")
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
    AddInteger<int>("int", "%d");
    AddInteger<std::int64_t>("int64", "%I64d");
    AddJustifiedInteger();
    AddDouble("double-fixed-20", "%.20f", "{:.20f}", false, 20);
    AddDouble("double-fixed-6", "%.6f", "{:.6f}", false, 6);
    AddDouble("double-scientific-10", "%.10e", "{:.10e}", true, 10);
    AddJustifiedDouble();
    AddCString();
}

}  // namespace tev::bench
