#pragma once

#include <TEVSystemLib/util/memory/TEVUtilMemory.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace tev::test {

using Memory = TAMO::TEV::System::Util::TEVUtilMemory;

// An allocation member and the release member of its arrays, all in the shape of the plain ones.
template <typename T>
struct Members {
    using Element = T;

    std::size_t (*allocate)(std::size_t count, T** out);
    void (*release)(T** array);
};

struct BoolArray {
    static constexpr const char* kName = "BoolArray";
    static Members<bool> Get() { return {Memory::AllocateBoolArray, Memory::DeallocateBoolArray}; }
};

struct CharArray {
    static constexpr const char* kName = "CharArray";
    static Members<char> Get() { return {Memory::AllocateCharArray, Memory::DeallocateCharArray}; }
};

struct CharArray64 {
    static constexpr const char* kName = "CharArray64";
    static Members<char> Get() {
        return {Memory::AllocateCharArray64, Memory::DeallocateCharArray};
    }
};

struct UnsignedCharArray {
    static constexpr const char* kName = "UnsignedCharArray";
    static Members<unsigned char> Get() {
        return {Memory::AllocateUnsignedCharArray, Memory::DeallocateUnsignedCharArray};
    }
};

struct WCharTArray {
    static constexpr const char* kName = "WCharTArray";
    static Members<wchar_t> Get() {
        return {Memory::AllocateWCharTArray, Memory::DeallocateWCharTArray};
    }
};

struct IntArray {
    static constexpr const char* kName = "IntArray";
    static Members<int> Get() { return {Memory::AllocateIntArray, Memory::DeallocateIntArray}; }
};

struct UnsignedIntArray {
    static constexpr const char* kName = "UnsignedIntArray";
    static Members<unsigned int> Get() {
        return {Memory::AllocateUnsignedIntArray, Memory::DeallocateUnsignedIntArray};
    }
};

struct UnsignedLongArray {
    static constexpr const char* kName = "UnsignedLongArray";
    static Members<unsigned long> Get() {
        return {Memory::AllocateUnsignedLongArray, Memory::DeallocateUnsignedLongArray};
    }
};

struct FloatArray {
    static constexpr const char* kName = "FloatArray";
    static Members<float> Get() {
        return {Memory::AllocateFloatArray, Memory::DeallocateFloatArray};
    }
};

struct DoubleArray {
    static constexpr const char* kName = "DoubleArray";
    static Members<double> Get() {
        return {Memory::AllocateDoubleArray, Memory::DeallocateDoubleArray};
    }
};

struct Int64Array {
    static constexpr const char* kName = "Int64Array";
    static Members<std::int64_t> Get() {
        return {Memory::AllocateInt64Array, Memory::DeallocateInt64Array};
    }
};

struct UInt64Array {
    static constexpr const char* kName = "UInt64Array";
    static Members<std::uint64_t> Get() {
        return {Memory::AllocateUInt64Array, Memory::DeallocateUInt64Array};
    }
};

struct SizeTArray {
    static constexpr const char* kName = "SizeTArray";
    static Members<std::size_t> Get() {
        return {Memory::AllocateSizeTArray, Memory::DeallocateSizeTArray};
    }
};

// An array of sub-arrays whose release lets the caller choose what becomes of them.
template <typename T>
struct OuterMembers {
    using Value = T;

    std::size_t (*allocate)(std::size_t count, T*** out);
    void (*release)(std::size_t count, T**& array, bool deleteElements);
    std::size_t (*allocateElement)(std::size_t count, T** out);
    void (*releaseElement)(T** array);
};

struct DoubleArrayPointers {
    static constexpr const char* kName = "DoubleArrayPointers";
    static Members<double*> Get() { return {Memory::AllocateDoubleArrayPointers, Release}; }
    static OuterMembers<double> Outer() {
        return {Memory::AllocateDoubleArrayPointers, Memory::DeallocateDoubleArrayPointers,
                Memory::AllocateDoubleArray, Memory::DeallocateDoubleArray};
    }
    static void Release(double*** array) {
        Memory::DeallocateDoubleArrayPointers(0, *array, false);
    }
};

struct UnsignedCharArrayPointers {
    static constexpr const char* kName = "UnsignedCharArrayPointers";
    static Members<unsigned char*> Get() {
        return {Memory::AllocateUnsignedCharArrayPointers, Release};
    }
    static OuterMembers<unsigned char> Outer() {
        return {Memory::AllocateUnsignedCharArrayPointers,
                Memory::DeallocateUnsignedCharArrayPointers, Memory::AllocateUnsignedCharArray,
                Memory::DeallocateUnsignedCharArray};
    }
    static void Release(unsigned char*** array) {
        Memory::DeallocateUnsignedCharArrayPointers(0, *array, false);
    }
};

struct UnsignedIntArrayPointers {
    static constexpr const char* kName = "UnsignedIntArrayPointers";
    static Members<unsigned int*> Get() {
        return {Memory::AllocateUnsignedIntArrayPointers, Release};
    }
    static OuterMembers<unsigned int> Outer() {
        return {Memory::AllocateUnsignedIntArrayPointers,
                Memory::DeallocateUnsignedIntArrayPointers, Memory::AllocateUnsignedIntArray,
                Memory::DeallocateUnsignedIntArray};
    }
    static void Release(unsigned int*** array) {
        Memory::DeallocateUnsignedIntArrayPointers(0, *array, false);
    }
};

struct CStringArray {
    static constexpr const char* kName = "CStringArray";
    static Members<char*> Get() { return {Allocate, Release}; }
    static std::size_t Allocate(std::size_t count, char*** out) {
        return Memory::AllocateCStringArray(*out, count);
    }
    static void Release(char*** array) { Memory::DeallocateCStringArray(*array, 0); }
};

struct ConstCStringArray {
    static constexpr const char* kName = "ConstCStringArray";
    static Members<const char*> Get() { return {Allocate, Release}; }
    static std::size_t Allocate(std::size_t count, const char*** out) {
        return Memory::AllocateConstCStringArray(*out, count);
    }
    static void Release(const char*** array) { Memory::DeallocateConstCStringArray(*array, 0); }
};

struct CStringArrayPointers {
    static constexpr const char* kName = "CStringArrayPointers";
    static Members<char**> Get() { return {Allocate, Release}; }
    static std::size_t Allocate(std::size_t count, char**** out) {
        return Memory::AllocateCStringArrayPointers(*out, count);
    }
    static void Release(char**** array) { Memory::DeallocateCStringArrayPointers(*array, 0); }
};

// Members whose release takes T**.
using PlainArrays = ::testing::Types<BoolArray, CharArray, CharArray64, UnsignedCharArray,
                                     WCharTArray, IntArray, UnsignedIntArray, UnsignedLongArray,
                                     FloatArray, DoubleArray, Int64Array, UInt64Array, SizeTArray>;
// Members that take the count first, so that their output may be null.
using CountFirstArrays =
    ::testing::Types<BoolArray, CharArray, CharArray64, UnsignedCharArray, WCharTArray, IntArray,
                     UnsignedIntArray, UnsignedLongArray, FloatArray, DoubleArray, Int64Array,
                     UInt64Array, SizeTArray, DoubleArrayPointers, UnsignedCharArrayPointers,
                     UnsignedIntArrayPointers>;
using AllArrays =
    ::testing::Types<BoolArray, CharArray, CharArray64, UnsignedCharArray, WCharTArray, IntArray,
                     UnsignedIntArray, UnsignedLongArray, FloatArray, DoubleArray, Int64Array,
                     UInt64Array, SizeTArray, DoubleArrayPointers, UnsignedCharArrayPointers,
                     UnsignedIntArrayPointers, CStringArray, ConstCStringArray,
                     CStringArrayPointers>;
// Members whose byte size can exceed size_t.
using WideArrays =
    ::testing::Types<WCharTArray, IntArray, UnsignedIntArray, UnsignedLongArray, FloatArray,
                     DoubleArray, Int64Array, UInt64Array, SizeTArray, DoubleArrayPointers,
                     UnsignedCharArrayPointers, UnsignedIntArrayPointers, CStringArray,
                     ConstCStringArray, CStringArrayPointers>;

using OuterArrays =
    ::testing::Types<DoubleArrayPointers, UnsignedCharArrayPointers, UnsignedIntArrayPointers>;

template <typename Array>
using Element = typename decltype(Array::Get())::Element;

struct ArrayName {
    template <typename Array>
    static std::string GetName(int) {
        return Array::kName;
    }
};

// A library-owned text, as other functions of the library would hand it out.
inline char* OwnedText(const char* text) {
    char* copy = nullptr;
    const std::size_t size = std::strlen(text) + 1;
    if (Memory::AllocateCharArray(size, &copy) == size) std::memcpy(copy, text, size);
    return copy;
}

}  // namespace tev::test
