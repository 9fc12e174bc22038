#include "fault/FaultyFiles.h"

#include <cpl_vsi.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <utility>

namespace tev::fault {

namespace {

// GDAL keeps this very pointer.
constexpr char kPrefix[] = "/vsifaulty/";
constexpr unsigned short kFolderMode = 0x4000;
constexpr unsigned short kFileMode = 0x8000;
constexpr int kFailed = -1;

FaultyFiles* current = nullptr;

struct Handle {
    std::string* content;
    std::uint64_t position = 0;
};

}  // namespace

// What GDAL calls. Handles are made and released with the counted operators, so that one that is
// closed twice is a wrong release.
struct FaultyCallbacks {
    static int Stat(void*, const char* name, VSIStatBufL* stat, int) {
        if (current == nullptr) return kFailed;
        const bool succeeds = current->Begin(FileCall::Stat);
        const auto found = current->entries_.find(name);
        if (found == current->entries_.end()) return kFailed;
        stat->st_mode = found->second.isFolder ? kFolderMode : kFileMode;
        stat->st_size = static_cast<std::int64_t>(ToldSize(found->second.content));
        // What a stat that fails has filled in is not to be looked at.
        return succeeds ? 0 : kFailed;
    }

    static void* Open(void*, const char* name, const char* mode) {
        const bool isRead = std::string_view(mode) == "rb";
        EXPECT_TRUE(isRead || std::string_view(mode) == "wb") << mode;
        const FileCall call = isRead ? FileCall::OpenToRead : FileCall::OpenToWrite;
        if (current == nullptr || !current->Begin(call)) return nullptr;
        auto found = current->entries_.find(name);
        if (found == current->entries_.end()) {
            if (isRead) return nullptr;
            found = current->entries_.try_emplace(name).first;
        }
        if (found->second.isFolder) return nullptr;
        if (!isRead) found->second.content.clear();
        ++current->openHandles_;
        return new Handle{&found->second.content};
    }

    static vsi_l_offset Tell(void* file) {
        return current->Begin(FileCall::Tell) ? static_cast<Handle*>(file)->position
                                              : static_cast<vsi_l_offset>(kFailed);
    }

    static int Seek(void* file, vsi_l_offset offset, int whence) {
        if (!current->Begin(FileCall::Seek)) return kFailed;
        Handle& handle = *static_cast<Handle*>(file);
        const std::uint64_t origin = whence == SEEK_END   ? ToldSize(*handle.content)
                                     : whence == SEEK_CUR ? handle.position
                                                          : 0;
        handle.position = origin + offset;
        return 0;
    }

    static std::size_t Read(void* file, void* buffer, std::size_t size, std::size_t count) {
        if (!current->Begin(FileCall::Read)) return 0;
        Handle& handle = *static_cast<Handle*>(file);
        const std::size_t got = Take(*handle.content, buffer, handle.position, size * count);
        handle.position += got;
        return got / size + current->overstated;
    }

    static int ReadRange(void* file, int count, void** buffers, const vsi_l_offset* offsets,
                         const std::size_t* sizes) {
        if (!current->Begin(FileCall::ReadRange)) return kFailed;
        const std::string& content = *static_cast<Handle*>(file)->content;
        bool isComplete = true;
        for (int i = 0; i < count; ++i)
            isComplete &= Take(content, buffers[i], offsets[i], sizes[i]) == sizes[i];
        return isComplete || current->rangesAlwaysSucceed ? 0 : kFailed;
    }

    static std::size_t Write(void* file, const void* bytes, std::size_t size, std::size_t count) {
        if (!current->Begin(FileCall::Write)) return 0;
        Handle& handle = *static_cast<Handle*>(file);
        const std::size_t taken = std::min(size * count, current->room);
        current->room -= taken;
        if (handle.content->size() < handle.position + taken)
            handle.content->resize(handle.position + taken);
        handle.content->replace(handle.position, taken, static_cast<const char*>(bytes), taken);
        handle.position += taken;
        return taken / size + current->overstated;
    }

    // A close that fails has closed all the same.
    static int Close(void* file) {
        const bool succeeds = current->Begin(FileCall::Close);
        --current->openHandles_;
        delete static_cast<Handle*>(file);
        return succeeds ? 0 : kFailed;
    }

    static int Rename(void*, const char* from, const char* to) {
        if (current == nullptr || !current->Begin(FileCall::Rename)) return kFailed;
        const auto found = current->entries_.find(from);
        if (found == current->entries_.end()) return kFailed;
        current->entries_[to] = std::move(found->second);
        current->entries_.erase(found);
        return 0;
    }

 private:
    static std::uint64_t ToldSize(const std::string& content) {
        return current->toldSize == FaultyFiles::kTrueSize ? content.size() : current->toldSize;
    }

    static std::size_t Take(const std::string& content, void* buffer, std::uint64_t offset,
                            std::size_t size) {
        if (offset >= content.size()) return 0;
        return content.copy(static_cast<char*>(buffer), std::min(size, current->readLimit), offset);
    }
};

namespace {

// GDAL cannot take a handler back: it stays, and finds nothing while there are no files.
void Install() {
    using Callbacks = VSIFilesystemPluginCallbacksStruct;
    const std::unique_ptr<Callbacks, decltype(&VSIFreeFilesystemPluginCallbacksStruct)> callbacks(
        VSIAllocFilesystemPluginCallbacksStruct(), VSIFreeFilesystemPluginCallbacksStruct);
    callbacks->stat = FaultyCallbacks::Stat;
    callbacks->open = FaultyCallbacks::Open;
    callbacks->tell = FaultyCallbacks::Tell;
    callbacks->seek = FaultyCallbacks::Seek;
    callbacks->read = FaultyCallbacks::Read;
    callbacks->read_multi_range = FaultyCallbacks::ReadRange;
    callbacks->write = FaultyCallbacks::Write;
    callbacks->close = FaultyCallbacks::Close;
    callbacks->rename = FaultyCallbacks::Rename;
    VSIInstallPluginHandler(kPrefix, callbacks.get());
}

std::string NameOf(const std::string& path) { return path.substr(sizeof(kPrefix) - 1); }

}  // namespace

FaultyFiles::FaultyFiles() {
    static bool isInstalled = false;
    if (!std::exchange(isInstalled, true)) Install();
    current = this;
}

FaultyFiles::~FaultyFiles() {
    EXPECT_EQ(openHandles_, 0) << "files left open";
    current = nullptr;
}

std::string FaultyFiles::Add(std::string_view name, std::string_view content) {
    entries_[std::string(name)] = {false, std::string(content)};
    return kPrefix + std::string(name);
}

std::string FaultyFiles::AddFolder(std::string_view name) {
    entries_[std::string(name)] = {true, {}};
    return kPrefix + std::string(name);
}

std::string& FaultyFiles::Content(const std::string& path) {
    return entries_.at(NameOf(path)).content;
}

std::vector<std::string> FaultyFiles::Names() const {
    std::vector<std::string> names;
    for (const auto& [name, entry] : entries_) names.push_back(kPrefix + name);
    return names;
}

void FaultyFiles::Fail(FileCall call, int n) {
    Plan& plan = PlanOf(call);
    plan.firstFailure = plan.lastFailure = plan.calls + n;
}

void FaultyFiles::FailAll(FileCall call) {
    Plan& plan = PlanOf(call);
    plan.firstFailure = plan.calls;
    plan.lastFailure = std::numeric_limits<int>::max();
}

void FaultyFiles::FailNone(FileCall call) { PlanOf(call).lastFailure = -1; }

void FaultyFiles::Before(FileCall call, std::function<void()> action) {
    PlanOf(call).before = std::move(action);
}

int FaultyFiles::Calls(FileCall call) const { return plans_[static_cast<std::size_t>(call)].calls; }

bool FaultyFiles::Begin(FileCall call) {
    Plan& plan = PlanOf(call);
    if (const auto action = std::exchange(plan.before, nullptr)) action();
    const int n = plan.calls++;
    return n < plan.firstFailure || n > plan.lastFailure;
}

}  // namespace tev::fault
