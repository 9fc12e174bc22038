#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>

#include "fault/AllocationTable.h"
#include "fault/Allocator.h"
#include "fault/FirstUses.h"
#include "fault/GuardedMemory.h"
#include "fault/Ledger.h"
#include "fault/NeverFailed.h"
#include "support/Effort.h"

namespace {

// Fails a test that leaves an allocation or something of the system's behind, or releases one
// wrongly.
class BalanceListener : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override {
        tev::fault::CloseReleasesAgain();
        loansBefore_ = tev::fault::CountLoans();
        before_ = tev::fault::Now();
    }

    void OnTestEnd(const testing::TestInfo& test) override {
        const tev::fault::Counters after = tev::fault::Now();
        EXPECT_EQ(after.live - before_.live, OfGoogleTest(test)) << "allocations left behind";
        EXPECT_TRUE(MayRunOut(test) || after.unguarded == before_.unguarded)
            << "blocks without a guard";
        EXPECT_EQ(after.wrong - before_.wrong, 0) << "wrong releases";
        ExpectNoLoans(tev::fault::CountLoans());
    }

    // What a test records, short texts, GoogleTest keeps in one block.
    static std::ptrdiff_t OfGoogleTest(const testing::TestInfo& test) {
        return test.result()->test_property_count() > 0 ? 1 : 0;
    }

    // One test holds more blocks at once than there are guards, and more than the system has
    // mappings for.
    static bool MayRunOut(const testing::TestInfo& test) {
        using namespace std::string_view_literals;
        return test.test_suite_name() == "ExtractKeyValueDataFromVARIANT"sv &&
               test.name() == "ManyEntries"sv;
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

// What the tests came to in numbers, into the report.
class Totals : public testing::Environment {
    void TearDown() override {
        const auto& rows = tev::fault::RegisteredRows();
        const auto allocating = std::count_if(rows.begin(), rows.end(), [](const auto& row) {
            return row.effect == tev::fault::Effect::Allocates;
        });
        testing::Test::RecordProperty("AllocationRows", std::to_string(allocating));
        testing::Test::RecordProperty("RefusedAllocations",
                                      std::to_string(tev::fault::Now().refused));
    }
};

// The module's file and the place in it, as addr2line takes it beside the image's base.
std::string InstructionAt(const void* address) {
    HMODULE module = nullptr;
    char file[MAX_PATH] = "no module";
    const DWORD how =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (GetModuleHandleExA(how, static_cast<LPCSTR>(address), &module))
        GetModuleFileNameA(module, file, MAX_PATH);
    const auto offset = static_cast<const char*>(address) - reinterpret_cast<char*>(module);
    return std::string(file) + " + " + std::to_string(offset);
}

// A trap ends the program, which then leaves no report; this tells where, and what was touched.
LONG CALLBACK TellTrap(EXCEPTION_POINTERS* trap) {
    const EXCEPTION_RECORD& record = *trap->ExceptionRecord;
    const auto* address = reinterpret_cast<const void*>(
        record.ExceptionCode == EXCEPTION_ACCESS_VIOLATION ? record.ExceptionInformation[1] : 0);
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    std::fprintf(
        stderr, "exception %lx at %s, %s, in %s.%s\n", record.ExceptionCode,
        InstructionAt(record.ExceptionAddress).c_str(), tev::fault::WhereIs(address).c_str(),
        test == nullptr ? "" : test->test_suite_name(), test == nullptr ? "no test" : test->name());
    return EXCEPTION_EXECUTE_HANDLER;
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    SetUnhandledExceptionFilter(TellTrap);
    tev::fault::StartGuarding();
    tev::test::effortDivisor = 50;
    testing::AddGlobalTestEnvironment(new tev::fault::FirstUses);
    testing::AddGlobalTestEnvironment(new Totals);
    testing::AddGlobalTestEnvironment(new tev::fault::FailedCalls);
    testing::UnitTest::GetInstance()->listeners().Append(new BalanceListener);
    return RUN_ALL_TESTS();
}
