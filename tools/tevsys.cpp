// Shows and changes what the programs of this machine see through TEVSystemLib.

#include <TEVSystemLib/system/TEVSysCnst.h>
#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <fcntl.h>
#include <io.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "tools/tevsys_demo.h"
#include "tools/tevsys_doctor.h"
#include "tools/tevsys_figures.h"
#include "tools/tevsys_store.h"
#include "tools/tevsys_where.h"

namespace {

using TAMO::TEV::System::TEVSystemProperties;
using TAMO::TEV::System::Util::TEVUtilString;
using TAMO::TEV::System::Util::TEVUtilWindows;
using Key = TAMO::TEV::System::TEVSysCnst::PropertyKey;

enum ExitCode : int { kDone = 0, kFailed = 1, kUsage = 2 };

ExitCode Fail(ExitCode code, const std::string& reason) {
    std::cerr << "tevsys: " << reason << '\n';
    return code;
}

ExitCode Get(const std::string& key) {
    const char* value = nullptr;
    if (!TEVSystemProperties::GetProperty(key.c_str(), value))
        return Fail(kFailed, key + " is in no table and no environment variable");
    std::cout << value << '\n';
    return kDone;
}

ExitCode List() {
    for (const auto& [key, value] : tevsys::Store::System())
        std::cout << "system\t" << key << '\t' << value << '\n';
    for (const auto& [key, value] : tevsys::Store::User())
        std::cout << "user\t" << key << '\t' << value << '\n';
    return kDone;
}

bool HasBlankEnds(const std::string& text) {
    const std::string kBlanks = " \t\r";
    return kBlanks.find(text.front()) != std::string::npos ||
           kBlanks.find(text.back()) != std::string::npos;
}

// Why the user file would not give a pair back as it stands; empty when it does.
std::string WhyNotStorable(const std::string& key, const std::string& value) {
    if (key.empty() || value.empty()) return "a line of the user file holds a key and a value";
    if ((key + value).find('\n') != std::string::npos) return "a property is one line";
    if (HasBlankEnds(key) || HasBlankEnds(value)) return "blanks at the ends do not last";
    if (key.front() == '#') return "a line that begins with # is a comment";
    if (key.find('=') != std::string::npos) return "the key ends at the first =";
    if (key == Key::TEV_USER_CONFIG_DIR || key == Key::TEV_USER_PROPERTIES_FILE_NAME)
        return "the store itself sets " + key;
    return {};
}

ExitCode Set(const std::string& key, const std::string& value) {
    const std::string problem = WhyNotStorable(key, value);
    if (!problem.empty()) return Fail(kUsage, "nothing set: " + problem);
    const auto file = tevsys::Store::User().find(Key::TEV_USER_PROPERTIES_FILE_NAME);
    if (file == tevsys::Store::User().end())
        return Fail(kFailed,
                    "nothing set: no tev.user.properties was found; create an empty one in the "
                    "folder that TEV_USER_CONFIG_DIR names, or in %APPDATA%\\Tamo");
    if (!TEVSystemProperties::SetUserProperty(key.c_str(), value.c_str()) ||
        !TEVSystemProperties::SaveUserProperties())
        return Fail(kFailed, "could not write " + file->second +
                                 "; make it writable or free some disk space, see which of its "
                                 "lines are left, and set again");
    return kDone;
}

ExitCode Env() {
    TEVSystemProperties::InitializeProperties();
    for (const auto& [name, value] : tevsys::EnvironmentVariables())
        std::cout << name << '=' << value << '\n';
    return kDone;
}

ExitCode Where() {
    TEVSystemProperties::InitializeProperties();
    tevsys::ShowWhere(std::cout);
    return kDone;
}

ExitCode Demo() {
    tevsys::ShowHostView(std::cout);
    return kDone;
}

ExitCode Doctor(const std::string& module, const std::vector<std::string>& directories,
                bool asJson) {
    return tevsys::ShowDoctor(std::cout, module, directories, asJson) ? kDone : kFailed;
}

ExitCode Figures(const std::string& value, const std::string& uncertainty, bool scientific) {
    double measured = 0;
    double spread = 0;
    if (!TEVUtilString::ToDouble(value.c_str(), measured))
        return Fail(kUsage, "no decimal number: " + value);
    if (!TEVUtilString::ToDouble(uncertainty.c_str(), spread))
        return Fail(kUsage, "no decimal number: " + uncertainty);
    if (!(spread > 0)) return Fail(kFailed, "no figures: the uncertainty must be above 0");
    const auto figures = tevsys::SignificantFigures(measured, spread, scientific);
    if (!figures) return Fail(kFailed, "no figures: nothing but zeros in the first 20 decimals");
    std::cout << figures->value << '\t' << figures->uncertainty << '\n';
    return kDone;
}

ExitCode Guid() {
    const std::string guid = TEVUtilWindows::GetGUID();
    if (guid.empty()) return Fail(kFailed, "the system made no GUID");
    std::cout << guid << '\n';
    return kDone;
}

struct Arguments {
    std::string key;
    std::string value;
    std::string uncertainty;
    bool scientific = false;
    std::vector<std::string> directories;
    bool json = false;
    std::function<ExitCode()> verb;
};

// The verbs that work without the store.
void AddPlainVerbs(CLI::App& app, Arguments& a) {
    CLI::App* figures =
        app.add_subcommand("figures", "Print a measured value as its uncertainty allows");
    figures->add_option("VALUE", a.value, "The measured value, a decimal number")->required();
    figures->add_option("UNCERTAINTY", a.uncertainty, "Its uncertainty, above 0")->required();
    figures->add_flag("--scientific", a.scientific, "In exponent form");
    figures->callback(
        [&a] { a.verb = [&a] { return Figures(a.value, a.uncertainty, a.scientific); }; });
    figures->footer(
        "One line of value<TAB>uncertainty: the uncertainty has one significant figure, and the\n"
        "value ends at the same place. Write -- before VALUE when it begins with a minus and a\n"
        "point. Exit 1: the uncertainty is not above 0, or a number has nothing but zeros in its\n"
        "first 20 decimals.");

    CLI::App* guid = app.add_subcommand("guid", "Print a new GUID");
    guid->callback([&a] { a.verb = Guid; });
    guid->footer("36 characters in lower case, without braces.");
}

void AddDoctor(CLI::App& app, Arguments& a) {
    CLI::App* doctor = app.add_subcommand("doctor", "Tell why a module loads or does not");
    doctor->add_option("MODULE", a.value, "A module's path, or a name that is searched for")
        ->required();
    doctor->add_option("--dir", a.directories, "A search directory; once for each")
        ->allow_extra_args(false);
    doctor->add_flag("--json", a.json, "As JSON, for programs");
    doctor->callback([&a] { a.verb = [&a] { return Doctor(a.value, a.directories, a.json); }; });
    doctor->footer(
        "A tree of what the module needs, with what is missing or wrong; the folders that are\n"
        "searched, in order; what the system says; and the cause, as the last line. The module is\n"
        "really loaded, as a host would load it with LoadModule, and released: its start routine\n"
        "runs. This program's folder and its loaded modules stand in for the host's.\n"
        "Exit 1: it does not load, or something in it is wrong.\n"
        "Examples:\n"
        "  tevsys doctor C:\\Kit\\plugins\\sensor.dll --dir C:\\Kit\\lib\n"
        "  tevsys doctor kernel32");
}

void AddVerbs(CLI::App& app, Arguments& arguments) {
    Arguments& a = arguments;
    CLI::App* get = app.add_subcommand("get", "Print the value of one property");
    get->add_option("KEY", a.key, "Key of a property, or name of an environment variable")
        ->required();
    get->callback([&a] { a.verb = [&a] { return Get(a.key); }; });
    get->footer("Asked in this order: user file, system file, environment. Exit 1: not found.");

    CLI::App* list = app.add_subcommand("list", "Print every property of the store");
    list->callback([&a] { a.verb = List; });
    list->footer(
        "Lines of table<TAB>key<TAB>value, sorted; the table is system or user. Values have their\n"
        "references expanded; well-known keys of the system file have valid values.");

    CLI::App* set = app.add_subcommand("set", "Set a user property and save the user file");
    set->add_option("KEY", a.key, "Key of the property")->required();
    set->add_option("VALUE", a.value, "Its new value")->required();
    set->callback([&a] { a.verb = [&a] { return Set(a.key, a.value); }; });
    set->footer(
        "The user file must exist. Its comments are lost and its references are saved expanded.\n"
        "Write -- before KEY when the value begins with -. Exit 1: not saved.");

    CLI::App* env =
        app.add_subcommand("env", "Print the environment after the system file's directives");
    env->callback([&a] { a.verb = Env; });
    env->footer("Lines of name=value, sorted.");

    CLI::App* where =
        app.add_subcommand("where", "Print where programs, toolkit and documents are");
    where->callback([&a] { a.verb = Where; });
    where->footer(
        "Lines of name<TAB>folder<TAB>how; the folder is - when it was not found.\n"
        "  exe        this program\n"
        "  program    the framework, by a loaded module: Plinth.dll, SensorSupportDataLib.dll or\n"
        "             MeasureKitLib.dll; tevsys loads none, so only a host finds it\n"
        "  toolkit    by KPT_DATA_DIR, else CSM_PLUGIN_DIR, after the system file's directives\n"
        "  documents  the user's Documents folder");

    CLI::App* demo = app.add_subcommand("demo", "Print what a host sees, for people to read");
    demo->callback([&a] { a.verb = Demo; });
    demo->footer("Folders and files, properties, environment before and after, switches.");

    AddPlainVerbs(app, a);
    AddDoctor(app, a);
}

std::string WhatIsWrong(const CLI::App& app, const CLI::ParseError& error) {
    if (!app.get_subcommands().empty()) return error.what();
    const auto words = app.remaining();
    return words.empty() ? "a verb is required" : "there is no verb " + words.front();
}

ExitCode Run(int argc, char** argv) {
    CLI::App app{"Shows and changes the configuration that TEVSystemLib gives to its hosts.",
                 "tevsys"};
    app.allow_windows_style_options(false);  // "/data" is a value
    app.require_subcommand(1);
    app.footer(
        "TEV_SYS_CONFIG_DIR and TEV_USER_CONFIG_DIR name the folders of the two files.\n"
        "Exit codes: 0 done or found, 1 not found or failed, 2 wrong usage.");
    Arguments arguments;
    AddVerbs(app, arguments);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& help) {
        app.exit(help, std::cout, std::cerr);
        return kDone;
    } catch (const CLI::ParseError& error) {
        return Fail(kUsage, WhatIsWrong(app, error) + "; tevsys --help tells the usage");
    }
    return arguments.verb();
}

}  // namespace

int main(int argc, char** argv) try {
    // Lines end with LF only, for scripts.
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    const ExitCode code = Run(argc, argv);
    return std::cout.flush() ? code : Fail(kFailed, "could not write the output");
} catch (const std::exception& error) {
    return Fail(kFailed, error.what());
}
