#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <absl/strings/str_join.h>
#include <absl/strings/str_split.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <memory>
#include <string>
#include <vector>

#include "Inputs.h"
#include "Rows.h"
#include "Variables.h"
#include "support/Environment.h"

namespace tev::bench {

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using TAMO::TEV::System::Util::TEVUtilWindows;

constexpr char kName[] = "TEV_BENCH_LIST";
constexpr wchar_t kWideName[] = L"TEV_BENCH_LIST";
constexpr char kElement[] = "C:\\new";
constexpr DWORD kMaxChars = 32767;

void Set(const std::string& value) { SetVariable(kName, value); }

// "C:\0000;C:\0001..."
std::string List(std::size_t elements) {
    std::string list;
    for (std::size_t i = 0; i < elements; ++i) {
        char element[16];
        std::snprintf(element, sizeof element, "%sC:\\%04u", i == 0 ? "" : ";",
                      static_cast<unsigned>(i));
        list += element;
    }
    return list;
}

void AddGet(std::size_t size) {
    Work(
        "get", static_cast<std::int64_t>(size),
        [size] { return RandomText(size, "abcdefghijklmnopqrstuvwxyz\\"); },
        [](const std::string& value) { return value; })
        .Before(Set)
        .Ours([](const std::string&, auto keep) {
            char* value = nullptr;
            TEVUtilWindows::GetEnv(kName, &value);
            keep(value);
            TEVUtilString::DeleteCString(&value);
        })
        .Peer("getenv + std::string",
              [](const std::string&, auto keep) { keep(std::string(std::getenv(kName))); })
        .Limit("the bare call on a stack buffer", [](const std::string&, auto keep) {
            wchar_t value[kMaxChars];
            keep(GetEnvironmentVariableW(kWideName, value, kMaxChars));
        });
}

// What the variable holds; read only where a row is checked.
struct Stored {
    bool operator==(const std::string& expected) const {
        return test::SystemVariable(kName) == expected;
    }
};

// Adds an element at the end and takes it out again, so that each turn finds the same list.
void AddEdit(std::size_t elements) {
    Work(
        "edit-list", static_cast<std::int64_t>(elements), [elements] { return List(elements); },
        [](const std::string& list) {
            return Each<std::string>{{list + ";" + kElement, list}};
        })
        .Before(Set)
        .Ours([](const std::string&, auto keep) {
            TEVUtilWindows::ModifySessionEnvironmentVariable(kName, kElement, false, 0);
            keep(Stored{});
            TEVUtilWindows::ModifySessionEnvironmentVariable(kName, kElement, false, 1);
            keep(Stored{});
        })
        .Peer("Abseil",
              [](const std::string&, auto keep) {
                  std::vector<std::string> list = absl::StrSplit(std::getenv(kName), ';');
                  list.emplace_back(kElement);
                  Set(absl::StrJoin(list, ";"));
                  keep(Stored{});
                  list = absl::StrSplit(std::getenv(kName), ';');
                  list.pop_back();
                  Set(absl::StrJoin(list, ";"));
                  keep(Stored{});
              })
        .CheckedLimit("the bare calls on a stack buffer", [](const std::string& list, auto keep) {
            wchar_t value[kMaxChars];
            GetEnvironmentVariableW(kWideName, value, kMaxChars);
            Set(list + ";" + kElement);
            keep(Stored{});
            GetEnvironmentVariableW(kWideName, value, kMaxChars);
            Set(list);
            keep(Stored{});
        });
}

// The last element is found by all.
void AddPresent(std::size_t elements) {
    Work(
        "list-has-it", static_cast<std::int64_t>(elements), [elements] { return List(elements); },
        [](const std::string&) { return true; })
        .Before(Set)
        .Ours([](const std::string& list, auto keep) {
            keep(TEVUtilWindows::ModifySessionEnvironmentVariable(
                kName, list.c_str() + list.size() - 7, false, 0));
        })
        .Peer("Abseil",
              [](const std::string& list, auto keep) {
                  const std::vector<std::string> split = absl::StrSplit(std::getenv(kName), ';');
                  keep(split.back() == list.substr(list.size() - 7));
              })
        .Limit("the bare call on a stack buffer", [](const std::string&, auto keep) {
            wchar_t value[kMaxChars];
            keep(GetEnvironmentVariableW(kWideName, value, kMaxChars));
        });
}

// So many variables beside those that the process has anyway.
struct Variables {
    explicit Variables(std::size_t count) {
        for (std::size_t i = 0; i < count; ++i)
            values["TEV_BENCH_" + std::to_string(10000 + i)] = "value " + std::to_string(i);
    }
    Pairs values;
};

void Activate(const Variables& variables) {
    for (const auto& [name, value] : VariablesNamed("TEV_BENCH_"))
        if (variables.values.count(name) == 0) SetVariable(name, "");
    for (const auto& [name, value] : variables.values) SetVariable(name, value);
}

// All variables that are wanted must be among these.
struct Listed {
    bool operator==(const Pairs& wanted) const {
        return std::includes(all.begin(), all.end(), wanted.begin(), wanted.end());
    }
    Pairs all;
};

// Names and values.
struct Listing {
    bool operator==(const Pairs& wanted) const {
        Listed listed;
        for (std::size_t i = 0; i < count; ++i) listed.all.emplace(names[i], values[i]);
        return listed == wanted;
    }
    char** names;
    char** values;
    std::size_t count;
};

std::size_t WalkBlock() {
    wchar_t* block = GetEnvironmentStringsW();
    std::size_t count = 0;
    for (const wchar_t* entry = block; *entry != L'\0'; entry += std::wcslen(entry) + 1) ++count;
    FreeEnvironmentStringsW(block);
    return count;
}

void AddListAll(std::size_t count) {
    Work(
        "list-all", static_cast<std::int64_t>(count), [count] { return Variables(count); },
        [](const Variables& variables) { return variables.values; })
        .Before(Activate)
        .Ours([](const Variables&, auto keep) {
            Listing all{};
            TEVUtilWindows::GetCurrentProcessEnvironmentVariables(all.names, all.values, all.count);
            keep(all);
            TEVUtilString::DeleteCStringArray(all.names, all.count);
            TEVUtilString::DeleteCStringArray(all.values, all.count);
        })
        .Peer("_environ into a map",
              [](const Variables&, auto keep) { keep(Listed{VariablesNamed("")}); })
        .Limit("the bare block and its walk",
               [](const Variables&, auto keep) { keep(WalkBlock()); });
}

}  // namespace

void RegisterRows() {
    for (const std::size_t size : {20U, 200U, 2000U, 20000U}) AddGet(size);
    for (const std::size_t count : {10U, 40U, 160U, 640U}) AddListAll(count);
    for (const std::size_t elements : {4U, 40U, 400U, 4000U}) {
        AddEdit(elements);
        AddPresent(elements);
    }
}

}  // namespace tev::bench
