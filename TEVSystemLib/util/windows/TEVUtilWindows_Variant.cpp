#include <TEVSystemLib/util/memory/TEVUtilMemory.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include <cstring>
#include <utility>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"
#include "TEVSystemLib/util/windows/detail/BstrText.h"
#include "TEVSystemLib/util/windows/detail/VariantArrays.h"

namespace TAMO::TEV::System::Util {

namespace {

template <typename T>
bool SetNumbers(const T* data, std::uint64_t count, VARTYPE elementType, VARIANT* out) {
    if (out == nullptr) return false;
    VariantInit(out);
    if (data == nullptr) return false;
    detail::OwnedSafeArray array = detail::MakeArray(elementType, count);
    if (!array) return false;
    std::memcpy(array.get()->pvData, data, count * sizeof(T));
    detail::Commit(array, elementType, out);
    return true;
}

template <typename T>
bool ExtractNumbers(T** out, std::uint64_t& count, const VARIANT* variant, VARTYPE elementType,
                    std::size_t (*allocate)(std::size_t, T**)) {
    count = 0;
    if (out == nullptr) return false;
    *out = nullptr;
    // KEEP: the number of dimensions is not looked at, the first stored bound counts; and the data
    // is read without a lock.
    const SAFEARRAY* array = detail::ArrayIn(variant, elementType);
    if (array == nullptr || array->pvData == nullptr) return false;
    const std::uint64_t found = detail::FirstCount(array);
    allocate(found, out);
    std::memcpy(*out, array->pvData, found * sizeof(T));
    count = found;
    return true;
}

}  // namespace

bool TEVUtilWindows::CreateSafeArrayOfVariants(tagSAFEARRAY** out, std::uint64_t count) {
    if (out == nullptr) return false;
    *out = detail::MakeArray(VT_VARIANT, count).release();
    return *out != nullptr;
}

bool TEVUtilWindows::CreateSafeArrayOfVariants(tagVARIANT* out, std::uint64_t count) {
    if (out == nullptr) return false;
    VariantInit(out);
    detail::OwnedSafeArray array = detail::MakeArray(VT_VARIANT, count);
    if (!array) return false;
    detail::Commit(array, VT_VARIANT, out);
    return true;
}

bool TEVUtilWindows::DestroySafeArray(tagSAFEARRAY* array) {
    return array == nullptr || SUCCEEDED(SafeArrayDestroy(array));
}

bool TEVUtilWindows::SetDoubleArrayVARIANT(double* data, std::uint64_t count, tagVARIANT* out) {
    return SetNumbers(data, count, VT_R8, out);
}

bool TEVUtilWindows::SetIntArrayVARIANT(int* data, std::uint64_t count, tagVARIANT* out) {
    return SetNumbers(data, count, VT_I4, out);
}

bool TEVUtilWindows::ExtractDoubleArrayFromVARIANT(double** out, std::uint64_t& count,
                                                   tagVARIANT* variant) try {
    return ExtractNumbers(out, count, variant, VT_R8, &TEVUtilMemory::AllocateDoubleArray);
} catch (...) {
    return false;
}

bool TEVUtilWindows::ExtractIntArrayFromVARIANT(int** out, std::uint64_t& count,
                                                tagVARIANT* variant) try {
    return ExtractNumbers(out, count, variant, VT_I4, &TEVUtilMemory::AllocateIntArray);
} catch (...) {
    return false;
}

bool TEVUtilWindows::SetStringArrayVARIANT(char const**& strings, std::uint64_t count,
                                           tagVARIANT* out) try {
    if (out == nullptr) return false;
    VariantInit(out);
    if (strings == nullptr) return false;
    detail::OwnedSafeArray array = detail::MakeArray(VT_BSTR, count);
    if (!array) return false;
    {
        const detail::LockedSafeArray locked = detail::Lock(array.get());
        if (!locked) return false;
        auto* texts = static_cast<BSTR*>(array.get()->pvData);
        for (std::uint64_t i = 0; i < count; ++i)
            texts[i] = detail::ToBstr(detail::OrEmpty(strings[i])).release();
    }
    detail::Commit(array, VT_BSTR, out);
    return true;
} catch (...) {
    return false;
}

bool TEVUtilWindows::ExtractStringArrayFromVariant(char**& out, std::uint64_t& count,
                                                   tagVARIANT* variant) try {
    out = nullptr;
    count = 0;
    SAFEARRAY* array = detail::ArrayIn(variant, VT_BSTR);
    if (array == nullptr) return false;
    // KEEP: the count stays when a later step fails.
    count = detail::FirstCount(array);
    const detail::LockedSafeArray locked = detail::Lock(array);
    if (!locked || array->pvData == nullptr) return false;
    const auto* texts = static_cast<const BSTR*>(array->pvData);
    detail::OwnedTexts strings(count);
    for (std::uint64_t i = 0; i < count; ++i) {
        detail::OwnedText text;
        if (!detail::TakeText(texts[i], text)) return false;
        strings.Set(i, std::move(text));
    }
    out = strings.release();
    return true;
} catch (...) {
    return false;
}

void TEVUtilWindows::DeleteCharBuffer(char** buffer) { TEVUtilMemory::DeallocateCharArray(buffer); }

void TEVUtilWindows::DeleteDoubleBuffer(double** buffer) {
    TEVUtilMemory::DeallocateDoubleArray(buffer);
}

void TEVUtilWindows::DeleteIntBuffer(int** buffer) { TEVUtilMemory::DeallocateIntArray(buffer); }

void TEVUtilWindows::DeleteCStringArray(char**& array, std::uint64_t count) {
    TEVUtilMemory::DeallocateCStringArray(array, count);
}

}  // namespace TAMO::TEV::System::Util
