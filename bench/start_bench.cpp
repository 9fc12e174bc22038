// What loading the DLL and a first look-up cost a fresh process, against a DLL that does nothing.
// The time is that of the fresh process, without its own start.
#include <cstdio>
#include <string>

#include "Rows.h"

namespace tev::bench {

namespace {

constexpr char kFirstLookup[] = "_ZN4TAMO3TEV6System19TEVSystemProperties11GetPropertyEPKcRS4_";

struct Cost {
    double nanoseconds = 0;
    double bytes = 0;
};

// The folder of this program holds the loader and the DLLs.
bool Measure(const std::string& dll, const std::string& function, Cost& cost) {
    const std::string folder = std::string(_pgmptr).substr(0, std::string(_pgmptr).rfind('\\') + 1);
    const std::string command =
        "\"\"" + folder + "bench_loader.exe\" \"" + folder + dll + "\" " + function + "\"";
    FILE* output = _popen(command.c_str(), "r");
    if (output == nullptr) return false;
    const int fields = std::fscanf(output, "%lf %lf", &cost.nanoseconds, &cost.bytes);
    return _pclose(output) == 0 && fields == 2;
}

void Add(const char* way, const char* label, const std::string& dll, const std::string& function) {
    const auto loop = [=](benchmark::State& state) {
        Cost cost;
        for (auto step : state) {
            static_cast<void>(step);
            if (!Measure(dll, function, cost))
                return state.SkipWithError("the fresh process failed");
            state.SetIterationTime(cost.nanoseconds * 1e-9);
        }
        state.counters["bytes"] = cost.bytes;
    };
    const std::string name = std::string("load-and-look-up/0/") + way;
    Cost once;
    if (!Measure(dll, function, once)) Refuse(name);
    RegisterOnce(name, label, loop);
}

}  // namespace

void RegisterRows() {
    Add("ours", "", "TEVSystemLib.dll", kFirstLookup);
    Add("limit", "an empty DLL", "bench_empty.dll", "Nothing");
}

}  // namespace tev::bench
