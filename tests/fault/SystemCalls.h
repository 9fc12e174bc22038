#pragma once

#include <windows.h>
// The other system headers need windows.h before them.
#include <cpl_string.h>
#include <cpl_vsi.h>
#include <oleauto.h>
#include <psapi.h>
#include <shlobj.h>

#include <cstdlib>
#include <functional>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>

// The calls that the library's objects make of the system. The linker leads them through the
// objects in tev::fault::calls, of the same names: the library itself has no seam. The tests' own
// calls go the same way, those of other threads pass by.
namespace tev::fault {

// True on the thread that runs the tests.
bool IsTestThread();

template <typename Function>
class SystemCall;

template <typename Result, typename... Args>
class SystemCall<Result(Args...)> {
 public:
    using Answer = std::function<Result(Args...)>;
    // What a call gave; something empty where it gives nothing.
    using Outcome = std::conditional_t<std::is_void_v<Result>, std::monostate, Result>;
    using Before = void (*)(Args...);
    using After = void (*)(Outcome, Args...);

    explicit constexpr SystemCall(Result (*const* real)(Args...)) : real_(real) {}

    // Calls the system, whatever answers in its place.
    Result Real(Args... args) const { return (*real_)(args...); }
    // Calls made so far.
    int Count() const { return count_; }
    // How often a test has let it fail so far.
    int Failures() const { return failures_; }
    void TellFailure() { ++failures_; }
    // Functions to call around every call, whoever answers it.
    void WatchBefore(Before before) { before_ = before; }
    void WatchAfter(After after) { after_ = after; }
    // Lets `answer`, which must stay alive, answer from now on, or the system when it is null;
    // gives what answered until now.
    const Answer* Exchange(const Answer* answer) { return std::exchange(answer_, answer); }
    const Answer* Answering() const { return answer_; }
    Result Ask(const Answer* answer, Args... args) const {
        return answer == nullptr ? Real(args...) : (*answer)(args...);
    }

    Result Make(Args... args) {
        if (!IsTestThread()) return Real(args...);
        ++count_;
        if (before_ != nullptr) before_(args...);
        if constexpr (std::is_void_v<Result>) {
            Ask(answer_, args...);
            if (after_ != nullptr) after_({}, args...);
        } else {
            const Result result = Ask(answer_, args...);
            if (after_ != nullptr) after_(result, args...);
            return result;
        }
    }
    template <SystemCall& call>
    static Result Enter(Args... args) {
        return call.Make(args...);
    }

 private:
    Result (*const* real_)(Args...);
    int count_ = 0;
    int failures_ = 0;
    const Answer* answer_ = nullptr;
    Before before_ = nullptr;
    After after_ = nullptr;
};

// The kind of object for a function, whatever attributes its declaration has.
template <typename Result, typename... Args>
SystemCall<Result(Args...)> CallOf(Result (*)(Args...));

// Answers a call in the system's place until the end of the scope.
template <typename Result, typename... Args>
class Replace {
 public:
    using Call = SystemCall<Result(Args...)>;

    Replace(Call& call, typename Call::Answer answer)
        : call_(call), answer_(std::move(answer)), outer_(call.Exchange(&answer_)) {}
    ~Replace() { call_.Exchange(outer_); }
    Replace(const Replace&) = delete;
    Replace& operator=(const Replace&) = delete;

 private:
    Call& call_;
    const typename Call::Answer answer_;
    const typename Call::Answer* outer_;
};

// Until the end of the scope the n-th call from now on, counted from 0, gives `result` and leaves
// `error` as the last error; a negative n stands for every call.
template <typename Result, typename... Args>
[[nodiscard]] Replace<Result, Args...> FailNth(int n, SystemCall<Result(Args...)>& call,
                                               std::common_type_t<Result> result,
                                               DWORD error = ERROR_SUCCESS) {
    return {call,
            [&call, outer = call.Answering(), result, error, n,
             made = 0](Args... args) mutable -> Result {
                if (n >= 0 && made++ != n) return call.Ask(outer, args...);
                call.TellFailure();
                SetLastError(error);
                return result;
            }};
}

template <typename Result, typename... Args>
[[nodiscard]] Replace<Result, Args...> Fail(SystemCall<Result(Args...)>& call,
                                            std::common_type_t<Result> result,
                                            DWORD error = ERROR_SUCCESS) {
    return FailNth(-1, call, result, error);
}

// As Replace, for an answer that is a failure each time.
template <typename Result, typename... Args>
[[nodiscard]] Replace<Result, Args...> FailBy(SystemCall<Result(Args...)>& call,
                                              typename SystemCall<Result(Args...)>::Answer answer) {
    return {call, [&call, answer = std::move(answer)](Args... args) -> Result {
                call.TellFailure();
                return answer(args...);
            }};
}

// The calls that no test has let fail until now.
std::set<std::string> NeverFailed();

// Counts the calls made since its construction.
template <typename Function>
class Calls {
 public:
    explicit Calls(const SystemCall<Function>& call) : call_(call), before_(call.Count()) {}
    int Made() const { return call_.Count() - before_; }

 private:
    const SystemCall<Function>& call_;
    int before_;
};

// The names stand in CMakeLists.txt, which tells them to the linker too.
namespace calls {
#define TEV_SYSTEM_CALL(NAME) extern decltype(CallOf(&::NAME)) NAME;
#include "SystemCallNames.inc"
#undef TEV_SYSTEM_CALL
}  // namespace calls

}  // namespace tev::fault
