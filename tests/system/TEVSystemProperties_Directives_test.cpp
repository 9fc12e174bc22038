#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

#include "system/StoreFixture.h"

namespace {

using ::testing::Optional;
using tev::test::Folder;
using tev::test::Store;
using tev::test::StoreFixture;
using tev::test::SystemVariable;
using tev::test::Variable;

using MaybeText = std::optional<const char*>;

// A system file, and what the variable X holds before and after it is loaded. In all texts <F> is
// an existing folder, with a folder bin and file.txt in it, written with backslashes, and <f> the
// same with slashes.
struct Row {
    const char* lines;
    MaybeText before, after;
};

class Directives : public StoreFixture {
 protected:
    Directives() {
        tools_.MakeFolder("bin");
        tools_.Write("file.txt", "not a folder");
    }

    std::string Fill(std::string text) const {
        std::string slashed = tools_.Path();
        std::replace(slashed.begin(), slashed.end(), '\\', '/');
        for (const auto& [mark, folder] : {std::pair("<F>", tools_.Path()), {"<f>", slashed}}) {
            for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark))
                text.replace(at, 3, folder);
        }
        return text;
    }

    std::optional<std::string> Fill(MaybeText text) const {
        if (!text) return std::nullopt;
        return Fill(std::string(*text));
    }

    template <std::size_t N>
    void Check(const Row (&rows)[N]) const {
        for (const Row& row : rows) {
            SCOPED_TRACE(std::string(row.lines) + " with X " + row.before.value_or("unset"));
            x_.Set(Fill(row.before));
            EXPECT_NO_THROW(Load(Fill(std::string(row.lines))));
            EXPECT_EQ(SystemVariable("X"), Fill(row.after));
        }
    }

    const Folder tools_;
    const Variable x_{"X"};
    const Variable y_{"Y"};
};

class DirectiveOrder : public Directives {};

TEST_F(Directives, AddAppendsAnElement) {
    Check({{"tev.env.add.1=X|b\n", "a", "a;b"},
           {"tev.env.add.1=X|b\n", "a;b", "a;b"},
           {"tev.env.add.1=X|B\n", "a;b;c", "a;b;c"},
           {"tev.env.add.1=X|b/c\n", "a", "a;b/c"},
           {"tev.env.add.1=X|b\n", "a; ;c", "a;c;b"},
           {"tev.env.add.1=X|b\ntev.env.add.2=X|c\n", "a", "a;b;c"}});
}

TEST_F(Directives, AddPathPutsAnExistingFolderInFront) {
    Check({{"tev.env.add.path.1=X|<f>\n", "a", "<F>;a"},
           {"tev.env.add.path.1=X|<F>\n", "a", "<F>;a"},
           {"tev.env.add.path.1=X|<f>/\n", "a", "<F>\\;a"},
           {"tev.env.add.path.1=X|<f>\n", "a;<F>", "a;<F>"},
           {"tev.env.add.path.1=X|<f>/missing\n", "a", "a"},
           {"tev.env.add.path.1=X|<f>/file.txt\n", "a", "a"},
           {"tev.env.add.path.1=X|<f>\ntev.env.add.path.2=X|<f>/bin\n", "a", "<F>\\bin;<F>;a"}});
}

TEST_F(Directives, AddNeverCreatesAVariable_Kept) {
    Check({{"tev.env.add.1=X|b\n", std::nullopt, std::nullopt},
           {"tev.env.add.path.1=X|<f>\n", std::nullopt, std::nullopt}});
}

TEST_F(Directives, DeleteRemovesAVariable) {
    Check({{"tev.env.del.1=X\n", "a;b", std::nullopt},
           {"tev.env.del.1=X\n", std::nullopt, std::nullopt},
           {"tev.env.del.path.1=X\n", "a", std::nullopt},
           {"tev.env.del.1=Y|X\n", "a", "a"}});
}

TEST_F(Directives, NewSetsAVariable) {
    Check({{"tev.env.new.1=X|1\n", std::nullopt, "1"},
           {"tev.env.new.1=X|1\n", "a;b", "1"},
           {"tev.env.new.1=X|C:/missing\n", std::nullopt, "C:/missing"},
           {"tev.env.new.1=X|a;b c;d\n", std::nullopt, "a;b c;d"},
           {"tev.env.new.path.1=X|<f>\n", std::nullopt, "<F>"},
           {"tev.env.new.path.1=X|<f>\n", "a", "<F>"},
           {"tev.env.new.path.1=X|<f>/missing\n", std::nullopt, std::nullopt},
           {"tev.env.new.path.1=X|<f>/file.txt\n", "a", "a"}});
}

TEST_F(Directives, ReplaceSetsAnExistingVariable) {
    Check({{"tev.env.replace.1=X|2\n", "a", "2"},
           {"tev.env.replace.1=X|2\n", std::nullopt, std::nullopt},
           {"tev.env.replace.1=X|C:/missing\n", "a", "C:/missing"},
           {"tev.env.replace.path.1=X|<f>\n", "a", "<F>"},
           {"tev.env.replace.path.1=X|<f>\n", std::nullopt, std::nullopt},
           {"tev.env.replace.path.1=X|<f>/missing\n", "a", "a"}});
}

TEST_F(Directives, RemoveTakesTheFirstEqualElement) {
    Check({{"tev.env.rm.1=X|b\n", "a;b;c", "a;c"},
           {"tev.env.rm.1=X|B\n", "a;b;c;b", "a;c;b"},
           {"tev.env.rm.1=X|C:\\OLD\n", "C:\\new;c:\\old;C:\\older", "C:\\new;C:\\older"},
           {"tev.env.rm.1=X|C:/old\n", "C:\\old", "C:\\old"},
           {"tev.env.rm.1=X|d\n", "a;b", "a;b"},
           {"tev.env.rm.1=X|a\n", "a", std::nullopt},
           {"tev.env.rm.1=X|a\n", std::nullopt, std::nullopt},
           {"tev.env.rm.path.1=X|b\n", "a;b", "a"}});
}

TEST_F(Directives, ValueIsANameAndOneValue) {
    Check({{"tev.env.new.1=X\n", "a", "a"},
           {"tev.env.new.1=X|\n", "a", "a"},
           {"tev.env.new.1=|1\n", "a", "a"},
           {"tev.env.new.1=|\n", "a", "a"},
           {"tev.env.new.1=X|1|2\n", "a", "a"},
           {"tev.env.new.1=X| |1\n", "a", "a"},
           {"tev.env.add.1=X\n", "a", "a"},
           {"tev.env.add.1=X|b|c\n", "a", "a"},
           {"tev.env.new.1=X | 1\n", "a", "1"},
           {"tev.env.new.1=X \t | \t 1 2\n", "a", "1 2"},
           {"tev.env.add.path.1= X |  <f>  \n", "a", "<F>;a"},
           {"tev.env.new.1=|X||1|\n", "a", "1"}});
}

TEST_F(Directives, PrefixIsTakenAsWritten) {
    Check({{"tev.env.new.=X|1\n", "a", "1"},
           {"tev.env.new.any.thing=X|1\n", "a", "1"},
           {"tev.env.new.path=X|C:/missing\n", "a", "C:/missing"},
           {"tev.env.new=X|1\n", "a", "a"},
           {"TEV.ENV.NEW.1=X|1\n", "a", "a"},
           {"tev.env.New.1=X|1\n", "a", "a"},
           {"tev.env.newer.1=X|1\n", "a", "a"},
           {"tev.env.set.1=X|1\n", "a", "a"},
           {"my.tev.env.new.1=X|1\n", "a", "a"}});
}

TEST_F(Directives, VariableNamesIgnoreLetterCase) {
    Check({{"tev.env.add.1=x|b\n", "a", "a;b"}, {"tev.env.del.1=x\n", "a", std::nullopt}});
}

TEST_F(Directives, UserFileHoldsNone) {
    x_.Set("a");
    Load("a=1\n", "tev.env.new.1=X|1\ntev.env.add.1=X|b\ntev.env.del.1=X\n");
    EXPECT_THAT(SystemVariable("X"), Optional(std::string("a")));
    Load("tev.env.new.1=X|system\n", "tev.env.new.1=X|user\n");
    EXPECT_THAT(SystemVariable("X"), Optional(std::string("system")));
}

TEST_F(Directives, ReferencesAreExpandedFirst) {
    x_.Set("old");
    Load("tev.env.new.1=%name%|%value%;%X%\nname=X\nvalue=system\n", "value=user\n");
    EXPECT_THAT(SystemVariable("X"), Optional(std::string("user;old")));
}

TEST_F(Directives, CachedEnvironmentValuesStayOld) {
    x_.Set("old");
    Load("a=1\ntev.env.new.1=X|new\n", "b=%X%\n");
    EXPECT_THAT(Get("b"), Optional(std::string("old")));
    EXPECT_THAT(Get("X"), Optional(std::string("old")));
    EXPECT_THAT(SystemVariable("X"), Optional(std::string("new")));
    Load("tev.env.new.1=X|newer\n", "b=1\n");
    EXPECT_THAT(Get("X"), Optional(std::string("newer"))) << "not asked for before";
}

TEST_F(Directives, StayInTheTable) {
    Load("tev.env.new.1=X|1\ntev.env.add.1=broken\n");
    EXPECT_THAT(Get("tev.env.new.1"), Optional(std::string("X|1")));
    EXPECT_THAT(Get("tev.env.add.1"), Optional(std::string("broken")));
}

TEST_F(Directives, RunOnEveryInitialisation) {
    x_.Set("a");
    y_.Set("a");
    Load(Fill(std::string("tev.env.add.path.1=X|<f>\ntev.env.add.1=X|b\ntev.env.new.1=Y|1\n")));
    for (int i = 0; i < 3; ++i) {
        EXPECT_THAT(SystemVariable("X"), Optional(Fill(std::string("<F>;a;b"))));
        EXPECT_THAT(SystemVariable("Y"), Optional(std::string("1")));
        y_.Set("changed");
        Store::InitializeProperties();
    }
}

TEST_F(Directives, FolderIsInFrontOfPathOnce) {
    const std::string before = "C:\\windows\\system32;C:\\windows";
    const Variable path("PATH", before);
    Load(Fill(std::string("tev.env.add.path.1=PATH|<f>\n")));
    Store::InitializeProperties();
    EXPECT_THAT(SystemVariable("PATH"), Optional(tools_.Path() + ";" + before));
}

TEST_F(Directives, FolderIsTakenOutOfPathInAnyLetterCase) {
    const Variable path("PATH", "C:\\windows\\system32;C:\\OLD;C:\\windows;c:\\old");
    Load("tev.env.rm.1=PATH|C:\\old\n");
    EXPECT_THAT(SystemVariable("PATH"),
                Optional(std::string("C:\\windows\\system32;C:\\windows;c:\\old")));
}

TEST_F(Directives, EnvironmentOfTheRuntimeLibraryFollows) {
    Load("tev.env.new.1=X|1\n");
    EXPECT_STREQ(std::getenv("X"), "1");
    Load("tev.env.del.1=X\n");
    EXPECT_EQ(std::getenv("X"), nullptr);
}

// Behind the prefix, z sorts after "path": by key alone the paths would come first.
TEST_F(DirectiveOrder, IsByGroup) {
    Check({
        // add, then add path, which then finds the folder in the list
        {"tev.env.add.path.1=X|<f>\ntev.env.add.z=X|<F>\n", "a", "a;<F>"},
        // add and add path, then delete
        {"tev.env.del.1=X\ntev.env.add.z=X|b\ntev.env.add.path.1=X|<f>\n", "a", std::nullopt},
        // delete, then new
        {"tev.env.new.z=X|1\ntev.env.del.1=X\n", "a", "1"},
        // add, then new
        {"tev.env.new.z=X|1\ntev.env.add.z=X|b\n", "a", "1"},
        // new, then new path
        {"tev.env.new.path.1=X|<f>\ntev.env.new.z=X|1\n", "a", "<F>"},
        // new path, then replace, which then finds the variable
        {"tev.env.replace.z=X|2\ntev.env.new.path.1=X|<f>\n", std::nullopt, "2"},
        // delete, then replace, which then finds no variable
        {"tev.env.replace.z=X|2\ntev.env.del.1=X\n", "a", std::nullopt},
        // replace, then replace path
        {"tev.env.replace.path.1=X|<f>\ntev.env.replace.z=X|2\n", "a", "<F>"},
        // replace path, then remove
        {"tev.env.rm.1=X|<F>\ntev.env.replace.path.1=X|<f>\n", "a", std::nullopt},
        // new, then remove
        {"tev.env.new.z=X|1;2\ntev.env.rm.1=X|1\n", "a", "2"},
    });
}

TEST_F(DirectiveOrder, IsByKeyWithinAGroup) {
    Check({{"tev.env.new.2=X|two\ntev.env.new.1=X|one\n", "a", "two"},
           {"tev.env.new.2=X|two\ntev.env.new.10=X|ten\n", "a", "two"},
           {"tev.env.new.a=X|small\ntev.env.new.B=X|capital\n", "a", "small"},
           {"tev.env.add.c=X|3\ntev.env.add.b=X|2\n", "a", "a;2;3"},
           {"tev.env.add.path.2=X|<f>\ntev.env.add.path.1=X|<f>/bin\n", "a", "<F>;<F>\\bin;a"}});
}

TEST_F(DirectiveOrder, BadDirectivesDoNotStopTheRest) {
    x_.Set("a");
    Load(
        "tev.env.add.1=broken\ntev.env.add.2=X|b\ntev.env.add.path.1=X|C:/missing folder\n"
        "tev.env.del.1=Y\ntev.env.new.1=Y|1|2\ntev.env.new.2=Y|1\n");
    EXPECT_THAT(SystemVariable("X"), Optional(std::string("a;b")));
    EXPECT_THAT(SystemVariable("Y"), Optional(std::string("1")));
}

}  // namespace
