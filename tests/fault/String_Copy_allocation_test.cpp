// What copying does when memory is exhausted at any of its steps.
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <string>

#include "fault/AllocationFaults.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using tev::fault::AllocatingFunctions;
using tev::fault::Attempt;
using tev::test::Text;

constexpr const char* kText = "a text that is longer than what a string keeps in itself";

void Copy(Attempt& attempt) {
    Text copy;
    const bool made = attempt.Call([&] { return TEVUtilString::Copy(kText, copy.Out(), nullptr); });
    EXPECT_EQ(copy.str(), attempt.Succeeded(made) ? kText : "(null)");
}

const AllocatingFunctions functions{
    {"TEVUtilString::Copy(char const*, char**, unsigned long long*)", "", Copy},
};

}  // namespace
