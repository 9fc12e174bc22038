#include "fault/AllocationTable.h"

namespace tev::fault {

namespace {

void EraseAll(std::string& text, const std::string& part) {
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part))
        text.erase(at, part.size());
}

// The end of the template argument that starts at `at`, with the blank that keeps ">" apart.
std::size_t EndOfArgument(const std::string& text, std::size_t at) {
    int depth = 0;
    do {
        at = text.find_first_of("<>", at);
        depth += text[at++] == '<' ? 1 : -1;
    } while (depth > 0);
    return at + (text.compare(at, 2, " >") == 0 ? 1 : 0);
}

void EraseArguments(std::string& text, const std::string& start) {
    for (auto at = text.find(start); at != std::string::npos; at = text.find(start))
        text.erase(at, EndOfArgument(text, at) - at);
}

}  // namespace

std::vector<RegisteredRow>& RegisteredRows() {
    static std::vector<RegisteredRow> rows;
    return rows;
}

std::string ShortName(std::string exported) {
    EraseAll(exported, "TAMO::TEV::System::Util::");
    EraseAll(exported, "TAMO::TEV::System::");
    EraseAll(exported, "[abi:cxx11]");
    EraseAll(exported, "__cxx11::");
    EraseArguments(exported, ", std::char_traits<");
    EraseArguments(exported, ", std::less<");
    EraseArguments(exported, ", std::allocator<");
    const std::string longString = "basic_string<char>";
    for (auto at = exported.find(longString); at != std::string::npos;
         at = exported.find(longString))
        exported.replace(at, longString.size(), "string");
    return exported;
}

}  // namespace tev::fault
