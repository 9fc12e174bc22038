// Every kind of array: exhausted memory leaves as std::bad_alloc with null in the output; a release
// needs no memory.
#include <gtest/gtest.h>

#include "fault/TextRows.h"
#include "util/memory/ArrayKinds.h"

namespace {

using namespace tev::fault;
using namespace tev::test;

constexpr std::size_t kCount = 5;

template <typename Array>
void Makes(Attempt& attempt) {
    const auto members = Array::Get();
    Element<Array> stale{};
    Element<Array>* array = &stale;
    const std::size_t count = attempt.Call([&] { return members.allocate(kCount, &array); });
    const bool succeeded = attempt.Succeeded(count == kCount);
    EXPECT_EQ(array != nullptr, succeeded);
    if (!succeeded) ByBadAlloc(attempt);
    members.release(&array);
}

const AllocatingFunctions made{
    {"TEVUtilMemory::AllocateBoolArray(unsigned long long, bool**)", "", Makes<BoolArray>},
    {"TEVUtilMemory::AllocateCharArray(unsigned long long, char**)", "", Makes<CharArray>},
    {"TEVUtilMemory::AllocateCharArray64(unsigned long long, char**)", "", Makes<CharArray64>},
    {"TEVUtilMemory::AllocateUnsignedCharArray(unsigned long long, unsigned char**)", "",
     Makes<UnsignedCharArray>},
    {"TEVUtilMemory::AllocateWCharTArray(unsigned long long, wchar_t**)", "", Makes<WCharTArray>},
    {"TEVUtilMemory::AllocateIntArray(unsigned long long, int**)", "", Makes<IntArray>},
    {"TEVUtilMemory::AllocateUnsignedIntArray(unsigned long long, unsigned int**)", "",
     Makes<UnsignedIntArray>},
    {"TEVUtilMemory::AllocateUnsignedLongArray(unsigned long long, unsigned long**)", "",
     Makes<UnsignedLongArray>},
    {"TEVUtilMemory::AllocateFloatArray(unsigned long long, float**)", "", Makes<FloatArray>},
    {"TEVUtilMemory::AllocateDoubleArray(unsigned long long, double**)", "", Makes<DoubleArray>},
    {"TEVUtilMemory::AllocateInt64Array(unsigned long long, long long**)", "", Makes<Int64Array>},
    {"TEVUtilMemory::AllocateUInt64Array(unsigned long long, unsigned long long**)", "",
     Makes<UInt64Array>},
    {"TEVUtilMemory::AllocateSizeTArray(unsigned long long, unsigned long long**)", "",
     Makes<SizeTArray>},
    {"TEVUtilMemory::AllocateDoubleArrayPointers(unsigned long long, double***)", "",
     Makes<DoubleArrayPointers>},
    {"TEVUtilMemory::AllocateUnsignedCharArrayPointers(unsigned long long, unsigned char***)", "",
     Makes<UnsignedCharArrayPointers>},
    {"TEVUtilMemory::AllocateUnsignedIntArrayPointers(unsigned long long, unsigned int***)", "",
     Makes<UnsignedIntArrayPointers>},
    {"TEVUtilMemory::AllocateCStringArray(char**&, unsigned long long)", "", Makes<CStringArray>},
    {"TEVUtilMemory::AllocateConstCStringArray(char const**&, unsigned long long)", "",
     Makes<ConstCStringArray>},
    {"TEVUtilMemory::AllocateCStringArrayPointers(char***&, unsigned long long)", "",
     Makes<CStringArrayPointers>},
};

template <typename Array>
void Releases(Attempt& attempt) {
    const auto members = Array::Get();
    Element<Array>* array = nullptr;
    EXPECT_EQ(members.allocate(kCount, &array), kCount);
    attempt.Call([&] { members.release(&array); });
    attempt.Succeeded(array == nullptr);
}

// With sub-arrays that go with it.
template <typename Array>
void ReleasesAll(Attempt& attempt) {
    const auto members = Array::Outer();
    typename decltype(Array::Outer())::Value** array = nullptr;
    EXPECT_EQ(members.allocate(kCount, &array), kCount);
    for (std::size_t i = 0; i < kCount; ++i) members.allocateElement(kCount, &array[i]);
    attempt.Call([&] { members.release(kCount, array, true); });
    attempt.Succeeded(array == nullptr);
}

void ReleasesTexts(Attempt& attempt) {
    char** array = nullptr;
    EXPECT_EQ(Memory::AllocateCStringArray(array, kCount), kCount);
    for (std::size_t i = 0; i < kCount; ++i) array[i] = OwnedText("text");
    attempt.Call([&] { Memory::DeallocateCStringArray(array, kCount); });
    attempt.Succeeded(array == nullptr);
}

const IdleFunctions released{
    {"TEVUtilMemory::DeallocateBoolArray(bool**)", "", Releases<BoolArray>},
    {"TEVUtilMemory::DeallocateCharArray(char**)", "", Releases<CharArray>},
    {"TEVUtilMemory::DeallocateUnsignedCharArray(unsigned char**)", "",
     Releases<UnsignedCharArray>},
    {"TEVUtilMemory::DeallocateWCharTArray(wchar_t**)", "", Releases<WCharTArray>},
    {"TEVUtilMemory::DeallocateIntArray(int**)", "", Releases<IntArray>},
    {"TEVUtilMemory::DeallocateUnsignedIntArray(unsigned int**)", "", Releases<UnsignedIntArray>},
    {"TEVUtilMemory::DeallocateUnsignedLongArray(unsigned long**)", "",
     Releases<UnsignedLongArray>},
    {"TEVUtilMemory::DeallocateFloatArray(float**)", "", Releases<FloatArray>},
    {"TEVUtilMemory::DeallocateDoubleArray(double**)", "", Releases<DoubleArray>},
    {"TEVUtilMemory::DeallocateInt64Array(long long**)", "", Releases<Int64Array>},
    {"TEVUtilMemory::DeallocateUInt64Array(unsigned long long**)", "", Releases<UInt64Array>},
    {"TEVUtilMemory::DeallocateSizeTArray(unsigned long long**)", "", Releases<SizeTArray>},
    {"TEVUtilMemory::DeallocateDoubleArrayPointers(unsigned long long, double**&, bool)", "",
     ReleasesAll<DoubleArrayPointers>},
    {"TEVUtilMemory::DeallocateUnsignedCharArrayPointers(unsigned long long, unsigned char**&, "
     "bool)",
     "", ReleasesAll<UnsignedCharArrayPointers>},
    {"TEVUtilMemory::DeallocateUnsignedIntArrayPointers(unsigned long long, unsigned int**&, "
     "bool)",
     "", ReleasesAll<UnsignedIntArrayPointers>},
    {"TEVUtilMemory::DeallocateCStringArray(char**&, unsigned long long)", "", ReleasesTexts},
    {"TEVUtilMemory::DeallocateConstCStringArray(char const**&, unsigned long long)", "",
     Releases<ConstCStringArray>},
    {"TEVUtilMemory::DeallocateCStringArrayPointers(char***&, unsigned long long)", "",
     Releases<CStringArrayPointers>},
};

}  // namespace
