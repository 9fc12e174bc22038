#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <absl/strings/str_replace.h>

#include <boost/algorithm/string.hpp>
#include <string>

#include "Inputs.h"
#include "Rows.h"

namespace tev::bench {

namespace {

using TAMO::TEV::System::Util::TEVUtilString;

// Lower-case words; one in eight, the first among them, is "terrain".
std::string Words(std::size_t size) {
    const std::string letters = RandomText(size, "abcdefghijklmnopqrstuvwxyz");
    std::string text;
    for (std::size_t word = 0; text.size() < size; ++word)
        text += word % 8 == 0 ? "terrain " : letters.substr(text.size(), 3 + word % 7) + " ";
    text.resize(size);
    return text;
}

std::string Path(std::size_t size) {
    std::string text = RandomText(size, "abcdefghijklmnopqrstuvwxyz_.");
    for (std::size_t i = 3; i < size; i += 9) text[i] = '/';
    return text;
}

template <typename Make>
void Add(const char* work, std::size_t size, Make make, std::string pattern,
         std::string replacement) {
    const auto expect = [=](const std::string& text) {
        return boost::replace_all_copy(text, pattern, replacement);
    };
    Work(
        work, static_cast<std::int64_t>(size), [make, size] { return make(size); }, expect)
        .Ours([=](const std::string& text, auto keep) {
            keep(TEVUtilString::Replace(text, replacement, pattern));
        })
        .Peer("Abseil",
              [=](const std::string& text, auto keep) {
                  keep(absl::StrReplaceAll(text, {{pattern, replacement}}));
              })
        .Peer("Boost",
              [=](const std::string& text, auto keep) {
                  keep(boost::replace_all_copy(text, pattern, replacement));
              })
        .Limit("copy", [](const std::string& text, auto keep) { keep(std::string(text)); });
}

}  // namespace

void RegisterRows() {
    for (const std::size_t size : {20U, 1024U, 32768U, 1048576U}) {
        Add("word", size, Words, "terrain", "elevation");
        Add("slash", size, Path, "/", "\\");
    }
}

}  // namespace tev::bench
