#include <TEVSystemLib/TEVOwned.h>
#include <TEVSystemLib/util/file/TEVIO.h>
#include <TEVSystemLib/util/memory/TEVUtilMemory.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "fixtures/Modules.h"
#include "support/Com.h"
#include "support/Folder.h"

namespace {

using namespace TAMO::TEV::System::Host;
using TAMO::TEV::System::TEVSysCnst;
using TAMO::TEV::System::Util::TEVIO;
using TAMO::TEV::System::Util::TEVUtilString;
using TAMO::TEV::System::Util::TEVUtilWindows;

using Strings = std::vector<std::string>;

// Each owner is filled twice: the fault tests see whether the first filling was released.

TEST(OwnedText, IsFilledAgainAndAgain) {
    OwnedText text;
    EXPECT_EQ(text.View(), "");
    ASSERT_TRUE(TEVUtilString::Copy("first", Out(text), nullptr));
    ASSERT_TRUE(TEVUtilString::Copy("second", Out(text), nullptr));
    EXPECT_EQ(text.View(), "second");
    EXPECT_STREQ(text.get(), "second");
}

TEST(OwnedText, AFailedCallLeavesItEmpty) {
    OwnedText text;
    ASSERT_TRUE(TEVUtilString::Copy("held", Out(text), nullptr));
    EXPECT_FALSE(TEVUtilString::Copy("", Out(text), nullptr));
    EXPECT_FALSE(text);
    EXPECT_EQ(text.View(), "");
}

TEST(OwnedText, TakesOverAResult) {
    const OwnedText folder(TEVUtilWindows::GetDirectory("C:\\maps\\a.ntf"));
    EXPECT_EQ(folder.View(), "C:\\maps\\");
}

TEST(OwnedWideText, IsFilledAgainAndAgain) {
    OwnedWideText text;
    EXPECT_EQ(text.View(), L"");
    ASSERT_TRUE(TEVUtilString::Copy(L"first", Out(text), nullptr));
    ASSERT_TRUE(TEVUtilString::ConvertFromCharToWChar("second", Out(text)));
    EXPECT_EQ(text.View(), L"second");
}

TEST(OwnedBstr, IsFilledAgainAndLentToTheLibrary) {
    OwnedBstr value;
    OwnedBstr uncertainty;
    EXPECT_EQ(value.View(), L"");
    ASSERT_TRUE(TEVUtilWindows::FromMultibyteCharToBSTR("first", Out(value)));
    ASSERT_TRUE(TEVUtilWindows::SignificantFigures(12.3456, 0.02, Out(value), Out(uncertainty), 0));
    EXPECT_EQ(value.View(), L"12.35");
    EXPECT_EQ(uncertainty.View(), L"0.02");
    EXPECT_EQ(TEVUtilWindows::CompareBSTR(false, value.get(), uncertainty.get()), 1);
}

TEST(OwnedBstr, ItsViewGoesBeyondANul) {
    const OwnedBstr text(SysAllocStringLen(L"a\0b", 3));
    EXPECT_EQ(text.View(), std::wstring_view(L"a\0b", 3));
}

TEST(OwnedBytes, KnowTheCountThatTheCallWasGiven) {
    OwnedBytes bytes;
    ASSERT_EQ(TEVUtilString::GetUnsignedCharArray(2, Out(bytes, 2)), 2u);
    ASSERT_EQ(TEVUtilString::GetUnsignedCharArray(3, Out(bytes, 3)), 3u);
    bytes.data()[2] = 0xff;
    EXPECT_EQ(std::vector<int>(bytes.begin(), bytes.end()), (std::vector<int>{0, 0, 0xff}));
    EXPECT_EQ(TEVUtilString::GetUnsignedCharArray(0, Out(bytes, 0)), 0u);
    EXPECT_TRUE(bytes.empty());
}

TEST(OwnedBuffer, HoldsTheContentOfAFile) {
    const tev::test::Folder folder;
    const std::string file = folder.Write("a.bin", std::string("a\0b", 3));
    OwnedBuffer content;
    ASSERT_TRUE(TEVIO::readFile(file.c_str(), Out(content), Count(content)));
    ASSERT_TRUE(TEVIO::readFile(file.c_str(), Out(content), Count(content)));
    EXPECT_EQ(std::string(content.begin(), content.end()), std::string("a\0b", 3));
    EXPECT_FALSE(TEVIO::readFile("no such file", Out(content), Count(content)));
    EXPECT_TRUE(content.empty());
}

TEST(OwnedTextArray, IsReadByRangeFor) {
    OwnedTextArray tokens;
    ASSERT_TRUE(TEVUtilString::Tokenize(",", "a,b", Out(tokens), Count(tokens)));
    ASSERT_TRUE(TEVUtilString::Tokenize(",", "c,d,e", Out(tokens), Count(tokens)));
    Strings read;
    for (const char* token : tokens) read.emplace_back(token);
    EXPECT_EQ(read, (Strings{"c", "d", "e"}));
    EXPECT_EQ(tokens.size(), 3u);
    EXPECT_STREQ(tokens[1], "d");
}

TEST(OwnedTextArray, GrowsInPlace) {
    OwnedTextArray names;
    ASSERT_TRUE(TEVUtilString::AddEntryToStringArray(InOut(names), "b", Count(names), true));
    ASSERT_TRUE(TEVUtilString::AddEntryToStringArray(InOut(names), "a", Count(names), false));
    EXPECT_EQ(Strings(names.begin(), names.end()), (Strings{"a", "b"}));
}

TEST(OwnedMessages, AreAddedAndRead) {
    OwnedMessages messages;
    TEVUtilString::GetMsgsMap(Out(messages));
    TEVUtilString::GetMsgsMap(Out(messages));
    ASSERT_TRUE(messages);
    EXPECT_TRUE(TEVUtilString::AddMessage("disk full", TEVSysCnst::Error, *messages));
    EXPECT_STREQ(messages->at(TEVSysCnst::Error)->front(), "disk full");
}

TEST(OwnedMessageList, IsFilledAgainAndAgain) {
    OwnedMessageList messages;
    TEVUtilString::GetMsgsVector(Out(messages));
    TEVUtilString::GetMsgsVector(Out(messages));
    ASSERT_TRUE(messages);
    const char* message = "one";
    ASSERT_TRUE(TEVUtilString::Copy(message, *messages, false, nullptr));
    EXPECT_EQ(messages->size(), 1u);
}

TEST(OwnedModule, UnloadsAtTheEndOfItsLife) {
    const tev::test::Folder folder;
    const std::string file = tev::test::CopyModule(folder, "tevplain");
    std::string error;
    {
        OwnedModule module;
        ASSERT_TRUE(TEVUtilWindows::LoadModule(file.c_str(), Out(module), error, nullptr, 0));
        EXPECT_EQ(module.get(), GetModuleHandleA(file.c_str()));
        ASSERT_TRUE(TEVUtilWindows::LoadModule(file.c_str(), Out(module), error, nullptr, 0));
        EXPECT_NE(GetModuleHandleA(file.c_str()), nullptr);
    }
    EXPECT_EQ(GetModuleHandleA(file.c_str()), nullptr);
}

TEST(OwnedModule, AFailedLoadUnloadsTheOldOneAll) {
    const tev::test::Folder folder;
    const std::string file = tev::test::CopyModule(folder, "tevplain");
    std::string error;
    OwnedModule module;
    ASSERT_TRUE(TEVUtilWindows::LoadModule(file.c_str(), Out(module), error, nullptr, 0));
    EXPECT_FALSE(TEVUtilWindows::LoadModule("nosuch.dll", Out(module), error, nullptr, 0));
    EXPECT_FALSE(module);
    EXPECT_EQ(GetModuleHandleA(file.c_str()), nullptr);
}

TEST(OwnedSafeArray, IsFilledAgainAndGivenUpToAVariant) {
    OwnedSafeArray array;
    ASSERT_TRUE(TEVUtilWindows::CreateSafeArrayOfVariants(Out(array), 2));
    ASSERT_TRUE(TEVUtilWindows::CreateSafeArrayOfVariants(Out(array), 3));
    EXPECT_EQ(tev::test::BoundsOf(array.get(), 1), (std::pair<LONG, LONG>{3, 0}));
    const tev::test::Variant variant(VT_ARRAY | VT_VARIANT, tev::test::SafeArray(array.release()));
    EXPECT_FALSE(array);
}

}  // namespace
