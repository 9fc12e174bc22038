#include <TEVSystemLib/system/XCode.h>

namespace TAMO::TEV::System {

const char* const XCode::STR_BASIC = "basic";
const char* const XCode::STR_DEFAULT = "default";
const char* const XCode::STR_MAXIMUM = "maximum";
const char* const XCode::STR_MINIMUM = "minimum";
const char* const XCode::STR_UNINITIALIZED = "uninitialized";

const std::size_t XCode::SZ_STR_BASIC;
const std::size_t XCode::SZ_STR_DEFAULT;
const std::size_t XCode::SZ_STR_MAXIMUM;
const std::size_t XCode::SZ_STR_MINIMUM;
const std::size_t XCode::SZ_STR_UNINITIALIZED;

}  // namespace TAMO::TEV::System
