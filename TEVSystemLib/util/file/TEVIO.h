#pragma once

#include <TEVSystemLib/TEVSystemExport.h>

#include <cstdint>
#include <memory>
#include <string>

namespace TAMO::TEV::System::Util {

// A file over GDAL's virtual file layer: plain files and whatever virtual file systems GDAL offers.
// Paths are UTF-8 and passed through unchanged, but that dirExists accepts a trailing separator on
// every platform. A null path counts as empty. Nothing throws on an I/O failure: closed files
// answer 0 or false, and GDAL's error state holds the reason for a failed open. The constructors
// throw std::bad_alloc when memory for the object is exhausted; a path that does not fit leaves it
// closed.
//
// Threads: an object belongs to one thread at a time; the static functions are stateless.
class TEVSYSTEMLIB_API TEVIO {
 public:
    // What a file is opened for.
    enum OpenType : int {
        Read = 0,  // with "rb"
        Write = 1  // with "wb", which replaces the content
    };

    // Closed, or as open leaves it: isOpen tells whether that succeeded. The destructor closes.
    TEVIO();
    TEVIO(std::string const& path, OpenType type);
    TEVIO(char const* path, OpenType type);
    ~TEVIO();
    // Not copied: a file has one owner.
    TEVIO(const TEVIO&) = delete;
    TEVIO& operator=(const TEVIO&) = delete;

    // True when the file is open afterwards. The path that is already open is only rewound,
    // WHATEVER `type` now says, and true also when it could not be rewound; another path closes the
    // file first. A value that is no OpenType opens nothing.
    bool open(std::string const& path, OpenType type);
    bool open(char const* path, OpenType type);
    // True while a file is open.
    bool isOpen() const;
    operator bool() const;

    // Reads at the current position; the result is the number of bytes read, fewer than `size` at
    // the end of the file and on a fault.
    std::uint64_t read(void* buffer, std::uint64_t size);
    // Reads `size` bytes at `offset`: all of them, or false with the buffer's content undefined.
    bool read(void* buffer, std::uint64_t offset, std::uint64_t size) const;
    // The number of bytes written, fewer than `size` when the disk is full.
    std::uint64_t write(void const* buffer, std::uint64_t size);
    // `whence` is SEEK_SET, SEEK_CUR or SEEK_END.
    bool seek(std::uint64_t offset, int whence);
    // The current position; 0 when closed, GDAL's own answer when it cannot tell.
    std::uint64_t tell() const;

    // The size in bytes; 0 when closed. The position is kept. It is measured by seeking to the end:
    // when GDAL refuses that, the result is the position.
    std::uint64_t fileSize() const;
    // The size in bytes of the file at `path`; 0 on failure.
    static std::uint64_t fileSize(char const* path);
    // NEVER RETURNS for a path that is not empty.
    [[deprecated("never returns; call fileSize(path.c_str())")]] static std::uint64_t fileSize(
        std::string const& path);

    // True for an existing regular file.
    static bool exists(char const* path);
    static bool exists(std::string const& path);
    // True for an existing directory.
    static bool dirExists(char const* path);
    static bool dirExists(std::string const& path);

    // Reads a whole file into a new buffer with a NUL behind the last byte; the caller releases it
    // with TEVUtilMemory::DeallocateCharArray. An empty file is a failure. On failure null and 0.
    static bool readFile(char const* const path, char** data, std::uint64_t& size);

    // The path given to the last open, also when that failed, but for one that did not fit into
    // memory; empty when its copy does not.
    std::string getFilePath();

 private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace TAMO::TEV::System::Util
