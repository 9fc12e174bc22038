#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "fixtures/HostProgram.h"
#include "fixtures/Modules.h"
#include "support/Environment.h"
#include "support/Folder.h"

namespace {

using ::testing::ElementsAre;
using tev::test::CopyModule;
using tev::test::CopyTo;
using tev::test::FileNameOf;
using tev::test::Fixture;
using tev::test::Folder;
using tev::test::FolderOf;
using tev::test::HostProgram;
using tev::test::ReadAll;
using tev::test::SystemVariable;
using tev::test::Variable;

constexpr char kSystemFile[] = "tev.system.properties";
constexpr char kUserFile[] = "tev.user.properties";

// Runs a fresh process of the host program, which finds its DLLs through PATH or beside itself.
class FreshProcess : public ::testing::Test {
 protected:
    // The lines that the steps print.
    static std::vector<std::string> Run(const std::vector<std::string>& steps,
                                        const std::string& program) {
        const Variable path(
            "PATH", FolderOf(FileNameOf(nullptr)) + ";" + SystemVariable("PATH").value_or(""));
        HostProgram host(program, steps);
        std::vector<std::string> lines;
        for (std::string line = host.ReadLine(); !line.empty(); line = host.ReadLine())
            lines.push_back(line);
        EXPECT_EQ(host.End(), 0U) << "the process ends well";
        return lines;
    }

    const Variable systemVariable_{"TEV_SYS_CONFIG_DIR"};
    const Variable userVariable_{"TEV_USER_CONFIG_DIR"};
    const Variable appDataVariable_{"APPDATA"};
};

// A system file that lets X grow by one letter with each initialisation tells how many there were.
class FirstUse : public FreshProcess {
 protected:
    FirstUse() {
        folder_.Write(kSystemFile, "a=on\ntev.env.new.1=X|%X%i\n");
        folder_.Write(kUserFile, "b=user\n");
        systemVariable_.Set(folder_.Path());
        userVariable_.Set(folder_.Path());
    }

    static std::vector<std::string> Run(const std::vector<std::string>& steps) {
        return FreshProcess::Run(steps, Fixture("tevhost/tevhost.exe"));
    }

    const Folder folder_;
    const Variable x_{"X", "x"};
};

TEST_F(FirstUse, NothingHappensBefore) { EXPECT_THAT(Run({"env:X"}), ElementsAre("x")); }

TEST_F(FirstUse, InitialisingFirstIsOneInitialisation) {
    EXPECT_THAT(Run({"init", "env:X"}), ElementsAre("xi"));
    EXPECT_THAT(Run({"init", "get:a", "env:X"}), ElementsAre("on", "xi"));
    EXPECT_THAT(Run({"init", "init", "env:X"}), ElementsAre("xii"));
}

TEST_F(FirstUse, LookingUpInitialises) {
    EXPECT_THAT(Run({"get:a", "env:X"}), ElementsAre("on", "xi"));
    EXPECT_THAT(Run({"bool:a", "env:X"}), ElementsAre("true", "xi"));
    EXPECT_THAT(Run({"get:absent", "get:a", "env:X"}), ElementsAre("absent", "on", "xi"));
    EXPECT_THAT(Run({"get:a", "init", "env:X"}), ElementsAre("on", "xii"));
}

TEST_F(FirstUse, SettingAndSavingInitialise) {
    EXPECT_THAT(Run({"set:c", "get:b", "get:c", "env:X"}), ElementsAre("user", "set", "xi"));
    EXPECT_THAT(Run({"save", "env:X"}), ElementsAre("saved", "xi"));
    EXPECT_EQ(ReadAll(folder_ / kUserFile).substr(0, 9), "b = user\n");
}

// The host program and the library beside it, in a folder of their own.
class OwnModuleFolder : public FreshProcess {
 protected:
    OwnModuleFolder() {
        CopyTo(program_, Fixture("tevhost/tevhost.exe"));
        CopyTo(bin_ / "TEVSystemLib.dll", FileNameOf(GetModuleHandleA("TEVSystemLib.dll")));
    }

    std::vector<std::string> Run(const std::vector<std::string>& steps) const {
        return FreshProcess::Run(steps, program_);
    }

    const Folder bin_;
    const std::string program_ = bin_ / "tevhost.exe";
};

TEST_F(OwnModuleFolder, IsTheThirdCandidate) {
    bin_.Write(kSystemFile, "a=own\n");
    EXPECT_THAT(Run({"get:a", "get:tev.sys.config.dir", "get:tev.system.properties"}),
                ElementsAre("own", bin_.Path() + "\\", bin_.Path() + "\\tev.system.properties"));
}

TEST_F(OwnModuleFolder, IsPassedOverWithoutTheFile) {
    EXPECT_THAT(Run({"get:a", "get:tev.system.properties"}),
                ElementsAre("absent", "tev.system.properties"));
}

TEST_F(OwnModuleFolder, ComesAfterThePlinthModule) {
    const Folder folder;
    const std::string plinth = CopyModule(folder, "Plinth");
    bin_.Write(kSystemFile, "a=own\n");
    EXPECT_THAT(Run({"load:" + plinth, "get:a"}), ElementsAre("loaded", "own"))
        << "no file beside Plinth.dll";
    folder.Write(kSystemFile, "a=plinth\n");
    EXPECT_THAT(Run({"load:" + plinth, "get:a", "get:tev.sys.config.dir"}),
                ElementsAre("loaded", "plinth", folder.Path() + "\\"));
}

TEST_F(OwnModuleFolder, ComesAfterTheVariable) {
    const Folder folder;
    folder.Write(kSystemFile, "a=variable\n");
    bin_.Write(kSystemFile, "a=own\n");
    systemVariable_.Set(folder.Path());
    EXPECT_THAT(Run({"get:a"}), ElementsAre("variable"));
}

}  // namespace
