#include <TEVSystemLib/system/TEVSysCnst.h>

namespace TAMO::TEV::System {

const char* const TEVSysCnst::CLASS_CLASSIFIED = "CLASSIFIED";
const char* const TEVSysCnst::CLASS_U = "U";
const char* const TEVSysCnst::CLASS_UNCLASSIFIED = "UNCLASSIFIED";
const char* const TEVSysCnst::CLASS_UNKNOWN = "UNKNOWN";
const char* const TEVSysCnst::COMMENT_CHAR_HASH = "#";
const char* const TEVSysCnst::DELIMITER_COLON = ":";
const char* const TEVSysCnst::DELIMITER_COMMA = ",";
const char* const TEVSysCnst::DELIMITER_DASH = "-";
const char* const TEVSysCnst::DELIMITER_PERIOD = ".";
const char* const TEVSysCnst::DELIMITER_SEMICOLON = ";";
const char* const TEVSysCnst::DELIMITER_SPACE = " ";
const char* const TEVSysCnst::DELIMITER_TWO_COLONS = "::";
const char* const TEVSysCnst::DELIMITER_UNDERSCORE = "_";
const char* const TEVSysCnst::DELIMITER_VERTICAL_BAR = "|";
const char* const TEVSysCnst::DLL_PREFIX_DS = "DS";
const char* const TEVSysCnst::DLL_PREFIX_US = "US";
const char* const TEVSysCnst::FILE_EXT_TEV_PROPERTIES = ".properties";
const char* const TEVSysCnst::KEY_VALUE_PAIR_SEPARATOR = "=";
const char* const TEVSysCnst::MODULE_TEV_SYSTEM_LIB = "TEVSystemLib.dll";
const char* const TEVSysCnst::OPEN_FILE_FORMAT_BINARY_R_MODE = "rb";
const char* const TEVSysCnst::OPEN_FILE_FORMAT_BINARY_R_W_MODE = "r+b";
const char* const TEVSysCnst::REL_FOLDER_PATH_DESKTOP = "XFiles\\Q731\\TEV\\Win32\\Release\\";
const char* const TEVSysCnst::REL_FOLDER_PATH_SERVER = "XFiles\\Q731\\TEV\\x64\\Release\\";
const char* const TEVSysCnst::STR_TEV = "TEV";
const char* const TEVSysCnst::STR_PLINTH_DLL = "Plinth.dll";
const char* const TEVSysCnst::STR_APPL_EXE = "APPL_EXE";
const char* const TEVSysCnst::STR_CORVID = "Corvid";
const char* const TEVSysCnst::STR_CSM_PLUGIN_DIR = "CSM_PLUGIN_DIR";
const char* const TEVSysCnst::STR_CSMAPI_DLL = "CSMAPI.dll";
const char* const TEVSysCnst::STR_DEBUG = "DEBUG";
const char* const TEVSysCnst::STR_ERROR = "ERROR";
const char* const TEVSysCnst::STR_FALSE = "false";
const char* const TEVSysCnst::STR_INFO = "INFO";
const char* const TEVSysCnst::STR_MAXIMUM = "maximum";
const char* const TEVSysCnst::STR_MINIMUM = "minimum";
const char* const TEVSysCnst::STR_KPT = "KPT";
const char* const TEVSysCnst::STR_KPT_DATA_DIR = "KPT_DATA_DIR";
const char* const TEVSysCnst::STR_OFF = "off";
const char* const TEVSysCnst::STR_ON = "on";
const char* const TEVSysCnst::STR_REL_PATH_DATA = "data\\";
const char* const TEVSysCnst::STR_REL_PATH_LIB = "lib\\";
const char* const TEVSysCnst::STR_REL_PATH_PLUGINS = "plugins\\";
const char* const TEVSysCnst::STR_REL_PATH_SCI = "SCI\\";
const char* const TEVSysCnst::STR_REL_PATH_SECRET = "SECRET\\";
const char* const TEVSysCnst::STR_TRUE = "true";
const char* const TEVSysCnst::STR_WARN = "WARN";

const std::size_t TEVSysCnst::MAX_SIZE_T;
const std::size_t TEVSysCnst::SZ_32_BIT_FLOAT;
const std::size_t TEVSysCnst::SZ_INT32;
const std::size_t TEVSysCnst::SZ_UINT_32;
const std::size_t TEVSysCnst::SZ_FOUR_BYTES;
const std::size_t TEVSysCnst::SZ_64_BIT_DOUBLE;
const std::size_t TEVSysCnst::SZ_INT64;
const std::size_t TEVSysCnst::SZ_UINT_64;
const std::size_t TEVSysCnst::SZ_EIGHT_BYTES;
const std::size_t TEVSysCnst::SZ_CHAR;
const std::size_t TEVSysCnst::SZ_ONE_BYTE;
const std::size_t TEVSysCnst::SZ_INT16;
const std::size_t TEVSysCnst::SZ_UINT_16;
const std::size_t TEVSysCnst::SZ_WCHAR;
const std::size_t TEVSysCnst::SZ_TWO_BYTES;
const std::size_t TEVSysCnst::EXPECTED_SZ_WCHAR;
const std::size_t TEVSysCnst::SZ_THREE_BYTES;
const std::size_t TEVSysCnst::SZ_1_BIT;
const std::size_t TEVSysCnst::SZ_2_BITS;
const std::size_t TEVSysCnst::SZ_3_BITS;
const std::size_t TEVSysCnst::SZ_4_BITS;
const std::size_t TEVSysCnst::SZ_5_BITS;
const std::size_t TEVSysCnst::SZ_6_BITS;
const std::size_t TEVSysCnst::SZ_7_BITS;
const std::size_t TEVSysCnst::SZ_8_BITS;
const std::size_t TEVSysCnst::SZ_12_BITS;
const std::size_t TEVSysCnst::SZ_16_BITS;
const std::size_t TEVSysCnst::SZ_24_BITS;
const std::size_t TEVSysCnst::SZ_32_BITS;
const std::size_t TEVSysCnst::SZ_64_BITS;
const std::size_t TEVSysCnst::MASK_8_BITS_L;
const std::size_t TEVSysCnst::MASK_8_BITS_R;
const std::size_t TEVSysCnst::MAX_WINDOWS_PATH_ALLOWED;
const std::size_t TEVSysCnst::SZ_OPEN_FILE_FORMAT_BINARY_R_MODE;
const std::size_t TEVSysCnst::SZ_OPEN_FILE_FORMAT_BINARY_R_W_MODE;
const std::size_t TEVSysCnst::SZ_STR_FALSE;
const std::size_t TEVSysCnst::SZ_STR_MAXIMUM;
const std::size_t TEVSysCnst::SZ_STR_MINIMUM;
const std::size_t TEVSysCnst::SZ_STR_OFF;
const std::size_t TEVSysCnst::SZ_STR_ON;
const bool TEVSysCnst::CHK_DLL_SEARCH_DIRS;
const char TEVSysCnst::ANSCII_DIFF_UPPER_LOWER_ALPHABETS;
const char TEVSysCnst::MAX_8_BITS_VAL;
const char TEVSysCnst::MIN_8_BITS_VAL;
const int TEVSysCnst::GENERIC_INT_NO_DATA_VALUE;
const int TEVSysCnst::MAX_32_BITS_VAL;
const int TEVSysCnst::MIN_32_BITS_VAL;
const int TEVSysCnst::VALUE_UNINITIALIZED;
const int TEVSysCnst::VALUE_UNKNOWN;

const char* const TEVSysCnst::PropertyKey::TEV_CONST_HT_DEFAULT_TERRAIN_MODEL =
    "tev.cnst.height.default.tm";
const char* const TEVSysCnst::PropertyKey::TEV_ENV_ADD = "tev.env.add.";
const char* const TEVSysCnst::PropertyKey::TEV_ENV_ADD_PATH = "tev.env.add.path.";
const char* const TEVSysCnst::PropertyKey::TEV_ENV_DEL = "tev.env.del.";
const char* const TEVSysCnst::PropertyKey::TEV_ENV_NEW = "tev.env.new.";
const char* const TEVSysCnst::PropertyKey::TEV_ENV_NEW_PATH = "tev.env.new.path.";
const char* const TEVSysCnst::PropertyKey::TEV_ENV_REPLACE = "tev.env.replace.";
const char* const TEVSysCnst::PropertyKey::TEV_ENV_REPLACE_PATH = "tev.env.replace.path.";
const char* const TEVSysCnst::PropertyKey::TEV_ENV_RM = "tev.env.rm.";
const char* const TEVSysCnst::PropertyKey::TEV_ENSURE_EXT_INTERSECTS_TERRAIN =
    "tev.ext.intersects.terrain";
const char* const TEVSysCnst::PropertyKey::TEV_ISD_DLL_DSOM = "tev.isd.r";
const char* const TEVSysCnst::PropertyKey::TEV_ISD_DLL_RV402 = "tev.isd.g";
const char* const TEVSysCnst::PropertyKey::TEV_LOG_DELIMITER = "|";
const char* const TEVSysCnst::PropertyKey::TEV_LOG_DYNAMIC_LOGGING = "tev.log.dynamic.logging";
const char* const TEVSysCnst::PropertyKey::TEV_LOG_LOGGERS = "tev.log.loggers";
const char* const TEVSysCnst::PropertyKey::TEV_LOG_LOGGING_LEVEL = "tev.log.level";
const char* const TEVSysCnst::PropertyKey::TEV_LOG_LOGGING_STATUS = "tev.logging.status";
const char* const TEVSysCnst::PropertyKey::TEV_LOGGER_CONSOLE = "console";
const char* const TEVSysCnst::PropertyKey::TEV_LOGGER_HTML_FILE = "html.file";
const char* const TEVSysCnst::PropertyKey::TEV_LOGGER_PLAIN_FILE = "plain.file";
const char* const TEVSysCnst::PropertyKey::TEV_LOGGER_TIME_BASED_ROLLING_HTML_FILE =
    "time.based.rolling.html.file";
const char* const TEVSysCnst::PropertyKey::TEV_LOGGER_TIME_BASED_ROLLING_PLAIN_FILE =
    "time.based.rolling.plain.file";
const char* const TEVSysCnst::PropertyKey::TEV_KPT_TOOLKIT_G = "tev.kpt.toolkit.g";
const char* const TEVSysCnst::PropertyKey::TEV_PATH_DTED0 = "tev.path.dted0";
const char* const TEVSysCnst::PropertyKey::TEV_PATH_DTED1 = "tev.path.dted1";
const char* const TEVSysCnst::PropertyKey::TEV_PATH_DTED2 = "tev.path.dted2";
const char* const TEVSysCnst::PropertyKey::TEV_PATH_SRTM1 = "tev.path.srtm1";
const char* const TEVSysCnst::PropertyKey::TEV_PATH_SRTM2 = "tev.path.srtm2";
const char* const TEVSysCnst::PropertyKey::TEV_RS_DLL_DSOM = "tev.rs.r";
const char* const TEVSysCnst::PropertyKey::TEV_RS_DLL_RV402 = "tev.rs.g";
const char* const TEVSysCnst::PropertyKey::TEV_SUPPORT_PROXY_ISD = "tev.support.proxy.isd";
const char* const TEVSysCnst::PropertyKey::TEV_SUPPORTED_PROXY_ISD_EXT =
    "tev.supported.proxy.isd.ext";
const char* const TEVSysCnst::PropertyKey::TEV_SYS_CONFIG_DIR = "tev.sys.config.dir";
const char* const TEVSysCnst::PropertyKey::TEV_USER_CONFIG_DIR = "tev.user.config.dir";
const char* const TEVSysCnst::PropertyKey::TEV_SYS_PROPERTIES_FILE_NAME = "tev.system.properties";
const char* const TEVSysCnst::PropertyKey::TEV_USER_PROPERTIES_FILE_NAME = "tev.user.properties";
const char* const TEVSysCnst::PropertyKey::ENV_TEV_SYS_CONFIG_DIR = "TEV_SYS_CONFIG_DIR";
const char* const TEVSysCnst::PropertyKey::ENV_TEV_USER_CONFIG_DIR = "TEV_USER_CONFIG_DIR";

const char* const TEVSysCnst::PropertyKeyCSM::CORVID_CSMXFORM_APPROX =
    "tamo:corvid.csmxform.approx.ok";
const char* const TEVSysCnst::PropertyKeyCSM::CORVID_CSMXFORM_OPERATION_MODE =
    "tamo:corvid.csmxform.operation.mode";
const char* const TEVSysCnst::PropertyKeyCSM::CORVID_ENABLE_CSMXFORM =
    "tamo:corvid.enable.csmxform";
const char* const TEVSysCnst::PropertyKeyCSM::CORVID_LOG_DIR = "tamo:corvid.log.dir";

const char* const TEVSysCnst::ClassificationMarking::CLASS_C = "C";
const char* const TEVSysCnst::ClassificationMarking::CLASS_R = "R";
const char* const TEVSysCnst::ClassificationMarking::CLASS_S = "S";
const char* const TEVSysCnst::ClassificationMarking::CLASS_T = "T";
const char* const TEVSysCnst::ClassificationMarking::CLASS_U = "U";
const char* const TEVSysCnst::ClassificationMarking::STR_SC_C = "(C) ";
const char* const TEVSysCnst::ClassificationMarking::STR_SC_S = "(S) ";
const char* const TEVSysCnst::ClassificationMarking::STR_SC_S_REL_TO_US_FVEY =
    "(S//REL TO USA, FVEY) ";
const char* const TEVSysCnst::ClassificationMarking::STR_SC_TS = "(TS) ";
const char* const TEVSysCnst::ClassificationMarking::STR_SC_U = "(U) ";

const std::size_t TEVSysCnst::ClassificationMarking::SZ_CLASS_C;
const std::size_t TEVSysCnst::ClassificationMarking::SZ_CLASS_R;
const std::size_t TEVSysCnst::ClassificationMarking::SZ_CLASS_S;
const std::size_t TEVSysCnst::ClassificationMarking::SZ_CLASS_T;
const std::size_t TEVSysCnst::ClassificationMarking::SZ_CLASS_U;

const char* const TEVSysCnst::GlobalExpFunction::WAYPOINT_DEL_C_STRING = "WaypointDelCString";
const char* const TEVSysCnst::GlobalExpFunction::WAYPOINT_DLL = "WaypointLib.dll";
const char* const TEVSysCnst::GlobalExpFunction::WAYPOINT_TRANSLATE = "WaypointTranslate";
const char* const TEVSysCnst::GlobalExpFunction::WAYPOINT_VALIDATE = "WaypointValidate";

const std::size_t TEVSysCnst::GlobalExpFunction::SZ_WAYPOINT_DEL_C_STRING;
const std::size_t TEVSysCnst::GlobalExpFunction::SZ_WAYPOINT_DLL;
const std::size_t TEVSysCnst::GlobalExpFunction::SZ_WAYPOINT_TRANSLATE;
const std::size_t TEVSysCnst::GlobalExpFunction::SZ_WAYPOINT_VALIDATE;

}  // namespace TAMO::TEV::System
