#pragma once

#include <cstddef>

namespace tev::bench {

// The rows of key/value tables with so many entries.
void AddTableIn(std::size_t count);
void AddTableOut(std::size_t count);

}  // namespace tev::bench
