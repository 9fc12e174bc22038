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
#include <optional>
#include <streambuf>

namespace tevsys {

namespace {

// Set when colours are to be shown.
std::optional<WORD> plainAttributes;
// Set when the terminal had another code page.
std::optional<UINT> formerCodePage;

// Shows a control byte as a question mark: a terminal would obey it, and names come from anywhere.
class TerminalBuffer : public std::streambuf {
 public:
    explicit TerminalBuffer(std::ostream& stream)
        : stream_(stream), terminal_(stream.rdbuf(this)) {}
    ~TerminalBuffer() override { stream_.rdbuf(terminal_); }
    TerminalBuffer(const TerminalBuffer&) = delete;
    TerminalBuffer& operator=(const TerminalBuffer&) = delete;

 private:
    int_type overflow(int_type c) override {
        constexpr int_type kFirstShown = ' ';
        constexpr int_type kDelete = 0x7F;
        if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
        const bool isShown = (c >= kFirstShown && c != kDelete) || c == '\n' || c == '\t';
        return terminal_->sputc(isShown ? traits_type::to_char_type(c) : '?');
    }
    int sync() override { return terminal_->pubsync(); }

    std::ostream& stream_;
    std::streambuf* terminal_;
};
std::optional<TerminalBuffer> outBuffer;
std::optional<TerminalBuffer> errorBuffer;

bool IsTerminal(DWORD stream) {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
}

WORD AttributesOf(Colour colour) {
    constexpr WORD kYellow = FOREGROUND_RED | FOREGROUND_GREEN;
    constexpr WORD kCyan = FOREGROUND_GREEN | FOREGROUND_BLUE;
    switch (colour) {
        case Colour::Key:
            return kYellow | FOREGROUND_BLUE | FOREGROUND_INTENSITY;
        case Colour::Good:
            return FOREGROUND_GREEN | FOREGROUND_INTENSITY;
        case Colour::Warning:
            return kYellow | FOREGROUND_INTENSITY;
        case Colour::Note:
            return kCyan;
        case Colour::Plain:
            break;
    }
    return *plainAttributes;
}

bool IsUtf8(const std::string& text) {
    return text.empty() || MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(),
                                               static_cast<int>(text.size()), nullptr, 0) > 0;
}

// Of the UTF-8 character that begins there; 0 when none does.
std::size_t Utf8Size(const std::string& text, std::size_t at) {
    for (std::size_t size = 1; size <= 4 && at + size <= text.size(); ++size)
        if (IsUtf8(text.substr(at, size))) return size;
    return 0;
}

void AppendLatin1(std::string& text, char c) {
    const auto byte = static_cast<unsigned char>(c);
    text += static_cast<char>(0xC0 | (byte >> 6));
    text += static_cast<char>(0x80 | (byte & 0x3F));
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
    std::cerr << "tevsys: " << ToUtf8(reason) << '\n';
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
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t size = Utf8Size(text, at);
        if (size == 0) {
            AppendLatin1(converted, text[at++]);
        } else {
            converted.append(text, at, size);
            at += size;
        }
    }
    return converted;
}

std::vector<std::string> Spellings(const std::string& utf8) {
    std::string latin1;
    for (const wchar_t c : ToWide(utf8)) {
        if (c > 0xFF) return {utf8};
        latin1 += static_cast<char>(c);
    }
    return latin1 == utf8 ? std::vector{utf8} : std::vector{utf8, latin1};
}

std::wstring ToWide(const std::string& utf8) {
    const int size = MultiByteToWideChar(CP_UTF8, 0, utf8.c_str(), -1, nullptr, 0);
    if (size <= 0) return {};
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.c_str(), -1, wide.data(), size);
    wide.pop_back();
    return wide;
}

std::wstring Folded(const std::string& text) {
    std::wstring folded = ToWide(ToUtf8(text));
    CharLowerBuffW(folded.data(), static_cast<DWORD>(folded.size()));
    return folded;
}

Output::Output() {
    // Lines end with LF only, for scripts.
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    if (IsTerminal(STD_OUTPUT_HANDLE)) outBuffer.emplace(std::cout);
    if (IsTerminal(STD_ERROR_HANDLE)) errorBuffer.emplace(std::cerr);
    if (outBuffer || errorBuffer) {
        formerCodePage = GetConsoleOutputCP();
        SetConsoleOutputCP(CP_UTF8);
    }
    CONSOLE_SCREEN_BUFFER_INFO terminal{};
    if (GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &terminal) != 0 &&
        std::getenv("NO_COLOR") == nullptr)
        plainAttributes = terminal.wAttributes;
}

Output::~Output() {
    GiveBack();
    outBuffer.reset();
    errorBuffer.reset();
}

void Output::GiveBack() {
    std::cout.flush();
    if (formerCodePage) SetConsoleOutputCP(*formerCodePage);
    formerCodePage.reset();
}

// Not by control sequences: not every console reads them.
std::ostream& operator<<(std::ostream& out, const Painted& painted) {
    if (!plainAttributes || &out != &std::cout) return out << painted.text;
    HANDLE console = GetStdHandle(STD_OUTPUT_HANDLE);
    out.flush();
    SetConsoleTextAttribute(console, AttributesOf(painted.colour));
    out << painted.text << std::flush;
    SetConsoleTextAttribute(console, *plainAttributes);
    return out;
}

}  // namespace tevsys
