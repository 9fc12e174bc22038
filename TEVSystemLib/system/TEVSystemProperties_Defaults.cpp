#include <TEVSystemLib/system/TEVSystemProperties.h>

namespace TAMO::TEV::System {

const char* const TEVSystemProperties::DefaultValue::TEV_CNST_HGHT_DEFAULT_TM = "false";
const char* const TEVSystemProperties::DefaultValue::TEV_EXT_INTERSECTS_TERRAIN = "true";
const char* const TEVSystemProperties::DefaultValue::TEV_LOG_DYNAMIC_LOGGING = "off";
const char* const TEVSystemProperties::DefaultValue::TEV_LOG_LEVEL = "DEBUG";
const char* const TEVSystemProperties::DefaultValue::TEV_LOG_LOGGERS = "plain.file";
const char* const TEVSystemProperties::DefaultValue::TEV_LOGGING_STATUS = "off";
const char* const TEVSystemProperties::DefaultValue::TEV_SUPPORT_PROXY_ISD = "false";
const char* const TEVSystemProperties::DefaultValue::TEV_SUPPORTED_PROXY_ISD_EXT = "*";
const char* const TEVSystemProperties::DefaultValue::CORVID_CSMXFORM_APPROX_OK = "true";
const char* const TEVSystemProperties::DefaultValue::CORVID_CSMXFORM_OPERATION_MODE = "minimum";
const char* const TEVSystemProperties::DefaultValue::CORVID_ENABLE_CSMXFORM = "true";

}  // namespace TAMO::TEV::System
