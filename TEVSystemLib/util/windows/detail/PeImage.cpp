#include "TEVSystemLib/util/windows/detail/PeImage.h"

#include <algorithm>
#include <optional>

#include "TEVSystemLib/util/windows/detail/PeBytes.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

// Far above what linkers make; a table that is longer has no end.
constexpr std::size_t kMaxModules = 4096;
constexpr std::size_t kMaxFunctions = 65536;

struct Directory {
    std::uint32_t address = 0;
    std::uint32_t size = 0;
};

struct Headers {
    std::uint16_t machine = 0;
    std::uint16_t form = 0;
    std::vector<PeSection> sections;
    Directory exports;
    Directory imports;
    Directory delayedImports;
};

constexpr std::uint16_t kForm32 = 0x10B;
constexpr std::uint16_t kForm64 = 0x20B;
constexpr std::uint64_t kFileHeaderSize = 24;  // with the signature

// The place of the signature "PE"; nothing without it.
std::optional<std::uint32_t> HeaderOffset(PeBytes& bytes) {
    constexpr std::uint16_t kDosSignature = 0x5A4D;
    constexpr std::uint32_t kPeSignature = 0x4550;
    constexpr std::uint64_t kOffsetPlace = 0x3C;
    if (bytes.Number16(0) != kDosSignature) return std::nullopt;
    const std::uint32_t offset = bytes.Number32(kOffsetPlace);
    if (bytes.Number32(offset) != kPeSignature) return std::nullopt;
    return offset;
}

Directory DirectoryAt(PeBytes& bytes, std::uint64_t optionalHeader, unsigned index) {
    constexpr std::uint64_t kCountPlace = 108;
    constexpr std::uint64_t kFirstPlace = 112;
    if (index >= bytes.Number32(optionalHeader + kCountPlace)) return {};
    const std::uint64_t place = optionalHeader + kFirstPlace + std::uint64_t{8} * index;
    return {bytes.Number32(place), bytes.Number32(place + 4)};
}

// The part of a section that the file holds; the rest of it is zeros.
PeSection SectionAt(PeBytes& bytes, std::uint64_t place) {
    const std::uint32_t size = bytes.Number32(place + 8);
    const std::uint32_t address = bytes.Number32(place + 12);
    const std::uint32_t fileSize = bytes.Number32(place + 16);
    const std::uint32_t offset = bytes.Number32(place + 20);
    // Asks for the bytes, so that a file that ends too early is noticed.
    bytes.Part(offset, fileSize);
    return {address, size == 0 ? fileSize : std::min(size, fileSize), offset};
}

std::vector<PeSection> SectionsAt(PeBytes& bytes, std::uint64_t place, unsigned count,
                                  std::uint32_t headerSize) {
    constexpr std::uint64_t kSectionSize = 40;
    std::vector<PeSection> sections{{0, headerSize, 0}};
    for (unsigned i = 0; i < count && bytes.IsAllInside(); ++i)
        sections.push_back(SectionAt(bytes, place + kSectionSize * i));
    return sections;
}

void ReadHeaders(PeBytes& bytes, std::uint64_t offset, Headers& headers) {
    constexpr std::uint64_t kHeaderSizePlace = 60;
    headers.machine = bytes.Number16(offset + 4);
    const unsigned sectionCount = bytes.Number16(offset + 6);
    const std::uint64_t optionalSize = bytes.Number16(offset + 20);
    const std::uint64_t optionalHeader = offset + kFileHeaderSize;
    headers.form = bytes.Number16(optionalHeader);
    if (headers.machine != kPeMachineX64 || headers.form != kForm64) return;
    headers.exports = DirectoryAt(bytes, optionalHeader, 0);
    headers.imports = DirectoryAt(bytes, optionalHeader, 1);
    headers.delayedImports = DirectoryAt(bytes, optionalHeader, 13);
    headers.sections = SectionsAt(bytes, optionalHeader + optionalSize, sectionCount,
                                  bytes.Number32(optionalHeader + kHeaderSizePlace));
}

PeImport ImportAt(PeMemory& memory, std::uint64_t entry) {
    constexpr std::uint64_t kByOrdinal = std::uint64_t{1} << 63;
    if ((entry & kByOrdinal) != 0) return {{}, static_cast<std::uint16_t>(entry)};
    constexpr std::uint64_t kHintSize = 2;
    return {memory.Text((entry & 0x7FFFFFFF) + kHintSize), 0};
}

// Reads the tables of one image; `isSane` falls when one has no end.
class TableReader {
 public:
    explicit TableReader(PeMemory& memory) : memory_(memory) {}

    bool IsSane() const { return isSane_ && memory_.IsAllInside(); }

    void ReadImports(std::uint64_t address, std::vector<PeImportedModule>& modules) {
        constexpr std::uint64_t kEntrySize = 20;
        for (; address != 0 && IsSane(); address += kEntrySize) {
            const std::uint32_t name = memory_.Number32(address + 12);
            const std::uint32_t addresses = memory_.Number32(address + 16);
            if (name == 0 || addresses == 0) return;
            const std::uint32_t names = memory_.Number32(address);
            Add(modules, false, name, names == 0 ? addresses : names);
        }
    }

    void ReadDelayedImports(std::uint64_t address, std::vector<PeImportedModule>& modules) {
        constexpr std::uint64_t kEntrySize = 32;
        for (; address != 0 && IsSane(); address += kEntrySize) {
            const std::uint32_t name = memory_.Number32(address + 4);
            if (name == 0) return;
            // Old linkers wrote places that only a loaded module can tell.
            const bool isRelative = (memory_.Number32(address) & 1U) != 0;
            if (isRelative) Add(modules, true, name, memory_.Number32(address + 16));
        }
    }

    void ReadExports(Directory directory, PeExports& exports) {
        if (directory.address == 0) return;
        const std::uint64_t table = directory.address;
        exports.firstOrdinal = memory_.Number32(table + 16);
        const std::uint32_t functionCount = Counted(memory_.Number32(table + 20));
        const std::uint32_t nameCount = Counted(memory_.Number32(table + 24));
        const std::uint64_t functions = memory_.Number32(table + 28);
        for (std::uint32_t i = 0; i < functionCount && IsSane(); ++i)
            exports.functions.push_back(FunctionAt(functions + std::uint64_t{4} * i, directory));
        ReadNames(table, nameCount, exports);
    }

 private:
    std::uint32_t Counted(std::uint32_t count) {
        isSane_ = isSane_ && count <= kMaxFunctions;
        return count;
    }

    void Add(std::vector<PeImportedModule>& modules, bool isDelayed, std::uint32_t name,
             std::uint64_t entries) {
        PeImportedModule module{memory_.Text(name), isDelayed, {}};
        for (; IsSane(); entries += 8) {
            const std::uint64_t entry = memory_.Number64(entries);
            if (entry == 0) break;
            module.functions.push_back(ImportAt(memory_, entry));
            isSane_ = ++functionCount_ <= kMaxFunctions;
        }
        modules.push_back(std::move(module));
        isSane_ = isSane_ && modules.size() <= kMaxModules;
    }

    PeFunction FunctionAt(std::uint64_t place, Directory directory) {
        const std::uint32_t address = memory_.Number32(place);
        const bool isForwarded =
            address >= directory.address && address - directory.address < directory.size;
        return {address != 0, isForwarded ? memory_.Text(address) : std::string_view()};
    }

    void ReadNames(std::uint64_t table, std::uint32_t count, PeExports& exports) {
        const std::uint64_t names = memory_.Number32(table + 32);
        const std::uint64_t indices = memory_.Number32(table + 36);
        for (std::uint64_t i = 0; i < count && IsSane(); ++i)
            exports.names.emplace_back(memory_.Text(memory_.Number32(names + 4 * i)),
                                       memory_.Number16(indices + 2 * i));
        std::sort(exports.names.begin(), exports.names.end());
    }

    PeMemory& memory_;
    std::size_t functionCount_ = 0;
    bool isSane_ = true;
};

bool ReadTables(PeBytes& bytes, const Headers& headers, PeImage& image) {
    PeMemory memory(bytes, headers.sections);
    TableReader reader(memory);
    reader.ReadImports(headers.imports.address, image.imports);
    reader.ReadDelayedImports(headers.delayedImports.address, image.imports);
    reader.ReadExports(headers.exports, image.exports);
    return reader.IsSane();
}

PeFlaw Read(std::string_view file, PeImage& image) {
    if (file.empty()) return PeFlaw::Empty;
    PeBytes bytes(file);
    const auto offset = HeaderOffset(bytes);
    if (!offset) return bytes.IsAllInside() ? PeFlaw::NoModule : PeFlaw::CutOff;
    Headers headers;
    ReadHeaders(bytes, *offset, headers);
    image.machine = headers.machine;
    if (!bytes.IsAllInside()) return PeFlaw::CutOff;
    if (headers.form != kForm32 && headers.form != kForm64) return PeFlaw::OtherForm;
    if (headers.sections.empty()) return PeFlaw::None;
    return ReadTables(bytes, headers, image) ? PeFlaw::None : PeFlaw::Damaged;
}

}  // namespace

const PeFunction* PeExports::Find(const PeImport& wanted) const {
    std::uint32_t index = wanted.ordinal - firstOrdinal;
    if (!wanted.name.empty()) {
        const auto found = std::lower_bound(
            names.begin(), names.end(), wanted.name,
            [](const auto& entry, std::string_view name) { return entry.first < name; });
        if (found == names.end() || found->first != wanted.name) return nullptr;
        index = found->second;
    }
    return index < functions.size() && functions[index].isThere ? &functions[index] : nullptr;
}

PeImage ReadPeImage(std::string_view file) {
    PeImage image;
    image.flaw = Read(file, image);
    return image;
}

bool SplitForwarder(std::string_view forwarder, std::string_view& module, PeImport& function) {
    const std::size_t point = forwarder.rfind('.');
    if (point == std::string_view::npos || point == 0 || point + 1 == forwarder.size())
        return false;
    module = forwarder.substr(0, point);
    function = {forwarder.substr(point + 1), 0};
    if (function.name.front() != '#') return true;
    unsigned ordinal = 0;
    for (const char c : function.name.substr(1)) {
        if (c < '0' || c > '9' || ordinal > 0xFFFF) return false;
        ordinal = 10 * ordinal + static_cast<unsigned>(c - '0');
    }
    if (function.name.size() == 1 || ordinal > 0xFFFF) return false;
    function = {{}, static_cast<std::uint16_t>(ordinal)};
    return true;
}

}  // namespace TAMO::TEV::System::Util::detail
