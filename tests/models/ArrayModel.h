#pragma once

#include <windows.h>
// oleauto.h needs windows.h before it.
#include <oleauto.h>

#include <cstddef>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

// Arrays of COM filled and read one element after the other, by the system's own calls.
namespace tev::test {

// Texts are converted on the stack, and so have fewer characters than this.
constexpr int kTextRoom = 256;

inline BSTR AnsiBstr(const std::string& text) {
    wchar_t wide[kTextRoom];
    const int size =
        MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), wide, kTextRoom);
    return SysAllocStringLen(wide, static_cast<UINT>(size));
}

inline void PutAnsi(SAFEARRAY* array, LONG* index, const std::string& text) {
    const BSTR element = AnsiBstr(text);
    SafeArrayPutElement(array, index, element);
    SysFreeString(element);
}

template <typename Number>
void PutNumbers(SAFEARRAY* array, const std::vector<Number>& numbers) {
    for (LONG i = 0; i < static_cast<LONG>(numbers.size()); ++i) {
        Number number = numbers[static_cast<std::size_t>(i)];
        SafeArrayPutElement(array, &i, &number);
    }
}

inline void PutTexts(SAFEARRAY* array, const std::vector<std::string>& texts) {
    for (LONG i = 0; i < static_cast<LONG>(texts.size()); ++i)
        PutAnsi(array, &i, texts[static_cast<std::size_t>(i)]);
}

// Keys at (row, 0), values at (row, 1).
template <typename Pairs>
void PutRows(SAFEARRAY* array, const Pairs& rows) {
    LONG index[] = {0, 0};
    for (const auto& [key, value] : rows) {
        index[1] = 0;
        PutAnsi(array, index, key);
        index[1] = 1;
        PutAnsi(array, index, value);
        ++index[0];
    }
}

template <typename Number>
std::vector<Number> NumbersIn(SAFEARRAY* array, std::size_t count) {
    std::vector<Number> numbers(count);
    for (LONG i = 0; i < static_cast<LONG>(count); ++i)
        SafeArrayGetElement(array, &i, &numbers[static_cast<std::size_t>(i)]);
    return numbers;
}

// An element's text up to its first NUL: nothing for one that begins with a NUL, and "(null)" for a
// null or empty one.
inline std::optional<std::string> TextIn(SAFEARRAY* array, LONG* index) {
    BSTR element = nullptr;
    SafeArrayGetElement(array, index, &element);
    char narrow[2 * kTextRoom];
    if (SysStringLen(element) == 0)
        strcpy_s(narrow, "(null)");
    else
        WideCharToMultiByte(CP_ACP, 0, element, -1, narrow, sizeof narrow, nullptr, nullptr);
    SysFreeString(element);
    if (narrow[0] == '\0') return std::nullopt;
    return narrow;
}

}  // namespace tev::test
