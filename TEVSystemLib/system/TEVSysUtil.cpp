#include <TEVSystemLib/system/TEVSysCnst.h>
#include <TEVSystemLib/system/TEVSysUtil.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"

namespace TAMO::TEV::System::Util {

namespace {

std::string Identifier(std::string_view className, std::uint64_t count, std::string_view name) {
    std::string identifier(className);
    identifier += TEVSysCnst::DELIMITER_COLON;
    identifier += TEVUtilString::ToString(count);
    identifier += TEVSysCnst::DELIMITER_COLON;
    return identifier.append(name);
}

}  // namespace

char* TEVSysUtil::GetTEVSystemObjectID(const char* const name, const char* const className,
                                       std::size_t count, char** classNameCopy) try {
    if (classNameCopy != nullptr) *classNameCopy = nullptr;
    const std::string_view trimmedName = detail::TrimIfSpaced(detail::OrEmpty(name));
    const std::string_view trimmedClass = detail::TrimIfSpaced(detail::OrEmpty(className));
    if (trimmedName.empty() || trimmedClass.empty()) return nullptr;
    detail::OwnedText identifier = detail::MakeText(Identifier(trimmedClass, count, trimmedName));
    if (classNameCopy != nullptr) detail::HandOut(trimmedClass, classNameCopy);
    return identifier.release();
} catch (...) {
    return nullptr;
}

}  // namespace TAMO::TEV::System::Util
