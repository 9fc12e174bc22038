// planted FAULT: does what a sanitizer must see, and says so when it got past it.
#include <climits>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

namespace {

volatile int one = 1;
int shared = 0;

void Leak() {
    for (int i = 0; i < 10; ++i) *new volatile int = one;
}

void ReadBeyondABlock() {
    const std::vector<int> block(4);
    one = block.data()[3 + one];
}

void Overflow() { one = INT_MAX + one; }

void Race() {
    std::thread other([] { ++shared; });
    ++shared;
    other.join();
}

}  // namespace

int main(int count, char** arguments) {
    const std::string fault = count > 1 ? arguments[1] : "";
    if (fault == "leak") Leak();
    if (fault == "address") ReadBeyondABlock();
    if (fault == "overflow") Overflow();
    if (fault == "race") Race();
    std::printf("survived\n");
    return 0;
}
