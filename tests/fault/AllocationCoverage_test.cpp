// Every exported function has either rows or a place in the list of those that never allocate.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "fault/AllocationTable.h"

namespace tev::fault {

namespace {

using Names = std::set<std::string>;

Names LinesOf(const char* path) {
    std::ifstream file(path);
    Names lines;
    for (std::string line; std::getline(file, line);)
        if (!line.empty() && line.front() != '#') lines.insert(ShortName(line));
    return lines;
}

// Data has no parentheses.
Names ExportedFunctions() {
    Names names = LinesOf(TEV_EXPORT_LIST);
    for (auto name = names.begin(); name != names.end();)
        name = name->find('(') == std::string::npos ? names.erase(name) : std::next(name);
    return names;
}

Names RowsOf(Effect effect) {
    Names names;
    for (const RegisteredRow& row : RegisteredRows())
        if (row.effect == effect) names.insert(row.function);
    return names;
}

Names Missing(const Names& wanted, const Names& present) {
    Names missing;
    std::set_difference(wanted.begin(), wanted.end(), present.begin(), present.end(),
                        std::inserter(missing, missing.end()));
    return missing;
}

Names Both(Names names, const Names& more) {
    names.insert(more.begin(), more.end());
    return names;
}

TEST(ShortName, KeepsWhatTellsFunctionsApart) {
    EXPECT_EQ(ShortName("TAMO::TEV::System::Util::TEVStringOps::Delete(char*)"),
              "TEVStringOps::Delete(char*)");
    EXPECT_EQ(ShortName("TAMO::TEV::System::XCode::Make(TAMO::TEV::System::Util::TEVIO)"),
              "XCode::Make(TEVIO)");
    EXPECT_EQ(ShortName("TAMO::TEV::System::Util::TEVSysUtil::F()"), "TEVSysUtil::F()");
    EXPECT_EQ(ShortName("A::F[abi:cxx11](std::__cxx11::basic_string<char, std::char_traits<char>, "
                        "std::allocator<char> > const&)"),
              "A::F(std::string const&)");
    EXPECT_EQ(ShortName("A::F(std::vector<char*, std::allocator<char*> >**)"),
              "A::F(std::vector<char*>**)");
    EXPECT_EQ(ShortName("A::F(std::map<int, std::vector<char*, std::allocator<char*> >*, "
                        "std::less<int>, std::allocator<std::pair<int const, std::vector<char*, "
                        "std::allocator<char*> >*> > >&)"),
              "A::F(std::map<int, std::vector<char*>*>&)");
}

TEST(AllocationCoverage, EveryExportedFunctionHasARowOrIsListed) {
    const Names exported = ExportedFunctions();
    ASSERT_GT(exported.size(), 200U) << TEV_EXPORT_LIST;
    const Names covered = Both(RowsOf(Effect::Allocates), LinesOf(TEV_NO_ALLOCATION_LIST));
    EXPECT_THAT(Missing(exported, covered), testing::IsEmpty())
        << "add rows, or the names to " << TEV_NO_ALLOCATION_LIST;
}

TEST(AllocationCoverage, NoNameIsStale) {
    const Names exported = ExportedFunctions();
    EXPECT_THAT(Missing(LinesOf(TEV_NO_ALLOCATION_LIST), exported), testing::IsEmpty());
    EXPECT_THAT(Missing(RowsOf(Effect::Allocates), exported), testing::IsEmpty());
    EXPECT_THAT(Missing(RowsOf(Effect::Idle), exported), testing::IsEmpty());
}

TEST(AllocationCoverage, NoFunctionThatAllocatesIsListed) {
    const Names listed = LinesOf(TEV_NO_ALLOCATION_LIST);
    for (const std::string& function : RowsOf(Effect::Allocates))
        EXPECT_EQ(listed.count(function), 0U) << function;
    EXPECT_THAT(Missing(listed, RowsOf(Effect::Idle)), testing::IsEmpty())
        << "listed without a row that shows it";
    const Names known = Both(listed, RowsOf(Effect::Allocates));
    EXPECT_THAT(Missing(RowsOf(Effect::Idle), known), testing::IsEmpty()) << "not listed";
}

}  // namespace

}  // namespace tev::fault
