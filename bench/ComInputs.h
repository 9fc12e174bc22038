#pragma once

#include <windows.h>
// oleauto.h needs windows.h before it.
#include <oleauto.h>

#include <memory>
#include <string>
#include <utility>

#include "models/ArrayModel.h"
#include "support/Com.h"

// What the rows of COM data share. The texts are short, so that they are converted on the stack.
namespace tev::bench {

constexpr int kShortText = 64;

inline std::string BareString(BSTR text) {
    char narrow[kShortText];
    const int size = WideCharToMultiByte(CP_ACP, 0, text, static_cast<int>(SysStringLen(text)),
                                         narrow, kShortText, nullptr, nullptr);
    return {narrow, static_cast<std::size_t>(size)};
}

// As an array of its own, of exactly its size.
inline char* BareText(BSTR text) {
    const auto length = static_cast<int>(SysStringLen(text));
    const int size = WideCharToMultiByte(CP_ACP, 0, text, length, nullptr, 0, nullptr, nullptr);
    char* copy = new char[static_cast<std::size_t>(size) + 1];
    WideCharToMultiByte(CP_ACP, 0, text, length, copy, size, nullptr, nullptr);
    copy[size] = '\0';
    return copy;
}

// The element as the system gives it out, which is a copy.
inline std::string ElementText(SAFEARRAY* array, LONG* index) {
    BSTR element = nullptr;
    SafeArrayGetElement(array, index, &element);
    std::string text = BareString(element);
    SysFreeString(element);
    return text;
}

// Data in a variant, made once.
template <typename Data>
struct Given {
    Given(Data values, VARTYPE type, SAFEARRAY* array)
        : data(std::move(values)),
          variant(static_cast<VARTYPE>(VT_ARRAY | type), test::SafeArray(array)) {}
    Data data;
    mutable test::Variant variant;
};

template <typename Data>
using GivenPointer = std::unique_ptr<const Given<Data>>;

}  // namespace tev::bench
