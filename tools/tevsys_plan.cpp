#include "tools/tevsys_plan.h"

#include <algorithm>
#include <iostream>

#include "tools/tevsys_explain.h"
#include "tools/tevsys_json.h"
#include "tools/tevsys_redact.h"

namespace tevsys {

namespace {

using Step = Diagnostics::DirectiveStep;
using Outcome = Diagnostics::Outcome;

const char* NameOf(Outcome outcome) {
    switch (outcome) {
        case Outcome::Changed:
            return "changed";
        case Outcome::Unchanged:
            return "unchanged";
        case Outcome::Refused:
            return "refused";
        case Outcome::Ignored:
            return "ignored";
    }
    return "";
}

bool IsInOrder(const Step& step) {
    return step.outcome == Outcome::Changed || step.outcome == Outcome::Unchanged;
}

// The name that decides whether the value is hidden.
const std::string& OwnerOf(const Step& step, const Redactor& redactor) {
    return redactor.Hides(step.key) ? step.key : step.variable;
}

// Without a value the directive may lack its separator, and its variable be the value.
std::string VariableOf(const Step& step, const Redactor& redactor) {
    return step.value.empty() ? redactor.Value(step.key, step.variable) : ToUtf8(step.variable);
}

std::string ReasonOf(const Step& step, const Redactor& redactor) {
    return redactor.Message(OwnerOf(step, redactor), step.isFolderMissing ? step.value : "",
                            step.reason);
}

std::string StateOf(const Step& step, const std::optional<std::string>& value,
                    const Redactor& redactor) {
    return value ? redactor.Value(step.variable, *value) : "(not set)";
}

void Show(const Step& step, const Redactor& redactor) {
    std::cout << Painted(Colour::Key, ToUtf8(step.key));
    if (step.place.line > 0) std::cout << "  (" << PlaceText(step.place) << ')';
    std::cout << "\n  " << (step.kind.empty() ? "-" : step.kind);
    if (!step.variable.empty()) std::cout << ' ' << VariableOf(step, redactor);
    if (!step.value.empty())
        std::cout << " | " << redactor.Value(OwnerOf(step, redactor), step.value);
    std::cout << '\n';
    if (!IsInOrder(step)) {
        std::cout << "  " << Painted(Colour::Warning, NameOf(step.outcome)) << ": "
                  << ReasonOf(step, redactor) << '\n';
        return;
    }
    std::cout << "  before  " << StateOf(step, step.before, redactor) << '\n'
              << "  after   " << StateOf(step, step.after, redactor)
              << (step.reason.empty() ? "" : "  (" + step.reason + ')') << '\n';
}

Json ToJson(const Step& step, const Redactor& redactor) {
    const auto state = [&](const std::optional<std::string>& value) {
        return value ? Json(redactor.Value(step.variable, *value)) : Json();
    };
    Json json;
    json["key"] = ToUtf8(step.key);
    json["file"] = step.place.line > 0 ? Json(ToUtf8(step.place.file)) : Json();
    json["line"] = step.place.line > 0 ? Json(step.place.line) : Json();
    json["kind"] = step.kind.empty() ? Json() : Json(step.kind);
    json["variable"] = VariableOf(step, redactor);
    json["value"] = redactor.Value(OwnerOf(step, redactor), step.value);
    json["outcome"] = NameOf(step.outcome);
    json["reason"] = ReasonOf(step, redactor);
    json["before"] = state(step.before);
    json["after"] = state(step.after);
    return json;
}

}  // namespace

ExitCode ShowPlan(const std::vector<std::string>& redacted, bool asJson) {
    const Redactor redactor(redacted);
    std::vector<Step> steps;
    if (!Diagnostics::PlanEnvironmentDirectives(steps))
        return Fail(kFailed, "there is not enough memory to plan the directives");
    Json array = Json::array();
    for (const Step& step : steps) {
        if (asJson) {
            array.push_back(ToJson(step, redactor));
        } else {
            Show(step, redactor);
        }
    }
    if (asJson) Write(std::cout, array);
    return std::all_of(steps.begin(), steps.end(), IsInOrder) ? kDone : kFindings;
}

}  // namespace tevsys
