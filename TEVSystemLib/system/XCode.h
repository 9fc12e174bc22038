#pragma once

#include <TEVSystemLib/TEVSystemExport.h>

#include <cstddef>

namespace TAMO::TEV::System {

// Levels that the framework reads from configuration text and passes between modules as integers.
// The class holds the enumeration and its texts only; it is never instantiated.
class TEVSYSTEMLIB_API XCode {
 public:
    enum Instruction : int {
        Uninitialized = -2,  // no level chosen yet
        Unknown = -1,        // text or number not recognised
        Basic = 0,
        Default = 1,
        Maximum = 2,
        Minimum = 3
    };

    static const char* const STR_BASIC;
    static const char* const STR_DEFAULT;
    static const char* const STR_MAXIMUM;
    static const char* const STR_MINIMUM;
    static const char* const STR_UNINITIALIZED;

    static const std::size_t SZ_STR_BASIC = 5;
    static const std::size_t SZ_STR_DEFAULT = 7;
    static const std::size_t SZ_STR_MAXIMUM = 7;
    static const std::size_t SZ_STR_MINIMUM = 7;
    static const std::size_t SZ_STR_UNINITIALIZED = 13;

 private:
    XCode() = default;
    ~XCode() = default;
};

}  // namespace TAMO::TEV::System
