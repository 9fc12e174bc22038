#pragma once

#include <TEVSystemLib/system/TEVSystemDiagnostics.h>

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "TEVSystemLib/system/detail/PlannedSession.h"
#include "TEVSystemLib/system/detail/TableLoad.h"
#include "TEVSystemLib/util/file/detail/KeyValueParser.h"

namespace TAMO::TEV::System::detail {

// A line of a properties file that holds a pair, or should.
struct FileLine {
    std::size_t number;
    Util::detail::LineFault fault;
    std::string key;
    std::string value;
};

struct SourceFile {
    FilePlace place;
    std::string path;
    std::vector<FileLine> lines;
    std::map<std::string, std::size_t> counting;  // key to the index of its last line with a pair
    std::vector<std::size_t> nulLines;            // with a NUL byte in them
    bool hasByteOrderMark = false;
};

// The lines of a file with that text.
SourceFile ScanFile(FilePlace place, std::string_view text);

// The line that counts for a key, its last one with a pair; or null.
const FileLine* LineOf(const SourceFile& file, const std::string& key);

struct Surroundings {
    VariableReader readVariable;
    FolderTest folderExists;
    ReadBack readBack;
};

// What the store would become with these files in these surroundings, and how.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): final, never deleted by its base.
class ConfigurationModel final : private LoadWorld {
 public:
    using Diagnostics = TEVSystemDiagnostics;

    // Without a folder there is no user file.
    ConfigurationModel(SourceFile system, SourceFile user, Surroundings surroundings);
    ConfigurationModel(const ConfigurationModel&) = delete;
    ConfigurationModel& operator=(const ConfigurationModel&) = delete;

    const SourceFile& File(Diagnostics::Table table) const;
    // The table at the end, and before well-known keys were put right.
    const Properties& Final(Diagnostics::Table table) const;
    const Properties& Expanded(Diagnostics::Table table) const;
    // What supplied an entry of a table, and where its line is.
    Diagnostics::Layer LayerOf(Diagnostics::Table table, const std::string& key) const;
    Diagnostics::Place PlaceOf(Diagnostics::Table table, const std::string& key) const;
    const std::vector<Diagnostics::Reference>& ReferencesOf(Diagnostics::Table table,
                                                            const std::string& key) const;
    const std::vector<Diagnostics::DirectiveStep>& Steps() const { return steps_; }
    // A variable after the directives.
    std::optional<std::string> Variable(const std::string& name) const;

 private:
    using EntryName = std::pair<Diagnostics::Table, std::string>;

    FilePlace FindSystemFile() override { return systemFile_.place; }
    FilePlace FindUserFile() override { return userFile_.place; }
    Properties Read(const FilePlace& file) override;
    const std::string* Resolve(const Properties& table, const std::string& key,
                               const std::string& name) override;
    void ExecuteDirectives(const Properties& system) override;
    void StepFailed() override { throw; }
    // The table that answers for a name before its environment variable is asked.
    std::optional<Diagnostics::Table> TableOf(const std::string& name) const;
    static Diagnostics::Fate FateOf(const EntryName& from, const EntryName& to,
                                    const std::string& value);
    Diagnostics::DirectiveStep Take(const DirectiveEntry& entry);

    SourceFile systemFile_;
    SourceFile userFile_;
    Surroundings surroundings_;
    PlannedSession session_;
    Properties system_;
    Properties user_;
    Properties expandedSystem_;
    std::map<EntryName, std::vector<Diagnostics::Reference>> references_;
    std::vector<Diagnostics::DirectiveStep> steps_;
};

// What a lookup of a key answers, and why; the store that a process has made is not looked at.
TEVSystemDiagnostics::Explanation Explain(const ConfigurationModel& model, const std::string& key);
// The keys of both tables, sorted.
std::vector<std::string> KeysOf(const ConfigurationModel& model);

}  // namespace TAMO::TEV::System::detail
