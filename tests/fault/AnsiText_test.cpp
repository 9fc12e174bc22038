#include "TEVSystemLib/util/windows/detail/AnsiText.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace {

using TAMO::TEV::System::Util::detail::FromAnsi;
using TAMO::TEV::System::Util::detail::ToAnsi;

// More than the system's signed counts hold; never read.
constexpr auto kTooLong = static_cast<std::size_t>(std::numeric_limits<int>::max()) + 1;

TEST(AnsiText, RefusesWhatTheSystemCannotCount) {
    EXPECT_THROW(FromAnsi({"", kTooLong}), std::length_error);
    EXPECT_THROW(ToAnsi({L"", kTooLong}), std::length_error);
}

}  // namespace
