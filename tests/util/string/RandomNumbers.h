#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>

namespace tev::test {

// The same numbers in each run.
class RandomNumbers {
 public:
    std::uint64_t Below(std::uint64_t end) { return engine_() % end; }
    bool Coin() { return Below(2) == 0; }

    // Any length of digits is as likely as another.
    std::uint64_t Integer() { return engine_() >> Below(64); }

    // A number as people write it, or any bit pattern.
    double Double() {
        if (Below(4) != 0) return Ordinary();
        const std::uint64_t bits = engine_();
        double number;
        std::memcpy(&number, &bits, sizeof number);
        return number;
    }

 private:
    static constexpr unsigned kSeed = 5821;

    double Ordinary() {
        const auto digits = static_cast<double>(Integer() >> 11);
        const double scaled = digits / std::pow(10.0, static_cast<double>(Below(20)));
        return Coin() ? scaled : -scaled;
    }

    std::mt19937_64 engine_{kSeed};
};

}  // namespace tev::test
