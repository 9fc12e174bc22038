#include <TEVSystemLib/util/memory/TEVUtilMemory.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "Rows.h"

namespace tev::bench {

namespace {

using TAMO::TEV::System::Util::TEVUtilMemory;

template <typename Element>
struct Zeros {
    bool operator==(std::size_t expected) const {
        return array != nullptr && count == expected &&
               std::all_of(array, array + count, [](Element element) { return element == 0; });
    }
    const Element* array;
    std::size_t count;
};

template <typename Element, typename Allocate, typename Release>
void Add(const char* work, std::size_t bytes, Allocate allocate, Release release) {
    const auto count = [bytes] { return bytes / sizeof(Element); };
    Work(work, static_cast<std::int64_t>(bytes), count,
         [](std::size_t elements) { return elements; })
        .Ours([=](std::size_t elements, auto keep) {
            Element* array = nullptr;
            const std::size_t made = allocate(elements, &array);
            keep(Zeros<Element>{array, made});
            release(&array);
        })
        .Peer("std::vector",
              [](std::size_t elements, auto keep) {
                  const std::vector<Element> array(elements);
                  keep(Zeros<Element>{array.data(), array.size()});
              })
        .Peer("calloc",
              [](std::size_t elements, auto keep) {
                  void* array = std::calloc(elements, sizeof(Element));
                  keep(Zeros<Element>{static_cast<Element*>(array), elements});
                  std::free(array);
              })
        .CheckedLimit("new[] zeroed", [](std::size_t elements, auto keep) {
            const auto* array = new Element[elements]();
            keep(Zeros<Element>{array, elements});
            delete[] array;
        });
}

}  // namespace

void RegisterRows() {
    for (const std::size_t bytes : {16U, 4096U, 262144U, 16777216U}) {
        Add<unsigned char>("bytes", bytes, TEVUtilMemory::AllocateUnsignedCharArray,
                           TEVUtilMemory::DeallocateUnsignedCharArray);
        Add<double>("doubles", bytes, TEVUtilMemory::AllocateDoubleArray,
                    TEVUtilMemory::DeallocateDoubleArray);
    }
}

}  // namespace tev::bench
