#include "tools/tevsys_console.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>
// It needs windows.h before it.
#include <shellapi.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>

namespace tevsys {

namespace {

bool areColoursOn = false;

bool IsUtf8(const std::string& text) {
    return text.empty() || MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(),
                                               static_cast<int>(text.size()), nullptr, 0) > 0;
}

std::string FromWide(const wchar_t* wide) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, wide, -1, nullptr, 0, nullptr, nullptr);
    if (size <= 0) return {};
    std::string text(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide, -1, text.data(), size, nullptr, nullptr);
    text.pop_back();
    return text;
}

}  // namespace

ExitCode Fail(ExitCode code, const std::string& reason) {
    std::cerr << "tevsys: " << reason << '\n';
    return code;
}

std::vector<std::string> Utf8Arguments() {
    int count = 0;
    const std::unique_ptr<LPWSTR, HLOCAL (*)(HLOCAL)> words(
        CommandLineToArgvW(GetCommandLineW(), &count), LocalFree);
    std::vector<std::string> arguments;
    arguments.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) arguments.push_back(FromWide(words.get()[i]));
    return arguments;
}

std::string ToUtf8(const std::string& text) {
    if (IsUtf8(text)) return text;
    std::string converted;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            converted += c;
        } else {
            converted += static_cast<char>(0xC0 | (byte >> 6));
            converted += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return converted;
}

std::wstring ToWide(const std::string& utf8) {
    const int size = MultiByteToWideChar(CP_UTF8, 0, utf8.c_str(), -1, nullptr, 0);
    if (size <= 0) return {};
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.c_str(), -1, wide.data(), size);
    wide.pop_back();
    return wide;
}

void PrepareOutput() {
    // Lines end with LF only, for scripts.
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    constexpr DWORD kColourMode = 4;  // virtual terminal sequences
    HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD mode = 0;
    if (GetConsoleMode(output, &mode) == 0) return;
    SetConsoleOutputCP(CP_UTF8);
    areColoursOn =
        std::getenv("NO_COLOR") == nullptr && SetConsoleMode(output, mode | kColourMode) != 0;
}

std::string Painted(Colour colour, std::string_view text) {
    if (!areColoursOn || colour == Colour::Plain) return std::string(text);
    const char* code = colour == Colour::Key       ? "1"
                       : colour == Colour::Good    ? "32"
                       : colour == Colour::Warning ? "1;33"
                                                   : "36";
    return std::string("\x1b[") + code + 'm' + std::string(text) + "\x1b[0m";
}

}  // namespace tevsys
