#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "fixtures/SecondLibrary.h"
#include "support/Environment.h"
#include "support/Folder.h"

namespace {

using TAMO::TEV::System::TEVSystemProperties;
using tev::test::CopyTo;
using tev::test::Folder;
using tev::test::kLibrary;
using tev::test::LibraryFile;
using tev::test::LoadedLibrary;
using tev::test::Variable;

std::string Value(decltype(&TEVSystemProperties::GetProperty) getProperty, const char* key) {
    const char* value = nullptr;
    return getProperty(key, value) ? value : "(none)";
}

// The test program's library and a copy of it, each loaded from its own properties file.
class Copies : public ::testing::Test {
 protected:
    ~Copies() override {
        folder_.Set(std::nullopt);
        TEVSystemProperties::InitializeProperties();
    }

    void InitialiseBoth(const LoadedLibrary& second) {
        first_.Write("tev.system.properties", "name=first\n");
        second_.Write("tev.system.properties", "name=second\nonly.second=yes\n");
        folder_.Set(first_.Path());
        TEVSystemProperties::InitializeProperties();
        folder_.Set(second_.Path());
        second.Of (&TEVSystemProperties::InitializeProperties)();
    }

    void ExpectStoresApart(const LoadedLibrary& second) {
        InitialiseBoth(second);
        const auto getSecond = second.Of(&TEVSystemProperties::GetProperty);
        EXPECT_EQ(Value(&TEVSystemProperties::GetProperty, "name"), "first");
        EXPECT_EQ(Value(getSecond, "name"), "second");
        EXPECT_EQ(Value(&TEVSystemProperties::GetProperty, "only.second"), "(none)");
        TEVSystemProperties::SetUserProperty("name", "user's");
        EXPECT_EQ(Value(&TEVSystemProperties::GetProperty, "name"), "user's");
        EXPECT_EQ(Value(getSecond, "name"), "second");
    }

    const Folder first_;
    const Folder second_;
    const Variable folder_{"TEV_SYS_CONFIG_DIR"};
    const Variable userFolder_{"TEV_USER_CONFIG_DIR"};
    const Variable appData_{"APPDATA"};
};

TEST_F(Copies, OfAnotherNameHaveStoresApart) {
    ExpectStoresApart(LoadedLibrary(CopyTo(second_ / "Second.dll", LibraryFile())));
}

TEST_F(Copies, OfTheSameNameInAnotherFolderHaveStoresApart) {
    ExpectStoresApart(LoadedLibrary(CopyTo(second_ / kLibrary, LibraryFile())));
}

TEST_F(Copies, SurviveEachOther) {
    const char* kept = nullptr;
    {
        const LoadedLibrary second(CopyTo(second_ / "Second.dll", LibraryFile()));
        InitialiseBoth(second);
        ASSERT_TRUE(TEVSystemProperties::GetProperty("name", kept));
    }
    const char* again = nullptr;
    EXPECT_TRUE(TEVSystemProperties::GetProperty("name", again));
    EXPECT_EQ(again, kept) << "the value stays where it was";
    EXPECT_STREQ(kept, "first");
}

}  // namespace
