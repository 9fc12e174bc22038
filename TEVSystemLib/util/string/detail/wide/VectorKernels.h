#pragma once

#include "TEVSystemLib/util/string/detail/wide/CodingKernels.h"
#include "TEVSystemLib/util/string/detail/wide/TextKernels.h"

namespace TAMO::TEV::System::Util::detail::wide {

// NOLINTNEXTLINE(cert-dcl59-cpp): each level has code of its own, see Vectors.h.
namespace {

template <typename V>
constexpr Kernels KernelsOf(const char* level) {
    return {level,
            LengthWide<V>,
            FindByteWide<V>,
            FindWide<V>,
            MismatchWide<V>,
            TextMismatchWide<V>,
            ToLowerWide<V>,
            ToUpperWide<V>,
            ReplaceByteWide<V>,
            EncodeWide<V>,
            DecodeWide<V>,
            SwapBytesWide<V>,
            WidenAsciiWide<V>,
            NarrowAsciiWide<V>};
}

}  // namespace

}  // namespace TAMO::TEV::System::Util::detail::wide
