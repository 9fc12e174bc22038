#pragma once

#include <TEVSystemLib/system/TEVSystemDiagnostics.h>
#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <new>
#include <optional>
#include <string>
#include <string_view>

#include "support/Environment.h"
#include "support/Folder.h"

namespace tev::test {

using Store = TAMO::TEV::System::TEVSystemProperties;
using Table = std::map<std::string, std::string>;

constexpr char kSystemFile[] = "tev.system.properties";
constexpr char kUserFile[] = "tev.user.properties";

// The store seen from inside. The tables are copies: whoever asks for the store's own takes its
// index away, which the program test_tables does.
struct OpenStore : Store {
    static const Store* Instance() { return &get(); }
    static Table System() { return Taken()->system; }
    static Table User() { return Taken()->user; }

 private:
    static TAMO::TEV::System::TEVSystemDiagnostics::Snapshot Taken() {
        TAMO::TEV::System::TEVSystemDiagnostics::Snapshot snapshot;
        if (!TAMO::TEV::System::TEVSystemDiagnostics::TakePropertiesSnapshot(snapshot))
            throw std::bad_alloc();
        return snapshot;
    }
};

// Makes a folder the current one; puts the old one back at the end of the scope.
class CurrentFolder {
 public:
    explicit CurrentFolder(const Folder& folder) : before_(std::filesystem::current_path()) {
        std::filesystem::current_path(folder.Path());
    }
    ~CurrentFolder() {
        std::error_code ignored;
        std::filesystem::current_path(before_, ignored);
    }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

 private:
    std::filesystem::path before_;
};

// Fresh configuration folders that the variables name, none with a file in it, an APPDATA without a
// Tamo folder and an empty current folder. Afterwards the store holds nothing but its bookkeeping.
class StoreFolders {
 protected:
    StoreFolders() = default;
    ~StoreFolders() {
        systemVariable_.Set(std::nullopt);
        userVariable_.Set(std::nullopt);
        appDataVariable_.Set(std::nullopt);
        Store::InitializeProperties();
    }
    StoreFolders(const StoreFolders&) = delete;
    StoreFolders& operator=(const StoreFolders&) = delete;

    // Writes the files given into the two folders and builds the store from them.
    void Load(std::optional<std::string_view> system,
              std::optional<std::string_view> user = std::nullopt) const {
        if (system) system_.Write(kSystemFile, *system);
        if (user) user_.Write(kUserFile, *user);
        Store::InitializeProperties();
    }

    // What a lookup gives; nothing when it fails.
    static std::optional<std::string> Get(const char* key) {
        const char* value = nullptr;
        if (!Store::GetProperty(key, value)) return std::nullopt;
        return value;
    }

    const Folder system_;
    const Folder user_;
    const Folder appData_;
    const Variable systemVariable_{"TEV_SYS_CONFIG_DIR", system_.Path()};
    const Variable userVariable_{"TEV_USER_CONFIG_DIR", user_.Path()};
    const Variable appDataVariable_{"APPDATA", appData_.Path()};

 private:
    const Folder empty_;
    const CurrentFolder current_{empty_};
};

class StoreFixture : public ::testing::Test, protected StoreFolders {};

}  // namespace tev::test
