#pragma once

#include <cstddef>
#include <exception>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <typeinfo>

#include "fault/Allocator.h"

// Tables of exported functions whose every allocation is made to fail:
//
//   void Copies(Attempt& attempt) {
//       Text copy;
//       const bool made =
//           attempt.Call([&] { return TEVUtilString::Copy(kText, copy.Out(), nullptr); });
//       EXPECT_EQ(copy.str(), attempt.Succeeded(made) ? kText : "(null)");
//   }
//
//   const AllocatingFunctions functions{
//       {"TEVUtilString::Copy(char const*, char**, unsigned long long*)", "", Copies},
//   };
//
// Each row is a test. It runs with the first allocation failing, the second, and so on until none
// is left to fail, each alone and with all that follow it, and after each fault once without any.
// Nothing may be left behind, nothing be released wrongly.
namespace tev::fault {

struct Fault {
    std::ptrdiff_t n;
    Mode mode;
};

// Calls `use` under the fault; gives whether an allocation was refused.
template <typename Use>
bool IsRefused(const Fault& fault, Use use) {
    const std::ptrdiff_t before = Now().refused;
    FailAllocation(fault.n, fault.mode);
    use();
    StopFailing();
    return Now().refused != before;
}

// One run of a row: one Call, one verdict.
class Attempt {
 public:
    explicit Attempt(std::optional<Fault> fault, const void* ready = nullptr)
        : fault_(fault), ready_(ready) {}
    Attempt(const Attempt&) = delete;
    Attempt& operator=(const Attempt&) = delete;

    // What the row prepared.
    template <typename Prepared>
    const Prepared& Ready() const {
        return *static_cast<const Prepared*>(ready_);
    }

    // Makes the call of the library, and nothing beside it, under the fault: convert arguments
    // before. What leaves it is caught; the result is then a default one.
    template <typename Work>
    std::invoke_result_t<Work> Call(Work work) {
        using Result = std::invoke_result_t<Work>;
        Begin();
        try {
            if constexpr (std::is_void_v<Result>) {
                work();
                return End();
            } else {
                Result result = work();
                End();
                return result;
            }
        } catch (...) {
            End();
            thrown_ = std::current_exception();
        }
        if constexpr (!std::is_void_v<Result>) return Result{};
    }

    // Whether an exception of exactly this type left the call. One that no row asks about fails it.
    template <typename Exception>
    bool Threw() {
        isThrownExpected_ = true;
        if (thrown_ == nullptr) return false;
        try {
            std::rethrow_exception(thrown_);
        } catch (const Exception& exception) {
            return typeid(exception) == typeid(Exception);
        } catch (...) {
            return false;
        }
    }
    // The text of what left the call, "(nothing)" if nothing did.
    std::string ThrownText() const;

    // The row's verdict: whether the call did what it does with enough memory. It must be true when
    // no allocation failed and false when one did.
    bool Succeeded(bool success);
    // To be said before the verdict of a call that may also succeed after a fault; `why` tells the
    // reader what makes up for it.
    void MaySucceedDespiteFault(const char* why) { whyDespite_ = why; }

    // Whether an allocation was refused.
    bool IsFaulted() const { return refused_ > 0; }
    std::ptrdiff_t Allocations() const { return allocations_; }
    // For the driver, at the end.
    void ExpectComplete() const;

 private:
    void Begin();
    void End();

    std::optional<Fault> fault_;
    const void* ready_;
    int calls_ = 0;
    int verdicts_ = 0;
    std::ptrdiff_t allocations_ = 0;
    std::ptrdiff_t refused_ = 0;
    const char* whyDespite_ = nullptr;
    std::exception_ptr thrown_;
    bool isThrownExpected_ = false;
};

struct AllocationRow {
    // As ShortName (AllocationTable.h) gives an exported name.
    const char* function;
    // What sets the row apart from others of the function; may be empty.
    const char* path;
    void (*run)(Attempt&);
    // What all runs of the row share because making it takes long; a run must leave it as it is.
    std::shared_ptr<const void> (*prepare)() = nullptr;
};

template <typename Prepared>
std::shared_ptr<const void> Prepare() {
    return std::make_shared<const Prepared>();
}

// Functions that allocate: at least one fault must reach each row.
struct AllocatingFunctions {
    AllocatingFunctions(std::initializer_list<AllocationRow> rows,
                        const char* file = __builtin_FILE(), int line = __builtin_LINE());
};

// Functions that never allocate, or paths of others that do not: no attempt must be made. The
// functions stand in no_allocation.txt, too.
struct IdleFunctions {
    IdleFunctions(std::initializer_list<AllocationRow> rows, const char* file = __builtin_FILE(),
                  int line = __builtin_LINE());
};

}  // namespace tev::fault
