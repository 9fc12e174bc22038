#include "tools/tevsys_redact.h"

#include <TEVSystemLib/util/file/TEVUtilFile.h>

#include <algorithm>
#include <new>
#include <string_view>

#include "tools/tevsys_console.h"
#include "tools/tevsys_store.h"

namespace tevsys {

namespace {

using TAMO::TEV::System::Util::TEVUtilFile;

constexpr char kHidden[] = "[hidden]";

bool LongFirst(const std::string& a, const std::string& b) {
    return a.size() != b.size() ? a.size() > b.size() : a < b;
}

bool Matches(std::wstring_view pattern, std::wstring_view name) {
    std::size_t at = 0;
    for (; at < pattern.size(); ++at, name.remove_prefix(1)) {
        if (pattern[at] == L'*') {
            const std::wstring_view rest = pattern.substr(at + 1);
            for (std::size_t skipped = 0; skipped <= name.size(); ++skipped)
                if (Matches(rest, name.substr(skipped))) return true;
            return false;
        }
        if (name.empty() || (pattern[at] != L'?' && pattern[at] != name.front())) return false;
    }
    return name.empty();
}

// What is not known cannot be hidden.
void Require(bool isKnown) {
    if (!isKnown) throw std::bad_alloc();
}

}  // namespace

Redactor::Redactor(const std::vector<std::string>& patterns) : hidden_(LongFirst) {
    for (const std::string& pattern : patterns) patterns_.push_back(Folded(pattern));
    if (patterns_.empty()) return;
    HideConfigured();
    HideVariables();
}

void Redactor::AlsoHideThoseOf(const std::string& file) {
    Table pairs;
    if (!patterns_.empty()) TEVUtilFile::GetKeyValuePairsFromFile(file, pairs, false);
    for (const auto& [key, value] : pairs)
        if (Hides(key)) Hide(value);
}

bool Redactor::Hides(const std::string& name) const {
    const std::wstring folded = Folded(name);
    return std::any_of(patterns_.begin(), patterns_.end(),
                       [&](const std::wstring& pattern) { return Matches(pattern, folded); });
}

std::string Redactor::Value(const std::string& name, const std::string& value) const {
    return !value.empty() && Hides(name) ? kHidden : Text(value);
}

std::string Redactor::Message(const std::string& name, const std::string& value,
                              const std::string& message) const {
    if (value.empty()) return ToUtf8(message);
    const std::size_t quote = message.find('"' + value + '"');
    // Without quotes it begins with a reference, a name of its own.
    if (quote == std::string::npos)
        return Hides(name) ? kHidden + ToUtf8(message.substr(value.size())) : ToUtf8(message);
    return ToUtf8(message.substr(0, quote + 1)) + Value(name, value) +
           ToUtf8(message.substr(quote + 1 + value.size()));
}

std::string Redactor::Text(const std::string& text) const {
    std::string shown = ToUtf8(text);
    for (const std::string& value : hidden_)
        for (auto at = shown.find(value); at != std::string::npos;
             at = shown.find(value, at + sizeof kHidden - 1))
            shown.replace(at, value.size(), kHidden);
    return shown;
}

void Redactor::Hide(const std::string& value) {
    if (!value.empty()) hidden_.insert(ToUtf8(value));
}

void Redactor::HideConfigured() {
    std::vector<Diagnostics::Explanation> explanations;
    Require(Diagnostics::ExplainProperties(explanations));
    for (const auto& explanation : explanations) {
        if (!Hides(explanation.key)) continue;
        Hide(explanation.answer.written);
        Hide(explanation.answer.value);
        Hide(explanation.expanded);
        for (const auto& loser : explanation.losers) {
            Hide(loser.written);
            Hide(loser.value);
        }
    }
}

void Redactor::HideVariables() {
    for (const auto& [name, value] : EnvironmentVariables())
        if (Hides(name)) Hide(value);
    std::vector<Diagnostics::DirectiveStep> steps;
    Require(Diagnostics::PlanEnvironmentDirectives(steps));
    for (const auto& step : steps) {
        if (!Hides(step.key) && !Hides(step.variable)) continue;
        Hide(step.value);
        if (!Hides(step.variable)) continue;
        Hide(step.before.value_or(""));
        Hide(step.after.value_or(""));
    }
}

}  // namespace tevsys
