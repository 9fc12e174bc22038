#include "tools/tevsys_json.h"

namespace tevsys {

void Write(std::ostream& out, const Json& value) {
    constexpr int kIndent = 2;
    constexpr bool kAsciiOnly = false;
    out << value.dump(kIndent, ' ', kAsciiOnly, Json::error_handler_t::replace) << '\n';
}

}  // namespace tevsys
