#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "system/StoreFixture.h"

namespace {

using ::testing::Contains;
using ::testing::Key;
using ::testing::Not;
using ::testing::Optional;
using ::testing::Pair;
using tev::test::OpenStore;
using tev::test::Store;
using tev::test::StoreFixture;
using tev::test::Variable;

class Expansion : public StoreFixture {};
class Normalisation : public StoreFixture {};

TEST_F(Expansion, OfOneValue) {
    const Variable unset("TEV_TEST_UNSET");
    const Variable variable("TEV_TEST_X", "environment");
    const struct {
        const char *text, *expanded;
    } rows[] = {
        {"plain", "plain"},
        {"%a%", "1"},
        {"<%a%>", "<1>"},
        {"%a%%b b%", "12"},
        {"a%b", "a%b"},
        {"100%", "100%"},
        {"%", "%"},
        {"%%", "%%"},
        {"%%%", "%%%"},
        {"%TEV_TEST_UNSET%x", "%TEV_TEST_UNSET%x"},
        {"%TEV_TEST_UNSET%a%", "%TEV_TEST_UNSET%a%"},
        {"%a%b b%", "1b b%"},
        {"%A%", "%A%"},
        {"% a %", "% a %"},
        {"%TEV_TEST_X%/x", "environment/x"},
        {"%tev_test_x%/x", "environment/x"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        Load(std::string("a=1\nb b=2\nz=") + row.text + "\n");
        EXPECT_THAT(Get("z"), Optional(std::string(row.expanded)));
    }
}

TEST_F(Expansion, IsOnePassInKeyOrder_Kept) {
    Load("a=%b%\nb=%c%\nc=1\nd=%b%\n");
    EXPECT_THAT(Get("a"), Optional(std::string("%c%"))) << "b was not yet expanded";
    EXPECT_THAT(Get("b"), Optional(std::string("1")));
    EXPECT_THAT(Get("d"), Optional(std::string("1"))) << "b was already expanded";
}

TEST_F(Expansion, OfAReferenceToItselfTakesTheOldValueOnce) {
    Load("a=x%a%\n");
    EXPECT_THAT(Get("a"), Optional(std::string("xx%a%")));
}

TEST_F(Expansion, UserValueWinsInSystemValues) {
    Load("a=%name%\nname=system\n", "name=user\n");
    EXPECT_THAT(OpenStore::System(), Contains(Pair("a", "user")));
}

TEST_F(Expansion, SystemTableComesFirst) {
    Load("a=%b%\nc=%d%\nd=1\n", "b=%c%\n");
    EXPECT_THAT(Get("a"), Optional(std::string("%c%"))) << "the user's b was not yet expanded";
    EXPECT_THAT(Get("b"), Optional(std::string("1"))) << "the system's c was already expanded";
}

TEST_F(Expansion, CachesEnvironmentValuesInTheSystemTable) {
    const Variable first("TEV_TEST_X", "x");
    const Variable second("TEV_TEST_Y", "y");
    Load("a=%TEV_TEST_X%\n", "b=%TEV_TEST_Y%\n");
    EXPECT_THAT(OpenStore::System(), Contains(Pair("TEV_TEST_X", "x")));
    EXPECT_THAT(OpenStore::System(), Contains(Pair("TEV_TEST_Y", "y")));
    EXPECT_THAT(OpenStore::User(), Not(Contains(Key("TEV_TEST_Y"))));
}

TEST_F(Expansion, KnowsTheFoldersOfTheFiles) {
    Load("data=%tev.sys.config.dir%data\n", "data.user=%tev.user.config.dir%data\n");
    EXPECT_THAT(Get("data"), Optional(system_.Path() + "/data"));
    EXPECT_THAT(Get("data.user"), Optional(user_.Path() + "/data"));
}

TEST_F(Expansion, LeavesKeysAlone) {
    Load("a=1\n%a%=2\n");
    EXPECT_THAT(OpenStore::System(), Contains(Pair("%a%", "2")));
}

TEST_F(Normalisation, OfWellKnownKeys) {
    const struct {
        const char *key, *text, *normalised;
    } rows[] = {
        {"tev.logging.status", "YES", "true"},
        {"tev.logging.status", "off", "false"},
        {"tev.logging.status", "perhaps", "off"},
        {"tev.log.dynamic.logging", "1", "true"},
        {"tev.log.dynamic.logging", "perhaps", "off"},
        {"tev.log.level", "warn", "warn"},
        {"tev.log.level", "verbose", "DEBUG"},
        {"tev.log.loggers", "Console|html.file", "Console|html.file"},
        {"tev.log.loggers", "console|printer", "plain.file"},
        {"tev.cnst.height.default.tm", "On", "true"},
        {"tev.cnst.height.default.tm", "perhaps", "false"},
        {"tev.ext.intersects.terrain", "no", "false"},
        {"tev.ext.intersects.terrain", "perhaps", "true"},
        {"tev.support.proxy.isd", "TRUE", "true"},
        {"tev.support.proxy.isd", "perhaps", "false"},
        {"tev.supported.proxy.isd.ext", "any text", "any text"},
        {"tamo:corvid.csmxform.operation.mode", "MAXIMUM", "MAXIMUM"},
        {"tamo:corvid.csmxform.operation.mode", "medium", "minimum"},
        {"tamo:corvid.enable.csmxform", "0", "false"},
        {"tamo:corvid.enable.csmxform", "perhaps", "true"},
        {"tev.some.other.key", "YES", "YES"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.key) + "=" + row.text);
        Load(std::string(row.key) + "=" + row.text + "\n");
        EXPECT_THAT(Get(row.key), Optional(std::string(row.normalised)));
    }
}

TEST_F(Normalisation, ApproximationKeyIsLeftAlone_Kept) {
    Load("tamo:corvid.csmxform.approx.ok=perhaps\n");
    EXPECT_THAT(Get("tamo:corvid.csmxform.approx.ok"), Optional(std::string("perhaps")));
}

TEST_F(Normalisation, KeysMatchInAnyLetterCase) {
    Load("TEV.Log.Level=verbose\nTEV.LOGGING.STATUS=yes\n");
    EXPECT_THAT(Get("TEV.Log.Level"), Optional(std::string("DEBUG")));
    EXPECT_THAT(Get("TEV.LOGGING.STATUS"), Optional(std::string("true")));
    EXPECT_EQ(Get("tev.log.level"), std::nullopt) << "the entry keeps its key";
}

TEST_F(Normalisation, AbsentKeysAreNotAdded) {
    Load("a=1\n");
    EXPECT_EQ(OpenStore::System().size(), 3U) << "a and the bookkeeping";
}

TEST_F(Normalisation, UserFileIsLeftAloneAndWins) {
    Load("tev.log.level=verbose\ntev.logging.status=YES\n",
         "tev.log.level=verbose\ntev.logging.status=YES\n");
    EXPECT_THAT(Get("tev.log.level"), Optional(std::string("verbose")));
    EXPECT_THAT(Get("tev.logging.status"), Optional(std::string("YES")));
    EXPECT_THAT(OpenStore::System(), Contains(Pair("tev.log.level", "DEBUG")));
    EXPECT_THAT(OpenStore::System(), Contains(Pair("tev.logging.status", "true")));
}

TEST_F(Normalisation, FollowsExpansion) {
    Load("tev.logging.status=%word%\ntev.log.level=%word%\nword=yes\n");
    EXPECT_THAT(Get("tev.logging.status"), Optional(std::string("true")));
    EXPECT_THAT(Get("tev.log.level"), Optional(std::string("DEBUG")));
}

TEST_F(Normalisation, ReachesWhatExpansionCached) {
    const Variable variable("tev.log.level", "verbose");
    Load("a=%tev.log.level%\n");
    EXPECT_THAT(Get("a"), Optional(std::string("verbose")));
    EXPECT_THAT(Get("tev.log.level"), Optional(std::string("DEBUG")));
}

TEST_F(Normalisation, DoesNotReachWhatALookupCaches) {
    const Variable variable("tev.log.level", "verbose");
    Load("a=1\n");
    EXPECT_THAT(Get("tev.log.level"), Optional(std::string("verbose")));
}

}  // namespace
