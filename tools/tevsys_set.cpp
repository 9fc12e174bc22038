#include "tools/tevsys_set.h"

#include <TEVSystemLib/system/TEVSysCnst.h>
#include <TEVSystemLib/system/TEVSystemDiagnostics.h>
#include <TEVSystemLib/system/TEVSystemProperties.h>

#include <iostream>

#include "tools/tevsys_console.h"
#include "tools/tevsys_store.h"

namespace tevsys {

namespace {

using TAMO::TEV::System::TEVSystemDiagnostics;
using TAMO::TEV::System::TEVSystemProperties;
using Key = TAMO::TEV::System::TEVSysCnst::PropertyKey;

bool HasBlankEnds(const std::string& text) {
    const std::string kBlanks = " \t\r";
    return kBlanks.find(text.front()) != std::string::npos ||
           kBlanks.find(text.back()) != std::string::npos;
}

// Why the user file would not give a pair back as it stands; empty when it does.
std::string WhyNotStorable(const std::string& key, const std::string& value) {
    if (key.empty() || value.empty()) return "a line of the user file holds a key and a value";
    if ((key + value).find('\n') != std::string::npos) return "a property is one line";
    if (HasBlankEnds(key) || HasBlankEnds(value)) return "blanks at the ends do not last";
    if (key.front() == '#') return "a line that begins with # is a comment";
    if (key.find('=') != std::string::npos) return "the key ends at the first =";
    if (key == Key::TEV_USER_CONFIG_DIR || key == Key::TEV_USER_PROPERTIES_FILE_NAME)
        return "the store itself sets " + key;
    return {};
}

// What check would say of the key's line.
void Warn(const std::string& file, const std::string& key) {
    std::vector<TEVSystemDiagnostics::Finding> findings;
    TEVSystemDiagnostics::CheckPropertiesFile(file.c_str(), TEVSystemDiagnostics::FileRole::User,
                                              findings);
    for (const auto& finding : findings)
        if (finding.key == key && finding.severity == TEVSystemDiagnostics::Severity::Warning)
            std::cerr << "tevsys: warning: " << ToUtf8(finding.message) << '\n';
}

}  // namespace

ExitCode Set(const std::string& key, const std::string& value) {
    const std::string problem = WhyNotStorable(key, value);
    if (!problem.empty()) return Fail(kUsage, "nothing set: " + problem);
    const auto file = Store::User().find(Key::TEV_USER_PROPERTIES_FILE_NAME);
    if (file == Store::User().end())
        return Fail(kFailed,
                    "nothing set: no tev.user.properties was found; create an empty one in the "
                    "folder that TEV_USER_CONFIG_DIR names, or in %APPDATA%\\Tamo");
    if (!TEVSystemProperties::SetUserProperty(key.c_str(), value.c_str()) ||
        !TEVSystemDiagnostics::SaveUserPropertiesPreserving(nullptr))
        return Fail(kFailed, "nothing set: could not replace " + file->second +
                                 ", which is as it was; make it and its folder writable or free "
                                 "some disk space, and set again");
    Warn(file->second, key);
    return kDone;
}

}  // namespace tevsys
