#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "Rows.h"

namespace tev::bench {

namespace {

using TAMO::TEV::System::Util::TEVUtilString;

struct Measured {
    double value;
    double uncertainty;
    std::string fixed[2];
    std::string scientific[2];
};

std::vector<Measured> Values() {
    return {{123.456, 0.0234, {"123.46", "0.02"}, {"1.2346e+02", "2e-02"}},
            {-123.456, 0.0234, {"-123.46", "0.02"}, {"-1.2346e+02", "2e-02"}},
            {0.001234, 0.00002, {"0.00123", "0.00002"}, {"1.23e-03", "2e-05"}},
            {10, 1, {"10.", "1"}, {"1.0e+01", "1e+00"}},
            {0.96, 0.3, {"1.0", "0.3"}, {"1e+00", "3e-01"}}};
}

// One value that its uncertainty leaves so many decimals.
std::vector<Measured> ValueOfDecimals(int decimals) {
    const double value = 1.2345678912;
    const double uncertainty = 2 * std::pow(10, -decimals);
    const auto text = [decimals](double number) {
        char buffer[32];
        std::snprintf(buffer, sizeof buffer, "%.*f", decimals, number);
        return std::string(buffer);
    };
    return {{value, uncertainty, {text(value), text(uncertainty)}, {}}};
}

template <typename Make>
void Add(const char* work, std::int64_t size, Make make, bool scientific) {
    const auto expect = [scientific](const std::vector<Measured>& values) {
        Each<std::string> texts;
        for (const Measured& measured : values)
            for (const std::string& text : scientific ? measured.scientific : measured.fixed)
                texts.values.push_back(text);
        return texts;
    };
    Work(work, size, make, expect)
        .Ours([scientific](const std::vector<Measured>& values, auto keep) {
            for (const Measured& measured : values) {
                char* value = nullptr;
                char* uncertainty = nullptr;
                TEVUtilString::SignificantFigures(measured.value, measured.uncertainty, &value,
                                                  &uncertainty, scientific);
                keep(value);
                keep(uncertainty);
                TEVUtilString::DeleteCString(&value);
                TEVUtilString::DeleteCString(&uncertainty);
            }
        })
        .Limit("one to_chars fixed 20", [](const std::vector<Measured>& values, auto keep) {
            for (const Measured& measured : values) {
                char text[400];
                keep(std::to_chars(text, text + sizeof text, measured.value,
                                   std::chars_format::fixed, 20)
                         .ptr);
            }
        });
}

}  // namespace

void RegisterRows() {
    Add("fixed", 0, Values, false);
    Add("scientific", 0, Values, true);
    for (const int decimals : {1, 3, 6, 9})
        Add(
            "fixed-decimals", decimals, [decimals] { return ValueOfDecimals(decimals); }, false);
}

}  // namespace tev::bench
