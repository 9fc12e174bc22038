#include "TEVSystemLib/util/file/detail/FileContent.h"

#include <TEVSystemLib/util/file/TEVIO.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include "TEVSystemLib/util/memory/detail/OwnedArray.h"
#include "TEVSystemLib/util/windows/detail/FileMove.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

bool Write(const std::string& path, const std::string& content) {
    TEVIO file(path, TEVIO::Write);
    return file && file.write(content.data(), content.size()) == content.size();
}

bool IsVirtual(const std::string& path) { return path.compare(0, 4, "/vsi") == 0; }

bool MoveOver(const std::string& from, const std::string& to) {
    return IsVirtual(to) ? MoveOverVirtual(from, to) : MoveOverOnDisk(from, to);
}

// Removes the file at the end of the scope, if it is still there.
class Beside {
 public:
    explicit Beside(const std::string& path)
        : path_(path + '.' + std::to_string(TEVUtilWindows::RetrieveCurrentProcessID()) + ".new") {}
    ~Beside() {
        if (!isMoved_) RemoveFile(path_);
    }
    Beside(const Beside&) = delete;
    Beside& operator=(const Beside&) = delete;

    // What the system reports on closing only, reading back shows.
    bool Holds(const std::string& content) const {
        if (!Write(path_, content)) return false;
        return ReadContent(path_) == content;
    }
    bool TakesThePlaceOf(const std::string& path) {
        isMoved_ = MoveOver(path_, path);
        return isMoved_;
    }

 private:
    std::string path_;
    bool isMoved_ = false;
};

}  // namespace

std::optional<std::string> ReadContent(const std::string& path) {
    char* data = nullptr;
    std::uint64_t size = 0;
    if (TEVIO::readFile(path.c_str(), &data, size)) {
        const OwnedText content(data);
        return std::string(content.get(), size);
    }
    // An empty file cannot be read, and need not.
    if (!TEVIO::exists(path) || TEVIO::fileSize(path.c_str()) != 0) return std::nullopt;
    return std::string();
}

bool ReplaceContent(const std::string& path, const std::string& content) {
    Beside beside(path);
    return beside.Holds(content) && beside.TakesThePlaceOf(path);
}

}  // namespace TAMO::TEV::System::Util::detail
