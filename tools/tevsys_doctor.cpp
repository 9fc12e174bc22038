#include "tools/tevsys_doctor.h"

#include <TEVSystemLib/system/TEVSystemDiagnostics.h>
#include <windows.h>

#include <algorithm>
#include <iomanip>
#include <iostream>

#include "tools/tevsys_json.h"

namespace tevsys {

namespace {

using Diagnostics = TAMO::TEV::System::TEVSystemDiagnostics;
using Explanation = Diagnostics::LoadExplanation;
using FolderKind = Diagnostics::FolderKind;
using Module = Diagnostics::Module;
using Problem = Diagnostics::LoadProblem;
using State = Diagnostics::ModuleState;

const char* NameOf(State state) {
    switch (state) {
        case State::Found:
            break;
        case State::System:
            return "system";
        case State::Repeated:
            return "shown above";
        case State::NotFollowed:
            return "not followed";
        case State::Missing:
            return "missing";
        case State::Unreadable:
            return "unreadable";
        case State::NotAModule:
            return "not a module";
        case State::OtherMachine:
            return "wrong machine";
    }
    return "found";
}

const char* NameOf(FolderKind kind) {
    switch (kind) {
        case FolderKind::SearchDirectory:
            return "search directory";
        case FolderKind::Program:
            return "program";
        case FolderKind::DllDirectory:
            return "DLL directory";
        case FolderKind::System:
            return "system";
        case FolderKind::System16:
            return "16-bit system";
        case FolderKind::Windows:
            return "Windows";
        case FolderKind::Current:
            return "current";
        case FolderKind::Path:
            break;
    }
    return "PATH";
}

const char* NameOf(Problem problem) {
    switch (problem) {
        case Problem::None:
            break;
        case Problem::EmptyName:
            return "empty name";
        case Problem::ModuleMissing:
            return "module missing";
        case Problem::FunctionMissing:
            return "function missing";
        case Problem::NotAModule:
            return "not a module";
        case Problem::OtherMachine:
            return "wrong machine";
        case Problem::StartRefused:
            return "start refused";
        case Problem::Unexplained:
            return "unexplained";
    }
    return "none";
}

// As the loader takes names; what the code page lacks is replaced.
std::string ToAnsi(const std::string& utf8) {
    const std::wstring wide = ToWide(utf8);
    const auto convert = [&wide](char* out, int size) {
        return WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()), out, size,
                                   nullptr, nullptr);
    };
    std::string ansi(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
    convert(ansi.data(), static_cast<int>(ansi.size()));
    return ansi;
}

bool IsAnsi(const std::string& utf8) {
    const std::string ansi = ToAnsi(utf8);
    const std::wstring wide = ToWide(utf8);
    std::wstring back(wide.size(), L'\0');
    const int size = MultiByteToWideChar(CP_ACP, 0, ansi.data(), static_cast<int>(ansi.size()),
                                         back.data(), static_cast<int>(back.size()));
    return static_cast<std::size_t>(size) == wide.size() && back == wide;
}

std::string Line(const Module& module) {
    std::string line = module.name;
    if (module.file != module.name && module.state != State::System)
        line += (module.file.empty() ? "" : "  ") + module.file;
    if (module.state != State::Found) line += std::string("  ") + NameOf(module.state);
    if (!module.flaw.empty()) line += ": " + module.flaw;
    if (module.isDelayed) line += "  (delayed)";
    return line;
}

std::string Line(const Diagnostics::MissingFunction& function) {
    const std::string line = "missing function " + function.name;
    return function.forwarder.empty() ? line : line + ", forwarded to " + function.forwarder;
}

void ShowBranches(std::ostream& out, const Module& module, const std::string& indent) {
    std::size_t left = module.missingFunctions.size() + module.imports.size();
    const auto branch = [&](const std::string& line) {
        out << indent << (--left == 0 ? "`-- " : "|-- ") << ToUtf8(line) << '\n';
    };
    for (const auto& function : module.missingFunctions) branch(Line(function));
    for (const Module& import : module.imports) {
        branch(Line(import));
        ShowBranches(out, import, indent + (left == 0 ? "    " : "|   "));
    }
}

void ShowFolders(std::ostream& out, const Explanation& explanation) {
    out << "\nSearched in this order:\n";
    int number = 0;
    for (const auto& folder : explanation.folders)
        out << std::setw(4) << ++number << "  " << std::left << std::setw(18) << NameOf(folder.kind)
            << std::right << folder.folder << '\n';
    for (const std::string& folder : explanation.ignoredDirectories)
        out << "      ignored           " << folder << '\n';
    if (!explanation.isPathConsulted)
        out << "PATH is not consulted: with search directories it never is.\n";
}

void ShowTree(std::ostream& out, const Explanation& explanation) {
    if (explanation.problem != Problem::EmptyName) {
        out << ToUtf8(Line(explanation.module)) << '\n';
        ShowBranches(out, explanation.module, "");
        ShowFolders(out, explanation);
        if (!explanation.isLoaded)
            out << "\nThe system says: " << explanation.code
                << (explanation.message.empty() ? "" : ", ") << explanation.message << '\n';
        out << '\n';
    }
    out << ToUtf8(explanation.cause) << '\n';
}

Json ToJson(const Module& module) {
    Json json{{"name", module.name}, {"file", module.file}, {"state", NameOf(module.state)}};
    if (!module.flaw.empty()) json["flaw"] = module.flaw;
    if (module.isDelayed) json["delayed"] = true;
    for (const auto& function : module.missingFunctions)
        json["missingFunctions"].push_back(
            {{"name", function.name}, {"forwarder", function.forwarder}});
    for (const Module& import : module.imports) json["imports"].push_back(ToJson(import));
    return json;
}

Json ToJson(const Explanation& explanation) {
    Json folders = Json::array();
    for (const auto& folder : explanation.folders)
        folders.push_back({{"kind", NameOf(folder.kind)}, {"folder", folder.folder}});
    return Json{{"name", explanation.name},
                {"loaded", explanation.isLoaded},
                {"problem", NameOf(explanation.problem)},
                {"culprit", explanation.culprit},
                {"cause", explanation.cause},
                {"code", explanation.code},
                {"message", explanation.message},
                {"pathConsulted", explanation.isPathConsulted},
                {"onPath", explanation.onPath},
                {"beside", explanation.beside},
                {"folders", folders},
                {"ignoredDirectories", explanation.ignoredDirectories},
                {"module", ToJson(explanation.module)}};
}

}  // namespace

ExitCode Doctor(const std::string& module, const std::vector<std::string>& directories,
                bool asJson) {
    std::vector<std::string> names = directories;
    names.push_back(module);
    for (const std::string& name : names)
        if (!IsAnsi(name))
            return Fail(kFailed, "cannot ask for " + name +
                                     ": the loader takes names in this system's code page, which "
                                     "lacks a character of it");
    std::vector<std::string> folders(directories.size());
    std::transform(directories.begin(), directories.end(), folders.begin(), ToAnsi);
    std::vector<const char*> dirs(folders.size());
    std::transform(folders.begin(), folders.end(), dirs.begin(),
                   [](const std::string& folder) { return folder.c_str(); });
    Explanation explanation;
    if (!Diagnostics::ExplainLoadFailure(ToAnsi(module).c_str(), dirs.data(), dirs.size(),
                                         explanation))
        return Fail(kFailed, "there is not enough memory");
    if (asJson)
        Write(std::cout, ToJson(explanation));
    else
        ShowTree(std::cout, explanation);
    return explanation.problem == Problem::None ? kDone : kFailed;
}

}  // namespace tevsys
