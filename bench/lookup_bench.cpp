#include <SimpleIni.h>
#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <windows.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

#include "Files.h"
#include "LoadedStore.h"
#include "Rows.h"

namespace tev::bench {

namespace {

constexpr std::size_t kLookups = 64;
constexpr std::size_t kVariables = 64;

// Half of the entries in each table; the look-ups are of one kind, at random. Every key is ready as
// a std::string, its value beside it.
struct Lookups {
    // The kinds.
    enum Kind { User, System, Cached, Absent, Bool };

    Lookups(Kind kind, std::size_t count) {
        std::mt19937 random(20240308);
        std::vector<std::string> user;
        std::vector<std::string> system;
        std::string texts[2];
        for (std::size_t i = 0; i < count; ++i) {
            const bool isUser = i % 2 == 0;
            const std::string key = "tev." + Word(random, 14);
            const std::string value =
                kind == Bool ? (i / 2 % 2 == 0 ? "Yes" : "off") : Word(random, 20);
            (isUser ? user : system).push_back(key);
            table[key] = value;
            texts[isUser ? 1 : 0] += key + " = " + value + "\n";
            ini.SetValue("", key.c_str(), value.c_str());
        }
        for (std::size_t i = 0; kind == Cached && i < kVariables; ++i) AddVariable(random);
        store.emplace(texts[0], texts[1]);
        for (std::size_t i = 0; i < kLookups; ++i)
            keys.push_back(kind == Absent   ? "tev." + Word(random, 13)
                           : kind == Cached ? variables[random() % variables.size()]
                           : kind == User   ? user[random() % user.size()]
                                            : system[random() % system.size()]);
        hashed.insert(table.begin(), table.end());
        for (const std::string& key : keys) wide.emplace_back(key.begin(), key.end());
    }
    // Makes the one store of the process that of this input.
    void Load() const {
        for (const std::string& name : variables)
            SetEnvironmentVariableA(name.c_str(), table.at(name).c_str());
        store->Load();
    }
    ~Lookups() {
        for (const std::string& name : variables) SetEnvironmentVariableA(name.c_str(), nullptr);
    }
    Lookups(const Lookups&) = delete;
    Lookups& operator=(const Lookups&) = delete;

    void AddVariable(std::mt19937& random) {
        variables.push_back("TEV_" + Word(random, 14));
        table[variables.back()] = Word(random, 20);
        ini.SetValue("", variables.back().c_str(), table[variables.back()].c_str());
    }

    Pairs table;
    std::unordered_map<std::string, std::string> hashed;
    CSimpleIniCaseA ini;
    std::optional<LoadedStore> store;
    std::vector<std::string> keys;
    std::vector<std::wstring> wide;
    std::vector<std::string> variables;
};
using Input = std::unique_ptr<const Lookups>;

// Each value in turn, "-" for none.
template <typename Get>
auto ForEach(Get get) {
    return [get](const Input& lookups, auto keep) {
        for (const std::string& key : lookups->keys) keep(get(*lookups, key));
    };
}

const char* FromStore(const Lookups&, const std::string& key) {
    const char* value = nullptr;
    return Store::GetProperty(key.c_str(), value) ? value : "-";
}

const char* FromIni(const Lookups& lookups, const std::string& key) {
    return lookups.ini.GetValue("", key.c_str(), "-");
}

template <typename Table>
const char* Find(const Table& table, const std::string& key) {
    const auto found = table.find(key);
    return found == table.end() ? "-" : found->second.c_str();
}

const char* FromMap(const Lookups& lookups, const std::string& key) {
    return Find(lookups.table, key);
}

const char* FromHashTable(const Lookups& lookups, const std::string& key) {
    return Find(lookups.hashed, key);
}

void Load(const Input& lookups) { lookups->Load(); }

auto Start(const char* work, Lookups::Kind kind, std::size_t count) {
    const auto make = [=] { return std::make_unique<const Lookups>(kind, count); };
    return Work(work, static_cast<std::int64_t>(count), make, [](const Input& lookups) {
        Each<std::string> values;
        for (const std::string& key : lookups->keys)
            values.values.emplace_back(FromMap(*lookups, key));
        return values;
    });
}

void AddHit(const char* work, Lookups::Kind kind, std::size_t count) {
    Start(work, kind, count)
        .Before(Load)
        .Ours(ForEach(FromStore))
        .Peer("SimpleIni", ForEach(FromIni))
        .Peer("std::unordered_map", ForEach(FromHashTable))
        .CheckedLimit("std::map::find", ForEach(FromMap));
}

void AddAbsent(std::size_t count) {
    Start("absent", Lookups::Absent, count)
        .Before(Load)
        .Ours(ForEach(FromStore))
        .Peer("getenv", ForEach([](const Lookups&, const std::string& key) {
                  const char* value = std::getenv(key.c_str());
                  return value == nullptr ? "-" : value;
              }))
        .Limit("the bare environment call", [](const Input& lookups, auto keep) {
            wchar_t value[64];
            for (const std::wstring& name : lookups->wide)
                keep(GetEnvironmentVariableW(name.c_str(), value, 64));
        });
}

void AddBool(std::size_t count) {
    const auto make = [=] { return std::make_unique<const Lookups>(Lookups::Bool, count); };
    Work("bool", static_cast<std::int64_t>(count), make,
         [](const Input& lookups) {
             Each<int> values;
             for (const std::string& key : lookups->keys)
                 values.values.push_back(lookups->table.at(key) == "Yes" ? 1 : 0);
             return values;
         })
        .Before(Load)
        .Ours(ForEach([](const Lookups&, const std::string& key) {
            bool value = false;
            return Store::GetPropertyAsBool(value, key.c_str()) ? int{value} : -1;
        }))
        .Peer("SimpleIni", ForEach([](const Lookups& lookups, const std::string& key) {
                  return int{lookups.ini.GetBoolValue("", key.c_str())};
              }))
        .Limit("std::map::find", ForEach(FromMap));
}

}  // namespace

void RegisterRows() {
    for (const std::size_t count : {20U, 200U, 2000U, 20000U}) {
        AddHit("user", Lookups::User, count);
        AddHit("system", Lookups::System, count);
        AddHit("cached-environment", Lookups::Cached, count);
        AddAbsent(count);
        AddBool(count);
    }
}

}  // namespace tev::bench
