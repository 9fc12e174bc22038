#include "TEVSystemLib/system/detail/KnownKeys.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using TAMO::TEV::System::detail::IsKnownKey;
using TAMO::TEV::System::detail::NearestKnownKey;

TEST(IsKnownKey, CountsTheCase) {
    EXPECT_TRUE(IsKnownKey("tev.log.level"));
    EXPECT_TRUE(IsKnownKey("tamo:corvid.log.dir"));
    EXPECT_FALSE(IsKnownKey("tev.Log.level"));
    EXPECT_FALSE(IsKnownKey("tev.log"));
    EXPECT_FALSE(IsKnownKey(""));
}

TEST(NearestKnownKey, AllowsAThirdOfTheLettersToBeWrong) {
    const struct {
        const char *key, *nearest;
    } rows[] = {
        {"tev.log.level", "tev.log.level"},
        {"TEV.LOG.LEVEL", "tev.log.level"},
        {"tev.lgo.level", "tev.log.level"},
        {"tev.log.levels", "tev.log.level"},
        {"tev.loglevel", "tev.log.level"},
        {"tev.path.dted9", "tev.path.dted0"},
        {"tev.logging", "(none)"},
        {"tev.kit", "(none)"},
        {"", "(none)"},
    };
    for (const auto& row : rows) {
        const char* nearest = NearestKnownKey(row.key);
        EXPECT_EQ(std::string(nearest == nullptr ? "(none)" : nearest), row.nearest) << row.key;
    }
}

}  // namespace
