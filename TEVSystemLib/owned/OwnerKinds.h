#pragma once

#include <TEVSystemLib/system/TEVSysCnst.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include <cstddef>
#include <map>
#include <string_view>
#include <vector>

// What the owners of Owners.h own: its types, the function that releases it, and the form in which
// the library's functions take an output. Release accepts null and leaves null.
namespace TAMO::TEV::System::Host {

// Handed out through T**, lent as Lent*.
template <typename T, typename Lent = T>
struct PointerKind {
    using Pointer = T*;
    using Borrowed = Lent*;
    using Slot = T**;
    static Slot SlotOf(T*& held) noexcept { return &held; }
};

// A C string. It is lent as const, so that it cannot be released behind its owner's back.
struct TextKind : PointerKind<char, const char> {
    static void Release(char*& text) noexcept { Util::TEVUtilString::DeleteCString(&text); }
    static std::string_view View(const char* text) {
        return text == nullptr ? std::string_view() : std::string_view(text);
    }
};

// A wide C string.
struct WideTextKind : PointerKind<wchar_t, const wchar_t> {
    static void Release(wchar_t*& text) noexcept { Util::TEVUtilString::DeleteWCharBuffer(&text); }
    static std::wstring_view View(const wchar_t* text) {
        return text == nullptr ? std::wstring_view() : std::wstring_view(text);
    }
};

// A BSTR, lent as the library and COM take one; its view holds what stands behind a NUL too.
struct BstrKind : PointerKind<wchar_t> {
    static void Release(wchar_t*& text) noexcept { Util::TEVUtilWindows::FreeBSTR(&text); }
    static std::wstring_view View(wchar_t* text) {
        return {text, Util::TEVUtilWindows::GetBSTRLength(text)};
    }
};

// A loaded module.
struct ModuleKind : PointerKind<HINSTANCE__> {
    using Slot = HINSTANCE__*&;
    static Slot SlotOf(HINSTANCE__*& held) noexcept { return held; }
    static void Release(HINSTANCE__*& module) noexcept {
        Util::TEVUtilWindows::FreeModuleHandle(module);
    }
};

// Messages by severity.
struct MessagesKind : PointerKind<std::map<TEVSysCnst::MsgLevel, std::vector<char*>*>> {
    static void Release(Pointer& messages) noexcept {
        Util::TEVUtilString::DeleteMsgsMap(&messages);
    }
};

// Messages in a row.
struct MessageListKind : PointerKind<std::vector<char*>> {
    static void Release(Pointer& messages) noexcept {
        Util::TEVUtilString::DeleteMsgsVector(&messages);
    }
};

// An array of COM.
struct SafeArrayKind : PointerKind<tagSAFEARRAY> {
    static void Release(tagSAFEARRAY*& array) noexcept {
        Util::TEVUtilWindows::DestroySafeArray(array);
        array = nullptr;
    }
};

// An array handed out through T**.
template <typename T>
struct ArrayKind {
    using Element = T;
    using Read = T;
    using Slot = T**;
    static Slot SlotOf(T*& elements) noexcept { return &elements; }
};

// C strings, which belong to their array.
struct TextArrayKind {
    using Element = char*;
    using Read = const char*;
    using Slot = char**&;
    static Slot SlotOf(char**& elements) noexcept { return elements; }
    static void Release(char**& array, std::size_t count) noexcept {
        Util::TEVUtilString::DeleteCStringArray(array, count);
    }
};

// Bytes as unsigned characters.
struct BytesKind : ArrayKind<unsigned char> {
    static void Release(unsigned char*& bytes, std::size_t) noexcept {
        Util::TEVUtilString::DeleteUnsignedCharArray(&bytes);
    }
};

// Bytes as characters.
struct BufferKind : ArrayKind<char> {
    static void Release(char*& bytes, std::size_t) noexcept {
        Util::TEVUtilString::DeleteCString(&bytes);
    }
};

// Numbers out of a variant.
struct DoublesKind : ArrayKind<double> {
    static void Release(double*& numbers, std::size_t) noexcept {
        Util::TEVUtilWindows::DeleteDoubleBuffer(&numbers);
    }
};

// Numbers out of a variant.
struct IntsKind : ArrayKind<int> {
    static void Release(int*& numbers, std::size_t) noexcept {
        Util::TEVUtilWindows::DeleteIntBuffer(&numbers);
    }
};

}  // namespace TAMO::TEV::System::Host
