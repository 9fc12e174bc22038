#pragma once

#include <TEVSystemLib/TEVSystemExport.h>

#include <cstddef>
#include <cstdint>

namespace TAMO::TEV::System::Util {

// Allocates and releases the plain arrays that cross the library's interface, so that memory is
// taken and given back by one allocator whichever module uses it in between.
//
// Allocate...: the caller owns the array; what the output held before is overwritten, not released.
// Every element of the new array is zero (false, NUL, null). The result is the number
// of elements, equal to the count asked for, or 0 with the output null: the count was 0, or the
// allocator yielded null. A null output pointer gives 0. An exhausted allocator and a byte size
// beyond size_t throw std::bad_alloc, with the output null.
//
// Deallocate...: frees what Allocate... made and sets the caller's pointer to null; a null pointer
// is left alone. A count must not exceed the allocated one.
//
// Threads: no shared state; distinct arrays may be used from any threads.
class TEVSYSTEMLIB_API TEVUtilMemory {
 public:
    // A new array of zeros.
    static std::size_t AllocateBoolArray(std::size_t count, bool** out);
    // Counts include the terminator. These two refuse the largest size_t value with 0.
    static std::size_t AllocateCharArray(std::size_t count, char** out);
    static std::size_t AllocateCharArray64(std::size_t count, char** out);

    // A new array of zeros.
    static std::size_t AllocateUnsignedCharArray(std::size_t count, unsigned char** out);
    static std::size_t AllocateWCharTArray(std::size_t count, wchar_t** out);
    static std::size_t AllocateIntArray(std::size_t count, int** out);
    static std::size_t AllocateUnsignedIntArray(std::size_t count, unsigned int** out);
    static std::size_t AllocateUnsignedLongArray(std::size_t count, unsigned long** out);
    static std::size_t AllocateFloatArray(std::size_t count, float** out);
    static std::size_t AllocateDoubleArray(std::size_t count, double** out);
    static std::size_t AllocateInt64Array(std::size_t count, std::int64_t** out);
    static std::size_t AllocateUInt64Array(std::size_t count, std::uint64_t** out);
    static std::size_t AllocateSizeTArray(std::size_t count, std::size_t** out);

    // Arrays of null pointers.
    // KEEP: mind the orders, which modules were compiled against.
    //
    // The count comes first.
    static std::size_t AllocateDoubleArrayPointers(std::size_t count, double*** out);
    static std::size_t AllocateUnsignedCharArrayPointers(std::size_t count, unsigned char*** out);
    static std::size_t AllocateUnsignedIntArrayPointers(std::size_t count, unsigned int*** out);
    // The output comes first.
    static std::size_t AllocateCStringArray(char**& out, std::size_t count);
    static std::size_t AllocateConstCStringArray(const char**& out, std::size_t count);
    static std::size_t AllocateCStringArrayPointers(char***& out, std::size_t count);

    // Frees the array.
    static void DeallocateBoolArray(bool** array);
    static void DeallocateCharArray(char** array);
    static void DeallocateUnsignedCharArray(unsigned char** array);
    static void DeallocateWCharTArray(wchar_t** array);
    static void DeallocateIntArray(int** array);
    static void DeallocateUnsignedIntArray(unsigned int** array);
    static void DeallocateUnsignedLongArray(unsigned long** array);
    static void DeallocateFloatArray(float** array);
    static void DeallocateDoubleArray(double** array);
    static void DeallocateInt64Array(std::int64_t** array);
    static void DeallocateUInt64Array(std::uint64_t** array);
    static void DeallocateSizeTArray(std::size_t** array);

    // Frees the first `count` strings, then the array.
    static void DeallocateCStringArray(char**& array, std::size_t count);
    // Frees the first `count` sub-arrays but not the strings in them, then the array.
    static void DeallocateCStringArrayPointers(char***& array, std::size_t count);
    // Frees the array only: its strings are borrowed.
    static void DeallocateConstCStringArray(const char**& array, std::size_t count);
    // Mind the order, count first. Frees the first `count` sub-arrays only when `deleteElements` is
    // true, otherwise their owner must; then the array.
    static void DeallocateDoubleArrayPointers(std::size_t count, double**& array,
                                              bool deleteElements);
    static void DeallocateUnsignedCharArrayPointers(std::size_t count, unsigned char**& array,
                                                    bool deleteElements);
    static void DeallocateUnsignedIntArrayPointers(std::size_t count, unsigned int**& array,
                                                   bool deleteElements);

 private:
    TEVUtilMemory() = default;
    ~TEVUtilMemory() = default;
};

}  // namespace TAMO::TEV::System::Util
