#include <TEVSystemLib/system/TEVSystemObject.h>
#include <TEVSystemLib/util/file/TEVIO.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include <algorithm>

#include "boundary/Jobs.h"
#include "support/Com.h"
#include "support/Folder.h"
#include "support/Owned.h"

// The functions that have the name of one in another job, but other arguments.
namespace tev::test {

namespace {

using TAMO::TEV::System::TEVSystemObject;
using TAMO::TEV::System::Util::TEVIO;
using TAMO::TEV::System::Util::TEVUtilString;
using TAMO::TEV::System::Util::TEVUtilWindows;

std::string Integers(unsigned seed) {
    const auto small = static_cast<int>(seed) - 9;
    const auto natural = seed * 7919;
    const std::int64_t large = std::int64_t{small} * 1'000'000'000'007;
    const std::uint64_t largest = std::uint64_t{natural} * 1'000'000'000'007;
    constexpr std::uint64_t kWidth = 30;
    const char side = seed % 2 == 0 ? 'L' : 'R';
    return Line(TEVUtilString::ToString(natural), TEVUtilString::ToString(long{small}),
                TEVUtilString::ToString(static_cast<unsigned long>(natural)),
                TEVUtilString::ToString(largest),
                TEVUtilString::ToString(side, small, kWidth, true, false),
                TEVUtilString::ToString(side, long{small}, kWidth, true, true),
                TEVUtilString::ToString(side, large, kWidth, false, true),
                TEVUtilString::ToString(side, largest, kWidth, false, false),
                TEVUtilString::ToString(side, kWidth, natural, true, true));
}

void Unfilled(const char* text, char** out) {
    TEVUtilString::GetCharArray(std::char_traits<char>::length(text), out);
    std::fill_n(*out, 1, '\0');
}

// The functions that hand out a text.
std::string FilledTexts(unsigned seed) {
    using Fill = void (*)(const char*, char**);
    const Fill fills[] = {
        &TEVUtilString::ToLower,
        &TEVUtilString::ToUpper,
        &TEVUtilString::TrimEnd,
        &TEVUtilString::TrimStart,
        [](const char* text, char** out) { TEVUtilString::Trim(text, out); },
        &TEVUtilString::GetKeyFromKeyValuePair,
        &TEVUtilString::GetValueFromKeyValuePair,
        [](const char* text, char** out) { TEVUtilString::Replace(text, "<>", "=", out); },
        [](const char* text, char** out) { TEVUtilString::GetBytes(text, 2, 4, out); },
        [](const char* text, char** out) { TEVUtilString::Concat(text, "tail", out); },
        Unfilled};
    const std::string pair = "  Key = " + Number(seed) + " ";
    std::string line;
    for (const Fill fill : fills) {
        Text text;
        fill(pair.c_str(), text.Out());
        line += Line(text.str());
    }
    Text real;
    TEVUtilString::ToString(real.Out(), seed + 0.5, true, 3);
    return line + real.str();
}

std::string GivenTexts(unsigned seed) {
    const std::string pair = "  Key = " + Number(seed) + " ";
    const char* text = pair.c_str();
    std::size_t length = 0;
    const char* trimmed = TEVUtilString::Trim(text, length, true, true);
    std::string part;
    TEVUtilString::SubString(text, 2, 5, part);
    return Line(std::string(trimmed, length), part, TEVUtilString::Trim(text),
                TEVUtilString::ToLower(text), TEVUtilString::ToUpper(text),
                TEVUtilString::Replace(text, "<>", "="), TEVUtilString::Concat(text, "tail"),
                TEVUtilString::Compare(true, text, "  kEY"),
                TEVUtilString::StartWith(true, "  kEY", text), TEVUtilString::EndWith("5 ", text));
}

std::string Rows(unsigned seed) {
    const std::string number = Number(seed);
    TextArray texts;
    TextArray more;
    TEVUtilString::AddEntryToStringArray(texts.array, "first", texts.count, true);
    TEVUtilString::AddEntryToStringArray(more.array, number.c_str(), more.count, true);
    TEVUtilString::AddEntriesToStringArray(texts.array, more.array, texts.count, more.count, true,
                                           false);
    std::string line = Line(texts.Strings().size(), texts.Strings().back());
    std::vector<char*> copies;
    const char* source = number.c_str();
    TEVUtilString::Copy(source, copies, false, nullptr);
    for (char* copy : copies) {
        line += copy;
        TEVUtilString::DeleteCString(&copy);
    }
    unsigned short words[] = {static_cast<unsigned short>(seed), 2};
    unsigned integers[] = {seed, 2};
    TEVUtilString::Swap16BitWord(words, 2);
    TEVUtilString::Swap32BitWord(integers, 2);
    return line + Line(words[0], integers[0]);
}

std::string FilesByName(unsigned seed) {
    const Folder folder;
    const std::string path = folder.Write("a.text", Number(seed));
    TEVIO file;
    file.open(path.c_str(), TEVIO::Read);
    char bytes[] = "??";
    const auto read = static_cast<const TEVIO&>(file).read(bytes, 2, 1);
    return Line(static_cast<bool>(file), read, bytes, file.fileSize(), TEVIO::exists(path),
                TEVIO::dirExists(folder.Path().c_str()),
                static_cast<bool>(TEVIO(path.c_str(), TEVIO::Read)));
}

// New identifiers are all different.
std::string Identifiers(unsigned seed) {
    const _GUID known{seed, 1, 2, {3, 4, 5, 6, 7, 8, 9, 10}};
    Text text;
    TEVUtilWindows::ConvertCLSIDToString(known, text.Out());
    _GUID parsed{};
    TEVUtilWindows::GetCLSIDFromString(text.get(), parsed);
    _GUID made{};
    Text madeText;
    return Line(text.str(), parsed.Data1, TEVUtilWindows::GetGUID(&made),
                TEVUtilWindows::GetGUID(madeText.Out()), madeText.str().size());
}

std::string ModulesAndVariants(unsigned seed) {
    HINSTANCE__* module = nullptr;
    int code = -1;
    const bool isLoaded = TEVUtilWindows::LoadModule("kernel32.dll", module, nullptr, 0, &code);
    TEVUtilWindows::FreeModuleHandle(module);
    Variant variant;
    const bool isMade = TEVUtilWindows::CreateSafeArrayOfVariants(variant.Out(), seed + 1);
    return Line(isLoaded, code, isMade, BoundsOf(variant.Array(), 1).first);
}

class Thing : public TEVSystemObject {
 public:
    using TEVSystemObject::SetTEVSystemObject;
};

std::string Objects(unsigned seed) {
    Thing thing;
    const Thing other;
    const bool isSet = thing.SetTEVSystemObject(Number(seed).c_str(), " Thing ", seed + 1);
    return Line(isSet, thing.IsValidTEVSystemObject(), thing.GetTEVSystemObjectID(),
                thing.GetTEVSystemObjectClassName(), thing.GetObjectCount(), thing == other,
                thing != other);
}

}  // namespace

std::vector<Job> OverloadJobs() {
    return {{"integers", Integers},
            {"filled texts", FilledTexts},
            {"given texts", GivenTexts},
            {"rows", Rows},
            {"files by name", FilesByName},
            {"identifiers", Identifiers},
            {"modules and variants", ModulesAndVariants},
            {"objects", Objects}};
}

}  // namespace tev::test
