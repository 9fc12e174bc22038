#include "TEVSystemLib/system/detail/ModuleTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "TEVSystemLib/system/detail/ModuleFault.h"
#include "support/PeFile.h"

namespace {

using namespace TAMO::TEV::System::detail;
using TAMO::TEV::System::TEVSystemDiagnostics;
using tev::test::PeDescription;
using tev::test::PeFile;

using Module = TEVSystemDiagnostics::Module;
using Problem = TEVSystemDiagnostics::LoadProblem;
using State = TEVSystemDiagnostics::ModuleState;

// Modules by name; a file has the name of its module, behind "S:\" if it is the system's.
class Modules {
 public:
    Modules& Add(const std::string& name, const PeDescription& description) {
        return AddFile(name, PeFile(description));
    }
    Modules& AddFile(const std::string& name, const std::string& content) {
        files_["C:\\" + name] = content;
        return *this;
    }
    Modules& AddSystem(const std::string& name, const PeDescription& description) {
        files_["S:\\" + name] = PeFile(description);
        return *this;
    }
    Module Tree(const std::string& root) const {
        return MakeModuleTree(root, {[this](const std::string& name) { return Find(name); },
                                     [this](const std::string& file) -> std::optional<std::string> {
                                         if (file.substr(3) == "locked.dll") return std::nullopt;
                                         return files_.at(file);
                                     }});
    }

 private:
    std::optional<ModulePlace> Find(const std::string& name) const {
        if (name == "contract") return ModulePlace{"", true};
        for (const char* drive : {"C:\\", "S:\\"})
            if (files_.count(drive + name) != 0) return PlaceOf(drive + name);
        return std::nullopt;
    }

    static ModulePlace PlaceOf(const std::string& file) {
        ModulePlace place;
        place.file = file;
        if (file[0] == 'S') place.isOfTheSystem = true;
        return place;
    }

    std::map<std::string, std::string> files_;
};

PeDescription Needing(const std::vector<tev::test::PeNeed>& needs) { return {needs, {}}; }

// "name state" of every module of the tree, deeper ones behind ">".
std::string Shown(const Module& module) {
    std::string text = module.name + ' ' + std::to_string(static_cast<int>(module.state));
    for (const auto& function : module.missingFunctions)
        text +=
            " -" + function.name + (function.forwarder.empty() ? "" : "->") + function.forwarder;
    for (const Module& import : module.imports) text += " >(" + Shown(import) + ')';
    return text;
}

std::string CulpritOf(const Module& root) {
    const ModuleFault fault = FirstFault(root);
    return fault.culprit == nullptr ? "none" : fault.culprit->name;
}

TEST(MakeModuleTree, DependencyMissingTwoLevelsDown) {
    Modules modules;
    modules.Add("outer", Needing({{"middle", {}}})).Add("middle", Needing({{"inner", {"F"}}}));
    const Module root = modules.Tree("outer");
    EXPECT_EQ(Shown(root), "outer 0 >(middle 0 >(inner 4))");
    EXPECT_EQ(root.imports[0].file, "C:\\middle");
    const ModuleFault fault = FirstFault(root);
    EXPECT_EQ(fault.problem, Problem::ModuleMissing);
    EXPECT_EQ(fault.culprit->name, "inner");
    EXPECT_EQ(fault.parent->name, "middle");
}

TEST(MakeModuleTree, RootMayBeMissing) {
    const Module root = Modules().Tree("outer");
    EXPECT_EQ(Shown(root), "outer 4");
    EXPECT_EQ(FirstFault(root).problem, Problem::ModuleMissing);
    EXPECT_EQ(FirstFault(root).parent, nullptr);
}

TEST(MakeModuleTree, CyclesEnd) {
    Modules modules;
    modules.Add("a", Needing({{"b", {}}, {"a", {}}})).Add("b", Needing({{"A", {}}, {"a", {}}}));
    EXPECT_EQ(Shown(modules.Tree("a")), "a 0 >(b 0 >(A 2) >(a 2)) >(a 2)");
}

TEST(MakeModuleTree, NamesFunctionsThatAreMissing) {
    Modules modules;
    modules.Add("root", Needing({{"lib", {"There", "Gone", "#5", "#99", "Far", "Lost", "Away"}}}))
        .Add("lib", {{},
                     {{"There", ""},
                      {"Far", "other.There"},
                      {"Lost", "other.Gone"},
                      {"Away", "nowhere.There"}}})
        .Add("other.dll", {{}, {{"There", ""}}});
    const Module root = modules.Tree("root");
    EXPECT_EQ(Shown(root), "root 0 >(lib 0 -Gone -#99 -Lost->other.Gone -Away->nowhere.There)");
    EXPECT_EQ(FirstFault(root).problem, Problem::FunctionMissing);
    EXPECT_EQ(FirstFault(root).parent->name, "root");
}

TEST(MakeModuleTree, ForwardersThatNeverArriveAreMissing) {
    Modules modules;
    modules.Add("root", Needing({{"a.dll", {"Round", "Bad", "Text", "Number"}}}))
        .Add("a.dll",
             {{},
              {{"Round", "b.Round"}, {"Bad", "nothing"}, {"Text", "text.F"}, {"Number", "b.#5"}}})
        .Add("b.dll", {{}, {{"Round", "a.Round"}}})
        .AddFile("text.dll", "text");
    EXPECT_EQ(Shown(modules.Tree("root")),
              "root 0 >(a.dll 0 -Round->b.Round -Bad->nothing -Text->text.F -Number->b.#5)");
}

TEST(MakeModuleTree, SystemModulesAreNotFollowed) {
    Modules modules;
    modules
        .Add("root", Needing({{"kernel", {"There", "Sent", "Gone"}},
                              {"contract", {"Any"}},
                              {"standin", {"Any"}},
                              {"lib.dll", {"ToKernel", "ToNowhere", "ToStandIn", "ToSent"}}}))
        .AddSystem("kernel", {{{"nowhere", {}}}, {{"There", ""}, {"Sent", "nowhere.F"}}})
        .AddSystem("standin", {})
        .AddSystem("kernel.dll", {{}, {{"There", ""}, {"Sent", "nowhere.F"}}})
        .AddSystem("standin.dll", {})
        .Add("lib.dll", {{},
                         {{"ToKernel", "kernel.There"},
                          {"ToNowhere", "kernel.Gone"},
                          {"ToStandIn", "standin.Any"},
                          {"ToSent", "kernel.Sent"}}});
    EXPECT_EQ(Shown(modules.Tree("root")),
              "root 0 >(kernel 1 -Gone) >(contract 1) >(standin 1) "
              ">(lib.dll 0 -ToNowhere->kernel.Gone)");
}

TEST(MakeModuleTree, TellsWhatIsWrongWithAFile) {
    Modules modules;
    modules
        .Add("root",
             Needing(
                 {{"text", {"F"}}, {"x86", {"F"}}, {"arm", {}}, {"old", {}}, {"locked.dll", {}}}))
        .AddFile("text", "text")
        .Add("x86", {{}, {}, tev::test::kPeX86})
        .Add("arm", {{}, {}, 0xAA64})
        .Add("old", {{}, {}, 0x184})
        .AddFile("locked.dll", "");
    const Module root = modules.Tree("root");
    EXPECT_EQ(Shown(root), "root 0 >(text 6) >(x86 7) >(arm 7) >(old 7) >(locked.dll 5)");
    EXPECT_EQ(root.imports[0].flaw, "it does not begin as a module does");
    EXPECT_EQ(root.imports[1].flaw, "32-bit x86");
    EXPECT_EQ(root.imports[2].flaw, "64-bit ARM");
    EXPECT_EQ(root.imports[3].flaw, "the machine number 388");
    EXPECT_EQ(FirstFault(root.imports[1]).problem, Problem::OtherMachine);
    EXPECT_EQ(FirstFault(root.imports[4]).problem, Problem::NotAModule);
    EXPECT_EQ(FirstFault(root).culprit, &root.imports[0]);
}

TEST(MakeModuleTree, NamesEveryFlawAndMachine) {
    std::string otherForm = PeFile({});
    tev::test::PutNumber(otherForm, 0x58, 0x107, 2);
    const struct {
        std::string content;
        State state;
        const char* flaw;
    } rows[] = {
        {"", State::NotAModule, "it is empty"},
        {"text", State::NotAModule, "it does not begin as a module does"},
        {"MZ", State::NotAModule, "it ends before what its headers announce"},
        {tev::test::PeAround("body", {0, 0, 0xFFFFFFF0, 0}), State::NotAModule,
         "its tables of imports and exports are damaged"},
        {otherForm, State::NotAModule, "its header has an unknown form"},
        {PeFile({{}, {}, tev::test::kPeX86}), State::OtherMachine, "32-bit x86"},
        {PeFile({{}, {}, 0x1C0}), State::OtherMachine, "32-bit ARM"},
        {PeFile({{}, {}, 0x1C4}), State::OtherMachine, "32-bit ARM"},
        {PeFile({{}, {}, 0xAA64}), State::OtherMachine, "64-bit ARM"},
        {PeFile({{}, {}, 0x184}), State::OtherMachine, "the machine number 388"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.flaw);
        const Module root = Modules().AddFile("root", row.content).Tree("root");
        EXPECT_EQ(root.state, row.state);
        EXPECT_EQ(root.flaw, row.flaw);
    }
}

TEST(MakeModuleTree, SystemModuleThatCannotBeReadStaysTheSystems) {
    Modules modules;
    modules.Add("root", Needing({{"locked.dll", {"F"}}})).AddSystem("locked.dll", {});
    EXPECT_EQ(Shown(modules.Tree("root")), "root 0 >(locked.dll 1)");
}

TEST(MakeModuleTree, DelayedModulesOfTheSystemAreTheSystems) {
    Modules modules;
    modules.Add("root", Needing({{"kernel", {"There", "Gone"}, true}, {"contract", {"Any"}, true}}))
        .AddSystem("kernel", {{}, {{"There", ""}}});
    EXPECT_EQ(Shown(modules.Tree("root")), "root 0 >(kernel 1 -Gone) >(contract 1)");
}

TEST(MakeModuleTree, DelayedModulesStopNoLoad) {
    Modules modules;
    modules
        .Add("root", Needing({{"gone", {"F"}, true}, {"lib", {"Gone"}, true}, {"text", {}, true}}))
        .Add("lib", Needing({{"gone", {}}}))
        .AddFile("text", "text");
    const Module root = modules.Tree("root");
    EXPECT_EQ(Shown(root), "root 0 >(gone 4) >(lib 0 -Gone) >(text 6)");
    EXPECT_TRUE(root.imports[0].isDelayed);
    EXPECT_EQ(CulpritOf(root), "none");
}

// "name state file flaw", and "delayed" where it is.
std::string Node(const Module& module) {
    return module.name + ' ' + std::to_string(static_cast<int>(module.state)) + ' ' + module.file +
           ' ' + module.flaw + (module.isDelayed ? " delayed" : "");
}

TEST(MakeModuleTree, TellsAllAboutAModule) {
    const std::string locked = "locked.dll";
    Modules modules;
    modules.Add("lib", {})
        .AddFile("text", "text")
        .Add("x86", {{}, {}, tev::test::kPeX86})
        .AddFile(locked, "")
        .AddSystem("kernel", {})
        .AddSystem("broken", {{}, {}, 0xAA64});
    const struct {
        const char *name, *node;
    } rows[] = {
        {"lib", "lib 0 C:\\lib "},
        {"text", "text 6 C:\\text it does not begin as a module does"},
        {"x86", "x86 7 C:\\x86 32-bit x86"},
        {"locked.dll", "locked.dll 5 C:\\locked.dll "},
        {"kernel", "kernel 1 S:\\kernel "},
        {"broken", "broken 7 S:\\broken 64-bit ARM"},
        {"contract", "contract 1  "},
        {"gone", "gone 4  "},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Node(modules.Tree(row.name)), row.node);
        modules.Add("plain", Needing({{row.name, {}}}));
        modules.Add("lazy", Needing({{row.name, {}, true}}));
        EXPECT_EQ(Node(modules.Tree("plain").imports.at(0)), row.node);
        EXPECT_EQ(Node(modules.Tree("lazy").imports.at(0)), row.node + std::string(" delayed"));
    }
}

TEST(MakeModuleTree, SixteenForwardersAreTooMany) {
    const auto functionsOfChain = [](int forwards) {
        std::vector<tev::test::PeGives> functions;
        for (int i = 0; i < forwards; ++i)
            functions.push_back({"F" + std::to_string(i), "lib.F" + std::to_string(i + 1)});
        functions.push_back({"F" + std::to_string(forwards), ""});
        return functions;
    };
    for (const int forwards : {1, 15, 16}) {
        Modules modules;
        modules.Add("root", Needing({{"lib.dll", {"F0"}}}))
            .Add("lib.dll", {{}, functionsOfChain(forwards)});
        EXPECT_EQ(modules.Tree("root").imports[0].missingFunctions.empty(), forwards < 16)
            << forwards;
    }
}

TEST(MakeModuleTree, OnesThatNeedNothingMoreAreCalledSoAtAnyDepth) {
    Modules chain;
    for (int i = 0; i < 199; ++i)
        chain.Add(std::to_string(i), Needing({{std::to_string(i + 1), {}}}));
    chain.Add("199", Needing({{"0", {}}, {"kernel", {}}})).AddSystem("kernel", {});
    Module module = chain.Tree("0");
    while (module.name != "199") {
        Module next = module.imports.at(0);
        module = next;
    }
    EXPECT_EQ(Shown(module), "199 0 >(0 2) >(kernel 1)");
}

TEST(MakeModuleTree, FilesAreReadAndSoughtOnce) {
    std::map<std::string, int> sought;
    std::map<std::string, int> read;
    const std::string content = PeFile(Needing({{"lib", {}}, {"LIB", {"F"}}, {"lib", {}, true}}));
    const ModuleAccess access{[&sought](const std::string& name) {
                                  ++sought[name];
                                  return ModulePlace{"C:\\" + name, false};
                              },
                              [&](const std::string& file) {
                                  ++read[file];
                                  return std::optional(content);
                              }};
    MakeModuleTree("root", access);
    EXPECT_EQ(sought, (std::map<std::string, int>{{"lib", 1}, {"root", 1}}));
    EXPECT_EQ(read, (std::map<std::string, int>{{"C:\\lib", 1}, {"C:\\root", 1}}));
}

TEST(MakeModuleTree, LongChainsAndWideTreesEnd) {
    Modules chain;
    for (int i = 0; i < 300; ++i)
        chain.Add(std::to_string(i), Needing({{std::to_string(i + 1), {}}}));
    Module module = chain.Tree("0");
    int depth = 0;
    while (!module.imports.empty()) {
        Module next = module.imports[0];
        module = next;
        ++depth;
    }
    EXPECT_EQ(depth, 200);
    EXPECT_EQ(module.state, State::NotFollowed);

    Modules wide;
    const std::vector<tev::test::PeNeed> needs(4000, {"leaf", {}});
    wide.Add("leaf", {});
    for (const char* name : {"a", "b", "c", "d"}) wide.Add(name, Needing(needs));
    wide.Add("root", Needing({{"a", {}}, {"b", {}}, {"c", {}}, {"d", {}}}));
    const Module tree = wide.Tree("root");
    std::size_t count = 0;
    for (const Module& import : tree.imports) count += 1 + import.imports.size();
    EXPECT_EQ(count, 10000U);
    EXPECT_EQ(CulpritOf(tree), "none");
}

TEST(MakeModuleTree, LastModuleOfTheLargestTreeIsNotFollowed) {
    constexpr std::size_t kLeaves = 4000;
    // 10000 in all, with a, b and c and what they need.
    constexpr std::size_t kLeavesOfTheLast = 10000 - 3 - 2 * kLeaves - 1;
    std::vector<tev::test::PeNeed> needs(kLeavesOfTheLast, {"leaf", {}});
    needs.push_back({"last", {}});
    Modules modules;
    modules.Add("leaf", {}).Add("last", Needing({{"leaf", {}}})).Add("c", Needing(needs));
    for (const char* name : {"a", "b"})
        modules.Add(name, Needing(std::vector<tev::test::PeNeed>(kLeaves, {"leaf", {}})));
    const Module root =
        modules.Add("root", Needing({{"a", {}}, {"b", {}}, {"c", {}}})).Tree("root");
    ASSERT_EQ(root.imports[2].imports.size(), needs.size());
    EXPECT_EQ(Shown(root.imports[2].imports.back()), "last 3");
}

TEST(FirstFault, WhatAModuleNeedsComesBeforeItsFunctions) {
    Modules modules;
    modules.Add("root", Needing({{"lib", {"Gone"}}, {"gone", {}}}))
        .Add("lib", {{{"deep", {"Gone"}}}, {{"F", ""}}})
        .Add("deep", {{}, {{"F", ""}}});
    EXPECT_EQ(CulpritOf(modules.Tree("root")), "deep");
}

TEST(StartOrder, NeededOnesFirst) {
    Modules modules;
    modules
        .Add("root", Needing({{"a", {}}, {"kernel", {}}, {"b", {}}, {"gone", {}}, {"d", {}, true}}))
        .Add("a", Needing({{"c", {}}}))
        .Add("b", Needing({{"c", {}}}))
        .Add("c", {})
        .Add("d", {})
        .AddSystem("kernel", {});
    const Module root = modules.Tree("root");
    std::vector<std::string> names;
    for (const Module* module : StartOrder(root)) names.push_back(module->name);
    EXPECT_THAT(names, testing::ElementsAre("c", "a", "b", "root"));
}

TEST(WithModuleEnding, UnlessThereIsOne) {
    const char* const rows[][2] = {
        {"kernel32", "kernel32.dll"},
        {"a.dll", "a.dll"},
        {"a.ocx", "a.ocx"},
        {"a.", "a"},
        {"C:\\x.y\\module", "C:\\x.y\\module.dll"},
        {"C:/x.y/module", "C:/x.y/module.dll"},
        {"", ".dll"},
        {"C:\\", "C:\\.dll"},
        {"C:\\x.\\module", "C:\\x.\\module.dll"},
        {"C:\\.a", "C:\\.a"},
        {".a", ".a"},
        {"C:\\module.", "C:\\module"},
        {"a.b.", "a.b"},
    };
    for (const auto& row : rows) EXPECT_EQ(WithModuleEnding(row[0]), row[1]);
}

}  // namespace
