// Every exported function is called by a job of the soak, or stands in the list of those that are
// called by one thread at a time.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>

namespace {

using Names = std::set<std::string>;
using ::testing::IsEmpty;

std::string Content(const std::string& path) {
    std::ifstream file(path);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

Names LinesOf(const char* path) {
    std::istringstream file(Content(path));
    Names lines;
    for (std::string line; std::getline(file, line);)
        if (!line.empty() && line.front() != '#') lines.insert(line);
    return lines;
}

// Class and name of an exported function, without its namespaces and arguments; empty for data.
std::string NameOf(const std::string& exported) {
    const std::size_t end = exported.find_first_of("([");
    if (exported.find('(') == std::string::npos) return "";
    const std::size_t name = exported.rfind("::", end);
    const std::size_t nameOfClass = exported.rfind("::", name - 1);
    return exported.substr(nameOfClass + 2, end - nameOfClass - 2);
}

Names Functions() {
    Names names;
    for (const std::string& exported : LinesOf(TEV_EXPORT_LIST)) names.insert(NameOf(exported));
    names.erase("");
    return names;
}

std::string Sources() {
    std::istringstream names(TEV_SOAK_SOURCES);
    std::string sources;
    for (std::string name; std::getline(names, name, '|');)
        sources += Content(TEV_SOAK_FOLDER + name);
    return sources;
}

// Called, or its address taken; an object's function is called by its name alone.
bool IsCalled(const std::string& sources, const std::string& name) {
    const std::string object = "TEVIO::";
    if (name.compare(0, object.size(), object) == 0 &&
        sources.find("." + name.substr(object.size()) + "(") != std::string::npos)
        return true;
    for (const char* end : {"(", ",", ")"})
        if (sources.find(name + end) != std::string::npos) return true;
    return false;
}

bool IsListed(const Names& listed, const std::string& name) {
    return listed.count(name) != 0 || listed.count(name.substr(0, name.find("::") + 2)) != 0;
}

TEST(SoakCoverage, EveryExportedFunctionIsCalledOrListed) {
    const Names functions = Functions();
    ASSERT_GT(functions.size(), 150U) << TEV_EXPORT_LIST;
    const Names listed = LinesOf(TEV_NO_PROMISE_LIST);
    const std::string sources = Sources();
    Names missing;
    for (const std::string& name : functions)
        if (!IsListed(listed, name) && !IsCalled(sources, name)) missing.insert(name);
    EXPECT_THAT(missing, IsEmpty()) << "add calls, or the names to " << TEV_NO_PROMISE_LIST;
}

TEST(SoakCoverage, NoNameIsStale) {
    const Names functions = Functions();
    for (const std::string& name : LinesOf(TEV_NO_PROMISE_LIST)) {
        const auto found = functions.lower_bound(name);
        const bool isThere = found != functions.end() && found->compare(0, name.size(), name) == 0;
        EXPECT_TRUE(isThere) << name;
    }
}

}  // namespace
