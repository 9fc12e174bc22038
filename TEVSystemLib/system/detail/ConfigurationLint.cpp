#include "TEVSystemLib/system/detail/ConfigurationLint.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "TEVSystemLib/system/detail/KnownKeys.h"
#include "TEVSystemLib/system/detail/WellKnownProperties.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"

namespace TAMO::TEV::System::detail {

namespace {

using Diagnostics = TEVSystemDiagnostics;
using Fate = Diagnostics::Fate;
using Layer = Diagnostics::Layer;
using Outcome = Diagnostics::Outcome;
using Severity = Diagnostics::Severity;
using Table = Diagnostics::Table;
using Util::detail::LineFault;

std::string Quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

bool StartsWith(std::string_view text, std::string_view prefix) {
    return text.substr(0, prefix.size()) == prefix;
}

const char* NameOf(PropertyKind kind) {
    switch (kind) {
        case PropertyKind::Switch:
            return "switch";
        case PropertyKind::Level:
            return "level";
        case PropertyKind::LoggerList:
            return "logger list";
        case PropertyKind::Mode:
            return "mode";
        case PropertyKind::FreeText:
            break;
    }
    return "text";
}

class Linter {
 public:
    Linter(const ConfigurationModel& model, Table table)
        : model_(model), table_(table), file_(model.File(table)) {}

    std::vector<Diagnostics::Finding> Run() && {
        CheckBytes();
        for (const FileLine& line : file_.lines) CheckLine(line);
        if (table_ == Table::System) CheckDirectives();
        std::stable_sort(found_.begin(), found_.end(),
                         [](const auto& a, const auto& b) { return a.place.line < b.place.line; });
        return std::move(found_);
    }

 private:
    Diagnostics::Finding& Add(std::size_t line, const char* id, const std::string& key,
                              std::string message) {
        return found_.emplace_back(Diagnostics::Finding{
            {file_.path, line}, Severity::Warning, id, key, {}, std::move(message)});
    }

    void CheckBytes() {
        if (file_.hasByteOrderMark)
            Add(1, "byte-order-mark", "",
                "the file begins with a byte order mark, which counts as part of its first line");
        for (const std::size_t line : file_.nulLines)
            Add(line, "nul-byte", "", "a NUL byte may end the value here; is the file UTF-16?");
    }

    void CheckLine(const FileLine& line) {
        if (line.fault != LineFault::None) return AddDropped(line);
        const FileLine& counting = *LineOf(file_, line.key);
        if (&counting != &line) {
            Add(line.number, "duplicate-key", line.key,
                Quoted(line.key) + " is written again in line " + std::to_string(counting.number) +
                    ", which counts");
            return;
        }
        if (IsNoted(file_.place, line.key)) return AddNoted(line);
        CheckKey(line);
        CheckReferences(line);
        CheckValue(line);
    }

    void AddDropped(const FileLine& line) {
        switch (line.fault) {
            case LineFault::None:
                break;
            case LineFault::NoKey:
                Add(line.number, "no-key", "", "the line begins with \"=\" and adds nothing");
                break;
            case LineFault::NoSeparator:
                // What was meant for a value may be in the key.
                Add(line.number, "no-separator", line.key,
                    Quoted(line.key) + " has no \"=\" behind it; the line adds nothing")
                    .value = line.key;
                break;
            case LineFault::NoValue:
                Add(line.number, "no-value", line.key,
                    Quoted(line.key) + " has no value; the line adds nothing");
                break;
        }
    }

    // Saved user files hold these lines.
    void AddNoted(const FileLine& line) {
        if (table_ == Table::System)
            Add(line.number, "noted-key", line.key,
                "the store puts its own value in place of " + Quoted(line.key));
    }

    void CheckKey(const FileLine& line) {
        const std::string& key = line.key;
        const std::string lower = Util::detail::ToLower(key);
        if (StartsWith(lower, "tev.env.")) return CheckDirectiveKey(line, lower);
        if (lower != key && IsKnownKey(lower)) {
            Add(line.number, "key-case", key,
                "no lookup of " + Quoted(lower) + " finds this key: case counts");
            return;
        }
        if (!StartsWith(key, "tev.") || IsKnownKey(key)) return;
        const char* nearest = NearestKnownKey(key);
        Add(line.number, "unknown-key", key,
            "unknown key " + Quoted(key) +
                (nearest == nullptr ? "" : "; did you mean " + Quoted(nearest) + "?"));
    }

    void CheckDirectiveKey(const FileLine& line, const std::string& lower) {
        if (table_ == Table::User) {
            Add(line.number, "user-directive", line.key,
                "directives count in the system file only; here it does nothing");
        } else if (lower != line.key) {
            Add(line.number, "unknown-directive", line.key,
                "a directive's key is in lower case; this one does nothing");
        }
    }

    void CheckReferences(const FileLine& line) {
        for (const Diagnostics::Reference& reference : model_.ReferencesOf(table_, line.key)) {
            if (reference.fate != Fate::Resolved) AddReference(line, reference);
        }
    }

    void AddReference(const FileLine& line, const Diagnostics::Reference& reference) {
        const std::string name = '%' + reference.name + '%';
        const auto add = [&](const char* id, const std::string& what) {
            Add(line.number, id, line.key, name + what).value = name;
        };
        if (reference.fate == Fate::Unresolved)
            add("unresolved-reference",
                " is in no table and no environment variable; it stays as it is");
        if (reference.fate == Fate::ToItself)
            add("self-reference", " refers to its own line; the text is put in unexpanded");
        if (reference.fate == Fate::ExpandedLater)
            add("expanded-later", " is expanded after " + Quoted(line.key) +
                                      "; its own references are put in unexpanded");
    }

    void CheckValue(const FileLine& line) {
        const std::string& value = model_.Expanded(table_).at(line.key);
        const auto corrected = CorrectedValue(line.key, value);
        if (!corrected || *corrected == value) return;
        const WellKnownProperty& row = *FindWellKnown(line.key);
        const bool isValid = IsValid(row.kind, value);
        const bool isSystem = table_ == Table::System;
        if (isValid && !isSystem) return;
        if (isValid) {
            Add(line.number, "rewritten", line.key,
                Quoted(value) + " reads back in canonical form, true or false")
                .severity = Severity::Note;
        } else {
            Add(line.number, isSystem ? "default-taken" : "not-put-right", line.key,
                Quoted(value) + " is no " + NameOf(row.kind) +
                    (isSystem ? "; the default " + Quoted(*corrected) + " is taken"
                              : "; a user value is not put right, and wins as it is"));
        }
        found_.back().value = value;
    }

    void CheckDirectives() {
        for (const Diagnostics::DirectiveStep& step : model_.Steps()) {
            if (step.place.line == 0) continue;
            if (step.outcome == Outcome::Changed || step.outcome == Outcome::Unchanged) continue;
            const bool isKnown = !step.kind.empty();
            std::string message = "the directive is ignored: " + step.reason;
            // Without a value the directive may lack its separator, and its variable be the value.
            const bool isAlone = step.value.empty();
            if (!step.variable.empty())
                message += " (" + (isAlone ? Quoted(step.variable) : step.variable) + ')';
            auto& finding =
                Add(step.place.line, isKnown ? "ignored-directive" : "unknown-directive", step.key,
                    std::move(message));
            if (step.isFolderMissing) finding.value = step.value;
            if (isAlone) finding.value = step.variable;
        }
    }

    const ConfigurationModel& model_;
    Table table_;
    const SourceFile& file_;
    std::vector<Diagnostics::Finding> found_;
};

}  // namespace

std::vector<Diagnostics::Finding> Lint(const ConfigurationModel& model, Table table) {
    return Linter(model, table).Run();
}

}  // namespace TAMO::TEV::System::detail
