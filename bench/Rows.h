#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace tev::bench {

// Each job defines this one: it makes the Work of the job.
void RegisterRows();

// Is the row among those that were asked for?
bool IsWanted(const std::string& name, std::int64_t size);

// Runs the row's loop, whose argument is the number of turns, often enough to tell how many turns
// fill a repetition, and registers it. Best of several tries: the library's own estimate takes the
// first turn for the truth, which on a busy machine may be off by a thousand.
void Register(const std::string& name, const std::string& label,
              const std::function<void(benchmark::State&)>& loop,
              const std::function<void(std::int64_t)>& turns);

// Registers a row of one turn a repetition, whose loop tells its time itself.
void RegisterOnce(const std::string& name, const std::string& label,
                  const std::function<void(benchmark::State&)>& loop);

// Ends the program: the row does not do its work.
[[noreturn]] void Refuse(const std::string& name);

// What a row hands its result to, in the loop and once before it.
struct Timed {
    template <typename Value>
    void operator()(const Value& value) const {
        benchmark::DoNotOptimize(value);
        benchmark::ClobberMemory();
    }
};

// What a way hands over when it does many small things: each of them, in this order.
template <typename Value>
struct Each {
    std::vector<Value> values;
};

struct Progress {
    bool same = true;
    std::size_t count = 0;
};

template <typename Expected>
const Expected* Next(const Expected& expected, std::size_t) {
    return &expected;
}
template <typename Value>
const Value* Next(const Each<Value>& expected, std::size_t index) {
    return index < expected.values.size() ? &expected.values[index] : nullptr;
}

template <typename Expected>
std::size_t Count(const Expected&) {
    return 1;
}
template <typename Value>
std::size_t Count(const Each<Value>& expected) {
    return expected.values.size();
}

template <typename Expected>
struct Checked {
    template <typename Value>
    void operator()(const Value& value) const {
        const auto* next = Next(*expected, progress->count++);
        progress->same = progress->same && next != nullptr && IsEqual(value, *next);
    }
    template <typename Value, typename Other>
    static bool IsEqual(const Value& value, const Other& other) {
        if constexpr (std::is_pointer_v<Value>) {
            return value != nullptr && value == other;
        } else {
            return value == other;
        }
    }
    const Expected* expected;
    Progress* progress;
};

// One piece of work of one size, done in several ways: a row each, named "work/size/way". `make`
// prepares the input outside every loop; `expect` tells from an input what a way must hand to
// `keep`: way(input, keep). A way that hands over anything else is an error, not a measurement. The
// size 0 says that the work has none.
template <typename Make, typename Expect>
class Work {
 public:
    using Input = std::invoke_result_t<Make>;
    using Expected = std::invoke_result_t<Expect, const Input&>;

    Work(std::string name, std::int64_t size, Make make, Expect expect)
        : prefix_(std::move(name) + "/" + std::to_string(size) + "/"),
          size_(size),
          make_(std::move(make)),
          expect_(std::move(expect)),
          input_(std::make_shared<std::unique_ptr<const Input>>()) {}

    // What must be done before each loop, since other rows may have undone it.
    Work& Before(std::function<void(const Input&)> before) {
        before_ = std::move(before);
        return *this;
    }

    template <typename Way>
    const Work& Ours(Way way) const {
        return Add<true>("ours", "", way);
    }
    template <typename Way>
    const Work& Peer(const std::string& name, Way way) const {
        return Add<true>("peer", name, way);
    }
    // The bare work, which need not come to the same result.
    template <typename Way>
    const Work& Limit(const std::string& what, Way way) const {
        return Add<false>("limit", what, way);
    }
    // The bare work where it does come to the same result.
    template <typename Way>
    const Work& CheckedLimit(const std::string& what, Way way) const {
        return Add<true>("limit", what, way);
    }

 private:
    template <bool kChecked, typename Way>
    const Work& Add(const std::string& kind, const std::string& label, const Way& way) const {
        const std::string name = prefix_ + kind + (kind == "peer" ? ":" + label : "");
        if (!IsWanted(name, size_)) return *this;
        if constexpr (kChecked) {
            if (!IsRight(way)) Refuse(name);
        }
        if (!*input_) *input_ = std::make_unique<const Input>(make_());
        const auto loop = [input = input_, before = before_, way](benchmark::State& state) {
            const Input& given = **input;
            before(given);
            for (auto step : state) {
                static_cast<void>(step);
                way(given, Timed());
            }
        };
        const auto turns = [input = input_, way](std::int64_t count) {
            for (std::int64_t i = 0; i < count; ++i) way(**input, Timed());
        };
        before_(**input_);
        Register(name, label, loop, turns);
        return *this;
    }

    // Upon an input of its own, which the way may change.
    template <typename Way>
    bool IsRight(const Way& way) const {
        const Input input = make_();
        const Expected expected = expect_(input);
        before_(input);
        Progress progress;
        way(input, Checked<Expected>{&expected, &progress});
        return progress.same && progress.count == Count(expected);
    }

    std::string prefix_;
    std::int64_t size_;
    Make make_;
    Expect expect_;
    std::function<void(const Input&)> before_ = [](const Input&) {};
    std::shared_ptr<std::unique_ptr<const Input>> input_;
};

}  // namespace tev::bench
