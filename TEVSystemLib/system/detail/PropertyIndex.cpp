#include "TEVSystemLib/system/detail/PropertyIndex.h"

#include <functional>

#include "TEVSystemLib/util/string/detail/OrNothing.h"

namespace TAMO::TEV::System::detail {

namespace {

std::size_t HashOf(std::string_view key) { return std::hash<std::string_view>()(key); }

}  // namespace

void PropertyIndex::Open(PropertyTables tables) noexcept {
    Close();
    if (!isForGood_) Util::detail::OrNothing([&] { Build(tables); });
}

void PropertyIndex::Close() noexcept {
    slots_.clear();
    taken_ = 0;
}

void PropertyIndex::CloseForGood() noexcept {
    Close();
    isForGood_ = true;
}

void PropertyIndex::Build(PropertyTables tables) {
    std::size_t size = 16;
    while (size <= 2 * (tables.system.size() + tables.user.size())) size *= 2;
    slots_.resize(size);
    for (const Entry& entry : tables.system) Fill({HashOf(entry.first), &entry});
    for (const Entry& entry : tables.user) Fill({HashOf(entry.first), &entry});
}

const PropertyIndex::Entry* PropertyIndex::Find(std::string_view key) const {
    return slots_[PlaceOf(key, HashOf(key))].entry;
}

void PropertyIndex::Put(const Entry& entry) noexcept {
    if (!IsOpen()) return;
    const bool needsRoom = Find(entry.first) == nullptr && 2 * (taken_ + 1) >= slots_.size();
    if (needsRoom && !TryGrow()) return Close();
    Fill({HashOf(entry.first), &entry});
}

bool PropertyIndex::TryGrow() noexcept {
    return Util::detail::OrNothing([this] {
        Grow();
        return true;
    });
}

void PropertyIndex::Grow() {
    std::vector<Slot> old(2 * slots_.size());
    old.swap(slots_);
    taken_ = 0;
    for (const Slot& slot : old)
        if (slot.entry != nullptr) Fill(slot);
}

std::size_t PropertyIndex::PlaceOf(std::string_view key, std::size_t hash) const {
    const std::size_t last = slots_.size() - 1;
    const auto isOther = [key, hash](const Slot& slot) {
        return slot.entry != nullptr && (slot.hash != hash || slot.entry->first != key);
    };
    std::size_t place = hash & last;
    while (isOther(slots_[place])) place = (place + 1) & last;
    return place;
}

void PropertyIndex::Fill(const Slot& filled) {
    Slot& slot = slots_[PlaceOf(filled.entry->first, filled.hash)];
    if (slot.entry == nullptr) ++taken_;
    slot = filled;
}

}  // namespace TAMO::TEV::System::detail
