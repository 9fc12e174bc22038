#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <gtest/gtest.h>

#include "fault/Allocator.h"
#include "fault/Ledger.h"

namespace {

// Fails a test that leaves an allocation or something of the system's behind, or releases one
// wrongly.
class BalanceListener : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override {
        loansBefore_ = tev::fault::CountLoans();
        before_ = tev::fault::Now();
    }

    void OnTestEnd(const testing::TestInfo&) override {
        const tev::fault::Counters after = tev::fault::Now();
        EXPECT_EQ(after.live - before_.live, 0) << "allocations left behind";
        EXPECT_EQ(after.wrong - before_.wrong, 0) << "wrong releases";
        ExpectNoLoans(tev::fault::CountLoans());
    }

    void ExpectNoLoans(const tev::fault::Loans& after) const {
        for (std::size_t i = 0; i < after.live.size(); ++i)
            EXPECT_EQ(after.live[i] - loansBefore_.live[i], 0)
                << tev::fault::Loans::kNames[i] << " left behind";
        EXPECT_EQ(after.wrong - loansBefore_.wrong, 0) << "wrong returns to the system";
    }

    tev::fault::Counters before_;
    tev::fault::Loans loansBefore_;
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
