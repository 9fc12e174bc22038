#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <gtest/gtest.h>

#include "fault/Allocator.h"

namespace {

// Fails a test that leaves an allocation behind or releases one wrongly.
class BalanceListener : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { before_ = tev::fault::Now(); }

    void OnTestEnd(const testing::TestInfo&) override {
        const tev::fault::Counters after = tev::fault::Now();
        EXPECT_EQ(after.live - before_.live, 0) << "allocations left behind";
        EXPECT_EQ(after.unguarded - before_.unguarded, 0) << "blocks without a guard";
        EXPECT_EQ(after.wrong - before_.wrong, 0) << "wrong releases";
    }

    tev::fault::Counters before_;
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    tev::fault::StartGuarding();
    // GoogleTest keeps its trace stack from the first use on.
    { SCOPED_TRACE("first use"); }
    // The store lives as long as the process: it is no test's to release.
    TAMO::TEV::System::TEVSystemProperties::InitializeProperties();
    testing::UnitTest::GetInstance()->listeners().Append(new BalanceListener);
    return RUN_ALL_TESTS();
}
