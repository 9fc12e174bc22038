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

// UTF-8 as it stands; any other text is taken for Latin-1.
std::string ToUtf8(const std::string& text);

std::wstring ToWide(const std::string& utf8);

// Prepares standard output: bytes as they are; UTF-8 and colours if it is a terminal.
void PrepareOutput();

enum class Colour { Plain, Key, Good, Warning, Note };

// A text to be shown on standard output, in its colour on a terminal.
struct Painted {
    Painted(Colour textColour, std::string_view coloured) : colour(textColour), text(coloured) {}

    Colour colour;
    std::string_view text;
};
std::ostream& operator<<(std::ostream& out, const Painted& painted);

}  // namespace tevsys
