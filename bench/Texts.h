#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace tev::bench {

// An array of C strings beside the texts that it should hold.
struct Texts {
    bool operator==(const std::vector<std::string>& expected) const {
        return count == expected.size() && std::equal(array, array + count, expected.begin());
    }
    char** array;
    std::size_t count;
};

}  // namespace tev::bench
