#include "TEVSystemLib/system/detail/LoadCause.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace TAMO::TEV::System::detail;
using TAMO::TEV::System::TEVSystemDiagnostics;

using Explanation = TEVSystemDiagnostics::LoadExplanation;
using Module = TEVSystemDiagnostics::Module;
using Problem = TEVSystemDiagnostics::LoadProblem;
using State = TEVSystemDiagnostics::ModuleState;

Module Named(const std::string& name, const std::string& file, State state = State::Found) {
    Module module;
    module.name = name;
    module.file = file;
    module.state = state;
    return module;
}

Module With(Module module, const std::string& flaw) {
    module.flaw = flaw;
    return module;
}

Module Lacking(std::vector<TEVSystemDiagnostics::MissingFunction> functions) {
    Module module = Named("lib.dll", "C:\\lib.dll");
    module.missingFunctions = std::move(functions);
    return module;
}

const Module kRoot = Named("C:\\root.dll", "C:\\root.dll");

std::string Cause(Problem problem, const Module& culprit, const Module* parent,
                  const std::string& onPath = {}, bool isLoaded = false) {
    Explanation explanation;
    explanation.name = parent == nullptr ? culprit.name : "C:\\root.dll";
    explanation.code = problem == Problem::StartRefused ? 1114 : 1;
    explanation.message = "A message.";
    explanation.onPath = onPath;
    explanation.isLoaded = isLoaded;
    ConcludeLoad({problem, &culprit, parent}, explanation);
    EXPECT_EQ(explanation.problem, problem);
    EXPECT_EQ(explanation.culprit, culprit.name);
    return explanation.cause;
}

TEST(ConcludeLoad, NamesTheCulpritBelow) {
    const struct {
        Problem problem;
        Module culprit;
        const char* cause;
    } rows[] = {
        {Problem::ModuleMissing, Named("lib.dll", "", State::Missing),
         "lib.dll, which root.dll needs, is in none of the folders searched."},
        {Problem::ModuleMissing, Named("D:\\lib.dll", "", State::Missing),
         "there is no file D:\\lib.dll."},
        {Problem::FunctionMissing, Lacking({{"F", ""}}),
         "root.dll asks lib.dll (C:\\lib.dll) for the function F, which it does not export."},
        {Problem::FunctionMissing, Lacking({{"F", ""}, {"G", ""}}),
         "root.dll asks lib.dll (C:\\lib.dll) for the function F, which it does not export, and "
         "for "
         "1 more."},
        {Problem::FunctionMissing, Lacking({{"#7", "x.F"}, {"G", ""}, {"H", ""}}),
         "root.dll asks lib.dll (C:\\lib.dll) for the function #7, which it forwards to x.F, where "
         "there is none, and for 2 more."},
        {Problem::NotAModule, With(Named("lib.dll", "C:\\lib.dll"), "it is empty"),
         "lib.dll (C:\\lib.dll), which root.dll needs, is not a module: it is empty."},
        {Problem::NotAModule, Named("lib.dll", "C:\\lib.dll", State::Unreadable),
         "lib.dll (C:\\lib.dll), which root.dll needs, cannot be read."},
        {Problem::OtherMachine, With(Named("lib.dll", "C:\\lib.dll"), "32-bit x86"),
         "lib.dll (C:\\lib.dll), which root.dll needs, is built for 32-bit x86, and this process "
         "for 64-bit x64."},
        {Problem::StartRefused, Named("lib.dll", "C:\\lib.dll"),
         "the start routine (DllMain) of lib.dll (C:\\lib.dll) refuses this process."},
        {Problem::Unexplained, Named("lib.dll", "C:\\lib.dll"),
         "nothing wrong is seen in the files; lib.dll (C:\\lib.dll) does not load by itself "
         "either; "
         "the system gives the code 1, A message."},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Cause(row.problem, row.culprit, &kRoot),
                  std::string("root.dll does not load: ") + row.cause);
}

TEST(ConcludeLoad, NamesTheModuleItself) {
    const struct {
        Problem problem;
        Module culprit;
        const char* cause;
    } rows[] = {
        {Problem::ModuleMissing, Named("root.dll", "", State::Missing),
         "it is in none of the folders searched."},
        {Problem::ModuleMissing, Named("C:\\root.dll", "", State::Missing),
         "there is no file C:\\root.dll."},
        {Problem::NotAModule, With(kRoot, "it is empty"), "it is not a module: it is empty."},
        {Problem::OtherMachine, With(kRoot, "64-bit ARM"),
         "it is built for 64-bit ARM, and this process for 64-bit x64."},
        {Problem::StartRefused, kRoot, "its start routine (DllMain) refuses this process."},
        {Problem::Unexplained, kRoot,
         "nothing wrong is seen in the files; the system gives the code 1, A message."},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Cause(row.problem, row.culprit, nullptr),
                  std::string("root.dll does not load: ") + row.cause);
}

TEST(ConcludeLoad, TellsThatPathIsNotConsulted) {
    EXPECT_EQ(Cause(Problem::ModuleMissing, Named("lib.dll", "", State::Missing), &kRoot,
                    "C:\\One\\lib.dll"),
              "root.dll does not load: lib.dll, which root.dll needs, is in none of the folders "
              "searched; it lies in C:\\One\\, a folder of PATH, but with search directories PATH "
              "is not consulted.");
}

TEST(ConcludeLoad, TellsThatTheFolderOfAModuleIsNotSearched) {
    const Module culprit = Named("lib.dll", "", State::Missing);
    Explanation explanation;
    explanation.name = kRoot.name;
    explanation.beside = "C:\\One\\lib.dll";
    ConcludeLoad({Problem::ModuleMissing, &culprit, &kRoot}, explanation);
    EXPECT_EQ(explanation.cause,
              "root.dll does not load: lib.dll, which root.dll needs, is in none of the folders "
              "searched; it lies beside root.dll in C:\\One\\, but the folder of a module is not "
              "searched for what it needs.");
}

TEST(ConcludeLoad, TellsOfAStartThatRaisesAnException) {
    Explanation explanation;
    explanation.name = kRoot.name;
    explanation.code = 0xE06D7363;
    ConcludeLoad({Problem::StartRefused, &kRoot, nullptr}, explanation);
    EXPECT_EQ(explanation.cause,
              "root.dll does not load: its start routine (DllMain) does not come to its end; the "
              "system gives the code 3765269347.");
    explanation.code = 998;
    explanation.message = "No access.";
    ConcludeLoad({Problem::StartRefused, &kRoot, nullptr}, explanation);
    EXPECT_EQ(explanation.cause,
              "root.dll does not load: its start routine (DllMain) does not come to its end; the "
              "system gives the code 998, No access.");
}

TEST(IsFailedStart, ByTheCode) {
    for (const unsigned long code : {998UL, 1001UL, 1114UL, 0xC0000005UL, 0xE06D7363UL})
        EXPECT_TRUE(IsFailedStart(code)) << code;
    for (const unsigned long code : {2UL, 5UL, 126UL, 127UL, 193UL, 14001UL, 65535UL})
        EXPECT_FALSE(IsFailedStart(code)) << code;
}

TEST(ConcludeLoad, LenientLoaderDoesNotHideAFault) {
    EXPECT_EQ(Cause(Problem::FunctionMissing, Lacking({{"F", ""}}), &kRoot, {}, true),
              "root.dll loads here, but not where the loader is strict: root.dll asks lib.dll "
              "(C:\\lib.dll) for the function F, which it does not export.");
}

TEST(ConcludeLoad, NameOfAFolderIsToldWhole) {
    EXPECT_EQ(Cause(Problem::ModuleMissing, Named("C:\\kit\\", "", State::Missing), nullptr),
              "C:\\kit\\ does not load: there is no file C:\\kit\\.");
}

TEST(ConcludeLoad, WithoutAFault) {
    Explanation explanation;
    explanation.name = "C:\\root.dll";
    explanation.isLoaded = true;
    ConcludeLoad({}, explanation);
    EXPECT_EQ(explanation.cause, "root.dll loads.");
    EXPECT_EQ(explanation.culprit, "");
    ConcludeLoad({Problem::EmptyName, nullptr, nullptr}, explanation);
    EXPECT_EQ(explanation.cause, "Nothing loads: the name is empty.");
}

}  // namespace
