#pragma once

#include <gtest/gtest.h>

namespace tev::fault {

// Makes what lives as long as the process, before the first test: the store and the expression of
// IsValidUUID. No test is to release them, and no row can make them twice; so every allocation of
// their making fails here, with all that follow it and alone.
class FirstUses : public testing::Environment {
 public:
    void SetUp() override;
};

}  // namespace tev::fault
