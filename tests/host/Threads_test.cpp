#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <string>

#include "TEVSystemLib/system/detail/DirectivePlan.h"
#include "TEVSystemLib/system/detail/PropertyIndex.h"
#include "TEVSystemLib/system/detail/ReferenceExpansion.h"
#include "TEVSystemLib/system/detail/WellKnownProperties.h"
#include "TEVSystemLib/util/file/detail/KeyValueParser.h"
#include "TEVSystemLib/util/file/detail/PathText.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/Bits.h"
#include "TEVSystemLib/util/string/detail/Errors.h"
#include "TEVSystemLib/util/string/detail/KeyValueText.h"
#include "TEVSystemLib/util/string/detail/NumberText.h"
#include "TEVSystemLib/util/string/detail/Padding.h"
#include "TEVSystemLib/util/string/detail/Replacement.h"
#include "TEVSystemLib/util/string/detail/SignificantFigures.h"
#include "TEVSystemLib/util/string/detail/Tokens.h"
#include "TEVSystemLib/util/string/detail/Utf8.h"
#include "TEVSystemLib/util/windows/detail/EnvironmentList.h"
#include "TEVSystemLib/util/windows/detail/ToolkitRoot.h"
#include "support/Base64Texts.h"
#include "support/Soak.h"

namespace {

namespace properties = TAMO::TEV::System::detail;
using namespace TAMO::TEV::System::Util::detail;
using ::testing::IsEmpty;
using tev::test::Decoded;
using tev::test::Encoded;
using tev::test::Job;
using tev::test::Soak;

std::string Number(unsigned seed) { return std::to_string(seed * 7919 + 1) + ".5"; }

std::string Letters(unsigned seed) {
    const std::string text =
        ToUpper("key " + Number(seed)) + ToLower("VALUE") + std::string(Trim("  x  "));
    return text + std::to_string(CompareIgnoringCase(text, "KEY 5")) +
           std::to_string(EqualsIgnoringCase(text, text)) + std::string(TrimIfSpaced(" \tx "));
}

std::string Encoding(unsigned seed) {
    const std::string encoded = Encoded("bytes of " + Number(seed));
    return encoded + Decoded(encoded);
}

std::string Unicode(unsigned seed) {
    const std::string text = "\xC3\xA4 " + Number(seed);
    std::u16string units(Utf16Size(text), u'?');
    WidenUtf8(text, units.data());
    std::string bytes(Utf8Size(std::u16string_view(units)), '?');
    NarrowUtf16(std::u16string_view(units), bytes.data());
    const Replacement replaced(bytes, "ae", "\xC3\xA4");
    std::string plain(replaced.Size(), '?');
    replaced.Write(plain.data());
    return bytes + plain;
}

std::string BitPatterns(unsigned seed) {
    std::string bytes{static_cast<char>(seed), static_cast<char>(~seed)};
    std::string text = std::to_string(UnsignedFromBytes(bytes)) + "," +
                       std::to_string(SignedFromBits(bytes, 11, BitAlignment::Left)) + "," +
                       BitsOf(static_cast<unsigned char>(seed));
    SwapBytes(bytes.data(), 1, 2);
    const char first[] = {0, static_cast<char>(seed & 1U), 1};
    char sum[3];
    bool carry = false;
    AddBitArrays(first, first, sum, 3, carry);
    for (const char bit : sum) text += std::to_string(bit);
    return text + std::to_string(UnsignedFromBytes(bytes));
}

std::string Figures(unsigned seed) {
    const std::string number = Number(seed);
    const auto figures = AnalyseFigures(number);
    const std::string rounded = RoundToFigures(number, 3).value_or("none");
    const std::string exponent = InExponentForm(rounded, 3);
    return std::to_string(figures->count) + "," + rounded + "," + exponent + "," +
           std::to_string(ExponentOf(exponent)->magnitude) + "," + WithoutIdlePoint(rounded) + "," +
           std::to_string(FiguresWorthShowing(seed * 7919 + 1.5, *figures, 0.25, {true, 1}));
}

std::string Numbers(unsigned seed) {
    const std::string number = Number(seed);
    return std::to_string(static_cast<int>(ClassifyInteger(number, Sign::PlusOnly))) +
           std::to_string(MayBeReal(number)) +
           std::string(SplitIndices("[" + number + ",2]").first) +
           Pad(number, 20, Fill::ZerosBehindSign) + Pad(number, 20, Fill::BlanksLeft);
}

std::string ReadNumbers(unsigned seed) {
    const std::string number = Number(seed);
    int plain = 0;
    std::int64_t leading = 0;
    double plainReal = 0;
    double real = 0;
    const bool areRead = ReadPlainInteger(number.c_str(), Sign::PlusOrMinus, plain) &&
                         ReadLeadingInteger(std::string_view(number), leading) &&
                         ReadPlainReal(number.c_str(), plainReal) && ReadReal(number + "e3", real);
    return std::to_string(areRead) + std::to_string(plain) + "," + std::to_string(leading) + "," +
           std::to_string(plainReal) + "," + std::to_string(real);
}

std::string Pairs(unsigned seed) {
    const std::string pair = "key" + Number(seed) + " = value";
    std::string text = std::string(*KeyOf(pair)) + std::string(*ValueOf(pair));
    const std::string file = "#x\n" + pair + "\nb c\r\n d=e\n";
    for (const auto syntax : {KeyValueSyntax::EqualSeparated, KeyValueSyntax::BlankSeparated}) {
        KeyValueParser parser(file, syntax);
        while (const auto next = parser.Next())
            text += "|" + std::string(next->key) + ":" + std::string(next->value);
    }
    for (const auto token : Tokens(". =", pair)) text += std::string(token) + "/";
    return text;
}

std::string Paths(unsigned seed) {
    const std::string path = " C:/a" + Number(seed) + "/b.txt ";
    const std::string normalised = NormalisedPath(path);
    return normalised + WithEndingSeparator(normalised) + FolderOf(path).value_or("none") +
           std::to_string(FileNameIndex(normalised).value_or(0)) +
           std::string(WithoutEndingSeparators(WithBackslashes("C:/x//"))) +
           RootBefore("data\\", "C:/kit" + Number(seed) + "/Data/").value_or("none");
}

std::string Lists(unsigned seed) {
    const std::string element = "E" + Number(seed);
    const std::string list = AddToList("a;b", element, ListPlace::Front).value_or("there");
    return list + "|" + RemoveFromList(list, "B") +
           std::string(SplitEnvironmentEntry("N=" + element)->value);
}

std::string Directives(unsigned seed) {
    const std::string name = "X" + std::to_string(seed);
    const std::map<std::string, std::string> entries{{"tev.env.add.1", name + "|1"},
                                                     {"tev.env.new.path.1", name + "|C:/"},
                                                     {"tev.env.del.1", name}};
    std::string text;
    for (const auto& step : properties::PlanDirectives(
             entries, [](const std::string& folder) { return !folder.empty(); }))
        text += std::to_string(static_cast<int>(step.kind)) + step.variable + step.value + ";";
    return text;
}

std::string Properties(unsigned seed) {
    const std::string value = Number(seed);
    return properties::ExpandReferences(
               "<%A%%B%>", [&](const std::string& key) { return key == "A" ? &value : nullptr; }) +
           std::to_string(properties::SwitchValue("Yes").value_or(false)) +
           std::string(properties::CorrectedValue("TEV.LOG.LEVEL", value).value_or("none"));
}

// All ask one index, as look-ups of one store do.
std::string Keys(unsigned seed) {
    static properties::Properties table = [] {
        properties::Properties made;
        for (unsigned i = 0; i < 100; i += 2) made["key " + std::to_string(i)] = Number(i);
        return made;
    }();
    static properties::Properties none;
    static const properties::PropertyIndex index = [] {
        properties::PropertyIndex opened;
        opened.Open({table, none});
        return opened;
    }();
    std::string values;
    for (unsigned i = 0; i < 20; ++i) {
        const auto* entry = index.Find("key " + std::to_string((seed + i) % 100));
        values += entry == nullptr ? "-;" : entry->second + ";";
    }
    return values;
}

std::string Translated(unsigned seed) try {
    try {
        if (seed % 2 == 0) throw std::bad_alloc();
        ThrowInvalidArgument(Number(seed).c_str());
    } catch (...) {
        RethrowTranslated();
    }
} catch (const std::exception& error) {
    return error.what();
}

TEST(PureCode, ReadsTheNumbersOfTheSoak) {
    EXPECT_EQ(ReadNumbers(1), "17920,7920,7920.500000,7920500.000000");
}

TEST(PureCode, GivesTheSameOn16Threads) {
    Soak soak({{"letters", Letters},
               {"encoding", Encoding},
               {"Unicode", Unicode},
               {"bits", BitPatterns},
               {"figures", Figures},
               {"numbers", Numbers},
               {"read numbers", ReadNumbers},
               {"pairs", Pairs},
               {"paths", Paths},
               {"lists", Lists},
               {"directives", Directives},
               {"properties", Properties},
               {"keys", Keys},
               {"errors", Translated}});
    EXPECT_THAT(soak.Differences(), IsEmpty());
    EXPECT_GE(soak.Rounds(), tev::test::kSoakThreads);
}

// The comparison itself: a job that threads share gives other results.
std::string Shared(unsigned) {
    static std::atomic<unsigned> calls{0};
    return std::to_string(++calls);
}

TEST(PureCode, WouldShowADifference) {
    EXPECT_FALSE(Soak({{"shared", Shared}}).Differences().empty());
}

}  // namespace
