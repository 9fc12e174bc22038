#include <gtest/gtest.h>

#include <cstddef>
#include <exception>
#include <string>

#include "system/Identity.h"

// The class is opened after all other headers: copy, assignment and cleanup are private.
#define private public
#include <TEVSystemLib/system/TEVSystemObject.h>
#undef private

namespace {

using TAMO::TEV::System::TEVSystemObject;
using tev::test::ExpectIdentity;
using tev::test::ExpectNoIdentity;

constexpr char kRefusal[] = "Invalid operation - assignment operation is not allowed.";

class Thing : public TEVSystemObject {
 public:
    Thing() = default;
    Thing(const Thing&) = default;
    using TEVSystemObject::SetTEVSystemObject;
};

class Tagged : public Thing {
 public:
    TEVSystemObject& operator=(const TEVSystemObject& other) override {
        tag = other.GetObjectCount();
        return *this;
    }

    std::size_t tag = 0;
};

// What the assignment threw; "(nothing)" if it came back.
std::string Assign(TEVSystemObject& target, const TEVSystemObject& source) {
    try {
        target = source;
    } catch (const std::exception& error) {
        return error.what();
    }
    return "(nothing)";
}

TEST(CopyConstructor, LeavesTheCopyWithoutIdentity_Kept) {
    Thing thing;
    ASSERT_TRUE(thing.SetTEVSystemObject("left", "ImageView", 3));
    const TEVSystemObject copy(thing);
    ExpectNoIdentity(copy);
    ExpectIdentity(thing, "ImageView:3:left", "ImageView", 3);
    EXPECT_FALSE(copy == thing);
    EXPECT_TRUE(copy == copy);
}

TEST(CopyConstructor, CopyOfAnObjectWithoutIdentityHasNone) {
    const Thing thing;
    const TEVSystemObject copy(thing);
    ExpectNoIdentity(copy);
}

TEST(CopyConstructor, CopyCanBeGivenAnIdentityOfItsOwn) {
    Thing thing;
    ASSERT_TRUE(thing.SetTEVSystemObject("left", "ImageView", 3));
    Thing copy(thing);
    ExpectNoIdentity(copy);
    EXPECT_TRUE(copy.SetTEVSystemObject("right", "ImageView", 4));
    ExpectIdentity(copy, "ImageView:4:right", "ImageView", 4);
    ExpectIdentity(thing, "ImageView:3:left", "ImageView", 3);
}

TEST(Assignment, ThroughABaseReferenceThrowsAndChangesNothing) {
    Thing target;
    Thing source;
    EXPECT_EQ(Assign(target, source), kRefusal);
    ASSERT_TRUE(target.SetTEVSystemObject("left", "ImageView", 3));
    EXPECT_EQ(Assign(target, source), kRefusal);
    ExpectIdentity(target, "ImageView:3:left", "ImageView", 3);
    ExpectNoIdentity(source);
    EXPECT_EQ(Assign(source, target), kRefusal);
    ExpectIdentity(target, "ImageView:3:left", "ImageView", 3);
    ExpectNoIdentity(source);
}

TEST(Assignment, ToItselfThrows) {
    Thing thing;
    ASSERT_TRUE(thing.SetTEVSystemObject("left", "ImageView", 3));
    EXPECT_EQ(Assign(thing, thing), kRefusal);
    ExpectIdentity(thing, "ImageView:3:left", "ImageView", 3);
}

TEST(Assignment, IsVirtual) {
    Tagged target;
    Thing source;
    ASSERT_TRUE(source.SetTEVSystemObject("left", "ImageView", 3));
    EXPECT_EQ(Assign(target, source), "(nothing)");
    EXPECT_EQ(target.tag, 3U);
}

TEST(CleanupTEVSystemObject, TakesTheIdentityAway) {
    Thing thing;
    ASSERT_TRUE(thing.SetTEVSystemObject("left", "ImageView", 3));
    thing.CleanupTEVSystemObject();
    ExpectNoIdentity(thing);
    thing.CleanupTEVSystemObject();
    ExpectNoIdentity(thing);
}

TEST(CleanupTEVSystemObject, IdentityCanBeSetAgain) {
    Thing thing;
    ASSERT_TRUE(thing.SetTEVSystemObject("left", "ImageView", 3));
    thing.CleanupTEVSystemObject();
    EXPECT_TRUE(thing.SetTEVSystemObject("right", "MapView", 4));
    ExpectIdentity(thing, "MapView:4:right", "MapView", 4);
    EXPECT_FALSE(thing.SetTEVSystemObject("left", "ImageView", 3));
}

}  // namespace
