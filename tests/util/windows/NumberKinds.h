#pragma once

#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include "support/Com.h"

namespace tev::test {

// Arrays of numbers in variants come in two kinds under the same rules: a typed test takes both.
struct Doubles {
    using Windows = TAMO::TEV::System::Util::TEVUtilWindows;
    using Number = double;
    static constexpr VARTYPE kType = 0x2005;
    static constexpr VARTYPE kElementType = VT_R8;
    static inline const auto Set = &Windows::SetDoubleArrayVARIANT;
    static inline const auto Extract = &Windows::ExtractDoubleArrayFromVARIANT;
    static inline const auto Delete = &Windows::DeleteDoubleBuffer;
    static std::vector<double> Numbers() {
        using Limits = std::numeric_limits<double>;
        return {0.0,
                -0.0,
                1.5,
                -1e300,
                Limits::max(),
                Limits::min(),
                Limits::denorm_min(),
                Limits::infinity(),
                Limits::signaling_NaN()};
    }
};

struct Ints {
    using Windows = TAMO::TEV::System::Util::TEVUtilWindows;
    using Number = int;
    static constexpr VARTYPE kType = 0x2003;
    static constexpr VARTYPE kElementType = VT_I4;
    static inline const auto Set = &Windows::SetIntArrayVARIANT;
    static inline const auto Extract = &Windows::ExtractIntArrayFromVARIANT;
    static inline const auto Delete = &Windows::DeleteIntBuffer;
    static std::vector<int> Numbers() {
        using Limits = std::numeric_limits<int>;
        return {0, 1, -1, 42, Limits::max(), Limits::min()};
    }
};

using NumberKinds = testing::Types<Doubles, Ints>;

struct NumberKindNames {
    template <typename Kind>
    static std::string GetName(int) {
        return std::is_same_v<Kind, Doubles> ? "Double" : "Int";
    }
};

}  // namespace tev::test
