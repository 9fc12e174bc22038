#include <TEVSystemLib/util/memory/TEVUtilMemory.h>

#include <limits>
#include <new>

namespace TAMO::TEV::System::Util {

namespace {

template <typename T>
std::size_t Allocate(std::size_t count, T** out) {
    if (out == nullptr) return 0;
    *out = nullptr;
    if (count == 0) return 0;
    // No allocator has that much: refused before the byte count can wrap to a short array.
    if (count > std::numeric_limits<std::size_t>::max() / sizeof(T)) throw std::bad_alloc();
    *out = new T[count]();
    return count;
}

// KEEP: the largest count is a caller's -1, not a request, and gives 0; the other kinds throw for
// it.
std::size_t AllocateCharacters(std::size_t count, char** out) {
    return Allocate(count == std::numeric_limits<std::size_t>::max() ? 0 : count, out);
}

template <typename T>
void Deallocate(T** array) {
    if (array == nullptr) return;
    delete[] * array;
    *array = nullptr;
}

// KEEP: what an array of arrays frees differs by kind; the strings in sub-arrays are never its own.
enum class Elements { Owned, Borrowed };

template <typename T>
void DeallocateAll(T**& array, std::size_t count, Elements elements) {
    if (array == nullptr) return;
    for (std::size_t i = 0; i < count; ++i) {
        if (elements == Elements::Owned) delete[] array[i];
        array[i] = nullptr;
    }
    delete[] array;
    array = nullptr;
}

Elements OwnedIf(bool deleteElements) {
    return deleteElements ? Elements::Owned : Elements::Borrowed;
}

}  // namespace

std::size_t TEVUtilMemory::AllocateBoolArray(std::size_t count, bool** out) {
    return Allocate(count, out);
}
std::size_t TEVUtilMemory::AllocateCharArray(std::size_t count, char** out) {
    return AllocateCharacters(count, out);
}
std::size_t TEVUtilMemory::AllocateCharArray64(std::size_t count, char** out) {
    return AllocateCharacters(count, out);
}
std::size_t TEVUtilMemory::AllocateUnsignedCharArray(std::size_t count, unsigned char** out) {
    return Allocate(count, out);
}
std::size_t TEVUtilMemory::AllocateWCharTArray(std::size_t count, wchar_t** out) {
    return Allocate(count, out);
}
std::size_t TEVUtilMemory::AllocateIntArray(std::size_t count, int** out) {
    return Allocate(count, out);
}
std::size_t TEVUtilMemory::AllocateUnsignedIntArray(std::size_t count, unsigned int** out) {
    return Allocate(count, out);
}
std::size_t TEVUtilMemory::AllocateUnsignedLongArray(std::size_t count, unsigned long** out) {
    return Allocate(count, out);
}
std::size_t TEVUtilMemory::AllocateFloatArray(std::size_t count, float** out) {
    return Allocate(count, out);
}
std::size_t TEVUtilMemory::AllocateDoubleArray(std::size_t count, double** out) {
    return Allocate(count, out);
}
std::size_t TEVUtilMemory::AllocateInt64Array(std::size_t count, std::int64_t** out) {
    return Allocate(count, out);
}
std::size_t TEVUtilMemory::AllocateUInt64Array(std::size_t count, std::uint64_t** out) {
    return Allocate(count, out);
}
std::size_t TEVUtilMemory::AllocateSizeTArray(std::size_t count, std::size_t** out) {
    return Allocate(count, out);
}
std::size_t TEVUtilMemory::AllocateDoubleArrayPointers(std::size_t count, double*** out) {
    return Allocate(count, out);
}
std::size_t TEVUtilMemory::AllocateUnsignedCharArrayPointers(std::size_t count,
                                                             unsigned char*** out) {
    return Allocate(count, out);
}
std::size_t TEVUtilMemory::AllocateUnsignedIntArrayPointers(std::size_t count,
                                                            unsigned int*** out) {
    return Allocate(count, out);
}
std::size_t TEVUtilMemory::AllocateCStringArray(char**& out, std::size_t count) {
    return Allocate(count, &out);
}
std::size_t TEVUtilMemory::AllocateConstCStringArray(const char**& out, std::size_t count) {
    return Allocate(count, &out);
}
std::size_t TEVUtilMemory::AllocateCStringArrayPointers(char***& out, std::size_t count) {
    return Allocate(count, &out);
}

void TEVUtilMemory::DeallocateBoolArray(bool** array) { Deallocate(array); }
void TEVUtilMemory::DeallocateCharArray(char** array) { Deallocate(array); }
void TEVUtilMemory::DeallocateUnsignedCharArray(unsigned char** array) { Deallocate(array); }
void TEVUtilMemory::DeallocateWCharTArray(wchar_t** array) { Deallocate(array); }
void TEVUtilMemory::DeallocateIntArray(int** array) { Deallocate(array); }
void TEVUtilMemory::DeallocateUnsignedIntArray(unsigned int** array) { Deallocate(array); }
void TEVUtilMemory::DeallocateUnsignedLongArray(unsigned long** array) { Deallocate(array); }
void TEVUtilMemory::DeallocateFloatArray(float** array) { Deallocate(array); }
void TEVUtilMemory::DeallocateDoubleArray(double** array) { Deallocate(array); }
void TEVUtilMemory::DeallocateInt64Array(std::int64_t** array) { Deallocate(array); }
void TEVUtilMemory::DeallocateUInt64Array(std::uint64_t** array) { Deallocate(array); }
void TEVUtilMemory::DeallocateSizeTArray(std::size_t** array) { Deallocate(array); }

void TEVUtilMemory::DeallocateCStringArray(char**& array, std::size_t count) {
    DeallocateAll(array, count, Elements::Owned);
}
void TEVUtilMemory::DeallocateCStringArrayPointers(char***& array, std::size_t count) {
    DeallocateAll(array, count, Elements::Owned);
}
void TEVUtilMemory::DeallocateConstCStringArray(const char**& array, std::size_t count) {
    DeallocateAll(array, count, Elements::Borrowed);
}
void TEVUtilMemory::DeallocateDoubleArrayPointers(std::size_t count, double**& array,
                                                  bool deleteElements) {
    DeallocateAll(array, count, OwnedIf(deleteElements));
}
void TEVUtilMemory::DeallocateUnsignedCharArrayPointers(std::size_t count, unsigned char**& array,
                                                        bool deleteElements) {
    DeallocateAll(array, count, OwnedIf(deleteElements));
}
void TEVUtilMemory::DeallocateUnsignedIntArrayPointers(std::size_t count, unsigned int**& array,
                                                       bool deleteElements) {
    DeallocateAll(array, count, OwnedIf(deleteElements));
}

}  // namespace TAMO::TEV::System::Util
