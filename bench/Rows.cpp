#include "Rows.h"

#include <algorithm>
#include <string_view>

namespace tev::bench {

namespace {
bool isQuick = false;
}

bool IsLeftOut(std::int64_t size) { return isQuick && size > kQuickSize; }

}  // namespace tev::bench

int main(int count, char** arguments) {
    char** const end = arguments + count;
    char** const quick = std::find(arguments, end, std::string_view("--quick"));
    if (quick != end) {
        tev::bench::isQuick = true;
        std::rotate(quick, quick + 1, end);
        --count;
    }
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
    tev::bench::RegisterRows();
    return benchmark::RunSpecifiedBenchmarks() == 0 ? 1 : 0;
}
