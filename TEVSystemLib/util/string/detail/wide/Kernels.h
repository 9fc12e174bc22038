#pragma once

#include <cstddef>

// The loops that profit from wide registers, once for each instruction level. All levels give the
// same bytes; the portable one is the reference. Ranges are given by a start and a count.
namespace TAMO::TEV::System::Util::detail::wide {

struct Kernels {
    const char* level;

    // The characters in front of the terminator. Reads whole aligned registers, so also bytes
    // behind the terminator, but never another page.
    std::size_t (*length)(const char* text);

    // The place of the first such byte, or `count`.
    std::size_t (*findByte)(const char* text, std::size_t count, char byte);

    // The place of the first occurrence, or `count`; `patternCount` is at least 1.
    std::size_t (*find)(const char* text, std::size_t count, const char* pattern,
                        std::size_t patternCount);

    // The place of the first two bytes that differ by more than the case of an ASCII letter, or
    // `count`.
    std::size_t (*mismatchIgnoringCase)(const char* first, const char* second, std::size_t count);

    // The same of two texts, or the place of their terminators. Reads as `length` does.
    std::size_t (*textMismatchIgnoringCase)(const char* first, const char* second);

    // From one buffer to another or in place; the buffers overlap wholly or not at all.
    void (*toLower)(const char* from, std::size_t count, char* to);
    void (*toUpper)(const char* from, std::size_t count, char* to);
    void (*replaceByte)(const char* from, std::size_t count, char* to, char old, char replacement);

    // As much of Base64 as goes in whole registers: how many bytes of `from` were done, a multiple
    // of a group. Decoding stops in front of a register with a character outside the alphabet.
    std::size_t (*encodeBase64)(const unsigned char* from, std::size_t count, char* to);
    std::size_t (*decodeBase64)(const char* from, std::size_t count, unsigned char* to);

    // In place; `elementSize` is 2, 4 or 8.
    void (*swapBytes)(void* elements, std::size_t count, std::size_t elementSize);

    // How many leading characters were ASCII and copied; may stop up to a register earlier.
    std::size_t (*widenAscii)(const char* from, std::size_t count, char16_t* to);
    std::size_t (*narrowAscii)(const char16_t* from, std::size_t count, char* to);
};

// What this build has, the portable one first, and what a processor can run of it.
struct Levels {
    const Kernels* const* first;
    std::size_t count;
};
struct Processor {
    bool hasSsse3;
    bool hasAvx2;
};
Levels LevelsOf(Processor processor) noexcept;

// Those of this processor.
Levels RunnableLevels() noexcept;

// The last of them, once the module is loaded; while statics are still being made, perhaps the
// portable one.
extern const Kernels* best;
inline const Kernels& Best() { return *best; }

// What a level's source defines.
extern const Kernels kPortable;
extern const Kernels kSsse3;
extern const Kernels kAvx2;

}  // namespace TAMO::TEV::System::Util::detail::wide
