#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <utility>

#include "models/Utf8Model.h"
#include "support/Com.h"
#include "support/Effort.h"
#include "support/Owned.h"
#include "support/Random.h"

// ASCII and valid UTF-8 are converted without the system and the C runtime: here both ways run side
// by side.
namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::Bstr;
using tev::test::Repetitions;
using tev::test::SafeArray;
using tev::test::Text;
using tev::test::TextArray;
using tev::test::Variant;
using tev::test::WideText;

constexpr std::int64_t kInputs = 1'000'000;

// Nothing for what is refused.
using Narrow = std::optional<std::string>;
using Wide = std::optional<std::wstring>;

Wide WidenUtf8(const std::string& text) {
    WideText wide;
    std::size_t length = 0;
    if (!TEVUtilString::ConvertFromMultiByteCharToWChar(text.data(), text.size(), wide.Out(),
                                                        &length))
        return {};
    EXPECT_EQ(wide.get()[length], L'\0');
    return std::wstring(wide.get(), length);
}

Narrow NarrowToUtf8(const std::wstring& wide) {
    Text text;
    std::size_t length = 0;
    if (!TEVUtilString::ConvertFromWCharToMultiByteChar(text.Out(), wide.data(), wide.size(),
                                                        &length))
        return {};
    EXPECT_EQ(text.get()[length], '\0');
    return std::string(text.get(), length);
}

Wide WidenFromLocale(const std::string& text) {
    WideText wide;
    if (!TEVUtilString::ConvertFromCharToWChar(text.c_str(), wide.Out())) return {};
    return wide.get();
}

Narrow NarrowToLocale(const std::wstring& wide) try {
    Text text;
    TEVUtilString::ConvertFromWCharToChar(wide.c_str(), text.Out());
    return text.get();
} catch (const std::runtime_error&) {
    return {};
}

Wide WidenToBstr(const std::string& text) {
    Bstr wide;
    if (!TEVUtilWindows::FromMultibyteCharToBSTR(text.c_str(), wide.Out())) return {};
    return wide.str();
}

Narrow NarrowBstr(const std::wstring& wide) {
    Text text;
    if (!TEVUtilWindows::FromBSTRToMultibyteChar(Bstr(wide).get(), text.Out())) return {};
    return text.get();
}

Narrow NarrowElement(const std::wstring& wide) {
    SafeArray array(VT_BSTR, {{1, 0}});
    EXPECT_TRUE(tev::test::PutText(array.get(), {0}, wide));
    Variant variant(VT_ARRAY | VT_BSTR, std::move(array));
    TextArray texts;
    if (!TEVUtilWindows::ExtractStringArrayFromVariant(texts.array, texts.count, variant.get()))
        return {};
    return texts.array[0];
}

template <UINT codePage>
Wide WidenBySystem(const std::string& text) {
    const auto count = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(codePage, 0, text.data(), count, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    EXPECT_EQ(MultiByteToWideChar(codePage, 0, text.data(), count, wide.data(), size), size);
    return wide;
}

template <UINT codePage>
Narrow NarrowBySystem(const std::wstring& wide) {
    const auto count = static_cast<int>(wide.size());
    const int size =
        WideCharToMultiByte(codePage, 0, wide.data(), count, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(size), '\0');
    EXPECT_EQ(
        WideCharToMultiByte(codePage, 0, wide.data(), count, text.data(), size, nullptr, nullptr),
        size);
    return text;
}

constexpr auto kRefused = static_cast<std::size_t>(-1);

Wide WidenByRuntime(const std::string& text) {
    std::wstring wide(text.size() + 1, L'\0');
    const std::size_t size = std::mbstowcs(wide.data(), text.c_str(), wide.size());
    if (size == kRefused) return {};
    wide.resize(size);
    return wide;
}

Narrow NarrowByRuntime(const std::wstring& wide) {
    std::string text(2 * wide.size() + 1, '\0');
    const std::size_t size = std::wcstombs(text.data(), wide.c_str(), text.size());
    if (size == kRefused) return {};
    text.resize(size);
    return text;
}

// The longest text here, and the length from which on a text is tried for ASCII as a whole.
constexpr std::size_t kMost = 600;
constexpr std::size_t kLong = 256;

class RandomCharacters : public tev::test::Random {
 public:
    // Mostly of those that a locale knows, or of all.
    explicit RandomCharacters(bool mostlyLatin) : Random(20261122), mostlyLatin_(mostlyLatin) {}

    // In UTF-8; more than one in four have a byte that does not belong there, or break off.
    std::string NextNarrow() {
        std::string text = Next<std::string>(tev::test::BytesOf);
        if (OneIn(4)) text[Below(text.size())] = static_cast<char>(0x80 + Below(0x80));
        return text;
    }

    std::wstring NextWide() {
        return Next<std::wstring>([](std::uint32_t character) {
            const std::u16string units = tev::test::UnitsOf(character);
            return std::wstring(units.begin(), units.end());
        });
    }

 private:
    // Mostly short.
    std::size_t Size() {
        if (!OneIn(4)) return 1 + Below(24);
        return Coin() ? kLong - 1 + Below(3) : 1 + Below(kMost);
    }

    // A quarter each: ASCII only, ASCII up to one character, Latin-1, those of every length.
    template <typename String, typename Encode>
    String Next(Encode encode) {
        const std::size_t size = Size();
        const std::size_t kind = Below(4);
        const std::string ascii = this->Text("abcxyz .,/\\_09A\x01\x7F", size);
        String text(ascii.begin(), ascii.end());
        if (kind == 0) return text;
        for (std::size_t place = kind == 1 ? Below(size) : 0; place < size;) {
            const String character = encode(kind == 2 ? Latin() : Character());
            text.replace(place, character.size(), character);
            place += kind == 1 ? size : character.size() + (Coin() ? 0 : Below(20));
        }
        text.resize(size);
        return text;
    }

    // A few of them are control characters, which the ANSI code page has not.
    std::uint32_t Latin() {
        return static_cast<std::uint32_t>(OneIn(64) ? 0x80 + Below(0x20) : 0xA0 + Below(0x60));
    }
    // Not 0; now and then a surrogate, which is none.
    std::uint32_t Character() {
        if (mostlyLatin_ && !OneIn(64)) return Latin();
        return static_cast<std::uint32_t>(1 + (Below(tev::test::kCharactersEnd - 1) >> Below(20)));
    }

    bool mostlyLatin_;
};

constexpr char kPlainLocale[] = "C";
constexpr char kAnsiLocale[] = "German_Germany.1252";

// What is tested and what it is to agree with.
template <typename To, typename From>
struct Way {
    const char* name;
    To (*ours)(const From&);
    To (*plain)(const From&);
    // Null for those that ask none. What it lacks is refused, by an exception that takes long.
    const char* locale = nullptr;

    friend void PrintTo(const Way& way, std::ostream* stream) { *stream << way.name; }
};
using Widening = Way<Wide, std::string>;
using Narrowing = Way<Narrow, std::wstring>;

template <typename Tested>
class Conversion : public testing::TestWithParam<Tested> {
 protected:
    Conversion() { EXPECT_NE(std::setlocale(LC_ALL, this->GetParam().locale), nullptr); }
    ~Conversion() override { std::setlocale(LC_ALL, kPlainLocale); }

    template <typename String>
    void Compare(String (RandomCharacters::*next)()) {
        RandomCharacters texts(this->GetParam().locale != nullptr);
        for (std::int64_t i = 0; i < Repetitions(kInputs) && !this->HasFatalFailure(); ++i)
            CompareOne((texts.*next)());
    }

    // One foreign unit at every place.
    template <typename String>
    void CompareEdges(typename String::value_type foreign) {
        for (const std::size_t size :
             {1U, 2U, 15U, 16U, 17U, 31U, 32U, 33U, 64U, 65U, 254U, 255U, 256U, 257U, 258U, 600U}) {
            for (std::size_t place = 0; place < size && !this->HasFatalFailure(); ++place) {
                String text(size, 'x');
                text[place] = foreign;
                CompareOne(text);
            }
        }
    }

 private:
    template <typename String>
    void CompareOne(const String& text) {
        ASSERT_EQ(this->GetParam().ours(text), this->GetParam().plain(text))
            << testing::PrintToString(text);
    }
};
using FastWidening = Conversion<Widening>;
using FastNarrowing = Conversion<Narrowing>;

const auto kNameOf = [](const auto& way) { return way.param.name; };

TEST_P(FastWidening, AgreesWithThePlainWay) { Compare(&RandomCharacters::NextNarrow); }

TEST_P(FastWidening, AgreesWithThePlainWayAtEdges) {
    for (const char foreign : {'x', '\x7F', '\x80', '\xE9'}) CompareEdges<std::string>(foreign);
}

INSTANTIATE_TEST_SUITE_P(
    Ways, FastWidening,
    testing::Values(Widening{"Utf8", WidenUtf8, WidenBySystem<CP_UTF8>},
                    Widening{"LocaleC", WidenFromLocale, WidenByRuntime, kPlainLocale},
                    Widening{"LocaleAnsi", WidenFromLocale, WidenByRuntime, kAnsiLocale},
                    Widening{"Bstr", WidenToBstr, WidenBySystem<CP_ACP>}),
    kNameOf);

TEST_P(FastNarrowing, AgreesWithThePlainWay) { Compare(&RandomCharacters::NextWide); }

TEST_P(FastNarrowing, AgreesWithThePlainWayAtEdges) {
    for (const wchar_t foreign : {L'x', L'\x7F', L'\x80', L'\xE9', L'\x20AC', L'\xD83D'})
        CompareEdges<std::wstring>(foreign);
}

INSTANTIATE_TEST_SUITE_P(
    Ways, FastNarrowing,
    testing::Values(Narrowing{"Utf8", NarrowToUtf8, NarrowBySystem<CP_UTF8>},
                    Narrowing{"LocaleC", NarrowToLocale, NarrowByRuntime, kPlainLocale},
                    Narrowing{"LocaleAnsi", NarrowToLocale, NarrowByRuntime, kAnsiLocale},
                    Narrowing{"Bstr", NarrowBstr, NarrowBySystem<CP_ACP>},
                    Narrowing{"Element", NarrowElement, NarrowBySystem<CP_ACP>}),
    kNameOf);

}  // namespace
