#include "TEVSystemLib/system/detail/WellKnownProperties.h"

#include <TEVSystemLib/system/TEVSysCnst.h>
#include <TEVSystemLib/system/TEVSystemProperties.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/Tokens.h"

namespace TAMO::TEV::System::detail {

namespace {

using Kind = PropertyKind;

const WellKnownProperty* WellKnownTable() {
    using Key = TEVSysCnst::PropertyKey;
    using Default = TEVSystemProperties::DefaultValue;
    // KEEP: the csmxform approximation key has a default but no row; its value is never corrected.
    static const WellKnownProperty table[] = {
        {Key::TEV_LOG_LOGGING_STATUS, Kind::Switch, Default::TEV_LOGGING_STATUS},
        {Key::TEV_LOG_DYNAMIC_LOGGING, Kind::Switch, Default::TEV_LOG_DYNAMIC_LOGGING},
        {Key::TEV_LOG_LOGGING_LEVEL, Kind::Level, Default::TEV_LOG_LEVEL},
        {Key::TEV_LOG_LOGGERS, Kind::LoggerList, Default::TEV_LOG_LOGGERS},
        {Key::TEV_CONST_HT_DEFAULT_TERRAIN_MODEL, Kind::Switch, Default::TEV_CNST_HGHT_DEFAULT_TM},
        {Key::TEV_ENSURE_EXT_INTERSECTS_TERRAIN, Kind::Switch, Default::TEV_EXT_INTERSECTS_TERRAIN},
        {Key::TEV_SUPPORT_PROXY_ISD, Kind::Switch, Default::TEV_SUPPORT_PROXY_ISD},
        {Key::TEV_SUPPORTED_PROXY_ISD_EXT, Kind::FreeText, Default::TEV_SUPPORTED_PROXY_ISD_EXT},
        {TEVSysCnst::PropertyKeyCSM::CORVID_CSMXFORM_OPERATION_MODE, Kind::Mode,
         Default::CORVID_CSMXFORM_OPERATION_MODE},
        {TEVSysCnst::PropertyKeyCSM::CORVID_ENABLE_CSMXFORM, Kind::Switch,
         Default::CORVID_ENABLE_CSMXFORM},
        {nullptr, Kind::FreeText, nullptr}};
    return table;
}

// The text in any letter case? Asks for no more of the word's length than it needs.
bool IsWord(const char* word, std::string_view text) {
    return Util::detail::EqualsIgnoringCase({word, strnlen(word, text.size() + 1)}, text);
}

template <std::size_t N>
bool IsOneOf(std::string_view word, const std::array<const char*, N>& words) {
    return std::any_of(words.begin(), words.end(),
                       [word](const char* other) { return IsWord(other, word); });
}

bool IsLevel(std::string_view value) {
    return IsOneOf(value, std::array{TEVSysCnst::STR_DEBUG, TEVSysCnst::STR_ERROR,
                                     TEVSysCnst::STR_INFO, TEVSysCnst::STR_WARN});
}

bool IsLogger(std::string_view name) {
    using Key = TEVSysCnst::PropertyKey;
    return IsOneOf(
        name, std::array{Key::TEV_LOGGER_CONSOLE, Key::TEV_LOGGER_HTML_FILE,
                         Key::TEV_LOGGER_PLAIN_FILE, Key::TEV_LOGGER_TIME_BASED_ROLLING_HTML_FILE,
                         Key::TEV_LOGGER_TIME_BASED_ROLLING_PLAIN_FILE});
}

bool IsLoggerList(std::string_view value) {
    const auto names = Util::detail::Tokens(TEVSysCnst::PropertyKey::TEV_LOG_DELIMITER, value);
    return !names.empty() && std::all_of(names.begin(), names.end(), IsLogger);
}

bool IsMode(std::string_view value) {
    return IsOneOf(value, std::array{TEVSysCnst::STR_MAXIMUM, TEVSysCnst::STR_MINIMUM});
}

}  // namespace

const WellKnownProperty* FindWellKnown(std::string_view key) {
    const WellKnownProperty* row = WellKnownTable();
    while (row->key != nullptr && !IsWord(row->key, key)) ++row;
    return row->key == nullptr ? nullptr : row;
}

std::optional<bool> SwitchValue(std::string_view word) {
    if (IsOneOf(word, std::array{TEVSysCnst::STR_ON, TEVSysCnst::STR_TRUE, "YES", "1"}))
        return true;
    if (IsOneOf(word, std::array{TEVSysCnst::STR_OFF, TEVSysCnst::STR_FALSE, "NO", "0"}))
        return false;
    return std::nullopt;
}

bool IsValid(PropertyKind kind, std::string_view value) {
    switch (kind) {
        case Kind::Switch:
            return SwitchValue(value).has_value();
        case Kind::Level:
            return IsLevel(value);
        case Kind::LoggerList:
            return IsLoggerList(value);
        case Kind::Mode:
            return IsMode(value);
        case Kind::FreeText:
            break;
    }
    return true;
}

std::optional<std::string_view> CorrectedValue(std::string_view key, std::string_view value) {
    const WellKnownProperty* row = FindWellKnown(key);
    if (row == nullptr) return std::nullopt;
    // KEEP: a default is put in as it is spelt, though a valid switch becomes "true" or "false".
    if (!IsValid(row->kind, value)) return row->defaultValue;
    if (row->kind != Kind::Switch) return std::nullopt;
    return *SwitchValue(value) ? TEVSysCnst::STR_TRUE : TEVSysCnst::STR_FALSE;
}

}  // namespace TAMO::TEV::System::detail
