#include <TEVSystemLib/TEVOwned.h>
#include <gtest/gtest.h>

namespace {

using namespace TAMO::TEV::System::Host;
using TAMO::TEV::System::TEVSystemProperties;

TEST(NamedSetUserProperty, TellsKeyAndValueApart) {
    EXPECT_TRUE(SetUserProperty(Key("owned.test.key"), Value("owned.test.value")));
    const char* value = nullptr;
    ASSERT_TRUE(TEVSystemProperties::GetProperty("owned.test.key", value));
    EXPECT_STREQ(value, "owned.test.value");
    EXPECT_FALSE(SetUserProperty(Key("owned.test.key"), Value(nullptr)));
}

}  // namespace
