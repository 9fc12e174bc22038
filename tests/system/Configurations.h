#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace tev::test {

// What a load starts from.
struct Configuration {
    std::string system;
    std::string user;
    // With the names of those that are not set.
    std::map<std::string, std::optional<std::string>> variables;
};

// Configurations that have a bit of everything in them, right and wrong. Few names and texts, so
// that they meet.
class Configurations {
 public:
    Configurations(unsigned seed, std::string folder)
        : random_(seed), folder_(std::move(folder)), values_(Values()) {}

    Configuration Next() {
        Configuration made{File(), File(), {}};
        for (const char* name : kVariables) {
            auto& value = made.variables[name];
            if (Chance(3)) value = Pick(std::array{"a", "a;b", "x", "B;a", "\xE9", "1", " y "});
        }
        return made;
    }

 private:
    template <typename List>
    const typename List::value_type& Pick(const List& list) {
        return list[random_() % list.size()];
    }

    static constexpr std::array<const char*, 4> kVariables{"TEV_V1", "TEV_V2", "TEV_V3", "TEV_V4"};

    // True three times out of four, and so on.
    bool Chance(unsigned ofFour) { return random_() % 4 < ofFour; }

    std::vector<std::string> Values() const {
        return {"",
                "a",
                "b",
                "x y",
                "on",
                "YES",
                "maybe",
                "warn",
                "DEBUG",
                "console",
                "html.file",
                "console|html.file",
                "Maximum",
                "%",
                "%a%",
                "%b%",
                "%c%",
                "%TEV_V1%",
                "%TEV_V2%",
                "%TEV_V3%",
                "%nope%",
                "%%",
                "|",
                ";",
                " ",
                "\t",
                "=",
                "#",
                "\xE9",
                "\xC3\xA9",
                "\x80",
                "tev_v1|a",
                "TEV_V1|c",
                "TEV_V2|b",
                "TEV_V3",
                "TEV_V4|a;b",
                "TEV_V1|" + folder_,
                "TEV_V2|" + folder_ + "/none",
                "A=B|c",
                "TEV_\xC9|1",
                "TEV_\xE9|2"};
    }

    std::string Key() {
        static const std::vector<std::string> keys{"a",
                                                   "b",
                                                   "c",
                                                   "d e",
                                                   "TEV_V1",
                                                   "TEV_V4",
                                                   "tev.log.level",
                                                   "TEV.Log.Level",
                                                   "tev.logging.status",
                                                   "tev.log.loggers",
                                                   "tamo:corvid.csmxform.operation.mode",
                                                   "tev.lgo.level",
                                                   "tev.sys.config.dir",
                                                   "tev.user.properties",
                                                   "tev.ext.intersects.terrain"};
        static const std::vector<std::string> kinds{"add",      "add.path", "del",          "new",
                                                    "new.path", "replace",  "replace.path", "rm",
                                                    "bad",      "Add"};
        if (Chance(2)) return Pick(keys);
        return "tev.env." + Pick(kinds) + (Chance(2) ? ".1" : ".2");
    }

    std::string Value(const std::string& key) {
        static const std::vector<std::string> assignments{
            "TEV_V1|c", "TEV_V2|A", "TEV_V3 | x", "tev_v4|1;2", "TEV_V1|%a%", "TEV_V2|%TEV_V3%"};
        std::string value;
        if (key.compare(0, 8, "tev.env.") == 0 && Chance(2)) value = Pick(assignments);
        if (value.empty() || Chance(1)) value += Pick(values_);
        while (Chance(1)) value += Pick(values_);
        return value;
    }

    std::string Line() {
        static const std::vector<std::string> others{"",  "# a = 1", "  # b", "= 1",
                                                     "a", "b =",     "\t",    "c= \t"};
        if (!Chance(3)) return Pick(others);
        const std::string key = Key();
        const std::string between = Chance(2) ? " = " : "=";
        return (Chance(3) ? "" : " \t") + key + between + Value(key);
    }

    std::string File() {
        std::string text;
        if (random_() % 64 == 0) text = "\xEF\xBB\xBF";
        for (std::size_t lines = 1 + random_() % 24; lines > 0; --lines) {
            text += Line();
            if (random_() % 128 == 0) text += std::string("\0n=1", 4);
            text += lines == 1 && Chance(1) ? "" : Chance(1) ? "\r\n" : "\n";
        }
        return text;
    }

    std::mt19937 random_;
    std::string folder_;
    std::vector<std::string> values_;
};

}  // namespace tev::test
