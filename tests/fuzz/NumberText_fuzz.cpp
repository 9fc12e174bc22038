#include "TEVSystemLib/util/string/detail/NumberText.h"
#include "fuzz/Fuzz.h"
#include "models/NumberModel.h"

using namespace TAMO::TEV::System::Util::detail;
using tev::fuzz::Exact;
using tev::fuzz::ExpectSame;

namespace {

using Halves = std::pair<std::string, std::string>;

int Class(IntegerText text) { return static_cast<int>(text); }

Halves HalvesModel(const std::string& text) {
    const std::size_t comma = text.find(',');
    const bool isPair = text.size() >= 5 && text[0] == '[' && text[text.size() - 1] == ']' &&
                        comma != std::string::npos;
    if (!isPair) return {};
    return {std::string(&text[1], &text[comma]),
            std::string(&text[comma + 1], &text[text.size() - 1])};
}

// What is read without a scan must be what the slow way would take, with its value.
template <typename T>
void CheckPlain(const std::string& text, Sign sign, const char* signs) {
    T value = 77;
    if (!ReadPlainInteger(text.c_str(), sign, value)) return ExpectSame(value, T{77}, "kept");
    const std::string ended = text.c_str();
    ExpectSame(Class(IntegerText::Digits), Class(tev::test::IntegerShape(ended, signs)), "plain");
    ExpectSame(std::to_string(value), std::to_string(static_cast<T>(std::stoll(ended))), "value");
}

void CheckReal(std::string_view view, const std::string& text) {
    double value = 77;
    if (!ReadReal(view, value)) return ExpectSame(value == 77, true, "kept");
    ExpectSame(true, tev::test::LooksReal(text), "a number from end to end");
    ExpectSame(value == std::strtod(text.c_str(), nullptr), true, "its value");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const Exact exact(text);
    ExpectSame(Class(ClassifyInteger(exact.View(), Sign::PlusOrMinus)),
               Class(tev::test::IntegerShape(text, "+-")), "a signed integer");
    ExpectSame(Class(ClassifyInteger(exact.View(), Sign::PlusOnly)),
               Class(tev::test::IntegerShape(text, "+")), "an unsigned integer");
    ExpectSame(MayBeReal(exact.View()), tev::test::LooksReal(text), "a real number");
    CheckPlain<int>(text, Sign::PlusOrMinus, "+-");
    CheckPlain<int>(text, Sign::PlusOnly, "+");
    CheckPlain<std::int64_t>(text, Sign::PlusOrMinus, "+-");
    CheckReal(exact.View(), text);
    const IndexTexts indices = SplitIndices(exact.View());
    ExpectSame(Halves(indices.first, indices.second), HalvesModel(text), "an index pair");
    return 0;
}
