#include "tools/tevsys_explain.h"

#include <iomanip>

#include "tools/tevsys_console.h"
#include "tools/tevsys_json.h"

namespace tevsys {

namespace {

using Layer = Diagnostics::Layer;
using Fate = Diagnostics::Fate;
using Kind = Diagnostics::Kind;
using Correction = Diagnostics::Correction;

constexpr int kLabelColumns = 12;

const char* NameOf(Kind kind) {
    switch (kind) {
        case Kind::Other:
            break;
        case Kind::Switch:
            return "switch";
        case Kind::Level:
            return "level";
        case Kind::LoggerList:
            return "logger list";
        case Kind::Mode:
            return "mode";
        case Kind::FreeText:
            return "free text";
    }
    return "";
}

const char* NameOf(Fate fate) {
    switch (fate) {
        case Fate::Resolved:
            return "resolved";
        case Fate::Unresolved:
            return "unresolved";
        case Fate::ToItself:
            return "to itself";
        case Fate::ExpandedLater:
            return "expanded later";
    }
    return "";
}

const char* NameOf(Correction correction) {
    switch (correction) {
        case Correction::None:
            break;
        case Correction::Rewritten:
            return "rewritten";
        case Correction::DefaultTaken:
            return "default taken";
    }
    return "none";
}

std::string Origin(Layer layer, const Diagnostics::Place& place) {
    std::string origin = LayerName(layer);
    if (place.line > 0) origin += ", " + PlaceText(place);
    return origin;
}

// Lines of a label and a text; a label that repeats is left out.
class Lines {
 public:
    explicit Lines(std::ostream& out) : out_(out) {}

    void Add(const std::string& label, const std::string& text) {
        out_ << "  " << std::left << std::setw(kLabelColumns) << (label == last_ ? "" : label)
             << text << '\n';
        last_ = label;
    }

 private:
    std::ostream& out_;
    std::string last_;
};

// A reference is a part of the value in which it stands.
std::string NameIn(const std::string& key, const Diagnostics::Reference& reference,
                   const Redactor& redactor) {
    return redactor.Hides(key) ? redactor.Value(key, reference.name) : ToUtf8(reference.name);
}

std::string ValueIn(const std::string& key, const Diagnostics::Reference& reference,
                    const Redactor& redactor) {
    return redactor.Value(redactor.Hides(key) ? key : reference.name, reference.value);
}

std::string ReferenceText(const std::string& key, const Diagnostics::Reference& reference,
                          const Redactor& redactor) {
    const std::string name = '%' + NameIn(key, reference, redactor) + '%';
    if (reference.fate == Fate::Unresolved)
        return name + " is in no table and no environment variable, and stays";
    std::string text = name + " = " + ValueIn(key, reference, redactor) + "  (" +
                       Origin(reference.layer, reference.place) + ')';
    if (reference.fate == Fate::ToItself) text += ", its own text, unexpanded";
    if (reference.fate == Fate::ExpandedLater) text += ", expanded later, so put in unexpanded";
    return text;
}

std::string CorrectionText(const Diagnostics::Explanation& e, const Redactor& redactor) {
    const std::string before = '"' + redactor.Value(e.key, e.expanded) + '"';
    if (e.correction == Correction::Rewritten)
        return before + " reads as \"" + redactor.Value(e.key, e.answer.value) + '"';
    return before + " is no " + NameOf(e.kind) + "; the default \"" + e.defaultValue +
           "\" is taken";
}

void ShowAnswer(Lines& lines, const Diagnostics::Explanation& e, const Redactor& redactor) {
    const Diagnostics::Source& answer = e.answer;
    lines.Add("from", Origin(answer.layer, answer.place));
    if (answer.written != answer.value) lines.Add("written", redactor.Value(e.key, answer.written));
    for (const auto& reference : e.references)
        lines.Add("references", ReferenceText(e.key, reference, redactor));
    if (e.expanded != answer.written && e.expanded != answer.value)
        lines.Add("expanded", redactor.Value(e.key, e.expanded));
    if (e.correction != Correction::None) lines.Add("put right", CorrectionText(e, redactor));
}

Json Located(const Diagnostics::Place& place) {
    Json json;
    json["file"] = place.line > 0 ? Json(ToUtf8(place.file)) : Json();
    json["line"] = place.line > 0 ? Json(place.line) : Json();
    return json;
}

Json ToJson(const Diagnostics::Source& source, const std::string& key, const Redactor& redactor) {
    Json json;
    json["layer"] = LayerName(source.layer);
    json.update(Located(source.place));
    json["written"] = redactor.Value(key, source.written);
    json["value"] = redactor.Value(key, source.value);
    return json;
}

Json ToJson(const std::string& key, const Diagnostics::Reference& reference,
            const Redactor& redactor) {
    Json json;
    json["name"] = NameIn(key, reference, redactor);
    json["fate"] = NameOf(reference.fate);
    json["layer"] = LayerName(reference.layer);
    json.update(Located(reference.place));
    json["value"] = ValueIn(key, reference, redactor);
    return json;
}

Json ToJson(const Diagnostics::Explanation& e, const Redactor& redactor) {
    Json json;
    json["key"] = ToUtf8(e.key);
    json.update(ToJson(e.answer, e.key, redactor));
    json["expanded"] = redactor.Value(e.key, e.expanded);
    json["correction"] = NameOf(e.correction);
    json["references"] = Json::array();
    for (const auto& reference : e.references)
        json["references"].push_back(ToJson(e.key, reference, redactor));
    json["losers"] = Json::array();
    for (const auto& loser : e.losers) json["losers"].push_back(ToJson(loser, e.key, redactor));
    json["directives"] = Json::array();
    for (const auto& step : e.directives) json["directives"].push_back(ToUtf8(step.key));
    const bool isWellKnown = e.kind != Kind::Other;
    json["kind"] = isWellKnown ? Json(NameOf(e.kind)) : Json();
    json["default"] = isWellKnown ? Json(e.defaultValue) : Json();
    return json;
}

}  // namespace

const char* LayerName(Layer layer) {
    switch (layer) {
        case Layer::None:
            return "none";
        case Layer::UserFile:
            return "user file";
        case Layer::SystemFile:
            return "system file";
        case Layer::Noted:
            return "noted by the store";
        case Layer::CachedEnvironment:
            return "cached environment";
        case Layer::Environment:
            return "environment";
        case Layer::SetInProcess:
            return "set in process";
    }
    return "";
}

std::string PlaceText(const Diagnostics::Place& place) {
    return ToUtf8(place.file) + ':' + std::to_string(place.line);
}

void ShowExplanation(std::ostream& out, const Diagnostics::Explanation& e,
                     const Redactor& redactor) {
    const bool isFound = e.answer.layer != Layer::None;
    out << Painted(Colour::Key, ToUtf8(e.key))
        << (isFound ? " = " + redactor.Value(e.key, e.answer.value) : "") << '\n';
    Lines lines(out);
    if (isFound) {
        ShowAnswer(lines, e, redactor);
    } else {
        lines.Add("from", "none: it is in no table and no environment variable");
    }
    for (const auto& loser : e.losers)
        lines.Add("instead of", redactor.Value(e.key, loser.value) + "  (" +
                                    Origin(loser.layer, loser.place) + ')');
    for (const auto& step : e.directives)
        lines.Add("changed by", ToUtf8(step.key) + "  (" + PlaceText(step.place) + ')');
    if (e.kind != Kind::Other)
        lines.Add("well-known",
                  std::string(NameOf(e.kind)) + ", default \"" + e.defaultValue + '"');
}

void WriteExplanation(std::ostream& out, const Diagnostics::Explanation& explanation,
                      const Redactor& redactor) {
    Write(out, ToJson(explanation, redactor));
}

void WriteExplanations(std::ostream& out, const std::vector<Diagnostics::Explanation>& all,
                       const Redactor& redactor) {
    Json array = Json::array();
    for (const auto& explanation : all) array.push_back(ToJson(explanation, redactor));
    Write(out, array);
}

}  // namespace tevsys
