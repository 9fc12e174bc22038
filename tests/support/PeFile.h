#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

// Files of modules made from a description, sound ones and others, for what no linker makes.
namespace tev::test {

struct PeDirectories {
    std::uint32_t exports = 0;
    std::uint32_t exportsSize = 0;
    std::uint32_t imports = 0;
    std::uint32_t delayedImports = 0;
};

constexpr std::uint32_t kPeBodyAddress = 0x1000;
constexpr std::uint64_t kFirstOrdinal = 5;
constexpr std::uint16_t kPeX64 = 0x8664;
constexpr std::uint16_t kPeX86 = 0x14C;

inline void PutNumber(std::string& bytes, std::size_t place, std::uint64_t number, unsigned size) {
    for (unsigned i = 0; i < size; ++i) bytes[place + i] = static_cast<char>(number >> (8 * i));
}

// A module for a machine whose one section is `body`, at kPeBodyAddress.
inline std::string PeAround(const std::string& body, const PeDirectories& directories,
                            std::uint16_t machine = kPeX64) {
    constexpr std::size_t kHeader = 0x40;
    constexpr std::size_t kOptional = kHeader + 24;
    constexpr std::size_t kOptionalSize = 240;
    constexpr std::size_t kSection = kOptional + kOptionalSize;
    constexpr std::size_t kBody = 0x180;
    std::string file(kBody, '\0');
    const auto put = [&file](std::size_t place, std::uint64_t number, unsigned size) {
        PutNumber(file, place, number, size);
    };
    put(0, 0x5A4D, 2);
    put(0x3C, kHeader, 4);
    put(kHeader, 0x4550, 4);
    put(kHeader + 4, machine, 2);
    put(kHeader + 6, 1, 2);
    put(kHeader + 20, kOptionalSize, 2);
    put(kOptional, machine == kPeX86 ? 0x10B : 0x20B, 2);
    put(kOptional + 60, kBody, 4);
    put(kOptional + 108, 16, 4);
    put(kOptional + 112, directories.exports, 4);
    put(kOptional + 116, directories.exportsSize, 4);
    put(kOptional + 120, directories.imports, 4);
    put(kOptional + 112 + 13 * 8, directories.delayedImports, 4);
    put(kSection + 8, body.size(), 4);
    put(kSection + 12, kPeBodyAddress, 4);
    put(kSection + 16, body.size(), 4);
    put(kSection + 20, kBody, 4);
    return file + body;
}

struct PeNeed {
    std::string module;
    // "#7" by ordinal.
    std::vector<std::string> functions;
    bool isDelayed = false;
};

struct PeGives {
    // Empty for an ordinal alone; the ordinal is kFirstOrdinal + the index.
    std::string name;
    std::string forwarder;
};

// The body of a module under construction.
class PeBody {
 public:
    std::uint32_t Add(const std::string& bytes) {
        const auto address = static_cast<std::uint32_t>(kPeBodyAddress + bytes_.size());
        bytes_ += bytes;
        return address;
    }
    std::uint32_t AddText(const std::string& text) { return Add(text + '\0'); }
    std::uint32_t AddNumbers(const std::vector<std::uint64_t>& numbers, unsigned size) {
        std::string bytes(numbers.size() * size, '\0');
        for (std::size_t i = 0; i < numbers.size(); ++i)
            PutNumber(bytes, i * size, numbers[i], size);
        return Add(bytes);
    }
    void Put(std::uint32_t address, std::uint64_t number) {
        PutNumber(bytes_, address - kPeBodyAddress, number, 4);
    }
    std::uint32_t End() const { return static_cast<std::uint32_t>(kPeBodyAddress + bytes_.size()); }
    const std::string& Bytes() const { return bytes_; }

 private:
    std::string bytes_;
};

inline std::uint32_t AddFunctions(PeBody& body, const std::vector<std::string>& functions) {
    std::vector<std::uint64_t> entries;
    for (const std::string& function : functions)
        entries.push_back(function.front() == '#'
                              ? (std::uint64_t{1} << 63) | std::stoul(function.substr(1))
                              : body.AddText(std::string(2, '\0') + function));
    entries.push_back(0);
    return body.AddNumbers(entries, 8);
}

inline std::uint32_t AddNeeds(PeBody& body, const std::vector<PeNeed>& needs, bool delayed) {
    std::vector<std::uint64_t> table;
    for (const PeNeed& need : needs) {
        if (need.isDelayed != delayed) continue;
        const std::uint64_t name = body.AddText(need.module);
        const std::uint64_t functions = AddFunctions(body, need.functions);
        for (const std::uint64_t number :
             delayed ? std::vector<std::uint64_t>{1, name, 0, functions, functions, 0, 0, 0}
                     : std::vector<std::uint64_t>{functions, 0, 0, name, functions})
            table.push_back(number);
    }
    if (table.empty()) return 0;
    table.resize(table.size() + 8);
    return body.AddNumbers(table, 4);
}

// The texts of forwarders stand behind the table, within its size.
inline void AddExports(PeBody& body, const std::vector<PeGives>& gives, PeDirectories& places) {
    if (gives.empty()) return;
    constexpr std::uint64_t kCode = 0x40;
    constexpr std::size_t kTableSize = 40;
    places.exports = body.Add(std::string(kTableSize, '\0'));
    std::vector<std::uint64_t> functions;
    std::vector<std::uint64_t> names;
    std::vector<std::uint64_t> indices;
    for (const PeGives& give : gives) {
        functions.push_back(give.forwarder.empty() ? kCode : body.AddText(give.forwarder));
        if (give.name.empty()) continue;
        names.push_back(body.AddText(give.name));
        indices.push_back(functions.size() - 1);
    }
    const std::vector<std::uint64_t> numbers = {
        kFirstOrdinal,
        functions.size(),
        names.size(),
        body.AddNumbers(functions, 4),
        body.AddNumbers(names, 4),
        body.AddNumbers(indices, 2),
    };
    for (std::size_t i = 0; i < numbers.size(); ++i)
        body.Put(places.exports + 16 + 4 * static_cast<std::uint32_t>(i), numbers[i]);
    places.exportsSize = body.End() - places.exports;
}

struct PeDescription {
    std::vector<PeNeed> needs;
    std::vector<PeGives> gives;
    std::uint16_t machine = kPeX64;
};

// The body and where its tables lie.
inline std::pair<std::string, PeDirectories> PeTables(const PeDescription& description) {
    PeBody body;
    PeDirectories places;
    places.imports = AddNeeds(body, description.needs, false);
    places.delayedImports = AddNeeds(body, description.needs, true);
    AddExports(body, description.gives, places);
    body.AddText("the end");
    return {body.Bytes(), places};
}

inline std::string PeFile(const PeDescription& description) {
    const auto [body, places] = PeTables(description);
    return PeAround(body, places, description.machine);
}

}  // namespace tev::test
