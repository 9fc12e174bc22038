#include <algorithm>

#include "TEVSystemLib/system/detail/ModuleFault.h"
#include "TEVSystemLib/system/detail/ModuleTree.h"
#include "TEVSystemLib/util/windows/detail/PeImage.h"
#include "fuzz/Fuzz.h"
#include "support/PeFile.h"

using namespace TAMO::TEV::System::Util::detail;
using namespace TAMO::TEV::System::detail;
using TAMO::TEV::System::TEVSystemDiagnostics;
using tev::fuzz::Exact;
using tev::fuzz::Expect;
using tev::fuzz::Fields;

namespace {

using Module = TEVSystemDiagnostics::Module;

// A file as it stands, or the body of a module whose tables lie where the first bytes say: headers
// are longer than most inputs.
std::string FileOf(Fields& fields) {
    const auto place = [&fields]() -> std::uint32_t {
        const unsigned choice = fields.Choice();
        return choice == 0 ? 0 : tev::test::kPeBodyAddress + choice - 1;
    };
    const bool isWhole = fields.Choice() == 'W';
    if (isWhole) return fields.Rest();
    tev::test::PeDirectories places;
    places.imports = place();
    places.delayedImports = place();
    places.exports = place();
    places.exportsSize = fields.Choice();
    return tev::test::PeAround(fields.Rest(), places);
}

bool IsInside(const Exact& file, std::string_view text) { return text.empty() || file.Holds(text); }

void CheckImports(const Exact& file, const PeImage& image) {
    for (const PeImportedModule& module : image.imports) {
        Expect(IsInside(file, module.name), "the name of a module lies in the file");
        for (const PeImport& function : module.functions)
            Expect(IsInside(file, function.name), "the name of a function lies in the file");
    }
}

void CheckExports(const Exact& file, const PeExports& exports) {
    Expect(std::is_sorted(exports.names.begin(), exports.names.end()), "names are sorted");
    for (const auto& [name, index] : exports.names) {
        Expect(IsInside(file, name), "the name of an export lies in the file");
        const PeFunction* function = exports.Find({name, 0});
        Expect(name.empty() || function == nullptr || function->isThere, "found, so it is there");
    }
    for (const PeFunction& function : exports.functions)
        Expect(IsInside(file, function.forwarder), "a forwarder lies in the file");
}

// A name leads to the file, to another one, to one of the system, or nowhere.
std::optional<ModulePlace> PlaceOf(const std::string& name) {
    const char kind = name.empty() ? 'x' : name[0];
    if (kind == 'x') return std::nullopt;
    if (kind == 'c') return ModulePlace{"", true};
    return ModulePlace{kind == 's' || kind == 'o' ? std::string(1, kind) : name.substr(0, 2),
                       kind == 's'};
}

std::size_t CountOf(const Module& module) {
    std::size_t count = 1;
    for (const Module& import : module.imports) count += CountOf(import);
    return count;
}

void CheckTree(const std::string& file) {
    const std::string other = tev::test::PeFile({{{"root", {"F"}}}, {{"F", "root.F"}}});
    const Module root = MakeModuleTree(
        "root", {PlaceOf, [&](const std::string& path) -> std::optional<std::string> {
                     return path == "o" || path == "s" ? other : file;
                 }});
    Expect(CountOf(root) <= 10001, "a tree has an end");
    const ModuleFault fault = FirstFault(root);
    Expect((fault.culprit == nullptr) == (fault.problem == TEVSystemDiagnostics::LoadProblem::None),
           "a fault has a culprit");
    Expect(StartOrder(root).size() <= CountOf(root), "modules start once");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fields fields(data, size);
    const std::string file = FileOf(fields);
    const Exact exact(file);
    const PeImage image = ReadPeImage(exact.View());
    CheckImports(exact, image);
    CheckExports(exact, image.exports);
    CheckTree(file);
    std::string_view module;
    PeImport function;
    SplitForwarder(Exact(file).View(), module, function);
    return 0;
}
