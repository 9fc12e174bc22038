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

TEST(IsKnownKey, HoldsForEveryKeyOfTheFramework) {
    for (const char* key : {"tev.log.loggers", "tev.logging.status", "tev.sys.config.dir",
                            "tev.user.config.dir", "tev.system.properties", "tev.user.properties"})
        EXPECT_TRUE(IsKnownKey(key)) << key;
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
        // The most that may be replaced, put in and left out, at either end; then one more.
        {"tev.log.lXXXX", "tev.log.level"},
        {"tev.log.XXXXX", "(none)"},
        {"XXXX.log.level", "tev.log.level"},
        {"tev.log.levelxxxxxx", "tev.log.level"},
        {"tev.log.levelxxxxxxx", "(none)"},
        {"xxxxxxtev.log.level", "tev.log.level"},
        {"xxxxxxxtev.log.level", "(none)"},
        {"tev.log.xxxxxxlevel", "tev.log.level"},
        {"tev.log.xxxxxxxlevel", "(none)"},
        {".log.level", "tev.log.level"},
        {"log.level", "(none)"},
        {"tev.log.le", "tev.log.level"},
        {"tev.log.l", "(none)"},
        // Of those that are equally near the first one.
        {"tev.path.srtm9", "tev.path.srtm1"},
        {"tamo:corvid.log.dri", "tamo:corvid.log.dir"},
    };
    for (const auto& row : rows) {
        const char* nearest = NearestKnownKey(row.key);
        EXPECT_EQ(std::string(nearest == nullptr ? "(none)" : nearest), row.nearest) << row.key;
    }
}

}  // namespace
