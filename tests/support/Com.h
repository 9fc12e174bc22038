#pragma once

#include <windows.h>
// oleauto.h needs windows.h before it.
#include <oleauto.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Owners of what the library and the system hand out for COM, and looks into arrays, all by the
// system's own calls.
namespace tev::test {

// Pass Out() where a BSTR* is asked for.
class Bstr {
 public:
    Bstr() = default;
    // NULs in the text are kept.
    explicit Bstr(std::wstring_view text)
        : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
    ~Bstr() { SysFreeString(text_); }
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;

    BSTR* Out() {
        SysFreeString(std::exchange(text_, nullptr));
        return &text_;
    }
    const BSTR& get() const { return text_; }
    bool IsNull() const { return text_ == nullptr; }
    // As many characters as the system counts; "(null)" for null.
    std::wstring str() const {
        return text_ == nullptr ? L"(null)" : std::wstring(text_, SysStringLen(text_));
    }

 private:
    BSTR text_ = nullptr;
};

class SafeArray {
 public:
    SafeArray() = default;
    explicit SafeArray(SAFEARRAY* array) : array_(array) {}
    // The bounds in the order of the dimensions, each {elements, lower bound}. The system stores
    // them in the reverse order.
    SafeArray(VARTYPE elementType, std::vector<SAFEARRAYBOUND> bounds)
        : array_(SafeArrayCreate(elementType, static_cast<UINT>(bounds.size()), bounds.data())) {}
    SafeArray(SafeArray&& other) noexcept : array_(other.release()) {}
    ~SafeArray() {
        if (array_ != nullptr) SafeArrayDestroy(array_);
    }
    SafeArray(const SafeArray&) = delete;
    SafeArray& operator=(const SafeArray&) = delete;

    SAFEARRAY* get() const { return array_; }
    SAFEARRAY* operator->() const { return array_; }
    SAFEARRAY* release() { return std::exchange(array_, nullptr); }

 private:
    SAFEARRAY* array_ = nullptr;
};

// Pass Out() where a VARIANT* is filled.
class Variant {
 public:
    Variant() { VariantInit(&variant_); }
    Variant(VARTYPE type, SafeArray array) : Variant() {
        variant_.vt = type;
        variant_.parray = array.release();
    }
    ~Variant() { VariantClear(&variant_); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;

    VARIANT* Out() {
        VariantClear(&variant_);
        return &variant_;
    }
    VARIANT* get() { return &variant_; }
    VARTYPE Type() const { return variant_.vt; }
    SAFEARRAY* Array() const { return (variant_.vt & VT_ARRAY) != 0 ? variant_.parray : nullptr; }

 private:
    VARIANT variant_;
};

// An array's indices, one a dimension.
using Index = std::initializer_list<LONG>;

// False when the system refuses the index.
template <typename T>
bool ReadElement(SAFEARRAY* array, Index index, T* element) {
    std::vector<LONG> indices(index);
    return SUCCEEDED(SafeArrayGetElement(array, indices.data(), element));
}

inline std::wstring TextAt(SAFEARRAY* array, Index index) {
    Bstr text;
    return ReadElement(array, index, text.Out()) ? text.str() : L"(no element)";
}

inline bool PutText(SAFEARRAY* array, Index index, std::wstring_view text) {
    std::vector<LONG> indices(index);
    const Bstr element(text);
    return SUCCEEDED(SafeArrayPutElement(array, indices.data(), element.get()));
}

// {elements, lower bound} as the system tells it; dimensions count from 1.
inline std::pair<LONG, LONG> BoundsOf(SAFEARRAY* array, UINT dimension) {
    LONG lower = 0;
    LONG upper = 0;
    if (FAILED(SafeArrayGetLBound(array, dimension, &lower)) ||
        FAILED(SafeArrayGetUBound(array, dimension, &upper)))
        return {-1, -1};
    return {upper - lower + 1, lower};
}

inline VARTYPE ElementTypeOf(SAFEARRAY* array) {
    VARTYPE type = VT_EMPTY;
    return SUCCEEDED(SafeArrayGetVartype(array, &type)) ? type : static_cast<VARTYPE>(VT_ILLEGAL);
}

}  // namespace tev::test
