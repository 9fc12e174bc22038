#include "fault/Ledger.h"

#include <cstdlib>
#include <new>
#include <set>
#include <utility>

#include "fault/SystemCalls.h"

namespace tev::fault {

namespace {

// Past the program's operator new, whose calls are counted.
template <typename T>
struct PastTheCounters {
    using value_type = T;
    PastTheCounters() = default;
    template <typename Other>
    explicit PastTheCounters(const PastTheCounters<Other>&) {}
    T* allocate(std::size_t count) {
        void* memory = std::malloc(count * sizeof(T));
        if (memory == nullptr) throw std::bad_alloc();
        return static_cast<T*>(memory);
    }
    void deallocate(T* memory, std::size_t) { std::free(memory); }
    bool operator==(const PastTheCounters&) const { return true; }
    bool operator!=(const PastTheCounters&) const { return false; }
};

using Entry = std::pair<Loan, const void*>;
using Entries = std::multiset<Entry, std::less<>, PastTheCounters<Entry>>;

Entries entries;
Loans loans;

class KeptLastError {
 public:
    KeptLastError() = default;
    ~KeptLastError() { SetLastError(error_); }
    KeptLastError(const KeptLastError&) = delete;
    KeptLastError& operator=(const KeptLastError&) = delete;

 private:
    const DWORD error_ = GetLastError();
};

void Lend(Loan kind, const void* what) {
    const KeptLastError kept;
    if (what == nullptr) return;
    entries.emplace(kind, what);
    ++loans.live[static_cast<std::size_t>(kind)];
}

// Gives false for what is not lent.
bool Forget(Loan kind, const void* what) {
    const KeptLastError kept;
    const auto found = entries.find(Entry(kind, what));
    if (found == entries.end()) return false;
    entries.erase(found);
    --loans.live[static_cast<std::size_t>(kind)];
    return true;
}

void GiveBack(Loan kind, const void* what) {
    if (what != nullptr && !Forget(kind, what)) ++loans.wrong;
}

BSTR* TextsOf(const SAFEARRAY* array) {
    return (array->fFeatures & FADF_BSTR) != 0 ? static_cast<BSTR*>(array->pvData) : nullptr;
}

// The texts that an array owns go with it, past the calls.
void ForgetTextsOf(const SAFEARRAY* array) {
    if (array == nullptr || array->cLocks != 0 || TextsOf(array) == nullptr) return;
    std::size_t count = 1;
    for (USHORT i = 0; i < array->cDims; ++i) count *= array->rgsabound[i].cElements;
    for (std::size_t i = 0; i < count; ++i) Forget(Loan::Bstr, TextsOf(array)[i]);
}

void ForgetContentOf(const VARIANT* variant) {
    if (variant->vt == VT_BSTR) Forget(Loan::Bstr, variant->bstrVal);
    if ((variant->vt & VT_ARRAY) == 0 || (variant->vt & VT_BYREF) != 0) return;
    ForgetTextsOf(variant->parray);
    if (variant->parray != nullptr && variant->parray->cLocks == 0)
        Forget(Loan::Array, variant->parray);
}

void WatchTexts() {
    calls::SysAllocString.WatchAfter([](BSTR made, auto...) { Lend(Loan::Bstr, made); });
    calls::SysAllocStringLen.WatchAfter([](BSTR made, auto...) { Lend(Loan::Bstr, made); });
    calls::SafeArrayGetElement.WatchAfter(
        [](HRESULT result, SAFEARRAY* array, LONG*, void* element) {
            if (SUCCEEDED(result) && TextsOf(array) != nullptr)
                Lend(Loan::Bstr, *static_cast<BSTR*>(element));
        });
    calls::SysFreeString.WatchAfter([](auto, BSTR text) { GiveBack(Loan::Bstr, text); });
}

void WatchArrays() {
    calls::SafeArrayCreate.WatchAfter([](SAFEARRAY* made, auto...) { Lend(Loan::Array, made); });
    calls::SafeArrayAllocDescriptorEx.WatchAfter(
        [](HRESULT result, VARTYPE, UINT, SAFEARRAY** made) {
            if (SUCCEEDED(result)) Lend(Loan::Array, *made);
        });
    calls::SafeArrayDestroy.WatchBefore([](SAFEARRAY* array) { ForgetTextsOf(array); });
    calls::SafeArrayDestroy.WatchAfter([](HRESULT result, SAFEARRAY* array) {
        if (SUCCEEDED(result)) GiveBack(Loan::Array, array);
    });
    calls::VariantClear.WatchBefore([](VARIANT* variant) { ForgetContentOf(variant); });
    calls::SafeArrayLock.WatchAfter([](HRESULT result, SAFEARRAY* array) {
        if (SUCCEEDED(result)) Lend(Loan::ArrayLock, array);
    });
    calls::SafeArrayUnlock.WatchAfter(
        [](HRESULT, SAFEARRAY* array) { GiveBack(Loan::ArrayLock, array); });
}

void WatchModules() {
    calls::AddDllDirectory.WatchAfter(
        [](DLL_DIRECTORY_COOKIE cookie, auto...) { Lend(Loan::SearchFolder, cookie); });
    // The system does not take a null here.
    calls::RemoveDllDirectory.WatchAfter([](BOOL, DLL_DIRECTORY_COOKIE cookie) {
        if (!Forget(Loan::SearchFolder, cookie)) ++loans.wrong;
    });
    calls::LoadLibraryA.WatchAfter([](HMODULE module, auto...) { Lend(Loan::Module, module); });
    calls::LoadLibraryW.WatchAfter([](HMODULE module, auto...) { Lend(Loan::Module, module); });
    calls::LoadLibraryExW.WatchAfter([](HMODULE module, auto...) { Lend(Loan::Module, module); });
    calls::FreeLibrary.WatchAfter([](BOOL, HMODULE module) { GiveBack(Loan::Module, module); });
    calls::OpenProcess.WatchAfter([](HANDLE process, auto...) { Lend(Loan::Process, process); });
    calls::CreateFileW.WatchAfter([](HANDLE file, auto...) {
        if (file != INVALID_HANDLE_VALUE) Lend(Loan::File, file);
    });
    // The tests close handles of other kinds as well.
    calls::CloseHandle.WatchAfter([](BOOL, HANDLE handle) {
        if (!Forget(Loan::Process, handle)) Forget(Loan::File, handle);
    });
}

void WatchMemory() {
    calls::FormatMessageW.WatchAfter(
        [](DWORD length, DWORD flags, LPCVOID, DWORD, DWORD, wchar_t* buffer, auto...) {
            if (length != 0 && (flags & FORMAT_MESSAGE_ALLOCATE_BUFFER) != 0)
                Lend(Loan::LocalMemory, *reinterpret_cast<wchar_t**>(buffer));
        });
    calls::LocalFree.WatchAfter([](auto, HLOCAL memory) { GiveBack(Loan::LocalMemory, memory); });
    calls::SHGetKnownFolderPath.WatchAfter([](HRESULT, REFKNOWNFOLDERID, DWORD, HANDLE,
                                              wchar_t** path) { Lend(Loan::TaskMemory, *path); });
    calls::StringFromCLSID.WatchAfter([](HRESULT result, REFCLSID, wchar_t** text) {
        if (SUCCEEDED(result)) Lend(Loan::TaskMemory, *text);
    });
    calls::CoTaskMemFree.WatchAfter([](auto, void* memory) { GiveBack(Loan::TaskMemory, memory); });
    calls::UuidToStringW.WatchAfter([](RPC_STATUS status, auto, RPC_WSTR* text) {
        if (status == RPC_S_OK) Lend(Loan::RpcString, *text);
    });
    // The system nulls the text: it is looked at before.
    calls::RpcStringFreeW.WatchBefore([](RPC_WSTR* text) { GiveBack(Loan::RpcString, *text); });
}

void WatchListings() {
    calls::FindFirstFileW.WatchAfter([](HANDLE listing, auto...) {
        if (listing != INVALID_HANDLE_VALUE) Lend(Loan::Listing, listing);
    });
    calls::FindClose.WatchAfter([](BOOL, HANDLE listing) { GiveBack(Loan::Listing, listing); });
    calls::GetEnvironmentStringsW.WatchAfter(
        [](wchar_t* block) { Lend(Loan::EnvironmentBlock, block); });
    calls::FreeEnvironmentStringsW.WatchAfter(
        [](BOOL, wchar_t* block) { GiveBack(Loan::EnvironmentBlock, block); });
}

bool Watch() {
    WatchTexts();
    WatchArrays();
    WatchModules();
    WatchMemory();
    WatchListings();
    return true;
}

}  // namespace

Loans CountLoans() {
    static const bool watched = Watch();
    static_cast<void>(watched);
    return loans;
}

}  // namespace tev::fault
