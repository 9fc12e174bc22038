// Shows and changes what the programs of this machine see through TEVSystemLib.

#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <functional>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "tools/tevsys_check.h"
#include "tools/tevsys_console.h"
#include "tools/tevsys_demo.h"
#include "tools/tevsys_doctor.h"
#include "tools/tevsys_explain.h"
#include "tools/tevsys_figures.h"
#include "tools/tevsys_help.h"
#include "tools/tevsys_json.h"
#include "tools/tevsys_plan.h"
#include "tools/tevsys_redact.h"
#include "tools/tevsys_run.h"
#include "tools/tevsys_set.h"
#include "tools/tevsys_store.h"
#include "tools/tevsys_where.h"

namespace {

using TAMO::TEV::System::TEVSystemProperties;
using TAMO::TEV::System::Util::TEVUtilWindows;
using tevsys::Diagnostics;

using tevsys::ExitCode;
using tevsys::Fail;
using tevsys::kDone;
using tevsys::kFailed;
using tevsys::kUsage;
using tevsys::ToUtf8;

ExitCode Get(const std::string& key) {
    const char* value = nullptr;
    for (const std::string& spelling : tevsys::Spellings(key)) {
        if (!TEVSystemProperties::GetProperty(spelling.c_str(), value)) continue;
        std::cout << ToUtf8(value) << '\n';
        return kDone;
    }
    return Fail(kFailed, key + " is in no table and no environment variable");
}

ExitCode List() {
    for (const auto& [key, value] : tevsys::Store::System())
        std::cout << "system\t" << ToUtf8(key) << '\t' << ToUtf8(value) << '\n';
    for (const auto& [key, value] : tevsys::Store::User())
        std::cout << "user\t" << ToUtf8(key) << '\t' << ToUtf8(value) << '\n';
    return kDone;
}

ExitCode Env(const std::vector<std::string>& redacted, bool asJson) {
    const tevsys::Redactor redactor(redacted);
    TEVSystemProperties::InitializeProperties();
    tevsys::Json json = tevsys::Json::object();
    for (const auto& [name, value] : tevsys::EnvironmentVariables()) {
        const std::string shown = redactor.Value(name, value);
        if (asJson) {
            json[ToUtf8(name)] = shown;
        } else {
            std::cout << ToUtf8(name) << '=' << shown << '\n';
        }
    }
    if (asJson) tevsys::Write(std::cout, json);
    return kDone;
}

ExitCode ExplainAll(const tevsys::Redactor& redactor, bool asJson) {
    std::vector<Diagnostics::Explanation> all;
    if (!Diagnostics::ExplainProperties(all)) return Fail(kFailed, "there is not enough memory");
    if (asJson) {
        tevsys::WriteExplanations(std::cout, all, redactor);
        return kDone;
    }
    for (const auto& explanation : all) {
        if (&explanation != &all.front()) std::cout << '\n';
        tevsys::ShowExplanation(std::cout, explanation, redactor);
    }
    return kDone;
}

ExitCode Explain(const std::string& key, const std::vector<std::string>& redacted, bool asJson) {
    const tevsys::Redactor redactor(redacted);
    if (key.empty()) return ExplainAll(redactor, asJson);
    Diagnostics::Explanation explanation;
    for (const std::string& spelling : tevsys::Spellings(key)) {
        if (!Diagnostics::ExplainProperty(spelling.c_str(), explanation))
            return Fail(kFailed, "there is not enough memory");
        if (explanation.answer.layer != Diagnostics::Layer::None) break;
    }
    (asJson ? tevsys::WriteExplanation : tevsys::ShowExplanation)(std::cout, explanation, redactor);
    return explanation.answer.layer == Diagnostics::Layer::None ? kFailed : kDone;
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
    std::vector<std::string> words;
    std::vector<std::string> command;
    std::vector<std::string> files;
    std::vector<std::string> redacted;
    bool scientific = false;
    bool all = false;
    bool json = false;
    bool dryRun = false;
    std::function<int()> verb;
};

CLI::App* AddVerb(CLI::App& app, Arguments& a, const char* name, const char* summary,
                  std::function<int()> verb) {
    CLI::App* added = app.add_subcommand(name, summary);
    added->callback([&a, verb = std::move(verb)] { a.verb = verb; });
    added->footer(tevsys::Manual(name));
    return added;
}

void AddShowing(CLI::App* verb, Arguments& a) {
    verb->add_flag("--json", a.json, "As JSON, for programs");
    verb->add_option("--redact", a.redacted, "Hide the values of what has such a name")
        ->type_name("PATTERN")
        ->take_all()
        ->allow_extra_args(false);
}

// The verbs that work without the store.
void AddPlainVerbs(CLI::App& app, Arguments& a) {
    CLI::App* figures =
        AddVerb(app, a, "figures", "Print a measured value as its uncertainty allows",
                [&a] { return tevsys::Figures(a.value, a.uncertainty, a.scientific); });
    figures->add_option("VALUE", a.value, "The measured value, a decimal number")->required();
    figures->add_option("UNCERTAINTY", a.uncertainty, "Its uncertainty, above 0")->required();
    figures->add_flag("--scientific", a.scientific, "In exponent form");
    AddVerb(app, a, "guid", "Print a new GUID", Guid);
}

// The verbs that answer questions.
void AddAnswers(CLI::App& app, Arguments& a) {
    CLI::App* explain =
        AddVerb(app, a, "explain", "Tell where the value of a property comes from", [&a] {
            if (a.key.empty() && !a.all)
                return Fail(kUsage,
                            "KEY or --all is required; tevsys "
                            "explain --help tells the usage");
            return Explain(a.key, a.redacted, a.json);
        });
    CLI::Option* key = explain->add_option("KEY", a.key, "Key of a property or name of a variable")
                           ->check([](const std::string& text) {
                               return std::string(text.empty() ? "KEY is empty" : "");
                           });
    explain->add_flag("--all", a.all, "Every property of the store")->excludes(key);
    AddShowing(explain, a);

    CLI::App* check = AddVerb(app, a, "check", "Tell what is odd in properties files", [&a] {
        // What stands behind -- is left to the parser.
        a.files.insert(a.files.end(), a.words.begin(), a.words.end());
        return tevsys::Check(a.files, a.redacted, a.json);
    });
    check->add_option("FILE", a.words, "Properties files; none for those that the store finds");
    AddShowing(check, a);

    CLI::App* doctor = AddVerb(app, a, "doctor", "Tell why a module loads or does not",
                               [&a] { return tevsys::Doctor(a.value, a.words, a.json); });
    doctor->add_option("MODULE", a.value, "A module's path, or a name to search for")->required();
    doctor->add_option("--dir", a.words, "A search directory; once for each")
        ->allow_extra_args(false);
    doctor->add_flag("--json", a.json, "As JSON, for programs");
}

void AddVerbs(CLI::App& app, Arguments& a) {
    AddVerb(app, a, "get", "Print the value of one property", [&a] { return Get(a.key); })
        ->add_option("KEY", a.key, "Key of a property, or name of an environment variable")
        ->required();
    AddVerb(app, a, "list", "Print every property of the store", List);
    AddAnswers(app, a);

    CLI::App* set = AddVerb(app, a, "set", "Set a user property and save the user file",
                            [&a] { return tevsys::Set(a.key, a.value); });
    set->add_option("KEY", a.key, "Key of the property")->required();
    set->add_option("VALUE", a.value, "Its new value")->required();

    CLI::App* env = AddVerb(
        app, a, "env", "Print the environment after the system file's directives",
        [&a] { return a.dryRun ? tevsys::ShowPlan(a.redacted, a.json) : Env(a.redacted, a.json); });
    env->add_flag("--dry-run", a.dryRun, "Print what the directives would do instead");
    AddShowing(env, a);
    AddVerb(app, a, "run", "Run a program in the environment that the directives prepare", [&a] {
        if (a.command.empty() || a.command.front().empty())
            return static_cast<int>(
                Fail(kUsage, "COMMAND is required; tevsys run --help tells the usage"));
        return tevsys::RunProgram(a.command);
    })->add_option("COMMAND", a.words, "The program and its arguments, behind --");

    AddVerb(app, a, "where", "Print where programs, toolkit and documents are", Where);
    AddVerb(app, a, "demo", "Print what a host sees, for people to read", Demo);
    AddPlainVerbs(app, a);
}

std::string WhatIsWrong(const CLI::App& app, const CLI::ParseError& error) {
    if (!app.get_subcommands().empty()) return error.what();
    const auto words = app.remaining();
    return words.empty() ? "a verb is required" : "there is no verb " + words.front();
}

// Takes the program and its arguments off the words for the verb run: nothing in them is for this
// program, nor for the parser, which takes brackets apart.
std::vector<std::string> TakeCommand(std::vector<std::string>& words) {
    if (words.size() < 2 || words[1] != "run") return {};
    const auto start = std::find_if(words.begin() + 2, words.end(), [](const std::string& word) {
        return word.empty() || word.front() != '-' || word == "--";
    });
    const bool isMarked = start != words.end() && *start == "--";
    std::vector<std::string> command(start + (isMarked ? 1 : 0), words.end());
    words.erase(start, words.end());
    return command;
}

// Takes the files off the words for the verb check, for the same reason.
std::vector<std::string> TakeFiles(std::vector<std::string>& words) {
    if (words.size() < 2 || words[1] != "check") return {};
    std::vector<std::string> files;
    for (auto at = words.begin() + 2; at != words.end();) {
        const bool isOption = !at->empty() && at->front() == '-';
        const auto next = at + 1;
        if (isOption) {
            at = *at == "--redact" && next != words.end() ? next + 1 : next;
        } else {
            files.push_back(*at);
            at = words.erase(at);
        }
    }
    return files;
}

int Run(std::vector<std::string> words) {
    CLI::App app{"Shows and changes the configuration that TEVSystemLib gives to its hosts.",
                 "tevsys"};
    app.allow_windows_style_options(false);  // "/data" is a value
    app.require_subcommand(1);
    app.footer(tevsys::Manual(""));
    Arguments arguments;
    arguments.command = TakeCommand(words);
    arguments.files = TakeFiles(words);
    AddVerbs(app, arguments);
    try {
        app.parse(std::vector<std::string>(words.rbegin(), words.rend() - 1));
    } catch (const CLI::CallForHelp& help) {
        app.exit(help, std::cout, std::cerr);
        return kDone;
    } catch (const CLI::ParseError& error) {
        return Fail(kUsage, WhatIsWrong(app, error) + "; tevsys --help tells the usage");
    }
    return arguments.verb();
}

}  // namespace

int main() try {
    const tevsys::Output output;
    const int code = Run(tevsys::Utf8Arguments());
    return std::cout.flush() ? code : Fail(kFailed, "could not write the output");
} catch (const std::exception& error) {
    return Fail(kFailed, error.what());
}
