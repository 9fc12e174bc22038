#pragma once

#include <TEVSystemLib/system/TEVSystemProperties.h>

#include <optional>
#include <string>
#include <string_view>

#include "support/Environment.h"
#include "support/Folder.h"

namespace tev::bench {

using Store = TAMO::TEV::System::TEVSystemProperties;

// The store upon files in folders of its own. One at a time counts: Load() makes it this one.
class LoadedStore {
 public:
    LoadedStore(std::string_view system, std::string_view user) {
        system_.Write("tev.system.properties", system);
        user_.Write("tev.user.properties", user);
        Load();
    }

    void Load() const {
        systemVariable_.Set(system_.Path());
        userVariable_.Set(user_.Path());
        Store::InitializeProperties();
    }

    std::string SystemFile() const { return system_ / "tev.system.properties"; }
    std::string UserFile() const { return user_ / "tev.user.properties"; }

 private:
    const test::Folder system_;
    const test::Folder user_;
    const test::Variable systemVariable_{"TEV_SYS_CONFIG_DIR"};
    const test::Variable userVariable_{"TEV_USER_CONFIG_DIR"};
};

}  // namespace tev::bench
