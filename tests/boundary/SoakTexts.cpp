#include <TEVSystemLib/util/string/TEVUtilString.h>

#include "boundary/Jobs.h"
#include "support/Owned.h"

namespace tev::test {

namespace {

using TAMO::TEV::System::Util::TEVUtilString;

std::string Searching(unsigned seed) {
    const std::string number = Number(seed);
    const char* text = number.c_str();
    const char* allowed = "0123456789";
    std::size_t count = number.size() - 2;
    const bool isIn = TEVUtilString::IsInRange(allowed, text, &count);
    return Line(isIn, count, TEVUtilString::Compare(text, "7"),
                TEVUtilString::Compare(true, number, "a"), TEVUtilString::IndexOf(text, ".5"),
                TEVUtilString::LastIndexOf(text, "15"), TEVUtilString::Contains(text, "9.5"),
                TEVUtilString::CharacterCount('1', text), TEVUtilString::StartWith("1", text),
                TEVUtilString::EndWith(true, "7.5", text));
}

std::string Parts(unsigned seed) {
    const std::string number = Number(seed);
    const std::string padded = " \t" + number + "K \r\n";
    const std::string pair = "key = " + number;
    Text part;
    Text trimmed;
    std::string bytes;
    TEVUtilString::SubString(number.c_str(), 1, 2, part.Out());
    TEVUtilString::GetBytes(number.c_str(), 0, 3, bytes);
    TEVUtilString::MemCopyTrimmedString(padded.c_str(), trimmed.Out());
    return Line(part.str(), bytes, trimmed.str(), TEVUtilString::ToLower(padded),
                TEVUtilString::TrimStart(padded.c_str()), TEVUtilString::TrimEnd(padded.c_str()),
                TEVUtilString::GetValueFromKeyValuePair(pair.c_str()));
}

std::string Scanning(unsigned seed) {
    const std::string number = Number(seed);
    bool isOn = false;
    long whole = 0;
    unsigned natural = 0;
    std::uint64_t large = 0;
    int first = 0;
    int second = 0;
    TEVUtilString::ToBool(seed % 2 == 0 ? "true" : "no", isOn);
    TEVUtilString::ToLong(("-" + number).c_str(), whole);
    TEVUtilString::ToUnsignedInt(number.c_str(), natural);
    TEVUtilString::ToUInt64(number.c_str(), large);
    TEVUtilString::ExtractIndices(("[" + std::to_string(seed) + ",2]").c_str(), first, second);
    return Line(isOn, whole, natural, large, first, second);
}

std::string Figures(unsigned seed) {
    bool hasDigits = false;
    bool hasPoint = false;
    int first = 0;
    int last = 0;
    int point = 0;
    int count = 0;
    TEVUtilString::GetSignificantFiguresInfo(Number(seed).c_str(), hasDigits, hasPoint, first, last,
                                             point, count);
    Text truncated;
    TEVUtilString::TruncateUncertaintyValue(seed + 0.25, truncated.Out(), seed % 2 == 0, 2);
    return Line(hasDigits, hasPoint, first, last, point, count, truncated.str());
}

std::string BitArrays(unsigned seed) {
    const char bytes[] = {static_cast<char>(seed), 2, 3, 4};
    unsigned long number = 0;
    std::int64_t large = 0;
    long small = 0;
    TEVUtilString::BinaryToUnsignedLong(bytes, sizeof bytes, number);
    TEVUtilString::BitsToSignedInt64('L', bytes, large, 20, sizeof bytes);
    TEVUtilString::BitsToSignedLong('R', bytes, small, 20, sizeof bytes);
    char addend[] = {0, 1, static_cast<char>(seed % 2)};
    char sum[] = {0, 0, 0};
    bool carry = false;
    TEVUtilString::AddTwoBinaryBitArrays(carry, addend, addend, sum, sizeof sum);
    Text decimal;
    TEVUtilString::DecimalRepresentationOfBinary(bytes, sizeof bytes, decimal.Out(), true, true);
    return Line(number, large, small, carry, +sum[0], +sum[1], +sum[2], decimal.str());
}

// The real numbers twice, since the halves of one may be no number.
std::string ByteOrders(unsigned seed) {
    short words[] = {static_cast<short>(seed), 2};
    float floats[] = {static_cast<float>(seed), 2};
    double doubles[] = {static_cast<double>(seed), 2};
    TEVUtilString::Swap16BitWord(words, 2);
    for (int i = 0; i < 2; ++i) {
        TEVUtilString::Swap32BitFloat(floats, 2);
        TEVUtilString::Swap64BitDouble(doubles, 2);
    }
    return Line(words[0], words[1], floats[0], doubles[0],
                static_cast<int>(TEVUtilString::SystemByteOrder()));
}

std::string Buffers(unsigned seed) {
    Text letters;
    unsigned char* bytes = nullptr;
    std::string line = Line(TEVUtilString::GetCharArray(seed + 1, letters.Out(), 'x'),
                            TEVUtilString::GetUnsignedCharArray(seed + 1, &bytes));
    line += letters.get()[seed];
    line += std::to_string(bytes[seed]);
    TEVUtilString::DeleteUnsignedCharArray(&bytes);
    std::vector<char*>* messages = nullptr;
    TEVUtilString::GetMsgsVector(&messages);
    line += Line(messages->size());
    line += Line(TEVUtilString::DeleteMsgsVector(&messages));
    std::vector<const char*>** containers = nullptr;
    line += Line(TEVUtilString::GetCStringVectorContainerArray(seed + 1, containers));
    TEVUtilString::DeleteCStringVectorContainerArray(seed + 1, containers);
    return line;
}

std::string GrownArrays(unsigned seed) {
    std::string number = Number(seed);
    std::vector<char*> entries{number.data()};
    TextArray texts;
    texts.count = TEVUtilString::GetCStringArray(texts.array, 2);
    TEVUtilString::AddEntriesToStringArray(texts.array, texts.count, entries, true, true);
    const char** constants = nullptr;
    std::string line = Line(TEVUtilString::GetConstCStringArray(constants, 2));
    TEVUtilString::DeleteConstCStringArray(constants, 2);
    for (const std::string& text : texts.Strings()) line += text + "|";
    Text copy;
    TEVUtilString::Copy(number.c_str(), copy.Out(), nullptr);
    line += copy.str();
    TEVUtilString::DeleteCString(copy.Out());
    WideText wide;
    TEVUtilString::Copy(L"wide", wide.Out(), nullptr);
    line += Narrow(wide.str());
    TEVUtilString::DeleteWCharBuffer(wide.Out());
    TEVUtilString::DeleteCStringArray(texts.array, texts.count);
    return line;
}

}  // namespace

std::vector<Job> TextJobs() {
    return {{"searching", Searching},  {"parts", Parts},
            {"scanning", Scanning},    {"figures", Figures},
            {"bit arrays", BitArrays}, {"byte orders", ByteOrders},
            {"buffers", Buffers},      {"grown arrays", GrownArrays}};
}

}  // namespace tev::test
