#include <TEVSystemLib/system/TEVSystemDiagnostics.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "system/StoreFixture.h"

namespace {

using TAMO::TEV::System::TEVSystemDiagnostics;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;
using tev::test::kSystemFile;
using tev::test::kUserFile;
using tev::test::OpenStore;
using tev::test::ReadAll;
using tev::test::Store;
using tev::test::StoreFixture;
using tev::test::SystemVariable;
using tev::test::Variable;

using Layer = TEVSystemDiagnostics::Layer;
using Changes = std::vector<TEVSystemDiagnostics::Change>;

// "table key: before > after" of each change, "-" for what is not there.
std::vector<std::string> Texts(const Changes& changes) {
    std::vector<std::string> texts;
    for (const auto& [table, key, before, after] : changes)
        texts.push_back((table == TEVSystemDiagnostics::Table::User ? "user " : "system ") + key +
                        ": " + before.value_or("-") + " > " + after.value_or("-"));
    return texts;
}

class ExplainProperty : public StoreFixture {
 protected:
    static TEVSystemDiagnostics::Explanation Explain(const char* key) {
        TEVSystemDiagnostics::Explanation explanation;
        EXPECT_TRUE(TEVSystemDiagnostics::ExplainProperty(key, explanation));
        return explanation;
    }
};

TEST_F(ExplainProperty, NamesFileAndLineAndAgreesWithTheStore) {
    Load("\nk = %x%\nx = 1\n", "x = 2\n");
    const auto explanation = Explain("k");
    EXPECT_EQ(explanation.answer.layer, Layer::SystemFile);
    EXPECT_EQ(explanation.answer.place.file, system_.Path() + '/' + kSystemFile);
    EXPECT_EQ(explanation.answer.place.line, 2U);
    EXPECT_EQ(explanation.answer.written, "%x%");
    EXPECT_EQ(explanation.answer.value, "2");
    EXPECT_TRUE(explanation.isStoreMade);
    EXPECT_EQ(explanation.held.layer, Layer::SystemFile);
    EXPECT_EQ(explanation.held.value, "2");
}

TEST_F(ExplainProperty, TellsWhatTheStoreHoldsInstead) {
    const Variable variable("TEV_TEST_EXPLAINED", "old");
    const Variable notAskedFor("TEV_TEST_NOT_ASKED_FOR", "1");
    Load("k = 1\nf = 1\ngone = 1\ns = 1\n", "u = 1\n");
    EXPECT_EQ(Get("TEV_TEST_EXPLAINED"), "old");
    variable.Set("new");
    Store::SetUserProperty("k", "set");
    user_.Write(kUserFile, "u = 2\n");
    system_.Write(kSystemFile, "k = 1\nf = 2\n\ns = 1\n");
    const struct {
        const char* key;
        Layer layer;
        const char* value;
        Layer heldLayer;
        const char* held;
    } rows[] = {
        {"k", Layer::SystemFile, "1", Layer::SetInProcess, "set"},
        {"u", Layer::UserFile, "2", Layer::SetInProcess, "1"},
        {"f", Layer::SystemFile, "2", Layer::SetInProcess, "1"},
        {"s", Layer::SystemFile, "1", Layer::SystemFile, "1"},
        {"gone", Layer::None, "", Layer::SetInProcess, "1"},
        {"TEV_TEST_EXPLAINED", Layer::Environment, "new", Layer::CachedEnvironment, "old"},
        {"TEV_TEST_NOT_ASKED_FOR", Layer::Environment, "1", Layer::Environment, "1"},
        {"nothing", Layer::None, "", Layer::None, ""},
        {kUserFile, Layer::Noted, nullptr, Layer::Noted, nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.key);
        const auto explanation = Explain(row.key);
        EXPECT_EQ(explanation.answer.layer, row.layer);
        EXPECT_EQ(explanation.held.layer, row.heldLayer);
        EXPECT_EQ(explanation.held.place.line > 0, row.heldLayer == Layer::SystemFile);
        if (row.value != nullptr) {
            EXPECT_EQ(explanation.answer.value, row.value);
            EXPECT_EQ(explanation.held.value, row.held);
        }
    }
}

TEST_F(ExplainProperty, ChangesNeitherStoreNorEnvironment) {
    Load("tev.env.new.1 = TEV_TEST_EXPLAINED|1\n");
    const Variable variable("TEV_TEST_EXPLAINED");
    const auto table = OpenStore::System();
    EXPECT_EQ(Explain("TEV_TEST_EXPLAINED").answer.value, "1");
    EXPECT_EQ(SystemVariable("TEV_TEST_EXPLAINED"), std::nullopt);
    EXPECT_EQ(OpenStore::System(), table);
}

TEST_F(ExplainProperty, NullKeyCountsAsEmpty) {
    EXPECT_EQ(Explain(nullptr).answer.layer, Layer::None);
}

class CheckPropertiesFile : public StoreFixture {
 protected:
    static std::optional<std::vector<std::string>> Check(
        const std::string& path,
        TEVSystemDiagnostics::FileRole role = TEVSystemDiagnostics::FileRole::ByName) {
        std::vector<TEVSystemDiagnostics::Finding> findings(1);
        const bool isRead = TEVSystemDiagnostics::CheckPropertiesFile(path.c_str(), role, findings);
        std::vector<std::string> ids;
        for (const auto& finding : findings) {
            EXPECT_EQ(finding.place.file, path);
            ids.push_back(finding.id);
        }
        if (!isRead) {
            EXPECT_THAT(ids, IsEmpty());
            return std::nullopt;
        }
        return ids;
    }
};

TEST_F(CheckPropertiesFile, TakesTheRoleFromTheNameUnlessItIsGiven) {
    using Role = TEVSystemDiagnostics::FileRole;
    constexpr char kText[] = "tev.env.new.1=X\n";
    const std::string user = user_.Write("TEV.User.Properties", kText);
    const std::string other = user_.Write("other", kText);
    EXPECT_THAT(Check(user), Optional(ElementsAre("user-directive")));
    EXPECT_THAT(Check(other), Optional(ElementsAre("ignored-directive")));
    EXPECT_THAT(Check(user, Role::System), Optional(ElementsAre("ignored-directive")));
    EXPECT_THAT(Check(other, Role::User), Optional(ElementsAre("user-directive")));
}

TEST_F(CheckPropertiesFile, TakesTheOtherFileFromWhereTheStoreFindsIt) {
    Load("s = 1\n", "u = 1\n");
    EXPECT_THAT(Check(user_.Write("a", "k=%u%\n")), Optional(IsEmpty()));
    EXPECT_THAT(Check(user_.Write("b", "k=%s%\n")), Optional(ElementsAre("unresolved-reference")));
}

TEST_F(CheckPropertiesFile, ReadsAnEmptyFileAndNoMissingOne) {
    EXPECT_THAT(Check(system_.Write("empty", "")), Optional(IsEmpty()));
    EXPECT_EQ(Check(system_ / "missing"), std::nullopt);
    EXPECT_EQ(Check(system_.MakeFolder("folder")), std::nullopt);
    EXPECT_EQ(Check(""), std::nullopt);
}

class PlanEnvironmentDirectives : public StoreFixture {};

TEST_F(PlanEnvironmentDirectives, TellsBeforeAndAfterAndDoesNothing) {
    const Variable list("TEV_TEST_LIST", "a");
    system_.Write(kSystemFile, "tev.env.new.1=TEV_TEST_LIST|b\ntev.env.add.1=TEV_TEST_LIST|c\n");
    std::vector<TEVSystemDiagnostics::DirectiveStep> steps;
    ASSERT_TRUE(TEVSystemDiagnostics::PlanEnvironmentDirectives(steps));
    ASSERT_EQ(steps.size(), 2U);
    EXPECT_EQ(steps[0].kind, "add");
    EXPECT_THAT(steps[0].before, Optional(std::string("a")));
    EXPECT_THAT(steps[0].after, Optional(std::string("a;c")));
    EXPECT_EQ(steps[1].kind, "new");
    EXPECT_THAT(steps[1].before, Optional(std::string("a;c")));
    EXPECT_THAT(steps[1].after, Optional(std::string("b")));
    EXPECT_EQ(SystemVariable("TEV_TEST_LIST"), "a");
}

class PropertiesSnapshot : public StoreFixture {};

TEST_F(PropertiesSnapshot, StaysAsItWasTaken) {
    Load("s = 1\n", "u = 1\nv = 1\n");
    TEVSystemDiagnostics::Snapshot before;
    TEVSystemDiagnostics::Snapshot after;
    ASSERT_TRUE(TEVSystemDiagnostics::TakePropertiesSnapshot(before));
    Load("s = 1\nt = 4\n", "u = 1\n");
    Store::SetUserProperty("u", "2");
    Store::SetUserProperty("w", "3");
    ASSERT_TRUE(TEVSystemDiagnostics::TakePropertiesSnapshot(after));
    EXPECT_EQ(before->user.at("u"), "1");
    Changes changes;
    ASSERT_TRUE(TEVSystemDiagnostics::CompareSnapshots(before, after, changes));
    EXPECT_THAT(Texts(changes),
                ElementsAre("system t: - > 4", "user u: 1 > 2", "user v: 1 > -", "user w: - > 3"));
    ASSERT_TRUE(TEVSystemDiagnostics::CompareSnapshots(after, after, changes));
    EXPECT_THAT(changes, IsEmpty());
    ASSERT_TRUE(TEVSystemDiagnostics::CompareSnapshots(nullptr, after, changes));
    EXPECT_EQ(changes.size(), after->system.size() + after->user.size());
}

TEST_F(PropertiesSnapshot, MayBeReadByAnyThreadWhileTheStoreChanges) {
    constexpr int kThreads = 16;
    Load("s = 1\n", "u = 1\n");
    TEVSystemDiagnostics::Snapshot taken;
    ASSERT_TRUE(TEVSystemDiagnostics::TakePropertiesSnapshot(taken));
    std::atomic<bool> isOver{false};
    std::atomic<int> reading{0};
    std::atomic<int> wrong{0};
    const auto read = [&] {
        const TEVSystemDiagnostics::Snapshot own = taken;
        for (bool isFirst = true; !isOver || isFirst; isFirst = false) {
            Changes changes;
            const bool isSame = TEVSystemDiagnostics::CompareSnapshots(own, taken, changes);
            if (!isSame || !changes.empty() || own->user.at("u") != "1") ++wrong;
            if (isFirst) ++reading;
        }
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) threads.emplace_back(read);
    while (reading < kThreads) std::this_thread::yield();
    for (int i = 0; i < 20; ++i) {
        Store::SetUserProperty("u", std::to_string(i).c_str());
        Store::InitializeProperties();
    }
    isOver = true;
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(taken->user.at("u"), "1");
}

class SaveUserPropertiesPreserving : public StoreFixture {
 protected:
    // What a save of the properties set gives, and what it tells.
    std::string Saved(std::string_view text,
                      const std::vector<std::pair<const char*, const char*>>& pairs) {
        Load(std::nullopt, text);
        for (const auto& [key, value] : pairs) Store::SetUserProperty(key, value);
        EXPECT_TRUE(TEVSystemDiagnostics::SaveUserPropertiesPreserving(&changes_));
        return ReadAll(user_ / kUserFile);
    }

    Changes changes_;
};

TEST_F(SaveUserPropertiesPreserving, ChangesOnlyTheLinesOfWhatWasSet) {
    EXPECT_EQ(Saved("# head\r\n\r\nb=%a%\r\na  =  1 \r\nnonsense\r\n",
                    {{"a", "2"}, {"c", "%x%"}, {"b", "3"}}),
              "# head\r\n\r\nb=3\r\na  =  2 \r\nnonsense\r\nc = %x%\r\n");
    EXPECT_THAT(Texts(changes_),
                ElementsAre("user a: 1 > 2", "user b: %a% > 3", "user c: - > %x%"));
}

TEST_F(SaveUserPropertiesPreserving, KeepsReferencesOfWhatWasNotSet) {
    EXPECT_EQ(Saved("a = 1\nb = %a%\n", {{"a", "2"}}), "a = 2\nb = %a%\n");
}

TEST_F(SaveUserPropertiesPreserving, WritesNothingWhenNothingWasSet) {
    EXPECT_EQ(Saved("a = %b%\n# no line end", {}), "a = %b%\n# no line end");
    EXPECT_THAT(changes_, IsEmpty());
    EXPECT_EQ(Saved("a = 1", {{"a", "1"}}), "a = 1");
    EXPECT_THAT(changes_, IsEmpty());
}

TEST_F(SaveUserPropertiesPreserving, LeavesWhatTheStoreNotesAlone) {
    EXPECT_EQ(Saved("a = 1\n", {{kUserFile, "x"}, {"b", "2"}}), "a = 1\nb = 2\n");
}

TEST_F(SaveUserPropertiesPreserving, FillsAnEmptyFile) {
    EXPECT_EQ(Saved("", {{"a", "1"}}), "a = 1\n");
}

TEST_F(SaveUserPropertiesPreserving, SavesAgainOnlyWhatWasSetSince) {
    Saved("a = 1\nb = 1\n", {{"a", "2"}});
    user_.Write(kUserFile, "a = 3\nb = 1\n");
    Store::SetUserProperty("b", "2");
    EXPECT_TRUE(TEVSystemDiagnostics::SaveUserPropertiesPreserving(nullptr));
    EXPECT_EQ(ReadAll(user_ / kUserFile), "a = 3\nb = 2\n");
}

TEST_F(SaveUserPropertiesPreserving, RefusesWhatALineCannotHoldAndChangesNothing) {
    Load(std::nullopt, "a = 1\n");
    Store::SetUserProperty("a", "2");
    Store::SetUserProperty("b", " ");
    EXPECT_FALSE(TEVSystemDiagnostics::SaveUserPropertiesPreserving(&changes_));
    EXPECT_EQ(ReadAll(user_ / kUserFile), "a = 1\n");
    Store::SetUserProperty("b", "3");
    EXPECT_TRUE(TEVSystemDiagnostics::SaveUserPropertiesPreserving(nullptr));
    EXPECT_EQ(ReadAll(user_ / kUserFile), "a = 2\nb = 3\n");
}

TEST_F(SaveUserPropertiesPreserving, MakesNoFile) {
    Store::InitializeProperties();
    Store::SetUserProperty("a", "1");
    EXPECT_FALSE(TEVSystemDiagnostics::SaveUserPropertiesPreserving(&changes_));
    EXPECT_THAT(changes_, IsEmpty());
}

}  // namespace
