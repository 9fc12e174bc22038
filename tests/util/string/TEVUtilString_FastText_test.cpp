#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "models/Base64Model.h"
#include "models/BitModel.h"
#include "models/TextModel.h"
#include "support/Effort.h"
#include "support/Owned.h"
#include "support/Random.h"
#include "util/string/RandomTexts.h"

// What is done in wide registers or without the general way, beside a model of it.
namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::Base64DecodeModel;
using tev::test::Base64Model;
using tev::test::kBase64Alphabet;
using tev::test::Random;
using tev::test::Repetitions;
using tev::test::Text;

constexpr std::int64_t kInputs = 1'000'000;

// Mostly short; a long one has registers in front of its rest.
std::size_t Size(Random& random) { return 1 + random.Below(random.OneIn(4) ? 300 : 32); }

TEST(Base64Encode, RandomBytesOfRandomSizeAgreeWithModel) {
    Random random(16045);
    for (std::int64_t i = 0; i < Repetitions(kInputs); ++i) {
        const std::string bytes = random.Bytes(Size(random));
        Text text;
        ASSERT_TRUE(TEVUtilString::Base64Encode(
            reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(), text.Out()));
        ASSERT_EQ(text.get(), Base64Model(bytes)) << testing::PrintToString(bytes);
    }
}

// Every second text is broken by one character, mostly a foreign one.
TEST(Base64Decode, RandomTextsOfRandomSizeAgreeWithModel) {
    Random random(16046);
    for (std::int64_t i = 0; i < Repetitions(kInputs); ++i) {
        std::string text = random.Text(kBase64Alphabet, Size(random));
        if (random.Coin())
            text[random.Below(text.size())] = static_cast<char>(1 + random.Below(255));
        Text bytes;
        std::size_t length = 77;
        ASSERT_TRUE(TEVUtilString::Base64Decode(text.c_str(), bytes.Out(), length)) << text;
        const std::string expected = Base64DecodeModel(text);
        ASSERT_EQ(length, expected.size()) << testing::PrintToString(text);
        ASSERT_EQ(std::string(bytes.get(), length), expected) << testing::PrintToString(text);
    }
}

TEST(BinaryToUnsigned, RandomBytesOfRandomSizeAgreeWithModel) {
    Random random(16047);
    for (std::int64_t i = 0; i < Repetitions(kInputs); ++i) {
        const std::string bytes = random.Bytes(8);
        const std::size_t size = 1 + random.Below(8);
        const auto expected = [&bytes](std::size_t count) {
            return static_cast<std::uint64_t>(
                tev::test::Unsigned(tev::test::BinaryText(bytes.substr(0, count))));
        };
        std::uint64_t wide = 77;
        ASSERT_TRUE(TEVUtilString::BinaryToUnsignedInt64(bytes.data(), size, wide));
        ASSERT_EQ(wide, expected(size)) << testing::PrintToString(bytes) << ' ' << size;
        unsigned long narrow = 77;
        ASSERT_TRUE(TEVUtilString::BinaryToUnsignedLong(bytes.data(), 4, narrow));
        ASSERT_EQ(narrow, expected(4)) << testing::PrintToString(bytes);
    }
}

TEST(ToBool, RandomTextsAgreeWithModel) {
    constexpr unsigned kSeed = 20240531;
    RecordProperty("seed", kSeed);
    tev::test::RandomTexts texts(kSeed);
    std::int64_t accepted = 0;
    for (std::int64_t i = 0; i < Repetitions(kInputs); ++i) {
        const std::string text = texts.Word();
        const std::string word = tev::test::Lowered(tev::test::TrimmedIfSpaced(text));
        // What it is not, so that storing shows.
        bool value = word != "true";
        const bool isAccepted = TEVUtilString::ToBool(text.c_str(), value);
        ASSERT_EQ(isAccepted, word == "true" || word == "false") << testing::PrintToString(text);
        if (!isAccepted) continue;
        ++accepted;
        ASSERT_EQ(value, word == "true") << testing::PrintToString(text);
    }
    EXPECT_GT(accepted, Repetitions(kInputs) / 5);
}

}  // namespace
