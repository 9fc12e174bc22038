#pragma once

#include <gtest/gtest.h>

namespace tev::fault {

// At the end of a run of all tests: each watched system call was let fail, or stands in
// never_failed.txt.
class FailedCalls : public testing::Environment {
 public:
    void TearDown() override;
};

}  // namespace tev::fault
