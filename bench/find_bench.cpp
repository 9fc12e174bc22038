#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <absl/strings/internal/memutil.h>

#include <boost/algorithm/string.hpp>
#include <cstring>
#include <string>
#include <string_view>

#include "Inputs.h"
#include "Rows.h"
#include "WideLength.h"

namespace tev::bench {

namespace {

using TAMO::TEV::System::Util::TEVUtilString;

constexpr char kWord[] = "terrain";

// The word stands at the end; its letters are all over.
std::string Text(std::size_t size) {
    return RandomText(size - sizeof kWord + 1, "abcdefghijklmnopqrstuvwxyz ") + kWord;
}

int PositionIn(const std::string& text, const char* found) {
    return static_cast<int>(found - text.data());
}

void Add(std::size_t size) {
    Work(
        "find", static_cast<std::int64_t>(size), [size] { return Text(size); },
        [](const std::string& text) { return static_cast<int>(text.find(kWord)); })
        .Ours([](const std::string& text, auto keep) {
            keep(TEVUtilString::Find(text.c_str(), kWord));
        })
        .Peer("strstr", [](const std::string& text,
                           auto keep) { keep(PositionIn(text, std::strstr(text.c_str(), kWord))); })
        .Peer("std::string_view",
              [](const std::string& text, auto keep) {
                  keep(static_cast<int>(std::string_view(text.c_str()).find(kWord)));
              })
        .Peer("Abseil",
              [](const std::string& text, auto keep) {
                  keep(PositionIn(
                      text, absl::strings_internal::memmatch(
                                text.c_str(), std::strlen(text.c_str()), kWord, sizeof kWord - 1)));
              })
        .Peer("Boost",
              [](const std::string& text, auto keep) {
                  keep(static_cast<int>(boost::find_first(text, kWord).begin() - text.begin()));
              })
        .Limit("strlen by wide registers",
               [](const std::string& text, auto keep) { keep(WideLength(text.c_str())); });
}

}  // namespace

void RegisterRows() {
    for (const std::size_t size : {20U, 1024U, 32768U, 1048576U}) Add(size);
}

}  // namespace tev::bench
