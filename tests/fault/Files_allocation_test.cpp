// Files, file names, listings and key=value files when memory is exhausted at any step.
#include <TEVSystemLib/util/file/TEVIO.h>
#include <TEVSystemLib/util/file/TEVUtilFile.h>
#include <TEVSystemLib/util/memory/TEVUtilMemory.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <optional>
#include <string>

#include "fault/TextRows.h"
#include "support/Folder.h"
#include "support/Owned.h"

namespace {

using namespace tev::fault;
using TAMO::TEV::System::Util::TEVIO;
using TAMO::TEV::System::Util::TEVUtilFile;
using TAMO::TEV::System::Util::TEVUtilMemory;
using tev::test::Folder;
using tev::test::TextArray;

constexpr const char* kContent = "0123456789";

// Two files in a folder.
class Files {
 public:
    const Folder folder;
    const std::string first = folder.Write("first file.txt", kContent);
    const std::string second = folder.Write("second file.txt", kContent);
};

// One of them opened to be read.
class OpenFile : public Files {
 public:
    TEVIO file{first, TEVIO::Read};
};

// The object itself, or nothing; a path that does not fit into memory leaves it closed.
template <typename Path>
void Constructs(Attempt& attempt) {
    const Files files;
    const Path path(files.first.c_str());
    std::optional<TEVIO> file;
    attempt.Call([&] { file.emplace(path, TEVIO::Read); });
    const bool succeeded = attempt.Succeeded(file && file->isOpen());
    if (!file) ByBadAlloc(attempt);
    if (file) {
        EXPECT_EQ(file->getFilePath(), succeeded ? files.first : "");
    }
}

// Another path closes the file first; the path that stays then is that of the closed one.
template <typename Path>
void OpensAnother(Attempt& attempt) {
    OpenFile files;
    const Path path(files.second.c_str());
    const bool isOpened = attempt.Call([&] { return files.file.open(path, TEVIO::Read); });
    const bool succeeded = attempt.Succeeded(isOpened);
    EXPECT_EQ(files.file.isOpen(), succeeded);
    EXPECT_EQ(files.file.getFilePath(), succeeded ? files.second : files.first);
    EXPECT_TRUE(files.file.open(path, TEVIO::Read));
}

template <typename Path>
void Rewinds(Attempt& attempt) {
    OpenFile files;
    const Path path(files.first.c_str());
    files.file.seek(3, SEEK_SET);
    attempt.Succeeded(attempt.Call([&] { return files.file.open(path, TEVIO::Write); }));
    EXPECT_EQ(files.file.tell(), 0U);
}

void ReadsAFile(Attempt& attempt) {
    const Files files;
    std::uint64_t size = 77;
    HandsOut(attempt, kContent,
             [&](char** out) { return TEVIO::readFile(files.first.c_str(), out, size); });
    EXPECT_EQ(size, attempt.IsFaulted() ? 0U : 10U);
}

template <typename Path>
void FindsAFolderWithASeparator(Attempt& attempt) {
    const Folder folder;
    const Path path((folder.Path() + "\\").c_str());
    attempt.Succeeded(attempt.Call([&] { return TEVIO::dirExists(path); }));
}

// A const char* into the string that it is made of, for the rows of both kinds of path.
class CPath {
 public:
    explicit CPath(const char* path) : path_(path) {}
    operator const char*() const { return path_.c_str(); }

 private:
    std::string path_;
};

const AllocatingFunctions fileObjects{
    {"TEVIO::TEVIO()", "",
     [](Attempt& attempt) {
         const bool isMade = Made(attempt, [] { const TEVIO file; });
         if (!attempt.Succeeded(isMade)) ByBadAlloc(attempt);
     }},
    {"TEVIO::TEVIO(char const*, TEVIO::OpenType)", "", Constructs<CPath>},
    {"TEVIO::TEVIO(std::string const&, TEVIO::OpenType)", "", Constructs<std::string>},
    {"TEVIO::open(char const*, TEVIO::OpenType)", "", OpensAnother<CPath>},
    {"TEVIO::open(std::string const&, TEVIO::OpenType)", "", OpensAnother<std::string>},
    {"TEVIO::getFilePath()", "",
     [](Attempt& attempt) {
         OpenFile files;
         Gives(attempt, files.first, [&] { return files.file.getFilePath(); });
     }},
    {"TEVIO::readFile(char const*, char**, unsigned long long&)", "", ReadsAFile},
    {"TEVIO::dirExists(char const*)", "with a separator", FindsAFolderWithASeparator<CPath>},
    {"TEVIO::dirExists(std::string const&)", "with a separator",
     FindsAFolderWithASeparator<std::string>},
};

const IdleFunctions openFiles{
    {"TEVIO::open(char const*, TEVIO::OpenType)", "again", Rewinds<CPath>},
    {"TEVIO::open(std::string const&, TEVIO::OpenType)", "again", Rewinds<std::string>},
    {"TEVIO::~TEVIO()", "destructor",
     [](Attempt& attempt) {
         const Files files;
         std::optional<TEVIO> file(std::in_place, files.first, TEVIO::Read);
         attempt.Call([&] { file.reset(); });
         attempt.Succeeded(!file);
     }},
    {"TEVIO::isOpen() const", "",
     [](Attempt& attempt) {
         const OpenFile files;
         Finds(attempt, true, [&] { return files.file.isOpen(); });
     }},
    {"TEVIO::operator bool() const", "",
     [](Attempt& attempt) {
         const OpenFile files;
         Finds(attempt, true, [&] { return static_cast<bool>(files.file); });
     }},
    {"TEVIO::read(void*, unsigned long long)", "",
     [](Attempt& attempt) {
         OpenFile files;
         char buffer[4];
         Finds(attempt, std::uint64_t{4}, [&] { return files.file.read(buffer, 4); });
     }},
    {"TEVIO::read(void*, unsigned long long, unsigned long long) const", "at an offset",
     [](Attempt& attempt) {
         const OpenFile files;
         char buffer[4];
         Finds(attempt, true, [&] { return files.file.read(buffer, 3, 4); });
     }},
    {"TEVIO::write(void const*, unsigned long long)", "",
     [](Attempt& attempt) {
         const Files files;
         TEVIO file(files.first, TEVIO::Write);
         Finds(attempt, std::uint64_t{10}, [&] { return file.write(kContent, 10); });
     }},
    {"TEVIO::seek(unsigned long long, int)", "",
     [](Attempt& attempt) {
         OpenFile files;
         Finds(attempt, true, [&] { return files.file.seek(3, SEEK_SET); });
     }},
    {"TEVIO::tell() const", "",
     [](Attempt& attempt) {
         OpenFile files;
         files.file.seek(3, SEEK_SET);
         Finds(attempt, std::uint64_t{3}, [&] { return files.file.tell(); });
     }},
    {"TEVIO::fileSize() const", "",
     [](Attempt& attempt) {
         const OpenFile files;
         Finds(attempt, std::uint64_t{10}, [&] { return files.file.fileSize(); });
     }},
};

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
std::uint64_t SizeOfNoPath(const std::string& path) { return TEVIO::fileSize(path); }
#pragma GCC diagnostic pop

const IdleFunctions lookUps{
    {"TEVIO::fileSize(char const*)", "",
     [](Attempt& attempt) {
         const Files files;
         Finds(attempt, std::uint64_t{10}, [&] { return TEVIO::fileSize(files.first.c_str()); });
     }},
    {"TEVIO::fileSize(std::string const&)", "no path, the only one for which it returns",
     [](Attempt& attempt) {
         const std::string path;
         Finds(attempt, std::uint64_t{0}, [&] { return SizeOfNoPath(path); });
     }},
    {"TEVIO::exists(char const*)", "",
     [](Attempt& attempt) {
         const Files files;
         Finds(attempt, true, [&] { return TEVIO::exists(files.first.c_str()); });
     }},
    {"TEVIO::exists(std::string const&)", "",
     [](Attempt& attempt) {
         const Files files;
         Finds(attempt, true, [&] { return TEVIO::exists(files.first); });
     }},
    {"TEVIO::dirExists(char const*)", "",
     [](Attempt& attempt) {
         const Folder folder;
         Finds(attempt, true, [&] { return TEVIO::dirExists(folder.Path().c_str()); });
     }},
    {"TEVIO::dirExists(std::string const&)", "",
     [](Attempt& attempt) {
         const Folder folder;
         Finds(attempt, true, [&] { return TEVIO::dirExists(folder.Path()); });
     }},
    {"TEVUtilFile::GetFileExtension(char const*, char const*&, bool)", "",
     [](Attempt& attempt) {
         const char* extension = nullptr;
         Finds(attempt, true, [&] {
             return TEVUtilFile::GetFileExtension("C:\\a folder\\a file.txt", extension, true);
         });
         EXPECT_STREQ(extension, ".txt");
     }},
};

constexpr const char* kFileName = "a file with a long name.txt";
constexpr const char* kFullName = "  C:/a folder with a long name/a file with a long name.txt ";

// The last copy says so by the result, as all copies of text do; what is needed before throws.
void ByResultOrRuntimeError(Attempt& attempt) {
    if (attempt.ThrownText() != "(nothing)") ByRuntimeError(attempt);
}

void RefusesAFolderForAFileName(Attempt& attempt) {
    char stale[] = "";
    char* name = stale;
    Refuses(attempt, "ERROR: Invalid input fully qualified file name.",
            [&] { return TEVUtilFile::GetFileName("C:\\a folder with a long name\\", &name); });
    EXPECT_TRUE(name == nullptr || attempt.IsFaulted());
}

// Outputs that are untouched say that there is no such folder: one that cannot be examined.
void Lists(Attempt& attempt, const char* separator, bool mayBeUntouched) {
    const Files files;
    const std::string folder = files.folder.Path() + separator;
    char* none[] = {nullptr};
    TextArray listed;
    listed.array = none;
    listed.count = 77;
    attempt.Call([&] {
        TEVUtilFile::GetFilesInDirWithGivenExt(listed.array, folder.c_str(), "txt", listed.count);
    });
    const bool isUntouched = listed.array == none && listed.count == 77;
    EXPECT_TRUE(mayBeUntouched || !isUntouched);
    if (isUntouched) {
        listed.array = nullptr;
        listed.count = 0;
    }
    std::vector<std::string> paths = listed.Strings();
    std::sort(paths.begin(), paths.end());
    const bool succeeded = attempt.Succeeded(!paths.empty());
    EXPECT_EQ(listed.array != nullptr, succeeded);
    EXPECT_EQ(paths,
              succeeded ? std::vector({files.first, files.second}) : std::vector<std::string>());
}

void ReadsPairs(Attempt& attempt) {
    const Folder folder;
    const std::string path = folder.Write(
        "pairs.txt", "held before = a new value of some length\nread from the file = value\n");
    const std::map<std::string, std::string> before{{"held before", "old"}, {"kept", "kept"}};
    std::map<std::string, std::string> expected = before;
    std::map<std::string, std::string> pairs = before;
    const bool isRead =
        attempt.Call([&] { return TEVUtilFile::GetKeyValuePairsFromFile(path, pairs, false); });
    if (attempt.Succeeded(isRead)) {
        expected["held before"] = "a new value of some length";
        expected["read from the file"] = "value";
    }
    EXPECT_EQ(pairs, expected);
}

const AllocatingFunctions names{
    {"TEVUtilFile::GetFileName(char const*, char**)", "",
     [](Attempt& attempt) {
         HandsOut(
             attempt, kFileName,
             [](char** name) {
                 *name = nullptr;
                 return TEVUtilFile::GetFileName(kFullName, name);
             },
             ByResultOrRuntimeError);
     }},
    {"TEVUtilFile::GetFileName(char const*, char**)", "folder", RefusesAFolderForAFileName},
    {"TEVUtilFile::GetFileNameIndex(char const*)", "",
     [](Attempt& attempt) {
         const int index = attempt.Call([] { return TEVUtilFile::GetFileNameIndex(kFullName); });
         EXPECT_EQ(index, attempt.Succeeded(index == 29) ? 29 : -1);
     }},
    {"TEVUtilFile::GetFilesInDirWithGivenExt(char**&, char const*, char const*, "
     "unsigned long long&)",
     "", [](Attempt& attempt) { Lists(attempt, "", false); }},
    {"TEVUtilFile::GetFilesInDirWithGivenExt(char**&, char const*, char const*, "
     "unsigned long long&)",
     "with a separator", [](Attempt& attempt) { Lists(attempt, "\\", true); }},
    {"TEVUtilFile::GetKeyValuePairsFromFile(std::string const&, "
     "std::map<std::string, std::string>&, bool)",
     "", ReadsPairs},
};

}  // namespace
