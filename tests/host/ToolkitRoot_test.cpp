#include "TEVSystemLib/util/windows/detail/ToolkitRoot.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace {

using TAMO::TEV::System::Util::detail::RootBefore;

constexpr char kTail[] = "data\\";

TEST(RootBefore, WhatStandsBeforeTheTail) {
    const struct {
        const char* folder;
        const char* root;
    } rows[] = {
        {"D:/Kit/Data", "D:\\Kit\\"},
        {"D:\\Kit\\Data", "D:\\Kit\\"},
        {"D:\\Kit\\data\\", "D:\\Kit\\"},
        {"D:/Kit/data/", "D:\\Kit\\"},
        {"D:\\Kit/DATA", "D:\\Kit\\"},
        {"D:\\Kit\\dAtA/", "D:\\Kit\\"},
        {"D:\\data\\data", "D:\\data\\"},
        {"D:\\KIT\\Data", "D:\\KIT\\"},
        {"D:\\Two Words\\Data", "D:\\Two Words\\"},
        {"D:\\d\xE9p\xF4t \xC9\\Data", "D:\\d\xE9p\xF4t \xC9\\"},
        {"//server/share/data", "\\\\server\\share\\"},
        {"D:\\\\data", "D:\\\\"},
        {"\\data", "\\"},
        {"/data/", "\\"},
    };
    for (const auto& row : rows) EXPECT_EQ(RootBefore(kTail, row.folder), row.root) << row.folder;
}

TEST(RootBefore, NothingForAnotherTail) {
    for (const char* folder :
         {"", "\\", "/", "D:", "D:\\", "D:\\Kit\\bin", "D:\\Kit\\plugins", "D:\\Kit\\data2",
          "D:\\Kit\\dat", "ata", "ta\\", "D:\\Kit\\data\\\\", "D:\\Kit\\data//",
          "D:\\Kit\\data\\lib", "D:\\Kit\\data ", "D:\\Kit\\data.", "D:\\Kit\\d\xC1ta"})
        EXPECT_EQ(RootBefore(kTail, folder), std::nullopt) << folder;
}

TEST(RootBefore, TailNeedNotBeAWholeName_Kept) {
    EXPECT_EQ(RootBefore(kTail, "D:\\Kit\\mydata"), "D:\\Kit\\my");
    EXPECT_EQ(RootBefore(kTail, "D:data"), "D:");
    EXPECT_EQ(RootBefore("plugins\\", "plugplugins"), "plug");
}

TEST(RootBefore, BareTailHasAnEmptyRoot) {
    EXPECT_EQ(RootBefore(kTail, "data"), "");
    EXPECT_EQ(RootBefore(kTail, "DATA\\"), "");
    EXPECT_EQ(RootBefore(kTail, "Data/"), "");
}

TEST(RootBefore, OtherTails) {
    EXPECT_EQ(RootBefore("plugins\\", "E:\\Kit\\Plugins"), "E:\\Kit\\");
    EXPECT_EQ(RootBefore("plugins\\", "E:/KIT/PLUGINS/"), "E:\\KIT\\");
    EXPECT_EQ(RootBefore("plugins\\", "E:\\Kit\\data"), std::nullopt);
}

TEST(RootBefore, BlanksAreNotTrimmed) {
    EXPECT_EQ(RootBefore(kTail, " D:\\Kit\\data"), " D:\\Kit\\");
    EXPECT_EQ(RootBefore(kTail, "D:\\Kit \\data"), "D:\\Kit \\");
    EXPECT_EQ(RootBefore(kTail, "D:\\Kit\\data\\ "), std::nullopt);
}

TEST(RootBefore, LongText) {
    const std::string root = "D:\\" + std::string(100'000, 'x') + "\\";
    EXPECT_EQ(RootBefore(kTail, root + "data"), root);
    EXPECT_EQ(RootBefore(kTail, root), std::nullopt);
}

}  // namespace
