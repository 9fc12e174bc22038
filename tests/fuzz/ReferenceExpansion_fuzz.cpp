#include <algorithm>
#include <map>

#include "TEVSystemLib/system/detail/ReferenceExpansion.h"
#include "fuzz/Fuzz.h"

using TAMO::TEV::System::detail::ExpandReferences;
using TAMO::TEV::System::detail::NameLookup;

namespace {

using Table = std::map<std::string, std::string>;

// The rule step by step: a result, and the work text that is still to be looked at.
std::string Model(std::string work, const Table& table, std::vector<std::string>& asked) {
    std::string result;
    for (std::size_t mark = work.find('%'); mark != std::string::npos; mark = work.find('%')) {
        result += work.substr(0, mark);
        work = work.substr(mark + 1);
        const std::size_t next = work.find('%');
        if (next == std::string::npos) {
            result += '%';
            continue;
        }
        const std::string name = work.substr(0, next);
        work = work.substr(next + 1);
        asked.push_back(name);
        const auto entry = table.find(name);
        result += entry == table.end() ? '%' + name + '%' : entry->second;
    }
    return result + work;
}

// Two marks at least make way for one value, and nothing put in is looked at again: no text grows
// beyond its own length and one longest value for every two marks.
std::size_t Bound(const std::string& text, std::size_t longestValue) {
    const auto marks = static_cast<std::size_t>(std::count(text.begin(), text.end(), '%'));
    return text.size() + marks / 2 * (longestValue > 2 ? longestValue - 2 : 0);
}

std::size_t Longest(const Table& table) {
    std::size_t longest = 0;
    for (const auto& [name, value] : table) longest = std::max(longest, value.size());
    return longest;
}

std::string Expand(const std::string& text, const Table& table) {
    std::vector<std::string> asked;
    const NameLookup lookup = [&](const std::string& name) {
        asked.push_back(name);
        const auto entry = table.find(name);
        return entry == table.end() ? nullptr : &entry->second;
    };
    const tev::fuzz::Exact exact(text);
    std::string expanded = ExpandReferences(exact.View(), lookup);
    std::vector<std::string> expectedNames;
    tev::fuzz::ExpectSame(expanded, Model(text, table, expectedNames), "one pass");
    tev::fuzz::ExpectSame(asked, expectedNames, "every name once, from left to right");
    tev::fuzz::Expect(expanded.size() <= Bound(text, Longest(table)), "bounded growth");
    return expanded;
}

// As the store does it: every value in key order, each seeing those before it expanded. By the rule
// a chain of entries multiplies; the bound tells beforehand, and a chain beyond the limit stops.
void ExpandTable(Table table) {
    constexpr std::size_t kLimit = 1 << 14;
    for (auto& [name, value] : table) {
        if (Bound(value, Longest(table)) > kLimit) return;
        value = Expand(value, table);
    }
}

}  // namespace

// TEXT, then NAME and VALUE in turn.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tev::fuzz::Fields fields(data, size);
    const std::string text = fields.Next();
    Table table;
    while (!fields.AtEnd()) {
        const std::string name = fields.Next();
        table[name] = fields.Next();
    }
    Expand(text, table);
    ExpandTable(table);
    return 0;
}
