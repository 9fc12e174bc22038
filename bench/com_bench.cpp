#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <windows.h>
// oleauto.h needs windows.h before it.
#include <oleauto.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "ComInputs.h"
#include "ComTables.h"
#include "Files.h"
#include "Rows.h"
#include "Texts.h"
#include "models/ArrayModel.h"
#include "support/Com.h"

namespace tev::bench {

namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;
using Doubles = std::vector<double>;
using Strings = std::vector<std::string>;

Doubles RandomDoubles(std::size_t count) {
    std::mt19937_64 random(20240309);
    Doubles doubles(count);
    for (double& number : doubles) number = std::uniform_real_distribution<double>()(random);
    return doubles;
}

Strings RandomStrings(std::size_t count) {
    std::mt19937 random(20240310);
    Strings strings;
    while (strings.size() < count) strings.push_back(Word(random, 8 + random() % 24));
    return strings;
}

// The elements of an array, beside those that it should hold.
struct DoubleArray {
    bool operator==(const Doubles& expected) const {
        return array != nullptr && array->rgsabound[0].cElements == expected.size() &&
               std::memcmp(array->pvData, expected.data(), expected.size() * sizeof(double)) == 0;
    }
    SAFEARRAY* array;
};

struct StringArray {
    bool operator==(const Strings& expected) const {
        if (array == nullptr || array->rgsabound[0].cElements != expected.size()) return false;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const std::wstring text = test::TextAt(array, {static_cast<LONG>(i)});
            if (std::string(text.begin(), text.end()) != expected[i]) return false;
        }
        return true;
    }
    SAFEARRAY* array;
};

SAFEARRAY* BareDoubles(const Doubles& doubles) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_R8, 0, static_cast<ULONG>(doubles.size()));
    void* data = nullptr;
    SafeArrayAccessData(array, &data);
    std::memcpy(data, doubles.data(), doubles.size() * sizeof(double));
    SafeArrayUnaccessData(array);
    return array;
}

SAFEARRAY* DoublesOneByOne(const Doubles& doubles) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_R8, 0, static_cast<ULONG>(doubles.size()));
    test::PutNumbers(array, doubles);
    return array;
}

SAFEARRAY* BareStrings(const Strings& strings) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(strings.size()));
    BSTR* data = nullptr;
    SafeArrayAccessData(array, reinterpret_cast<void**>(&data));
    for (const std::string& text : strings) *data++ = test::AnsiBstr(text);
    SafeArrayUnaccessData(array);
    return array;
}

SAFEARRAY* StringsOneByOne(const Strings& strings) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(strings.size()));
    test::PutTexts(array, strings);
    return array;
}

template <typename View, typename Input, typename Make>
auto Build(Make make) {
    return [make](const Input& input, auto keep) {
        SAFEARRAY* array = make(input);
        keep(View{array});
        SafeArrayDestroy(array);
    };
}

void AddDoublesIn(std::size_t count) {
    Work(
        "doubles-in", static_cast<std::int64_t>(count), [count] { return RandomDoubles(count); },
        [](const Doubles& doubles) { return doubles; })
        .Ours([](const Doubles& doubles, auto keep) {
            VARIANT variant;
            TEVUtilWindows::SetDoubleArrayVARIANT(const_cast<double*>(doubles.data()),
                                                  doubles.size(), &variant);
            keep(DoubleArray{variant.parray});
            VariantClear(&variant);
        })
        .Peer("SafeArrayPutElement", Build<DoubleArray, Doubles>(DoublesOneByOne))
        .CheckedLimit("bare creation + copy", Build<DoubleArray, Doubles>(BareDoubles));
}

struct Numbers {
    bool operator==(const Doubles& expected) const {
        return count == expected.size() && std::memcmp(array, expected.data(), 8 * count) == 0;
    }
    const double* array;
    std::size_t count;
};

void AddDoublesOut(std::size_t count) {
    const auto make = [count] {
        Doubles doubles = RandomDoubles(count);
        SAFEARRAY* array = BareDoubles(doubles);
        return std::make_unique<const Given<Doubles>>(std::move(doubles), VARTYPE{VT_R8}, array);
    };
    using Input = GivenPointer<Doubles>;
    Work("doubles-out", static_cast<std::int64_t>(count), make,
         [](const Input& input) { return input->data; })
        .Ours([](const Input& input, auto keep) {
            double* doubles = nullptr;
            std::uint64_t size = 0;
            TEVUtilWindows::ExtractDoubleArrayFromVARIANT(&doubles, size, input->variant.get());
            keep(Numbers{doubles, size});
            TEVUtilWindows::DeleteDoubleBuffer(&doubles);
        })
        .Peer("SafeArrayGetElement",
              [](const Input& input, auto keep) {
                  keep(test::NumbersIn<double>(input->variant.Array(), input->data.size()));
              })
        .CheckedLimit("new[] + copy", [](const Input& input, auto keep) {
            const std::size_t size = input->data.size();
            auto* doubles = new double[size];
            std::memcpy(doubles, input->variant.Array()->pvData, 8 * size);
            keep(Numbers{doubles, size});
            delete[] doubles;
        });
}

void AddStringsIn(std::size_t count) {
    struct Input {
        Strings strings;
        std::vector<const char*> pointers;
    };
    const auto make = [count] {
        auto input = std::make_unique<Input>();
        input->strings = RandomStrings(count);
        for (const std::string& text : input->strings) input->pointers.push_back(text.c_str());
        return input;
    };
    using Pointer = std::unique_ptr<Input>;
    const auto build = [](auto way) {
        return [way](const Pointer& input, auto keep) {
            SAFEARRAY* array = way(input->strings);
            keep(StringArray{array});
            SafeArrayDestroy(array);
        };
    };
    Work("strings-in", static_cast<std::int64_t>(count), make,
         [](const Pointer& input) { return input->strings; })
        .Ours([](const Pointer& input, auto keep) {
            VARIANT variant;
            const char** pointers = input->pointers.data();
            TEVUtilWindows::SetStringArrayVARIANT(pointers, input->pointers.size(), &variant);
            keep(StringArray{variant.parray});
            VariantClear(&variant);
        })
        .Peer("SafeArrayPutElement", build(StringsOneByOne))
        .CheckedLimit("bare creation + copy", build(BareStrings));
}

void AddStringsOut(std::size_t count) {
    const auto make = [count] {
        Strings strings = RandomStrings(count);
        SAFEARRAY* array = BareStrings(strings);
        return std::make_unique<const Given<Strings>>(std::move(strings), VARTYPE{VT_BSTR}, array);
    };
    using Input = GivenPointer<Strings>;
    Work("strings-out", static_cast<std::int64_t>(count), make,
         [](const Input& input) { return input->data; })
        .Ours([](const Input& input, auto keep) {
            char** texts = nullptr;
            std::uint64_t size = 0;
            TEVUtilWindows::ExtractStringArrayFromVariant(texts, size, input->variant.get());
            keep(Texts{texts, size});
            TEVUtilWindows::DeleteCStringArray(texts, size);
        })
        .Peer("SafeArrayGetElement",
              [](const Input& input, auto keep) {
                  Strings strings(input->data.size());
                  for (LONG i = 0; i < static_cast<LONG>(strings.size()); ++i)
                      strings[static_cast<std::size_t>(i)] =
                          ElementText(input->variant.Array(), &i);
                  keep(strings);
              })
        .CheckedLimit("bare calls + copy", [](const Input& input, auto keep) {
            const auto* source = static_cast<const BSTR*>(input->variant.Array()->pvData);
            std::vector<char*> texts(input->data.size());
            for (char*& text : texts) text = BareText(*source++);
            keep(Texts{texts.data(), texts.size()});
            for (const char* text : texts) delete[] text;
        });
}

}  // namespace

void RegisterRows() {
    for (const std::size_t count : {16U, 1024U, 32768U, 1048576U}) {
        AddDoublesIn(count);
        AddDoublesOut(count);
    }
    for (const std::size_t count : {10U, 100U, 1000U, 10000U}) {
        AddStringsIn(count);
        AddStringsOut(count);
        AddTableIn(count);
        AddTableOut(count);
    }
}

}  // namespace tev::bench
