#include "tools/tevsys_demo.h"

#include <TEVSystemLib/system/TEVSysCnst.h>
#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <iomanip>
#include <set>
#include <string>

#include "tools/tevsys_store.h"

namespace tevsys {

namespace {

using TAMO::TEV::System::TEVSysCnst;
using TAMO::TEV::System::TEVSystemProperties;
using TAMO::TEV::System::Util::TEVUtilString;
using Key = TEVSysCnst::PropertyKey;
using CsmKey = TEVSysCnst::PropertyKeyCSM;
using Default = TEVSystemProperties::DefaultValue;

constexpr int kKeyColumns = 32;

std::string PropertyOr(const char* key, const std::string& fallback) {
    const char* value = nullptr;
    return TEVSystemProperties::GetProperty(key, value) ? value : fallback;
}

void ShowPlaces(std::ostream& out) {
    out << "Folders and files\n";
    for (const char* key : {Key::TEV_SYS_CONFIG_DIR, Key::TEV_SYS_PROPERTIES_FILE_NAME,
                            Key::TEV_USER_CONFIG_DIR, Key::TEV_USER_PROPERTIES_FILE_NAME})
        out << "  " << std::left << std::setw(kKeyColumns) << key << ' '
            << PropertyOr(key, "(none)") << '\n';
}

void ShowTable(std::ostream& out, const char* title, const Table& table) {
    out << '\n' << title << '\n';
    for (const auto& [key, value] : table) out << "  " << key << " = " << value << '\n';
}

// The variables that the directives name, those of ignored directives included.
std::set<std::string> DirectedVariables(const Table& properties) {
    const std::string kPrefix = "tev.env.";
    std::set<std::string> names;
    for (const auto& [key, value] : properties) {
        if (key.compare(0, kPrefix.size(), kPrefix) != 0) continue;
        const std::string name = value.substr(0, value.find(TEVSysCnst::DELIMITER_VERTICAL_BAR));
        names.insert(TEVUtilString::Trim(name));
    }
    return names;
}

void ShowEnvironment(std::ostream& out, const Table& before, const Table& after) {
    out << "\nEnvironment variables named by directives\n";
    for (const std::string& name : DirectedVariables(Store::System())) {
        out << "  " << name << '\n'
            << "    before  " << FindVariable(before, name).value_or("(not set)") << '\n'
            << "    after   " << FindVariable(after, name).value_or("(not set)") << '\n';
    }
}

void ShowSwitch(std::ostream& out, const char* key, const char* defaultValue) {
    out << "  " << std::left << std::setw(kKeyColumns) << key << ' ';
    bool on = false;
    const char* text = nullptr;
    if (TEVSystemProperties::GetPropertyAsBool(on, key)) {
        out << (on ? "true" : "false");
    } else if (TEVSystemProperties::GetProperty(key, text)) {
        out << "no answer: \"" << text << "\" is no switch word";
    } else {
        out << "no answer: not set, the host takes its default \"" << defaultValue << '"';
    }
    out << '\n';
}

void ShowSwitches(std::ostream& out) {
    out << "\nSwitches\n";
    ShowSwitch(out, Key::TEV_LOG_LOGGING_STATUS, Default::TEV_LOGGING_STATUS);
    ShowSwitch(out, Key::TEV_LOG_DYNAMIC_LOGGING, Default::TEV_LOG_DYNAMIC_LOGGING);
    ShowSwitch(out, Key::TEV_CONST_HT_DEFAULT_TERRAIN_MODEL, Default::TEV_CNST_HGHT_DEFAULT_TM);
    ShowSwitch(out, Key::TEV_ENSURE_EXT_INTERSECTS_TERRAIN, Default::TEV_EXT_INTERSECTS_TERRAIN);
    ShowSwitch(out, Key::TEV_SUPPORT_PROXY_ISD, Default::TEV_SUPPORT_PROXY_ISD);
    ShowSwitch(out, CsmKey::CORVID_ENABLE_CSMXFORM, Default::CORVID_ENABLE_CSMXFORM);
}

}  // namespace

void ShowHostView(std::ostream& out) {
    const Table before = EnvironmentVariables();
    TEVSystemProperties::InitializeProperties();
    const Table after = EnvironmentVariables();
    ShowPlaces(out);
    ShowTable(out, "System properties", Store::System());
    ShowTable(out, "User properties", Store::User());
    ShowEnvironment(out, before, after);
    ShowSwitches(out);
}

}  // namespace tevsys
