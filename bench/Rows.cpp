#include "Rows.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <regex>
#include <string_view>

namespace tev::bench {

namespace {

using Seconds = std::chrono::duration<double>;

constexpr std::int64_t kQuickSize = 4 << 20;
constexpr Seconds kTrial{0.001};
constexpr int kTrials = 3;

struct Wishes {
    bool isQuick = false;
    bool onlyCheck = false;
    // Of each row, instead of measuring.
    std::int64_t turns = 0;
    Seconds repetition{0.05};
    std::regex filter{""};
} wishes;

Seconds FastestTrial(const std::function<void(std::int64_t)>& turns, std::int64_t count) {
    Seconds fastest = Seconds::max();
    for (int i = 0; i < kTrials; ++i) {
        const auto start = std::chrono::steady_clock::now();
        turns(count);
        fastest = std::min<Seconds>(fastest, std::chrono::steady_clock::now() - start);
    }
    return fastest;
}

std::int64_t TurnsOfRepetition(const std::function<void(std::int64_t)>& turns) {
    for (std::int64_t count = 1;; count *= 4) {
        const Seconds taken = FastestTrial(turns, count);
        if (taken >= kTrial)
            return std::max(std::int64_t{1},
                            static_cast<std::int64_t>(wishes.repetition / taken * double(count)));
    }
}

auto Labelled(const std::function<void(benchmark::State&)>& loop, const std::string& label) {
    return [loop, label](benchmark::State& state) {
        loop(state);
        state.SetLabel(label);
    };
}

// Takes out what is ours; the rest is for the benchmark library.
bool TakeWish(std::string_view argument) {
    constexpr std::string_view kFilter = "--filter=";
    constexpr std::string_view kTurns = "--turns=";
    if (argument == "--quick") {
        wishes.isQuick = true;
        wishes.repetition = Seconds(0.01);
    } else if (argument == "--check") {
        wishes.onlyCheck = true;
    } else if (argument.substr(0, kFilter.size()) == kFilter) {
        wishes.filter = std::string(argument.substr(kFilter.size()));
    } else if (argument.substr(0, kTurns.size()) == kTurns) {
        wishes.turns = std::atoll(argument.data() + kTurns.size());
    } else {
        return false;
    }
    return true;
}

int Run(int count, char** arguments) {
    char** const end = std::remove_if(arguments + 1, arguments + count, TakeWish);
    count = static_cast<int>(end - arguments);
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
    RegisterRows();
    // Said, since Wine can end a program that has died with 0.
    if (wishes.onlyCheck) std::puts("every row is right");
    if (wishes.onlyCheck || wishes.turns > 0) return 0;
    return benchmark::RunSpecifiedBenchmarks() == 0 ? 1 : 0;
}

}  // namespace

bool IsWanted(const std::string& name, std::int64_t size) {
    return !(wishes.isQuick && size > kQuickSize) && std::regex_search(name, wishes.filter);
}

void Register(const std::string& name, const std::string& label,
              const std::function<void(benchmark::State&)>& loop,
              const std::function<void(std::int64_t)>& turns) {
    if (wishes.onlyCheck) return;
    if (wishes.turns > 0) return turns(wishes.turns);
    benchmark::RegisterBenchmark(name.c_str(), Labelled(loop, label))
        ->UseRealTime()
        ->Iterations(TurnsOfRepetition(turns));
}

void RegisterOnce(const std::string& name, const std::string& label,
                  const std::function<void(benchmark::State&)>& loop) {
    if (wishes.onlyCheck || wishes.turns > 0 || !IsWanted(name, 0)) return;
    benchmark::RegisterBenchmark(name.c_str(), Labelled(loop, label))
        ->UseManualTime()
        ->Iterations(1);
}

void Refuse(const std::string& name) {
    std::fprintf(stderr, "%s: another result than expected\n", name.c_str());
    std::exit(1);
}

}  // namespace tev::bench

int main(int count, char** arguments) { return tev::bench::Run(count, arguments); }
