#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace tevsys {

// What every verb exits with, but for run.
enum ExitCode : int { kDone = 0, kFailed = 1, kFindings = 1, kUsage = 2 };

// Says why on standard error and gives the code.
ExitCode Fail(ExitCode code, const std::string& reason);

// The arguments of this program in UTF-8.
std::vector<std::string> Utf8Arguments();

// UTF-8 as it stands, other bytes as Latin-1: files and variables meet in one text.
std::string ToUtf8(const std::string& text);

// The keys under which a name may be stored: as the files hold it, or as variables are named.
std::vector<std::string> Spellings(const std::string& utf8);

std::wstring ToWide(const std::string& utf8);

// A text in any bytes as it is compared where the case of letters does not count.
std::wstring Folded(const std::string& text);

// Prepares the output: bytes as they are; UTF-8 and colours on a terminal.
class Output {
 public:
    Output();
    ~Output();
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    // The terminal becomes what it was, for a program that runs in it.
    static void GiveBack();
};

enum class Colour { Plain, Key, Good, Warning, Note };

// A text to be shown on standard output, in its colour on a terminal.
struct Painted {
    Painted(Colour textColour, std::string_view coloured) : colour(textColour), text(coloured) {}

    Colour colour;
    std::string_view text;
};
std::ostream& operator<<(std::ostream& out, const Painted& painted);

}  // namespace tevsys
