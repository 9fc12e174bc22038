#include "TEVSystemLib/util/string/detail/Errors.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>

namespace {

using namespace TAMO::TEV::System::Util::detail;

// What leaves the handler of a throwing function when `raise` throws inside.
template <typename Raise>
std::string Translated(Raise raise) {
    try {
        try {
            raise();
        } catch (...) {
            RethrowTranslated();
        }
    } catch (const std::invalid_argument& error) {
        return std::string("invalid_argument: ") + error.what();
    } catch (const std::runtime_error& error) {
        return std::string("runtime_error: ") + error.what();
    }
    return "nothing";
}

TEST(RethrowTranslated, PassesOnWhatIsPromised) {
    EXPECT_EQ(Translated([] { ThrowInvalidArgument("no"); }), "invalid_argument: no");
    EXPECT_EQ(Translated([] { ThrowRuntimeError("cannot"); }), "runtime_error: cannot");
    EXPECT_EQ(Translated([] { ThrowInternalError(); }),
              "runtime_error: Internal system errors encountered.");
}

TEST(RethrowTranslated, NamesExhaustedMemory) {
    EXPECT_EQ(Translated([] { throw std::bad_alloc(); }),
              "runtime_error: Failed to allocate enough memory to perform requested operation.");
}

TEST(RethrowTranslated, CoversEverythingElse) {
    const std::string other =
        "runtime_error: Exception caught while carrying out requested operation.";
    EXPECT_EQ(Translated([] { throw std::length_error("long"); }), other);
    EXPECT_EQ(Translated([] { throw 42; }), other);
}

}  // namespace
