#include "fault/FirstUses.h"

#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include <new>

#include "fault/AllocationTable.h"
#include "fault/Allocator.h"
#include "system/StoreFixture.h"

namespace tev::fault {

namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;
using test::OpenStore;
using test::Store;

// Calls `use` with the n-th allocation failing; gives whether one did.
template <typename Use>
bool IsRefused(std::ptrdiff_t n, Use use) {
    const std::ptrdiff_t before = Now().refused;
    FailAllocation(n, Mode::Once);
    use();
    StopFailing();
    return Now().refused != before;
}

// Creates the store, when that is possible.
bool IsCreated() try { return OpenStore::Instance() != nullptr; } catch (const std::bad_alloc&) {
    return false;
}

void ExpectNoUse(std::ptrdiff_t n) {
    const char* value = "before";
    IsRefused(n, [&] { EXPECT_FALSE(Store::GetProperty("key", value)); });
    EXPECT_EQ(value, nullptr);
    bool isOn = true;
    IsRefused(n, [&] { EXPECT_FALSE(Store::GetPropertyAsBool(isOn, "key")); });
    EXPECT_FALSE(isOn);
    IsRefused(n, [] { EXPECT_FALSE(Store::SetUserProperty("key", "value")); });
    IsRefused(n, [] { EXPECT_FALSE(Store::SaveUserProperties()); });
    IsRefused(n, [] { Store::InitializeProperties(); });
}

// The object, its two tables and its room for keys; what fails later is a step of the loading,
// which is skipped.
void CreateStore() {
    constexpr std::ptrdiff_t kAllocations = 4;
    for (std::ptrdiff_t n = 0; n < kAllocations; ++n) {
        SCOPED_TRACE(testing::Message() << "allocation " << n << " of the creation fails");
        const std::ptrdiff_t live = Now().live;
        bool isCreated = true;
        EXPECT_TRUE(IsRefused(n, [&] { isCreated = IsCreated(); }));
        EXPECT_FALSE(isCreated);
        ExpectNoUse(n);
        EXPECT_EQ(Now().live, live) << "left behind";
    }
    bool isCreated = false;
    EXPECT_TRUE(IsRefused(kAllocations, [&] { isCreated = IsCreated(); }));
    EXPECT_TRUE(isCreated);
    Store::InitializeProperties();
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
bool IsValid() { return TEVUtilWindows::IsValidUUID("01234567-89AB-4DEF-8EDC-BA9876543210"); }
#pragma GCC diagnostic pop

// It stays once it is made; what fails later is the matching.
void MakeExpression() {
    int failures = 0;
    int kept = 0;
    for (bool isRefused = true; isRefused; ++failures) {
        const std::ptrdiff_t live = Now().live;
        bool isValid = false;
        isRefused = IsRefused(failures, [&] { isValid = IsValid(); });
        EXPECT_FALSE(isValid);
        if (Now().live != live) ++kept;
    }
    EXPECT_GT(failures, 10) << "made before";
    EXPECT_EQ(kept, 1);
}

}  // namespace

void FirstUses::SetUp() {
    static bool isDone = false;
    if (isDone) return;
    isDone = true;
    // GoogleTest keeps its trace stack from the first use on.
    { SCOPED_TRACE("first use"); }
    CreateStore();
    MakeExpression();
    for (const char* function :
         {"TEVSystemProperties::get()", "TEVUtilWindows::IsValidUUID(char const*)"})
        RegisteredRows().push_back({function, Effect::Allocates});
}

}  // namespace tev::fault
