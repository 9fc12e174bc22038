#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "fixtures/SecondLibrary.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::SecondLibrary;
using tev::test::Text;

constexpr char kCommaLocale[] = "German_Germany.1252";

// The C locale of the process and of every module in it, which share one C runtime.
class Locale {
 public:
    explicit Locale(const char* name)
        : before_(std::setlocale(LC_ALL, nullptr)),
          isSet_(std::setlocale(LC_ALL, name) != nullptr) {}
    ~Locale() { std::setlocale(LC_ALL, before_.c_str()); }
    Locale(const Locale&) = delete;
    Locale& operator=(const Locale&) = delete;

    bool HasComma() const { return isSet_ && std::localeconv()->decimal_point == std::string(","); }

 private:
    std::string before_;
    bool isSet_;
};

std::string Shown(decltype(&TEVUtilString::SignificantFigures) significantFigures, double value,
                  double uncertainty, bool scientific) {
    Text valueText;
    Text uncertaintyText;
    if (!significantFigures(value, uncertainty, valueText.Out(), uncertaintyText.Out(), scientific))
        return "(refused)";
    return valueText.str() + " +- " + uncertaintyText.str();
}

SecondLibrary LoadedUnderComma() {
    const Locale comma(kCommaLocale);
    EXPECT_TRUE(comma.HasComma());
    return {};
}

TEST(DecimalSeparator, IsThatOfTheLocaleWhenTheLibraryIsLoaded) {
    const SecondLibrary second = LoadedUnderComma();
    ASSERT_STREQ(std::localeconv()->decimal_point, ".");
    const auto significantFigures = second.Of(&TEVUtilString::SignificantFigures);
    EXPECT_EQ(Shown(significantFigures, 123.456, 0.0234, false), "123,46 +- 0,02");
    EXPECT_EQ(Shown(significantFigures, 123.456, 0.0234, true), "1,2346e+02 +- 2e-02");
    EXPECT_EQ(Shown(significantFigures, -0.5, 0.25, false), "-0,5 +- 0,2");
    EXPECT_EQ(Shown(significantFigures, 0, 0.25, false), "0,0 +- 0,2");
    EXPECT_EQ(Shown(significantFigures, 0, 0.25, true), "0,e+00 +- 2e-01");
    EXPECT_EQ(Shown(significantFigures, 10.2, 1, false), "10, +- 1") << "tidied before";
    EXPECT_EQ(Shown(significantFigures, 123, 1, false), "123 +- 1");
}

TEST(DecimalSeparator, StandsInMeasuredValuesOnly) {
    const SecondLibrary second = LoadedUnderComma();
    Text text;
    EXPECT_TRUE(second.Of(&TEVUtilString::TruncateUncertaintyValue)(0.0234, text.Out(), false, 1));
    EXPECT_EQ(text.str(), "0.02");
    bool hasDigits = false;
    bool hasPoint = false;
    int first = 0;
    int last = 0;
    int point = 0;
    int count = 0;
    const auto getInfo = second.Of(&TEVUtilString::GetSignificantFiguresInfo);
    EXPECT_TRUE(getInfo("1.5", hasDigits, hasPoint, first, last, point, count));
    EXPECT_FALSE(getInfo("1,5", hasDigits, hasPoint, first, last, point, count));
}

TEST(DecimalSeparator, LaterLocaleDoesNotChangeIt) {
    const Locale comma(kCommaLocale);
    ASSERT_TRUE(comma.HasComma());
    EXPECT_EQ(Shown(&TEVUtilString::SignificantFigures, 123.456, 0.0234, false), "123.46 +- 0.02");
    EXPECT_EQ(Shown(&TEVUtilString::SignificantFigures, 123.456, 0.0234, true),
              "1.2346e+02 +- 2e-02");
    EXPECT_EQ(Shown(&TEVUtilString::SignificantFigures, 0, 0.0234, false), "0.0 +- 0.02");
}

TEST(ToDouble, FollowsTheDecimalPointOfTheCLocale) {
    const Locale locale(kCommaLocale);
    ASSERT_TRUE(locale.HasComma());
    double value = 0;
    EXPECT_TRUE(TEVUtilString::ToDouble("1.5", value));
    EXPECT_EQ(value, 1.0);
    EXPECT_TRUE(TEVUtilString::ToDouble("25e-1", value));
    EXPECT_EQ(value, 2.5);
}

}  // namespace
