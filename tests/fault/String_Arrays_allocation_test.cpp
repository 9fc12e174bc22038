// Growing arrays and message tables when memory is exhausted at any step.
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "fault/TextRows.h"
#include "support/Owned.h"

namespace {

using namespace tev::fault;
using String = TAMO::TEV::System::Util::TEVUtilString;
using TAMO::TEV::System::TEVSysCnst;
using tev::test::TextArray;
using List = std::vector<std::string>;
using Messages = std::vector<char*>;
using MessageMap = std::map<TEVSysCnst::MsgLevel, Messages*>;

const List kHeld{"one", "two"};
const List kGrown{"one", "two", "three", "four"};

// An array of owned strings, as the library makes it.
struct Held : TextArray {
    explicit Held(const List& texts) {
        for (const std::string& text : texts)
            String::AddEntryToStringArray(array, text.c_str(), count, true);
    }
};

// Owned strings in a vector, as long as nobody takes them over.
struct HeldVector {
    explicit HeldVector(const List& texts) {
        for (const std::string& text : texts) {
            char* copy = nullptr;
            String::Copy(text.c_str(), &copy, nullptr);
            entries.push_back(copy);
        }
    }
    ~HeldVector() {
        for (char*& entry : entries) String::DeleteCString(&entry);
    }
    HeldVector(const HeldVector&) = delete;
    HeldVector& operator=(const HeldVector&) = delete;

    Messages entries;
};

void AddsAnEntry(Attempt& attempt) {
    Held held(kHeld);
    char** const before = held.array;
    const bool isAdded = attempt.Call(
        [&] { return String::AddEntryToStringArray(held.array, "three", held.count, true); });
    const bool succeeded = attempt.Succeeded(isAdded);
    EXPECT_EQ(held.array != before, succeeded);
    EXPECT_EQ(held.Strings(), succeeded ? List({"one", "two", "three"}) : kHeld);
}

template <bool copyEntries>
void AddsAVector(Attempt& attempt) {
    Held held(kHeld);
    HeldVector added({"three", "four"});
    char** const before = held.array;
    const bool isAdded = attempt.Call([&] {
        return String::AddEntriesToStringArray(held.array, held.count, added.entries, true,
                                               copyEntries);
    });
    const bool succeeded = attempt.Succeeded(isAdded);
    EXPECT_EQ(held.array != before, succeeded);
    EXPECT_EQ(held.Strings(), succeeded ? kGrown : kHeld);
    EXPECT_EQ(added.entries.size(), succeeded && !copyEntries ? 0U : 2U);
}

template <bool takeOver>
void AddsAnArray(Attempt& attempt) {
    Held held(kHeld);
    Held added({"three", "four"});
    char** const before = added.array;
    const bool isAdded = attempt.Call([&] {
        return String::AddEntriesToStringArray(held.array, added.array, held.count, added.count,
                                               true, takeOver);
    });
    const bool succeeded = attempt.Succeeded(isAdded);
    EXPECT_EQ(held.Strings(), succeeded ? kGrown : kHeld);
    EXPECT_EQ(added.array, succeeded && takeOver ? nullptr : before);
    EXPECT_EQ(added.count, succeeded && takeOver ? 0U : 2U);
}

const AllocatingFunctions arrays{
    {"TEVUtilString::AddEntryToStringArray(char**&, char const*, unsigned long long&, bool)", "",
     AddsAnEntry},
    {"TEVUtilString::AddEntriesToStringArray(char**&, unsigned long long&, std::vector<char*>&, "
     "bool, bool)",
     "copied", AddsAVector<true>},
    {"TEVUtilString::AddEntriesToStringArray(char**&, unsigned long long&, std::vector<char*>&, "
     "bool, bool)",
     "taken over", AddsAVector<false>},
    {"TEVUtilString::AddEntriesToStringArray(char**&, char**&, unsigned long long&, "
     "unsigned long long&, bool, bool)",
     "copied", AddsAnArray<false>},
    {"TEVUtilString::AddEntriesToStringArray(char**&, char**&, unsigned long long&, "
     "unsigned long long&, bool, bool)",
     "taken over", AddsAnArray<true>},
    {"TEVUtilString::GetCStringVectorContainerArray(unsigned long long, "
     "std::vector<char const*>**&)",
     "",
     [](Attempt& attempt) {
         std::vector<const char*>** containers = nullptr;
         const std::size_t count =
             attempt.Call([&] { return String::GetCStringVectorContainerArray(5, containers); });
         EXPECT_EQ(containers != nullptr, attempt.Succeeded(count == 5));
         String::DeleteCStringVectorContainerArray(count, containers);
     }},
};

// An array that is made by `make(count, &out)` and throws std::bad_alloc.
template <typename T, typename Make>
void MakesOrThrows(Attempt& attempt, Make make, void (*release)(T*&)) {
    T stale{};
    T* out = &stale;
    const std::size_t count = attempt.Call([&] { return make(out); });
    const bool succeeded = attempt.Succeeded(count == 5);
    EXPECT_EQ(out != nullptr, succeeded);
    if (!succeeded) ByBadAlloc(attempt);
    release(out);
}

const AllocatingFunctions plainArrays{
    {"TEVUtilString::GetCharArray(unsigned long long, char**)", "",
     [](Attempt& attempt) {
         MakesOrThrows<char>(
             attempt, [](char*& out) { return String::GetCharArray(5, &out); },
             [](char*& out) { String::DeleteCString(&out); });
     }},
    {"TEVUtilString::GetUnsignedCharArray(unsigned long long, unsigned char**)", "",
     [](Attempt& attempt) {
         MakesOrThrows<unsigned char>(
             attempt, [](unsigned char*& out) { return String::GetUnsignedCharArray(5, &out); },
             [](unsigned char*& out) { String::DeleteUnsignedCharArray(&out); });
     }},
    {"TEVUtilString::GetCStringArray(char**&, unsigned long long)", "",
     [](Attempt& attempt) {
         MakesOrThrows<char*>(
             attempt, [](char**& out) { return String::GetCStringArray(out, 5); },
             [](char**& out) { String::DeleteCStringArray(out, 0); });
     }},
    {"TEVUtilString::GetConstCStringArray(char const**&, unsigned long long)", "",
     [](Attempt& attempt) {
         MakesOrThrows<const char*>(
             attempt, [](const char**& out) { return String::GetConstCStringArray(out, 5); },
             [](const char**& out) { String::DeleteConstCStringArray(out, 0); });
     }},
};

struct HeldMessages {
    HeldMessages() { String::GetMsgsMap(&map); }
    ~HeldMessages() { String::DeleteMsgsMap(&map); }
    HeldMessages(const HeldMessages&) = delete;
    HeldMessages& operator=(const HeldMessages&) = delete;

    std::size_t CountOf(TEVSysCnst::MsgLevel level) const {
        const auto found = map->find(level);
        return found == map->end() ? 0 : found->second->size();
    }

    MessageMap* map = nullptr;
};

void AddsAMessage(Attempt& attempt, HeldMessages& messages) {
    const std::size_t levels = messages.map->size();
    const std::size_t before = messages.CountOf(TEVSysCnst::Error);
    const bool isAdded =
        attempt.Call([&] { return String::AddMessage(kText, TEVSysCnst::Error, *messages.map); });
    const bool succeeded = attempt.Succeeded(isAdded);
    EXPECT_EQ(messages.CountOf(TEVSysCnst::Error), before + (succeeded ? 1 : 0));
    EXPECT_EQ(messages.map->size(), succeeded && before == 0 ? levels + 1 : levels);
}

// A creator stores nothing when it fails.
template <typename Container>
void Creates(Attempt& attempt, void (*create)(Container**), bool (*release)(Container**)) {
    Container stale;
    Container* out = &stale;
    attempt.Call([&] { create(&out); });
    if (attempt.Succeeded(out != &stale)) release(&out);
}

const AllocatingFunctions messages{
    {"TEVUtilString::AddMessage(char const*, TEVSysCnst::MsgLevel, "
     "std::map<TEVSysCnst::MsgLevel, std::vector<char*>*>&)",
     "new level",
     [](Attempt& attempt) {
         HeldMessages held;
         String::AddMessage("other", TEVSysCnst::Debug, *held.map);
         AddsAMessage(attempt, held);
     }},
    {"TEVUtilString::AddMessage(char const*, TEVSysCnst::MsgLevel, "
     "std::map<TEVSysCnst::MsgLevel, std::vector<char*>*>&)",
     "known level",
     [](Attempt& attempt) {
         HeldMessages held;
         String::AddMessage("first", TEVSysCnst::Error, *held.map);
         AddsAMessage(attempt, held);
     }},
    {"TEVUtilString::GetMsgsVector(std::vector<char*>**)", "",
     [](Attempt& attempt) {
         Creates<Messages>(attempt, String::GetMsgsVector, String::DeleteMsgsVector);
     }},
    {"TEVUtilString::GetMsgsMap(std::map<TEVSysCnst::MsgLevel, std::vector<char*>*>**)", "",
     [](Attempt& attempt) {
         Creates<MessageMap>(attempt, String::GetMsgsMap, String::DeleteMsgsMap);
     }},
};

const IdleFunctions releases{
    {"TEVUtilString::DeleteCStringArray(char**&, unsigned long long)", "",
     [](Attempt& attempt) {
         Held held(kHeld);
         attempt.Call([&] { String::DeleteCStringArray(held.array, held.count); });
         attempt.Succeeded(held.array == nullptr);
     }},
    {"TEVUtilString::DeleteConstCStringArray(char const**&, unsigned long long)", "",
     [](Attempt& attempt) {
         const char** array = nullptr;
         String::GetConstCStringArray(array, 5);
         attempt.Call([&] { String::DeleteConstCStringArray(array, 5); });
         attempt.Succeeded(array == nullptr);
     }},
    {"TEVUtilString::DeleteCStringVectorContainerArray(unsigned long long, "
     "std::vector<char const*>**&)",
     "",
     [](Attempt& attempt) {
         std::vector<const char*>** containers = nullptr;
         String::GetCStringVectorContainerArray(5, containers);
         attempt.Call([&] { String::DeleteCStringVectorContainerArray(5, containers); });
         attempt.Succeeded(containers == nullptr);
     }},
    {"TEVUtilString::DeleteMsgsVector(std::vector<char*>**)", "",
     [](Attempt& attempt) {
         Messages* made = nullptr;
         String::GetMsgsVector(&made);
         attempt.Succeeded(attempt.Call([&] { return String::DeleteMsgsVector(&made); }));
     }},
    {"TEVUtilString::DeleteMsgsMap(std::map<TEVSysCnst::MsgLevel, std::vector<char*>*>**)", "",
     [](Attempt& attempt) {
         HeldMessages held;
         String::AddMessage(kText, TEVSysCnst::Error, *held.map);
         attempt.Succeeded(attempt.Call([&] { return String::DeleteMsgsMap(&held.map); }));
     }},
};

}  // namespace
