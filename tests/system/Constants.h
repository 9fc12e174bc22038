#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <type_traits>

namespace tev::test {

// One published constant: its declared type is checked when the row is compiled, its value is read
// from the library's own storage.
template <typename Kind>
class Constant {
 public:
    template <typename Declared>
    Constant(const char* constantName, Declared& constant, Kind value)
        : name(constantName), expected(value), storage_(&constant) {
        static_assert(std::is_same_v<Declared, const Kind>);
    }

    // Volatile, so that the compiler does not answer with the initializer of the header.
    Kind Actual() const { return *storage_; }

    const char* name;
    Kind expected;

 private:
    const volatile Kind* storage_;
};

using TextConstant = Constant<const char*>;
using SizeConstant = Constant<std::size_t>;

template <typename Rows>
void ExpectTexts(const Rows& rows) {
    for (const TextConstant& row : rows) EXPECT_STREQ(row.Actual(), row.expected) << row.name;
}

template <typename Kind, std::size_t kCount>
void ExpectValues(const Constant<Kind> (&rows)[kCount]) {
    for (const Constant<Kind>& row : rows) EXPECT_EQ(row.Actual(), row.expected) << row.name;
}

// A length constant beside the text that it measures.
struct LengthConstant {
    SizeConstant length;
    const char* text;
};

template <std::size_t kCount>
void ExpectLengths(const LengthConstant (&rows)[kCount]) {
    for (const auto& [length, text] : rows) {
        EXPECT_EQ(length.Actual(), length.expected) << length.name;
        EXPECT_EQ(length.Actual(), std::strlen(text)) << length.name;
    }
}

// A class that clients can neither make nor destroy; assigning copies nothing, as it holds nothing.
template <typename Class>
void ExpectConstantsOnly() {
    EXPECT_FALSE(std::is_default_constructible_v<Class>);
    EXPECT_FALSE(std::is_copy_constructible_v<Class>);
    EXPECT_FALSE(std::is_destructible_v<Class>);
    EXPECT_TRUE(std::is_copy_assignable_v<Class>);
    EXPECT_TRUE(std::is_empty_v<Class>);
}

}  // namespace tev::test
