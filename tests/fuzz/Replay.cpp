#include <algorithm>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <utility>
#include <vector>

// Runs a fuzz target without a fuzzer: over files, and over inputs made from them, the same ones
// every time. For compilers that bring no fuzzer.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// The sanitizers shall end the process by abort(), so that the input is kept.
extern "C" const char* __asan_default_options() { return "abort_on_error=1"; }
extern "C" const char* __ubsan_default_options() { return "abort_on_error=1"; }

namespace {

constexpr unsigned kSeed = 20240613;
constexpr std::size_t kLeastRoom = 300;

std::string current;
std::string reproducer;

void KeepInput(int) {
    std::ofstream(reproducer, std::ios::binary) << current;
    std::cerr << "the input was kept in " << reproducer << "\n";
}

void Run(const std::string& input) {
    current = input;
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(current.data()), current.size());
}

std::vector<std::string> Read(const std::filesystem::path& path) {
    if (!std::filesystem::is_directory(path)) {
        std::ifstream file(path, std::ios::binary);
        return {std::string(std::istreambuf_iterator<char>(file), {})};
    }
    std::vector<std::string> inputs;
    std::vector<std::filesystem::path> files(std::filesystem::directory_iterator(path), {});
    std::sort(files.begin(), files.end());
    for (const auto& file : files) inputs.push_back(Read(file).front());
    return inputs;
}

// What an input made from these may grow to: none is cut before it is twice as long as they are.
std::size_t RoomFor(const std::vector<std::string>& inputs) {
    std::size_t room = kLeastRoom;
    for (const std::string& input : inputs) room = std::max(room, 2 * input.size());
    return room;
}

class Mutator {
 public:
    explicit Mutator(std::vector<std::string> inputs)
        : inputs_(std::move(inputs)), room_(RoomFor(inputs_)) {}

    std::string Next() {
        std::string input = inputs_[Below(inputs_.size())];
        for (std::size_t edits = 1 + Below(4); edits > 0; --edits) Edit(input);
        input.resize(std::min(input.size(), room_));
        return input;
    }

 private:
    std::size_t Below(std::size_t end) { return engine_() % end; }
    std::size_t Place(const std::string& input) { return Below(input.size() + 1); }

    // A byte of another input, or any.
    char Byte() {
        const std::string& other = inputs_[Below(inputs_.size())];
        if (other.empty() || Below(4) == 0) return static_cast<char>(Below(256));
        return other[Below(other.size())];
    }

    void Edit(std::string& input) {
        const std::size_t at = Place(input);
        const std::size_t kind = Below(4);
        if (kind == 0) {
            input.insert(at, 1, Byte());
        } else if (kind == 1) {
            input.erase(at, 1 + Below(4));
        } else if (kind == 2 && at < input.size()) {
            input[at] = Byte();
        } else {
            const std::string& other = inputs_[Below(inputs_.size())];
            input.insert(at, other, Place(other), 1 + Below(16));
        }
    }

    std::vector<std::string> inputs_;
    std::size_t room_;
    std::mt19937 engine_{kSeed};
};

}  // namespace

// [--mutants COUNT] FILE|FOLDER...
int main(int argc, char** argv) {
    reproducer = std::string(argv[0]) + ".input";
    std::signal(SIGABRT, KeepInput);
    std::vector<std::string> inputs;
    int mutants = 0;
    for (int i = 1; i < argc; ++i) {
        if (std::string(argv[i]) == "--mutants" && i + 1 < argc) {
            mutants = std::atoi(argv[++i]);
        } else {
            for (std::string& input : Read(argv[i])) inputs.push_back(std::move(input));
        }
    }
    if (inputs.empty()) {
        std::cerr << "no inputs; give files or folders of them\n";
        return 2;
    }
    for (const std::string& input : inputs) Run(input);
    Mutator mutator(inputs);
    for (int i = 0; i < mutants; ++i) Run(mutator.Next());
    std::cout << inputs.size() << " inputs, " << mutants << " made from them (seed " << kSeed
              << ")\n";
}
