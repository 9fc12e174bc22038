#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// What the fuzz targets share: inputs cut into fields, and comparisons that end the process.
namespace tev::fuzz {

// A copy in memory of exactly that size: a sanitizer sees whoever reads behind it.
class Exact {
 public:
    explicit Exact(std::string_view text) : copy_(new char[text.size()]), size_(text.size()) {
        text.copy(copy_.get(), size_);
    }

    std::string_view View() const { return {copy_.get(), size_}; }
    bool Holds(std::string_view part) const {
        return part.data() >= copy_.get() && part.data() + part.size() <= copy_.get() + size_;
    }

 private:
    std::unique_ptr<char[]> copy_;
    std::size_t size_;
};

// The fields of an input, separated by the byte 1F. There is always one more, if only an empty one.
class Fields {
 public:
    Fields(const std::uint8_t* data, std::size_t size)
        : rest_(reinterpret_cast<const char*>(data), size) {}

    bool AtEnd() const { return rest_.empty(); }

    std::string Next() {
        constexpr char kUnitSeparator = '\x1F';
        const std::size_t end = rest_.find(kUnitSeparator);
        std::string field(rest_.substr(0, end));
        rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
        return field;
    }

    // One byte of choice, 0 at the end.
    unsigned Choice() {
        if (rest_.empty()) return 0;
        const auto choice = static_cast<unsigned char>(rest_.front());
        rest_.remove_prefix(1);
        return choice;
    }

    std::string Rest() { return std::string(std::exchange(rest_, {})); }

 private:
    std::string_view rest_;
};

inline std::string Show(std::string_view text) {
    std::string shown = "\"";
    for (const char c : text) {
        char code[8];
        const bool isPlain = c >= ' ' && c <= '~' && c != '"' && c != '\\';
        std::snprintf(code, sizeof code, isPlain ? "%c" : "\\x%02X", static_cast<unsigned char>(c));
        shown += code;
    }
    return shown + '"';
}
inline std::string Show(const std::string& text) { return Show(std::string_view(text)); }
inline std::string Show(bool value) { return value ? "true" : "false"; }
inline std::string Show(int value) { return std::to_string(value); }
inline std::string Show(std::int64_t value) { return std::to_string(value); }
inline std::string Show(std::size_t value) { return std::to_string(value); }

template <typename Value>
std::string Show(const std::vector<Value>& values);

template <typename First, typename Second>
std::string Show(const std::pair<First, Second>& pair) {
    return Show(pair.first) + " -> " + Show(pair.second);
}

template <typename Value>
std::string Show(const std::optional<Value>& value) {
    return value ? Show(*value) : "(nothing)";
}

template <typename Value>
std::string Show(const std::vector<Value>& values) {
    std::string shown = "[";
    for (const Value& value : values) shown += (shown.size() > 1 ? ", " : "") + Show(value);
    return shown + "]";
}

[[noreturn]] inline void Fail(const char* rule, const std::string& details) {
    std::fprintf(stderr, "%s: %s\n", rule, details.c_str());
    std::abort();
}

inline void Expect(bool holds, const char* rule) {
    if (!holds) Fail(rule, "does not hold");
}

template <typename Value>
void ExpectSame(const Value& actual, const Value& expected, const char* rule) {
    if (!(actual == expected)) Fail(rule, Show(actual) + ", not " + Show(expected));
}

inline std::optional<std::string> Copied(const std::optional<std::string_view>& view) {
    if (!view) return std::nullopt;
    return std::string(*view);
}

}  // namespace tev::fuzz
