#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <gtest/gtest.h>

#include "fault/Allocator.h"

namespace {

// Fails a test that leaves an allocation behind or releases one wrongly.
class BalanceListener : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override {
        live_ = tev::fault::LiveAllocations();
        wrong_ = tev::fault::WrongReleases();
    }

    void OnTestEnd(const testing::TestInfo&) override {
        EXPECT_EQ(tev::fault::LiveAllocations() - live_, 0) << "allocations left behind";
        EXPECT_EQ(tev::fault::WrongReleases() - wrong_, 0) << "wrong releases";
    }

    std::ptrdiff_t live_ = 0;
    std::ptrdiff_t wrong_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // GoogleTest keeps its trace stack from the first use on.
    { SCOPED_TRACE("first use"); }
    // The store lives as long as the process: it is no test's to release.
    TAMO::TEV::System::TEVSystemProperties::InitializeProperties();
    testing::UnitTest::GetInstance()->listeners().Append(new BalanceListener);
    return RUN_ALL_TESTS();
}
