#include <TEVSystemLib/system/TEVSystemObject.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <exception>
#include <string>
#include <type_traits>

#include "system/Identity.h"

namespace {

using TAMO::TEV::System::TEVSystemObject;
using tev::test::ExpectIdentity;
using tev::test::ExpectNoIdentity;

class Thing : public TEVSystemObject {
 public:
    using TEVSystemObject::SetTEVSystemObject;
};

// Equal counts make equal objects.
class Counted : public Thing {
 public:
    bool operator==(const TEVSystemObject& other) const override {
        ++comparisons;
        return GetObjectCount() == other.GetObjectCount();
    }

    mutable int comparisons = 0;
};

TEST(TEVSystemObject, ClientsCanNeitherMakeNorCopyNorAssignOne) {
    EXPECT_FALSE(std::is_default_constructible_v<TEVSystemObject>);
    EXPECT_FALSE(std::is_copy_constructible_v<TEVSystemObject>);
    EXPECT_FALSE(std::is_copy_assignable_v<TEVSystemObject>);
    EXPECT_FALSE(std::is_copy_constructible_v<Thing>);
    EXPECT_FALSE(std::is_copy_assignable_v<Thing>);
    EXPECT_TRUE(std::has_virtual_destructor_v<TEVSystemObject>);
}

TEST(TEVSystemObject, NewObjectHasNoIdentity) { ExpectNoIdentity(Thing()); }

TEST(TEVSystemObject, FieldsFollowTheTableInOrder) {
    struct Words {
        const void* table;
        const char* objectID;
        const char* className;
        std::uint64_t objectCount;
    } words;
    static_assert(sizeof(TEVSystemObject) == sizeof words);
    Thing thing;
    ASSERT_TRUE(thing.SetTEVSystemObject("left", "ImageView", 3));
    std::memcpy(&words, static_cast<const void*>(&thing), sizeof words);
    EXPECT_STREQ(words.objectID, "ImageView:3:left");
    EXPECT_EQ(words.objectID, thing.GetTEVSystemObjectID());
    EXPECT_STREQ(words.className, "ImageView");
    EXPECT_EQ(words.className, thing.GetTEVSystemObjectClassName());
    EXPECT_EQ(words.objectCount, 3U);
}

TEST(SetTEVSystemObject, GivesTheIdentity) {
    const struct {
        const char* name;
        const char* className;
        std::size_t count;
        const char* id;
        const char* storedClassName;
    } rows[] = {
        {"left", "ImageView", 3, "ImageView:3:left", "ImageView"},
        {"left", "ImageView", 0, "ImageView:0:left", "ImageView"},
        {"left", "ImageView", SIZE_MAX, "ImageView:18446744073709551615:left", "ImageView"},
        {" left ", " ImageView ", 3, "ImageView:3:left", "ImageView"},
        {"\tleft ", " ImageView\n", 3, "ImageView:3:left", "ImageView"},
        {"\tleft", "ImageView\n", 3, "ImageView\n:3:\tleft", "ImageView\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.id);
        Thing thing;
        EXPECT_TRUE(thing.SetTEVSystemObject(row.name, row.className, row.count));
        ExpectIdentity(thing, row.id, row.storedClassName, row.count);
    }
}

TEST(SetTEVSystemObject, TextsAreCopied) {
    char name[] = "left";
    char className[] = "ImageView";
    Thing thing;
    ASSERT_TRUE(thing.SetTEVSystemObject(name, className, 3));
    name[0] = className[0] = '?';
    ExpectIdentity(thing, "ImageView:3:left", "ImageView", 3);
}

TEST(SetTEVSystemObject, SecondCallIsRefusedAndKeepsTheFirstIdentity) {
    Thing thing;
    ASSERT_TRUE(thing.SetTEVSystemObject("left", "ImageView", 3));
    const char* const id = thing.GetTEVSystemObjectID();
    const char* const className = thing.GetTEVSystemObjectClassName();
    EXPECT_FALSE(thing.SetTEVSystemObject("right", "MapView", 4));
    EXPECT_FALSE(thing.SetTEVSystemObject("left", "ImageView", 3));
    EXPECT_FALSE(thing.SetTEVSystemObject("", nullptr, 0));
    EXPECT_EQ(thing.GetTEVSystemObjectID(), id);
    EXPECT_EQ(thing.GetTEVSystemObjectClassName(), className);
    ExpectIdentity(thing, "ImageView:3:left", "ImageView", 3);
}

TEST(SetTEVSystemObject, TextWithNothingInItLeavesTheObjectInvalid) {
    const struct {
        const char* row;
        const char* name;
        const char* className;
    } rows[] = {
        {"null name", nullptr, "ImageView"},   {"null class name", "left", nullptr},
        {"both null", nullptr, nullptr},       {"empty name", "", "ImageView"},
        {"empty class name", "left", ""},      {"both empty", "", ""},
        {"blank name", "   ", "ImageView"},    {"blank class name", "left", "   "},
        {"one blank", " ", "ImageView"},       {"blanks of all kinds", "left", " \t\n "},
        {"null and blank", nullptr, "      "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.row);
        Thing thing;
        EXPECT_FALSE(thing.SetTEVSystemObject(row.name, row.className, 3));
        ExpectNoIdentity(thing);
        EXPECT_TRUE(thing.SetTEVSystemObject("left", "ImageView", 3))
            << "a failure settles nothing";
        ExpectIdentity(thing, "ImageView:3:left", "ImageView", 3);
    }
}

TEST(Equal, IsOfAddressNotOfIdentity) {
    Thing thing;
    Thing twin;
    EXPECT_TRUE(thing == thing);
    EXPECT_FALSE(thing == twin);
    ASSERT_TRUE(thing.SetTEVSystemObject("left", "ImageView", 3));
    ASSERT_TRUE(twin.SetTEVSystemObject("left", "ImageView", 3));
    EXPECT_STREQ(thing.GetTEVSystemObjectID(), twin.GetTEVSystemObjectID());
    EXPECT_TRUE(thing == thing);
    EXPECT_FALSE(thing == twin);
    EXPECT_FALSE(twin == thing);
}

TEST(NotEqual, NegatesEqual) {
    const Thing thing;
    const Thing twin;
    EXPECT_FALSE(thing != thing);
    EXPECT_TRUE(thing != twin);
    EXPECT_TRUE(twin != thing);
}

TEST(NotEqual, HonoursTheEqualityOfADerivedClass) {
    Counted counted;
    Thing same;
    Thing other;
    ASSERT_TRUE(counted.SetTEVSystemObject("left", "ImageView", 3));
    ASSERT_TRUE(same.SetTEVSystemObject("right", "MapView", 3));
    ASSERT_TRUE(other.SetTEVSystemObject("left", "ImageView", 4));
    const TEVSystemObject& base = counted;
    EXPECT_FALSE(base != same);
    EXPECT_TRUE(base != other);
    EXPECT_EQ(counted.comparisons, 2);
    EXPECT_TRUE(same != base) << "the left side decides whose equality it is";
    EXPECT_EQ(counted.comparisons, 2);
}

// The virtual table as the Itanium ABI has it: the destructor takes two entries.
enum Slot { kDestroy, kDestroyAndDelete, kEqual, kNotEqual, kAssign, kSlots };
using Entry = void (*)();
using Destroy = void (*)(TEVSystemObject*);
using Comparison = bool (*)(const TEVSystemObject*, const TEVSystemObject*);
using Assignment = TEVSystemObject* (*)(TEVSystemObject*, const TEVSystemObject*);

template <typename Function>
Function Call(const TEVSystemObject& object, Slot slot) {
    const Entry* table = nullptr;
    std::memcpy(&table, static_cast<const void*>(&object), sizeof table);
    return reinterpret_cast<Function>(table[slot]);
}

// Tells which of its virtual functions ran last.
class Recorder : public TEVSystemObject {
 public:
    explicit Recorder(std::string& last) : last_(last) {}
    ~Recorder() override { last_ += "destroyed"; }
    bool operator==(const TEVSystemObject&) const override { return Record("=="); }
    bool operator!=(const TEVSystemObject&) const override { return Record("!="); }
    TEVSystemObject& operator=(const TEVSystemObject&) override {
        Record("=");
        return *this;
    }
    static void* operator new(std::size_t size) { return ::operator new(size); }
    static void operator delete(void* memory) {
        ++deletions;
        ::operator delete(memory);
    }

    static inline int deletions = 0;

 private:
    bool Record(const char* what) const {
        last_ = what;
        return true;
    }

    std::string& last_;
};

TEST(VirtualTable, ComparisonsAndAssignmentFollowTheDestructor) {
    std::string last;
    Recorder recorder(last);
    const Thing other;
    EXPECT_TRUE(Call<Comparison>(recorder, kEqual)(&recorder, &other));
    EXPECT_EQ(last, "==");
    EXPECT_TRUE(Call<Comparison>(recorder, kNotEqual)(&recorder, &other));
    EXPECT_EQ(last, "!=");
    EXPECT_EQ(Call<Assignment>(recorder, kAssign)(&recorder, &other), &recorder);
    EXPECT_EQ(last, "=");
}

TEST(VirtualTable, DestructorComesFirst) {
    std::string last;
    alignas(Recorder) unsigned char memory[sizeof(Recorder)];
    auto* const placed = ::new (static_cast<void*>(memory)) Recorder(last);
    const int deletions = Recorder::deletions;
    Call<Destroy>(*placed, kDestroy)(placed);
    EXPECT_EQ(last, "destroyed");
    EXPECT_EQ(Recorder::deletions, deletions);

    last.clear();
    auto* const made = new Recorder(last);
    Call<Destroy>(*made, kDestroyAndDelete)(made);
    EXPECT_EQ(last, "destroyed");
    EXPECT_EQ(Recorder::deletions, deletions + 1);
}

TEST(VirtualTable, InheritedEntriesAreTheLibrarys) {
    Thing thing;
    const Thing other;
    EXPECT_TRUE(Call<Comparison>(thing, kEqual)(&thing, &thing));
    EXPECT_FALSE(Call<Comparison>(thing, kEqual)(&thing, &other));
    EXPECT_FALSE(Call<Comparison>(thing, kNotEqual)(&thing, &thing));
    EXPECT_TRUE(Call<Comparison>(thing, kNotEqual)(&thing, &other));
    EXPECT_THROW(Call<Assignment>(thing, kAssign)(&thing, &other), std::runtime_error);
}

// An equality that no object has: only the table below leads to it.
const TEVSystemObject* asked = nullptr;
bool EqualOfTable(const TEVSystemObject*, const TEVSystemObject* other) {
    asked = other;
    return true;
}
void Trap() { FAIL() << "a call through the wrong entry"; }

TEST(VirtualTable, LibraryComparesThroughTheEntryAfterTheDestructor) {
    const Thing thing;
    Entry table[kSlots] = {Trap, Trap, reinterpret_cast<Entry>(EqualOfTable), Trap, Trap};
    struct {
        const Entry* table;
        std::uint64_t fields[3];
    } handMade = {table, {}};
    asked = nullptr;
    const auto* const object = reinterpret_cast<const TEVSystemObject*>(&handMade);
    EXPECT_FALSE(Call<Comparison>(thing, kNotEqual)(object, &thing));
    EXPECT_EQ(asked, &thing);
}

}  // namespace
