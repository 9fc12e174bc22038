#pragma once

#include <TEVSystemLib/system/TEVSysCnst.h>
#include <TEVSystemLib/system/TEVSystemProperties.h>

#include <vector>

#include "system/Constants.h"

namespace tev::test {

inline std::vector<TextConstant> PropertyKeyTexts() {
    using Key = TAMO::TEV::System::TEVSysCnst::PropertyKey;
    return {
        {"TEV_CONST_HT_DEFAULT_TERRAIN_MODEL", Key::TEV_CONST_HT_DEFAULT_TERRAIN_MODEL,
         "tev.cnst.height.default.tm"},
        {"TEV_ENV_ADD", Key::TEV_ENV_ADD, "tev.env.add."},
        {"TEV_ENV_ADD_PATH", Key::TEV_ENV_ADD_PATH, "tev.env.add.path."},
        {"TEV_ENV_DEL", Key::TEV_ENV_DEL, "tev.env.del."},
        {"TEV_ENV_NEW", Key::TEV_ENV_NEW, "tev.env.new."},
        {"TEV_ENV_NEW_PATH", Key::TEV_ENV_NEW_PATH, "tev.env.new.path."},
        {"TEV_ENV_REPLACE", Key::TEV_ENV_REPLACE, "tev.env.replace."},
        {"TEV_ENV_REPLACE_PATH", Key::TEV_ENV_REPLACE_PATH, "tev.env.replace.path."},
        {"TEV_ENV_RM", Key::TEV_ENV_RM, "tev.env.rm."},
        {"TEV_ENSURE_EXT_INTERSECTS_TERRAIN", Key::TEV_ENSURE_EXT_INTERSECTS_TERRAIN,
         "tev.ext.intersects.terrain"},
        {"TEV_ISD_DLL_DSOM", Key::TEV_ISD_DLL_DSOM, "tev.isd.r"},
        {"TEV_ISD_DLL_RV402", Key::TEV_ISD_DLL_RV402, "tev.isd.g"},
        {"TEV_LOG_DELIMITER", Key::TEV_LOG_DELIMITER, "|"},
        {"TEV_LOG_DYNAMIC_LOGGING", Key::TEV_LOG_DYNAMIC_LOGGING, "tev.log.dynamic.logging"},
        {"TEV_LOG_LOGGERS", Key::TEV_LOG_LOGGERS, "tev.log.loggers"},
        {"TEV_LOG_LOGGING_LEVEL", Key::TEV_LOG_LOGGING_LEVEL, "tev.log.level"},
        {"TEV_LOG_LOGGING_STATUS", Key::TEV_LOG_LOGGING_STATUS, "tev.logging.status"},
        {"TEV_LOGGER_CONSOLE", Key::TEV_LOGGER_CONSOLE, "console"},
        {"TEV_LOGGER_HTML_FILE", Key::TEV_LOGGER_HTML_FILE, "html.file"},
        {"TEV_LOGGER_PLAIN_FILE", Key::TEV_LOGGER_PLAIN_FILE, "plain.file"},
        {"TEV_LOGGER_TIME_BASED_ROLLING_HTML_FILE", Key::TEV_LOGGER_TIME_BASED_ROLLING_HTML_FILE,
         "time.based.rolling.html.file"},
        {"TEV_LOGGER_TIME_BASED_ROLLING_PLAIN_FILE", Key::TEV_LOGGER_TIME_BASED_ROLLING_PLAIN_FILE,
         "time.based.rolling.plain.file"},
        {"TEV_KPT_TOOLKIT_G", Key::TEV_KPT_TOOLKIT_G, "tev.kpt.toolkit.g"},
        {"TEV_PATH_DTED0", Key::TEV_PATH_DTED0, "tev.path.dted0"},
        {"TEV_PATH_DTED1", Key::TEV_PATH_DTED1, "tev.path.dted1"},
        {"TEV_PATH_DTED2", Key::TEV_PATH_DTED2, "tev.path.dted2"},
        {"TEV_PATH_SRTM1", Key::TEV_PATH_SRTM1, "tev.path.srtm1"},
        {"TEV_PATH_SRTM2", Key::TEV_PATH_SRTM2, "tev.path.srtm2"},
        {"TEV_RS_DLL_DSOM", Key::TEV_RS_DLL_DSOM, "tev.rs.r"},
        {"TEV_RS_DLL_RV402", Key::TEV_RS_DLL_RV402, "tev.rs.g"},
        {"TEV_SUPPORT_PROXY_ISD", Key::TEV_SUPPORT_PROXY_ISD, "tev.support.proxy.isd"},
        {"TEV_SUPPORTED_PROXY_ISD_EXT", Key::TEV_SUPPORTED_PROXY_ISD_EXT,
         "tev.supported.proxy.isd.ext"},
        {"TEV_SYS_CONFIG_DIR", Key::TEV_SYS_CONFIG_DIR, "tev.sys.config.dir"},
        {"TEV_USER_CONFIG_DIR", Key::TEV_USER_CONFIG_DIR, "tev.user.config.dir"},
        {"TEV_SYS_PROPERTIES_FILE_NAME", Key::TEV_SYS_PROPERTIES_FILE_NAME,
         "tev.system.properties"},
        {"TEV_USER_PROPERTIES_FILE_NAME", Key::TEV_USER_PROPERTIES_FILE_NAME,
         "tev.user.properties"},
        {"ENV_TEV_SYS_CONFIG_DIR", Key::ENV_TEV_SYS_CONFIG_DIR, "TEV_SYS_CONFIG_DIR"},
        {"ENV_TEV_USER_CONFIG_DIR", Key::ENV_TEV_USER_CONFIG_DIR, "TEV_USER_CONFIG_DIR"},
    };
}

inline std::vector<TextConstant> PropertyKeyCsmTexts() {
    using KeyCsm = TAMO::TEV::System::TEVSysCnst::PropertyKeyCSM;
    return {
        {"CORVID_CSMXFORM_APPROX", KeyCsm::CORVID_CSMXFORM_APPROX,
         "tamo:corvid.csmxform.approx.ok"},
        {"CORVID_CSMXFORM_OPERATION_MODE", KeyCsm::CORVID_CSMXFORM_OPERATION_MODE,
         "tamo:corvid.csmxform.operation.mode"},
        {"CORVID_ENABLE_CSMXFORM", KeyCsm::CORVID_ENABLE_CSMXFORM, "tamo:corvid.enable.csmxform"},
        {"CORVID_LOG_DIR", KeyCsm::CORVID_LOG_DIR, "tamo:corvid.log.dir"},
    };
}

inline std::vector<TextConstant> DefaultValueTexts() {
    using Default = TAMO::TEV::System::TEVSystemProperties::DefaultValue;
    return {
        {"TEV_CNST_HGHT_DEFAULT_TM", Default::TEV_CNST_HGHT_DEFAULT_TM, "false"},
        {"TEV_EXT_INTERSECTS_TERRAIN", Default::TEV_EXT_INTERSECTS_TERRAIN, "true"},
        {"TEV_LOG_DYNAMIC_LOGGING", Default::TEV_LOG_DYNAMIC_LOGGING, "off"},
        {"TEV_LOG_LEVEL", Default::TEV_LOG_LEVEL, "DEBUG"},
        {"TEV_LOG_LOGGERS", Default::TEV_LOG_LOGGERS, "plain.file"},
        {"TEV_LOGGING_STATUS", Default::TEV_LOGGING_STATUS, "off"},
        {"TEV_SUPPORT_PROXY_ISD", Default::TEV_SUPPORT_PROXY_ISD, "false"},
        {"TEV_SUPPORTED_PROXY_ISD_EXT", Default::TEV_SUPPORTED_PROXY_ISD_EXT, "*"},
        {"CORVID_CSMXFORM_APPROX_OK", Default::CORVID_CSMXFORM_APPROX_OK, "true"},
        {"CORVID_CSMXFORM_OPERATION_MODE", Default::CORVID_CSMXFORM_OPERATION_MODE, "minimum"},
        {"CORVID_ENABLE_CSMXFORM", Default::CORVID_ENABLE_CSMXFORM, "true"},
    };
}

}  // namespace tev::test
