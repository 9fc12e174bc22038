#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <absl/strings/str_split.h>

#include <boost/algorithm/string.hpp>
#include <cstring>
#include <string>
#include <vector>

#include "Inputs.h"
#include "Rows.h"
#include "Texts.h"

namespace tev::bench {

namespace {

using TAMO::TEV::System::Util::TEVUtilString;

constexpr char kDelimiters[] = ";, ";

std::vector<std::string> Tokens(const std::string& text) {
    std::vector<std::string> tokens;
    std::size_t end = 0;
    for (;;) {
        const std::size_t begin = text.find_first_not_of(kDelimiters, end);
        if (begin == std::string::npos) return tokens;
        end = std::min(text.find_first_of(kDelimiters, begin), text.size());
        tokens.push_back(text.substr(begin, end - begin));
    }
}

// A scan with a table of the delimiters, and one new[] a token.
template <typename Visit>
void Scan(const std::string& text, const Visit& visit) {
    bool isDelimiter[256] = {};
    for (const char* c = kDelimiters; *c != '\0'; ++c)
        isDelimiter[static_cast<unsigned char>(*c)] = true;
    const char* c = text.c_str();
    for (;;) {
        while (isDelimiter[static_cast<unsigned char>(*c)]) ++c;
        if (*c == '\0') return;
        const char* begin = c;
        while (*c != '\0' && !isDelimiter[static_cast<unsigned char>(*c)]) ++c;
        visit(begin, static_cast<std::size_t>(c - begin));
    }
}

template <typename Keep>
void ScanAndCopy(const std::string& text, const Keep& keep) {
    std::vector<char*> tokens;
    Scan(text, [&](const char* begin, std::size_t size) {
        char* token = new char[size + 1];
        std::memcpy(token, begin, size);
        token[size] = '\0';
        tokens.push_back(token);
    });
    keep(Texts{tokens.data(), tokens.size()});
    for (const char* token : tokens) delete[] token;
}

void AddTokenizing(std::size_t size) {
    // One character in seven separates.
    const auto make = [size] { return RandomText(size, "abcdefghijklmnopqr;, "); };
    Work("tokenize", static_cast<std::int64_t>(size), make, Tokens)
        .Ours([](const std::string& text, auto keep) {
            char** tokens = nullptr;
            std::size_t count = 0;
            TEVUtilString::Tokenize(kDelimiters, text.c_str(), tokens, count);
            keep(Texts{tokens, count});
            TEVUtilString::DeleteCStringArray(tokens, count);
        })
        .Peer("Abseil",
              [](const std::string& text, auto keep) {
                  keep(std::vector<std::string>(
                      absl::StrSplit(text, absl::ByAnyChar(kDelimiters), absl::SkipEmpty())));
              })
        .Peer("Boost",
              [](const std::string& text, auto keep) {
                  std::vector<std::string> tokens;
                  boost::split(tokens, boost::trim_copy_if(text, boost::is_any_of(kDelimiters)),
                               boost::is_any_of(kDelimiters), boost::token_compress_on);
                  keep(tokens);
              })
        .CheckedLimit("scan + one new[] a token",
                      [](const std::string& text, auto keep) { ScanAndCopy(text, keep); });
}

}  // namespace

void RegisterRows() {
    for (const std::size_t size : {20U, 1024U, 32768U, 1048576U}) AddTokenizing(size);
}

}  // namespace tev::bench
