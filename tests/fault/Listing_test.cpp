// Listing the files of a folder when the system refuses one of the calls.
#include <TEVSystemLib/util/file/TEVUtilFile.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fault/SystemCalls.h"
#include "support/Folder.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilFile;
using tev::fault::Calls;
using tev::fault::Fail;
using tev::fault::FailNth;
using tev::fault::Replace;
using tev::test::Folder;
using tev::test::TextArray;

namespace calls = tev::fault::calls;

using Files = std::vector<std::string>;

// Three files.
class ListingFaults : public ::testing::Test {
 protected:
    ListingFaults() {
        for (const char* name : {"a.txt", "b.txt", "c.txt"}) folder_.Write(name, name);
    }

    // The files found; the outputs hold something of their own before. Null comes with 0.
    Files List(const char* extension = ".txt") const {
        char* stale = nullptr;
        TextArray files;
        files.array = &stale;
        files.count = 77;
        TEVUtilFile::GetFilesInDirWithGivenExt(files.array, folder_.Path().c_str(), extension,
                                               files.count);
        EXPECT_EQ(files.array == nullptr, files.count == 0);
        return files.Strings();
    }

    const Folder folder_;
};

TEST_F(ListingFaults, RefusedSearchFindsNothing) {
    const Calls next(calls::FindNextFileW);
    const Calls closed(calls::FindClose);
    const auto fails = Fail(calls::FindFirstFileW, INVALID_HANDLE_VALUE, ERROR_ACCESS_DENIED);
    EXPECT_EQ(List(), Files());
    EXPECT_EQ(next.Made(), 0);
    EXPECT_EQ(closed.Made(), 0);
}

TEST_F(ListingFaults, ErrorInTheMiddleEndsTheList_Kept) {
    const Files all = List();
    ASSERT_EQ(all.size(), 3U);
    for (const int found : {1, 2}) {
        const Calls closed(calls::FindClose);
        const auto fails = FailNth(found - 1, calls::FindNextFileW, FALSE, ERROR_NETNAME_DELETED);
        EXPECT_EQ(List(), Files(all.begin(), all.begin() + found));
        EXPECT_EQ(closed.Made(), 1);
    }
}

// Valid text needs no call of the system, any other two.
TEST_F(ListingFaults, PatternThatDoesNotConvertIsAFailure) {
    for (int n = 0; n < 2; ++n) {
        const Calls searches(calls::FindFirstFileW);
        const auto fails = FailNth(n, calls::MultiByteToWideChar, 0, ERROR_INVALID_PARAMETER);
        EXPECT_EQ(List(".t\xFFt"), Files()) << n;
        EXPECT_EQ(searches.Made(), 0) << n;
    }
}

TEST_F(ListingFaults, NameThatDoesNotConvertIsAFailure) {
    // Names beyond ASCII, which the C runtime has to convert.
    const Replace first(calls::FindFirstFileW, [](const wchar_t* pattern, WIN32_FIND_DATAW* entry) {
        const HANDLE search = calls::FindFirstFileW.Real(pattern, entry);
        entry->cFileName[0] = L'\xE9';
        return search;
    });
    const Replace next(calls::FindNextFileW, [](HANDLE search, WIN32_FIND_DATAW* entry) {
        const BOOL isFound = calls::FindNextFileW.Real(search, entry);
        entry->cFileName[0] = L'\xE9';
        return isFound;
    });
    EXPECT_EQ(List().size(), 3U);
    for (int n = 0; n < 3; ++n) {
        const Calls closed(calls::FindClose);
        const auto fails = FailNth(n, calls::wcstombs, static_cast<std::size_t>(-1));
        EXPECT_EQ(List(), Files()) << n;
        EXPECT_EQ(closed.Made(), 1) << n;
    }
}

}  // namespace
