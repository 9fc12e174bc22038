// Look-up, setting and saving when memory is exhausted at any step.
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "fault/TextRows.h"
#include "system/StoreFixture.h"

namespace {

using namespace tev::fault;
using tev::test::kUserFile;
using tev::test::OpenStore;
using tev::test::ReadAll;
using tev::test::Store;
using tev::test::StoreFolders;
using tev::test::Table;
using tev::test::Variable;

// Longer than the store's room for keys.
constexpr const char* kKey =
    "a.key.longer.than.what.the.store.has.room.for............................................"
    "................................................";
constexpr const char* kValue = "a value that is longer than what a string keeps in itself";
constexpr const char* kVariable = "TEV_FAULT_VARIABLE_OF_THE_STORE";

// A store loaded from a system file and a user file.
class LoadedStore : public StoreFolders {
 public:
    LoadedStore() { Load("s=1\n", "u=2\n"); }
    using StoreFolders::Get;

    std::string UserFile() const { return ReadAll(user_ / kUserFile); }
};

// A look-up that gives `expected`, or on failure null.
void LooksUp(Attempt& attempt, const char* key, const char* expected) {
    const char* value = "before";
    const bool isFound = attempt.Call([&] { return Store::GetProperty(key, value); });
    EXPECT_STREQ(value, attempt.Succeeded(isFound) ? expected : nullptr);
}

void LooksUpAVariable(Attempt& attempt) {
    const LoadedStore store;
    const Table before = OpenStore::System();
    {
        const Variable variable(kVariable, kValue);
        LooksUp(attempt, kVariable, kValue);
        EXPECT_EQ(OpenStore::System().size(), before.size() + (attempt.IsFaulted() ? 0 : 1));
        EXPECT_EQ(LoadedStore::Get(kVariable), kValue);
    }
    EXPECT_EQ(LoadedStore::Get(kVariable), kValue) << "not cached";
}

void ReadsASwitch(Attempt& attempt, const char* key) {
    bool isOn = false;
    const bool isRead = attempt.Call([&] { return Store::GetPropertyAsBool(isOn, key); });
    EXPECT_EQ(isOn, attempt.Succeeded(isRead));
}

// Sets the property and compares the table with what it was.
void Sets(Attempt& attempt) {
    Table expected = OpenStore::User();
    const bool isSet = attempt.Call([] { return Store::SetUserProperty(kKey, kValue); });
    if (attempt.Succeeded(isSet)) expected[kKey] = kValue;
    EXPECT_EQ(OpenStore::User(), expected);
    EXPECT_TRUE(Store::SetUserProperty(kKey, kValue));
    EXPECT_EQ(LoadedStore::Get(kKey), kValue);
}

// The old content may be gone: the file is opened before the new text is made.
void Saves(Attempt& attempt) {
    const LoadedStore store;
    Store::SetUserProperty(kKey, kValue);
    const Table table = OpenStore::User();
    const std::string line = std::string(kKey) + " = " + kValue + "\n";
    const bool isSaved = attempt.Call([] { return Store::SaveUserProperties(); });
    EXPECT_EQ(OpenStore::User(), table);
    if (!attempt.Succeeded(isSaved)) {
        const std::string left = store.UserFile();
        EXPECT_TRUE(left.empty() || left == "u=2\n") << left;
        EXPECT_TRUE(Store::SaveUserProperties());
    }
    EXPECT_EQ(store.UserFile().substr(0, line.size()), line);
}

// An object with tables of its own.
struct OtherStore : Store {
    OtherStore() = default;
    Table& System() { return getProperties(); }
    Table& User() { return getUserProperties(); }
};

const AllocatingFunctions uses{
    {"TEVSystemProperties::GetProperty(char const*, char const*&)", "variable", LooksUpAVariable},
    {"TEVSystemProperties::GetPropertyAsBool(bool&, char const*)", "variable",
     [](Attempt& attempt) {
         const LoadedStore store;
         const Variable variable(kVariable, "on");
         ReadsASwitch(attempt, kVariable);
     }},
    {"TEVSystemProperties::SetUserProperty(char const*, char const*)", "new",
     [](Attempt& attempt) {
         const LoadedStore store;
         Sets(attempt);
     }},
    {"TEVSystemProperties::SetUserProperty(char const*, char const*)", "replaced",
     [](Attempt& attempt) {
         const LoadedStore store;
         Store::SetUserProperty(kKey, "old");
         Sets(attempt);
     }},
    {"TEVSystemProperties::SaveUserProperties()", "", Saves},
    {"TEVSystemProperties::TEVSystemProperties()", "",
     [](Attempt& attempt) {
         const bool isMade = Made(attempt, [] { const OtherStore store; });
         if (!attempt.Succeeded(isMade)) ByBadAlloc(attempt);
     }},
};

const IdleFunctions accesses{
    {"TEVSystemProperties::GetProperty(char const*, char const*&)", "of a table",
     [](Attempt& attempt) {
         const LoadedStore store;
         Store::SetUserProperty(kKey, kValue);
         LooksUp(attempt, kKey, kValue);
     }},
    {"TEVSystemProperties::GetPropertyAsBool(bool&, char const*)", "of a table",
     [](Attempt& attempt) {
         const LoadedStore store;
         Store::SetUserProperty(kKey, "on");
         ReadsASwitch(attempt, kKey);
     }},
    {"TEVSystemProperties::get()", "already created",
     [](Attempt& attempt) {
         const Store* instance = OpenStore::Instance();
         Finds(attempt, instance, [] { return OpenStore::Instance(); });
     }},
    {"TEVSystemProperties::getProperties()", "",
     [](Attempt& attempt) {
         OtherStore other;
         Finds(attempt, std::size_t{0}, [&] { return other.System().size(); });
     }},
    {"TEVSystemProperties::getUserProperties()", "",
     [](Attempt& attempt) {
         OtherStore other;
         Finds(attempt, std::size_t{0}, [&] { return other.User().size(); });
     }},
    {"TEVSystemProperties::operator=(TEVSystemProperties const&)", "",
     [](Attempt& attempt) {
         OtherStore one;
         const OtherStore other;
         Store& base = one;
         attempt.Call([&] { base = other; });
         attempt.Succeeded(true);
     }},
    {"TEVSystemProperties::~TEVSystemProperties()", "destructor",
     [](Attempt& attempt) {
         std::optional<OtherStore> store(std::in_place);
         attempt.Call([&] { store.reset(); });
         attempt.Succeeded(!store);
     }},
};

}  // namespace
