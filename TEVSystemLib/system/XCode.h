#pragma once

#include <TEVSystemLib/TEVSystemExport.h>

#include <cstddef>

namespace TAMO::TEV::System {

// Levels that the framework reads from configuration text and passes between modules as integers.
// Nothing throws; safe from any thread. The class is never instantiated.
class TEVSYSTEMLIB_API XCode {
 public:
    // The levels as numbers, which do not rank.
    enum Instruction : int {
        Uninitialized = -2,  // no level chosen yet
        Unknown = -1,        // text or number not recognised
        Basic = 0,           // "basic"
        Default = 1,         // "default"
        Maximum = 2,         // "maximum"
        Minimum = 3          // "minimum"
    };

    static const char* const STR_BASIC;
    static const char* const STR_DEFAULT;
    static const char* const STR_MAXIMUM;
    static const char* const STR_MINIMUM;
    static const char* const STR_UNINITIALIZED;

    // Lengths of the texts whose names they repeat, in characters without terminator.
    static const std::size_t SZ_STR_BASIC = 5;
    static const std::size_t SZ_STR_DEFAULT = 7;
    static const std::size_t SZ_STR_MAXIMUM = 7;
    static const std::size_t SZ_STR_MINIMUM = 7;
    static const std::size_t SZ_STR_UNINITIALIZED = 13;

    // A number or value that is no level gives Unknown, or -1.
    static Instruction FromIntToXCodeInstruction(int value);
    static int FromXCodeInstructionToInt(Instruction value);

    // The level that a text names in any letter case, trimmed if a plain space stands at an end;
    // Unknown for any other text.
    static Instruction GetXCodeInstruction(const char* const text);

 private:
    XCode() = default;
    ~XCode() = default;
};

}  // namespace TAMO::TEV::System
