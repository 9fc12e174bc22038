#include "fault/AllocationFaults.h"

#include <gtest/gtest.h>

#include <cctype>

#include "fault/AllocationTable.h"

namespace tev::fault {

namespace {

constexpr std::ptrdiff_t kTooMany = 100000;

// Runs the row once and checks that nothing is left of it; gives whether a fault reached it.
bool Try(const AllocationRow& row, const void* ready, std::optional<Fault> fault,
         std::ptrdiff_t* allocations) {
    const Counters before = Now();
    bool isFaulted = false;
    {
        Attempt attempt(fault, ready);
        row.run(attempt);
        attempt.ExpectComplete();
        isFaulted = attempt.IsFaulted();
        *allocations = attempt.Allocations();
    }
    const Counters after = Now();
    EXPECT_EQ(after.live - before.live, 0) << "allocations left behind";
    EXPECT_EQ(after.wrong - before.wrong, 0) << "wrong releases";
    return isFaulted;
}

void ExpectAllFaultsBorne(const AllocationRow& row, const void* ready, Mode mode) {
    std::ptrdiff_t allocations = 0;
    for (std::ptrdiff_t n = 0; !testing::Test::HasFailure(); ++n) {
        ASSERT_LT(n, kTooMany) << "the faults never end";
        SCOPED_TRACE(testing::Message() << "allocation " << n << " fails"
                                        << (mode == Mode::Once ? "" : " and all that follow"));
        if (!Try(row, ready, Fault{n, mode}, &allocations)) {
            EXPECT_GT(n, 0) << "nothing was allocated: a row for IdleFunctions";
            return;
        }
        SCOPED_TRACE("after it, with enough memory");
        Try(row, ready, std::nullopt, &allocations);
    }
}

void ExpectNoAllocation(const AllocationRow& row) {
    std::ptrdiff_t allocations = 0;
    Try(row, nullptr, Fault{0, Mode::FromThenOn}, &allocations);
    EXPECT_EQ(allocations, 0);
}

class RowTest : public testing::Test {
 public:
    RowTest(const AllocationRow& row, Effect effect) : row_(row), effect_(effect) {}

    void TestBody() override {
        SCOPED_TRACE(row_.function);
        if (effect_ == Effect::Idle) return ExpectNoAllocation(row_);
        const std::shared_ptr<const void> ready = row_.prepare ? row_.prepare() : nullptr;
        ExpectAllFaultsBorne(row_, ready.get(), Mode::Once);
        ExpectAllFaultsBorne(row_, ready.get(), Mode::FromThenOn);
    }

 private:
    AllocationRow row_;
    Effect effect_;
};

// GoogleTest's filters know letters, digits and a few signs with a meaning of their own.
std::string TestName(const AllocationRow& row) {
    std::string name;
    for (const char c : std::string(row.function) + ' ' + row.path)
        if (std::isalnum(static_cast<unsigned char>(c)) != 0)
            name += c;
        else if (!name.empty() && name.back() != '_')
            name += '_';
    return name.substr(0, name.find_last_not_of('_') + 1);
}

void Register(std::initializer_list<AllocationRow> rows, Effect effect, const char* file,
              int line) {
    const char* suite = effect == Effect::Idle ? "NoAllocation" : "AllocationFaults";
    for (const AllocationRow& row : rows) {
        RegisteredRows().push_back({row.function, effect});
        testing::RegisterTest(suite, TestName(row).c_str(), nullptr, nullptr, file, line,
                              [row, effect] { return new RowTest(row, effect); });
    }
}

}  // namespace

void Attempt::Begin() {
    ++calls_;
    const Counters before = Now();
    allocations_ = -before.attempts;
    refused_ = -before.refused;
    if (fault_) FailAllocation(fault_->n, fault_->mode);
}

void Attempt::End() {
    StopFailing();
    const Counters after = Now();
    allocations_ += after.attempts;
    refused_ += after.refused;
}

std::string Attempt::ThrownText() const {
    if (thrown_ == nullptr) return "(nothing)";
    try {
        std::rethrow_exception(thrown_);
    } catch (const std::exception& exception) {
        return exception.what();
    } catch (...) {
        return "(no std::exception)";
    }
}

bool Attempt::Succeeded(bool success) {
    ++verdicts_;
    const bool isAllowed = success != IsFaulted() || (success && whyDespite_ != nullptr);
    EXPECT_TRUE(isAllowed) << (success ? "succeeded although an allocation failed"
                                       : "failed with enough memory; thrown: " + ThrownText());
    return success;
}

void Attempt::ExpectComplete() const {
    EXPECT_EQ(calls_, 1) << "a row makes one Call";
    EXPECT_EQ(verdicts_, 1) << "a row gives one verdict";
    EXPECT_TRUE(thrown_ == nullptr || isThrownExpected_) << "left the call: " << ThrownText();
}

AllocatingFunctions::AllocatingFunctions(std::initializer_list<AllocationRow> rows,
                                         const char* file, int line) {
    Register(rows, Effect::Allocates, file, line);
}

IdleFunctions::IdleFunctions(std::initializer_list<AllocationRow> rows, const char* file,
                             int line) {
    Register(rows, Effect::Idle, file, line);
}

}  // namespace tev::fault
