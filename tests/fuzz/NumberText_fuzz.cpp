#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "TEVSystemLib/util/string/detail/NumberText.h"
#include "fuzz/Fuzz.h"
#include "models/NumberModel.h"

using namespace TAMO::TEV::System::Util::detail;
using tev::fuzz::Exact;
using tev::fuzz::ExpectSame;

namespace {

using Halves = std::pair<std::string, std::string>;
// A number in digits; nothing where none is read.
using Number = std::optional<std::string>;

int Class(IntegerText text) { return static_cast<int>(text); }

Halves HalvesModel(const std::string& text) {
    const std::size_t comma = text.find(',');
    const bool isPair = text.size() >= 5 && text[0] == '[' && text[text.size() - 1] == ']' &&
                        comma != std::string::npos;
    if (!isPair) return {};
    return {std::string(&text[1], &text[comma]),
            std::string(&text[comma + 1], &text[text.size() - 1])};
}

// The digits in front of the point, without the sign.
std::string LeadingDigits(std::string text) {
    text.resize(std::min(text.size(), text.find('.')));
    return text.find_first_of("+-") == 0 ? text.substr(1) : text;
}

// The number that those digits are, written out and compared with the limits as text.
template <typename T>
Number LeadingModel(const std::string& text) {
    std::string digits = LeadingDigits(text);
    if (digits.empty()) return std::nullopt;
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - 1));
    const bool isNegative = text[0] == '-' && digits != "0";
    using Limits = std::numeric_limits<T>;
    const std::string limit =
        isNegative ? std::to_string(Limits::min()).substr(1) : std::to_string(Limits::max());
    if (digits.size() > limit.size() || (digits.size() == limit.size() && digits > limit))
        return std::nullopt;
    return (isNegative ? "-" : "") + digits;
}

// What is read without a scan is what surely fits, by the number of its digits.
template <typename T>
Number PlainModel(const std::string& text, const char* signs) {
    const std::size_t count = LeadingDigits(text).size();
    const bool isPlain = tev::test::IntegerShape(text, signs) == IntegerText::Digits &&
                         count <= std::size_t{std::numeric_limits<T>::digits10};
    return isPlain ? LeadingModel<T>(text) : std::nullopt;
}

// What a function makes of a number; it stores nothing when it says false.
template <typename T, typename Read>
Number Result(Read read) {
    constexpr T kBefore = 77;
    T value = kBefore;
    if (read(value)) return std::to_string(value);
    tev::fuzz::Expect(value == kBefore, "nothing is stored with false");
    return std::nullopt;
}

template <typename T>
void CheckInteger(std::string_view view, const std::string& text, Sign sign, const char* signs) {
    const auto plain = [&](T& value) { return ReadPlainInteger(text.c_str(), sign, value); };
    ExpectSame(Result<T>(plain), PlainModel<T>(text.c_str(), signs), "a plain integer");
    if (tev::test::IntegerShape(text, signs) != IntegerText::Digits) return;
    const auto leading = [&](T& value) { return ReadLeadingInteger(view, value); };
    ExpectSame(Result<T>(leading), LeadingModel<T>(text), "a leading integer");
}

// Only what looks like a number from end to end, converts as a whole and is in range.
std::optional<double> RealModel(const std::string& text) {
    if (!tev::test::LooksReal(text)) return std::nullopt;
    char* end = nullptr;
    errno = 0;
    const double value = std::strtod(text.c_str(), &end);
    const bool isInRange = errno != ERANGE && (value == 0 || std::isnormal(value));
    return isInRange && *end == '\0' ? std::optional(value) : std::nullopt;
}

std::ptrdiff_t CountDigits(const std::string& text) {
    return std::count_if(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Of few digits in front of the exponent and in it, and of a scale that is not too large.
std::optional<double> PlainRealModel(const std::string& text) {
    const std::size_t marker = std::min(text.find_first_of("eE"), text.size());
    const std::string exponent = text.substr(marker);
    const std::string mantissa = text.substr(0, marker);
    const std::size_t point = mantissa.find('.');
    if (CountDigits(mantissa) > std::numeric_limits<std::uint64_t>::digits10 ||
        CountDigits(exponent) > 4)
        return std::nullopt;
    const auto decimals = point == std::string::npos ? 0 : mantissa.size() - point - 1;
    const long power = exponent.empty() ? 0 : std::strtol(exponent.c_str() + 1, nullptr, 10);
    const bool isPlain = std::labs(power - static_cast<long>(decimals)) <= 27;
    return isPlain ? RealModel(text) : std::nullopt;
}

template <typename Read>
void CheckReal(Read read, const std::optional<double>& expected, const char* what) {
    double value = 77;
    ExpectSame(read(value), expected.has_value(), what);
    tev::fuzz::Expect(value == expected.value_or(77), "its value, or nothing stored");
}

void CheckReals(std::string_view view, const std::string& text) {
    CheckReal([&](double& value) { return ReadReal(view, value); }, RealModel(text),
              "a number from end to end");
    CheckReal([&](double& value) { return ReadPlainReal(text.c_str(), value); },
              PlainRealModel(text.c_str()), "a plain number");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const Exact exact(text);
    ExpectSame(Class(ClassifyInteger(exact.View(), Sign::PlusOrMinus)),
               Class(tev::test::IntegerShape(text, "+-")), "a signed integer");
    ExpectSame(Class(ClassifyInteger(exact.View(), Sign::PlusOnly)),
               Class(tev::test::IntegerShape(text, "+")), "an unsigned integer");
    ExpectSame(MayBeReal(exact.View()), tev::test::LooksReal(text), "a real number");
    CheckInteger<int>(exact.View(), text, Sign::PlusOrMinus, "+-");
    CheckInteger<int>(exact.View(), text, Sign::PlusOnly, "+");
    CheckInteger<std::int64_t>(exact.View(), text, Sign::PlusOrMinus, "+-");
    CheckInteger<std::uint64_t>(exact.View(), text, Sign::PlusOnly, "+");
    CheckReals(exact.View(), text);
    const IndexTexts indices = SplitIndices(exact.View());
    ExpectSame(Halves(indices.first, indices.second), HalvesModel(text), "an index pair");
    return 0;
}
