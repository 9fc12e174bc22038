#include "TEVSystemLib/system/detail/TableLoad.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace TAMO::TEV::System::detail;

// Tells of each call, and throws in the one it is told.
class World final : public LoadWorld {
 public:
    World(std::string userFolder, std::string failing)
        : userFolder_(std::move(userFolder)), failing_(std::move(failing)) {}

    FilePlace FindSystemFile() override {
        Enter("find system");
        return SystemFileIn("S/");
    }
    FilePlace FindUserFile() override {
        Enter("find user");
        return UserFileIn(userFolder_);
    }
    Properties Read(const FilePlace& file) override {
        Enter("read " + file.Path());
        if (file.Path() == "S/tev.system.properties")
            return {{"s", "%S%"}, {"tev.log.level", "x"}, {"tev.sys.config.dir", "y"}};
        return {{"u", "%U% 50%"}, {"plain", "1"}};
    }
    const std::string* Resolve(const Properties& table, const std::string& key,
                               const std::string& name) override {
        Enter("resolve " + key + " " + name);
        return table.count(key) == 0 ? nullptr : &value_;
    }
    void ExecuteDirectives(const Properties& system) override {
        Enter("execute " + (system.count("tev.log.level") == 0 ? "-" : system.at("tev.log.level")));
    }
    void StepFailed() override {
        calls_ += "failed; ";
        if (isStrict) throw;
    }

    const std::string& Calls() const { return calls_; }

    // No step may fail.
    bool isStrict = false;

 private:
    void Enter(const std::string& call) {
        calls_ += call + "; ";
        if (call == failing_) throw std::runtime_error(call);
    }

    std::string userFolder_;
    std::string failing_;
    std::string calls_;
    std::string value_ = "v";
};

std::string Text(const Properties& table) {
    std::string text;
    for (const auto& [key, value] : table) text += key + "=" + value + "; ";
    return text;
}

constexpr char kSystem[] =
    "s=v; tev.log.level=DEBUG; tev.sys.config.dir=S/; "
    "tev.system.properties=S/tev.system.properties; ";
constexpr char kUser[] =
    "plain=1; tev.user.config.dir=U/; tev.user.properties=U/tev.user.properties; u=v 50%; ";
constexpr char kAllCalls[] =
    "find system; read S/tev.system.properties; find user; read U/tev.user.properties; "
    "resolve s S; resolve u U; execute x; ";

TEST(LoadTables, StepsFollowAnyStepThatFails) {
    const struct {
        const char *userFolder, *failing, *calls, *system, *user;
    } rows[] = {
        {"U/", "", kAllCalls, kSystem, kUser},
        {"", "", "find system; read S/tev.system.properties; find user; resolve s S; execute x; ",
         kSystem, ""},
        {"U/", "find system",
         "find system; failed; find user; read U/tev.user.properties; resolve u U; execute -; ", "",
         kUser},
        {"U/", "read S/tev.system.properties",
         "find system; read S/tev.system.properties; failed; find user; "
         "read U/tev.user.properties; resolve u U; execute -; ",
         "", kUser},
        {"U/", "find user",
         "find system; read S/tev.system.properties; find user; failed; resolve s S; execute x; ",
         kSystem, ""},
        {"U/", "execute x",
         "find system; read S/tev.system.properties; find user; read U/tev.user.properties; "
         "resolve s S; resolve u U; execute x; failed; ",
         kSystem, kUser},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.calls);
        Properties system{{"old", "1"}};
        Properties user{{"old", "1"}};
        World world(row.userFolder, row.failing);
        LoadTables({system, user}, world);
        EXPECT_EQ(world.Calls(), row.calls);
        EXPECT_EQ(Text(system), row.system);
        EXPECT_EQ(Text(user), row.user);
    }
}

TEST(LoadTables, StepThatMayNotFailEndsTheLoading) {
    const std::string calls = kAllCalls;
    for (const std::string failing :
         {"find system", "read S/tev.system.properties", "find user", "read U/tev.user.properties",
          "resolve s S", "resolve u U", "execute x"}) {
        Properties system;
        Properties user;
        World world("U/", failing);
        world.isStrict = true;
        EXPECT_THROW(LoadTables({system, user}, world), std::runtime_error) << failing;
        EXPECT_EQ(world.Calls(), calls.substr(0, calls.find(failing)) + failing + "; failed; ");
    }
}

TEST(IsNoted, HoldsForTheTwoKeysOfTheFile) {
    EXPECT_TRUE(IsNoted(SystemFileIn("S/"), "tev.sys.config.dir"));
    EXPECT_TRUE(IsNoted(SystemFileIn("S/"), "tev.system.properties"));
    EXPECT_FALSE(IsNoted(SystemFileIn("S/"), "tev.user.properties"));
    EXPECT_TRUE(IsNoted(UserFileIn("U/"), "tev.user.config.dir"));
    EXPECT_FALSE(IsNoted(UserFileIn("U/"), ""));
}

}  // namespace
