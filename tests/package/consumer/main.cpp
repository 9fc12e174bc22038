// A host: reads a property, catches the library's exceptions, gives back what it was handed.
#include <TEVSystemLib/system/TEVSysCnst.h>
#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <string>

#include "Version.h"

using TAMO::TEV::System::TEVSysCnst;
using TAMO::TEV::System::TEVSystemProperties;
using TAMO::TEV::System::Util::TEVUtilString;
using TAMO::TEV::System::Util::TEVUtilWindows;

namespace {

int failures = 0;

void Expect(bool isMet, const char* what) {
    if (isMet) return;
    std::printf("not met: %s\n", what);
    ++failures;
}

void ReadsAProperty() {
    TEVUtilWindows::SetSessionEnvironmentVariable("CONSUMER_PROPERTY", "on");
    const char* text = nullptr;
    bool isOn = false;
    Expect(TEVSystemProperties::GetProperty("CONSUMER_PROPERTY", text) &&
               std::strcmp(text, TEVSysCnst::STR_ON) == 0,
           "a property comes from the environment");
    Expect(TEVSystemProperties::GetPropertyAsBool(isOn, "CONSUMER_PROPERTY") && isOn,
           "and reads as a switch");
}

void CatchesExceptions() {
    std::string text;
    try {
        TEVUtilString::Find(nullptr, "x");
    } catch (const std::invalid_argument& error) {
        text = error.what();
    }
    Expect(text == "Input arguments cannot be NULL or empty strings.",
           "std::invalid_argument crosses the DLL border");
    text.clear();
    try {
        char* narrow = nullptr;
        TEVUtilString::ConvertFromWCharToChar(L"\u4e2d", &narrow);
    } catch (const std::runtime_error& error) {
        text = error.what();
    }
    Expect(text == "Failed to convert data from wchar to char.",
           "std::runtime_error crosses the DLL border");
}

void GivesBackWhatItGot() {
    char** tokens = nullptr;
    std::size_t count = 0;
    Expect(TEVUtilString::Tokenize(",", "a,b", tokens, count) && count == 2, "a text is cut");
    TEVUtilString::DeleteCStringArray(tokens, count);
    char* folder = TEVUtilWindows::GetModuleFullyQualifiedPath(TEVSysCnst::MODULE_TEV_SYSTEM_LIB);
    Expect(folder != nullptr, "the DLL's own folder is found");
    TEVUtilString::DeleteCString(&folder);
    Expect(tokens == nullptr && folder == nullptr, "released pointers are null");
}

void ShowsItsVersion() {
    // That of the CMake package.
    const std::string version = CONSUMER_VERSION;
    const std::string numbers = version + ".0";
    Expect(VersionNumbers() == numbers + " " + numbers, "the DLL has a version in numbers");
    Expect(VersionText("FileVersion") == version && VersionText("ProductVersion") == version,
           "and in text");
    Expect(VersionText("FileDescription") ==
               "Foundation library of a geospatial image-exploitation framework",
           "it says what it is");
    Expect(VersionText("OriginalFilename") == "TEVSystemLib.dll" &&
               VersionText("InternalName") == "TEVSystemLib" &&
               VersionText("ProductName") == "TEVSystemLib",
           "and what it is called");
}

}  // namespace

int main() {
    ReadsAProperty();
    CatchesExceptions();
    GivesBackWhatItGot();
    ShowsItsVersion();
    std::puts(failures == 0 ? "consumer: all expectations met" : "consumer: failed");
    return failures;
}
