#include <gtest/gtest.h>

#include <string>

#include "host/Models.h"

namespace {

using TAMO::TEV::System::TEVSystemDiagnostics;
using TAMO::TEV::System::detail::Explain;
using TAMO::TEV::System::detail::KeysOf;
using tev::test::Models;

using Fate = TEVSystemDiagnostics::Fate;
using Layer = TEVSystemDiagnostics::Layer;

// A source as one text: "layer file:line written > value".
std::string Text(const TEVSystemDiagnostics::Source& source) {
    static const char* const names[] = {"none",   "user",        "system", "noted",
                                        "cached", "environment", "set"};
    std::string text = names[static_cast<int>(source.layer)];
    if (source.place.line > 0 || !source.place.file.empty())
        text += " " + source.place.file + ":" + std::to_string(source.place.line);
    return text + " " + source.written + " > " + source.value;
}

std::string Losers(const TEVSystemDiagnostics::Explanation& explanation) {
    std::string text;
    for (const auto& loser : explanation.losers) text += Text(loser) + "; ";
    return text;
}

const Models::Variables kVariables{
    {"ENV", "e"}, {"LIST", "a"}, {"BOTH", "variable"}, {"BLANK", " "}};

TEST(Explain, NamesTheLayerAndItsLine) {
    const struct {
        const char *system, *user, *key, *answer, *losers;
    } rows[] = {
        {"k=1\n", "", "k", "system S/tev.system.properties:1 1 > 1", ""},
        {"\n# c\nk=1\n", "k=2", "k", "user U/tev.user.properties:1 2 > 2",
         "system S/tev.system.properties:3 1 > 1; "},
        {"k=1\nk=%ENV%\n", "", "k", "system S/tev.system.properties:2 %ENV% > e",
         "system S/tev.system.properties:1 1 > 1; "},
        {"", "", "ENV", "environment e > e", ""},
        {"", "", "nothing", "none  > ", ""},
        {"a=%LIST%\ntev.env.add.1=LIST|b\n", "", "LIST", "cached a > a", "environment a;b > a;b; "},
        {"tev.env.add.1=LIST|b\n", "", "LIST", "environment a;b > a;b", ""},
        {"BOTH=file", "", "BOTH", "system S/tev.system.properties:1 file > file",
         "environment variable > variable; "},
        {"BOTH=variable", "", "BOTH", "system S/tev.system.properties:1 variable > variable",
         "environment variable > variable; "},
        {"a=%ENV%", "", "ENV", "cached e > e", ""},
        {"", "k=1\nk=2\nk=3\nk", "k", "user U/tev.user.properties:3 3 > 3",
         "user U/tev.user.properties:1 1 > 1; user U/tev.user.properties:2 2 > 2; "},
        {"k\nk=1\n=k\n", "", "k", "system S/tev.system.properties:2 1 > 1", ""},
        {"", "tev.user.config.dir=x", "tev.user.config.dir", "noted U/ > U/",
         "user U/tev.user.properties:1 x > x; "},
        {"", "", "tev.system.properties", "noted S/tev.system.properties > S/tev.system.properties",
         ""},
        {"", "u=%k%\n", "u", "user U/tev.user.properties:1 %k% > %k%", ""},
        {"tev.log.level=loud", "", "tev.log.level", "system S/tev.system.properties:1 loud > DEBUG",
         ""},
        {"tev.log.level=loud", "tev.log.level=shy", "tev.log.level",
         "user U/tev.user.properties:1 shy > shy",
         "system S/tev.system.properties:1 loud > DEBUG; "},
        {"tev.sys.config.dir=x", "", "tev.sys.config.dir", "noted S/ > S/",
         "system S/tev.system.properties:1 x > x; "},
    };
    const Models models(kVariables);
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.system) + row.key);
        const auto explanation = Explain(models.Make(row.system, row.user), row.key);
        EXPECT_EQ(Text(explanation.answer), row.answer);
        EXPECT_EQ(Losers(explanation), row.losers);
    }
}

TEST(Explain, FollowsEachReference) {
    const std::string kSystem = "S/tev.system.properties";
    const std::string kUser = "U/tev.user.properties";
    const struct {
        const char* name;
        Fate fate;
        Layer layer;
        std::string file;
        std::size_t line;
        const char* value;
    } rows[] = {
        {"a", Fate::Resolved, Layer::SystemFile, kSystem, 2, "1"},
        {"d", Fate::ExpandedLater, Layer::SystemFile, kSystem, 3, "%a%"},
        {"c", Fate::ToItself, Layer::SystemFile, kSystem, 1, "%a%%d%%c%%ENV%%u%%nope%"},
        {"ENV", Fate::Resolved, Layer::Environment, "", 0, "e"},
        {"u", Fate::ExpandedLater, Layer::UserFile, kUser, 1, "%a%u"},
        {"nope", Fate::Unresolved, Layer::None, "", 0, ""},
    };
    const auto model =
        Models(kVariables).Make("c=%a%%d%%c%%ENV%%u%%nope%\na=1\nd=%a%\n", "u=%a%u\n");
    const auto explanation = Explain(model, "c");
    EXPECT_EQ(explanation.answer.value, "1%a%%a%%d%%c%%ENV%%u%%nope%e%a%u%nope%");
    ASSERT_EQ(explanation.references.size(), std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        SCOPED_TRACE(rows[i].name);
        const auto& reference = explanation.references[i];
        EXPECT_EQ(reference.name, rows[i].name);
        EXPECT_EQ(reference.fate, rows[i].fate);
        EXPECT_EQ(reference.layer, rows[i].layer);
        EXPECT_EQ(reference.place.line, rows[i].line);
        EXPECT_EQ(reference.place.file, rows[i].file);
        EXPECT_EQ(reference.value, rows[i].value);
    }
}

TEST(Explain, FollowsReferencesToWhatIsNotedCachedOrTheUsers) {
    const struct {
        const char *system, *user, *key;
        TEVSystemDiagnostics::Fate fate;
        Layer layer;
        const char* place;
        const char* value;
    } rows[] = {
        {"z=%ENV%\nk=%ENV%", "", "z", Fate::Resolved, Layer::CachedEnvironment, ":0", "e"},
        {"k=%tev.sys.config.dir%", "", "k", Fate::Resolved, Layer::Noted, ":0", "S/"},
        {"s=1", "k=%s%", "k", Fate::Resolved, Layer::SystemFile, "S/tev.system.properties:1", "1"},
        {"u=1", "k=%u%\nu=2", "k", Fate::Resolved, Layer::UserFile, "U/tev.user.properties:2", "2"},
        {"k=1", "k=%k%", "k", Fate::ToItself, Layer::UserFile, "U/tev.user.properties:1", "%k%"},
        {"s=%k%", "k=%s%", "k", Fate::Resolved, Layer::SystemFile, "S/tev.system.properties:1",
         "%s%"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.system) + " " + row.user);
        const auto explanation = Explain(Models(kVariables).Make(row.system, row.user), row.key);
        ASSERT_EQ(explanation.references.size(), 1U);
        const auto& reference = explanation.references[0];
        EXPECT_EQ(reference.fate, row.fate);
        EXPECT_EQ(reference.layer, row.layer);
        EXPECT_EQ(reference.place.file + ":" + std::to_string(reference.place.line), row.place);
        EXPECT_EQ(reference.value, row.value);
    }
}

TEST(Explain, TellsTheAnswerBeforeItWasPutRight) {
    const struct {
        const char *system, *key, *written, *expanded, *value;
    } rows[] = {
        {"tev.log.level=%LIST%", "tev.log.level", "%LIST%", "a", "DEBUG"},
        {"k=%ENV%", "k", "%ENV%", "e", "e"},
        {"", "ENV", "e", "e", "e"},
        {"", "nothing", "", "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.key);
        const auto explanation = Explain(Models(kVariables).Make(row.system), row.key);
        EXPECT_EQ(explanation.key, row.key);
        EXPECT_EQ(explanation.answer.written, row.written);
        EXPECT_EQ(explanation.expanded, row.expanded);
        EXPECT_EQ(explanation.answer.value, row.value);
        EXPECT_FALSE(explanation.isStoreMade);
    }
}

TEST(Explain, TellsWhatPuttingRightHasDone) {
    using Correction = TEVSystemDiagnostics::Correction;
    using Kind = TEVSystemDiagnostics::Kind;
    const struct {
        const char *line, *key;
        Correction correction;
        Kind kind;
        const char* defaultValue;
    } rows[] = {
        {"k=v", "k", Correction::None, Kind::Other, ""},
        {"tev.logging.status=YES", "tev.logging.status", Correction::Rewritten, Kind::Switch,
         "off"},
        {"tev.logging.status=true", "tev.logging.status", Correction::None, Kind::Switch, "off"},
        {"tev.logging.status=maybe", "tev.logging.status", Correction::DefaultTaken, Kind::Switch,
         "off"},
        {"tev.log.level=warn", "tev.log.level", Correction::None, Kind::Level, "DEBUG"},
        {"TEV.LOG.LEVEL=x", "TEV.LOG.LEVEL", Correction::DefaultTaken, Kind::Level, "DEBUG"},
        {"tev.log.loggers=x", "tev.log.loggers", Correction::DefaultTaken, Kind::LoggerList,
         "plain.file"},
        {"tamo:corvid.csmxform.operation.mode=x", "tamo:corvid.csmxform.operation.mode",
         Correction::DefaultTaken, Kind::Mode, "minimum"},
        {"tev.supported.proxy.isd.ext=x", "tev.supported.proxy.isd.ext", Correction::None,
         Kind::FreeText, "*"},
        {"", "tev.log.level", Correction::None, Kind::Level, "DEBUG"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        const auto explanation = Explain(Models().Make(row.line), row.key);
        EXPECT_EQ(explanation.correction, row.correction);
        EXPECT_EQ(explanation.kind, row.kind);
        EXPECT_EQ(explanation.defaultValue, row.defaultValue);
    }
}

TEST(Explain, NamesTheDirectivesThatChangedAVariable) {
    const auto model = Models(kVariables)
                           .Make(
                               "tev.env.add.1=LIST|a\ntev.env.add.2=list|b\ntev.env.new.1=OTHER|"
                               "1\ntev.env.rm.1=LIST|a\n");
    const auto explanation = Explain(model, "LIST");
    ASSERT_EQ(explanation.directives.size(), 1U);
    EXPECT_EQ(explanation.directives[0].key, "tev.env.rm.1");
}

TEST(KeysOf, HoldsBothTablesAndWhatWasCached) {
    const auto keys = KeysOf(Models(kVariables).Make("b=%ENV%", "a=1"));
    const std::vector<std::string> expected{"ENV",
                                            "a",
                                            "b",
                                            "tev.sys.config.dir",
                                            "tev.system.properties",
                                            "tev.user.config.dir",
                                            "tev.user.properties"};
    EXPECT_EQ(keys, expected);
}

TEST(Steps, TellWhatEachDirectiveDoes) {
    using Outcome = TEVSystemDiagnostics::Outcome;
    const std::string tooLong(32767, 'x');
    const struct {
        std::string line;
        Outcome outcome;
        const char *before, *after, *reason;
    } rows[] = {
        {"tev.env.add.1=LIST|b", Outcome::Changed, "a", "a;b", ""},
        {"tev.env.add.1=LIST|A", Outcome::Unchanged, "a", "a", "it is so already"},
        {"tev.env.add.1=X|b", Outcome::Refused, "-", "-", "the variable is not set"},
        {"tev.env.add.path.1=LIST|C:/kit", Outcome::Changed, "a", "C:\\kit;a", ""},
        {"tev.env.add.path.1=LIST|C:/no", Outcome::Ignored, "a", "a",
         "there is no such folder: \"C:\\no\""},
        {"tev.env.del.1=LIST", Outcome::Changed, "a", "-", ""},
        {"tev.env.del.1=X", Outcome::Refused, "-", "-", "the variable is not set"},
        {"tev.env.new.1=X|1", Outcome::Changed, "-", "1", ""},
        {"tev.env.new.1=X|unreadable", Outcome::Unchanged, "-", "-",
         "it is set, but cannot be read back and so counts as not set"},
        {"tev.env.new.1=unreadable|1", Outcome::Unchanged, "-", "-",
         "it is set, but cannot be read back and so counts as not set"},
        {"tev.env.new.1=X=Y|1", Outcome::Refused, "-", "-", "Windows refuses the change"},
        {"tev.env.new.path.1=X=Y|C:/kit", Outcome::Refused, "-", "-", "Windows refuses the change"},
        {"tev.env.replace.1=X=Y|1", Outcome::Refused, "-", "-", "the variable is not set"},
        {"tev.env.replace.1=LIST|1", Outcome::Changed, "a", "1", ""},
        {"tev.env.replace.1=X|1", Outcome::Refused, "-", "-", "the variable is not set"},
        {"tev.env.replace.1=LIST|" + tooLong, Outcome::Refused, "a", "a",
         "Windows refuses the change"},
        {"tev.env.rm.1=LIST|A", Outcome::Changed, "a", "-", ""},
        {"tev.env.rm.1=LIST|b", Outcome::Unchanged, "a", "a", "it is so already"},
        {"tev.env.new.1=X", Outcome::Ignored, "-", "-", "there is no \"|\" between name and value"},
        {"tev.env.new.1=X| |", Outcome::Ignored, "-", "-", "its name or its value is blank"},
        {"tev.env.del.1=%BLANK%", Outcome::Ignored, "-", "-", "it names no variable"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        const auto model = Models(kVariables).Make(row.line);
        ASSERT_EQ(model.Steps().size(), 1U);
        const auto& step = model.Steps()[0];
        EXPECT_EQ(step.key, row.line.substr(0, row.line.find('=')));
        EXPECT_EQ(step.outcome, row.outcome);
        EXPECT_EQ(step.before.value_or("-"), row.before);
        EXPECT_EQ(step.after.value_or("-"), row.after);
        EXPECT_EQ(step.reason, row.reason);
        EXPECT_EQ(step.place.line, 1U);
        EXPECT_EQ(step.place.file, "S/tev.system.properties");
        EXPECT_EQ(step.isFolderMissing, step.reason.find("there is no such folder") == 0);
    }
}

TEST(Steps, HaveNoValuesWithoutAVariable) {
    const auto model = Models(Models::Variables{{"", "x"}}).Make("tev.env.set.1=X|1");
    ASSERT_EQ(model.Steps().size(), 1U);
    EXPECT_EQ(model.Steps()[0].before, std::nullopt);
    EXPECT_EQ(model.Steps()[0].after, std::nullopt);
}

TEST(Steps, TellWhatEachDirectiveAsksFor) {
    const struct {
        const char *line, *kind, *variable, *value, *reason;
    } rows[] = {
        {"tev.env.add.path.1=LIST|C:/no", "add.path", "LIST", "C:\\no",
         "there is no such folder: \"C:\\no\""},
        {"tev.env.del.1= ENV", "del", "ENV", "", ""},
        {"tev.env.rm.1=ENV|e", "rm", "ENV", "e", ""},
        {"tev.env.set.1=ENV|e", "", "", "", "no directive begins like this key"},
        {"tev.env.new.1=X|", "new", "X", "", "nothing stands on one side of the \"|\""},
        {"tev.env.new.1=X|1|2", "new", "X", "", "it has more than two pieces around \"|\""},
        {"tev.env.new.1=X|%BLANK%", "new", "X", "", "its name or its value is blank"},
        {"tev.env.del.1=%BLANK%", "del", "", "", "it names no variable"},
        {"tev.env.replace.1=ENV", "replace", "ENV", "", "there is no \"|\" between name and value"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        const auto model = Models(kVariables).Make(row.line);
        ASSERT_EQ(model.Steps().size(), 1U);
        const auto& step = model.Steps()[0];
        EXPECT_EQ(step.kind, row.kind);
        EXPECT_EQ(step.variable, row.variable);
        EXPECT_EQ(step.value, row.value);
        EXPECT_EQ(step.reason, row.reason);
    }
}

}  // namespace
