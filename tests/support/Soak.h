#pragma once

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace tev::test {

// Work on data of its own, which the seed tells; gives what came out as text.
struct Job {
    const char* name;
    std::string (*run)(unsigned seed);
};

constexpr unsigned kSoakThreads = 16;
constexpr unsigned kSeedsAThread = 4;

// How long to go on after the first round: TEV_SOAK_SECONDS.
inline std::chrono::milliseconds SoakTime() {
    const char* seconds = std::getenv("TEV_SOAK_SECONDS");
    return seconds == nullptr ? std::chrono::milliseconds(300)
                              : std::chrono::seconds(std::atoi(seconds));
}

// What one thread alone gives for each seed of a job.
inline std::vector<std::string> Alone(const Job& job) {
    std::vector<std::string> results;
    for (unsigned seed = 0; seed < kSoakThreads * kSeedsAThread; ++seed)
        results.push_back(job.run(seed));
    return results;
}

// Runs all jobs at once from many threads, each on seeds of its own, and gives the names of those
// whose results were not the ones of a thread alone, one entry a difference.
class Soak {
 public:
    explicit Soak(std::vector<Job> jobs) : jobs_(std::move(jobs)) {
        for (const Job& job : jobs_) expected_.push_back(Alone(job));
    }

    std::vector<std::string> Differences() {
        std::vector<std::vector<std::string>> found(kSoakThreads);
        std::vector<std::thread> threads;
        for (unsigned i = 0; i < kSoakThreads; ++i)
            threads.emplace_back([this, i, &found] { Run(i, found[i]); });
        std::vector<std::string> all;
        for (unsigned i = 0; i < kSoakThreads; ++i) {
            threads[i].join();
            all.insert(all.end(), found[i].begin(), found[i].end());
        }
        return all;
    }

    unsigned Rounds() const { return rounds_; }

 private:
    // All begin together, each with another job, until the time is over or something differs.
    void Run(unsigned thread, std::vector<std::string>& found) {
        ++ready_;
        while (ready_ < kSoakThreads) std::this_thread::yield();
        const auto end = std::chrono::steady_clock::now() + SoakTime();
        do {
            for (std::size_t i = 0; i < jobs_.size(); ++i)
                Compare((i + thread) % jobs_.size(), thread, found);
            ++rounds_;
        } while (found.empty() && std::chrono::steady_clock::now() < end);
    }

    void Compare(std::size_t job, unsigned thread, std::vector<std::string>& found) const {
        for (unsigned i = 0; i < kSeedsAThread; ++i) {
            const unsigned seed = thread * kSeedsAThread + i;
            const std::string result = jobs_[job].run(seed);
            if (result != expected_[job][seed])
                found.push_back(std::string(jobs_[job].name) + ": " + result + " instead of " +
                                expected_[job][seed]);
        }
    }

    const std::vector<Job> jobs_;
    std::vector<std::vector<std::string>> expected_;
    std::atomic<unsigned> ready_{0};
    std::atomic<unsigned> rounds_{0};
};

}  // namespace tev::test
