#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/wide/Kernels.h"
#include "support/Effort.h"

namespace {

namespace wide = TAMO::TEV::System::Util::detail::wide;
using wide::Kernels;
using wide::kPortable;

constexpr unsigned kSeed = 20261121;
constexpr std::int64_t kInputs = 350'000;
constexpr std::size_t kMaxLength = 160;

// Every level that this processor runs, against the portable one, on random bytes at random
// addresses. The bytes come from small alphabets, so that something is found.
class WideKernels : public testing::TestWithParam<const Kernels*> {
 protected:
    WideKernels() { RecordProperty("seed", kSeed); }

    const Kernels& Level() const { return *GetParam(); }

    std::size_t Below(std::size_t end) { return engine_() % end; }

    std::string Bytes(std::string_view alphabet, std::size_t length) {
        std::string bytes(length, '\0');
        for (char& byte : bytes)
            byte =
                alphabet.empty() ? static_cast<char>(engine_()) : alphabet[Below(alphabet.size())];
        return bytes;
    }
    std::string Bytes(std::string_view alphabet) { return Bytes(alphabet, Below(kMaxLength)); }

    // Nearly always from one of the alphabets, so that long runs come about.
    std::string AnyBytes() {
        static constexpr std::string_view kAlphabets[] = {"", "a", "ab", "aAzZ@[`{", "ABCxyz019+/"};
        return Bytes(kAlphabets[Below(std::size(kAlphabets))]);
    }

    // The text in the middle of other bytes, at any distance from an aligned address.
    class Placed {
     public:
        Placed(std::string_view bytes, std::size_t offset)
            : all_(offset + bytes.size() + 1, 'x'), offset_(offset), size_(bytes.size()) {
            std::copy(bytes.begin(), bytes.end(), data());
            all_.back() = '\0';
        }
        char* data() { return all_.data() + offset_; }
        std::size_t size() const { return size_; }

     private:
        std::string all_;
        std::size_t offset_;
        std::size_t size_;
    };
    Placed Place(std::string_view bytes) { return {bytes, Below(40)}; }

    std::mt19937 engine_{kSeed};
};

std::string Show(std::string_view bytes) { return testing::PrintToString(std::string(bytes)); }

TEST_P(WideKernels, LengthStopsAtTheFirstNul) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        const std::string bytes = Bytes(std::string_view("ab\0", Below(8) == 0 ? 3 : 2));
        Placed text = Place(bytes);
        ASSERT_EQ(Level().length(text.data()), kPortable.length(text.data())) << Show(bytes);
    }
}

TEST_P(WideKernels, FindByteFindsTheFirst) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        const std::string bytes = AnyBytes();
        const char wanted = Bytes("abz@x\xFF\0", 1)[0];
        Placed text = Place(bytes);
        ASSERT_EQ(Level().findByte(text.data(), text.size(), wanted),
                  kPortable.findByte(text.data(), text.size(), wanted))
            << Show(bytes);
    }
}

TEST_P(WideKernels, FindFindsTheFirst) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        const std::string bytes = Bytes(Below(2) == 0 ? "ab" : "aab");
        const std::string pattern = Bytes("ab", 1 + Below(Below(4) == 0 ? 40 : 9));
        Placed text = Place(bytes);
        ASSERT_EQ(Level().find(text.data(), text.size(), pattern.data(), pattern.size()),
                  kPortable.find(text.data(), text.size(), pattern.data(), pattern.size()))
            << Show(bytes) << ' ' << pattern;
    }
}

TEST_P(WideKernels, MismatchIgnoresTheCaseOfAsciiLettersOnly) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        const std::string bytes = AnyBytes();
        std::string other = bytes;
        for (char& c : other)
            if (Below(2) == 0) c = TAMO::TEV::System::Util::detail::ToUpper(c);
        if (!other.empty() && Below(2) == 0)
            other[Below(other.size())] ^= static_cast<char>(1 << Below(8));
        Placed first = Place(bytes);
        Placed second = Place(other);
        ASSERT_EQ(Level().mismatchIgnoringCase(first.data(), second.data(), bytes.size()),
                  kPortable.mismatchIgnoringCase(first.data(), second.data(), bytes.size()))
            << Show(bytes) << ' ' << Show(other);
    }
}

TEST_P(WideKernels, TextMismatchStopsAtTheTerminatorToo) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        std::string bytes = AnyBytes();
        std::string other = bytes;
        for (char& c : other)
            if (Below(2) == 0) c = TAMO::TEV::System::Util::detail::ToUpper(c);
        if (!other.empty() && Below(2) == 0)
            other[Below(other.size())] ^= static_cast<char>(1 << Below(8));
        if (Below(4) == 0) other.resize(Below(other.size() + 1));
        Placed first = Place(bytes);
        Placed second = Place(other);
        ASSERT_EQ(Level().textMismatchIgnoringCase(first.data(), second.data()),
                  kPortable.textMismatchIgnoringCase(first.data(), second.data()))
            << Show(bytes) << ' ' << Show(other);
        ASSERT_EQ(Level().textMismatchIgnoringCase(second.data(), first.data()),
                  kPortable.textMismatchIgnoringCase(second.data(), first.data()))
            << Show(bytes) << ' ' << Show(other);
    }
}

// From one buffer to another, and in place.
template <typename Map>
void ExpectSameMapping(const std::string& bytes, char* from, Map level, Map portable) {
    std::string expected(bytes.size(), '?');
    std::string mapped(bytes.size() + 1, '?');
    portable(bytes.data(), bytes.size(), expected.data());
    level(from, bytes.size(), mapped.data());
    ASSERT_EQ(mapped, expected + '?') << Show(bytes);
    level(from, bytes.size(), from);
    ASSERT_EQ(std::string_view(from, bytes.size() + 1), expected + '\0') << Show(bytes);
}

TEST_P(WideKernels, CaseIsMappedInAsciiOnly) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        const std::string bytes = AnyBytes();
        ExpectSameMapping(bytes, Place(bytes).data(), Level().toLower, kPortable.toLower);
        ExpectSameMapping(bytes, Place(bytes).data(), Level().toUpper, kPortable.toUpper);
        if (HasFatalFailure()) return;
    }
}

TEST_P(WideKernels, ReplaceByteReplacesAll) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        const std::string bytes = AnyBytes();
        const std::string pair = Bytes("ab\\/\xFF", 2);
        const auto replaceBy = [&pair](const Kernels& kernels) {
            return std::function<void(const char*, std::size_t, char*)>(
                [&kernels, &pair](const char* from, std::size_t count, char* to) {
                    kernels.replaceByte(from, count, to, pair[0], pair[1]);
                });
        };
        ExpectSameMapping(bytes, Place(bytes).data(), replaceBy(Level()), replaceBy(kPortable));
        if (HasFatalFailure()) return;
    }
}

TEST_P(WideKernels, SwapBytesReversesEveryElement) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        const std::size_t elementSize = std::size_t{2} << Below(3);
        std::string bytes = Bytes("");
        bytes.resize(bytes.size() / elementSize * elementSize);
        std::string expected = bytes;
        const std::size_t count = bytes.size() / elementSize;
        kPortable.swapBytes(expected.data(), count, elementSize);
        Placed swapped = Place(bytes);
        Level().swapBytes(swapped.data(), count, elementSize);
        ASSERT_EQ(std::string_view(swapped.data(), bytes.size() + 1), expected + '\0')
            << Show(bytes) << ' ' << elementSize;
    }
}

constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// The bits of the bytes, six at a time.
std::string PlainBase64(std::string_view bytes) {
    std::string text;
    for (std::size_t bit = 0; bit + 6 <= 8 * bytes.size(); bit += 6) {
        std::size_t sextet = 0;
        for (std::size_t k = bit; k < bit + 6; ++k)
            sextet = 2 * sextet + (static_cast<unsigned char>(bytes[k / 8]) >> (7 - k % 8) & 1u);
        text += kAlphabet[sextet];
    }
    return text;
}

TEST_P(WideKernels, EncodesWholeGroupsOnly) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        const std::string bytes = Bytes("");
        std::string text(bytes.size() / 3 * 4 + 4, '?');
        const auto* from = reinterpret_cast<const unsigned char*>(bytes.data());
        const std::size_t done = Level().encodeBase64(from, bytes.size(), text.data());
        ASSERT_EQ(done % 3, 0u);
        ASSERT_LE(done, bytes.size());
        ASSERT_EQ(text.substr(0, done / 3 * 4), PlainBase64(bytes.substr(0, done))) << Show(bytes);
    }
}

TEST_P(WideKernels, DecodingStopsInFrontOfAForeignCharacter) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        std::string text = Bytes(kAlphabet);
        if (!text.empty() && Below(2) == 0) text[Below(text.size())] = Bytes("", 1)[0];
        const std::size_t valid = std::min(text.find_first_not_of(kAlphabet), text.size());
        // One byte behind the capacity shows that no store goes too far.
        const std::size_t capacity = text.size() / 4 * 3 + text.size() % 4;
        std::vector<unsigned char> bytes(capacity + 1, 0xEE);
        const std::size_t done = Level().decodeBase64(text.data(), text.size(), bytes.data());
        ASSERT_EQ(done % 4, 0u);
        ASSERT_LE(done, valid) << Show(text);
        ASSERT_EQ(bytes.back(), 0xEE) << Show(text);
        const std::string decoded(bytes.begin(),
                                  bytes.begin() + static_cast<std::ptrdiff_t>(done / 4 * 3));
        ASSERT_EQ(PlainBase64(decoded), text.substr(0, done)) << Show(text);
    }
}

TEST_P(WideKernels, EveryForeignCharacterStopsTheDecoding) {
    for (int c = 0; c < 256; ++c) {
        const auto character = static_cast<char>(c);
        std::string text(128, 'A');
        text[70] = character;
        std::vector<unsigned char> bytes(128);
        const std::size_t done = Level().decodeBase64(text.data(), text.size(), bytes.data());
        const bool isForeign = kAlphabet.find(character) == std::string_view::npos;
        const bool hasGoneOn = done > 70;
        EXPECT_EQ(hasGoneOn, !isForeign && GetParam() != &kPortable) << c;
    }
}

TEST_P(WideKernels, AsciiIsWidenedAndNarrowed) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        std::string bytes = Bytes("ab\x7F");
        if (!bytes.empty() && Below(2) == 0) bytes[Below(bytes.size())] = Bytes("", 1)[0];
        std::u16string units(bytes.size() + 1, u'?');
        Placed text = Place(bytes);
        const std::size_t widened = Level().widenAscii(text.data(), text.size(), units.data());
        const auto isAscii = [](char c) { return (c & 0x80) == 0; };
        const auto ascii = static_cast<std::size_t>(
            std::find_if_not(bytes.begin(), bytes.end(), isAscii) - bytes.begin());
        ASSERT_LE(widened, ascii);
        ASSERT_GT(widened + 32, ascii);
        ASSERT_TRUE(std::equal(units.begin(), units.begin() + static_cast<std::ptrdiff_t>(widened),
                               bytes.begin()));
        ASSERT_EQ(units.back(), u'?');

        std::u16string wideText(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(ascii));
        if (Below(2) == 0) wideText += static_cast<char16_t>(0x80 + Below(0xFF80));
        wideText += u"abc";
        std::string narrow(wideText.size(), '?');
        const std::size_t narrowed =
            Level().narrowAscii(wideText.data(), wideText.size(), narrow.data());
        ASSERT_TRUE(std::equal(narrow.begin(),
                               narrow.begin() + static_cast<std::ptrdiff_t>(narrowed),
                               wideText.begin()));
    }
}

std::vector<const Kernels*> Runnable() {
    const wide::Levels levels = wide::RunnableLevels();
    return {levels.first, levels.first + levels.count};
}

INSTANTIATE_TEST_SUITE_P(Levels, WideKernels, testing::ValuesIn(Runnable()),
                         [](const auto& level) { return level.param->level; });

TEST(WideKernelsChoice, BestIsTheHighestRunnableLevel) {
    EXPECT_EQ(&wide::Best(), Runnable().back());
    EXPECT_STREQ(Runnable().front()->level, "portable");
}

TEST(WideKernelsChoice, LevelsAreThoseOfTheProcessor) {
    const std::size_t highest = wide::LevelsOf({true, true}).count;
    const struct {
        wide::Processor processor;
        std::size_t count;
    } rows[] = {
        {{false, false}, 1},
        {{false, true}, 1},
        {{true, false}, std::min<std::size_t>(2, highest)},
        {{true, true}, highest},
    };
    for (const auto& row : rows) EXPECT_EQ(wide::LevelsOf(row.processor).count, row.count);
    EXPECT_LE(Runnable().size(), highest);
}

}  // namespace
