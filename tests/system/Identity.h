#pragma once

#include <gtest/gtest.h>

#include <cstddef>

namespace tev::test {

// The type is left open, so that the header of the object is included by the test, in its own way.
template <typename Object>
void ExpectNoIdentity(const Object& object) {
    EXPECT_FALSE(object.IsValidTEVSystemObject());
    EXPECT_EQ(object.GetTEVSystemObjectID(), nullptr);
    EXPECT_EQ(object.GetTEVSystemObjectClassName(), nullptr);
    EXPECT_EQ(object.GetObjectCount(), 0U);
}

template <typename Object>
void ExpectIdentity(const Object& object, const char* id, const char* className,
                    std::size_t count) {
    EXPECT_TRUE(object.IsValidTEVSystemObject());
    EXPECT_STREQ(object.GetTEVSystemObjectID(), id);
    EXPECT_STREQ(object.GetTEVSystemObjectClassName(), className);
    EXPECT_EQ(object.GetObjectCount(), count);
}

}  // namespace tev::test
