#pragma once

#include <cstddef>
#include <cstring>
#include <utility>

#include "TEVSystemLib/util/string/detail/wide/Kernels.h"

// What the kernels are to do, by plain loops, one byte after the other. What may stop early, and
// Base64, is missing: no one result is the right one.
namespace tev::test {

inline char LoweredByte(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }
inline char RaisedByte(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

struct KernelModel {
    static std::size_t Length(const char* text) {
        std::size_t at = 0;
        while (text[at] != '\0') ++at;
        return at;
    }

    static std::size_t FindByte(const char* text, std::size_t count, char byte) {
        std::size_t at = 0;
        while (at < count && text[at] != byte) ++at;
        return at;
    }

    static std::size_t Find(const char* text, std::size_t count, const char* pattern,
                            std::size_t patternCount) {
        for (std::size_t at = 0; at + patternCount <= count; ++at)
            if (std::memcmp(text + at, pattern, patternCount) == 0) return at;
        return count;
    }

    static std::size_t Mismatch(const char* first, const char* second, std::size_t count) {
        std::size_t at = 0;
        while (at < count && LoweredByte(first[at]) == LoweredByte(second[at])) ++at;
        return at;
    }

    static std::size_t TextMismatch(const char* first, const char* second) {
        std::size_t at = 0;
        while (first[at] != '\0' && LoweredByte(first[at]) == LoweredByte(second[at])) ++at;
        return at;
    }

    static void ToLower(const char* from, std::size_t count, char* to) {
        for (std::size_t i = 0; i < count; ++i) to[i] = LoweredByte(from[i]);
    }

    static void ToUpper(const char* from, std::size_t count, char* to) {
        for (std::size_t i = 0; i < count; ++i) to[i] = RaisedByte(from[i]);
    }

    static void ReplaceByte(const char* from, std::size_t count, char* to, char old,
                            char replacement) {
        for (std::size_t i = 0; i < count; ++i) to[i] = from[i] == old ? replacement : from[i];
    }

    static void SwapBytes(void* elements, std::size_t count, std::size_t elementSize) {
        auto* bytes = static_cast<char*>(elements);
        for (std::size_t i = 0; i < count; ++i, bytes += elementSize)
            for (std::size_t at = 0; at < elementSize / 2; ++at)
                std::swap(bytes[at], bytes[elementSize - 1 - at]);
    }
};

inline constexpr TAMO::TEV::System::Util::detail::wide::Kernels kPlain{"plain loops",
                                                                       KernelModel::Length,
                                                                       KernelModel::FindByte,
                                                                       KernelModel::Find,
                                                                       KernelModel::Mismatch,
                                                                       KernelModel::TextMismatch,
                                                                       KernelModel::ToLower,
                                                                       KernelModel::ToUpper,
                                                                       KernelModel::ReplaceByte,
                                                                       nullptr,
                                                                       nullptr,
                                                                       KernelModel::SwapBytes,
                                                                       nullptr,
                                                                       nullptr};

}  // namespace tev::test
