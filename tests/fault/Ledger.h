#pragma once

#include <array>
#include <cstddef>

// What the system calls lend and want back, counted from the calls in SystemCalls.h. What a fake
// answer lends counts too.
namespace tev::fault {

enum class Loan : std::size_t {
    Bstr,
    Array,
    ArrayLock,
    SearchFolder,
    Module,
    LocalMemory,
    Process,
    Listing,
    EnvironmentBlock,
    TaskMemory,
    RpcString,
    File,
};

struct Loans {
    static constexpr std::array kNames{
        "BSTRs",        "arrays",    "locks of arrays", "DLL search folders", "modules",
        "local memory", "processes", "file listings",   "environment blocks", "task memory",
        "RPC strings",  "files",
    };

    std::ptrdiff_t Of(Loan kind) const { return live[static_cast<std::size_t>(kind)]; }

    std::array<std::ptrdiff_t, kNames.size()> live{};  // not given back until now
    std::ptrdiff_t wrong = 0;  // given back without having been lent, or twice
};

// From the first call on the ledger is kept.
Loans CountLoans();

}  // namespace tev::fault
