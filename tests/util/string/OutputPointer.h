#pragma once

#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <string>

#include "support/Owned.h"

namespace tev::test {

// What an output pointer may hold before a call. It is not the library's, so releasing it crashes.
inline char* Stale() {
    static char text[] = "stale";
    return text;
}

// A call that fills *out with a text.
using TextMaker = void (*)(char** out);

// Checks that a call stores a new buffer that reads `expected`, and that it overwrites the buffer
// that the output pointer held without releasing it.
inline void ExpectNewText(TextMaker make, const std::string& expected) {
    Text held;
    ASSERT_TRUE(TAMO::TEV::System::Util::TEVUtilString::Copy("held", held.Out(), nullptr));
    char* out = held.get();
    make(&out);
    ASSERT_NE(out, held.get());
    const Text made(out);
    EXPECT_EQ(made.str(), expected);
    EXPECT_EQ(held.str(), "held");
}

}  // namespace tev::test
