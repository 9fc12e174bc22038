#include "TEVSystemLib/system/detail/KnownKeys.h"

#include <TEVSystemLib/system/TEVSysCnst.h>

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <string>
#include <vector>

#include "TEVSystemLib/util/string/detail/AsciiText.h"

namespace TAMO::TEV::System::detail {

namespace {

const auto& KnownKeys() {
    using Key = TEVSysCnst::PropertyKey;
    using CsmKey = TEVSysCnst::PropertyKeyCSM;
    static const char* const keys[] = {Key::TEV_CONST_HT_DEFAULT_TERRAIN_MODEL,
                                       Key::TEV_ENSURE_EXT_INTERSECTS_TERRAIN,
                                       Key::TEV_ISD_DLL_DSOM,
                                       Key::TEV_ISD_DLL_RV402,
                                       Key::TEV_LOG_DYNAMIC_LOGGING,
                                       Key::TEV_LOG_LOGGERS,
                                       Key::TEV_LOG_LOGGING_LEVEL,
                                       Key::TEV_LOG_LOGGING_STATUS,
                                       Key::TEV_KPT_TOOLKIT_G,
                                       Key::TEV_PATH_DTED0,
                                       Key::TEV_PATH_DTED1,
                                       Key::TEV_PATH_DTED2,
                                       Key::TEV_PATH_SRTM1,
                                       Key::TEV_PATH_SRTM2,
                                       Key::TEV_RS_DLL_DSOM,
                                       Key::TEV_RS_DLL_RV402,
                                       Key::TEV_SUPPORT_PROXY_ISD,
                                       Key::TEV_SUPPORTED_PROXY_ISD_EXT,
                                       Key::TEV_SYS_CONFIG_DIR,
                                       Key::TEV_USER_CONFIG_DIR,
                                       Key::TEV_SYS_PROPERTIES_FILE_NAME,
                                       Key::TEV_USER_PROPERTIES_FILE_NAME,
                                       CsmKey::CORVID_CSMXFORM_APPROX,
                                       CsmKey::CORVID_CSMXFORM_OPERATION_MODE,
                                       CsmKey::CORVID_ENABLE_CSMXFORM,
                                       CsmKey::CORVID_LOG_DIR};
    return keys;
}

// How many letters must be put in, taken out or replaced to make one text of the other.
std::size_t Distance(std::string_view first, std::string_view second) {
    std::vector<std::size_t> row(second.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < first.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < second.size(); ++j) {
            const std::size_t replaced = diagonal + (first[i] == second[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

}  // namespace

bool IsKnownKey(std::string_view key) {
    const auto& keys = KnownKeys();
    return std::any_of(std::begin(keys), std::end(keys),
                       [key](const char* known) { return key == known; });
}

const char* NearestKnownKey(std::string_view key) {
    const std::string wanted = Util::detail::ToLower(key);
    // A third of the letters may be wrong.
    std::size_t nearest = wanted.size() / 3 + 1;
    const char* found = nullptr;
    for (const char* known : KnownKeys()) {
        const std::size_t distance = Distance(wanted, known);
        if (distance >= nearest) continue;
        nearest = distance;
        found = known;
    }
    return found;
}

}  // namespace TAMO::TEV::System::detail
