#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <charconv>
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

void Add(const char* work, bool scientific) {
    const auto expect = [scientific](const std::vector<Measured>& values) {
        Each<std::string> texts;
        for (const Measured& measured : values)
            for (const std::string& text : scientific ? measured.scientific : measured.fixed)
                texts.values.push_back(text);
        return texts;
    };
    Work(work, 0, Values, expect)
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
    Add("fixed", false);
    Add("scientific", true);
}

}  // namespace tev::bench
