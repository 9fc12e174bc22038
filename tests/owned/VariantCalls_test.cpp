#include <TEVSystemLib/TEVOwned.h>
#include <gtest/gtest.h>

#include <array>
#include <map>
#include <string>
#include <vector>

#include "support/Com.h"

namespace {

using namespace TAMO::TEV::System::Host;
using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::Variant;

using Strings = std::vector<std::string>;

TEST(NamedDoubleArray, GoesIntoAVariantAndComesOutAgain) {
    Variant variant;
    ASSERT_TRUE(SetDoubleArrayVARIANT(std::vector<double>{1.5, -2.0}, Into(*variant.Out())));
    EXPECT_EQ(variant.Type(), VT_ARRAY | VT_R8);
    const OwnedDoubles numbers = ExtractDoubleArrayFromVARIANT(From(*variant.get()));
    EXPECT_EQ(std::vector<double>(numbers.begin(), numbers.end()),
              (std::vector<double>{1.5, -2.0}));
    Variant again;
    EXPECT_TRUE(SetDoubleArrayVARIANT(numbers, Into(*again.Out())));
}

TEST(NamedIntArray, GoesIntoAVariantAndComesOutAgain) {
    Variant variant;
    ASSERT_TRUE(SetIntArrayVARIANT(std::array<int, 2>{1, -2}, Into(*variant.Out())));
    EXPECT_EQ(variant.Type(), VT_ARRAY | VT_I4);
    const OwnedInts numbers = ExtractIntArrayFromVARIANT(From(*variant.get()));
    EXPECT_EQ(std::vector<int>(numbers.begin(), numbers.end()), (std::vector<int>{1, -2}));
}

TEST(NamedStringArray, GoesIntoAVariantAndComesOutAgain) {
    Variant variant;
    ASSERT_TRUE(SetStringArrayVARIANT(Strings{"a", "", "c"}, Into(*variant.Out())));
    const OwnedTextArray texts = ExtractStringArrayFromVariant(From(*variant.get()));
    ASSERT_EQ(texts.size(), 3u);
    EXPECT_STREQ(texts[0], "a");
    EXPECT_EQ(texts[1], nullptr);
    EXPECT_STREQ(texts[2], "c");
    Variant again;
    EXPECT_TRUE(SetStringArrayVARIANT(texts, Into(*again.Out())));
}

TEST(NamedArrays, AVariantOfAnotherKindGivesNothing) {
    Variant variant;
    ASSERT_TRUE(SetIntArrayVARIANT(std::vector<int>{1}, Into(*variant.Out())));
    EXPECT_TRUE(ExtractDoubleArrayFromVARIANT(From(*variant.get())).empty());
    EXPECT_TRUE(ExtractStringArrayFromVariant(From(*variant.get())).empty());
    EXPECT_TRUE(ExtractKeyValueDataFromVARIANT(From(*variant.get())).empty());
    EXPECT_FALSE(SetIntArrayVARIANT(std::vector<int>{}, Into(*variant.Out())));
    EXPECT_TRUE(ExtractIntArrayFromVARIANT(From(*variant.get())).empty());
}

TEST(NamedKeyValueTable, IsWrittenByRowsBehindAFirstOne) {
    const std::map<std::string, std::string> entries = {{"a", "1"}, {"b", "2"}};
    Variant variant;
    ASSERT_TRUE(CreateKeyValueDataVariant(entries, Into(*variant.Out()), FirstKey("type"),
                                          FirstValue("x")));
    EXPECT_EQ(tev::test::TextAt(variant.Array(), {0, 0}), L"type");
    EXPECT_EQ(tev::test::TextAt(variant.Array(), {0, 1}), L"x");
    EXPECT_EQ(tev::test::TextAt(variant.Array(), {2, 1}), L"2");
}

TEST(NamedKeyValueTable, LeavesOutAnEmptyOwner) {
    std::map<std::string, OwnedText> entries;
    ASSERT_TRUE(TEVUtilString::Copy("1", Out(entries["a"]), nullptr));
    entries["none"];
    Variant variant;
    ASSERT_TRUE(CreateKeyValueDataVariant(entries, Into(*variant.Out())));
    EXPECT_EQ(tev::test::BoundsOf(variant.Array(), 1), (std::pair<LONG, LONG>{1, 0}));
}

TEST(NamedKeyValueTable, IsReadByColumnsIntoOwners) {
    tev::test::SafeArray array(VT_BSTR, {{2, 0}, {2, 0}});
    ASSERT_TRUE(tev::test::PutText(array.get(), {0, 0}, L"a"));
    ASSERT_TRUE(tev::test::PutText(array.get(), {1, 0}, L"1"));
    ASSERT_TRUE(tev::test::PutText(array.get(), {0, 1}, L"empty"));
    Variant variant(VT_ARRAY | VT_BSTR, std::move(array));
    const auto entries = ExtractKeyValueDataFromVARIANT(From(*variant.get()));
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries.at("a").View(), "1");
    EXPECT_FALSE(entries.at("empty"));
}

TEST(NamedBstr, IsMadeAndCopied) {
    const OwnedBstr made = FromMultibyteCharToBSTR(Text("map"));
    EXPECT_EQ(made.View(), L"map");
    EXPECT_EQ(CopyBSTR(made.get()).View(), L"map");
    EXPECT_EQ(CopyBSTR(L"").View(), L"");
    EXPECT_FALSE(FromMultibyteCharToBSTR(Text("")));
    EXPECT_FALSE(CopyBSTR(nullptr));
}

}  // namespace
