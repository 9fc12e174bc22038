#include <TEVSystemLib/util/file/TEVIO.h>
#include <TEVSystemLib/util/file/TEVUtilFile.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "support/Effort.h"

namespace {

using TAMO::TEV::System::Util::TEVIO;
using TAMO::TEV::System::Util::TEVUtilFile;

using Pairs = std::map<std::string, std::string>;
using Lines = std::vector<std::pair<std::string, std::string>>;

constexpr std::int64_t kPairs = 1'000'000;

class RandomLines {
 public:
    std::size_t Below(std::size_t end) { return engine_() % end; }

    // In ascending, descending or no order; the fewer keys there are to choose from, the more of
    // them are the same.
    Lines Next() { return Next(Below(8) == 0 ? Below(1000) : Below(9)); }

    Lines Next(std::size_t size) {
        const std::size_t keys = 1 + Below(4 * size + 1);
        Lines lines;
        while (lines.size() < size) lines.emplace_back(Key(keys), Value());
        const std::size_t order = Below(3);
        if (order == 0) std::stable_sort(lines.begin(), lines.end(), HasLowerKey);
        if (order == 1) std::stable_sort(lines.rbegin(), lines.rend(), HasLowerKey);
        return lines;
    }

 private:
    static bool HasLowerKey(const Lines::value_type& left, const Lines::value_type& right) {
        return left.first < right.first;
    }

    std::string Key(std::size_t keys) { return "k" + std::to_string(Below(keys)); }
    std::string Value() { return std::string(1 + Below(24), static_cast<char>('a' + Below(26))); }

    std::mt19937_64 engine_{20240313};
};

void Write(const std::string& path, const Lines& lines, char separator) {
    std::string text = "# pairs\n";
    for (const auto& [key, value] : lines) text += key + separator + value + '\n';
    TEVIO file(path, TEVIO::Write);
    ASSERT_EQ(file.write(text.data(), text.size()), text.size());
}

// Each pair put into the map in its turn.
Pairs OneByOne(Pairs pairs, const Lines& lines) {
    for (const auto& [key, value] : lines) pairs[key] = value;
    return pairs;
}

TEST(GetKeyValuePairsFromFile, RandomPairsAsPutOneByOne) {
    const std::string path = "/vsimem/tev-random-pairs";
    RandomLines random;
    for (std::int64_t done = 0; done < tev::test::Repetitions(kPairs) && !HasFailure();) {
        const Pairs before = OneByOne({}, random.Next(random.Below(50)));
        const Lines lines = random.Next();
        const bool blankSeparated = random.Below(2) == 0;
        Write(path, lines, blankSeparated ? ' ' : '=');
        Pairs pairs = before;
        ASSERT_TRUE(TEVUtilFile::GetKeyValuePairsFromFile(path, pairs, blankSeparated));
        ASSERT_EQ(pairs, OneByOne(before, lines));
        done += static_cast<std::int64_t>(lines.size());
    }
}

}  // namespace
