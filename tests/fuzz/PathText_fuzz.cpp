#include "TEVSystemLib/util/file/detail/PathText.h"
#include "fuzz/Fuzz.h"
#include "models/TextModel.h"

using namespace TAMO::TEV::System::Util::detail;
using tev::fuzz::Exact;
using tev::fuzz::ExpectSame;

namespace {

bool EndsWithAny(const std::string& text, const std::string& characters) {
    return !text.empty() && characters.find(text[text.size() - 1]) != std::string::npos;
}

// The path cut behind its last name; a root, which is all separators or a drive, keeps one.
std::string WithoutSeparators(const std::string& path) {
    const std::size_t end = path.find_last_not_of("/\\") + 1;
    const std::string body = path.substr(0, end);
    return body.empty() || EndsWithAny(body, ":") ? path.substr(0, end + 1) : body;
}

std::string Separated(const std::string& path, char separator) {
    return EndsWithAny(path, "/\\") ? path : path + separator;
}

std::optional<std::string> FolderModel(const std::string& path) {
    std::string work = tev::test::Turned(tev::test::TrimmedIfSpaced(path));
    if (work.empty()) return std::nullopt;
    while (!work.empty() && work.back() != '\\') work.pop_back();
    return work.empty() ? "." : work;
}

std::optional<std::size_t> NameModel(const std::string& normalised) {
    std::optional<std::size_t> index;
    if (EndsWithAny(normalised, "\\")) return index;
    for (std::size_t i = 1; i < normalised.size(); ++i)
        if (normalised[i] == '\\') index = i + 1;
    return index;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string path(reinterpret_cast<const char*>(data), size);
    const Exact exact(path);
    const std::string normalised = NormalisedPath(exact.View());
    ExpectSame(WithBackslashes(exact.View()), tev::test::Turned(path), "slashes turned");
    ExpectSame(normalised, tev::test::Turned(tev::test::TrimmedIfSpaced(path)), "normalised");
    for (const char separator : {'\\', '/'})
        ExpectSame(WithEndingSeparator(path, separator), Separated(path, separator),
                   "ends with a separator");
    ExpectSame(std::string(WithoutEndingSeparators(exact.View())), WithoutSeparators(path),
               "without separators at the end");
    ExpectSame(FolderOf(exact.View()), FolderModel(path), "folder");
    ExpectSame(FileNameIndex(Exact(normalised).View()), NameModel(normalised), "file name");
    return 0;
}
