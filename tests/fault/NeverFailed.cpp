#include "fault/NeverFailed.h"

#include <gmock/gmock.h>

#include <fstream>
#include <set>
#include <string>

#include "fault/SystemCalls.h"

namespace tev::fault {

namespace {

std::set<std::string> Listed() {
    std::ifstream file(TEV_NEVER_FAILED_LIST);
    EXPECT_TRUE(file.is_open()) << TEV_NEVER_FAILED_LIST;
    std::set<std::string> names;
    for (std::string line; std::getline(file, line);)
        if (!line.empty() && line.front() != '#') names.insert(line);
    return names;
}

}  // namespace

void FailedCalls::TearDown() {
    if (testing::GTEST_FLAG(filter) != "*") return;
    EXPECT_THAT(NeverFailed(), testing::ContainerEq(Listed()))
        << "system calls that no test lets fail, and those in " << TEV_NEVER_FAILED_LIST;
}

}  // namespace tev::fault
