#include <TEVSystemLib/system/XCode.h>
#include <TEVSystemLib/util/file/TEVIO.h>
#include <TEVSystemLib/util/file/TEVUtilFile.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include "boundary/Jobs.h"
#include "support/Folder.h"
#include "support/Owned.h"

namespace tev::test {

namespace {

using TAMO::TEV::System::XCode;
using TAMO::TEV::System::Util::TEVIO;
using TAMO::TEV::System::Util::TEVUtilFile;
using TAMO::TEV::System::Util::TEVUtilWindows;

std::string Modules(unsigned seed) {
    HINSTANCE__* module = nullptr;
    std::string error;
    const bool isLoaded = TEVUtilWindows::LoadModule("kernel32.dll", module, error, nullptr, 0);
    TEVUtilWindows::FreeModuleHandle(module);
    const std::string absent = "tev-absent-" + Number(seed) + ".dll";
    TEVUtilWindows::LoadModule(absent.c_str(), module, error, nullptr, 0);
    const Text folder(TEVUtilWindows::GetModuleFullyQualifiedPath("TEVSystemLib.dll"));
    return Line(isLoaded, error, folder.str(), TEVUtilWindows::RetrieveCurrentProcess());
}

// A tenth of a second each under Wine: by four threads only.
std::string ModuleLists(unsigned seed) {
    if (seed % 16 != 0) return "";
    std::string before;
    TEVUtilWindows::RetrieveFullyQualifiedModulePath(
        "\\TEVSystemLib.dll", TEVUtilWindows::RetrieveCurrentProcessID(), before);
    TextArray all;
    TEVUtilWindows::RetrieveAllLoadedModulesInCurrentProcess(all.array, all.count);
    const Text corvid(TEVUtilWindows::GetCurrentProcessCorvidRootFolder());
    const Text kit(TEVUtilWindows::GetCurrentProcessKPTRootFolder());
    return Line(before, all.count > 0, corvid.str(), kit.str());
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
// Its first call is made on one thread.
bool IsUuid(const std::string& text) { return TEVUtilWindows::IsValidUUID(text.c_str()); }
#pragma GCC diagnostic pop

std::string Environment(unsigned seed) {
    TextArray names;
    TextArray values;
    TEVUtilWindows::GetCurrentProcessEnvironmentVariables(names.array, values.array, names.count);
    values.count = names.count;
    Text path;
    TEVUtilWindows::GetPathEnvVariable("PATH", path.Out());
    const std::string name = "TEV_ABSENT_" + std::to_string(seed);
    return Line(names.Strings().size(), values.Strings().front(), path.str(),
                TEVUtilWindows::EnvironmentVariableExists(name.c_str()),
                IsUuid("01234567-89AB-4DEF-8EDC-BA98765432" + std::to_string(seed % 10 + 10)));
}

std::string OpenFiles(unsigned seed) {
    const Folder folder;
    const std::string path = folder.Write("a.text", Number(seed));
    TEVIO file;
    file.open(path, TEVIO::Read);
    char bytes[] = "??";
    const bool isMoved = file.seek(1, SEEK_SET);
    file.read(bytes, 2);
    return Line(file.isOpen(), isMoved, bytes, file.tell(), TEVIO::fileSize(path.c_str()),
                TEVIO::dirExists(folder.Path()), TEVUtilWindows::FileExists(path.c_str()),
                file.getFilePath() == path);
}

std::string Names(unsigned seed) {
    const std::string path = "C:/a" + Number(seed) + "/b.text";
    const char* extension = nullptr;
    TEVUtilFile::GetFileExtension(path.c_str(), extension, true);
    const auto level = XCode::FromIntToXCodeInstruction(static_cast<int>(seed % 4));
    return Line(extension, TEVUtilFile::GetFileNameIndex(path.c_str()),
                XCode::FromXCodeInstructionToInt(level));
}

}  // namespace

std::vector<Job> ProcessJobs() {
    return {{"modules", Modules},
            {"module lists", ModuleLists},
            {"environment", Environment},
            {"open files", OpenFiles},
            {"names", Names}};
}

}  // namespace tev::test
