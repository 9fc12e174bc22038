#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

// The bytes of a module's file, as the loader would place them.
namespace TAMO::TEV::System::Util::detail {

// Little-endian numbers of a text; what lies outside reads as 0 and is remembered.
class PeBytes {
 public:
    explicit PeBytes(std::string_view file) : file_(file) {}

    bool IsAllInside() const { return isAllInside_; }

    std::uint16_t Number16(std::uint64_t offset);
    std::uint32_t Number32(std::uint64_t offset);
    std::uint64_t Number64(std::uint64_t offset);
    std::string_view Part(std::uint64_t offset, std::uint64_t size);
    // Up to a NUL, which must come within the file and a limit.
    std::string_view Text(std::uint64_t offset);

 private:
    std::uint64_t Number(std::uint64_t offset, unsigned size);

    std::string_view file_;
    bool isAllInside_ = true;
};

// Where a part of the file is placed, relative to the module's start.
struct PeSection {
    std::uint32_t address = 0;
    std::uint32_t size = 0;
    std::uint32_t offset = 0;
};

// The same bytes by their place in memory.
class PeMemory {
 public:
    PeMemory(PeBytes& bytes, std::vector<PeSection> sections)
        : bytes_(bytes), sections_(std::move(sections)) {}

    std::uint16_t Number16(std::uint64_t address) { return bytes_.Number16(Offset(address)); }
    std::uint32_t Number32(std::uint64_t address) { return bytes_.Number32(Offset(address)); }
    std::uint64_t Number64(std::uint64_t address) { return bytes_.Number64(Offset(address)); }
    std::string_view Text(std::uint64_t address) { return bytes_.Text(Offset(address)); }
    bool IsAllInside() const { return bytes_.IsAllInside(); }

 private:
    // Beyond the file when no section holds the address.
    std::uint64_t Offset(std::uint64_t address) const;

    PeBytes& bytes_;
    std::vector<PeSection> sections_;
};

}  // namespace TAMO::TEV::System::Util::detail
