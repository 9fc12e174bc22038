#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;

// The first call makes what lasts as long as the process, so these tests take the DLL only.

// Every call gives a warning, which is meant for hosts.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

TEST(IsValidUUID, FalseForEveryText_Kept) {
    const char* const rows[] = {
        "01234567-89AB-4DEF-8EDC-BA9876543210",
        "01234567-89ab-4def-8edc-ba9876543210",
        "01234567-89AB-4DEF-BEDC-BA9876543210",
        "01234567-89AB-1DEF-7EDC-BA9876543210",
        "00000000-0000-0000-0000-000000000000",
        "{01234567-89AB-4DEF-8EDC-BA9876543210}",
        "/01234567-89AB-4DEF-8EDC-BA9876543210/i",
        "/^01234567-89AB-4DEF-8EDC-BA9876543210$/i",
        "/1234567-89AB-4DEF-8EDC-BA98765432/i",
        "/01234567-89AB-4DEF-8EDC-BA9876543/i",
        "0123456789AB4DEF8EDCBA98765432100000",
        "/^[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{",
        "                                    ",
        "i",
        "/i",
        "",
        nullptr,
    };
    for (const char* row : rows)
        EXPECT_FALSE(TEVUtilWindows::IsValidUUID(row)) << (row == nullptr ? "(null)" : row);
}

TEST(IsValidUUID, FalseForItsOwnNewGuids_Kept) {
    for (int i = 0; i < 20; ++i) {
        const std::string text = TEVUtilWindows::GetGUID();
        ASSERT_FALSE(text.empty());
        EXPECT_FALSE(TEVUtilWindows::IsValidUUID(text.c_str())) << text;
    }
}

#pragma GCC diagnostic pop

}  // namespace
