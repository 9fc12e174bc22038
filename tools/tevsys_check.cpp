#include "tools/tevsys_check.h"

#include <TEVSystemLib/system/TEVSysCnst.h>
#include <TEVSystemLib/util/file/TEVIO.h>

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

// The system file's name is noted even when there is none. Nobody shall take a file for clean that
// was not looked at.
std::vector<std::string> FoundFiles() {
    std::vector<std::string> files;
    for (const char* key :
         {Key::TEV_SYS_PROPERTIES_FILE_NAME, Key::TEV_USER_PROPERTIES_FILE_NAME}) {
        const std::string path = NotedPath(key);
        if (TAMO::TEV::System::Util::TEVIO::exists(path))
            files.push_back(path);
        else
            std::cerr << "tevsys: note: no " << key << " was found\n";
    }
    return files;
}

// The name that decides whether a value is hidden. A line without "=" may be a name and its value.
std::string OwnerOf(const Diagnostics::Finding& finding, const Redactor& redactor) {
    const std::string first = finding.key.substr(0, finding.key.find_first_of(" \t:"));
    const bool isFirst = finding.value == finding.key && redactor.Hides(first);
    return isFirst ? first : finding.key;
}

std::string MessageOf(const Diagnostics::Finding& finding, const Redactor& redactor) {
    return redactor.Message(OwnerOf(finding, redactor), finding.value, finding.message);
}

std::string KeyOf(const Diagnostics::Finding& finding, const Redactor& redactor) {
    const bool isValue = finding.value == finding.key;
    return isValue ? redactor.Value(OwnerOf(finding, redactor), finding.key) : ToUtf8(finding.key);
}

void Show(const Findings& findings, const Redactor& redactor) {
    for (const auto& finding : findings) {
        const bool isNote = finding.severity == Diagnostics::Severity::Note;
        std::cout << PlaceText(finding.place) << ": "
                  << Painted(isNote ? Colour::Note : Colour::Warning, NameOf(finding.severity))
                  << ": " << MessageOf(finding, redactor) << " [" << finding.id << "]\n";
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
        json["key"] = KeyOf(finding, redactor);
        json["message"] = MessageOf(finding, redactor);
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
    Redactor redactor(redacted);
    Findings findings;
    std::vector<std::string> unreadable;
    for (const std::string& file : files) {
        redactor.AlsoHideThoseOf(file);
        Findings inFile;
        if (!Diagnostics::CheckPropertiesFile(file.c_str(), Diagnostics::FileRole::ByName, inFile))
            unreadable.push_back(file);
        findings.insert(findings.end(), inFile.begin(), inFile.end());
    }
    if (unreadable.size() < files.size())
        asJson ? WriteFindings(findings, redactor) : Show(findings, redactor);
    std::cout.flush();
    for (const std::string& file : unreadable) Fail(kUsage, "cannot read " + file);
    if (!unreadable.empty()) return kUsage;
    const bool isClean = std::all_of(findings.begin(), findings.end(), [](const auto& finding) {
        return finding.severity == Diagnostics::Severity::Note;
    });
    return isClean ? kDone : kFindings;
}

}  // namespace tevsys
