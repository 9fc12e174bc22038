#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <iomanip>
#include <limits>
#include <random>
#include <sstream>
#include <string>

#include "support/Effort.h"
#include "support/GlobalLocale.h"

// Numbers are converted without a stream and without the C runtime's scan where the result is the
// same: here both ways run side by side.
namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::GlobalLocale;
using tev::test::Punctuation;
using tev::test::Repetitions;

constexpr unsigned kSeed = 5821;
constexpr std::int64_t kInputs = 1'000'000;

class RandomNumbers {
 public:
    RandomNumbers() { testing::Test::RecordProperty("seed", kSeed); }

    std::uint64_t Below(std::uint64_t end) { return engine_() % end; }
    bool Coin() { return Below(2) == 0; }

    // Any length of digits is as likely as another.
    std::uint64_t Integer() { return engine_() >> Below(64); }

    // All bit patterns, or a number as people write it.
    double Double() {
        if (Coin()) return Ordinary();
        const std::uint64_t bits = engine_();
        double number;
        std::memcpy(&number, &bits, sizeof number);
        return number;
    }

 private:
    double Ordinary() {
        const auto digits = static_cast<double>(Integer() >> 11);
        const double scaled = digits / std::pow(10.0, static_cast<double>(Below(20)));
        return Coin() ? scaled : -scaled;
    }

    std::mt19937_64 engine_{kSeed};
};

std::string Streamed(double value, bool scientific, int precision,
                     std::ios_base::fmtflags more = {}) {
    std::ostringstream stream;
    stream.setf(more);
    stream << (scientific ? std::scientific : std::fixed) << std::setprecision(precision) << value;
    return stream.str();
}

template <typename T>
std::string Streamed(T value) {
    std::ostringstream stream;
    stream << value;
    return stream.str();
}

TEST(ToString, DoublesAsAStreamWritesThem) {
    RandomNumbers numbers;
    for (std::int64_t i = 0; i < Repetitions(kInputs); ++i) {
        const double value = numbers.Double();
        const bool scientific = numbers.Coin();
        const auto precision = static_cast<int>(numbers.Below(numbers.Below(100) == 0 ? 80 : 25));
        ASSERT_EQ(TEVUtilString::ToString(value, scientific, precision),
                  Streamed(value, scientific, precision))
            << std::hexfloat << value << ' ' << precision;
    }
}

TEST(ToString, JustifiedDoublesAsAStreamWritesThem) {
    RandomNumbers numbers;
    for (std::int64_t i = 0; i < Repetitions(kInputs); ++i) {
        const double value = numbers.Double();
        const auto precision = static_cast<int>(numbers.Below(20));
        const std::string plus =
            Streamed(value, false, precision, std::ios::showpoint | std::ios::showpos);
        const std::uint64_t width = 2 * static_cast<std::uint64_t>(precision) + 10;
        const std::string fill(width > plus.size() ? width - plus.size() : 0, ' ');
        ASSERT_EQ(TEVUtilString::ToString('L', value, width, static_cast<std::uint64_t>(precision),
                                          true, false),
                  plus + fill)
            << std::hexfloat << value << ' ' << precision;
    }
}

TEST(ToString, IntegersAsAStreamWritesThem) {
    RandomNumbers numbers;
    for (std::int64_t i = 0; i < Repetitions(kInputs); ++i) {
        const std::uint64_t bits = numbers.Coin() ? numbers.Integer() : 0 - numbers.Integer();
        ASSERT_EQ(TEVUtilString::ToString(bits), Streamed(bits));
        ASSERT_EQ(TEVUtilString::ToString(static_cast<std::int64_t>(bits)),
                  Streamed(static_cast<std::int64_t>(bits)));
        ASSERT_EQ(TEVUtilString::ToString(static_cast<int>(bits)),
                  Streamed(static_cast<int>(bits)));
        ASSERT_EQ(TEVUtilString::ToString(static_cast<unsigned int>(bits)),
                  Streamed(static_cast<unsigned int>(bits)));
    }
}

TEST(ToString, EdgesAsAStreamWritesThem) {
    using Limits = std::numeric_limits<double>;
    for (const double magnitude :
         {0.0, 0.5, 1.0, 9.5, 1e15, 1e16, 1e17, 1e22, 1e23, Limits::min(), Limits::denorm_min(),
          Limits::max(), Limits::infinity(), Limits::quiet_NaN()}) {
        for (const double value : {magnitude, -magnitude}) {
            for (const int precision : {0, 1, 19, 20, 63, 64, 65, 400, 1100}) {
                for (const bool scientific : {false, true})
                    EXPECT_EQ(TEVUtilString::ToString(value, scientific, precision),
                              Streamed(value, scientific, precision));
            }
        }
    }
}

template <typename... T>
void ExpectGrouped() {
    for (const std::string& text : {TEVUtilString::ToString(T{1234567})...})
        EXPECT_EQ(text, "1'234'567");
}

TEST(ToString, FollowsTheGlobalLocale) {
    const GlobalLocale locale(new Punctuation(',', "\3"));
    EXPECT_EQ(TEVUtilString::ToString(1234567.5, false, 2), "1'234'567,50");
    ExpectGrouped<int, unsigned, long, unsigned long, std::int64_t, std::uint64_t>();
    EXPECT_EQ(TEVUtilString::ToString('R', 1234567, 12, false, false), "   1'234'567");
    std::int64_t value = 0;
    EXPECT_TRUE(TEVUtilString::ToInt64("1234567", value));
    EXPECT_EQ(value, 1234567);
}

template <typename T>
void ExpectAsStream(const std::string& text, bool (*parse)(const char*, T&)) {
    T expected = 77;
    std::istringstream(text) >> expected;
    T value = 77;
    ASSERT_TRUE(parse(text.c_str(), value)) << text;
    ASSERT_EQ(value, expected) << text;
}

TEST(ToInt64, AsAStreamReadsThem) {
    RandomNumbers numbers;
    for (std::int64_t i = 0; i < Repetitions(kInputs); ++i) {
        std::string text = numbers.Below(4) == 0 ? "+" : "";
        text += std::string(numbers.Below(8) == 0 ? numbers.Below(30) : 0, '0');
        text += std::to_string(numbers.Integer());
        if (numbers.Below(8) == 0) text += std::to_string(numbers.Below(1000));
        if (numbers.Below(4) == 0) text += "." + std::to_string(numbers.Integer());
        ExpectAsStream<std::uint64_t>(text, TEVUtilString::ToUInt64);
        if (numbers.Coin()) text = '-' + text.substr(text[0] == '+' ? 1 : 0);
        ExpectAsStream<std::int64_t>(text, TEVUtilString::ToInt64);
        if (HasFatalFailure()) return;
    }
}

TEST(ToInteger, AsTheRuntimeScansThem) {
    RandomNumbers numbers;
    for (std::int64_t i = 0; i < Repetitions(kInputs); ++i) {
        const std::string sign = numbers.Coin() ? "" : numbers.Coin() ? "-" : "+";
        const std::string text = sign + std::to_string(numbers.Integer() >> numbers.Below(64)) +
                                 (numbers.Coin() ? "." + std::to_string(numbers.Below(100)) : "");
        int expected = 77;
        const bool isScanned = sscanf_s(text.c_str(), "%d", &expected) == 1;
        int value = 77;
        ASSERT_EQ(TEVUtilString::ToInteger(text.c_str(), value), isScanned) << text;
        ASSERT_EQ(value, expected) << text;
    }
}

std::string RandomReal(RandomNumbers& numbers) {
    std::string text = numbers.Coin() ? "" : numbers.Coin() ? "-" : "+";
    text += std::to_string(numbers.Integer());
    if (numbers.Coin()) text += "." + std::to_string(numbers.Integer());
    if (numbers.Below(3) == 0)
        text += (numbers.Coin() ? "e-" : "E") + std::to_string(numbers.Below(360));
    if (numbers.Below(16) == 0)
        text.insert(numbers.Below(text.size()), 1, ".+-e"[numbers.Below(4)]);
    return text;
}

TEST(ToDouble, AsTheRuntimeScansThem) {
    RandomNumbers numbers;
    std::int64_t accepted = 0;
    for (std::int64_t i = 0; i < Repetitions(kInputs); ++i) {
        const std::string text = RandomReal(numbers);
        double value = 77;
        if (!TEVUtilString::ToDouble(text.c_str(), value)) continue;
        ++accepted;
        double expected = 77;
        ASSERT_EQ(sscanf_s(text.c_str(), "%lf", &expected), 1) << text;
        ASSERT_EQ(std::memcmp(&value, &expected, sizeof value), 0)
            << text << std::hexfloat << ' ' << value << ' ' << expected;
    }
    EXPECT_GT(accepted, Repetitions(kInputs) / 2);
}

}  // namespace
