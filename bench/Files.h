#pragma once

#include <cpl_vsi.h>

#include <map>
#include <random>
#include <stdexcept>
#include <string>

namespace tev::bench {

using Pairs = std::map<std::string, std::string>;

// The bare work of reading a file through the virtual layer into a buffer that is large enough.
inline std::size_t ReadInto(const std::string& path, char* buffer, std::size_t size) {
    VSILFILE* file = VSIFOpenL(path.c_str(), "rb");
    if (file == nullptr) throw std::runtime_error("cannot open " + path);
    const std::size_t read = VSIFReadL(buffer, 1, size, file);
    VSIFCloseL(file);
    return read;
}

inline std::string Word(std::mt19937& random, std::size_t letters) {
    std::string word;
    while (word.size() < letters) word += static_cast<char>('a' + random() % 26);
    return word;
}

}  // namespace tev::bench
