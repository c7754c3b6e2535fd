// veritrace-cli breakdown: an equation read into signed rational terms, stage by stage.

#include "cli/Command.h"
#include "cli/Json.h"
#include "entry/Entry.h"
#include "session/Startup.h"
#include "translate/breakdown/Breakdown.h"

namespace vt::cli {

namespace {

std::string JsonList(const std::vector<std::string>& items) {
    std::string out = "[";
    for (std::size_t i = 0; i < items.size(); ++i)
        out += (i ? "," : "") + JsonString(items[i]);
    return out + "]";
}

std::string Joined(const std::vector<std::string>& items) {
    std::string out;
    for (std::size_t i = 0; i < items.size(); ++i)
        out += (i ? " " : "") + items[i];
    return out;
}

} // namespace

int BreakdownCommand(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Reads an equation into signed rational terms: the tokens with their numbers joined,\n"
        "with every sign made explicit, the normal-form text of the left side and its terms.\n"
        "The equation is typed into row 0 with -k, or given as tokens with blanks between them\n"
        "with --tokens, for lists that typing cannot make. Exit code 2 when an error stopped\n"
        "the reading.");
    AddKeysOption(parser);
    parser.addOption(
        QCommandLineOption("tokens", "The tokens, one per cell, with blanks between.", "TOKENS"));
    AddJsonOption(parser);
    if (const int code = ParseOrExit(parser, arguments); code >= 0) return code;
    std::vector<std::string> keys;
    if (!KeyStrings(parser, keys)) return ExitUsage;
    const bool tokensGiven = parser.isSet("tokens");
    if (keys.size() + (tokensGiven ? 1 : 0) != 1) {
        Err("veritrace-cli breakdown: give the equation once, with -k KEYS or --tokens TOKENS");
        return ExitUsage;
    }

    Session s;
    BreakdownError loaded;
    if (tokensGiven) {
        StartSession(s);
        loaded = SetBreakdownTokens(s, SplitBreakdownTokens(parser.value("tokens").toStdString()));
    } else {
        LoadKeys(s, keys);
        loaded = CopySlotToBreakdown(s, 0);
    }
    BreakdownRun run;
    if (loaded == BreakdownError::None)
        run = RunBreakdown(s);
    else
        run.Error = loaded;
    const bool stopped = run.Error != BreakdownError::None;

    if (parser.isSet("json")) {
        std::string out = "{\"merged\":" + JsonList(run.Merged) +
                          ",\"normalised\":" + JsonList(run.Normalised) +
                          ",\"text\":" + JsonString(run.Text) + ",\"terms\":[";
        for (std::size_t i = 0; i < run.Terms.size(); ++i) {
            const BreakdownTermSummary& term = run.Terms[i];
            out += std::string(i ? "," : "") + "{\"num\":" + SingleText(term.Num) +
                   ",\"den\":" + SingleText(term.Den) + ",\"letters\":" + JsonString(term.Letters) +
                   "}";
        }
        out += "],\"error\":" +
               (stopped ? JsonString(BreakdownErrorName(run.Error)) : std::string("null")) + "}";
        Out(out);
    } else {
        Out("merged:     " + Joined(run.Merged));
        Out("normalised: " + Joined(run.Normalised));
        Out("text:       " + run.Text);
        for (const BreakdownTermSummary& term : run.Terms)
            Out("term:       " + SingleText(term.Num) + "/" + SingleText(term.Den) + " " +
                term.Letters);
        if (stopped) Out(std::string("error:      ") + BreakdownErrorName(run.Error));
    }
    return stopped ? ExitUsage : 0;
}

} // namespace vt::cli
