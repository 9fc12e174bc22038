// Reads properties: the user's value goes before the system's, then comes the environment.
#include <TEVSystemLib/system/TEVSysCnst.h>
#include <TEVSystemLib/system/TEVSystemProperties.h>

#include <iostream>
#include <string>

using namespace TAMO::TEV::System;

namespace {

// What GetProperty gives belongs to the store: copy it if it must last.
std::string PropertyOr(const char* key, const char* fallback) {
    const char* value = nullptr;
    return TEVSystemProperties::GetProperty(key, value) ? value : fallback;
}

}  // namespace

int main() {
    std::cout << "units    " << PropertyOr("survey.units", "metre") << '\n';
    std::cout << "archive  " << PropertyOr("survey.archive", "none") << '\n';
    std::cout << "theme    " << PropertyOr("survey.theme", "light, by default") << '\n';

    // Well-known keys are put right in the system table: "verbose" is no level.
    std::cout << "level    " << PropertyOr("tev.log.level", "none") << '\n';

    using Key = TEVSysCnst::PropertyKey;
    bool isOn = false;
    if (TEVSystemProperties::GetPropertyAsBool(isOn, Key::TEV_LOG_LOGGING_STATUS))
        std::cout << "logging  " << (isOn ? "on" : "off") << '\n';
    if (!TEVSystemProperties::GetPropertyAsBool(isOn, "survey.units"))
        std::cout << "survey.units is no switch\n";
}
