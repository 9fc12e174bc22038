#include "TEVSystemLib/system/detail/KeyText.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using TAMO::TEV::System::detail::KeyRoom;
using TAMO::TEV::System::detail::KeyText;

TEST(KeyText, TakesTheRoomUnlessTheKeyIsLong) {
    KeyRoom room;
    for (const std::size_t length : {std::size_t{0}, std::size_t{1}, KeyRoom::kSize}) {
        const std::string key(length, 'k');
        const KeyText text(key, room);
        EXPECT_EQ(text.Get(), key);
        EXPECT_EQ(&text.Get(), &room.text);
    }
    const std::string key(KeyRoom::kSize + 1, 'k');
    const KeyText text(key, room);
    EXPECT_EQ(text.Get(), key);
    EXPECT_NE(&text.Get(), &room.text);
    EXPECT_FALSE(room.isTaken.test_and_set());
}

TEST(KeyText, HasOneOfItsOwnWhileTheRoomIsTaken) {
    KeyRoom room;
    {
        const KeyText first("first", room);
        const KeyText second("second", room);
        EXPECT_EQ(first.Get(), "first");
        EXPECT_EQ(second.Get(), "second");
        EXPECT_NE(&second.Get(), &room.text);
    }
    const KeyText third("third", room);
    EXPECT_EQ(&third.Get(), &room.text);
}

}  // namespace
