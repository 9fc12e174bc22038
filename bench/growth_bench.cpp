#include <TEVSystemLib/system/TEVSystemProperties.h>

#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Files.h"
#include "LoadedStore.h"
#include "Rows.h"
#include "Variables.h"
#include "support/Environment.h"

namespace tev::bench {

namespace {

constexpr char kLast[] = "TEV_BENCH_LAST";
constexpr char kList[] = "TEV_BENCH_LIST";
constexpr char kFirstElement[] = "C:\\kit";

using Variables = std::vector<std::pair<std::string, std::string>>;

// A store upon a system file; `outcome` is what a variable holds when all of its entries were
// worked through, `variables` all that the directives set, one after the other.
struct Entries {
    void Add(const std::string& key, const std::string& value) { pairs.emplace_back(key, value); }
    void Set(const std::string& name, const std::string& value) {
        variables.emplace_back(name, value);
        outcome = value;
    }
    void Write() {
        std::string text;
        for (const auto& [key, value] : pairs) text += key + " = " + value + "\n";
        buffer.resize(text.size());
        store.emplace(text, "");
    }
    std::vector<std::pair<std::string, std::string>> pairs;
    Variables variables;
    std::string outcome;
    std::optional<LoadedStore> store;
    mutable std::string buffer;
};
using Input = std::unique_ptr<const Entries>;

std::string Number(std::size_t i) {
    char text[16];
    std::snprintf(text, sizeof text, "%06u", static_cast<unsigned>(i));
    return text;
}

// Directives that set so many variables in turn, and at last the one that is looked at.
Input Directives(std::size_t count, std::size_t variables) {
    auto entries = std::make_unique<Entries>();
    for (std::size_t i = 0; i < count; ++i) {
        entries->Set("TEV_BENCH_" + Number((i + 1) % variables), "value " + Number(i));
        const auto& [name, value] = entries->variables.back();
        entries->Add("tev.env.new." + Number(i), name + "|" + value);
    }
    entries->Set(kLast, entries->outcome);
    entries->Add("tev.env.new.last", kLast + ("|" + entries->outcome));
    entries->Write();
    return entries;
}

// So many entries with a reference to an entry of their own.
Input References(std::size_t count) {
    auto entries = std::make_unique<Entries>();
    for (std::size_t i = 0; i < count; ++i) {
        entries->Add("tev.a." + Number(i), "%tev.z." + Number(i) + "%\\maps");
        entries->Add("tev.z." + Number(i), "folder " + Number(i));
    }
    entries->Set(kLast, "folder " + Number(count - 1) + "\\maps");
    entries->Add("tev.env.new.last", kLast + ("|%tev.a." + Number(count - 1) + "%"));
    entries->Write();
    return entries;
}

// Directives that append so many elements to a list, which becomes as long as the system allows.
Input ListEdits(std::size_t count) {
    auto entries = std::make_unique<Entries>();
    entries->Set(kList, kFirstElement);
    for (std::size_t i = 0; i < count; ++i) {
        const std::string element = "C:\\" + Number(i).substr(2);
        entries->Add("tev.env.add." + Number(i), kList + ("|" + element));
        entries->Set(kList, entries->outcome + ";" + element);
    }
    entries->Write();
    return entries;
}

// Read only where a row is checked.
struct Outcome {
    bool operator==(const std::string& expected) const {
        return test::SystemVariable(variable) == expected;
    }
    const char* variable = kLast;
};

void SetAll(const Variables& variables) {
    for (const auto& [name, value] : variables) SetVariable(name, value);
}

// What another row has left would slow down every change: a long list, a thousand variables.
void Prepare(const Input& entries) {
    for (const auto& [name, value] : VariablesNamed("TEV_BENCH_")) SetVariable(name, "");
    entries->store->Load();
    SetVariable(kLast, "");
}

std::string Expected(const Input& entries) { return entries->outcome; }

template <typename Make>
auto Start(const char* work, std::size_t count, Make make) {
    auto rows = Work(work, static_cast<std::int64_t>(count), make, Expected);
    rows.Before(Prepare);
    return rows;
}

constexpr auto kReload = [](const Input&, auto keep) {
    Store::InitializeProperties();
    keep(Outcome{});
};

template <typename Make>
void AddDirectives(const char* work, std::size_t count, Make make) {
    Start(work, count, make)
        .Ours(kReload)
        .CheckedLimit("the environment calls alone", [](const Input& entries, auto keep) {
            SetAll(entries->variables);
            keep(Outcome{});
        });
}

void AddReferences(std::size_t count) {
    Start("references", count, [count] { return References(count); })
        .Ours(kReload)
        .CheckedLimit("read + map insertion", [](const Input& entries, auto keep) {
            ReadInto(entries->store->SystemFile(), entries->buffer.data(), entries->buffer.size());
            const Pairs pairs(entries->pairs.begin(), entries->pairs.end());
            SetAll(entries->variables);
            keep(Outcome{});
        });
}

// Each turn begins with a list of one element.
void AddListEdits(std::size_t count) {
    Start("directives-list", count, [count] { return ListEdits(count); })
        .Ours([](const Input&, auto keep) {
            SetVariable(kList, kFirstElement);
            Store::InitializeProperties();
            keep(Outcome{kList});
        })
        .CheckedLimit("the environment calls alone", [](const Input& entries, auto keep) {
            SetAll(entries->variables);
            keep(Outcome{kList});
        });
}

}  // namespace

void RegisterRows() {
    for (const std::size_t count : {10U, 100U, 1000U, 10000U})
        AddDirectives("directives", count, [count] { return Directives(count, 8); });
    for (const std::size_t count : {10U, 50U, 250U, 1000U})
        AddDirectives("directives-variables", count, [count] { return Directives(count, count); });
    for (const std::size_t count : {4U, 40U, 400U, 4000U}) AddListEdits(count);
    for (const std::size_t count : {100U, 1000U, 10000U, 100000U}) AddReferences(count);
}

}  // namespace tev::bench
