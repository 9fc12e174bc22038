#include "TEVSystemLib/util/string/detail/wide/VectorKernels.h"

namespace TAMO::TEV::System::Util::detail::wide {

const Kernels kSsse3 = KernelsOf<Bytes16>("ssse3");

}  // namespace TAMO::TEV::System::Util::detail::wide
