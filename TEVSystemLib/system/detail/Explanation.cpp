#include <TEVSystemLib/system/TEVSystemDiagnostics.h>

#include <set>

#include "TEVSystemLib/system/detail/ConfigurationModel.h"
#include "TEVSystemLib/system/detail/WellKnownProperties.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"

namespace TAMO::TEV::System::detail {

namespace {

using Diagnostics = TEVSystemDiagnostics;
using Layer = Diagnostics::Layer;
using Table = Diagnostics::Table;
using Util::detail::LineFault;

constexpr Table kTables[] = {Table::User, Table::System};

bool Has(const ConfigurationModel& model, Table table, const std::string& key) {
    return model.Final(table).count(key) > 0;
}

// What the entry was before references were expanded.
std::string Written(const ConfigurationModel& model, Table table, const std::string& key) {
    if (model.LayerOf(table, key) != Layer::Noted) {
        if (const FileLine* line = LineOf(model.File(table), key)) return line->value;
    }
    return model.Expanded(table).at(key);
}

Diagnostics::Source SourceIn(const ConfigurationModel& model, Table table, const std::string& key) {
    return {model.LayerOf(table, key), model.PlaceOf(table, key), Written(model, table, key),
            model.Final(table).at(key)};
}

void AddOverwrittenLines(const ConfigurationModel& model, Table table, const std::string& key,
                         std::vector<Diagnostics::Source>& losers) {
    const SourceFile& file = model.File(table);
    const std::size_t counting = model.PlaceOf(table, key).line;
    const Layer layer = table == Table::User ? Layer::UserFile : Layer::SystemFile;
    for (const FileLine& line : file.lines) {
        if (line.fault != LineFault::None || line.key != key || line.number == counting) continue;
        losers.push_back({layer, {file.path, line.number}, line.value, line.value});
    }
}

void AddVariable(const ConfigurationModel& model, Diagnostics::Explanation& explanation) {
    const auto variable = model.Variable(explanation.key);
    if (!variable) return;
    Diagnostics::Source source;
    source.layer = Layer::Environment;
    source.written = source.value = *variable;
    Diagnostics::Source& answer = explanation.answer;
    if (answer.layer == Layer::None) {
        answer = source;
        explanation.expanded = *variable;
    } else if (answer.layer != Layer::CachedEnvironment || answer.value != *variable) {
        explanation.losers.push_back(source);
    }
}

Diagnostics::Correction CorrectionOf(const std::string& key, const std::string& expanded,
                                     const std::string& value) {
    if (expanded == value) return Diagnostics::Correction::None;
    const bool isValid = IsValid(FindWellKnown(key)->kind, expanded);
    return isValid ? Diagnostics::Correction::Rewritten : Diagnostics::Correction::DefaultTaken;
}

void Answer(const ConfigurationModel& model, Table table, Diagnostics::Explanation& explanation) {
    const std::string& key = explanation.key;
    explanation.answer = SourceIn(model, table, key);
    explanation.expanded = model.Expanded(table).at(key);
    explanation.references = model.ReferencesOf(table, key);
    explanation.correction = CorrectionOf(key, explanation.expanded, explanation.answer.value);
}

void AddDirectives(const ConfigurationModel& model, Diagnostics::Explanation& explanation) {
    for (const Diagnostics::DirectiveStep& step : model.Steps()) {
        if (step.outcome == Diagnostics::Outcome::Changed &&
            Util::detail::EqualsIgnoringCase(step.variable, explanation.key))
            explanation.directives.push_back(step);
    }
}

void AddWellKnown(Diagnostics::Explanation& explanation) {
    const WellKnownProperty* row = FindWellKnown(explanation.key);
    if (row == nullptr) return;
    explanation.defaultValue = row->defaultValue;
    switch (row->kind) {
        case PropertyKind::Switch:
            explanation.kind = Diagnostics::Kind::Switch;
            break;
        case PropertyKind::Level:
            explanation.kind = Diagnostics::Kind::Level;
            break;
        case PropertyKind::LoggerList:
            explanation.kind = Diagnostics::Kind::LoggerList;
            break;
        case PropertyKind::Mode:
            explanation.kind = Diagnostics::Kind::Mode;
            break;
        case PropertyKind::FreeText:
            explanation.kind = Diagnostics::Kind::FreeText;
            break;
    }
}

}  // namespace

Diagnostics::Explanation Explain(const ConfigurationModel& model, const std::string& key) {
    Diagnostics::Explanation explanation;
    explanation.key = key;
    for (const Table table : kTables) {
        if (!Has(model, table, key)) continue;
        if (explanation.answer.layer == Layer::None) {
            Answer(model, table, explanation);
        } else {
            explanation.losers.push_back(SourceIn(model, table, key));
        }
    }
    for (const Table table : kTables) AddOverwrittenLines(model, table, key, explanation.losers);
    AddVariable(model, explanation);
    AddDirectives(model, explanation);
    AddWellKnown(explanation);
    return explanation;
}

std::vector<std::string> KeysOf(const ConfigurationModel& model) {
    std::set<std::string> keys;
    for (const Table table : kTables) {
        for (const auto& [key, value] : model.Final(table)) keys.insert(key);
    }
    return {keys.begin(), keys.end()};
}

}  // namespace TAMO::TEV::System::detail
