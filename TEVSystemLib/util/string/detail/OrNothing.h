#pragma once

namespace TAMO::TEV::System::Util::detail {

// What `make` gives, or an empty one of its kind when it throws: for what may fail alone, so that
// what comes behind it still happens.
template <typename Make>
auto OrNothing(Make make) noexcept -> decltype(make()) try {
    return make();
} catch (...) {
    return decltype(make())();
}

}  // namespace TAMO::TEV::System::Util::detail
