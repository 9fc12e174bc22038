#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/wide/Kernels.h"
#include "models/Base64Model.h"
#include "models/KernelModel.h"
#include "support/Effort.h"
#include "support/Random.h"

namespace {

namespace wide = TAMO::TEV::System::Util::detail::wide;
using tev::test::Base64Model;
using tev::test::kBase64Alphabet;
using tev::test::kPlain;
using wide::Kernels;
using wide::kPortable;

constexpr std::int64_t kInputs = 1'000'000;
constexpr std::size_t kMaxLength = 160;

// Random bytes at random addresses. The bytes come from small alphabets, so that something is
// found.
class AllKernels : public testing::TestWithParam<const Kernels*> {
 protected:
    const Kernels& Level() const { return *GetParam(); }

    std::size_t Below(std::size_t end) { return random_.Below(end); }

    // An empty alphabet is that of all bytes.
    std::string Bytes(std::string_view alphabet, std::size_t length) {
        return alphabet.empty() ? random_.Bytes(length) : random_.Text(alphabet, length);
    }
    std::string Bytes(std::string_view alphabet) { return Bytes(alphabet, Below(kMaxLength)); }

    // Nearly always from one of the alphabets, so that long runs come about.
    std::string AnyBytes() {
        static constexpr std::string_view kAlphabets[] = {"", "a", "ab", "aAzZ@[`{", "ABCxyz019+/"};
        return Bytes(kAlphabets[Below(std::size(kAlphabets))]);
    }

    // The same but for the case of letters, and now and then for one bit.
    std::string NearlySame(std::string_view bytes) {
        std::string other(bytes);
        std::uint64_t coins = 0;
        for (std::size_t i = 0; i < other.size(); ++i, coins >>= 1) {
            if (i % 64 == 0) coins = random_.Bits();
            if ((coins & 1) != 0) other[i] = TAMO::TEV::System::Util::detail::ToUpper(other[i]);
        }
        if (!other.empty() && random_.Coin())
            other[Below(other.size())] ^= static_cast<char>(1 << Below(8));
        return other;
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

    tev::test::Random random_{20261121};
};

std::string Show(std::string_view bytes) { return testing::PrintToString(std::string(bytes)); }

TEST_P(AllKernels, LengthStopsAtTheFirstNul) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        const std::string bytes = Bytes(std::string_view("ab\0", random_.OneIn(8) ? 3 : 2));
        Placed text = Place(bytes);
        ASSERT_EQ(Level().length(text.data()), kPlain.length(text.data())) << Show(bytes);
    }
}

TEST_P(AllKernels, FindByteFindsTheFirst) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        const std::string bytes = AnyBytes();
        const char wanted = Bytes("abz@x\xFF\0", 1)[0];
        Placed text = Place(bytes);
        ASSERT_EQ(Level().findByte(text.data(), text.size(), wanted),
                  kPlain.findByte(text.data(), text.size(), wanted))
            << Show(bytes);
    }
}

TEST_P(AllKernels, FindFindsTheFirst) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        const std::string bytes = Bytes(random_.Coin() ? "ab" : "aab");
        const std::string pattern = Bytes("ab", 1 + Below(random_.OneIn(4) ? 40 : 9));
        Placed text = Place(bytes);
        ASSERT_EQ(Level().find(text.data(), text.size(), pattern.data(), pattern.size()),
                  kPlain.find(text.data(), text.size(), pattern.data(), pattern.size()))
            << Show(bytes) << ' ' << pattern;
    }
}

TEST_P(AllKernels, MismatchIgnoresTheCaseOfAsciiLettersOnly) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        const std::string bytes = AnyBytes();
        const std::string other = NearlySame(bytes);
        Placed first = Place(bytes);
        Placed second = Place(other);
        ASSERT_EQ(Level().mismatchIgnoringCase(first.data(), second.data(), bytes.size()),
                  kPlain.mismatchIgnoringCase(first.data(), second.data(), bytes.size()))
            << Show(bytes) << ' ' << Show(other);
    }
}

TEST_P(AllKernels, TextMismatchStopsAtTheTerminatorToo) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        const std::string bytes = AnyBytes();
        std::string other = NearlySame(bytes);
        if (random_.OneIn(4)) other.resize(Below(other.size() + 1));
        Placed first = Place(bytes);
        Placed second = Place(other);
        ASSERT_EQ(Level().textMismatchIgnoringCase(first.data(), second.data()),
                  kPlain.textMismatchIgnoringCase(first.data(), second.data()))
            << Show(bytes) << ' ' << Show(other);
        ASSERT_EQ(Level().textMismatchIgnoringCase(second.data(), first.data()),
                  kPlain.textMismatchIgnoringCase(second.data(), first.data()))
            << Show(bytes) << ' ' << Show(other);
    }
}

// From one buffer to another, and in place.
template <typename Map>
void ExpectSameMapping(const std::string& bytes, char* from, Map level, Map plain) {
    std::string expected(bytes.size() + 1, '?');
    std::string mapped = expected;
    plain(bytes.data(), bytes.size(), expected.data());
    level(from, bytes.size(), mapped.data());
    ASSERT_EQ(mapped, expected) << Show(bytes);
    level(from, bytes.size(), from);
    expected.back() = '\0';
    ASSERT_EQ(std::string_view(from, bytes.size() + 1), expected) << Show(bytes);
}

TEST_P(AllKernels, CaseIsMappedInAsciiOnly) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        const std::string bytes = AnyBytes();
        ExpectSameMapping(bytes, Place(bytes).data(), Level().toLower, kPlain.toLower);
        ExpectSameMapping(bytes, Place(bytes).data(), Level().toUpper, kPlain.toUpper);
        if (HasFatalFailure()) return;
    }
}

TEST_P(AllKernels, ReplaceByteReplacesAll) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        const std::string bytes = AnyBytes();
        const std::string pair = Bytes("ab\\/\xFF", 2);
        const auto replaceBy = [&pair](const Kernels& kernels) {
            return std::function<void(const char*, std::size_t, char*)>(
                [&kernels, &pair](const char* from, std::size_t count, char* to) {
                    kernels.replaceByte(from, count, to, pair[0], pair[1]);
                });
        };
        ExpectSameMapping(bytes, Place(bytes).data(), replaceBy(Level()), replaceBy(kPlain));
        if (HasFatalFailure()) return;
    }
}

TEST_P(AllKernels, SwapBytesReversesEveryElement) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        const std::size_t elementSize = std::size_t{2} << Below(3);
        std::string bytes = Bytes("");
        bytes.resize(bytes.size() / elementSize * elementSize);
        std::string expected = bytes;
        const std::size_t count = bytes.size() / elementSize;
        kPlain.swapBytes(expected.data(), count, elementSize);
        Placed swapped = Place(bytes);
        Level().swapBytes(swapped.data(), count, elementSize);
        ASSERT_EQ(std::string_view(swapped.data(), bytes.size() + 1), expected + '\0')
            << Show(bytes) << ' ' << elementSize;
    }
}

bool IsOfBase64(char c) { return kBase64Alphabet.find(c) != std::string_view::npos; }

TEST_P(AllKernels, EncodesWholeGroupsOnly) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        const std::string bytes = Bytes("");
        std::string text(bytes.size() / 3 * 4 + 4, '?');
        const auto* from = reinterpret_cast<const unsigned char*>(bytes.data());
        const std::size_t done = Level().encodeBase64(from, bytes.size(), text.data());
        ASSERT_EQ(done % 3, 0u) << Show(bytes);
        ASSERT_LE(done, bytes.size()) << Show(bytes);
        ASSERT_EQ(text.substr(0, done / 3 * 4), Base64Model(bytes.substr(0, done))) << Show(bytes);
    }
}

TEST_P(AllKernels, DecodingStopsInFrontOfAForeignCharacter) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        std::string text = Bytes(kBase64Alphabet);
        std::size_t valid = text.size();
        if (!text.empty() && random_.Coin()) {
            const std::size_t place = Below(text.size());
            text[place] = random_.Bytes(1)[0];
            if (!IsOfBase64(text[place])) valid = place;
        }
        // One byte behind the capacity shows that no store goes too far.
        const std::size_t capacity = text.size() / 4 * 3 + text.size() % 4;
        std::vector<unsigned char> bytes(capacity + 1, 0xEE);
        const std::size_t done = Level().decodeBase64(text.data(), text.size(), bytes.data());
        ASSERT_EQ(done % 4, 0u) << Show(text);
        ASSERT_LE(done, valid) << Show(text);
        ASSERT_EQ(bytes.back(), 0xEE) << Show(text);
        const std::string decoded(bytes.begin(),
                                  bytes.begin() + static_cast<std::ptrdiff_t>(done / 4 * 3));
        ASSERT_EQ(Base64Model(decoded), text.substr(0, done)) << Show(text);
    }
}

TEST_P(AllKernels, EveryForeignCharacterStopsTheDecoding) {
    for (int c = 0; c < 256; ++c) {
        const auto character = static_cast<char>(c);
        std::string text(128, 'A');
        text[70] = character;
        std::vector<unsigned char> bytes(128);
        const std::size_t done = Level().decodeBase64(text.data(), text.size(), bytes.data());
        EXPECT_EQ(done > 70, IsOfBase64(character) && GetParam() != &kPortable) << c;
    }
}

// The first `count` of what was copied, as they came.
template <typename To, typename From>
bool IsCopied(const To& to, const From& from, std::size_t count) {
    return std::equal(to.begin(), to.begin() + static_cast<std::ptrdiff_t>(count), from.begin());
}

TEST_P(AllKernels, AsciiIsWidened) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        std::string bytes = Bytes("ab\x7F");
        std::size_t ascii = bytes.size();
        if (!bytes.empty() && random_.Coin()) {
            const std::size_t place = Below(bytes.size());
            bytes[place] = random_.Bytes(1)[0];
            if ((bytes[place] & 0x80) != 0) ascii = place;
        }
        std::u16string units(bytes.size() + 1, u'?');
        Placed text = Place(bytes);
        const std::size_t widened = Level().widenAscii(text.data(), text.size(), units.data());
        ASSERT_LE(widened, ascii) << Show(bytes);
        ASSERT_GT(widened + 32, ascii) << Show(bytes);
        ASSERT_TRUE(IsCopied(units, bytes, widened))
            << Show(bytes) << ' ' << testing::PrintToString(units);
        ASSERT_EQ(units.back(), u'?') << Show(bytes);
    }
}

TEST_P(AllKernels, AsciiIsNarrowed) {
    for (std::int64_t i = 0; i < tev::test::Repetitions(kInputs); ++i) {
        const std::string bytes = Bytes("ab\x7F");
        std::u16string units(bytes.begin(), bytes.end());
        std::size_t ascii = units.size();
        if (!units.empty() && random_.Coin()) {
            ascii = Below(units.size());
            units[ascii] = static_cast<char16_t>(0x80 + Below(0xFF80));
        }
        std::string text(units.size() + 1, '?');
        const std::size_t narrowed = Level().narrowAscii(units.data(), units.size(), text.data());
        ASSERT_LE(narrowed, ascii) << testing::PrintToString(units);
        ASSERT_GT(narrowed + 32, ascii) << testing::PrintToString(units);
        ASSERT_TRUE(IsCopied(text, units, narrowed))
            << testing::PrintToString(units) << ' ' << Show(text);
        ASSERT_EQ(text.back(), '?') << testing::PrintToString(units);
    }
}

std::vector<const Kernels*> Runnable() {
    const wide::Levels levels = wide::RunnableLevels();
    return {levels.first, levels.first + levels.count};
}

std::string NameOf(const testing::TestParamInfo<const Kernels*>& level) {
    return level.param->level;
}

INSTANTIATE_TEST_SUITE_P(Levels, AllKernels, testing::ValuesIn(Runnable()), NameOf);

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
