#pragma once

#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <cstddef>
#include <string>
#include <vector>

namespace tev::test {

// A C string that the library handed out. Pass Out() where a char** is asked for.
class Text {
 public:
    Text() = default;
    explicit Text(char* text) : text_(text) {}
    ~Text() { Release(); }
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;

    char** Out() {
        Release();
        return &text_;
    }
    char* get() const { return text_; }
    bool IsNull() const { return text_ == nullptr; }
    // The text; "(null)" for null, so that a comparison shows it.
    std::string str() const { return text_ == nullptr ? "(null)" : text_; }

 private:
    void Release() { TAMO::TEV::System::Util::TEVUtilString::DeleteCString(&text_); }

    char* text_ = nullptr;
};

class WideText {
 public:
    WideText() = default;
    ~WideText() { Release(); }
    WideText(const WideText&) = delete;
    WideText& operator=(const WideText&) = delete;

    wchar_t** Out() {
        Release();
        return &text_;
    }
    wchar_t* get() const { return text_; }
    bool IsNull() const { return text_ == nullptr; }
    std::wstring str() const { return text_ == nullptr ? L"(null)" : text_; }

 private:
    void Release() { TAMO::TEV::System::Util::TEVUtilString::DeleteWCharBuffer(&text_); }

    wchar_t* text_ = nullptr;
};

// An array of C strings that the library handed out: pass `array` and `count` by reference.
struct TextArray {
    TextArray() = default;
    ~TextArray() { TAMO::TEV::System::Util::TEVUtilString::DeleteCStringArray(array, count); }
    TextArray(const TextArray&) = delete;
    TextArray& operator=(const TextArray&) = delete;

    // The strings, null ones as "(null)".
    std::vector<std::string> Strings() const {
        std::vector<std::string> strings;
        for (std::size_t i = 0; i < count; ++i)
            strings.emplace_back(array[i] == nullptr ? "(null)" : array[i]);
        return strings;
    }

    char** array = nullptr;
    std::size_t count = 0;
};

}  // namespace tev::test
