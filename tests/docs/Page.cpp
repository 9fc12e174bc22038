#include "docs/Page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace tev::test {

namespace {

std::string Trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? ""
                                      : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// "| a | b |" without the bars; one behind a backslash is no border.
Cells CellsOf(const std::string& line) {
    Cells cells;
    std::string cell;
    for (std::size_t i = 1; i < line.size(); ++i) {
        if (line[i] == '\\' && i + 1 < line.size() && line[i + 1] == '|') {
            cell += line[++i];
        } else if (line[i] == '|') {
            cells.push_back(Trimmed(cell));
            cell.clear();
        } else {
            cell += line[i];
        }
    }
    return cells;
}

bool IsCall(const std::string& cell) {
    return cell.size() > 2 && cell.front() == '`' && cell.find('`', 1) == cell.size() - 1 &&
           cell[cell.size() - 2] == ')';
}

}  // namespace

std::vector<Cells> RowsOf(std::string_view page, std::string_view heading) {
    std::ifstream file(std::string(TEV_DOCS_DIR).append(page));
    std::vector<Cells> rows;
    bool isThere = false;
    for (std::string line; std::getline(file, line);) {
        if (line.rfind("## ", 0) == 0) isThere = line.substr(3) == heading;
        if (!isThere || line.empty() || line[0] != '|') continue;
        // The line of dashes tells that the row above was the head.
        if (line.rfind("|---", 0) == 0) {
            rows.pop_back();
        } else {
            rows.push_back(CellsOf(line));
        }
    }
    EXPECT_FALSE(rows.empty()) << page << " has no table below \"" << heading << '"';
    return rows;
}

std::vector<std::string> CodesIn(std::string_view cell) {
    std::vector<std::string> codes;
    for (std::size_t at = cell.find('`'); at != cell.npos;) {
        const std::size_t end = cell.find('`', at + 1);
        codes.emplace_back(cell.substr(at + 1, end - at - 1));
        at = end == cell.npos ? end : cell.find('`', end + 1);
    }
    return codes;
}

void ExpectRowsHold(const std::vector<Cells>& rows, const std::vector<Example>& examples) {
    std::vector<std::string> calls;
    for (const Cells& row : rows) {
        if (!IsCall(row[0])) continue;
        calls.push_back(CodesIn(row[0])[0]);
        const auto example =
            std::find_if(examples.begin(), examples.end(),
                         [&calls](const Example& known) { return known.call == calls.back(); });
        if (example == examples.end()) {
            ADD_FAILURE() << "no test runs " << calls.back();
        } else {
            EXPECT_EQ(example->run(), row[1]) << calls.back();
        }
    }
    for (const Example& example : examples)
        EXPECT_THAT(calls, ::testing::Contains(example.call)) << "not on the page";
}

}  // namespace tev::test
