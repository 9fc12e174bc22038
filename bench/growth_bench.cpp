#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "LoadedStore.h"
#include "Rows.h"
#include "support/Environment.h"

namespace tev::bench {

namespace {

// A store upon a system file; `outcome` is what the variable TEV_BENCH_LAST holds when all of its
// entries were worked through, `variables` all that the directives set.
struct Entries {
    std::optional<LoadedStore> store;
    std::string outcome;
    std::vector<std::pair<std::string, std::string>> variables;
};
using Input = std::unique_ptr<const Entries>;

std::string Number(std::size_t i) {
    char text[16];
    std::snprintf(text, sizeof text, "%06u", static_cast<unsigned>(i));
    return text;
}

// Directives that set so many variables in turn.
Input Directives(std::size_t count, std::size_t variables) {
    auto entries = std::make_unique<Entries>();
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string name = "TEV_BENCH_" + Number((i + 1) % variables);
        entries->outcome = "value " + Number(i);
        entries->variables.emplace_back(name, entries->outcome);
        text += "tev.env.new." + Number(i) + " = " + name + "|" + entries->outcome + "\n";
    }
    // The last one sets the variable that is looked at.
    entries->variables.emplace_back("TEV_BENCH_LAST", entries->outcome);
    text += "tev.env.new.last = TEV_BENCH_LAST|" + entries->outcome + "\n";
    entries->store.emplace(text, "");
    return entries;
}

// So many entries with a reference to an entry of their own.
Input References(std::size_t count) {
    auto entries = std::make_unique<Entries>();
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += "tev.a." + Number(i) + " = %tev.z." + Number(i) + "%\\maps\n";
        text += "tev.z." + Number(i) + " = folder " + Number(i) + "\n";
    }
    entries->outcome = "folder " + Number(count - 1) + "\\maps";
    text += "tev.env.new.last = TEV_BENCH_LAST|%tev.a." + Number(count - 1) + "%\n";
    entries->store.emplace(text, "");
    return entries;
}

// Read only where a row is checked.
struct Outcome {
    bool operator==(const std::string& expected) const {
        return test::SystemVariable("TEV_BENCH_LAST") == expected;
    }
};

void Prepare(const Input& entries) {
    entries->store->Load();
    SetEnvironmentVariableA("TEV_BENCH_LAST", nullptr);
}

std::string Expected(const Input& entries) { return entries->outcome; }

template <typename Make>
auto Start(const char* work, std::size_t count, Make make) {
    auto rows = Work(work, static_cast<std::int64_t>(count), make, Expected);
    rows.Before(Prepare).Ours([](const Input&, auto keep) {
        Store::InitializeProperties();
        keep(Outcome{});
    });
    return rows;
}

void AddDirectives(const char* work, std::size_t count, std::size_t variables) {
    Start(work, count, [=] {
        return Directives(count, variables);
    }).CheckedLimit("the environment calls alone", [](const Input& entries, auto keep) {
        for (const auto& [name, value] : entries->variables) {
            SetEnvironmentVariableA(name.c_str(), value.c_str());
            _putenv_s(name.c_str(), value.c_str());
        }
        keep(Outcome{});
    });
}

}  // namespace

void RegisterRows() {
    for (const std::size_t count : {10U, 100U, 1000U, 10000U})
        AddDirectives("directives", count, 8);
    for (const std::size_t count : {10U, 50U, 250U, 1000U})
        AddDirectives("directives-variables", count, count);
    for (const std::size_t count : {100U, 1000U, 10000U, 100000U})
        Start("references", count, [count] { return References(count); });
}

}  // namespace tev::bench
