#pragma once

#include <TEVSystemLib/util/memory/TEVUtilMemory.h>

#include <cstddef>
#include <memory>
#include <utility>

// Owners of arrays made by TEVUtilMemory, which also releases them.
namespace TAMO::TEV::System::Util::detail {

template <typename T, void (*release)(T**)>
struct ReleaseArray {
    void operator()(T* array) const { release(&array); }
};

using OwnedText = std::unique_ptr<char[], ReleaseArray<char, &TEVUtilMemory::DeallocateCharArray>>;
using OwnedWideText =
    std::unique_ptr<wchar_t[], ReleaseArray<wchar_t, &TEVUtilMemory::DeallocateWCharTArray>>;

// An array of `count` owned C strings, all null at first.
class OwnedTexts {
 public:
    explicit OwnedTexts(std::size_t count)
        : count_(TEVUtilMemory::AllocateCStringArray(array_, count)) {}
    ~OwnedTexts() { TEVUtilMemory::DeallocateCStringArray(array_, count_); }
    OwnedTexts(const OwnedTexts&) = delete;
    OwnedTexts& operator=(const OwnedTexts&) = delete;

    void Set(std::size_t index, OwnedText text) { array_[index] = text.release(); }
    char** release() { return std::exchange(array_, nullptr); }

 private:
    char** array_ = nullptr;
    std::size_t count_;
};

}  // namespace TAMO::TEV::System::Util::detail
