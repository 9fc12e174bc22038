#pragma once

#include <TEVSystemLib/owned/Owners.h>
#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>

// Calls whose arguments have names, for functions where arguments of one type are easily swapped:
//     Replace(Text(line), Pattern("\t"), Replacement(" "))
// They pass on to the function of that name, with its results and its exceptions.
namespace TAMO::TEV::System::Host {

// A text with a part in a call, written there: it cannot be copied, so it never outlives the text.
// Null is passed on as null; a std::string ends at its first NUL.
template <typename Part>
class NamedText {
 public:
    // From any text that lives until the call is over.
    explicit NamedText(const char* text) noexcept : text_(text) {}
    explicit NamedText(const std::string& text) noexcept : text_(text.c_str()) {}
    explicit NamedText(const OwnedText& text) noexcept : text_(text.get()) {}
    // Not copied, so that it stays in its call.
    NamedText(const NamedText&) = delete;
    NamedText& operator=(const NamedText&) = delete;
    ~NamedText() = default;

    // The text, for the call.
    const char* get() const noexcept { return text_; }

 private:
    const char* text_;
};

// The parts.
using Text = NamedText<struct TextPart>;
using Delimiters = NamedText<struct DelimitersPart>;
using Prefix = NamedText<struct PrefixPart>;
using Suffix = NamedText<struct SuffixPart>;
using Pattern = NamedText<struct PatternPart>;
using Replacement = NamedText<struct ReplacementPart>;
using Name = NamedText<struct NamePart>;
using Key = NamedText<struct KeyPart>;
using Value = NamedText<struct ValuePart>;

// Whether letters of both cases are the same.
enum class Case { Exact, Ignored };

// The pieces between delimiters; none without a token.
[[nodiscard]] inline OwnedTextArray Tokenize(Text text, Delimiters delimiters) {
    OwnedTextArray tokens;
    Util::TEVUtilString::Tokenize(delimiters.get(), text.get(), Out(tokens), Count(tokens));
    return tokens;
}

[[nodiscard]] inline std::string Replace(Text text, Pattern pattern, Replacement replacement) {
    return Util::TEVUtilString::Replace(text.get(), replacement.get(), pattern.get());
}

inline bool StartWith(Text text, Prefix prefix, Case letters = Case::Exact) {
    return Util::TEVUtilString::StartWith(letters == Case::Ignored, prefix.get(), text.get());
}

inline bool EndWith(Text text, Suffix suffix, Case letters = Case::Exact) {
    return Util::TEVUtilString::EndWith(letters == Case::Ignored, suffix.get(), text.get());
}

// The numbers of "[first,second]".
struct Indices {
    // As they stand in the text.
    int first;
    int second;
};

// Nothing for a text that is refused.
[[nodiscard]] inline std::optional<Indices> ExtractIndices(Text text) {
    Indices found = {};
    if (!Util::TEVUtilString::ExtractIndices(text.get(), found.first, found.second)) return {};
    return found;
}

inline bool SetSessionEnvironmentVariable(Name name, Value value) {
    return Util::TEVUtilWindows::SetSessionEnvironmentVariable(name.get(), value.get());
}

// The variables of this process: two arrays of one size.
struct EnvironmentVariables {
    // A name and its value have one index.
    OwnedTextArray names;
    OwnedTextArray values;
};

// Both arrays come with one count, which Out and Count cannot give to both; none when it fails.
[[nodiscard]] inline EnvironmentVariables GetCurrentProcessEnvironmentVariables() {
    char** names = nullptr;
    char** values = nullptr;
    std::size_t count = 0;
    Util::TEVUtilWindows::GetCurrentProcessEnvironmentVariables(names, values, count);
    return {OwnedTextArray(names, count), OwnedTextArray(values, count)};
}

inline bool SetUserProperty(Key key, Value value) {
    return TEVSystemProperties::SetUserProperty(key.get(), value.get());
}

// A number with a part in a call.
template <typename Part>
class NamedNumber {
 public:
    // The number and what it is; get() is for the call.
    explicit constexpr NamedNumber(std::uint64_t number) noexcept : number_(number) {}
    constexpr std::uint64_t get() const noexcept { return number_; }

 private:
    std::uint64_t number_;
};

// The least number of characters, and the digits behind the point.
using Width = NamedNumber<struct WidthPart>;
using Precision = NamedNumber<struct PrecisionPart>;

// How a number stands in its field: on the right, filled with blanks, unless told otherwise. Each
// function changes the layout and returns it: Layout().ShowPlus().ZeroFill().
class Layout {
 public:
    // On the left, filled with blanks; with a plus sign; filled with zeros behind the sign.
    Layout& Left() noexcept { return Set(justification_, 'L'); }
    Layout& ShowPlus() noexcept { return Set(showPlus_, true); }
    Layout& ZeroFill() noexcept { return Set(zeroFill_, true); }

    // What was chosen, for the call.
    char Justification() const noexcept { return justification_; }
    bool ShowsPlus() const noexcept { return showPlus_; }
    bool FillsZeros() const noexcept { return zeroFill_; }

 private:
    template <typename T>
    Layout& Set(T& member, T value) noexcept {
        member = value;
        return *this;
    }

    char justification_ = 'R';
    bool showPlus_ = false;
    bool zeroFill_ = false;
};

// The justified forms of TEVUtilString::ToString, for all their types in one order of arguments.
template <typename Number>
std::string ToString(Number value, Width width, const Layout& layout = Layout()) {
    static_assert(!std::is_floating_point_v<Number>, "a double is written with a Precision");
    static_assert(std::is_integral_v<Number> && sizeof(Number) >= sizeof(int),
                  "ToString writes numbers of 32 and 64 bits");
    const char justification = layout.Justification();
    const bool plus = layout.ShowsPlus();
    const bool zeros = layout.FillsZeros();
    if constexpr (std::is_same_v<Number, unsigned int>)
        return Util::TEVUtilString::ToString(justification, width.get(), value, plus, zeros);
    else if constexpr (std::is_unsigned_v<Number>)
        return Util::TEVUtilString::ToString(justification, std::uint64_t{value}, width.get(), plus,
                                             zeros);
    else
        return Util::TEVUtilString::ToString(justification, value, width.get(), plus, zeros);
}

inline std::string ToString(double value, Width width, Precision precision,
                            const Layout& layout = Layout()) {
    return Util::TEVUtilString::ToString(layout.Justification(), value, width.get(),
                                         precision.get(), layout.ShowsPlus(), layout.FillsZeros());
}

}  // namespace TAMO::TEV::System::Host
