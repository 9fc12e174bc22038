#include <TEVSystemLib/system/TEVSysUtil.h>
#include <TEVSystemLib/system/TEVSystemDiagnostics.h>
#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <TEVSystemLib/system/XCode.h>
#include <TEVSystemLib/util/file/TEVIO.h>
#include <TEVSystemLib/util/file/TEVUtilFile.h>
#include <TEVSystemLib/util/memory/TEVUtilMemory.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "boundary/Jobs.h"
#include "support/Com.h"
#include "support/Folder.h"
#include "support/Owned.h"

// What promises to be safe on distinct data, the look-up of keys that the store holds, and
// snapshots that all threads read.
namespace {

using TAMO::TEV::System::TEVSystemDiagnostics;
using TAMO::TEV::System::TEVSystemProperties;
using TAMO::TEV::System::XCode;
using TAMO::TEV::System::Util::TEVIO;
using TAMO::TEV::System::Util::TEVSysUtil;
using TAMO::TEV::System::Util::TEVUtilFile;
using TAMO::TEV::System::Util::TEVUtilMemory;
using TAMO::TEV::System::Util::TEVUtilString;
using TAMO::TEV::System::Util::TEVUtilWindows;
using MsgLevel = TAMO::TEV::System::TEVSysCnst::MsgLevel;
using ::testing::IsEmpty;
using tev::test::Bstr;
using tev::test::Folder;
using tev::test::Job;
using tev::test::Narrow;
using tev::test::Number;
using tev::test::Soak;
using tev::test::Text;
using tev::test::TextArray;
using tev::test::Variant;
using tev::test::WideText;

std::string Parsing(unsigned seed) {
    const std::string number = Number(seed);
    int integer = 0;
    std::int64_t large = 0;
    double real = 0;
    TEVUtilString::ToInteger(number.c_str(), integer);
    TEVUtilString::ToInt64(std::to_string(seed).c_str(), large);
    TEVUtilString::ToDouble(number.c_str(), real);
    return TEVUtilString::ToString(integer) + TEVUtilString::ToString(large) +
           TEVUtilString::ToString(real, true, 3) +
           TEVUtilString::ToString('R', real, 30, 2, true, true);
}

std::string Texts(unsigned seed) {
    const std::string text = "  Key = " + Number(seed) + " ";
    Text copy;
    Text joined;
    TEVUtilString::Copy(text.c_str(), copy.Out(), nullptr);
    TEVUtilString::Concat(copy.get(), "tail", joined.Out());
    return TEVUtilString::Replace(joined.str(), "<>", "=") + TEVUtilString::ToUpper(text) +
           TEVUtilString::Trim(text) + TEVUtilString::GetKeyFromKeyValuePair(text.c_str()) +
           std::to_string(TEVUtilString::Find(text.c_str(), ".5"));
}

std::string Arrays(unsigned seed) {
    TextArray tokens;
    TEVUtilString::Tokenize(". ", ("a " + Number(seed)).c_str(), tokens.array, tokens.count);
    TEVUtilString::AddEntryToStringArray(tokens.array, "last", tokens.count, true);
    std::string all;
    for (const std::string& token : tokens.Strings()) all += token + "|";
    double* numbers = nullptr;
    all += std::to_string(TEVUtilMemory::AllocateDoubleArray(seed + 1, &numbers));
    for (unsigned i = 0; i <= seed; ++i) all += numbers[i] == 0 ? "" : "not zero";
    TEVUtilMemory::DeallocateDoubleArray(&numbers);
    return all;
}

std::string Encodings(unsigned seed) {
    const std::string number = Number(seed);
    Text encoded;
    Text decoded;
    WideText wide;
    Text narrow;
    std::size_t length = 0;
    TEVUtilString::Base64Encode(reinterpret_cast<const unsigned char*>(number.data()),
                                number.size(), encoded.Out());
    TEVUtilString::Base64Decode(encoded.get(), decoded.Out(), length);
    TEVUtilString::ConvertFromCharToWChar(number.c_str(), wide.Out());
    TEVUtilString::ConvertFromWCharToChar(wide.get(), narrow.Out());
    WideText units;
    Text bytes;
    const std::string mixed = "\xC3\xA4" + number;
    TEVUtilString::ConvertFromMultiByteCharToWChar(mixed.c_str(), mixed.size(), units.Out(),
                                                   &length);
    TEVUtilString::ConvertFromWCharToMultiByteChar(bytes.Out(), units.get(), length, &length);
    return encoded.str() + decoded.str() + narrow.str() + bytes.str() + std::to_string(length);
}

std::string BitsAndMessages(unsigned seed) {
    const char bytes[] = {1, 2, static_cast<char>(seed), 4};
    std::uint64_t number = 0;
    TEVUtilString::BinaryToUnsignedInt64(bytes, sizeof bytes, number);
    int words[] = {static_cast<int>(seed), 2, 3};
    TEVUtilString::Swap32BitWord(words, 3);
    std::map<MsgLevel, std::vector<char*>*>* messages = nullptr;
    TEVUtilString::GetMsgsMap(&messages);
    TEVUtilString::AddMessage(Number(seed).c_str(), MsgLevel::Warn, *messages);
    const std::string text =
        std::to_string(number) + std::to_string(words[0]) + messages->at(MsgLevel::Warn)->front();
    TEVUtilString::DeleteMsgsMap(&messages);
    return text;
}

std::string MeasuredValues(unsigned seed) {
    Text value;
    Text uncertainty;
    std::string text;
    for (const bool scientific : {false, true}) {
        TEVUtilString::SignificantFigures(seed * 7919 + 1.5, 0.25, value.Out(), uncertainty.Out(),
                                          scientific);
        text += value.str() + " +- " + uncertainty.str() + ";";
    }
    return text;
}

std::string Refusals(unsigned seed) {
    try {
        TEVUtilString::Find(seed % 2 == 0 ? nullptr : "", Number(seed).c_str());
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "accepted";
}

std::string Identities(unsigned seed) {
    Text copy;
    const Text id(
        TEVSysUtil::GetTEVSystemObjectID(Number(seed).c_str(), "Class", seed, copy.Out()));
    return id.str() + copy.str() + std::to_string(XCode::GetXCodeInstruction(" maximum "));
}

std::string Files(unsigned seed) {
    const Folder folder;
    const std::string content = "key=" + Number(seed) + "\n";
    const std::string path = folder / "a.txt";
    TEVIO(path, TEVIO::Write).write(content.data(), content.size());
    Text all;
    std::uint64_t size = 0;
    TEVIO::readFile(path.c_str(), all.Out(), size);
    std::map<std::string, std::string> pairs;
    TEVUtilFile::GetKeyValuePairsFromFile(path, pairs, false);
    TextArray files;
    TEVUtilFile::GetFilesInDirWithGivenExt(files.array, folder.Path().c_str(), ".txt", files.count);
    Text name;
    TEVUtilFile::GetFileName(path.c_str(), name.Out());
    return all.str() + std::to_string(size) + pairs["key"] + std::to_string(files.count) +
           name.str() + std::to_string(TEVIO::exists(path.c_str())) +
           std::to_string(TEVUtilWindows::DirectoryExists(folder.Path().c_str()));
}

std::string ComTexts(unsigned seed) {
    Bstr text;
    Bstr copy;
    TEVUtilWindows::FromMultibyteCharToBSTR(Number(seed).c_str(), text.Out());
    TEVUtilWindows::CopyBSTR(text.get(), copy.Out());
    Text back;
    TEVUtilWindows::FromBSTRToMultibyteChar(copy.get(), back.Out());
    const _GUID guid{seed, 1, 2, {3, 4, 5, 6, 7, 8, 9, 10}};
    WideText guidText;
    TEVUtilWindows::ConvertCLSIDToString(guid, guidText.Out());
    _GUID parsed{};
    TEVUtilWindows::GetCLSIDFromString(guidText.get(), parsed);
    return back.str() + Narrow(guidText.str()) + std::to_string(parsed.Data1) +
           std::to_string(TEVUtilWindows::CompareBSTR(true, text.get(), copy.get())) +
           std::to_string(TEVUtilWindows::GetGUID().size());
}

std::string ComArrays(unsigned seed) {
    int numbers[] = {static_cast<int>(seed), 2, 3};
    Variant variant;
    TEVUtilWindows::SetIntArrayVARIANT(numbers, 3, variant.Out());
    int* back = nullptr;
    std::uint64_t count = 0;
    TEVUtilWindows::ExtractIntArrayFromVARIANT(&back, count, variant.get());
    const std::string text = std::to_string(count) + ":" + std::to_string(back[0]);
    TEVUtilWindows::DeleteIntBuffer(&back);
    std::string value = Number(seed);
    const std::map<std::string, char*> table{{"key", value.data()}};
    Variant rows;
    TEVUtilWindows::CreateKeyValueDataVariant(&table, rows.Out(), "", nullptr);
    return text + Narrow(tev::test::TextAt(rows.Array(), {0, 0})) +
           Narrow(tev::test::TextAt(rows.Array(), {0, 1}));
}

std::string Process(unsigned seed) {
    Text folder;
    Text variable;
    TEVUtilWindows::GetFullyQualifiedExePath(folder.Out());
    TEVUtilWindows::GetEnv("PATH", variable.Out());
    const Text module(TEVUtilWindows::GetModuleFullyQualifiedName("TEVSystemLib.dll"));
    const Text directory(TEVUtilWindows::GetDirectory(("C:/" + Number(seed) + "/x").c_str()));
    Text home;
    TEVUtilWindows::GetCurrentUserHomeFolder(home.Out());
    return folder.str() + variable.str() + module.str() + directory.str() + home.str();
}

std::string KeyOf(unsigned seed) { return "soak." + std::to_string(seed); }

// The store, made on one thread, with a key for each seed. A long one does not fit the room that
// keys share.
class KnownKeys {
 public:
    KnownKeys() {
        TEVSystemDiagnostics::TakePropertiesSnapshot(before);
        for (unsigned seed = 0; seed < tev::test::kSoakThreads * tev::test::kSeedsAThread; ++seed) {
            TEVSystemProperties::SetUserProperty(KeyOf(seed).c_str(), Number(seed).c_str());
            TEVSystemProperties::SetUserProperty((KeyOf(seed) + kSwitch).c_str(),
                                                 seed % 3 == 0 ? "true" : "false");
        }
        TEVSystemDiagnostics::TakePropertiesSnapshot(after);
    }
    ~KnownKeys() {
        before = after = nullptr;
        TEVSystemProperties::InitializeProperties();
    }
    KnownKeys(const KnownKeys&) = delete;
    KnownKeys& operator=(const KnownKeys&) = delete;

    static inline const std::string kSwitch = std::string(200, '.') + "switch";
    // Without the keys, and with them.
    static inline TEVSystemDiagnostics::Snapshot before;
    static inline TEVSystemDiagnostics::Snapshot after;
};

std::string LookUps(unsigned seed) {
    const char* value = nullptr;
    bool isOn = false;
    const bool isFound = TEVSystemProperties::GetProperty(KeyOf(seed).c_str(), value);
    TEVSystemProperties::GetPropertyAsBool(isOn, (KeyOf(seed) + KnownKeys::kSwitch).c_str());
    return (isFound ? value : "not found") + std::to_string(isOn);
}

// The snapshots are shared; the copies of the pointers are the thread's own.
std::string Snapshots(unsigned seed) {
    const TEVSystemDiagnostics::Snapshot before = KnownKeys::before;
    const TEVSystemDiagnostics::Snapshot after = KnownKeys::after;
    std::vector<TEVSystemDiagnostics::Change> changes;
    const bool isCompared = TEVSystemDiagnostics::CompareSnapshots(before, after, changes);
    const auto& change = changes.at(seed);
    return tev::test::Line(isCompared, changes.size(), change.key, change.before.has_value(),
                           change.after.value_or("gone"), after->user.at(KeyOf(seed)));
}

std::vector<Job> AllJobs() {
    std::vector<Job> jobs{{"parsing", Parsing},
                          {"texts", Texts},
                          {"arrays", Arrays},
                          {"encodings", Encodings},
                          {"bits and messages", BitsAndMessages},
                          {"measured values", MeasuredValues},
                          {"refusals", Refusals},
                          {"identities", Identities},
                          {"files", Files},
                          {"COM texts", ComTexts},
                          {"COM arrays", ComArrays},
                          {"process", Process},
                          {"look-ups", LookUps},
                          {"snapshots", Snapshots}};
    for (const auto& more : {tev::test::TextJobs(), tev::test::MemoryJobs(), tev::test::ComJobs(),
                             tev::test::OverloadJobs(), tev::test::ProcessJobs()})
        jobs.insert(jobs.end(), more.begin(), more.end());
    return jobs;
}

void ExpectTheSame(std::vector<Job> jobs) {
    Soak soak(std::move(jobs));
    EXPECT_THAT(soak.Differences(), IsEmpty());
    EXPECT_GE(soak.Rounds(), tev::test::kSoakThreads);
    testing::Test::RecordProperty("Rounds", static_cast<int>(soak.Rounds()));
}

TEST(Threads, GiveTheSameOn16OfThem) {
    const KnownKeys keys;
    ExpectTheSame(AllJobs());
}

// Nothing else comes between them: what they share is held for less than a microsecond.
TEST(Threads, LookUpTheirOwnKeysInOneStore) {
    const KnownKeys keys;
    EXPECT_EQ(LookUps(3), Number(3) + "1");
    ExpectTheSame({{"look-ups", LookUps}});
}

}  // namespace
