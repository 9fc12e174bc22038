#include "tools/tevsys_run.h"

#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <windows.h>

#include "tools/tevsys_console.h"

namespace tevsys {

namespace {

// As shells do.
constexpr int kNotStarted = 127;

// A word so that a program's C runtime reads it back as it is: backslashes count only in front of a
// quote.
std::wstring Quoted(const std::wstring& word) {
    if (!word.empty() && word.find_first_of(L" \t\n\v\"") == std::wstring::npos) return word;
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : word) {
        if (c == L'"') quoted.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        quoted += c;
    }
    return quoted.append(backslashes, L'\\') + L'"';
}

std::wstring CommandLine(const std::vector<std::string>& command) {
    std::wstring line;
    for (const std::string& word : command) {
        if (!line.empty()) line += L' ';
        line += Quoted(ToWide(word));
    }
    return line;
}

BOOL WINAPI Ignore(DWORD) { return TRUE; }

}  // namespace

int RunProgram(const std::vector<std::string>& command) {
    TAMO::TEV::System::TEVSystemProperties::InitializeProperties();
    Output::GiveBack();
    std::wstring line = CommandLine(command);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    // The program decides what Ctrl+C means.
    SetConsoleCtrlHandler(Ignore, TRUE);
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                       &process) == 0) {
        const DWORD error = GetLastError();
        Fail(kFailed, "cannot start " + command.front() + ": Windows says error " +
                          std::to_string(error) + "; give its path, or have PATH name its folder");
        return kNotStarted;
    }
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = kNotStarted;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return static_cast<int>(code);
}

}  // namespace tevsys
