#include <cstring>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/wide/Kernels.h"

namespace TAMO::TEV::System::Util::detail::wide {

namespace {

std::size_t FindByte(const char* text, std::size_t count, char byte) {
    const void* found = std::memchr(text, byte, count);
    return found == nullptr ? count
                            : static_cast<std::size_t>(static_cast<const char*>(found) - text);
}

std::size_t Find(const char* text, std::size_t count, const char* pattern,
                 std::size_t patternCount) {
    const std::size_t found = std::string_view(text, count).find({pattern, patternCount});
    return found == std::string_view::npos ? count : found;
}

std::size_t MismatchIgnoringCase(const char* first, const char* second, std::size_t count) {
    std::size_t i = 0;
    while (i < count && detail::ToLower(first[i]) == detail::ToLower(second[i])) ++i;
    return i;
}

std::size_t TextMismatchIgnoringCase(const char* first, const char* second) {
    std::size_t i = 0;
    while (first[i] != '\0' && detail::ToLower(first[i]) == detail::ToLower(second[i])) ++i;
    return i;
}

template <char (*map)(char)>
void MapAll(const char* from, std::size_t count, char* to) {
    for (std::size_t i = 0; i < count; ++i) to[i] = map(from[i]);
}

char Lower(char c) { return detail::ToLower(c); }
char Upper(char c) { return detail::ToUpper(c); }

void ReplaceByte(const char* from, std::size_t count, char* to, char old, char replacement) {
    for (std::size_t i = 0; i < count; ++i) to[i] = from[i] == old ? replacement : from[i];
}

std::size_t EncodeNone(const unsigned char*, std::size_t, char*) { return 0; }
std::size_t DecodeNone(const char*, std::size_t, unsigned char*) { return 0; }

void SwapBytes(void* elements, std::size_t count, std::size_t elementSize) {
    auto* bytes = static_cast<unsigned char*>(elements);
    for (std::size_t i = 0; i < count; ++i, bytes += elementSize) {
        for (std::size_t low = 0, high = elementSize - 1; low < high; ++low, --high) {
            const unsigned char kept = bytes[low];
            bytes[low] = bytes[high];
            bytes[high] = kept;
        }
    }
}

std::size_t WidenAscii(const char* from, std::size_t count, char16_t* to) {
    std::size_t i = 0;
    for (; i < count && (from[i] & 0x80) == 0; ++i) to[i] = static_cast<char16_t>(from[i]);
    return i;
}

std::size_t NarrowAscii(const char16_t* from, std::size_t count, char* to) {
    std::size_t i = 0;
    for (; i < count && from[i] < 0x80; ++i) to[i] = static_cast<char>(from[i]);
    return i;
}

}  // namespace

const Kernels kPortable = {
    "portable",    std::strlen,          FindByte,
    Find,          MismatchIgnoringCase, TextMismatchIgnoringCase,
    MapAll<Lower>, MapAll<Upper>,        ReplaceByte,
    EncodeNone,    DecodeNone,           SwapBytes,
    WidenAscii,    NarrowAscii,
};

}  // namespace TAMO::TEV::System::Util::detail::wide
