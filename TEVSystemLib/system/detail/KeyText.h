#pragma once

#include <atomic>
#include <cstddef>
#include <string>
#include <string_view>

// Keys as the tables want them. A text of its own costs a look-up as much as the search itself.
namespace TAMO::TEV::System::detail {

// Room for one key of ordinary length.
struct KeyRoom {
    static constexpr std::size_t kSize = 127;

    KeyRoom() { text.reserve(kSize); }

    std::string text;
    std::atomic_flag isTaken = ATOMIC_FLAG_INIT;
};

// Takes the room, unless the key is long or another thread has it.
class KeyText {
 public:
    KeyText(std::string_view key, KeyRoom& room)
        : room_(key.size() <= KeyRoom::kSize &&
                        !room.isTaken.test_and_set(std::memory_order_acquire)
                    ? &room
                    : nullptr) {
        (room_ != nullptr ? room_->text : own_).assign(key);
    }
    ~KeyText() {
        if (room_ != nullptr) room_->isTaken.clear(std::memory_order_release);
    }
    KeyText(const KeyText&) = delete;
    KeyText& operator=(const KeyText&) = delete;

    const std::string& Get() const { return room_ != nullptr ? room_->text : own_; }

 private:
    KeyRoom* room_;
    std::string own_;
};

}  // namespace TAMO::TEV::System::detail
