#include "fault/FirstUses.h"

#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include <cstddef>
#include <new>
#include <string>

#include "fault/AllocationFaults.h"
#include "fault/AllocationTable.h"
#include "fault/Allocator.h"
#include "system/StoreFixture.h"

namespace tev::fault {

namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;
using test::OpenStore;
using test::Store;

std::string Told(const Fault& fault) {
    return "allocation " + std::to_string(fault.n) + " fails" +
           (fault.mode == Mode::Once ? "" : " and all that follow");
}

// The harder one first: what survives it is made, and cannot be made again.
constexpr Mode kModes[] = {Mode::FromThenOn, Mode::Once};

// Creates the store, when that is possible.
bool IsCreated() try { return OpenStore::Instance() != nullptr; } catch (const std::bad_alloc&) {
    return false;
}

void ExpectNoUse(const Fault& fault) {
    const char* value = "before";
    IsRefused(fault, [&] { EXPECT_FALSE(Store::GetProperty("key", value)); });
    EXPECT_EQ(value, nullptr);
    bool isOn = true;
    IsRefused(fault, [&] { EXPECT_FALSE(Store::GetPropertyAsBool(isOn, "key")); });
    EXPECT_FALSE(isOn);
    IsRefused(fault, [] { EXPECT_FALSE(Store::SetUserProperty("key", "value")); });
    IsRefused(fault, [] { EXPECT_FALSE(Store::SaveUserProperties()); });
    IsRefused(fault, [] { Store::InitializeProperties(); });
}

void ExpectNoStore(const Fault& fault) {
    SCOPED_TRACE(Told(fault));
    const std::ptrdiff_t live = Now().live;
    bool isCreated = true;
    EXPECT_TRUE(IsRefused(fault, [&] { isCreated = IsCreated(); }));
    EXPECT_FALSE(isCreated);
    ExpectNoUse(fault);
    EXPECT_EQ(Now().live, live) << "left behind";
}

// The call that failed, with enough memory: nothing is refused, and nothing is made a second time.
template <typename Use>
void ExpectMade(Use use) {
    const Counters before = Now();
    use();
    EXPECT_EQ(Now().refused, before.refused);
    EXPECT_EQ(Now().live, before.live) << "made again, or left behind";
}

// The object and its two tables; what fails later is a step of the loading or the index,
// which is skipped.
void CreateStore() {
    constexpr std::ptrdiff_t kAllocations = 3;
    for (std::ptrdiff_t n = 0; n < kAllocations; ++n)
        for (const Mode mode : kModes) ExpectNoStore({n, mode});
    bool isCreated = false;
    EXPECT_TRUE(IsRefused({kAllocations, Mode::FromThenOn}, [&] { isCreated = IsCreated(); }));
    EXPECT_TRUE(isCreated);
    ExpectMade([] { EXPECT_TRUE(IsCreated()); });
    Store::InitializeProperties();
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
bool IsValid() { return TEVUtilWindows::IsValidUUID("01234567-89AB-4DEF-8EDC-BA9876543210"); }
#pragma GCC diagnostic pop

struct Matched {
    bool isRefused;
    bool isKept;  // something lives longer than the call
};

Matched Match(const Fault& fault) {
    const std::ptrdiff_t live = Now().live;
    const bool isRefused = IsRefused(fault, [] { EXPECT_FALSE(IsValid()); });
    return {isRefused, Now().live != live};
}

// No text is valid: what is kept tells whether the expression was made, and it stays then.
void MakeExpression() {
    std::ptrdiff_t failures = 0;
    for (bool isMade = false; !isMade; ++failures) {
        for (const Mode mode : kModes) {
            const Matched matched = Match({failures, mode});
            EXPECT_TRUE(matched.isRefused || matched.isKept || isMade) << Told({failures, mode});
            isMade = isMade || matched.isKept || !matched.isRefused;
        }
    }
    EXPECT_GT(failures, 10) << "made before";
}

void MatchExpression() {
    for (const Mode mode : kModes) {
        std::ptrdiff_t n = 0;
        Matched matched{true, false};
        for (; matched.isRefused; ++n) {
            matched = Match({n, mode});
            EXPECT_FALSE(matched.isKept) << Told({n, mode});
        }
        EXPECT_GT(n, 1) << "nothing was allocated";
    }
    ExpectMade([] { EXPECT_FALSE(IsValid()); });
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
    MatchExpression();
    for (const char* function :
         {"TEVSystemProperties::get()", "TEVUtilWindows::IsValidUUID(char const*)"})
        RegisteredRows().push_back({function, Effect::Allocates});
}

}  // namespace tev::fault
