#pragma once

#include <TEVSystemLib/TEVSystemExport.h>

#include <cstddef>

namespace TAMO::TEV::System {

// The framework's shared vocabulary: texts, sizes, limits. Texts are zero-terminated ASCII with
// static storage; every SZ_STR_, SZ_CLASS_ and SZ_WAYPOINT_ constant is the length of the text
// whose name it repeats. Constants only: the class is never instantiated.
class TEVSYSTEMLIB_API TEVSysCnst {
 public:
    // Byte order of a host. Undetermined marks a value that nobody has asked for yet.
    enum ByteOrder : int {
        Undetermined = -1,  // nobody has asked yet
        LittleEndian = 1,   // the lowest byte first
        BigEndian = 2       // the highest byte first
    };

    // Severity under which a message is filed; collections visit levels in ascending order.
    enum MsgLevel : int {
        Debug = 0,  // for developers
        Info = 1,   // all is well
        Warn = 2,   // it went on, but look at it
        Error = 3   // it failed
    };

    class PropertyKey;
    class PropertyKeyCSM;
    class ClassificationMarking;
    class GlobalExpFunction;

    static const char* const CLASS_CLASSIFIED;
    static const char* const CLASS_U;
    static const char* const CLASS_UNCLASSIFIED;
    static const char* const CLASS_UNKNOWN;
    static const char* const COMMENT_CHAR_HASH;
    static const char* const DELIMITER_COLON;
    static const char* const DELIMITER_COMMA;
    static const char* const DELIMITER_DASH;
    static const char* const DELIMITER_PERIOD;
    static const char* const DELIMITER_SEMICOLON;
    static const char* const DELIMITER_SPACE;
    static const char* const DELIMITER_TWO_COLONS;
    static const char* const DELIMITER_UNDERSCORE;
    static const char* const DELIMITER_VERTICAL_BAR;
    static const char* const DLL_PREFIX_DS;
    static const char* const DLL_PREFIX_US;
    static const char* const FILE_EXT_TEV_PROPERTIES;
    static const char* const KEY_VALUE_PAIR_SEPARATOR;
    static const char* const MODULE_TEV_SYSTEM_LIB;  // this library's own module file name
    static const char* const OPEN_FILE_FORMAT_BINARY_R_MODE;
    static const char* const OPEN_FILE_FORMAT_BINARY_R_W_MODE;
    static const char* const REL_FOLDER_PATH_DESKTOP;  // development build output, 32-bit
    static const char* const REL_FOLDER_PATH_SERVER;   // development build output, 64-bit
    static const char* const STR_TEV;
    static const char* const STR_PLINTH_DLL;  // the framework's core module
    static const char* const STR_APPL_EXE;
    static const char* const STR_CORVID;
    static const char* const STR_CSM_PLUGIN_DIR;
    static const char* const STR_CSMAPI_DLL;
    static const char* const STR_DEBUG;
    static const char* const STR_ERROR;
    static const char* const STR_FALSE;
    static const char* const STR_INFO;
    static const char* const STR_MAXIMUM;
    static const char* const STR_MINIMUM;
    static const char* const STR_KPT;
    static const char* const STR_KPT_DATA_DIR;
    static const char* const STR_OFF;
    static const char* const STR_ON;
    static const char* const STR_REL_PATH_DATA;
    static const char* const STR_REL_PATH_LIB;
    static const char* const STR_REL_PATH_PLUGINS;
    static const char* const STR_REL_PATH_SCI;
    static const char* const STR_REL_PATH_SECRET;
    static const char* const STR_TRUE;
    static const char* const STR_WARN;

    // The largest size, all bits set.
    static const std::size_t MAX_SIZE_T = ~std::size_t{0};

    // Sizes in bytes.
    static const std::size_t SZ_32_BIT_FLOAT = 4;
    static const std::size_t SZ_INT32 = 4;
    static const std::size_t SZ_UINT_32 = 4;
    static const std::size_t SZ_FOUR_BYTES = 4;
    static const std::size_t SZ_64_BIT_DOUBLE = 8;
    static const std::size_t SZ_INT64 = 8;
    static const std::size_t SZ_UINT_64 = 8;
    static const std::size_t SZ_EIGHT_BYTES = 8;
    static const std::size_t SZ_CHAR = 1;
    static const std::size_t SZ_ONE_BYTE = 1;
    static const std::size_t SZ_INT16 = 2;
    static const std::size_t SZ_UINT_16 = 2;
    static const std::size_t SZ_WCHAR = 2;
    static const std::size_t SZ_TWO_BYTES = 2;
    static const std::size_t EXPECTED_SZ_WCHAR = 2;
    static const std::size_t SZ_THREE_BYTES = 3;

    // Sizes in bits.
    static const std::size_t SZ_1_BIT = 1;
    static const std::size_t SZ_2_BITS = 2;
    static const std::size_t SZ_3_BITS = 3;
    static const std::size_t SZ_4_BITS = 4;
    static const std::size_t SZ_5_BITS = 5;
    static const std::size_t SZ_6_BITS = 6;
    static const std::size_t SZ_7_BITS = 7;
    static const std::size_t SZ_8_BITS = 8;
    static const std::size_t SZ_12_BITS = 12;
    static const std::size_t SZ_16_BITS = 16;
    static const std::size_t SZ_24_BITS = 24;
    static const std::size_t SZ_32_BITS = 32;
    static const std::size_t SZ_64_BITS = 64;

    static const std::size_t MASK_8_BITS_L = 0x80;  // the leftmost bit of a byte
    static const std::size_t MASK_8_BITS_R = 0x01;  // the rightmost bit of a byte
    // The longest path that Windows takes, in characters.
    static const std::size_t MAX_WINDOWS_PATH_ALLOWED = 32767;

    // Lengths of the texts whose names they repeat, in characters without terminator.
    static const std::size_t SZ_OPEN_FILE_FORMAT_BINARY_R_MODE = 2;
    static const std::size_t SZ_OPEN_FILE_FORMAT_BINARY_R_W_MODE = 3;
    static const std::size_t SZ_STR_FALSE = 5;
    static const std::size_t SZ_STR_MAXIMUM = 7;
    static const std::size_t SZ_STR_MINIMUM = 7;
    static const std::size_t SZ_STR_OFF = 3;
    static const std::size_t SZ_STR_ON = 2;

    // A switch that modules of the framework read: off.
    static const bool CHK_DLL_SEARCH_DIRS = false;
    // Distance between an upper-case and a lower-case ASCII letter.
    // KEEP: the spelling of the name is part of the interface.
    static const char ANSCII_DIFF_UPPER_LOWER_ALPHABETS = 32;
    // Limits of a signed byte.
    static const char MAX_8_BITS_VAL = 127;
    static const char MIN_8_BITS_VAL = -128;
    // Stands for an integer that has no data.
    static const int GENERIC_INT_NO_DATA_VALUE = -1;
    // The largest 32-bit integer.
    static const int MAX_32_BITS_VAL = 2147483647;
    // KEEP: one above the smallest 32-bit integer; client modules compare against this very number.
    static const int MIN_32_BITS_VAL = -2147483647;
    // XCode::Uninitialized and XCode::Unknown as integers.
    static const int VALUE_UNINITIALIZED = -2;
    static const int VALUE_UNKNOWN = -1;

 private:
    TEVSysCnst() = default;
    ~TEVSysCnst() = default;
};

// Keys of the configuration store. The TEV_ENV_ prefixes open its environment directives, the
// TEV_LOGGER_ texts are values of TEV_LOG_LOGGERS, separated by TEV_LOG_DELIMITER, the _FILE_NAME
// keys are also the file names, and the ENV_ texts name environment variables.
class TEVSYSTEMLIB_API TEVSysCnst::PropertyKey {
 public:
    static const char* const TEV_CONST_HT_DEFAULT_TERRAIN_MODEL;
    static const char* const TEV_ENV_ADD;
    static const char* const TEV_ENV_ADD_PATH;
    static const char* const TEV_ENV_DEL;
    static const char* const TEV_ENV_NEW;
    static const char* const TEV_ENV_NEW_PATH;
    static const char* const TEV_ENV_REPLACE;
    static const char* const TEV_ENV_REPLACE_PATH;
    static const char* const TEV_ENV_RM;
    static const char* const TEV_ENSURE_EXT_INTERSECTS_TERRAIN;
    static const char* const TEV_ISD_DLL_DSOM;
    static const char* const TEV_ISD_DLL_RV402;
    static const char* const TEV_LOG_DELIMITER;
    static const char* const TEV_LOG_DYNAMIC_LOGGING;
    static const char* const TEV_LOG_LOGGERS;
    static const char* const TEV_LOG_LOGGING_LEVEL;
    static const char* const TEV_LOG_LOGGING_STATUS;
    static const char* const TEV_LOGGER_CONSOLE;
    static const char* const TEV_LOGGER_HTML_FILE;
    static const char* const TEV_LOGGER_PLAIN_FILE;
    static const char* const TEV_LOGGER_TIME_BASED_ROLLING_HTML_FILE;
    static const char* const TEV_LOGGER_TIME_BASED_ROLLING_PLAIN_FILE;
    static const char* const TEV_KPT_TOOLKIT_G;
    static const char* const TEV_PATH_DTED0;
    static const char* const TEV_PATH_DTED1;
    static const char* const TEV_PATH_DTED2;
    static const char* const TEV_PATH_SRTM1;
    static const char* const TEV_PATH_SRTM2;
    static const char* const TEV_RS_DLL_DSOM;
    static const char* const TEV_RS_DLL_RV402;
    static const char* const TEV_SUPPORT_PROXY_ISD;
    static const char* const TEV_SUPPORTED_PROXY_ISD_EXT;
    static const char* const TEV_SYS_CONFIG_DIR;
    static const char* const TEV_USER_CONFIG_DIR;
    static const char* const TEV_SYS_PROPERTIES_FILE_NAME;
    static const char* const TEV_USER_PROPERTIES_FILE_NAME;
    static const char* const ENV_TEV_SYS_CONFIG_DIR;
    static const char* const ENV_TEV_USER_CONFIG_DIR;

 private:
    PropertyKey() = default;
    ~PropertyKey() = default;
};

// Keys that the host's sensor-model transformation layer reads.
class TEVSYSTEMLIB_API TEVSysCnst::PropertyKeyCSM {
 public:
    static const char* const CORVID_CSMXFORM_APPROX;
    static const char* const CORVID_CSMXFORM_OPERATION_MODE;
    static const char* const CORVID_ENABLE_CSMXFORM;
    static const char* const CORVID_LOG_DIR;

 private:
    PropertyKeyCSM() = default;
    ~PropertyKeyCSM() = default;
};

// Security-classification vocabulary. The portion markings (STR_SC_) end with one blank, so that
// they can be put in front of a text as they stand.
class TEVSYSTEMLIB_API TEVSysCnst::ClassificationMarking {
 public:
    static const char* const CLASS_C;
    static const char* const CLASS_R;
    static const char* const CLASS_S;
    static const char* const CLASS_T;
    static const char* const CLASS_U;
    static const char* const STR_SC_C;
    static const char* const STR_SC_S;
    static const char* const STR_SC_S_REL_TO_US_FVEY;
    static const char* const STR_SC_TS;
    static const char* const STR_SC_U;

    // Lengths of the texts whose names they repeat, in characters without terminator.
    static const std::size_t SZ_CLASS_C = 1;
    static const std::size_t SZ_CLASS_R = 1;
    static const std::size_t SZ_CLASS_S = 1;
    static const std::size_t SZ_CLASS_T = 1;
    static const std::size_t SZ_CLASS_U = 1;

 private:
    ClassificationMarking() = default;
    ~ClassificationMarking() = default;
};

// The external classification-marking module and the functions that the framework resolves from it.
class TEVSYSTEMLIB_API TEVSysCnst::GlobalExpFunction {
 public:
    static const char* const WAYPOINT_DEL_C_STRING;
    static const char* const WAYPOINT_DLL;
    static const char* const WAYPOINT_TRANSLATE;
    static const char* const WAYPOINT_VALIDATE;

    // Lengths of the texts whose names they repeat, in characters without terminator.
    static const std::size_t SZ_WAYPOINT_DEL_C_STRING = 18;
    static const std::size_t SZ_WAYPOINT_DLL = 15;
    static const std::size_t SZ_WAYPOINT_TRANSLATE = 17;
    static const std::size_t SZ_WAYPOINT_VALIDATE = 16;

 private:
    GlobalExpFunction() = default;
    ~GlobalExpFunction() = default;
};

}  // namespace TAMO::TEV::System
