#include <TEVSystemLib/util/memory/TEVUtilMemory.h>
#include <TEVSystemLib/util/string/TEVStringOps.h>

#include <algorithm>

#include "boundary/Jobs.h"

namespace tev::test {

namespace {

using TAMO::TEV::System::Util::TEVStringOps;
using TAMO::TEV::System::Util::TEVUtilMemory;

// An array is written from end to end and read again.
template <typename T>
std::string Filled(unsigned seed, std::size_t (*allocate)(std::size_t, T**),
                   void (*deallocate)(T**)) {
    T* array = nullptr;
    const std::size_t count = allocate(seed + 1, &array);
    const T value = static_cast<T>(seed % 2);
    std::fill_n(array, count, value);
    const auto right = std::count(array, array + count, value);
    deallocate(&array);
    return Line(count, right, array == nullptr);
}

template <typename T>
std::string Rows(unsigned seed, std::size_t (*allocate)(std::size_t, T***),
                 std::size_t (*allocateRow)(std::size_t, T**),
                 void (*deallocate)(std::size_t, T**&, bool)) {
    T** rows = nullptr;
    const std::size_t count = allocate(2, &rows);
    for (std::size_t i = 0; i < count; ++i) allocateRow(seed + 1, &rows[i]);
    rows[1][seed] = static_cast<T>(seed);
    const T last = rows[1][seed];
    deallocate(count, rows, true);
    return Line(count, last, rows == nullptr);
}

std::string SmallTypes(unsigned seed) {
    return Filled(seed, &TEVUtilMemory::AllocateBoolArray, &TEVUtilMemory::DeallocateBoolArray) +
           Filled(seed, &TEVUtilMemory::AllocateCharArray, &TEVUtilMemory::DeallocateCharArray) +
           Filled(seed, &TEVUtilMemory::AllocateCharArray64, &TEVUtilMemory::DeallocateCharArray) +
           Filled(seed, &TEVUtilMemory::AllocateUnsignedCharArray,
                  &TEVUtilMemory::DeallocateUnsignedCharArray) +
           Filled(seed, &TEVUtilMemory::AllocateWCharTArray, &TEVUtilMemory::DeallocateWCharTArray);
}

std::string NumberTypes(unsigned seed) {
    return Filled(seed, &TEVUtilMemory::AllocateIntArray, &TEVUtilMemory::DeallocateIntArray) +
           Filled(seed, &TEVUtilMemory::AllocateUnsignedIntArray,
                  &TEVUtilMemory::DeallocateUnsignedIntArray) +
           Filled(seed, &TEVUtilMemory::AllocateUnsignedLongArray,
                  &TEVUtilMemory::DeallocateUnsignedLongArray) +
           Filled(seed, &TEVUtilMemory::AllocateFloatArray, &TEVUtilMemory::DeallocateFloatArray) +
           Filled(seed, &TEVUtilMemory::AllocateDoubleArray,
                  &TEVUtilMemory::DeallocateDoubleArray) +
           Filled(seed, &TEVUtilMemory::AllocateInt64Array, &TEVUtilMemory::DeallocateInt64Array) +
           Filled(seed, &TEVUtilMemory::AllocateUInt64Array,
                  &TEVUtilMemory::DeallocateUInt64Array) +
           Filled(seed, &TEVUtilMemory::AllocateSizeTArray, &TEVUtilMemory::DeallocateSizeTArray);
}

std::string PointerTypes(unsigned seed) {
    return Rows(seed, &TEVUtilMemory::AllocateDoubleArrayPointers,
                &TEVUtilMemory::AllocateDoubleArray,
                &TEVUtilMemory::DeallocateDoubleArrayPointers) +
           Rows(seed, &TEVUtilMemory::AllocateUnsignedCharArrayPointers,
                &TEVUtilMemory::AllocateUnsignedCharArray,
                &TEVUtilMemory::DeallocateUnsignedCharArrayPointers) +
           Rows(seed, &TEVUtilMemory::AllocateUnsignedIntArrayPointers,
                &TEVUtilMemory::AllocateUnsignedIntArray,
                &TEVUtilMemory::DeallocateUnsignedIntArrayPointers);
}

std::string TextTypes(unsigned seed) {
    char** texts = nullptr;
    const char** constants = nullptr;
    char*** arrays = nullptr;
    std::string line = Line(TEVUtilMemory::AllocateCStringArray(texts, 2),
                            TEVUtilMemory::AllocateConstCStringArray(constants, 2),
                            TEVUtilMemory::AllocateCStringArrayPointers(arrays, seed + 1));
    const std::string number = Number(seed);
    TEVStringOps::Copy(number.c_str(), &texts[1]);
    line += texts[1];
    TEVUtilMemory::DeallocateCStringArray(texts, 2);
    TEVUtilMemory::DeallocateConstCStringArray(constants, 2);
    TEVUtilMemory::DeallocateCStringArrayPointers(arrays, seed + 1);
    char* copy = nullptr;
    TEVStringOps::Copy(number.c_str(), &copy);
    line += copy;
    TEVStringOps::Delete(copy);
    return line;
}

}  // namespace

std::vector<Job> MemoryJobs() {
    return {{"small types", SmallTypes},
            {"number types", NumberTypes},
            {"pointer types", PointerTypes},
            {"text types", TextTypes}};
}

}  // namespace tev::test
