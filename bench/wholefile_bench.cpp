#include <TEVSystemLib/util/file/TEVIO.h>
#include <TEVSystemLib/util/memory/TEVUtilMemory.h>

#include <fstream>
#include <memory>
#include <string>
#include <string_view>

#include "Files.h"
#include "Inputs.h"
#include "Rows.h"
#include "support/Folder.h"

namespace tev::bench {

namespace {

using TAMO::TEV::System::Util::TEVIO;
using TAMO::TEV::System::Util::TEVUtilMemory;

struct File {
    explicit File(std::size_t size)
        : content(RandomText(size, "abcdefghijklmnopqrstuvwxyz\n")), buffer(size, '\0') {
        path = folder.Write("bench.bin", content);
    }
    const test::Folder folder;
    std::string content;
    std::string path;
    mutable std::string buffer;
};
using Input = std::unique_ptr<const File>;

std::string WithIfstream(const std::string& path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::string content(static_cast<std::size_t>(file.tellg()), '\0');
    file.seekg(0);
    file.read(content.data(), static_cast<std::streamsize>(content.size()));
    return content;
}

void Add(std::size_t size) {
    Work(
        "read", static_cast<std::int64_t>(size),
        [size] { return std::make_unique<const File>(size); },
        [](const Input& file) { return file->content; })
        .Ours([](const Input& file, auto keep) {
            char* data = nullptr;
            std::uint64_t read = 0;
            TEVIO::readFile(file->path.c_str(), &data, read);
            keep(std::string_view(data, read));
            TEVUtilMemory::DeallocateCharArray(&data);
        })
        .Peer("ifstream", [](const Input& file, auto keep) { keep(WithIfstream(file->path)); })
        .CheckedLimit("VSIFReadL into a prepared buffer", [](const Input& file, auto keep) {
            const std::size_t read = ReadInto(file->path, file->buffer.data(), file->buffer.size());
            keep(std::string_view(file->buffer.data(), read));
        });
}

}  // namespace

void RegisterRows() {
    for (const std::size_t size : {1024U, 32768U, 1048576U, 268435456U}) Add(size);
}

}  // namespace tev::bench
