// What the system refuses to take back: the library looks at no such answer, and gives the same.
#include <TEVSystemLib/util/file/TEVUtilFile.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <cstdint>
#include <string>

#include "fault/SystemCalls.h"
#include "support/Com.h"
#include "support/Folder.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilFile;
using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::fault::FailBy;
using tev::fault::SystemCall;
using tev::test::Folder;
using tev::test::SafeArray;
using tev::test::TextArray;
using tev::test::Variant;

namespace calls = tev::fault::calls;

// Takes back what it is given, so that nothing is left behind, and says that it did not.
template <typename Result, typename... Args, typename Work>
void ExpectSameWhileRefused(SystemCall<Result(Args...)>& call, Result refusal, Work work) {
    const auto expected = work();
    const int before = call.Failures();
    const auto refuses = FailBy(call, [&call, refusal](Args... args) -> Result {
        call.Real(args...);
        SetLastError(ERROR_INVALID_HANDLE);
        return refusal;
    });
    EXPECT_EQ(work(), expected);
    EXPECT_GT(call.Failures(), before) << "not called";
}

TEST(RefusedReturns, ProcessAfterItsModulesWereListed) {
    ExpectSameWhileRefused(calls::CloseHandle, FALSE, [] {
        TextArray modules;
        EXPECT_TRUE(
            TEVUtilWindows::RetrieveAllLoadedModulesInCurrentProcess(modules.array, modules.count));
        return modules.Strings();
    });
}

TEST(RefusedReturns, SearchForFiles) {
    const Folder folder;
    folder.Write("a.txt", "");
    ExpectSameWhileRefused(calls::FindClose, FALSE, [&] {
        TextArray files;
        TEVUtilFile::GetFilesInDirWithGivenExt(files.array, folder.Path().c_str(), ".txt",
                                               files.count);
        EXPECT_EQ(files.count, 1U);
        return files.Strings();
    });
}

TEST(RefusedReturns, BlockOfTheEnvironment) {
    ExpectSameWhileRefused(calls::FreeEnvironmentStringsW, FALSE, [] {
        TextArray names;
        TextArray values;
        EXPECT_TRUE(TEVUtilWindows::GetCurrentProcessEnvironmentVariables(names.array, values.array,
                                                                          names.count));
        values.count = names.count;
        return names.Strings();
    });
}

TEST(RefusedReturns, TextOfAMessage) {
    // The system's refusal is the memory that it leaves where it is.
    ExpectSameWhileRefused(calls::LocalFree, static_cast<HLOCAL>(&calls::LocalFree), [] {
        HINSTANCE__* module = nullptr;
        std::string error;
        EXPECT_FALSE(TEVUtilWindows::LoadModule("tev-absent.dll", module, error, nullptr, 0));
        EXPECT_NE(error, "");
        return error;
    });
}

TEST(RefusedReturns, LockOfAnArray) {
    SafeArray texts(VT_BSTR, {{1, 0}});
    LONG place = 0;
    const tev::test::Bstr text(L"text");
    ASSERT_TRUE(SUCCEEDED(SafeArrayPutElement(texts.get(), &place, text.get())));
    Variant variant(VT_ARRAY | VT_BSTR, std::move(texts));
    ExpectSameWhileRefused(calls::SafeArrayUnlock, E_UNEXPECTED, [&] {
        TextArray out;
        std::uint64_t count = 0;
        EXPECT_TRUE(TEVUtilWindows::ExtractStringArrayFromVariant(out.array, count, variant.get()));
        out.count = count;
        return out.Strings();
    });
}

}  // namespace
