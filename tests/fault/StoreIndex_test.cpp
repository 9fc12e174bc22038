// Lookups when the store has no memory for its index, or not for a larger one.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "fault/AllocationFaults.h"
#include "fault/Allocator.h"
#include "system/StoreFixture.h"

namespace {

using tev::fault::IsRefused;
using tev::fault::Mode;
using tev::test::OpenStore;
using tev::test::Store;
using tev::test::StoreFixture;
using tev::test::Table;

class StoreIndex : public StoreFixture {
 protected:
    static void ExpectWhatTheTablesHold() {
        Table winning = OpenStore::User();
        winning.merge(OpenStore::System());
        for (const auto& [key, value] : winning) EXPECT_EQ(Get(key.c_str()), value) << key;
        EXPECT_EQ(Get("absent"), std::nullopt);
    }
};

TEST_F(StoreIndex, LookupsDoNotDependOnWhatFailedInALoad) {
    Load("a = system\nb = system\n", "b = user\nc = user\n");
    for (const Mode mode : {Mode::FromThenOn, Mode::Once}) {
        for (std::ptrdiff_t n = 0; IsRefused({n, mode}, Store::InitializeProperties); ++n) {
            SCOPED_TRACE(n);
            ExpectWhatTheTablesHold();
        }
    }
}

TEST_F(StoreIndex, NorOnWhatFailedInSetting) {
    for (const Mode mode : {Mode::FromThenOn, Mode::Once}) {
        for (std::ptrdiff_t n = 0; n < 6; ++n) {
            Load("a = system\n", "b = user\n");
            for (int i = 0; i < 20; ++i) {
                const std::string key = "key " + std::to_string(i);
                IsRefused({n, mode}, [&] { Store::SetUserProperty(key.c_str(), "value"); });
            }
            SCOPED_TRACE(n);
            ExpectWhatTheTablesHold();
        }
    }
}

}  // namespace
