#include "Version.h"

#include <windows.h>

#include <vector>

namespace {

std::vector<char> Resource() {
    std::vector<char> block(GetFileVersionInfoSizeA("TEVSystemLib.dll", nullptr));
    const auto size = static_cast<DWORD>(block.size());
    if (!GetFileVersionInfoA("TEVSystemLib.dll", 0, size, block.data())) block.clear();
    return block;
}

std::string Numbers(DWORD high, DWORD low) {
    std::string text;
    for (const DWORD part : {HIWORD(high), LOWORD(high), HIWORD(low), LOWORD(low)})
        text += (text.empty() ? "" : ".") + std::to_string(part);
    return text;
}

}  // namespace

std::string VersionText(const std::string& name) {
    const std::vector<char> block = Resource();
    const std::string path = "\\StringFileInfo\\040904B0\\" + name;
    void* value = nullptr;
    UINT size = 0;
    if (block.empty() || !VerQueryValueA(block.data(), path.c_str(), &value, &size)) return {};
    return static_cast<const char*>(value);
}

std::string VersionNumbers() {
    const std::vector<char> block = Resource();
    void* value = nullptr;
    UINT size = 0;
    if (block.empty() || !VerQueryValueA(block.data(), "\\", &value, &size)) return {};
    const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(value);
    return Numbers(fixed->dwFileVersionMS, fixed->dwFileVersionLS) + " " +
           Numbers(fixed->dwProductVersionMS, fixed->dwProductVersionLS);
}
