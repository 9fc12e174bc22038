#include <SimpleIni.h>
#include <TEVSystemLib/util/file/TEVUtilFile.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Files.h"
#include "Rows.h"
#include "support/Folder.h"

namespace tev::bench {

namespace {

using TAMO::TEV::System::Util::TEVUtilFile;

constexpr char kFile[] = "bench.properties";

struct File {
    explicit File(std::size_t count, bool sorted) {
        std::mt19937 random(20240307);
        for (std::size_t i = 0; i < count; ++i)
            pairs.emplace_back("tev." + Word(random, 14), Word(random, 8 + random() % 24));
        if (sorted) std::sort(pairs.begin(), pairs.end());
        std::string text;
        for (const auto& [key, value] : pairs) text += key + " = " + value + "\n";
        path = folder.Write(kFile, text);
        buffer.resize(text.size());
    }
    const test::Folder folder;
    std::vector<std::pair<std::string, std::string>> pairs;
    std::string path;
    mutable std::string buffer;
};
using Input = std::unique_ptr<const File>;

// Beside a map, which it is asked for key by key.
struct Ini {
    bool operator==(const Pairs& pairs) const {
        return static_cast<std::size_t>(ini->GetSectionSize("")) == pairs.size() &&
               std::all_of(pairs.begin(), pairs.end(), [this](const auto& pair) {
                   return pair.second == ini->GetValue("", pair.first.c_str(), "");
               });
    }
    const CSimpleIniCaseA* ini;
};

void Add(const char* work, std::size_t count, bool sorted) {
    const auto make = [=] { return std::make_unique<const File>(count, sorted); };
    Work(work, static_cast<std::int64_t>(count), make,
         [](const Input& file) { return Pairs(file->pairs.begin(), file->pairs.end()); })
        .Ours([](const Input& file, auto keep) {
            Pairs pairs;
            TEVUtilFile::GetKeyValuePairsFromFile(file->path, pairs, false);
            keep(pairs);
        })
        .Peer("SimpleIni",
              [](const Input& file, auto keep) {
                  CSimpleIniCaseA ini;
                  ini.LoadFile(file->path.c_str());
                  keep(Ini{&ini});
              })
        .CheckedLimit("read + map insertion", [](const Input& file, auto keep) {
            ReadInto(file->path, file->buffer.data(), file->buffer.size());
            Pairs pairs;
            for (const auto& [key, value] : file->pairs) pairs.emplace(key, value);
            keep(pairs);
        });
}

}  // namespace

void RegisterRows() {
    for (const std::size_t count : {10U, 1000U, 10000U, 100000U}) {
        Add("random", count, false);
        Add("sorted", count, true);
    }
}

}  // namespace tev::bench
