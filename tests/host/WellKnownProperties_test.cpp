#include "TEVSystemLib/system/detail/WellKnownProperties.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace {

using TAMO::TEV::System::detail::CorrectedValue;
using TAMO::TEV::System::detail::SwitchValue;

// The value that an entry has after the correction.
std::string Corrected(const std::string& key, const std::string& value) {
    return std::string(CorrectedValue(key, value).value_or(value));
}

TEST(SwitchValue, WordsInAnyLetterCase) {
    for (const char* word :
         {"on", "On", "oN", "ON", "true", "TRUE", "tRuE", "YES", "yes", "Yes", "1"})
        EXPECT_EQ(SwitchValue(word), true) << word;
    for (const char* word :
         {"off", "Off", "OFF", "false", "FALSE", "fAlSe", "NO", "no", "No", "nO", "0"})
        EXPECT_EQ(SwitchValue(word), false) << word;
}

TEST(SwitchValue, NothingForAnyOtherText) {
    using namespace std::string_literals;
    for (const auto& word :
         {""s, " "s, "maybe"s, " on"s, "on "s, "\ton"s, "o"s, "onn"s, "tru"s, "truee"s, "y"s, "n"s,
          "2"s, "10"s, "00"s, "-1"s, "of"s, "on\0"s, "\xCF\xCE"s})
        EXPECT_EQ(SwitchValue(word), std::nullopt) << word;
}

TEST(CorrectedValue, SwitchesBecomeCanonicalOrTheDefaultAsSpelt_Kept) {
    const struct {
        const char *key, *fallback;
    } rows[] = {
        {"tev.logging.status", "off"},           {"tev.log.dynamic.logging", "off"},
        {"tev.cnst.height.default.tm", "false"}, {"tev.ext.intersects.terrain", "true"},
        {"tev.support.proxy.isd", "false"},      {"tamo:corvid.enable.csmxform", "true"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.key);
        for (const char* word : {"on", "ON", "true", "True", "YES", "yes", "1"})
            EXPECT_EQ(Corrected(row.key, word), "true") << word;
        for (const char* word : {"off", "OFF", "false", "False", "NO", "no", "0"})
            EXPECT_EQ(Corrected(row.key, word), "false") << word;
        for (const char* word : {"", "perhaps", " on", "on ", "2", "onoff", "DEBUG"})
            EXPECT_EQ(Corrected(row.key, word), row.fallback) << word;
    }
}

TEST(CorrectedValue, Levels) {
    for (const char* level : {"DEBUG", "ERROR", "INFO", "WARN", "debug", "Error", "iNFO", "warn"})
        EXPECT_EQ(Corrected("tev.log.level", level), level);
    for (const char* level : {"", "verbose", "WARNING", "DEBU", " INFO", "INFO ", "off", "1"})
        EXPECT_EQ(Corrected("tev.log.level", level), "DEBUG") << level;
}

TEST(CorrectedValue, LoggerLists) {
    for (const char* list :
         {"console", "html.file", "plain.file", "time.based.rolling.html.file",
          "time.based.rolling.plain.file", "CONSOLE", "Console|HTML.file",
          "console|html.file|plain.file|time.based.rolling.html.file|time.based.rolling.plain.file",
          "console|console"})
        EXPECT_EQ(Corrected("tev.log.loggers", list), list);
    for (const char* list :
         {"", "|", "||", "printer", "console|printer", "printer|console", "console,html.file",
          "console |html.file", " console", "console|html", "html.file.x"})
        EXPECT_EQ(Corrected("tev.log.loggers", list), "plain.file") << list;
}

TEST(CorrectedValue, EmptyPiecesOfALoggerListAreNotSeen) {
    for (const char* list : {"console||html.file", "|console", "console|", "||console||"})
        EXPECT_EQ(Corrected("tev.log.loggers", list), list);
}

TEST(CorrectedValue, Modes) {
    constexpr char kKey[] = "tamo:corvid.csmxform.operation.mode";
    for (const char* mode : {"maximum", "minimum", "MAXIMUM", "Minimum"})
        EXPECT_EQ(Corrected(kKey, mode), mode);
    for (const char* mode : {"", "max", "maximum ", "basic", "default", "true"})
        EXPECT_EQ(Corrected(kKey, mode), "minimum") << mode;
}

TEST(CorrectedValue, FreeTextStays) {
    for (const char* text : {"*", ".isd|.xml", "", " perhaps ", "YES"})
        EXPECT_EQ(CorrectedValue("tev.supported.proxy.isd.ext", text), std::nullopt) << text;
}

TEST(CorrectedValue, KeysMatchInAnyLetterCase) {
    EXPECT_EQ(Corrected("TEV.LOG.LEVEL", "verbose"), "DEBUG");
    EXPECT_EQ(Corrected("Tamo:Corvid.Enable.CsmXform", "no"), "false");
}

TEST(CorrectedValue, OtherKeysAreLeftAlone) {
    for (const char* key : {"", "tev.log", "tev.log.level ", " tev.log.level", "tev.log.levels",
                            "tev.sys.config.dir", "tamo:corvid.log.dir"})
        EXPECT_EQ(CorrectedValue(key, "yes"), std::nullopt) << key;
}

TEST(CorrectedValue, ApproximationKeyIsLeftAlone_Kept) {
    for (const char* value : {"yes", "perhaps", ""})
        EXPECT_EQ(CorrectedValue("tamo:corvid.csmxform.approx.ok", value), std::nullopt) << value;
}

}  // namespace
