// Lets the directives of the system file prepare PATH and other variables of this process.
#include <TEVSystemLib/TEVOwned.h>
#include <TEVSystemLib/system/TEVSystemProperties.h>

#include <iostream>
#include <string>

using namespace TAMO::TEV::System;
using Util::TEVUtilWindows;

namespace {

std::string Variable(const char* name) {
    Host::OwnedText value;
    TEVUtilWindows::GetEnv(name, Out(value));
    return value ? std::string(value.View()) : "(not set)";
}

std::string FirstFolderOfPath() {
    const std::string path = Variable("PATH");
    return path.substr(0, path.find(';'));
}

void Show(const char* when) {
    std::cout << when << '\n';
    const bool isFirst = FirstFolderOfPath() == "data\\bin";
    std::cout << "  data\\bin leads PATH  " << (isFirst ? "yes" : "no") << '\n';
    std::cout << "  EXAMPLE_MAPS         " << Variable("EXAMPLE_MAPS") << '\n';
    std::cout << "  EXAMPLE_MODE         " << Variable("EXAMPLE_MODE") << '\n';
}

}  // namespace

int main() {
    Show("before");
    TEVSystemProperties::InitializeProperties();
    Show("after");
    // Directives add nothing twice.
    const std::string path = Variable("PATH");
    TEVSystemProperties::InitializeProperties();
    std::cout << "again: PATH is " << (Variable("PATH") == path ? "the same" : "another") << '\n';
}
