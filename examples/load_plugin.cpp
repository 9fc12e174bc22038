// Loads a plug-in from a folder of its own, and tells why another one does not load.
#include <TEVSystemLib/TEVOwned.h>
#include <TEVSystemLib/system/TEVSystemDiagnostics.h>
#include <windows.h>

#include <iostream>
#include <string>

using namespace TAMO::TEV::System::Host;
using TAMO::TEV::System::TEVSystemDiagnostics;
using TAMO::TEV::System::Util::TEVUtilWindows;

namespace {

void Load(const char* name, const std::string& folder, OwnedModule& module) {
    const char* folders[] = {folder.c_str(), "C:\\no such folder\\"};
    std::string error;
    if (TEVUtilWindows::LoadModule(name, Out(module), error, folders, 2)) {
        std::cout << name << " is loaded\n";
        return;
    }
    // The first line has the system's code, the second its message in the machine's language.
    std::cout << name << " is not loaded: " << error.substr(0, error.find('\n')) << '\n';
    // What the code stands for: the module, the function or the folder to blame.
    TEVSystemDiagnostics::LoadExplanation why;
    if (TEVSystemDiagnostics::ExplainLoadFailure(name, folders, 2, why))
        std::cout << "  " << why.cause << '\n';
}

}  // namespace

int main() {
    OwnedText here;
    if (!TEVUtilWindows::GetFullyQualifiedExePath(Out(here))) return 1;
    const std::string folder = std::string(here.View()) + "plugins\\";

    OwnedModule sensor;
    Load("sensor.dll", folder, sensor);
    if (!sensor) return 1;
    void* const symbol = reinterpret_cast<void*>(GetProcAddress(sensor.get(), "SensorBands"));
    if (symbol == nullptr) return 1;
    const auto bands = reinterpret_cast<int (*)()>(symbol);
    std::cout << "bands: " << bands() << '\n';

    OwnedModule absent;
    Load("absent.dll", folder, absent);

    // The owner unloads it.
    sensor.Reset();
    std::cout << "sensor.dll is " << (GetModuleHandleA("sensor.dll") ? "still loaded" : "unloaded")
              << '\n';
}
