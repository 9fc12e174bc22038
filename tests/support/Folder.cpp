#include "support/Folder.h"

#include <windows.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace tev::test {

Folder::Folder() {
    static std::atomic<unsigned> next{0};
    const auto name = "tev-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(next++);
    const auto path = std::filesystem::temp_directory_path() / name;
    std::filesystem::remove_all(path);
    std::filesystem::create_directory(path);
    path_ = path.string();
}

Folder::~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string Folder::operator/(std::string_view name) const {
    return path_ + "\\" + std::string(name);
}

std::string Folder::Write(std::string_view name, std::string_view content) const {
    const std::string path = *this / name;
    std::ofstream file(path, std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    if (!file.flush()) throw std::runtime_error("cannot write " + path);
    return path;
}

std::string Folder::MakeFolder(std::string_view name) const {
    const std::string path = *this / name;
    std::filesystem::create_directory(path);
    return path;
}

std::string ReadAll(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace tev::test
