#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "docs/Page.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::Cells;
using tev::test::Example;
using tev::test::RowsOf;

// What is run is the text on the page itself.
#define TEV_ARGUMENTS(...)                                                                    \
    {                                                                                         \
        "(" #__VA_ARGS__ ")", [] { return '`' + TEVUtilString::ToString(__VA_ARGS__) + '`'; } \
    }

TEST(NumbersPage, TextsOfNumbersHold) {
    const std::vector<Example> examples = {
        TEV_ARGUMENTS(-42),
        TEV_ARGUMENTS('R', 42, 6, false, true),
        TEV_ARGUMENTS('R', 42, 6, true, true),
        TEV_ARGUMENTS('R', -42, 6, false, true),
        TEV_ARGUMENTS('R', 123456, 3, false, false),
        TEV_ARGUMENTS('R', 3.14159, 8, 2, false, true),
        TEV_ARGUMENTS('R', std::uint64_t{8}, 5u, false, true),
        TEV_ARGUMENTS(2.5, false, 3),
        TEV_ARGUMENTS(1500.0, true, 2),
        TEV_ARGUMENTS(0.1, false, -1),
    };
    std::vector<Cells> rows = RowsOf("numbers.md", "Numbers to text");
    for (Cells& row : rows) row[0] = row[0].substr(0, row[0].find('`', 1) + 1);
    std::vector<Cells> plain;
    for (const Cells& row : rows)
        if (row[1].front() == '`' && row[1].back() == '`') plain.push_back(row);
    tev::test::ExpectRowsHold(plain, examples);
}

std::string Figures(double value, double uncertainty, bool scientific) {
    char* valueText = nullptr;
    char* uncertaintyText = nullptr;
    if (!TEVUtilString::SignificantFigures(value, uncertainty, &valueText, &uncertaintyText,
                                           scientific))
        return "refused";
    const std::string texts = '`' + std::string(valueText) + "`, `" + uncertaintyText + '`';
    TEVUtilString::DeleteCString(&valueText);
    TEVUtilString::DeleteCString(&uncertaintyText);
    return texts;
}

TEST(NumbersPage, FiguresOfMeasuredValuesHold) {
    int checked = 0;
    for (const Cells& row : RowsOf("numbers.md", "Measured values")) {
        double value = 0;
        double uncertainty = 0;
        if (row.size() != 4 || !TEVUtilString::ToDouble(row[0].c_str(), value)) continue;
        ASSERT_TRUE(TEVUtilString::ToDouble(row[1].c_str(), uncertainty)) << row[1];
        EXPECT_EQ(Figures(value, uncertainty, false), row[2]) << row[0];
        EXPECT_EQ(Figures(value, uncertainty, true), row[3]) << row[0];
        ++checked;
    }
    EXPECT_GE(checked, 7);
}

}  // namespace
