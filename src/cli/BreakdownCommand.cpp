// veritrace-cli breakdown: an equation read into signed rational terms, stage by stage.

#include <QJsonArray>

#include "base/NumberText.h"
#include "cli/Headless.h"
#include "cli/Jobs.h"
#include "cli/Json.h"
#include "translate/breakdown/Breakdown.h"

namespace vt::cli {

namespace {

QJsonArray JsonList(const std::vector<std::string>& items) {
    QJsonArray list;
    for (const std::string& item : items)
        list.append(JsonText(item));
    return list;
}

std::string Joined(const std::vector<std::string>& items) {
    std::string out;
    for (std::size_t i = 0; i < items.size(); ++i)
        out += (i ? " " : "") + items[i];
    return out;
}

// A single-precision field as a JSON number, read from its 7-digit text so that 1/3 shows as
// 0.3333333 and not as the float's binary expansion.
QJsonValue SingleNumber(float value) {
    return PrefixNumber(SingleText(value));
}

} // namespace

Parsed<BreakdownJob> ParseBreakdown(const QStringList& arguments, Output& out) {
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
    if (const auto code = ReadArguments(parser, arguments, out)) return *code;
    auto keys = ReadKeys(parser, out);
    if (!keys) return ExitUsage;
    const bool tokensGiven = parser.isSet("tokens");
    const bool fileGiven = parser.isSet("file");
    if (keys->size() + (tokensGiven ? 1 : 0) + (fileGiven ? 1 : 0) != 1)
        return BadArgument(out, "veritrace-cli breakdown: give the equation once, with -k KEYS, "
                                "--tokens TOKENS or -f FILE.vtx");
    BreakdownJob job;
    if (tokensGiven)
        job.Tokens = parser.value("tokens").toStdString();
    else if (fileGiven)
        job.File = ReadFileOption(parser);
    else
        job.Keys = keys->front();
    job.Json = parser.isSet("json");
    return job;
}

int RunBreakdown(const BreakdownJob& job, Output& out) {
    HeadlessSession headless;
    Session& s = headless.S();
    BreakdownError loaded;
    if (job.Tokens) {
        loaded = SetBreakdownTokens(s, SplitBreakdownTokens(*job.Tokens));
    } else {
        const std::vector<std::string> keys =
            job.Keys ? std::vector<std::string>{*job.Keys} : std::vector<std::string>{};
        if (!headless.LoadFunctions(keys, job.File, out)) return ExitRefused;
        loaded = CopySlotToBreakdown(s, 0);
    }
    BreakdownRun run;
    if (loaded == BreakdownError::None)
        run = vt::RunBreakdown(s);
    else
        run.Error = loaded;
    const bool stopped = run.Error != BreakdownError::None;

    if (job.Json) {
        QJsonArray terms;
        for (const BreakdownTermSummary& term : run.Terms)
            terms.append(QJsonObject{{"num", SingleNumber(term.Num)},
                                     {"den", SingleNumber(term.Den)},
                                     {"letters", JsonText(term.Letters)}});
        PrintJson(out,
                  {{"merged", JsonList(run.Merged)},
                   {"normalised", JsonList(run.Normalised)},
                   {"text", JsonText(run.Text)},
                   {"terms", terms},
                   {"error", stopped ? JsonText(BreakdownErrorName(run.Error)) : QJsonValue()}});
    } else {
        out.Line("merged:     " + Joined(run.Merged));
        out.Line("normalised: " + Joined(run.Normalised));
        out.Line("text:       " + run.Text);
        for (const BreakdownTermSummary& term : run.Terms)
            out.Line("term:       " + SingleText(term.Num) + "/" + SingleText(term.Den) + " " +
                     term.Letters);
        if (stopped) out.Line(std::string("error:      ") + BreakdownErrorName(run.Error));
    }
    return stopped ? ExitUsage : ExitDone;
}

} // namespace vt::cli
