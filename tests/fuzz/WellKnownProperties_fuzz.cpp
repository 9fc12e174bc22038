#include <algorithm>
#include <set>

#include "TEVSystemLib/system/detail/WellKnownProperties.h"
#include "fuzz/Fuzz.h"
#include "models/TextModel.h"

using namespace TAMO::TEV::System::detail;
using tev::fuzz::ExpectSame;
using tev::test::Lowered;

namespace {

enum class Kind { Switch, Level, LoggerList, FreeText, Mode };

const struct Row {
    const char* key;
    Kind kind;
    const char* fallback;
} kRows[] = {
    {"tev.logging.status", Kind::Switch, "off"},
    {"tev.log.dynamic.logging", Kind::Switch, "off"},
    {"tev.log.level", Kind::Level, "DEBUG"},
    {"tev.log.loggers", Kind::LoggerList, "plain.file"},
    {"tev.cnst.height.default.tm", Kind::Switch, "false"},
    {"tev.ext.intersects.terrain", Kind::Switch, "true"},
    {"tev.support.proxy.isd", Kind::Switch, "false"},
    {"tev.supported.proxy.isd.ext", Kind::FreeText, "*"},
    {"tamo:corvid.csmxform.operation.mode", Kind::Mode, "minimum"},
    {"tamo:corvid.enable.csmxform", Kind::Switch, "true"},
};
constexpr unsigned kRowCount = sizeof kRows / sizeof *kRows;

using Words = std::set<std::string>;
using Correction = std::optional<std::string>;

bool Has(const Words& words, const std::string& word) { return words.count(Lowered(word)) > 0; }

std::optional<bool> SwitchModel(const std::string& word) {
    static const Words kOn = {"on", "true", "yes", "1"};
    static const Words kOff = {"off", "false", "no", "0"};
    if (Has(kOn, word)) return true;
    if (Has(kOff, word)) return false;
    return std::nullopt;
}

bool IsLoggerList(const std::string& value) {
    static const Words kLoggers = {"console", "html.file", "plain.file",
                                   "time.based.rolling.html.file", "time.based.rolling.plain.file"};
    const auto names = tev::test::PiecesOf("|", value);
    return !names.empty() && std::all_of(names.begin(), names.end(), [](const std::string& name) {
        return Has(kLoggers, name);
    });
}

Correction KeptIf(bool isValid, const Row& row) { return isValid ? Correction() : row.fallback; }

Correction Model(const std::string& key, const std::string& value) {
    static const Words kLevels = {"debug", "error", "info", "warn"};
    static const Words kModes = {"maximum", "minimum"};
    for (const Row& row : kRows) {
        if (Lowered(key) != row.key) continue;
        const auto on = SwitchModel(value);
        if (row.kind == Kind::Switch) return !on ? row.fallback : *on ? "true" : "false";
        if (row.kind == Kind::Level) return KeptIf(Has(kLevels, value), row);
        if (row.kind == Kind::LoggerList) return KeptIf(IsLoggerList(value), row);
        return KeptIf(row.kind == Kind::FreeText || Has(kModes, value), row);
    }
    return std::nullopt;
}

// A digit alone stands for a row's key, so that a search finds them at once.
std::string KeyOf(const std::string& field) {
    const auto row = static_cast<unsigned>(field.empty() ? -1 : field[0] - '0');
    return field.size() == 1 && row < kRowCount ? kRows[row].key : field;
}

}  // namespace

// KEY, VALUE.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tev::fuzz::Fields fields(data, size);
    const std::string key = KeyOf(fields.Next());
    const std::string value = fields.Rest();
    const tev::fuzz::Exact exactKey(key);
    const tev::fuzz::Exact exactValue(value);
    ExpectSame(SwitchValue(exactValue.View()), SwitchModel(value), "switch word");
    ExpectSame(tev::fuzz::Copied(CorrectedValue(exactKey.View(), exactValue.View())),
               Model(key, value), "corrected");
    return 0;
}
