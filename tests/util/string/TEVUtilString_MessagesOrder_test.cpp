#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <cstddef>
#include <map>
#include <vector>

namespace {

using TAMO::TEV::System::TEVSysCnst;
using TAMO::TEV::System::Util::TEVUtilString;
using testing::ElementsAre;

using Level = TEVSysCnst::MsgLevel;
using Vector = std::vector<char*>;
using Map = std::map<Level, Vector*>;

constexpr std::size_t kPage = 4096;
constexpr Level kLevels[] = {TEVSysCnst::Debug, TEVSysCnst::Info, TEVSysCnst::Warn,
                             TEVSysCnst::Error};

// Pages that tell when they are touched for the first time: one in the slots of each vector.
struct Watch {
    const char* page = nullptr;
    Level level = TEVSysCnst::Debug;
};
Watch watches[4];
Level touched[4];
std::size_t touches = 0;

LONG CALLBACK NoteTouch(EXCEPTION_POINTERS* exception) {
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    if (record.ExceptionCode != STATUS_GUARD_PAGE_VIOLATION) return EXCEPTION_CONTINUE_SEARCH;
    const ULONG_PTR address = record.ExceptionInformation[1];
    for (const Watch& watch : watches) {
        if (address - reinterpret_cast<ULONG_PTR>(watch.page) >= kPage) continue;
        touched[touches++] = watch.level;
        return EXCEPTION_CONTINUE_EXECUTION;
    }
    return EXCEPTION_CONTINUE_SEARCH;
}

TEST(DeleteMsgsMap, VectorsAreDestroyedInAscendingOrderOfLevels) {
    constexpr std::size_t kSlots = 4 * kPage / sizeof(char*);
    Map* map = nullptr;
    TEVUtilString::GetMsgsMap(&map);
    ASSERT_NE(map, nullptr);
    for (const Level level :
         {TEVSysCnst::Warn, TEVSysCnst::Debug, TEVSysCnst::Error, TEVSysCnst::Info}) {
        Vector*& vector = (*map)[level];
        TEVUtilString::GetMsgsVector(&vector);
        ASSERT_NE(vector, nullptr);
        vector->resize(kSlots);
    }
    touches = 0;
    void* const handler = AddVectoredExceptionHandler(1, NoteTouch);
    for (const Level level : kLevels) {
        auto* const slots = reinterpret_cast<char*>((*map)[level]->data());
        const auto offset = kPage - reinterpret_cast<ULONG_PTR>(slots) % kPage;
        watches[level] = {slots + offset, level};
        DWORD before = 0;
        EXPECT_TRUE(VirtualProtect(slots + offset, kPage, PAGE_READWRITE | PAGE_GUARD, &before));
    }
    EXPECT_TRUE(TEVUtilString::DeleteMsgsMap(&map));
    RemoveVectoredExceptionHandler(handler);
    ASSERT_EQ(touches, 4U);
    EXPECT_THAT(touched, ElementsAre(0, 1, 2, 3));
}

}  // namespace
