#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tev::test {

using Cells = std::vector<std::string>;

// The rows of the tables below a heading of a page in docs/, up to the next heading of its rank,
// without the heads of the tables. Fails the test when there is none.
std::vector<Cells> RowsOf(std::string_view page, std::string_view heading);

// What stands between back quotes in a cell.
std::vector<std::string> CodesIn(std::string_view cell);

// A call as a page writes it, and what it gives as a page writes that.
struct Example {
    std::string call;
    std::string (*run)();
};

// Each row that begins with a call and nothing else, and each example, has its like on the other
// side, and gives what the row says.
void ExpectRowsHold(const std::vector<Cells>& rows, const std::vector<Example>& examples);

}  // namespace tev::test
