#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "TEVSystemLib/system/detail/PropertyTables.h"

namespace TAMO::TEV::System::detail {

// Finds the entry that wins for a key in one step, without a text of its own. While it is open, no
// entry may leave the tables, and one that comes must be put in. Where memory is exhausted it
// closes: the tables have to be asked then.
class PropertyIndex {
 public:
    using Entry = Properties::value_type;

    // Of all entries; those of the user table hide those of the system table.
    void Open(PropertyTables tables) noexcept;
    void Close() noexcept;
    // It cannot be opened again: somebody else may change the tables.
    void CloseForGood() noexcept;
    bool IsOpen() const { return !slots_.empty(); }

    // Null when no table has the key. Of an open index only.
    const Entry* Find(std::string_view key) const;

    // Hides an entry of the same key. A closed index stays so.
    void Put(const Entry& entry) noexcept;

 private:
    struct Slot {
        std::size_t hash = 0;
        const Entry* entry = nullptr;
    };

    void Build(PropertyTables tables);
    void Grow();
    // False, with nothing changed, when memory is exhausted.
    bool TryGrow() noexcept;
    // Where the slot of the key is, or the free one for it.
    std::size_t PlaceOf(std::string_view key, std::size_t hash) const;
    void Fill(const Slot& filled);

    // A power of two, of which less than half are taken; none when closed.
    std::vector<Slot> slots_;
    std::size_t taken_ = 0;
    bool isForGood_ = false;
};

}  // namespace TAMO::TEV::System::detail
