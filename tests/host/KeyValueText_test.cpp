#include "TEVSystemLib/util/string/detail/KeyValueText.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

namespace {

using TAMO::TEV::System::Util::detail::KeyOf;
using TAMO::TEV::System::Util::detail::ValueOf;
using namespace std::string_view_literals;

TEST(KeyOf, AndValueOfDifferOnlyInWhatTheyRefuse_Kept) {
    const struct {
        std::string_view pair;
        std::optional<std::string_view> key;
        std::optional<std::string_view> value;
    } rows[] = {
        {"", std::nullopt, std::nullopt},
        {"=", std::nullopt, std::nullopt},
        {"k", std::nullopt, std::nullopt},
        {"==", std::nullopt, std::nullopt},
        {"=v", std::nullopt, std::nullopt},
        {"=vv", std::nullopt, std::nullopt},
        {"kk", std::nullopt, std::nullopt},
        {"kkk", std::nullopt, std::nullopt},
        {" ", std::nullopt, std::nullopt},
        {"   ", std::nullopt, std::nullopt},
        {" = v", std::nullopt, std::nullopt},
        // Two characters have a value, three have a key.
        {"k=", std::nullopt, ""},
        {"k=v", "k", "v"},
        {"kk=", "kk", ""},
        // The length counts after the trimming at the start.
        {"   k=", std::nullopt, ""},
        {" k=v", "k", "v"},
        {" \t\v k=v", "k", "v"},
        {" k=v ", "k", "v "},
        // Only a plain space starts that trimming.
        {"\tk=v", "\tk", "v"},
        // Blanks at the key's end go, those of the value stay.
        {"k\t \r\n\v\f=v", "k", "v"},
        {"k = v ", "k", " v "},
        // A key of blanks is none, a value needs no key.
        {"\t=v", std::nullopt, "v"},
        {"\n\n=", std::nullopt, ""},
        {"k==v", "k", "=v"},
        {"k=v=w", "k", "v=w"},
        {"k\0l=v\0w"sv, "k\0l"sv, "v\0w"sv},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE('[' + std::string(row.pair) + ']');
        EXPECT_EQ(KeyOf(row.pair), row.key);
        EXPECT_EQ(ValueOf(row.pair), row.value);
    }
}

TEST(KeyOf, PointsIntoThePair) {
    const std::string pair = "  key =value";
    EXPECT_EQ(KeyOf(pair)->data(), pair.data() + 2);
    EXPECT_EQ(ValueOf(pair)->data(), pair.data() + 7);
}

}  // namespace
