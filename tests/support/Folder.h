#pragma once

#include <string>
#include <string_view>

namespace tev::test {

// A fresh folder below the temporary folder, removed with everything in it.
class Folder {
 public:
    Folder();
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    // "C:\...\tev-1-2", without a separator at its end.
    const std::string& Path() const { return path_; }
    // The full path of an entry of the folder, whether or not it exists.
    std::string operator/(std::string_view name) const;
    // Make an entry and give its full path; folders in `name` must exist.
    std::string Write(std::string_view name, std::string_view content) const;
    std::string MakeFolder(std::string_view name) const;

 private:
    std::string path_;
};

// The content of a file; fails the test when it cannot be read.
std::string ReadAll(const std::string& path);

}  // namespace tev::test
