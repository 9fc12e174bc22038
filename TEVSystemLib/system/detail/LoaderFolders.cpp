#include "TEVSystemLib/system/detail/LoaderFolders.h"

#include "TEVSystemLib/util/file/detail/PathText.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/Tokens.h"

namespace TAMO::TEV::System::detail {

namespace {

using Kind = TEVSystemDiagnostics::FolderKind;
using Util::detail::IsSeparator;

void Add(SearchedFolders& folders, Kind kind, std::string_view folder) {
    const std::string path = Util::detail::WithBackslashes(folder);
    if (!path.empty())
        folders.push_back({kind, std::string(Util::detail::WithoutEndingSeparators(path))});
}

void AddPath(SearchedFolders& folders, const LoaderFacts& facts) {
    for (const std::string_view folder : Util::detail::Tokens(";", facts.path))
        Add(folders, Kind::Path, folder);
}

bool StartsWithIgnoringCase(std::string_view text, std::string_view start) {
    return Util::detail::EqualsIgnoringCase(text.substr(0, start.size()), start);
}

}  // namespace

SearchedFolders OrdinaryFolders(const LoaderFacts& facts) {
    SearchedFolders folders;
    Add(folders, Kind::Program, facts.program);
    Add(folders, Kind::DllDirectory, facts.dllDirectory);
    Add(folders, Kind::System, facts.system);
    Add(folders, Kind::System16, facts.windows + "\\system");
    Add(folders, Kind::Windows, facts.windows);
    // A DLL directory takes the place of the current folder.
    if (facts.dllDirectory.empty()) Add(folders, Kind::Current, facts.current);
    AddPath(folders, facts);
    return folders;
}

SearchedFolders PathFolders(const LoaderFacts& facts) {
    SearchedFolders folders;
    AddPath(folders, facts);
    return folders;
}

SearchedFolders FolderBeside(const TEVSystemDiagnostics::Module& module) {
    SearchedFolders folders;
    Add(folders, Kind::SearchDirectory, Util::detail::FolderOf(module.file).value_or(""));
    return folders;
}

SearchedFolders FoldersWithDirectories(const LoaderFacts& facts,
                                       const std::vector<std::string>& directories) {
    SearchedFolders folders;
    Add(folders, Kind::Program, facts.program);
    // The one added last comes first.
    for (auto directory = directories.rbegin(); directory != directories.rend(); ++directory)
        Add(folders, Kind::SearchDirectory, *directory);
    Add(folders, Kind::DllDirectory, facts.dllDirectory);
    Add(folders, Kind::System, facts.system);
    return folders;
}

bool IsFixedPath(std::string_view name) {
    if (name.empty()) return false;
    return name.front() == '.' || IsSeparator(name.front()) || (name.size() > 1 && name[1] == ':');
}

bool IsContract(std::string_view name) {
    return StartsWithIgnoringCase(name, "api-") || StartsWithIgnoringCase(name, "ext-");
}

std::string FileNameOf(std::string_view path) {
    const std::size_t end = path.find_last_of("/\\");
    return std::string(end == std::string_view::npos ? path : path.substr(end + 1));
}

bool IsBelow(std::string_view folder, std::string_view file) {
    return !folder.empty() && file.size() > folder.size() && IsSeparator(file[folder.size()]) &&
           StartsWithIgnoringCase(file, folder);
}

std::optional<std::string> FindInFolders(const SearchedFolders& folders, const std::string& name,
                                         const std::function<bool(const std::string&)>& exists) {
    for (const auto& folder : folders) {
        std::string path = Util::detail::WithEndingSeparator(folder.folder) + name;
        if (exists(path)) return path;
    }
    return std::nullopt;
}

}  // namespace TAMO::TEV::System::detail
