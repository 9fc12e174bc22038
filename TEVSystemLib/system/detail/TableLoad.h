#pragma once

#include <string>

#include "TEVSystemLib/system/detail/PropertyTables.h"

// How the store's tables come about. The store and what explains it run the same steps, each in a
// world of its own.
namespace TAMO::TEV::System::detail {

// Where a properties file was looked for, and the keys under which its table tells so.
struct FilePlace {
    std::string folder;
    const char* fileName;
    const char* folderKey;

    std::string Path() const { return folder + fileName; }
};

FilePlace SystemFileIn(std::string folder);
FilePlace UserFileIn(std::string folder);
// Whether a table notes its file under that key.
bool IsNoted(const FilePlace& place, const std::string& key);

// What the steps ask of their surroundings; each call may throw.
class LoadWorld {
 public:
    virtual FilePlace FindSystemFile() = 0;
    virtual FilePlace FindUserFile() = 0;  // without a folder there is none
    // The pairs of a file; none when it cannot be read.
    virtual Properties Read(const FilePlace& file) = 0;
    // The value of a name that an entry of `table` refers to, or null.
    virtual const std::string* Resolve(const Properties& table, const std::string& key,
                                       const std::string& name) = 0;
    virtual void ExecuteDirectives(const Properties& system) = 0;
    // Called while the exception of a step that failed is handled. The next step follows, unless
    // this throws.
    virtual void StepFailed() = 0;

 protected:
    ~LoadWorld() = default;
};

// Rebuilds both tables from their files, expands references, executes the environment directives of
// the system table and puts its well-known keys right.
void LoadTables(PropertyTables tables, LoadWorld& world);

}  // namespace TAMO::TEV::System::detail
