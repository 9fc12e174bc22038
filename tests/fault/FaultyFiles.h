#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tev::fault {

// What GDAL's virtual file layer asks of a file system.
enum class FileCall {
    Stat,
    OpenToRead,
    OpenToWrite,
    Tell,
    Seek,
    Read,
    ReadRange,
    Write,
    Close,
    Rename
};

// Files in memory below "/vsifaulty/", whose calls fail on demand. One object at a time; it fails
// the test that leaves a file open, and forgets the files at its end. None can be removed: this
// GDAL asks the disk instead.
class FaultyFiles {
 public:
    FaultyFiles();
    ~FaultyFiles();
    FaultyFiles(const FaultyFiles&) = delete;
    FaultyFiles& operator=(const FaultyFiles&) = delete;

    // Make an entry and give its full path.
    std::string Add(std::string_view name, std::string_view content);
    std::string AddFolder(std::string_view name);
    // The bytes of a file, by its full path.
    std::string& Content(const std::string& path);

    // The full paths of all entries.
    std::vector<std::string> Names() const;

    // Lets the n-th such call from now on fail, counted from 0, and no other.
    void Fail(FileCall call, int n = 0);
    // Lets all such calls from now on fail.
    void FailAll(FileCall call);
    void FailNone(FileCall call);
    // Runs before the next such call, and not again.
    void Before(FileCall call, std::function<void()> action);

    // Calls made so far, failed ones too.
    int Calls(FileCall call) const;
    int OpenHandles() const { return openHandles_; }

    static constexpr std::uint64_t kTrueSize = std::numeric_limits<std::uint64_t>::max();

    // What a stat and the end of a file tell instead of the true size.
    std::uint64_t toldSize = kTrueSize;
    // Bytes that the disk still takes; a write beyond is cut short.
    std::size_t room = std::numeric_limits<std::size_t>::max();
    // The most bytes that one read gives; a range read that needs more fails.
    std::size_t readLimit = std::numeric_limits<std::size_t>::max();
    // Added to what a read or write tells.
    std::size_t overstated = 0;
    // Lets a range read succeed also when it could not give all bytes.
    bool rangesAlwaysSucceed = false;

 private:
    friend struct FaultyCallbacks;

    struct Entry {
        bool isFolder = false;
        std::string content;
    };
    struct Plan {
        int calls = 0;
        int firstFailure = -1;
        int lastFailure = -1;
        std::function<void()> before;
    };

    Plan& PlanOf(FileCall call) { return plans_[static_cast<std::size_t>(call)]; }
    // Counts a call, and tells whether it may succeed.
    bool Begin(FileCall call);

    std::map<std::string, Entry> entries_;
    std::array<Plan, static_cast<std::size_t>(FileCall::Rename) + 1> plans_;
    int openHandles_ = 0;
};

}  // namespace tev::fault
