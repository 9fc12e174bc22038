#include <SimpleIni.h>
#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <cpl_vsi.h>
#include <windows.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "Files.h"
#include "LoadedStore.h"
#include "Rows.h"
#include "Variables.h"
#include "support/Environment.h"

namespace tev::bench {

namespace {

constexpr char kDirective[] = "tev.env.new.";

// Of six entries four are plain, one has a reference to a plain one, one is a directive that sets
// one of sixteen variables. A sixth of them are the user's.
struct Configuration {
    explicit Configuration(std::size_t count) {
        std::mt19937 random(20240312);
        std::string plain;
        for (std::size_t i = 0; i < count; ++i) {
            std::string key = "tev." + Word(random, 14);
            std::string value = Word(random, 20);
            if (i % 6 == 4) value = "%" + plain + "%\\" + value;
            if (i % 6 == 5) {
                key = kDirective + std::to_string(i);
                value = "TEV_BENCH_" + std::to_string(i / 6 % 16) + "|" + value;
            } else if (i % 6 < 4) {
                plain = key;
            }
            const bool isUser = i % 6 == 3;
            entries.emplace_back(key, value);
            (isUser ? user : system) += key + " = " + value + "\n";
        }
        store.emplace(system, user);
        buffer.resize(system.size() + user.size());
    }
    std::vector<std::pair<std::string, std::string>> entries;
    std::string system;
    std::string user;
    std::optional<LoadedStore> store;
    mutable std::string buffer;
};
using Input = std::unique_ptr<const Configuration>;

void Execute(const std::string& directive) {
    const std::size_t split = directive.find('|');
    const std::string name = directive.substr(0, split);
    SetVariable(name, directive.substr(split + 1));
}

// Two of the variables tell whether the work was done; read only where a row is checked.
struct Outcome {
    bool operator==(const std::string& expected) const {
        return test::SystemVariable("TEV_BENCH_0").value_or("-") + " " +
                   test::SystemVariable("TEV_BENCH_1").value_or("-") ==
               expected;
    }
};

void Prepare(const Input& input) {
    input->store->Load();
    for (const char* name : {"TEV_BENCH_0", "TEV_BENCH_1"}) SetEnvironmentVariableA(name, nullptr);
}

// The directives run in the order of their keys, the last one for a variable counts.
std::string Expected(const Input& input) {
    Pairs directives;
    Pairs variables;
    for (const auto& [key, value] : input->entries)
        if (key.rfind(kDirective, 0) == 0) directives.emplace(key, value);
    for (const auto& [key, value] : directives)
        variables[value.substr(0, value.find('|'))] = value.substr(value.find('|') + 1);
    const auto of = [&](const char* name) {
        return variables.count(name) == 0 ? std::string("-") : variables[name];
    };
    return of("TEV_BENCH_0") + " " + of("TEV_BENCH_1");
}

// The same with SimpleIni: read both, put references in, set the variables.
std::string Expand(const CSimpleIniCaseA& system, const CSimpleIniCaseA& user,
                   const std::string& value) {
    std::string text;
    std::size_t done = 0;
    for (;;) {
        const std::size_t open = value.find('%', done);
        const std::size_t close = open == std::string::npos ? open : value.find('%', open + 1);
        if (close == std::string::npos) return text + value.substr(done);
        const std::string name = value.substr(open + 1, close - open - 1);
        const char* found = user.GetValue("", name.c_str());
        if (found == nullptr) found = system.GetValue("", name.c_str());
        if (found == nullptr) found = std::getenv(name.c_str());
        text += value.substr(done, open - done) +
                (found == nullptr ? "%" + name + "%" : std::string(found));
        done = close + 1;
    }
}

void ExpandAll(CSimpleIniCaseA& ini, const CSimpleIniCaseA& system, const CSimpleIniCaseA& user) {
    CSimpleIniCaseA::TNamesDepend keys;
    ini.GetAllKeys("", keys);
    keys.sort(CSimpleIniCaseA::Entry::KeyOrder());
    for (const auto& key : keys) {
        const std::string value = ini.GetValue("", key.pItem);
        if (value.find('%') != std::string::npos)
            ini.SetValue("", key.pItem, Expand(system, user, value).c_str());
        if (std::string(key.pItem).rfind(kDirective, 0) == 0) Execute(ini.GetValue("", key.pItem));
    }
}

void LoadWithIni(const LoadedStore& store) {
    CSimpleIniCaseA system;
    CSimpleIniCaseA user;
    system.LoadFile(store.SystemFile().c_str());
    user.LoadFile(store.UserFile().c_str());
    ExpandAll(system, system, user);
    ExpandAll(user, system, user);
}

void BareWork(const Configuration& configuration) {
    VSIStatBufL status;
    char* buffer = configuration.buffer.data();
    for (const std::string& file :
         {configuration.store->SystemFile(), configuration.store->UserFile()}) {
        if (VSIStatL(file.c_str(), &status) != 0) throw std::runtime_error("no file " + file);
        buffer += ReadInto(file, buffer, static_cast<std::size_t>(status.st_size));
    }
    Pairs pairs;
    for (const auto& [key, value] : configuration.entries) pairs.emplace(key, value);
    for (auto entry = pairs.lower_bound(kDirective);
         entry != pairs.end() && entry->first.rfind(kDirective, 0) == 0; ++entry)
        Execute(entry->second);
}

void Add(std::size_t count) {
    Work(
        "reload", static_cast<std::int64_t>(count),
        [count] { return std::make_unique<const Configuration>(count); }, Expected)
        .Before(Prepare)
        .Ours([](const Input&, auto keep) {
            Store::InitializeProperties();
            keep(Outcome{});
        })
        .Peer("SimpleIni + expansion",
              [](const Input& input, auto keep) {
                  LoadWithIni(*input->store);
                  keep(Outcome{});
              })
        .CheckedLimit("stat + read + map + environment calls", [](const Input& input, auto keep) {
            BareWork(*input);
            keep(Outcome{});
        });
}

}  // namespace

void RegisterRows() {
    for (const std::size_t count : {60U, 180U, 540U, 1620U}) Add(count);
}

}  // namespace tev::bench
