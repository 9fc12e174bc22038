#pragma once

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

// What the file of a module says to the loader. The bytes are trusted in nothing: every place is
// checked against the file, every count against a limit.
namespace TAMO::TEV::System::Util::detail {

enum class PeFlaw : int {
    None,
    Empty,
    NoModule,  // no module's signatures
    CutOff,    // the file ends before what its headers announce
    Damaged,   // tables lead out of the file, or have no end
    OtherForm  // neither of the two forms of header that programs have
};

// A function asked for by name, or by ordinal if the name is empty.
struct PeImport {
    std::string_view name;
    std::uint16_t ordinal = 0;
};

struct PeImportedModule {
    std::string_view name;
    // Loaded only when one of its functions is called first.
    bool isDelayed = false;
    std::vector<PeImport> functions;
};

struct PeFunction {
    // An ordinal may be left out.
    bool isThere = false;
    // "module.function" or "module.#ordinal" when another module has it.
    std::string_view forwarder;
};

struct PeExports {
    std::uint32_t firstOrdinal = 0;
    std::vector<PeFunction> functions;
    // Sorted; with the index of the function.
    std::vector<std::pair<std::string_view, std::uint32_t>> names;

    // Null when the function is not there.
    const PeFunction* Find(const PeImport& wanted) const;
};

constexpr std::uint16_t kPeMachineX64 = 0x8664;

// Views point into the bytes that it was read from.
struct PeImage {
    PeFlaw flaw = PeFlaw::None;
    // 0 when the file does not get so far.
    std::uint16_t machine = 0;
    // Read from modules for x64 only.
    std::vector<PeImportedModule> imports;
    PeExports exports;
};

PeImage ReadPeImage(std::string_view file);

// "module.function" or "module.#ordinal" as an import of a module named with ".dll"; false for a
// text that is neither.
bool SplitForwarder(std::string_view forwarder, std::string_view& module, PeImport& function);

}  // namespace TAMO::TEV::System::Util::detail
