#pragma once

#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <cstddef>
#include <initializer_list>
#include <ostream>
#include <string>
#include <vector>

#include "support/Owned.h"

namespace tev::test {

using TAMO::TEV::System::Util::TEVUtilString;

// A C string of the library's own, also for the empty text.
inline char* Owned(const std::string& text) {
    char* copy = nullptr;
    TEVUtilString::GetCharArray(text.size() + 1, &copy);
    text.copy(copy, text.size());
    return copy;
}

// Null texts become null slots.
inline void Fill(TextArray& array, std::initializer_list<const char*> texts) {
    array.count = TEVUtilString::GetCStringArray(array.array, texts.size());
    std::size_t i = 0;
    for (const char* text : texts) array.array[i++] = text == nullptr ? nullptr : Owned(text);
}

struct Texts : TextArray {
    Texts() = default;
    Texts(std::initializer_list<const char*> texts) { Fill(*this, texts); }
};

// A vector whose strings the test owns.
struct Entries {
    Entries(std::initializer_list<const char*> texts) {
        for (const char* text : texts) vector.push_back(text == nullptr ? nullptr : Owned(text));
    }
    ~Entries() {
        for (char*& text : vector) TEVUtilString::DeleteCString(&text);
    }
    Entries(const Entries&) = delete;
    Entries& operator=(const Entries&) = delete;

    std::vector<char*> vector;
};

// What an array looks like from outside; to see that a refused call changes nothing.
struct State {
    explicit State(const TextArray& texts)
        : array(texts.array), count(texts.count), slots(texts.array, texts.array + texts.count) {}
    bool operator==(const State& other) const {
        return array == other.array && count == other.count && slots == other.slots;
    }
    friend std::ostream& operator<<(std::ostream& stream, const State& state) {
        return stream << state.count << " slots at " << static_cast<const void*>(state.array);
    }

    char** array;
    std::size_t count;
    std::vector<char*> slots;
};

using Strings = std::vector<std::string>;

// The strings in the order that `append` asks for.
inline Strings Joined(bool append, Strings before, Strings added) {
    Strings& first = append ? before : added;
    const Strings& second = append ? added : before;
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

}  // namespace tev::test
