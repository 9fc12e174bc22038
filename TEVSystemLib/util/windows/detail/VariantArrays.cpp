#include "TEVSystemLib/util/windows/detail/VariantArrays.h"

#include <limits>

namespace TAMO::TEV::System::Util::detail {

namespace {

constexpr std::uint64_t SizeOf(VARTYPE elementType) {
    switch (elementType) {
        case VT_VARIANT:
            return sizeof(VARIANT);
        case VT_I4:
            return sizeof(LONG);
        default:
            return sizeof(double);
    }
}

}  // namespace

bool FitsArray(VARTYPE elementType, std::uint64_t count) {
    return count <= std::numeric_limits<ULONG>::max() / SizeOf(elementType);
}

OwnedSafeArray MakeArray(VARTYPE elementType, std::uint64_t count) {
    if (count == 0 || !FitsArray(elementType, count)) return OwnedSafeArray(nullptr);
    SAFEARRAYBOUND bound{static_cast<ULONG>(count), 0};
    return OwnedSafeArray(SafeArrayCreate(elementType, 1, &bound));
}

SAFEARRAY* ArrayIn(const VARIANT* variant, VARTYPE elementType) {
    if (variant == nullptr || variant->vt != (VT_ARRAY | elementType)) return nullptr;
    SAFEARRAY* array = variant->parray;
    if (array == nullptr || array->rgsabound[0].lLbound != 0 || FirstCount(array) == 0)
        return nullptr;
    return array;
}

std::uint64_t FirstCount(const SAFEARRAY* array) { return array->rgsabound[0].cElements; }

void Commit(OwnedSafeArray& array, VARTYPE elementType, VARIANT* out) {
    out->vt = static_cast<VARTYPE>(VT_ARRAY | elementType);
    out->parray = array.release();
}

}  // namespace TAMO::TEV::System::Util::detail
