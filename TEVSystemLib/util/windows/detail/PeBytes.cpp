#include "TEVSystemLib/util/windows/detail/PeBytes.h"

#include <limits>

namespace TAMO::TEV::System::Util::detail {

std::string_view PeBytes::Part(std::uint64_t offset, std::uint64_t size) {
    const bool isInside = offset <= file_.size() && size <= file_.size() - offset;
    isAllInside_ = isAllInside_ && isInside;
    return isInside ? file_.substr(offset, size) : std::string_view();
}

std::uint64_t PeBytes::Number(std::uint64_t offset, unsigned size) {
    std::uint64_t number = 0;
    unsigned shift = 0;
    for (const char c : Part(offset, size)) {
        number |= std::uint64_t{static_cast<unsigned char>(c)} << shift;
        shift += 8;
    }
    return number;
}

std::uint16_t PeBytes::Number16(std::uint64_t offset) {
    return static_cast<std::uint16_t>(Number(offset, 2));
}

std::uint32_t PeBytes::Number32(std::uint64_t offset) {
    return static_cast<std::uint32_t>(Number(offset, 4));
}

std::uint64_t PeBytes::Number64(std::uint64_t offset) { return Number(offset, 8); }

std::string_view PeBytes::Text(std::uint64_t offset) {
    constexpr std::size_t kMaxLength = 4096;
    const std::string_view rest =
        Part(offset, 1).empty() ? std::string_view() : file_.substr(offset, kMaxLength + 1);
    const std::size_t end = rest.find('\0');
    isAllInside_ = isAllInside_ && end != std::string_view::npos;
    return isAllInside_ ? rest.substr(0, end) : std::string_view();
}

std::uint64_t PeMemory::Offset(std::uint64_t address) const {
    for (const PeSection& section : sections_)
        if (address >= section.address && address - section.address < section.size)
            return section.offset + (address - section.address);
    return std::numeric_limits<std::uint64_t>::max();
}

}  // namespace TAMO::TEV::System::Util::detail
