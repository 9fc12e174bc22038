#include "tools/tevsys_check.h"

#include <TEVSystemLib/system/TEVSysCnst.h>

#include <algorithm>
#include <iostream>

#include "tools/tevsys_explain.h"
#include "tools/tevsys_json.h"
#include "tools/tevsys_redact.h"

namespace tevsys {

namespace {

using Findings = std::vector<Diagnostics::Finding>;
using Key = TAMO::TEV::System::TEVSysCnst::PropertyKey;

const char* NameOf(Diagnostics::Severity severity) {
    return severity == Diagnostics::Severity::Note ? "note" : "warning";
}

// The path that the store notes under the key; a file may hold the key as well.
std::string NotedPath(const char* key) {
    Diagnostics::Explanation explanation;
    Diagnostics::ExplainProperty(key, explanation);
    if (explanation.answer.layer == Diagnostics::Layer::Noted) return explanation.answer.value;
    for (const auto& loser : explanation.losers)
        if (loser.layer == Diagnostics::Layer::Noted) return loser.value;
    return {};
}

// Those that can be read; the system file's name is noted even when there is none.
std::vector<std::string> FoundFiles() {
    std::vector<std::string> files;
    Findings ignored;
    for (const char* key :
         {Key::TEV_SYS_PROPERTIES_FILE_NAME, Key::TEV_USER_PROPERTIES_FILE_NAME}) {
        const std::string path = NotedPath(key);
        if (Diagnostics::CheckPropertiesFile(path.c_str(), Diagnostics::FileRole::ByName, ignored))
            files.push_back(path);
    }
    return files;
}

void Show(const Findings& findings, const Redactor& redactor) {
    for (const auto& finding : findings) {
        const bool isNote = finding.severity == Diagnostics::Severity::Note;
        std::cout << PlaceText(finding.place) << ": "
                  << Painted(isNote ? Colour::Note : Colour::Warning, NameOf(finding.severity))
                  << ": " << redactor.Message(finding.key, finding.value, finding.message) << " ["
                  << finding.id << "]\n";
    }
}

void WriteFindings(const Findings& findings, const Redactor& redactor) {
    Json array = Json::array();
    for (const auto& finding : findings) {
        Json json;
        json["file"] = ToUtf8(finding.place.file);
        json["line"] = finding.place.line;
        json["severity"] = NameOf(finding.severity);
        json["id"] = finding.id;
        json["key"] = ToUtf8(finding.key);
        json["message"] = redactor.Message(finding.key, finding.value, finding.message);
        array.push_back(std::move(json));
    }
    Write(std::cout, array);
}

}  // namespace

ExitCode Check(std::vector<std::string> files, const std::vector<std::string>& redacted,
               bool asJson) {
    if (files.empty()) files = FoundFiles();
    if (files.empty())
        return Fail(kUsage,
                    "no properties file was found; name one, or the folders in "
                    "TEV_SYS_CONFIG_DIR and TEV_USER_CONFIG_DIR");
    const Redactor redactor(redacted);
    Findings findings;
    for (const std::string& file : files) {
        Findings inFile;
        if (!Diagnostics::CheckPropertiesFile(file.c_str(), Diagnostics::FileRole::ByName, inFile))
            return Fail(kUsage, "cannot read " + file);
        findings.insert(findings.end(), inFile.begin(), inFile.end());
    }
    asJson ? WriteFindings(findings, redactor) : Show(findings, redactor);
    const bool isClean = std::all_of(findings.begin(), findings.end(), [](const auto& finding) {
        return finding.severity == Diagnostics::Severity::Note;
    });
    return isClean ? kDone : kFindings;
}

}  // namespace tevsys
