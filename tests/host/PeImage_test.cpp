#include "TEVSystemLib/util/windows/detail/PeImage.h"

#include <gtest/gtest.h>

#include <string>

#include "support/PeFile.h"

namespace {

using namespace TAMO::TEV::System::Util::detail;
using tev::test::PeAround;
using tev::test::PeDirectories;
using tev::test::PeFile;
using tev::test::PutNumber;

const tev::test::PeDescription kSound{
    {{"first.dll", {"One", "#7"}}, {"late.dll", {"Later"}, true}, {"second", {}}},
    {{"Zeta", ""}, {"", ""}, {"Alpha", ""}, {"Sent", "third.Function"}}};

TEST(ReadPeImage, ListsImports) {
    const std::string file = PeFile(kSound);
    const PeImage image = ReadPeImage(file);
    EXPECT_EQ(image.flaw, PeFlaw::None);
    EXPECT_EQ(image.machine, kPeMachineX64);
    ASSERT_EQ(image.imports.size(), 3U);
    EXPECT_EQ(image.imports[0].name, "first.dll");
    EXPECT_FALSE(image.imports[0].isDelayed);
    ASSERT_EQ(image.imports[0].functions.size(), 2U);
    EXPECT_EQ(image.imports[0].functions[0].name, "One");
    EXPECT_EQ(image.imports[0].functions[1].name, "");
    EXPECT_EQ(image.imports[0].functions[1].ordinal, 7);
    EXPECT_EQ(image.imports[1].name, "second");
    EXPECT_TRUE(image.imports[1].functions.empty());
    EXPECT_EQ(image.imports[2].name, "late.dll");
    EXPECT_TRUE(image.imports[2].isDelayed);
    ASSERT_EQ(image.imports[2].functions.size(), 1U);
    EXPECT_EQ(image.imports[2].functions[0].name, "Later");
}

TEST(ReadPeImage, FindsExportsByNameAndByOrdinal) {
    const std::string file = PeFile(kSound);
    const PeExports exports = ReadPeImage(file).exports;
    const struct {
        PeImport wanted;
        bool isThere;
        const char* forwarder;
    } rows[] = {
        {{"Zeta", 0}, true, ""},  {{"Alpha", 0}, true, ""}, {{"Sent", 0}, true, "third.Function"},
        {{"zeta", 0}, false, ""}, {{"Zet", 0}, false, ""},  {{"Zetas", 0}, false, ""},
        {{"", 5}, true, ""},      {{"", 6}, true, ""},      {{"", 8}, true, "third.Function"},
        {{"", 4}, false, ""},     {{"", 9}, false, ""},     {{"", 0}, false, ""},
        {{"", 65535}, false, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.wanted.name) + '#' + std::to_string(row.wanted.ordinal));
        const PeFunction* function = exports.Find(row.wanted);
        ASSERT_EQ(function != nullptr, row.isThere);
        EXPECT_EQ(function == nullptr ? "" : function->forwarder, row.forwarder);
    }
}

TEST(ReadPeImage, OrdinalLeftOutIsNotThere) {
    std::string file = PeFile({{}, {{"Only", ""}}});
    const std::string address("\x40\0\0\0", 4);
    file.replace(file.rfind(address), 4, std::string(4, '\0'));
    EXPECT_EQ(ReadPeImage(file).exports.Find({"Only", 0}), nullptr);
    EXPECT_EQ(ReadPeImage(file).exports.Find({"", 5}), nullptr);
}

TEST(ReadPeImage, TellsWhatIsNoModule) {
    const struct {
        std::string file;
        PeFlaw flaw;
    } rows[] = {
        {"", PeFlaw::Empty},
        {"This is not a module.", PeFlaw::NoModule},
        {std::string(100, '\0'), PeFlaw::NoModule},
        {"MZ", PeFlaw::CutOff},
        {"MZ" + std::string(100, '\0'), PeFlaw::NoModule},
        {"MZ" + std::string(100, '\xFF'), PeFlaw::CutOff},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ReadPeImage(row.file).flaw, row.flaw) << row.file;
        EXPECT_EQ(ReadPeImage(row.file).machine, 0) << row.file;
    }
}

TEST(ReadPeImage, CutOffAnywhereIsNoted) {
    const std::string whole = PeFile(kSound);
    for (std::size_t size = 2; size < whole.size(); ++size) {
        // In memory of that size, so that a sanitizer sees who reads on.
        const std::vector<char> cut(whole.begin(), whole.begin() + static_cast<long>(size));
        EXPECT_EQ(ReadPeImage({cut.data(), cut.size()}).flaw, PeFlaw::CutOff) << size;
    }
}

TEST(ReadPeImage, OtherMachinesAreNotReadFurther) {
    const std::string x86 = PeFile({kSound.needs, kSound.gives, tev::test::kPeX86});
    EXPECT_EQ(ReadPeImage(x86).flaw, PeFlaw::None);
    EXPECT_EQ(ReadPeImage(x86).machine, 0x14C);
    EXPECT_TRUE(ReadPeImage(x86).imports.empty());
    const std::string arm = PeFile({kSound.needs, kSound.gives, 0xAA64});
    EXPECT_EQ(ReadPeImage(arm).flaw, PeFlaw::None);
    EXPECT_EQ(ReadPeImage(arm).machine, 0xAA64);
    EXPECT_TRUE(ReadPeImage(arm).imports.empty());
}

TEST(ReadPeImage, UnknownFormOfHeaderIsNoted) {
    std::string file = PeFile(kSound);
    PutNumber(file, 0x58, 0x107, 2);
    EXPECT_EQ(ReadPeImage(file).flaw, PeFlaw::OtherForm);
}

std::string Numbers(const std::vector<std::uint64_t>& numbers) {
    tev::test::PeBody body;
    body.AddNumbers(numbers, 4);
    return body.Bytes();
}

// An import table without an end, and one entry whose list of functions has none.
std::string Endless(std::size_t modules, std::size_t functions) {
    tev::test::PeBody body;
    const auto name = body.AddText("m");
    const auto list = body.AddNumbers(std::vector<std::uint64_t>(functions, 1ULL << 63), 8);
    const auto end = body.AddNumbers({0}, 8);
    std::vector<std::uint64_t> table;
    for (std::size_t i = 0; i < modules; ++i)
        for (const std::uint64_t number : {0U, 0U, 0U, name, functions == 0 ? end : list})
            table.push_back(number);
    table.resize(table.size() + 5);
    PeDirectories places;
    places.imports = body.AddNumbers(table, 4);
    return PeAround(body.Bytes(), places);
}

TEST(ReadPeImage, TablesHaveALimit) {
    EXPECT_EQ(ReadPeImage(Endless(4096, 0)).flaw, PeFlaw::None);
    EXPECT_EQ(ReadPeImage(Endless(4097, 0)).flaw, PeFlaw::Damaged);
    EXPECT_EQ(ReadPeImage(Endless(1, 65536)).flaw, PeFlaw::None);
    EXPECT_EQ(ReadPeImage(Endless(1, 65537)).flaw, PeFlaw::Damaged);
    EXPECT_EQ(ReadPeImage(Endless(2, 40000)).flaw, PeFlaw::Damaged) << "in all";
}

TEST(ReadPeImage, DamagedTablesAreNoted) {
    constexpr std::uint64_t kBody = tev::test::kPeBodyAddress;
    const struct {
        const char* what;
        std::string body;
        PeDirectories places;
    } rows[] = {
        {"imports outside", "body", {0, 0, 0xFFFFFFF0, 0}},
        {"imports beyond the section", "body", {0, 0, kBody + 2, 0}},
        {"name outside", Numbers({1, 0, 0, 0x7FFFFFFF, kBody}), {0, 0, kBody, 0}},
        {"name without an end", Numbers({kBody, 0, 0, kBody + 16, 0x41414141}), {0, 0, kBody, 0}},
        {"functions outside", Numbers({9, 0, 0, kBody, 9, 0x41}), {0, 0, kBody, 0}},
        {"delayed imports outside", "body", {0, 0, 0, 0xFFFFFFFF}},
        {"delayed name outside", Numbers({1, 0x7FFFFFFF, 0, 0, kBody, 0, 0, 0}), {0, 0, 0, kBody}},
        {"exports outside", "body", {0xFFFFFFFF, 0xFFFFFFFF, 0, 0}},
        {"many functions",
         Numbers({0, 0, 0, 0, 1, 0xFFFFFFFF, 0, kBody, kBody, kBody}),
         {kBody, 40, 0, 0}},
        {"many names",
         Numbers({0, 0, 0, 0, 1, 0, 0x10001, kBody, kBody, kBody}),
         {kBody, 40, 0, 0}},
        {"functions of exports outside",
         Numbers({0, 0, 0, 0, 1, 2, 0, 0x900, kBody, kBody}),
         {kBody, 40, 0, 0}},
        {"names outside", Numbers({0, 0, 0, 0, 1, 0, 2, kBody, 0x900, kBody}), {kBody, 40, 0, 0}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ReadPeImage(PeAround(row.body, row.places)).flaw, PeFlaw::Damaged) << row.what;
}

TEST(ReadPeImage, ImportsEndAtAnEntryWithoutNameOrAddresses) {
    constexpr std::uint64_t kBody = tev::test::kPeBodyAddress;
    constexpr std::uint64_t kNone = 0;
    for (const auto& [name, addresses] : {std::pair(kBody, kNone), std::pair(kNone, kBody)}) {
        const std::string file =
            PeAround(Numbers({kBody, 0, 0, name, addresses}), {0, 0, kBody, 0});
        EXPECT_EQ(ReadPeImage(file).flaw, PeFlaw::None);
        EXPECT_TRUE(ReadPeImage(file).imports.empty());
    }
}

TEST(ReadPeImage, HeaderIsNoTable) {
    std::string file = PeFile({});
    for (const std::size_t place : {4U, 12U, 16U, 20U, 24U, 28U, 32U, 36U}) file[place] = '\x20';
    const PeImage image = ReadPeImage(file);
    EXPECT_EQ(image.flaw, PeFlaw::None);
    EXPECT_TRUE(image.imports.empty());
    EXPECT_TRUE(image.exports.functions.empty());
    EXPECT_EQ(image.exports.firstOrdinal, 0U);
}

TEST(ReadPeImage, FunctionBehindTheExportsIsNoForwarder) {
    constexpr std::uint64_t kBody = tev::test::kPeBodyAddress;
    const std::string file = PeAround(
        Numbers({0, 0, 0, 0, 1, 1, 0, kBody + 40, 0, 0, kBody + 44, 0x41}), {kBody, 44, 0, 0});
    const PeImage image = ReadPeImage(file);
    ASSERT_EQ(image.exports.functions.size(), 1U);
    EXPECT_TRUE(image.exports.functions[0].isThere);
    EXPECT_EQ(image.exports.functions[0].forwarder, "");
}

// Where PeAround puts them.
constexpr std::size_t kHeaderSizePlace = 0x94;
constexpr std::size_t kDirectoryCountPlace = 0xC4;
constexpr std::size_t kSectionSizePlace = 0x150;
constexpr std::size_t kSectionFileSizePlace = 0x158;

std::string Patched(std::string file, std::size_t place, std::uint64_t number) {
    PutNumber(file, place, number, 4);
    return file;
}

TEST(ReadPeImage, DirectoriesAreCounted) {
    const struct {
        unsigned count;
        std::size_t exports, imports;
    } rows[] = {{0, 0, 0}, {1, 4, 0}, {2, 4, 2}, {13, 4, 2}, {14, 4, 3}, {0xFFFFFFFF, 4, 3}};
    const std::string file = PeFile(kSound);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.count);
        const std::string counted = Patched(file, kDirectoryCountPlace, row.count);
        const PeImage image = ReadPeImage(counted);
        EXPECT_EQ(image.flaw, PeFlaw::None);
        EXPECT_EQ(image.exports.functions.size(), row.exports);
        EXPECT_EQ(image.imports.size(), row.imports);
    }
}

TEST(ReadPeImage, SectionEndsWithItsSizeAndWithTheFilesPartOfIt) {
    const std::string file = PeFile(kSound) + std::string(100, 'x');
    const auto size = static_cast<std::uint32_t>(file.size() - 0x180 - 100);
    const struct {
        std::uint32_t size, fileSize;
        PeFlaw flaw;
    } rows[] = {
        {size, size, PeFlaw::None},         {0, size, PeFlaw::None},
        {size + 100, size, PeFlaw::None},   {size, size + 100, PeFlaw::None},
        {size, size + 101, PeFlaw::CutOff}, {16, size, PeFlaw::Damaged},
        {size, 16, PeFlaw::Damaged},        {0, 16, PeFlaw::Damaged},
        {size, 0, PeFlaw::Damaged},
    };
    for (const auto& row : rows) {
        const std::string cut = Patched(Patched(file, kSectionSizePlace, row.size),
                                        kSectionFileSizePlace, row.fileSize);
        EXPECT_EQ(ReadPeImage(cut).flaw, row.flaw) << row.size << ' ' << row.fileSize;
    }
}

TEST(ReadPeImage, AddressesLieInTheHeaderOrInASection) {
    constexpr std::uint64_t kBody = tev::test::kPeBodyAddress;
    constexpr std::uint64_t kSize = 12 * 4;
    const auto fileWithNameAt = [](std::uint64_t name) {
        // An entry, the end of the table, and an empty list of functions.
        return PeAround(Numbers({0, 0, 0, name, kBody + 40, 0, 0, 0, 0, 0, 0, 0}),
                        {0, 0, kBody, 0});
    };
    const struct {
        std::uint64_t name;
        PeFlaw flaw;
    } rows[] = {
        {0x10, PeFlaw::None},
        {0x17F, PeFlaw::None},
        {0x180, PeFlaw::Damaged},
        {kBody - 1, PeFlaw::Damaged},
        {kBody, PeFlaw::None},
        {kBody + kSize - 1, PeFlaw::None},
        {kBody + kSize, PeFlaw::Damaged},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ReadPeImage(fileWithNameAt(row.name)).flaw, row.flaw) << row.name;
    const std::string inHeader = fileWithNameAt(0x10);
    EXPECT_EQ(ReadPeImage(std::string(inHeader).replace(0x10, 9, "head.dll", 9)).imports.at(0).name,
              "head.dll");
    EXPECT_EQ(ReadPeImage(Patched(inHeader, kHeaderSizePlace, 0x11)).flaw, PeFlaw::None);
    EXPECT_EQ(ReadPeImage(Patched(inHeader, kHeaderSizePlace, 0x10)).flaw, PeFlaw::Damaged);
}

TEST(ReadPeImage, SectionsStandBehindEachOther) {
    constexpr std::uint64_t kSecond = 0x2000;
    constexpr std::size_t kCountPlace = 0x46;
    // The header of the second one reaches 24 bytes into the body; what it says of the file is
    // there.
    const std::string body =
        Numbers({48, 0x198, 0, 0, 0, 0, 0, 0, 0, kSecond, kSecond + 40, 0, 0, 0, 0, 0, 0, 0});
    std::string file = PeAround(body, {0, 0, kSecond, 0});
    EXPECT_EQ(ReadPeImage(file).flaw, PeFlaw::Damaged);
    PutNumber(file, kCountPlace, 2, 2);
    file = Patched(Patched(file, 0x178, 48), 0x17C, kSecond);
    EXPECT_EQ(ReadPeImage(file).flaw, PeFlaw::None);
    EXPECT_EQ(ReadPeImage(file).imports.size(), 1U);
    PutNumber(file, kCountPlace, 3, 2);
    EXPECT_EQ(ReadPeImage(file).flaw, PeFlaw::CutOff) << "a third one at a place beyond the file";
}

TEST(ReadPeImage, ImportsComeFromTheNamesOrElseTheAddresses) {
    tev::test::PeBody body;
    const std::uint64_t name = body.AddText("lib.dll");
    const std::uint64_t function = body.AddText("hhName");
    const auto addresses = body.AddNumbers({1ULL << 63 | 0x10007, 0}, 8);
    const auto names = body.AddNumbers({0xFF00000000000000U >> 1 | function, 0}, 8);
    PeDirectories places;
    places.imports =
        body.AddNumbers({names, 0, 0, name, addresses, 0, 0, 0, name, addresses, 0, 0, 0, 0, 0}, 4);
    const std::string file = PeAround(body.Bytes(), places);
    const PeImage image = ReadPeImage(file);
    EXPECT_EQ(image.flaw, PeFlaw::None);
    ASSERT_EQ(image.imports.size(), 2U);
    ASSERT_EQ(image.imports[0].functions.size(), 1U);
    EXPECT_EQ(image.imports[0].functions[0].name, "Name");
    EXPECT_EQ(image.imports[0].functions[0].ordinal, 0);
    ASSERT_EQ(image.imports[1].functions.size(), 1U);
    EXPECT_EQ(image.imports[1].functions[0].name, "");
    EXPECT_EQ(image.imports[1].functions[0].ordinal, 7);
}

TEST(ReadPeImage, ExportsHaveALimit) {
    constexpr std::uint64_t kBody = tev::test::kPeBodyAddress;
    for (const std::uint64_t count : {65536U, 65537U}) {
        const std::string table(4 * count, '\0');
        const PeFlaw flaw = count == 65536 ? PeFlaw::None : PeFlaw::Damaged;
        const std::string functions = Numbers({0, 0, 0, 0, 1, count, 0, kBody + 40, 0, 0}) + table;
        EXPECT_EQ(ReadPeImage(PeAround(functions, {kBody, 40, 0, 0})).flaw, flaw);
        const std::string names =
            Numbers({0, 0, 0, 0, 1, 0, count, 0, kBody + 40, kBody + 40}) + table;
        EXPECT_EQ(ReadPeImage(PeAround(names, {kBody, 40, 0, 0})).flaw, flaw);
    }
}

TEST(ReadPeImage, LongNamesAreNoModules) {
    for (const std::size_t length : {4096U, 4097U}) {
        const std::string file = PeFile({{{std::string(length, 'n'), {}}}, {}});
        EXPECT_EQ(ReadPeImage(file).flaw, length == 4096 ? PeFlaw::None : PeFlaw::Damaged);
    }
}

TEST(ReadPeImage, DelayedImportsOfOldLinkersAreLeftOut) {
    tev::test::PeBody body;
    const auto name = body.AddText("old.dll");
    PeDirectories places;
    places.delayedImports = body.AddNumbers({0, name, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, 4);
    const std::string file = PeAround(body.Bytes(), places);
    EXPECT_EQ(ReadPeImage(file).flaw, PeFlaw::None);
    EXPECT_TRUE(ReadPeImage(file).imports.empty());
}

TEST(ReadPeImage, DelayedImportsBehindThoseAreRead) {
    tev::test::PeBody body;
    const auto name = body.AddText("late.dll");
    const auto functions = body.AddNumbers({1ULL << 63 | 3, 0}, 8);
    PeDirectories places;
    places.delayedImports = body.AddNumbers(
        {2, name, 0, 0, functions, 0, 0, 0, 3, name, 0, 0, functions, 0, 0, 0, 0, 0}, 4);
    const std::string file = PeAround(body.Bytes(), places);
    const PeImage image = ReadPeImage(file);
    EXPECT_EQ(image.flaw, PeFlaw::None);
    ASSERT_EQ(image.imports.size(), 1U);
    EXPECT_EQ(image.imports[0].name, "late.dll");
    ASSERT_EQ(image.imports[0].functions.size(), 1U);
    EXPECT_EQ(image.imports[0].functions[0].ordinal, 3);
}

TEST(SplitForwarder, ModuleAndFunction) {
    const struct {
        const char* forwarder;
        bool isOne;
        const char* module;
        PeImport function;
    } rows[] = {
        {"other.Function", true, "other", {"Function", 0}},
        {"a.b.Function", true, "a.b", {"Function", 0}},
        {"other.#1290", true, "other", {"", 1290}},
        {"other.#65535", true, "other", {"", 65535}},
        {"other.#65536", false, "", {}},
        {"other.#99999999999999999999", false, "", {}},
        {"other.#", false, "", {}},
        {"other.#1x", false, "", {}},
        {"other.#1/", false, "", {}},
        {"other.#-1", false, "", {}},
        {"other.", false, "", {}},
        {".Function", false, "", {}},
        {"other", false, "", {}},
        {"", false, "", {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.forwarder);
        std::string_view module;
        PeImport function;
        ASSERT_EQ(SplitForwarder(row.forwarder, module, function), row.isOne);
        if (!row.isOne) continue;
        EXPECT_EQ(module, row.module);
        EXPECT_EQ(function.name, row.function.name);
        EXPECT_EQ(function.ordinal, row.function.ordinal);
    }
}

}  // namespace
