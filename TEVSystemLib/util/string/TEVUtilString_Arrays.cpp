#include <TEVSystemLib/util/memory/TEVUtilMemory.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <algorithm>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"

namespace TAMO::TEV::System::Util {

namespace {

bool IsConsistent(char** array, std::size_t count) { return (array == nullptr) == (count == 0); }

bool IsSet(const char* text) { return text != nullptr; }

// Puts the non-null strings of `added` behind or before those of `array`. It owns nothing: after
// it, and only then, the strings of `added` belong to `array`.
void Grow(char**& array, std::size_t& count, const std::vector<char*>& added, bool append) {
    const auto oldCount = static_cast<std::size_t>(std::count_if(array, array + count, IsSet));
    const auto newCount =
        static_cast<std::size_t>(std::count_if(added.begin(), added.end(), IsSet));
    char** grown = nullptr;
    TEVUtilMemory::AllocateCStringArray(grown, oldCount + newCount);

    std::copy_if(array, array + count, append ? grown : grown + newCount, IsSet);
    std::copy_if(added.begin(), added.end(), append ? grown + oldCount : grown, IsSet);
    TEVUtilMemory::DeallocateCStringArray(array, 0);
    array = grown;
    count = oldCount + newCount;
}

// An empty text has no copy: it stops the operation with nothing changed.
bool GrowByCopies(char**& array, std::size_t& count, const std::vector<char*>& entries,
                  bool append) {
    std::vector<detail::OwnedText> copies;
    std::vector<char*> added;
    for (const char* entry : entries) {
        if (entry == nullptr) continue;
        if (*entry == '\0') return false;
        copies.push_back(detail::MakeText(std::string_view(entry)));
        added.push_back(copies.back().get());
    }
    Grow(array, count, added, append);
    for (detail::OwnedText& copy : copies) static_cast<void>(copy.release());
    return true;
}

}  // namespace

bool TEVUtilString::AddEntryToStringArray(char**& array, const char* const entry,
                                          std::size_t& count, bool append) try {
    if (!IsConsistent(array, count) || detail::IsNullOrEmpty(entry)) return false;
    detail::OwnedText copy = detail::MakeText(std::string_view(entry));
    char** grown = nullptr;
    TEVUtilMemory::AllocateCStringArray(grown, count + 1);
    std::copy_n(array, count, append ? grown : grown + 1);
    grown[append ? count : 0] = copy.release();
    TEVUtilMemory::DeallocateCStringArray(array, 0);
    array = grown;
    ++count;
    return true;
} catch (...) {
    return false;
}

bool TEVUtilString::AddEntriesToStringArray(char**& array, std::size_t& count,
                                            std::vector<char*>& entries, bool append,
                                            bool copyEntries) try {
    // KEEP: array and count are not checked against each other here; the caller keeps them.
    if (entries.empty()) return true;
    if (copyEntries) return GrowByCopies(array, count, entries, append);
    Grow(array, count, entries, append);
    entries.clear();
    return true;
} catch (...) {
    return false;
}

bool TEVUtilString::AddEntriesToStringArray(char**& array, char**& source, std::size_t& count,
                                            std::size_t& sourceCount, bool append,
                                            bool takeOver) try {
    if (!IsConsistent(array, count) || !IsConsistent(source, sourceCount)) return false;
    std::vector<char*> entries;
    std::copy_if(source, source + sourceCount, std::back_inserter(entries), IsSet);
    if (!AddEntriesToStringArray(array, count, entries, append, !takeOver)) return false;
    if (takeOver) {
        TEVUtilMemory::DeallocateCStringArray(source, 0);
        sourceCount = 0;
    }
    return true;
} catch (...) {
    return false;
}

std::size_t TEVUtilString::GetCStringVectorContainerArray(
    std::size_t count, std::vector<const char*>**& containers) try {
    if (count == 0) return 0;
    containers = nullptr;
    // Not an array of text, and so none of TEVUtilMemory's kinds.
    containers = new std::vector<const char*>*[count]();
    return count;
} catch (...) {
    return 0;
}

void TEVUtilString::DeleteCStringVectorContainerArray(std::size_t count,
                                                      std::vector<const char*>**& containers) {
    if (containers == nullptr) return;
    // KEEP: the vectors are their maker's to delete.
    std::fill_n(containers, count, nullptr);
    delete[] containers;
    containers = nullptr;
}

}  // namespace TAMO::TEV::System::Util
