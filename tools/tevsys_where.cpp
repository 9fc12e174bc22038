#include "tools/tevsys_where.h"

#include <TEVSystemLib/system/TEVSysCnst.h>
#include <TEVSystemLib/util/string/TEVStringOps.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include <memory>
#include <optional>
#include <string>

#include "tools/tevsys_console.h"

namespace tevsys {

namespace {

using TAMO::TEV::System::TEVSysCnst;
using TAMO::TEV::System::Util::TEVStringOps;
using TAMO::TEV::System::Util::TEVUtilWindows;

using Folder = std::optional<std::string>;

// Takes over a text that the library handed out.
Folder Taken(char* text) {
    const std::unique_ptr<char, void (*)(char*)> owned(text, TEVStringOps::Delete);
    return owned == nullptr ? Folder() : Folder(owned.get());
}

void ShowLine(std::ostream& out, const char* name, const Folder& folder, const std::string& how,
              const char* whyNot) {
    out << name << '\t' << ToUtf8(folder.value_or("-")) << '\t'
        << (folder ? how : std::string("not found: ") + whyNot) << '\n';
}

void ShowExe(std::ostream& out) {
    char* folder = nullptr;
    TEVUtilWindows::GetFullyQualifiedExePath(&folder);
    ShowLine(out, "exe", Taken(folder), "this program", "the system does not tell");
}

// The marker module that led to a folder: the first of them that leads there.
std::string MarkerOf(const std::string& folder) {
    const unsigned long self = TEVUtilWindows::RetrieveCurrentProcessID();
    for (const char* marker : {"Plinth.dll", "SensorSupportDataLib.dll"}) {
        const std::string text = std::string("\\") + marker;
        std::string found;
        if (TEVUtilWindows::RetrieveFullyQualifiedModulePath(text.c_str(), self, found) &&
            found == folder)
            return marker;
    }
    return "MeasureKitLib.dll";
}

void ShowProgram(std::ostream& out) {
    const Folder folder = Taken(TEVUtilWindows::GetCurrentProcessCorvidRootFolder());
    ShowLine(out, "program", folder, folder ? "module " + MarkerOf(*folder) : "",
             "none of Plinth.dll, SensorSupportDataLib.dll, MeasureKitLib.dll leads to one");
}

void ShowToolkit(std::ostream& out) {
    const Folder folder = Taken(TEVUtilWindows::GetCurrentProcessKPTRootFolder());
    // The other variable is asked first: what is found without this one was found through that one.
    TEVUtilWindows::SetSessionEnvironmentVariable(TEVSysCnst::STR_CSM_PLUGIN_DIR, nullptr);
    const bool isFirst = Taken(TEVUtilWindows::GetCurrentProcessKPTRootFolder()).has_value();
    const char* variable = isFirst ? TEVSysCnst::STR_KPT_DATA_DIR : TEVSysCnst::STR_CSM_PLUGIN_DIR;
    ShowLine(out, "toolkit", folder, std::string("variable ") + variable,
             "neither KPT_DATA_DIR nor CSM_PLUGIN_DIR leads to one");
}

void ShowDocuments(std::ostream& out) {
    char* folder = nullptr;
    TEVUtilWindows::GetCurrentUserHomeFolder(&folder);
    ShowLine(out, "documents", Taken(folder), "known folder Documents", "there is no such folder");
}

}  // namespace

void ShowWhere(std::ostream& out) {
    ShowExe(out);
    ShowProgram(out);
    ShowToolkit(out);
    ShowDocuments(out);
}

}  // namespace tevsys
