#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "fault/FaultyFiles.h"

// What goes wrong while a whole file is read, and what the reader then has.
namespace tev::fault {

constexpr std::string_view kReadContent = "a=1\nb=2\n";

struct ReadFault {
    const char* name;
    void (*arrange)(FaultyFiles& files, std::string& content);
    std::optional<std::string_view> read;      // nothing when the file cannot be read
    std::map<std::string, std::string> pairs;  // what is read as key=value lines
};

inline const ReadFault kReadFaults[] = {
    {"open fails",
     [](FaultyFiles& files, std::string&) { files.Fail(FileCall::OpenToRead); },
     {},
     {}},
    {"seek to the end fails: taken for empty",
     [](FaultyFiles& files, std::string&) { files.Fail(FileCall::Seek, 0); },
     {},
     {}},
    {"size is not told: no memory for it",
     [](FaultyFiles& files, std::string&) { files.Fail(FileCall::Tell, 1); },
     {},
     {}},
    {"size is the last but one: its buffer's is refused",
     [](FaultyFiles& files, std::string&) { files.toldSize = FaultyFiles::kTrueSize - 1; },
     {},
     {}},
    {"size is beyond memory",
     [](FaultyFiles& files, std::string&) { files.toldSize = std::uint64_t{1} << 62; },
     {},
     {}},
    {"size is told too large by one",
     [](FaultyFiles& files, std::string& content) { files.toldSize = content.size() + 1; },
     {},
     {}},
    {"size is told as 0", [](FaultyFiles& files, std::string&) { files.toldSize = 0; }, {}, {}},
    {"range read fails",
     [](FaultyFiles& files, std::string&) { files.Fail(FileCall::ReadRange); },
     {},
     {}},
    {"range read gives too little",
     [](FaultyFiles& files, std::string&) { files.readLimit = 7; },
     {},
     {}},
    {"file shrinks before it is read",
     [](FaultyFiles& files, std::string& content) {
         files.Before(FileCall::ReadRange, [&content] { content.resize(4); });
     },
     {},
     {}},
    {"file is emptied before it is opened",
     [](FaultyFiles& files, std::string& content) {
         files.Before(FileCall::OpenToRead, [&content] { content.clear(); });
     },
     {},
     {}},
    {"file grows before it is read: read as it was measured",
     [](FaultyFiles& files, std::string& content) {
         files.Before(FileCall::ReadRange, [&content] { content += "c=3\n"; });
     },
     kReadContent,
     {{"a", "1"}, {"b", "2"}}},
    {"file shrinks before it is measured",
     [](FaultyFiles& files, std::string& content) {
         files.Before(FileCall::Seek, [&content] { content.resize(4); });
     },
     "a=1\n",
     {{"a", "1"}}},
    {"size is told too small",
     [](FaultyFiles& files, std::string&) { files.toldSize = 6; },
     "a=1\nb=",
     {{"a", "1"}}},
    {"range read tells more than it gave: NULs stand for the rest",
     [](FaultyFiles& files, std::string&) {
         files.readLimit = 7;
         files.rangesAlwaysSucceed = true;
     },
     std::string_view("a=1\nb=2\0", 8),
     {{"a", "1"}, {"b", "2"}}},
    {"position before is not told: not needed",
     [](FaultyFiles& files, std::string&) { files.Fail(FileCall::Tell, 0); },
     kReadContent,
     {{"a", "1"}, {"b", "2"}}},
    {"seek back fails: not needed",
     [](FaultyFiles& files, std::string&) { files.Fail(FileCall::Seek, 1); },
     kReadContent,
     {{"a", "1"}, {"b", "2"}}},
    {"close fails: all was read",
     [](FaultyFiles& files, std::string&) { files.Fail(FileCall::Close); },
     kReadContent,
     {{"a", "1"}, {"b", "2"}}},
};

}  // namespace tev::fault
