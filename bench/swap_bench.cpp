#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <algorithm>
#include <boost/endian/conversion.hpp>
#include <cstring>
#include <memory>
#include <random>
#include <vector>

#include "Rows.h"

namespace tev::bench {

namespace {

using TAMO::TEV::System::Util::TEVUtilString;

// An array that is swapped in place, and as much room beside it, touched already.
template <typename Element>
struct Array {
    explicit Array(std::size_t size)
        : count(size), elements(new Element[size]), room(new Element[size]()) {
        std::mt19937_64 random(20240306);
        for (std::size_t i = 0; i < count; ++i)
            elements[i] = static_cast<Element>(static_cast<unsigned>(random() >> 40));
    }
    std::size_t count;
    std::unique_ptr<Element[]> elements;
    std::unique_ptr<Element[]> room;
};

// Compared by bytes: a swapped number need not be one.
template <typename Element>
struct View {
    bool operator==(const std::vector<Element>& other) const {
        return std::memcmp(elements, other.data(), other.size() * sizeof(Element)) == 0;
    }
    const Element* elements;
};

template <typename Element>
void Reverse(Element& element) {
    auto* bytes = reinterpret_cast<unsigned char*>(&element);
    std::reverse(bytes, bytes + sizeof element);
}

template <typename Element>
std::vector<Element> Swapped(const Array<Element>& array) {
    std::vector<Element> elements(array.elements.get(), array.elements.get() + array.count);
    for (Element& element : elements) Reverse(element);
    return elements;
}

// A plain loop that may use what the processor has.
__attribute__((target("avx2"))) void LoopForAvx2(std::uint16_t* elements, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) elements[i] = __builtin_bswap16(elements[i]);
}
__attribute__((target("avx2"))) void LoopForAvx2(std::uint32_t* elements, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) elements[i] = __builtin_bswap32(elements[i]);
}
__attribute__((target("avx2"))) void LoopForAvx2(std::uint64_t* elements, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) elements[i] = __builtin_bswap64(elements[i]);
}

template <typename Unsigned, typename Element, typename Swap>
void Add(const char* work, std::size_t size, Swap swap) {
    using Given = Array<Element>;
    const auto words = [](const Given& array) {
        return reinterpret_cast<Unsigned*>(array.elements.get());
    };
    const auto rows = Work(
        work, static_cast<std::int64_t>(size), [size] { return Given(size); }, Swapped<Element>);
    rows.Ours([swap](const Given& array, auto keep) {
        swap(array.elements.get(), static_cast<int>(array.count));
        keep(View<Element>{array.elements.get()});
    });
    rows.Peer("Boost", [words](const Given& array, auto keep) {
        for (std::size_t i = 0; i < array.count; ++i)
            boost::endian::endian_reverse_inplace(words(array)[i]);
        keep(View<Element>{array.elements.get()});
    });
    if (__builtin_cpu_supports("avx2")) {
        rows.Peer("loop for AVX2", [words](const Given& array, auto keep) {
            LoopForAvx2(words(array), array.count);
            keep(View<Element>{array.elements.get()});
        });
    }
    rows.Limit("memcpy", [](const Given& array, auto keep) {
        std::memcpy(array.room.get(), array.elements.get(), array.count * sizeof(Element));
        keep(array.room.get());
    });
}

}  // namespace

void RegisterRows() {
    for (const std::size_t size : {1024U, 32768U, 1048576U, 67108864U}) {
        Add<std::uint16_t, unsigned short>("16-bit", size, [](unsigned short* array, int count) {
            TEVUtilString::Swap16BitWord(array, count);
        });
        Add<std::uint32_t, unsigned int>("32-bit", size, [](unsigned int* array, int count) {
            TEVUtilString::Swap32BitWord(array, count);
        });
        Add<std::uint64_t, double>("64-bit", size, [](double* array, int count) {
            TEVUtilString::Swap64BitDouble(array, count);
        });
    }
}

}  // namespace tev::bench
