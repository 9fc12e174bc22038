#include <TEVSystemLib/util/file/TEVUtilFile.h>

#include "TEVSystemLib/system/detail/ConfigurationFolders.h"
#include "TEVSystemLib/system/detail/StoreTables.h"
#include "TEVSystemLib/system/detail/TableLoad.h"

namespace TAMO::TEV::System::detail {

namespace {

// The files and the environment of this process.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): final, never deleted by its base.
class ThisProcess final : public LoadWorld {
 public:
    explicit ThisProcess(PropertyTables tables) : tables_(tables) {}

    FilePlace FindSystemFile() override { return SystemFileIn(FindSystemFolder()); }
    FilePlace FindUserFile() override { return UserFileIn(FindUserFolder()); }
    Properties Read(const FilePlace& file) override {
        Properties read;
        Util::TEVUtilFile::GetKeyValuePairsFromFile(file.Path(), read, false);
        return read;
    }
    const std::string* Resolve(const Properties&, const std::string&,
                               const std::string& name) override {
        return Lookup(tables_, name);
    }
    void ExecuteDirectives(const Properties& system) override { detail::ExecuteDirectives(system); }
    void StepFailed() override {}

 private:
    PropertyTables tables_;
};

}  // namespace

void LoadTables(PropertyTables tables) noexcept {
    ThisProcess world(tables);
    LoadTables(tables, world);
}

}  // namespace TAMO::TEV::System::detail
