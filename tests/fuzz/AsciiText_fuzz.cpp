#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "fuzz/Fuzz.h"
#include "models/TextModel.h"

using namespace TAMO::TEV::System::Util::detail;
using tev::fuzz::Exact;
using tev::fuzz::ExpectSame;

namespace {

bool IsBlankModel(char c) { return tev::test::kBlanks.find(c) != std::string_view::npos; }

// Where the trimmed text begins and how long it is, by the scan with two pointers.
std::pair<std::size_t, std::size_t> TrimModel(const std::string& text, bool start, bool end) {
    if (text.empty()) return {0, 0};
    std::size_t s = 0;
    std::size_t e = text.size() - 1;
    while (start && s != text.size() - 1 && IsBlankModel(text[s])) ++s;
    while (end && e != s && IsBlankModel(text[e])) --e;
    return {s, e == s && IsBlankModel(text[e]) ? 0 : e - s + 1};
}

void CheckTrim(const std::string& text) {
    const Exact exact(text);
    for (const bool start : {false, true}) {
        for (const bool end : {false, true}) {
            const std::string_view trimmed = Trim(exact.View(), start, end);
            ExpectSame(std::pair(static_cast<std::size_t>(trimmed.data() - exact.View().data()),
                                 trimmed.size()),
                       TrimModel(text, start, end), "trimmed");
        }
    }
    ExpectSame(std::string(TrimIfSpaced(exact.View())), tev::test::TrimmedIfSpaced(text),
               "trimmed if a space stands at an end");
}

void CheckCase(const std::string& text) {
    const Exact exact(text);
    ExpectSame(ToLower(exact.View()), tev::test::Lowered(text), "lower case");
    const std::string upper = ToUpper(exact.View());
    ExpectSame(upper.size(), text.size(), "upper case has the length");
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isLower = text[i] >= 'a' && text[i] <= 'z';
        ExpectSame(int{upper[i]}, isLower ? text[i] - 32 : int{text[i]}, "upper case");
    }
}

int OrderModel(const std::string& first, const std::string& second) {
    for (std::size_t i = 0; i < first.size() && i < second.size(); ++i) {
        const auto a = static_cast<unsigned char>(first[i]);
        const auto b = static_cast<unsigned char>(second[i]);
        if (a != b) return a < b ? -1 : 1;
    }
    if (first.size() == second.size()) return 0;
    return first.size() < second.size() ? -1 : 1;
}

void CheckOrder(const std::string& first, const std::string& second) {
    const Exact one(first);
    const Exact other(second);
    const int ignoringCase = OrderModel(tev::test::Lowered(first), tev::test::Lowered(second));
    ExpectSame(Compare(one.View(), other.View()), OrderModel(first, second), "order");
    ExpectSame(CompareIgnoringCase(one.View(), other.View()), ignoringCase, "order, any case");
    ExpectSame(EqualsIgnoringCase(one.View(), other.View()), ignoringCase == 0, "equal, any case");
}

}  // namespace

// Two texts.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tev::fuzz::Fields fields(data, size);
    const std::string first = fields.Next();
    const std::string second = fields.Rest();
    CheckTrim(first);
    CheckCase(first);
    CheckOrder(first, second);
    return 0;
}
