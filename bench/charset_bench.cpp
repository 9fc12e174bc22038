#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <windows.h>

#include <boost/locale/encoding_utf.hpp>
#include <random>
#include <string>
#include <string_view>

#include "Inputs.h"
#include "Rows.h"

namespace tev::bench {

namespace {

using boost::locale::conv::utf_to_utf;
using TAMO::TEV::System::Util::TEVUtilString;

// The same text twice.
struct Text {
    std::string utf8;
    std::wstring wide;
};

Text Ascii(std::size_t size) {
    const std::string text = RandomText(size, "abcdefghijklmnopqrstuvwxyz ,.");
    return {text, {text.begin(), text.end()}};
}

// Half of the characters ASCII, the others of two, three and four bytes.
Text Mixed(std::size_t size) {
    constexpr char32_t kFirst[] = {'a', 'a', 'a', 0xc0, 0x4e00, 0x1f600};
    std::mt19937 random(20240302);
    std::string utf8;
    while (utf8.size() < size) {
        const char32_t character = kFirst[random() % 6] + random() % 26;
        utf8 += utf_to_utf<char>(std::u32string(1, character));
    }
    return {utf8, utf_to_utf<wchar_t>(utf8)};
}

void ToWideBySystem(const std::string& text, wchar_t** out, std::size_t* length) {
    const auto count = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), count, nullptr, 0);
    *length = static_cast<std::size_t>(size);
    *out = new wchar_t[*length + 1];
    MultiByteToWideChar(CP_UTF8, 0, text.data(), count, *out, size);
    (*out)[*length] = L'\0';
}

void ToUtf8BySystem(const std::wstring& wide, char** out, std::size_t* length) {
    const auto count = static_cast<int>(wide.size());
    const int size =
        WideCharToMultiByte(CP_UTF8, 0, wide.data(), count, nullptr, 0, nullptr, nullptr);
    *length = static_cast<std::size_t>(size);
    *out = new char[*length + 1];
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), count, *out, size, nullptr, nullptr);
    (*out)[*length] = '\0';
}

template <typename Make>
void AddToWide(const std::string& work, std::size_t size, Make make) {
    Work(
        work + "-to-wide", static_cast<std::int64_t>(size), [=] { return make(size); },
        [](const Text& text) { return text.wide; })
        .Ours([](const Text& text, auto keep) {
            wchar_t* wide = nullptr;
            std::size_t length = 0;
            TEVUtilString::ConvertFromMultiByteCharToWChar(text.utf8.data(), text.utf8.size(),
                                                           &wide, &length);
            keep(std::wstring_view(wide, length));
            TEVUtilString::DeleteWCharBuffer(&wide);
        })
        .Peer("Boost", [](const Text& text, auto keep) { keep(utf_to_utf<wchar_t>(text.utf8)); })
        .CheckedLimit("the two calls + new[]", [](const Text& text, auto keep) {
            wchar_t* wide = nullptr;
            std::size_t length = 0;
            ToWideBySystem(text.utf8, &wide, &length);
            keep(std::wstring_view(wide, length));
            delete[] wide;
        });
}

template <typename Make>
void AddToUtf8(const std::string& work, std::size_t size, Make make) {
    Work(
        work + "-to-utf8", static_cast<std::int64_t>(size), [=] { return make(size); },
        [](const Text& text) { return text.utf8; })
        .Ours([](const Text& text, auto keep) {
            char* utf8 = nullptr;
            std::size_t length = 0;
            TEVUtilString::ConvertFromWCharToMultiByteChar(&utf8, text.wide.data(),
                                                           text.wide.size(), &length);
            keep(std::string_view(utf8, length));
            TEVUtilString::DeleteCString(&utf8);
        })
        .Peer("Boost", [](const Text& text, auto keep) { keep(utf_to_utf<char>(text.wide)); })
        .CheckedLimit("the two calls + new[]", [](const Text& text, auto keep) {
            char* utf8 = nullptr;
            std::size_t length = 0;
            ToUtf8BySystem(text.wide, &utf8, &length);
            keep(std::string_view(utf8, length));
            delete[] utf8;
        });
}

}  // namespace

void RegisterRows() {
    for (const std::size_t size : {16U, 4096U, 65536U, 1048576U}) {
        AddToWide("ascii", size, Ascii);
        AddToUtf8("ascii", size, Ascii);
        AddToWide("mixed", size, Mixed);
        AddToUtf8("mixed", size, Mixed);
    }
}

}  // namespace tev::bench
