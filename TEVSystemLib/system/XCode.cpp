#include <TEVSystemLib/system/XCode.h>

#include "TEVSystemLib/util/string/detail/AsciiText.h"

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

XCode::Instruction XCode::FromIntToXCodeInstruction(int value) {
    switch (value) {
        case Uninitialized:
        case Basic:
        case Default:
        case Maximum:
        case Minimum:
            return static_cast<Instruction>(value);
        default:
            return Unknown;
    }
}

int XCode::FromXCodeInstructionToInt(Instruction value) { return FromIntToXCodeInstruction(value); }

XCode::Instruction XCode::GetXCodeInstruction(const char* const text) {
    using Util::detail::EqualsIgnoringCase;
    const std::string_view word = Util::detail::TrimIfSpaced(Util::detail::OrEmpty(text));
    if (EqualsIgnoringCase(word, {STR_BASIC, SZ_STR_BASIC})) return Basic;
    if (EqualsIgnoringCase(word, {STR_DEFAULT, SZ_STR_DEFAULT})) return Default;
    if (EqualsIgnoringCase(word, {STR_MAXIMUM, SZ_STR_MAXIMUM})) return Maximum;
    if (EqualsIgnoringCase(word, {STR_MINIMUM, SZ_STR_MINIMUM})) return Minimum;
    if (EqualsIgnoringCase(word, {STR_UNINITIALIZED, SZ_STR_UNINITIALIZED})) return Uninitialized;
    return Unknown;
}

}  // namespace TAMO::TEV::System
