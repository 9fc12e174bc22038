#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <absl/strings/ascii.h>

#include <boost/algorithm/string.hpp>
#include <cstring>
#include <string>
#include <string_view>

#include "Inputs.h"
#include "Rows.h"

namespace tev::bench {

namespace {

using TAMO::TEV::System::Util::TEVUtilString;

std::string Text(std::size_t size) {
    return " \t " + RandomText(size - 6, "abcdefghijklmnopqrstuvwxyz ") + "\t\r\n";
}

std::string Trimmed(const std::string& text) {
    return std::string(absl::StripAsciiWhitespace(text));
}

void AddText(std::size_t size) {
    Work(
        "text", static_cast<std::int64_t>(size), [size] { return Text(size); }, Trimmed)
        .Ours([](const std::string& text, auto keep) { keep(TEVUtilString::Trim(text.c_str())); })
        .Peer("Abseil",
              [](const std::string& text, auto keep) {
                  keep(std::string(absl::StripAsciiWhitespace(text.c_str())));
              })
        .Peer("Boost",
              [](const std::string& text, auto keep) {
                  keep(boost::trim_copy(std::string(text.c_str()), std::locale::classic()));
              })
        .Limit("strlen + copy",
               [](const std::string& text, auto keep) { keep(std::string(text.c_str())); });
}

void AddPointer(std::size_t size) {
    Work(
        "pointer", static_cast<std::int64_t>(size), [size] { return Text(size); }, Trimmed)
        .Ours([](const std::string& text, auto keep) {
            std::size_t length = 0;
            const char* start = TEVUtilString::Trim(text.c_str(), length, true, true);
            keep(std::string_view(start, length));
        })
        .Peer("Abseil", [](const std::string& text,
                           auto keep) { keep(absl::StripAsciiWhitespace(text.c_str())); })
        .Limit("strlen",
               [](const std::string& text, auto keep) { keep(std::strlen(text.c_str())); });
}

}  // namespace

void RegisterRows() {
    for (const std::size_t size : {20U, 1024U, 32768U, 1048576U}) {
        AddText(size);
        AddPointer(size);
    }
}

}  // namespace tev::bench
