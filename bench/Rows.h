#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace tev::bench {

// Each job defines this one: it makes the Work of the job.
void RegisterRows();

// Sizes beyond it are left out by --quick.
constexpr std::int64_t kQuickSize = 4 << 20;
bool IsLeftOut(std::int64_t size);

// What a row hands its result to, in the loop and once before it.
struct Timed {
    template <typename Value>
    void operator()(const Value& value) const {
        benchmark::DoNotOptimize(value);
        benchmark::ClobberMemory();
    }
};

template <typename Expected>
struct Checked {
    template <typename Value>
    void operator()(const Value& value) const {
        if constexpr (std::is_pointer_v<Value>) {
            *same = value != nullptr && value == *expected;
        } else {
            *same = value == *expected;
        }
    }
    const Expected* expected;
    bool* same;
};

// One piece of work of one size, done in several ways: a row each, named "work/size/way". `make`
// prepares the input, outside every loop, and when a row is run for the first time; `expect` tells
// from an input what a way must hand to `keep`: way(input, keep). A way that hands over anything
// else is an error, not a measurement. The size 0 says that the work has none.
template <typename Make, typename Expect>
class Work {
 public:
    using Input = std::invoke_result_t<Make>;
    using Expected = std::invoke_result_t<Expect, const Input&>;

    Work(std::string name, std::int64_t size, Make make, Expect expect)
        : prefix_(std::move(name) + "/" + std::to_string(size) + "/"),
          leftOut_(IsLeftOut(size)),
          make_(std::move(make)),
          expect_(std::move(expect)),
          input_(std::make_shared<std::unique_ptr<const Input>>()) {}

    template <typename Way>
    const Work& Ours(Way way) const {
        return Add("ours", "", way, true);
    }
    template <typename Way>
    const Work& Peer(const std::string& name, Way way) const {
        return Add("peer", name, way, true);
    }
    // The bare work, which need not come to the same result.
    template <typename Way>
    const Work& Limit(const std::string& what, Way way) const {
        return Add("limit", what, way, false);
    }
    // The bare work where it does come to the same result.
    template <typename Way>
    const Work& CheckedLimit(const std::string& what, Way way) const {
        return Add("limit", what, way, true);
    }

 private:
    template <typename Way>
    const Work& Add(const std::string& kind, const std::string& label, Way way,
                    bool checked) const {
        if (leftOut_) return *this;
        const std::string name = prefix_ + kind + (kind == "peer" ? ":" + label : "");
        const auto run = [*this, label, way, checked](benchmark::State& state) mutable {
            if (checked && !IsRight(way))
                return state.SkipWithError("another result than expected");
            checked = false;
            if (!*input_) input_->reset(new Input(make_()));
            const Input& input = **input_;
            for (auto step : state) {
                static_cast<void>(step);
                way(input, Timed());
            }
            state.SetLabel(label);
        };
        benchmark::RegisterBenchmark(name.c_str(), run)->UseRealTime();
        return *this;
    }

    // Upon an input of its own, which the way may change.
    template <typename Way>
    bool IsRight(const Way& way) const {
        const Input input = make_();
        const Expected expected = expect_(input);
        bool same = false;
        way(input, Checked<Expected>{&expected, &same});
        return same;
    }

    std::string prefix_;
    bool leftOut_;
    Make make_;
    Expect expect_;
    std::shared_ptr<std::unique_ptr<const Input>> input_;
};

}  // namespace tev::bench
