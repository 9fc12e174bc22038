#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "system/StoreFixture.h"

namespace {

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::Key;
using ::testing::Not;
using ::testing::Optional;
using ::testing::Pair;
using tev::test::CurrentFolder;
using tev::test::Folder;
using tev::test::kSystemFile;
using tev::test::kUserFile;
using tev::test::OpenStore;
using tev::test::Store;
using tev::test::StoreFixture;
using tev::test::SystemVariable;
using tev::test::Table;
using tev::test::Variable;

// The longest value that the system keeps for a variable.
constexpr std::size_t kLongestValue = 32766;

// Holds a file open so that nobody else can read or write it.
class ExclusiveHandle {
 public:
    explicit ExclusiveHandle(const std::string& path)
        : handle_(CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    ~ExclusiveHandle() { CloseHandle(handle_); }
    ExclusiveHandle(const ExclusiveHandle&) = delete;
    ExclusiveHandle& operator=(const ExclusiveHandle&) = delete;

    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }

 private:
    HANDLE handle_;
};

class Survival : public StoreFixture {
 protected:
    // The system table without any entry from a file or the environment.
    Table BareSystemTable(const std::string& folder) const {
        return {{"tev.sys.config.dir", folder}, {kSystemFile, folder + kSystemFile}};
    }

    // Loads a system file of one directive for X, followed by the group executed last, and tells
    // whether that one still was executed.
    void LoadDirective(const std::string& line) const {
        EXPECT_NO_THROW(Load(line + "\ntev.env.rm.z=TEV_TEST_LAST|1\n"));
        EXPECT_THAT(SystemVariable("TEV_TEST_LAST"), Optional(std::string("2")));
        last_.Set("1;2");
    }

    const Variable last_{"TEV_TEST_LAST", "1;2"};
    const Variable x_{"X"};
};

TEST_F(Survival, NoFileAtAll) {
    EXPECT_NO_THROW(Load(std::nullopt));
    EXPECT_EQ(OpenStore::System(), BareSystemTable(""));
    EXPECT_THAT(OpenStore::User(), IsEmpty());
    EXPECT_EQ(Get("a"), std::nullopt);
    bool value = true;
    EXPECT_FALSE(Store::GetPropertyAsBool(value, "a"));
    EXPECT_FALSE(Store::SaveUserProperties());
}

TEST_F(Survival, EmptyFiles) {
    EXPECT_NO_THROW(Load("", ""));
    EXPECT_EQ(OpenStore::System(), BareSystemTable(system_.Path() + "/"));
    EXPECT_EQ(OpenStore::User().size(), 2U) << "the bookkeeping only";
}

TEST_F(Survival, UnreadableFiles) {
    const ExclusiveHandle system(system_.Write(kSystemFile, "a=1\n"));
    const ExclusiveHandle user(user_.Write(kUserFile, "b=2\n"));
    ASSERT_TRUE(system.IsOpen() && user.IsOpen());
    EXPECT_NO_THROW(Load(std::nullopt));
    EXPECT_EQ(OpenStore::System(), BareSystemTable(system_.Path() + "/"));
    const Table expected{{"tev.user.config.dir", user_.Path() + "/"},
                         {kUserFile, user_.Path() + "/" + kUserFile}};
    EXPECT_EQ(OpenStore::User(), expected);
}

TEST_F(Survival, FoldersInTheFilesPlace) {
    const Folder folder;
    const CurrentFolder current(folder);
    folder.MakeFolder(kSystemFile);
    system_.MakeFolder(kSystemFile);
    user_.MakeFolder(kUserFile);
    EXPECT_NO_THROW(Load(std::nullopt));
    EXPECT_EQ(OpenStore::System(), BareSystemTable(""));
    EXPECT_THAT(OpenStore::User(), IsEmpty());
    EXPECT_TRUE(Store::SetUserProperty("b", "2"));
    EXPECT_FALSE(Store::SaveUserProperties());
}

TEST_F(Survival, FileOf100Megabytes) {
    const std::string path = system_.Write(kSystemFile, "a=1\n");
    const HANDLE file = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    // The gap is one long line of NUL bytes without "=".
    const std::string end = "\nz=26\n";
    DWORD written = 0;
    SetFilePointer(file, 100'000'000, nullptr, FILE_BEGIN);
    WriteFile(file, end.data(), static_cast<DWORD>(end.size()), &written, nullptr);
    CloseHandle(file);
    ASSERT_EQ(written, end.size());

    EXPECT_NO_THROW(Load(std::nullopt));
    Table expected = BareSystemTable(system_.Path() + "/");
    expected["a"] = "1";
    expected["z"] = "26";
    EXPECT_EQ(OpenStore::System(), expected);
}

TEST_F(Survival, LinesOf10Megabytes) {
    const std::string value(10'000'000, 'v');
    EXPECT_NO_THROW(Load("a=" + value + "\nb=2\n"));
    EXPECT_TRUE(Get("a") == value);
    EXPECT_THAT(Get("b"), Optional(std::string("2")));
    EXPECT_NO_THROW(Load("#" + value + "\n" + value + "\n" + value + "=1\nb=2\n"));
    EXPECT_TRUE(Get(value.c_str()) == "1");
    EXPECT_EQ(OpenStore::System().size(), 4U) << "the long key, b and the bookkeeping";
}

TEST_F(Survival, NulBytes) {
    using namespace std::string_literals;
    EXPECT_NO_THROW(Load("a=1\0b=2\nk\0y=3\n\0=4\nlast=5\0"s, "u=\0v\nw=6\0x\n"s));
    Table system = BareSystemTable(system_.Path() + "/");
    system.insert({{"a", "1"}, {"b", "2"}, {"k\0y"s, "3"}, {"\0"s, "4"}, {"last", "5"}});
    EXPECT_EQ(OpenStore::System(), system) << "a NUL ends a value and belongs to a key";
    EXPECT_THAT(OpenStore::User(), Contains(Pair("u", "\0v"s)));
    EXPECT_THAT(OpenStore::User(), Contains(Pair("w", "6")));
    EXPECT_EQ(Get("k"), std::nullopt);
}

TEST_F(Survival, NulBytesInADirective) {
    using namespace std::string_literals;
    LoadDirective("tev.env.new.1=X|1\0\0|2"s);
    EXPECT_THAT(SystemVariable("X"), Optional(std::string("1")));
    x_.Set("a");
    LoadDirective("tev.env.new.1=\0X|1"s);
    EXPECT_THAT(SystemVariable("X"), Optional(std::string("a")));
}

TEST_F(Survival, ValueOf40000CharactersInADirective) {
    const std::string value(40'000, 'v');
    for (const char* kind :
         {"add", "add.path", "new", "new.path", "replace", "replace.path", "rm"}) {
        SCOPED_TRACE(kind);
        x_.Set("a");
        LoadDirective(std::string("tev.env.") + kind + ".1=X|" + value);
        EXPECT_THAT(SystemVariable("X"), Optional(std::string("a")));
    }
    LoadDirective("tev.env.del.1=" + value);
    EXPECT_EQ(Get("tev.env.del.1"), value);
}

TEST_F(Survival, LongestValueInADirective) {
    const std::string longest(kLongestValue, 'v');
    LoadDirective("tev.env.new.1=X|" + longest);
    EXPECT_EQ(SystemVariable("X"), longest);
    LoadDirective("tev.env.new.1=X|" + longest + "v");
    EXPECT_EQ(SystemVariable("X"), longest) << "one more is refused";
}

TEST_F(Survival, PathAtItsLimit) {
    const Folder tools;
    const std::string tail = ";" + tools.Path();
    const std::string full = std::string(kLongestValue - tail.size(), 'p') + tail;
    const Variable path("PATH", full);
    LoadDirective("tev.env.add.1=PATH|more");
    EXPECT_EQ(SystemVariable("PATH"), full);
    LoadDirective("tev.env.add.path.1=PATH|" + system_.Path());
    EXPECT_EQ(SystemVariable("PATH"), full);
    LoadDirective("tev.env.add.path.1=PATH|" + tools.Path());
    EXPECT_EQ(SystemVariable("PATH"), full) << "it is there already";
    EXPECT_EQ(Get("PATH"), full);
    LoadDirective("tev.env.rm.1=PATH|" + tools.Path());
    EXPECT_EQ(SystemVariable("PATH"), full.substr(0, full.size() - tail.size()));
    LoadDirective("tev.env.add.path.1=PATH|" + tools.Path());
    EXPECT_EQ(SystemVariable("PATH"),
              tools.Path() + ";" + full.substr(0, full.size() - tail.size()))
        << "there is room for exactly this";
}

TEST_F(Survival, VariableThatTheProcessMayNotSet) {
    const Variable a("TEV_TEST_A", "before");
    for (const char* kind :
         {"add", "add.path", "new", "new.path", "replace", "replace.path", "rm"}) {
        SCOPED_TRACE(kind);
        LoadDirective(std::string("tev.env.") + kind + ".1=TEV_TEST_A=B|" + system_.Path());
        EXPECT_THAT(SystemVariable("TEV_TEST_A"), Optional(std::string("before")));
        EXPECT_EQ(SystemVariable("TEV_TEST_A=B"), std::nullopt);
    }
    LoadDirective("tev.env.del.1=TEV_TEST_A=before");
    EXPECT_THAT(SystemVariable("TEV_TEST_A"), Optional(std::string("before")));
}

TEST_F(Survival, VariableWhoseValueTheCLocaleLacks) {
    const std::wstring value = L"\x4e2d";
    for (const char* kind : {"add", "add.path", "del", "replace", "replace.path", "rm"}) {
        SCOPED_TRACE(kind);
        ASSERT_NE(SetEnvironmentVariableW(L"X", value.c_str()), 0);
        const bool isDelete = kind == std::string("del");
        LoadDirective(std::string("tev.env.") + kind + ".1=X" +
                      (isDelete ? "" : "|" + system_.Path()));
        wchar_t stored[8] = {};
        GetEnvironmentVariableW(L"X", stored, 8);
        EXPECT_EQ(stored, value);
    }
}

TEST_F(Survival, ManyReferencesInOneValue) {
    std::string text, expanded;
    for (int i = 0; i < 100'000; ++i) {
        text += "%a%;";
        expanded += "1;";
    }
    EXPECT_NO_THROW(Load("a=1\nz=" + text + "\n"));
    EXPECT_TRUE(Get("z") == expanded);
}

TEST_F(Survival, LookupsOfAnyText) {
    EXPECT_NO_THROW(Load("a=1\n"));
    for (const std::string& key : {std::string("="), std::string("=X"), std::string("%"),
                                   std::string("\xff\xfe"), std::string(100'000, 'k')}) {
        EXPECT_NO_THROW(EXPECT_EQ(Get(key.c_str()), std::nullopt));
    }
    EXPECT_THAT(OpenStore::System(), Not(Contains(Key("="))));
}

}  // namespace
