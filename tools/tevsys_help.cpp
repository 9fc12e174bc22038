#include "tools/tevsys_help.h"

#include <algorithm>
#include <iterator>

namespace tevsys {

namespace {

struct Page {
    const char* verb;
    const char* description;
    const char* exits;
    const char* examples;
};

constexpr char kOnlyDone[] = "  0  done\n  2  wrong usage\n";

constexpr Page kPages[] = {
    {"get", "  Asked in this order: user file, system file, environment.\n",
     "  0  found\n  1  not found\n  2  wrong usage\n",
     "  tevsys get tev.log.level\n"
     "  tevsys get PATH\n"
     "  tevsys get no.such.key  # 1\n"},
    {"list",
     "  Lines of table<TAB>key<TAB>value, sorted; the table is system or user. Values have their\n"
     "  references expanded; well-known keys of the system file have valid values.\n",
     kOnlyDone, "  tevsys list\n"},
    {"explain",
     "  Tells of a property: what supplies it, with file and line; the text as it was written, "
     "and\n"
     "  where each of its references leads; whether a well-known key was put right; what gives "
     "way\n"
     "  to it. Files and environment are read as a program that starts now would read them.\n"
     "  A variable that a reference has copied into the store keeps the value from before the\n"
     "  directives: cached environment.\n",
     "  0  found\n  1  not found\n  2  wrong usage\n",
     "  tevsys explain tev.log.level\n"
     "  tevsys explain --all --redact '*password*'\n"
     "  tevsys explain demo.title --json\n"
     "  tevsys explain no.such.key  # 1\n"},
    {"check",
     "  Tells what is odd in properties files, as file:line: severity: text [id]: lines that add\n"
     "  nothing, keys written twice, unknown keys that begin with tev., values that are put "
     "right,\n"
     "  references that lead nowhere or are put in unexpanded, directives that are ignored.\n"
     "  Without FILE it reads the two files that the store finds, and says on standard error\n"
     "  which one was not found. A file named tev.user.properties is taken for a user file, any\n"
     "  other for a system file; its references may lead to the other file, the one that the\n"
     "  store finds. A note is no finding.\n",
     "  0  nothing found but notes\n  1  findings\n  2  wrong usage, or a file cannot be read\n",
     "  tevsys check  # 1\n"
     "  tevsys check system/tev.system.properties --json  # 1\n"
     "  tevsys check clean/tev.system.properties\n"
     "  tevsys check no/such/file  # 2\n"},
    {"doctor",
     "  Tells why a module loads or does not: a tree of what it needs, with what is missing or\n"
     "  wrong; the folders that are searched, in order; what the system says; and the cause, as "
     "the\n"
     "  last line. The module is really loaded, as a host would load it with LoadModule, and\n"
     "  released: its start routine runs, and one that ends the process ends tevsys. This "
     "program's\n"
     "  folder and its loaded modules stand in for the host's.\n",
     "  0  it loads\n  1  it does not load, or something in it is wrong\n  2  wrong usage\n",
     "  tevsys doctor kernel32\n"
     "  tevsys doctor kernel32 --json\n"
     "  tevsys doctor no-such-module --dir system  # 1\n"},
    {"set",
     "  The value of the key's line is replaced, or a line is added at the end; comments, order "
     "and\n"
     "  all other lines stay as they are. The new text is written beside the file and takes its\n"
     "  place at once: when anything fails, the old file is still there. The user file must "
     "exist.\n"
     "  Write -- before KEY when the value begins with -. When check finds something in the new\n"
     "  line, it is told as a warning.\n",
     "  0  set\n  1  not set\n  2  wrong usage, or what a line cannot hold\n",
     "  tevsys set demo.theme grey\n"
     "  tevsys set -- demo.offset -5\n"
     "  tevsys set '#demo' x  # 2\n"},
    {"env",
     "  Lines of name=value, sorted. With --dry-run no directive is executed: each is shown in "
     "the\n"
     "  order of execution, with its variable before and after, or with the reason why it changes\n"
     "  nothing.\n",
     "  0  done\n  1  with --dry-run: a directive is ignored or refused\n  2  wrong usage\n",
     "  tevsys env\n"
     "  tevsys env --json --redact PATH\n"
     "  tevsys env --dry-run  # 1\n"
     "  tevsys env --dry-run --json --redact 'DEMO_*'  # 1\n"},
    {"run",
     "  Starts a program as a host would: in this environment, changed by the system file's\n"
     "  directives. It is searched for in the folder of tevsys, the current folder, the system's\n"
     "  folders and those of PATH. All behind its name is its own; write -- before PROGRAM when\n"
     "  its name begins with -. The arguments of a batch file are read by cmd, to which\n"
     "  & | < > ^ % , ; = are more than text.\n",
     "  The program's own; 127 when it cannot be started, 2 for wrong usage.\n",
     "  tevsys run -- tevsys get demo.title\n"
     "  tevsys run tevsys explain demo.title --json\n"
     "  tevsys run -- cmd /c exit 3  # 3\n"
     "  tevsys run -- no-such-program  # 127\n"},
    {"where",
     "  Lines of name<TAB>folder<TAB>how; the folder is - when it was not found.\n"
     "    exe        this program\n"
     "    program    the framework, by a loaded module: Plinth.dll, SensorSupportDataLib.dll or\n"
     "               MeasureKitLib.dll; tevsys loads none, so only a host finds it\n"
     "    toolkit    by KPT_DATA_DIR, else CSM_PLUGIN_DIR, after the system file's directives\n"
     "    documents  the user's Documents folder\n",
     kOnlyDone, "  tevsys where\n"},
    {"demo", "  Folders and files, properties, environment before and after, switches.\n",
     kOnlyDone, "  tevsys demo\n"},
    {"figures",
     "  One line of value<TAB>uncertainty: the uncertainty has one significant figure, and the\n"
     "  value ends at the same place. Write -- before VALUE when it begins with a minus and a\n"
     "  point.\n",
     "  0  done\n"
     "  1  the uncertainty is not above 0, or a number has nothing but zeros in its first 20\n"
     "     decimals\n"
     "  2  wrong usage, or no decimal number\n",
     "  tevsys figures 123.456 0.0234\n"
     "  tevsys figures --scientific 123.456 0.0234\n"
     "  tevsys figures 1 0  # 1\n"},
    {"guid", "  36 characters in lower case, without braces.\n",
     "  0  done\n  1  the system made none\n  2  wrong usage\n", "  tevsys guid\n"},
    {"",
     "  TEV_SYS_CONFIG_DIR and TEV_USER_CONFIG_DIR name the folders of the two files. Arguments "
     "and\n"
     "  output are UTF-8. On a terminal some words are coloured, unless NO_COLOR is set.\n"
     "  --redact PATTERN hides the values of the properties and variables of that name, wherever\n"
     "  they occur; * stands for any text, ? for a character, and it may be repeated.\n",
     "Exit codes: 0 done or found, 1 not found, findings or failed, 2 wrong usage; run has those "
     "of\n"
     "the program.\n",
     "  tevsys --help\n"
     "  tevsys explain --help\n"}};

}  // namespace

std::string Manual(const std::string& verb) {
    const auto* page = std::find_if(std::begin(kPages), std::end(kPages),
                                    [&](const Page& candidate) { return candidate.verb == verb; });
    if (page == std::end(kPages)) return {};
    return std::string("DESCRIPTION\n") + page->description + "\nEXIT STATUS\n" + page->exits +
           "\nEXAMPLES\n" + page->examples;
}

}  // namespace tevsys
