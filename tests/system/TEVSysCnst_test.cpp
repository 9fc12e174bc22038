#include <TEVSystemLib/system/TEVSysCnst.h>
#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

#include "system/Constants.h"
#include "system/PropertyTexts.h"

namespace {

using TAMO::TEV::System::TEVSysCnst;
using TAMO::TEV::System::TEVSystemProperties;
using tev::test::Constant;
using tev::test::LengthConstant;
using tev::test::SizeConstant;
using tev::test::TextConstant;

using Key = TEVSysCnst::PropertyKey;
using KeyCsm = TEVSysCnst::PropertyKeyCSM;
using Default = TEVSystemProperties::DefaultValue;
using Marking = TEVSysCnst::ClassificationMarking;
using Function = TEVSysCnst::GlobalExpFunction;

// The kinds are part of the interface; the rows below check each constant's, these say it once.
static_assert(std::is_same_v<decltype(TEVSysCnst::CLASS_U), const char* const>);
static_assert(std::is_same_v<decltype(TEVSysCnst::SZ_CHAR), const std::size_t>);
static_assert(std::is_same_v<decltype(TEVSysCnst::CHK_DLL_SEARCH_DIRS), const bool>);
static_assert(std::is_same_v<decltype(TEVSysCnst::MAX_8_BITS_VAL), const char>);
static_assert(std::is_same_v<decltype(TEVSysCnst::MAX_32_BITS_VAL), const int>);

TEST(TEVSysCnst, Texts) {
    const TextConstant rows[] = {
        {"CLASS_CLASSIFIED", TEVSysCnst::CLASS_CLASSIFIED, "CLASSIFIED"},
        {"CLASS_U", TEVSysCnst::CLASS_U, "U"},
        {"CLASS_UNCLASSIFIED", TEVSysCnst::CLASS_UNCLASSIFIED, "UNCLASSIFIED"},
        {"CLASS_UNKNOWN", TEVSysCnst::CLASS_UNKNOWN, "UNKNOWN"},
        {"COMMENT_CHAR_HASH", TEVSysCnst::COMMENT_CHAR_HASH, "#"},
        {"DELIMITER_COLON", TEVSysCnst::DELIMITER_COLON, ":"},
        {"DELIMITER_COMMA", TEVSysCnst::DELIMITER_COMMA, ","},
        {"DELIMITER_DASH", TEVSysCnst::DELIMITER_DASH, "-"},
        {"DELIMITER_PERIOD", TEVSysCnst::DELIMITER_PERIOD, "."},
        {"DELIMITER_SEMICOLON", TEVSysCnst::DELIMITER_SEMICOLON, ";"},
        {"DELIMITER_SPACE", TEVSysCnst::DELIMITER_SPACE, " "},
        {"DELIMITER_TWO_COLONS", TEVSysCnst::DELIMITER_TWO_COLONS, "::"},
        {"DELIMITER_UNDERSCORE", TEVSysCnst::DELIMITER_UNDERSCORE, "_"},
        {"DELIMITER_VERTICAL_BAR", TEVSysCnst::DELIMITER_VERTICAL_BAR, "|"},
        {"DLL_PREFIX_DS", TEVSysCnst::DLL_PREFIX_DS, "DS"},
        {"DLL_PREFIX_US", TEVSysCnst::DLL_PREFIX_US, "US"},
        {"FILE_EXT_TEV_PROPERTIES", TEVSysCnst::FILE_EXT_TEV_PROPERTIES, ".properties"},
        {"KEY_VALUE_PAIR_SEPARATOR", TEVSysCnst::KEY_VALUE_PAIR_SEPARATOR, "="},
        {"MODULE_TEV_SYSTEM_LIB", TEVSysCnst::MODULE_TEV_SYSTEM_LIB, "TEVSystemLib.dll"},
        {"OPEN_FILE_FORMAT_BINARY_R_MODE", TEVSysCnst::OPEN_FILE_FORMAT_BINARY_R_MODE, "rb"},
        {"OPEN_FILE_FORMAT_BINARY_R_W_MODE", TEVSysCnst::OPEN_FILE_FORMAT_BINARY_R_W_MODE, "r+b"},
        {"REL_FOLDER_PATH_DESKTOP", TEVSysCnst::REL_FOLDER_PATH_DESKTOP,
         "XFiles\\Q731\\TEV\\Win32\\Release\\"},
        {"REL_FOLDER_PATH_SERVER", TEVSysCnst::REL_FOLDER_PATH_SERVER,
         "XFiles\\Q731\\TEV\\x64\\Release\\"},
        {"STR_TEV", TEVSysCnst::STR_TEV, "TEV"},
        {"STR_PLINTH_DLL", TEVSysCnst::STR_PLINTH_DLL, "Plinth.dll"},
        {"STR_APPL_EXE", TEVSysCnst::STR_APPL_EXE, "APPL_EXE"},
        {"STR_CORVID", TEVSysCnst::STR_CORVID, "Corvid"},
        {"STR_CSM_PLUGIN_DIR", TEVSysCnst::STR_CSM_PLUGIN_DIR, "CSM_PLUGIN_DIR"},
        {"STR_CSMAPI_DLL", TEVSysCnst::STR_CSMAPI_DLL, "CSMAPI.dll"},
        {"STR_DEBUG", TEVSysCnst::STR_DEBUG, "DEBUG"},
        {"STR_ERROR", TEVSysCnst::STR_ERROR, "ERROR"},
        {"STR_FALSE", TEVSysCnst::STR_FALSE, "false"},
        {"STR_INFO", TEVSysCnst::STR_INFO, "INFO"},
        {"STR_MAXIMUM", TEVSysCnst::STR_MAXIMUM, "maximum"},
        {"STR_MINIMUM", TEVSysCnst::STR_MINIMUM, "minimum"},
        {"STR_KPT", TEVSysCnst::STR_KPT, "KPT"},
        {"STR_KPT_DATA_DIR", TEVSysCnst::STR_KPT_DATA_DIR, "KPT_DATA_DIR"},
        {"STR_OFF", TEVSysCnst::STR_OFF, "off"},
        {"STR_ON", TEVSysCnst::STR_ON, "on"},
        {"STR_REL_PATH_DATA", TEVSysCnst::STR_REL_PATH_DATA, "data\\"},
        {"STR_REL_PATH_LIB", TEVSysCnst::STR_REL_PATH_LIB, "lib\\"},
        {"STR_REL_PATH_PLUGINS", TEVSysCnst::STR_REL_PATH_PLUGINS, "plugins\\"},
        {"STR_REL_PATH_SCI", TEVSysCnst::STR_REL_PATH_SCI, "SCI\\"},
        {"STR_REL_PATH_SECRET", TEVSysCnst::STR_REL_PATH_SECRET, "SECRET\\"},
        {"STR_TRUE", TEVSysCnst::STR_TRUE, "true"},
        {"STR_WARN", TEVSysCnst::STR_WARN, "WARN"},
    };
    tev::test::ExpectTexts(rows);
}

TEST(TEVSysCnst, Sizes) {
    const SizeConstant rows[] = {
        {"MAX_SIZE_T", TEVSysCnst::MAX_SIZE_T, std::numeric_limits<std::size_t>::max()},
        {"SZ_32_BIT_FLOAT", TEVSysCnst::SZ_32_BIT_FLOAT, 4},
        {"SZ_INT32", TEVSysCnst::SZ_INT32, 4},
        {"SZ_UINT_32", TEVSysCnst::SZ_UINT_32, 4},
        {"SZ_FOUR_BYTES", TEVSysCnst::SZ_FOUR_BYTES, 4},
        {"SZ_64_BIT_DOUBLE", TEVSysCnst::SZ_64_BIT_DOUBLE, 8},
        {"SZ_INT64", TEVSysCnst::SZ_INT64, 8},
        {"SZ_UINT_64", TEVSysCnst::SZ_UINT_64, 8},
        {"SZ_EIGHT_BYTES", TEVSysCnst::SZ_EIGHT_BYTES, 8},
        {"SZ_CHAR", TEVSysCnst::SZ_CHAR, 1},
        {"SZ_ONE_BYTE", TEVSysCnst::SZ_ONE_BYTE, 1},
        {"SZ_INT16", TEVSysCnst::SZ_INT16, 2},
        {"SZ_UINT_16", TEVSysCnst::SZ_UINT_16, 2},
        {"SZ_WCHAR", TEVSysCnst::SZ_WCHAR, 2},
        {"SZ_TWO_BYTES", TEVSysCnst::SZ_TWO_BYTES, 2},
        {"EXPECTED_SZ_WCHAR", TEVSysCnst::EXPECTED_SZ_WCHAR, 2},
        {"SZ_THREE_BYTES", TEVSysCnst::SZ_THREE_BYTES, 3},
        {"SZ_1_BIT", TEVSysCnst::SZ_1_BIT, 1},
        {"SZ_2_BITS", TEVSysCnst::SZ_2_BITS, 2},
        {"SZ_3_BITS", TEVSysCnst::SZ_3_BITS, 3},
        {"SZ_4_BITS", TEVSysCnst::SZ_4_BITS, 4},
        {"SZ_5_BITS", TEVSysCnst::SZ_5_BITS, 5},
        {"SZ_6_BITS", TEVSysCnst::SZ_6_BITS, 6},
        {"SZ_7_BITS", TEVSysCnst::SZ_7_BITS, 7},
        {"SZ_8_BITS", TEVSysCnst::SZ_8_BITS, 8},
        {"SZ_12_BITS", TEVSysCnst::SZ_12_BITS, 12},
        {"SZ_16_BITS", TEVSysCnst::SZ_16_BITS, 16},
        {"SZ_24_BITS", TEVSysCnst::SZ_24_BITS, 24},
        {"SZ_32_BITS", TEVSysCnst::SZ_32_BITS, 32},
        {"SZ_64_BITS", TEVSysCnst::SZ_64_BITS, 64},
        {"MASK_8_BITS_L", TEVSysCnst::MASK_8_BITS_L, 128},
        {"MASK_8_BITS_R", TEVSysCnst::MASK_8_BITS_R, 1},
        {"MAX_WINDOWS_PATH_ALLOWED", TEVSysCnst::MAX_WINDOWS_PATH_ALLOWED, 32767},
    };
    tev::test::ExpectValues(rows);
}

TEST(TEVSysCnst, LargestSizeHasAll64BitsSet) {
    EXPECT_EQ(TEVSysCnst::MAX_SIZE_T, 0xFFFFFFFFFFFFFFFF);
}

TEST(TEVSysCnst, Switches) {
    const Constant<bool> rows[] = {
        {"CHK_DLL_SEARCH_DIRS", TEVSysCnst::CHK_DLL_SEARCH_DIRS, false},
    };
    tev::test::ExpectValues(rows);
}

TEST(TEVSysCnst, Characters) {
    const Constant<char> rows[] = {
        {"MAX_8_BITS_VAL", TEVSysCnst::MAX_8_BITS_VAL, 127},
        {"MIN_8_BITS_VAL", TEVSysCnst::MIN_8_BITS_VAL, -128},
    };
    tev::test::ExpectValues(rows);
}

TEST(TEVSysCnst, LetterDistanceIsSpelledAnscii_Kept) {
    const Constant<char> rows[] = {
        {"ANSCII_DIFF_UPPER_LOWER_ALPHABETS", TEVSysCnst::ANSCII_DIFF_UPPER_LOWER_ALPHABETS, 32},
    };
    tev::test::ExpectValues(rows);
    EXPECT_EQ('A' + TEVSysCnst::ANSCII_DIFF_UPPER_LOWER_ALPHABETS, 'a');
}

TEST(TEVSysCnst, Integers) {
    const Constant<int> rows[] = {
        {"GENERIC_INT_NO_DATA_VALUE", TEVSysCnst::GENERIC_INT_NO_DATA_VALUE, -1},
        {"MAX_32_BITS_VAL", TEVSysCnst::MAX_32_BITS_VAL, 2147483647},
        {"VALUE_UNINITIALIZED", TEVSysCnst::VALUE_UNINITIALIZED, -2},
        {"VALUE_UNKNOWN", TEVSysCnst::VALUE_UNKNOWN, -1},
    };
    tev::test::ExpectValues(rows);
}

TEST(TEVSysCnst, SmallestIntegerIsOneAboveTheLimit_Kept) {
    const Constant<int> rows[] = {
        {"MIN_32_BITS_VAL", TEVSysCnst::MIN_32_BITS_VAL, -2147483647},
    };
    tev::test::ExpectValues(rows);
    EXPECT_EQ(TEVSysCnst::MIN_32_BITS_VAL, std::numeric_limits<std::int32_t>::min() + 1);
}

TEST(TEVSysCnst, SmallestByteHasItsTopBitOnly) {
    EXPECT_EQ(static_cast<unsigned char>(TEVSysCnst::MIN_8_BITS_VAL), TEVSysCnst::MASK_8_BITS_L);
}

TEST(TEVSysCnst, LengthsAreThoseOfTheTexts) {
    const LengthConstant rows[] = {
        {{"SZ_OPEN_FILE_FORMAT_BINARY_R_MODE", TEVSysCnst::SZ_OPEN_FILE_FORMAT_BINARY_R_MODE, 2},
         TEVSysCnst::OPEN_FILE_FORMAT_BINARY_R_MODE},
        {{"SZ_OPEN_FILE_FORMAT_BINARY_R_W_MODE", TEVSysCnst::SZ_OPEN_FILE_FORMAT_BINARY_R_W_MODE,
          3},
         TEVSysCnst::OPEN_FILE_FORMAT_BINARY_R_W_MODE},
        {{"SZ_STR_FALSE", TEVSysCnst::SZ_STR_FALSE, 5}, TEVSysCnst::STR_FALSE},
        {{"SZ_STR_MAXIMUM", TEVSysCnst::SZ_STR_MAXIMUM, 7}, TEVSysCnst::STR_MAXIMUM},
        {{"SZ_STR_MINIMUM", TEVSysCnst::SZ_STR_MINIMUM, 7}, TEVSysCnst::STR_MINIMUM},
        {{"SZ_STR_OFF", TEVSysCnst::SZ_STR_OFF, 3}, TEVSysCnst::STR_OFF},
        {{"SZ_STR_ON", TEVSysCnst::SZ_STR_ON, 2}, TEVSysCnst::STR_ON},
    };
    tev::test::ExpectLengths(rows);
}

TEST(TEVSysCnst, SizesAreThoseOfTheTypes) {
    EXPECT_EQ(TEVSysCnst::SZ_CHAR, sizeof(char));
    EXPECT_EQ(TEVSysCnst::SZ_WCHAR, sizeof(wchar_t));
    EXPECT_EQ(TEVSysCnst::EXPECTED_SZ_WCHAR, sizeof(wchar_t));
    EXPECT_EQ(TEVSysCnst::SZ_INT16, sizeof(std::int16_t));
    EXPECT_EQ(TEVSysCnst::SZ_UINT_16, sizeof(std::uint16_t));
    EXPECT_EQ(TEVSysCnst::SZ_INT32, sizeof(std::int32_t));
    EXPECT_EQ(TEVSysCnst::SZ_UINT_32, sizeof(std::uint32_t));
    EXPECT_EQ(TEVSysCnst::SZ_INT64, sizeof(std::int64_t));
    EXPECT_EQ(TEVSysCnst::SZ_UINT_64, sizeof(std::uint64_t));
    EXPECT_EQ(TEVSysCnst::SZ_32_BIT_FLOAT, sizeof(float));
    EXPECT_EQ(TEVSysCnst::SZ_64_BIT_DOUBLE, sizeof(double));
}

TEST(TEVSysCnst, ByteOrderFixesLittleEndianAndUndetermined) {
    EXPECT_EQ(static_cast<int>(TEVSysCnst::LittleEndian), 1);
    EXPECT_EQ(static_cast<int>(TEVSysCnst::Undetermined), -1);
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<TEVSysCnst::ByteOrder>, int>));
}

TEST(TEVSysCnst, MsgLevelRisesFromDebugToError) {
    EXPECT_EQ(static_cast<int>(TEVSysCnst::Debug), 0);
    EXPECT_EQ(static_cast<int>(TEVSysCnst::Info), 1);
    EXPECT_EQ(static_cast<int>(TEVSysCnst::Warn), 2);
    EXPECT_EQ(static_cast<int>(TEVSysCnst::Error), 3);
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<TEVSysCnst::MsgLevel>, int>));
}

TEST(PropertyKey, Texts) { tev::test::ExpectTexts(tev::test::PropertyKeyTexts()); }

TEST(PropertyKey, LoggerDelimiterIsTheVerticalBar) {
    EXPECT_STREQ(Key::TEV_LOG_DELIMITER, TEVSysCnst::DELIMITER_VERTICAL_BAR);
}

TEST(PropertyKey, LoggerNamesAreValuesAmongTheKeys_Kept) {
    const TextConstant rows[] = {
        {"TEV_LOGGER_CONSOLE", Key::TEV_LOGGER_CONSOLE, "console"},
        {"TEV_LOGGER_HTML_FILE", Key::TEV_LOGGER_HTML_FILE, "html.file"},
        {"TEV_LOGGER_PLAIN_FILE", Key::TEV_LOGGER_PLAIN_FILE, "plain.file"},
        {"TEV_LOGGER_TIME_BASED_ROLLING_HTML_FILE", Key::TEV_LOGGER_TIME_BASED_ROLLING_HTML_FILE,
         "time.based.rolling.html.file"},
        {"TEV_LOGGER_TIME_BASED_ROLLING_PLAIN_FILE", Key::TEV_LOGGER_TIME_BASED_ROLLING_PLAIN_FILE,
         "time.based.rolling.plain.file"},
    };
    tev::test::ExpectTexts(rows);
    for (const TextConstant& row : rows)
        EXPECT_NE(std::string(row.Actual()).rfind("tev.", 0), 0U) << row.name << " is no key";
}

TEST(PropertyKeyCSM, Texts) { tev::test::ExpectTexts(tev::test::PropertyKeyCsmTexts()); }

TEST(DefaultValue, Texts) { tev::test::ExpectTexts(tev::test::DefaultValueTexts()); }

TEST(ClassificationMarking, Texts) {
    const TextConstant rows[] = {
        {"CLASS_C", Marking::CLASS_C, "C"}, {"CLASS_R", Marking::CLASS_R, "R"},
        {"CLASS_S", Marking::CLASS_S, "S"}, {"CLASS_T", Marking::CLASS_T, "T"},
        {"CLASS_U", Marking::CLASS_U, "U"},
    };
    tev::test::ExpectTexts(rows);
}

TEST(ClassificationMarking, PortionMarkingsEndWithABlank_Kept) {
    const TextConstant rows[] = {
        {"STR_SC_C", Marking::STR_SC_C, "(C) "},
        {"STR_SC_S", Marking::STR_SC_S, "(S) "},
        {"STR_SC_S_REL_TO_US_FVEY", Marking::STR_SC_S_REL_TO_US_FVEY, "(S//REL TO USA, FVEY) "},
        {"STR_SC_TS", Marking::STR_SC_TS, "(TS) "},
        {"STR_SC_U", Marking::STR_SC_U, "(U) "},
    };
    tev::test::ExpectTexts(rows);
}

TEST(ClassificationMarking, LengthsAreThoseOfTheTexts) {
    const LengthConstant rows[] = {
        {{"SZ_CLASS_C", Marking::SZ_CLASS_C, 1}, Marking::CLASS_C},
        {{"SZ_CLASS_R", Marking::SZ_CLASS_R, 1}, Marking::CLASS_R},
        {{"SZ_CLASS_S", Marking::SZ_CLASS_S, 1}, Marking::CLASS_S},
        {{"SZ_CLASS_T", Marking::SZ_CLASS_T, 1}, Marking::CLASS_T},
        {{"SZ_CLASS_U", Marking::SZ_CLASS_U, 1}, Marking::CLASS_U},
    };
    tev::test::ExpectLengths(rows);
}

TEST(GlobalExpFunction, Texts) {
    const TextConstant rows[] = {
        {"WAYPOINT_DEL_C_STRING", Function::WAYPOINT_DEL_C_STRING, "WaypointDelCString"},
        {"WAYPOINT_DLL", Function::WAYPOINT_DLL, "WaypointLib.dll"},
        {"WAYPOINT_TRANSLATE", Function::WAYPOINT_TRANSLATE, "WaypointTranslate"},
        {"WAYPOINT_VALIDATE", Function::WAYPOINT_VALIDATE, "WaypointValidate"},
    };
    tev::test::ExpectTexts(rows);
}

TEST(GlobalExpFunction, LengthsAreThoseOfTheTexts) {
    const LengthConstant rows[] = {
        {{"SZ_WAYPOINT_DEL_C_STRING", Function::SZ_WAYPOINT_DEL_C_STRING, 18},
         Function::WAYPOINT_DEL_C_STRING},
        {{"SZ_WAYPOINT_DLL", Function::SZ_WAYPOINT_DLL, 15}, Function::WAYPOINT_DLL},
        {{"SZ_WAYPOINT_TRANSLATE", Function::SZ_WAYPOINT_TRANSLATE, 17},
         Function::WAYPOINT_TRANSLATE},
        {{"SZ_WAYPOINT_VALIDATE", Function::SZ_WAYPOINT_VALIDATE, 16}, Function::WAYPOINT_VALIDATE},
    };
    tev::test::ExpectLengths(rows);
}

template <typename Class>
class ConstantClass : public ::testing::Test {};

using ConstantClasses = ::testing::Types<TEVSysCnst, Key, KeyCsm, Default, Marking, Function>;

struct ConstantClassName {
    template <typename Class>
    static std::string GetName(int) {
        if (std::is_same_v<Class, TEVSysCnst>) return "TEVSysCnst";
        if (std::is_same_v<Class, Key>) return "PropertyKey";
        if (std::is_same_v<Class, KeyCsm>) return "PropertyKeyCSM";
        if (std::is_same_v<Class, Default>) return "DefaultValue";
        if (std::is_same_v<Class, Marking>) return "ClassificationMarking";
        return "GlobalExpFunction";
    }
};

TYPED_TEST_SUITE(ConstantClass, ConstantClasses, ConstantClassName);

TYPED_TEST(ConstantClass, IsAssignedButNeverMade) { tev::test::ExpectConstantsOnly<TypeParam>(); }

}  // namespace
