#include "TEVSystemLib/system/detail/ConfigurationModel.h"

#include <algorithm>

#include "TEVSystemLib/system/detail/DirectiveTexts.h"
#include "TEVSystemLib/system/detail/ReferenceExpansion.h"

namespace TAMO::TEV::System::detail {

namespace {

using Diagnostics = TEVSystemDiagnostics;
using Layer = Diagnostics::Layer;
using Fate = Diagnostics::Fate;
using Outcome = Diagnostics::Outcome;
using Table = Diagnostics::Table;
using Util::detail::KeyValueParser;
using Util::detail::KeyValueSyntax;
using Util::detail::LineFault;

// Numbers of lines, asked for from the start of a text on.
class LineNumbers {
 public:
    explicit LineNumbers(std::string_view text) : text_(text) {}

    std::size_t At(std::size_t position) {
        const std::string_view passed = text_.substr(counted_, position - counted_);
        line_ += static_cast<std::size_t>(std::count(passed.begin(), passed.end(), '\n'));
        counted_ = position;
        return line_;
    }

 private:
    std::string_view text_;
    std::size_t counted_ = 0;
    std::size_t line_ = 1;
};

std::vector<std::size_t> NulLines(std::string_view text) {
    std::vector<std::size_t> lines;
    LineNumbers numbers(text);
    for (auto at = text.find('\0'); at != std::string_view::npos; at = text.find('\0', at + 1)) {
        const std::size_t line = numbers.At(at);
        if (lines.empty() || lines.back() != line) lines.push_back(line);
    }
    return lines;
}

}  // namespace

SourceFile ScanFile(FilePlace place, std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    SourceFile file{};
    file.path = place.Path();
    file.place = std::move(place);
    file.nulLines = NulLines(text);
    file.hasByteOrderMark = text.substr(0, kByteOrderMark.size()) == kByteOrderMark;
    KeyValueParser parser(text, KeyValueSyntax::EqualSeparated);
    LineNumbers numbers(text);
    while (const auto line = parser.NextLine()) {
        const auto& [key, value] = line->pair;
        const auto at = static_cast<std::size_t>(key.data() - text.data());
        if (line->fault == LineFault::None) file.counting[std::string(key)] = file.lines.size();
        file.lines.push_back({numbers.At(at), line->fault, std::string(key), std::string(value)});
    }
    return file;
}

const FileLine* LineOf(const SourceFile& file, const std::string& key) {
    const auto found = file.counting.find(key);
    return found == file.counting.end() ? nullptr : &file.lines[found->second];
}

ConfigurationModel::ConfigurationModel(SourceFile system, SourceFile user,
                                       Surroundings surroundings)
    : systemFile_(std::move(system)),
      userFile_(std::move(user)),
      surroundings_(std::move(surroundings)),
      session_(surroundings_.readVariable, surroundings_.readBack) {
    LoadTables({system_, user_}, *this);
}

const SourceFile& ConfigurationModel::File(Table table) const {
    return table == Table::User ? userFile_ : systemFile_;
}

const Properties& ConfigurationModel::Final(Table table) const {
    return table == Table::User ? user_ : system_;
}

const Properties& ConfigurationModel::Expanded(Table table) const {
    return table == Table::User ? user_ : expandedSystem_;
}

Layer ConfigurationModel::LayerOf(Table table, const std::string& key) const {
    if (IsNoted(File(table).place, key)) return Layer::Noted;
    if (table == Table::User) return Layer::UserFile;
    return LineOf(systemFile_, key) != nullptr ? Layer::SystemFile : Layer::CachedEnvironment;
}

Diagnostics::Place ConfigurationModel::PlaceOf(Table table, const std::string& key) const {
    const SourceFile& file = File(table);
    const FileLine* line = IsNoted(file.place, key) ? nullptr : LineOf(file, key);
    if (line == nullptr) return {};
    return {file.path, line->number};
}

const std::vector<Diagnostics::Reference>& ConfigurationModel::ReferencesOf(
    Table table, const std::string& key) const {
    static const std::vector<Diagnostics::Reference> none;
    const auto found = references_.find({table, key});
    return found == references_.end() ? none : found->second;
}

std::optional<std::string> ConfigurationModel::Variable(const std::string& name) const {
    return session_.Read(name);
}

Properties ConfigurationModel::Read(const FilePlace& file) {
    const bool isUser = file.fileName == userFile_.place.fileName;
    Properties pairs;
    for (const FileLine& line : (isUser ? userFile_ : systemFile_).lines) {
        if (line.fault == LineFault::None) pairs[line.key] = line.value;
    }
    return pairs;
}

std::optional<Table> ConfigurationModel::TableOf(const std::string& name) const {
    if (user_.count(name) > 0) return Table::User;
    if (system_.count(name) > 0) return Table::System;
    return std::nullopt;
}

const std::string* ConfigurationModel::Resolve(const Properties& table, const std::string& key,
                                               const std::string& name) {
    const Table own = &table == &user_ ? Table::User : Table::System;
    const auto known = TableOf(name);
    const std::string* value = LookUp({system_, user_}, name, surroundings_.readVariable);
    Diagnostics::Reference reference{name, Fate::Unresolved, Layer::None, {}, {}};
    if (value != nullptr) {
        const Table other = known.value_or(Table::System);
        reference.fate = FateOf({own, key}, {other, name}, *value);
        reference.layer = known ? LayerOf(other, name) : Layer::Environment;
        reference.place = PlaceOf(other, name);
        reference.value = *value;
    }
    references_[{own, key}].push_back(std::move(reference));
    return value;
}

// Tables are expanded one after the other, each in the order of its keys.
Fate ConfigurationModel::FateOf(const EntryName& from, const EntryName& to,
                                const std::string& value) {
    if (from == to) return Fate::ToItself;
    return from < to && HasReference(value) ? Fate::ExpandedLater : Fate::Resolved;
}

void ConfigurationModel::ExecuteDirectives(const Properties& system) {
    expandedSystem_ = system;
    for (const DirectiveEntry& entry : ExamineDirectives(system, surroundings_.folderExists))
        steps_.push_back(Take(entry));
}

Diagnostics::DirectiveStep ConfigurationModel::Take(const DirectiveEntry& entry) {
    const auto& [key, flaw, directive] = entry;
    Diagnostics::DirectiveStep step;
    step.key = key;
    step.place = PlaceOf(Table::System, key);
    step.variable = directive.variable;
    step.value = directive.value;
    if (flaw != DirectiveFlaw::UnknownPrefix) step.kind = NameOf(directive.kind);
    step.reason = ReasonOf(flaw);
    step.isFolderMissing = flaw == DirectiveFlaw::NoFolder;
    if (step.isFolderMissing) step.reason += ": " + step.value;
    if (step.variable.empty()) return step;
    step.before = step.after = session_.Read(step.variable);
    if (flaw != DirectiveFlaw::None) return step;
    const bool isTaken = Execute(directive, session_);
    step.after = session_.Read(step.variable);
    const bool isChanged = step.before != step.after;
    step.outcome = isChanged ? Outcome::Changed : isTaken ? Outcome::Unchanged : Outcome::Refused;
    if (isTaken && !isChanged) step.reason = step.after ? kAlreadySo : kUnreadable;
    if (!isTaken) step.reason = step.before ? kSystemRefuses : kNotSet;
    return step;
}

}  // namespace TAMO::TEV::System::detail
