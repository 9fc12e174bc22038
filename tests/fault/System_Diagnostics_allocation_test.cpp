// The diagnostics when memory is exhausted at any step.
#include <TEVSystemLib/system/TEVSystemDiagnostics.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "fault/TextRows.h"
#include "system/StoreFixture.h"

namespace {

using namespace tev::fault;
using TAMO::TEV::System::TEVSystemDiagnostics;
using tev::test::kSystemFile;
using tev::test::kUserFile;
using tev::test::OpenStore;
using tev::test::ReadAll;
using tev::test::Store;
using tev::test::StoreFolders;
using tev::test::Table;

constexpr const char* kPassedOver =
    "a folder, file or variable that cannot be asked for is passed over, as by the store";

constexpr const char* kSystem =
    "a.key.of.some.length = %another.key.of.some.length% and %unknown%\n"
    "another.key.of.some.length = a value of some length\n"
    "tev.log.level = a level that does not exist\n"
    "tev.env.new.1 = TEV_FAULT_PLANNED|a value of some length\n";

// A store loaded from a system file and a user file.
class LoadedStore : public StoreFolders {
 public:
    explicit LoadedStore(const char* system = kSystem) { Load(system, "u = 2\n"); }

    std::string SystemPath() const { return system_ / kSystemFile; }
    std::string UserFile() const { return ReadAll(user_ / kUserFile); }
};

// A call that fills a list, or on failure leaves it empty.
template <typename List, typename Fill>
void Fills(Attempt& attempt, Fill fill) {
    List list;
    list.resize(1);
    attempt.MaySucceedDespiteFault(kPassedOver);
    const bool isFilled = attempt.Call([&] { return fill(list); });
    const bool succeeded = attempt.Succeeded(isFilled);
    EXPECT_TRUE(succeeded || list.empty());
    EXPECT_TRUE(fill(list));
    EXPECT_FALSE(list.empty());
}

void ExplainsOne(Attempt& attempt) {
    TEVSystemDiagnostics::Explanation explanation;
    attempt.MaySucceedDespiteFault(kPassedOver);
    const bool isMade = attempt.Call(
        [&] { return TEVSystemDiagnostics::ExplainProperty("a.key.of.some.length", explanation); });
    const bool succeeded = attempt.Succeeded(isMade);
    EXPECT_TRUE(succeeded || explanation.key.empty());
}

void ExplainsAll(Attempt& attempt) {
    Fills<std::vector<TEVSystemDiagnostics::Explanation>>(
        attempt, [](auto& list) { return TEVSystemDiagnostics::ExplainProperties(list); });
}

void Checks(Attempt& attempt, const std::string& path, TEVSystemDiagnostics::FileRole role) {
    Fills<std::vector<TEVSystemDiagnostics::Finding>>(attempt, [&](auto& list) {
        return TEVSystemDiagnostics::CheckPropertiesFile(path.c_str(), role, list);
    });
}

void ChecksTheSystemFile(Attempt& attempt) {
    Checks(attempt, attempt.Ready<LoadedStore>().SystemPath(),
           TEVSystemDiagnostics::FileRole::System);
}

// A value that is not put right, a key with a known one near it and one without.
class CheckedUserFile : public LoadedStore {
 public:
    CheckedUserFile() : LoadedStore("") {}
    const std::string& Path() const { return path_; }

 private:
    const tev::test::Folder folder_;
    const std::string path_ = folder_.Write(
        "checked", "tev.log.level = loud\ntev.lgo.level = x\ntev.quite.another.thing = x\n");
};

void ChecksAUserFile(Attempt& attempt) {
    Checks(attempt, attempt.Ready<CheckedUserFile>().Path(), TEVSystemDiagnostics::FileRole::User);
}

void Plans(Attempt& attempt) {
    Fills<std::vector<TEVSystemDiagnostics::DirectiveStep>>(
        attempt, [](auto& list) { return TEVSystemDiagnostics::PlanEnvironmentDirectives(list); });
}

void TakesASnapshot(Attempt& attempt) {
    TEVSystemDiagnostics::Snapshot snapshot;
    const bool isTaken =
        attempt.Call([&] { return TEVSystemDiagnostics::TakePropertiesSnapshot(snapshot); });
    EXPECT_EQ(snapshot != nullptr, attempt.Succeeded(isTaken));
    EXPECT_TRUE(snapshot == nullptr || snapshot->user.at("u") == "2");
}

void Compares(Attempt& attempt) {
    const auto before = std::make_shared<const TEVSystemDiagnostics::Tables>(
        TEVSystemDiagnostics::Tables{{{kText, "1"}}, {{"a", kText}}});
    std::vector<TEVSystemDiagnostics::Change> changes;
    const bool isCompared = attempt.Call(
        [&] { return TEVSystemDiagnostics::CompareSnapshots(before, nullptr, changes); });
    EXPECT_EQ(changes.size(), attempt.Succeeded(isCompared) ? 2U : 0U);
}

void Saves(Attempt& attempt) {
    const LoadedStore store;
    Store::SetUserProperty("a.key.of.some.length", kText);
    const Table table = OpenStore::User();
    const std::string saved = "u = 2\na.key.of.some.length = " + std::string(kText) + "\n";
    std::vector<TEVSystemDiagnostics::Change> changes;
    const bool isSaved =
        attempt.Call([&] { return TEVSystemDiagnostics::SaveUserPropertiesPreserving(&changes); });
    const bool succeeded = attempt.Succeeded(isSaved);
    EXPECT_EQ(store.UserFile(), succeeded ? saved : "u = 2\n");
    EXPECT_EQ(changes.size(), succeeded ? 1U : 0U);
    EXPECT_EQ(OpenStore::User(), table);
    EXPECT_TRUE(TEVSystemDiagnostics::SaveUserPropertiesPreserving(nullptr));
    EXPECT_EQ(store.UserFile(), saved);
}

const AllocatingFunctions diagnoses{
    {"TEVSystemDiagnostics::CheckPropertiesFile(char const*, TEVSystemDiagnostics::FileRole, "
     "std::vector<TEVSystemDiagnostics::Finding>&)",
     "system", ChecksTheSystemFile, Prepare<LoadedStore>},
    {"TEVSystemDiagnostics::CheckPropertiesFile(char const*, TEVSystemDiagnostics::FileRole, "
     "std::vector<TEVSystemDiagnostics::Finding>&)",
     "user", ChecksAUserFile, Prepare<CheckedUserFile>},
    {"TEVSystemDiagnostics::CompareSnapshots(std::shared_ptr<TEVSystemDiagnostics::Tables const> "
     "const&, std::shared_ptr<TEVSystemDiagnostics::Tables const> const&, "
     "std::vector<TEVSystemDiagnostics::Change>&)",
     "", Compares},
    {"TEVSystemDiagnostics::ExplainProperties(std::vector<TEVSystemDiagnostics::Explanation>&)", "",
     ExplainsAll, Prepare<LoadedStore>},
    {"TEVSystemDiagnostics::ExplainProperty(char const*, TEVSystemDiagnostics::Explanation&)", "",
     ExplainsOne, Prepare<LoadedStore>},
    {"TEVSystemDiagnostics::PlanEnvironmentDirectives("
     "std::vector<TEVSystemDiagnostics::DirectiveStep>&)",
     "", Plans, Prepare<LoadedStore>},
    {"TEVSystemDiagnostics::SaveUserPropertiesPreserving("
     "std::vector<TEVSystemDiagnostics::Change>*)",
     "", Saves},
    {"TEVSystemDiagnostics::TakePropertiesSnapshot("
     "std::shared_ptr<TEVSystemDiagnostics::Tables const>&)",
     "", TakesASnapshot, Prepare<LoadedStore>},
};

}  // namespace
