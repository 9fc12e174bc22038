#include "TEVSystemLib/util/string/detail/wide/VectorKernels.h"

namespace TAMO::TEV::System::Util::detail::wide {

const Kernels kAvx2 = KernelsOf<Bytes32>("avx2");

}  // namespace TAMO::TEV::System::Util::detail::wide
