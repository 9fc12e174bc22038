#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <absl/strings/ascii.h>
#include <absl/strings/match.h>

#include <boost/algorithm/string.hpp>
#include <cstring>
#include <string>

#include "Inputs.h"
#include "Rows.h"

namespace tev::bench {

namespace {

using TAMO::TEV::System::Util::TEVUtilString;

constexpr char kAlphabet[] =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789 .,-/\xc3\xa4";

struct Pair {
    std::string first;
    std::string second;
    std::string copy;
};

// Equal but for the letter case, so that all of them is read.
Pair MakePair(std::size_t size) {
    std::string text = RandomText(size, kAlphabet);
    return {text, absl::AsciiStrToUpper(text), text};
}

void AddComparing(std::size_t size) {
    Work(
        "compare", static_cast<std::int64_t>(size), [size] { return MakePair(size); },
        [](const Pair&) { return true; })
        .Ours([](const Pair& pair, auto keep) {
            keep(TEVUtilString::Compare(true, pair.first.c_str(), pair.second.c_str()) == 0);
        })
        .Peer("Abseil", [](const Pair& pair,
                           auto keep) { keep(absl::EqualsIgnoreCase(pair.first, pair.second)); })
        .Peer("Boost",
              [](const Pair& pair, auto keep) {
                  keep(boost::iequals(pair.first, pair.second, std::locale::classic()));
              })
        .Limit("memcmp", [](const Pair& pair, auto keep) {
            keep(std::memcmp(pair.first.data(), pair.copy.data(), pair.first.size()));
        });
}

void AddLowering(std::size_t size) {
    Work(
        "to-lower", static_cast<std::int64_t>(size), [size] { return RandomText(size, kAlphabet); },
        [](const std::string& text) { return absl::AsciiStrToLower(text); })
        .Ours([](const std::string& text, auto keep) { keep(TEVUtilString::ToLower(text)); })
        .Peer("Abseil",
              [](const std::string& text, auto keep) { keep(absl::AsciiStrToLower(text)); })
        .Peer("Boost", [](const std::string& text,
                          auto keep) { keep(boost::to_lower_copy(text, std::locale::classic())); })
        .Limit("copy", [](const std::string& text, auto keep) { keep(std::string(text)); });
}

}  // namespace

void RegisterRows() {
    for (const std::size_t size : {20U, 1024U, 32768U, 1048576U}) {
        AddComparing(size);
        AddLowering(size);
    }
}

}  // namespace tev::bench
