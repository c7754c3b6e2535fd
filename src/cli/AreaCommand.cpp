// veritrace-cli area: the area under one function between two x, as Calculate Area works it out.

#include "analysis/Area.h"
#include "base/NumberText.h"
#include "cli/Headless.h"
#include "cli/Jobs.h"
#include "cli/Json.h"
#include "cli/Limits.h"

namespace vt::cli {

namespace {

// Whether the sum could never end: a step of 0, or one too small to move x at either end of the
// range while the loop would run. The window waits forever then; a script must not.
bool StepNeverEnds(double a, double b, double dx) {
    if (dx == 0) return true;
    const bool loopRuns = dx > 0 ? a <= b : a >= b;
    return loopRuns && (a + dx == a || b + dx == b);
}

} // namespace

Parsed<AreaJob> ParseArea(const QStringList& arguments, Output& out) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Works out the area under one function row from A to B as the Calculate Area window\n"
        "does: samples at A, A + DX, ... and B, each at full weight, a point without a value\n"
        "counting 0; the result is signed and shown with two to four decimals.\n"
        "A step that would never end the sum (0, or too small to move x) is refused, and so is\n"
        "a sum of more than 100000000 samples.");
    parser.addOption(QCommandLineOption("from", "Start of the interval.", "A"));
    parser.addOption(QCommandLineOption("to", "End of the interval.", "B"));
    parser.addOption(QCommandLineOption("step", "The step dx.", "DX"));
    parser.addOption(QCommandLineOption("slot", "The function row, 0 to 4 (default 0).", "N", "0"));
    AddKeysOption(parser);
    AddJsonOption(parser);
    AddBracketNegativeXOption(parser);
    if (const auto code = ReadArguments(parser, arguments, out)) return *code;
    AreaJob job;
    auto keys = ReadKeys(parser, out);
    if (!keys) return ExitUsage;
    for (const char* needed : {"from", "to", "step"})
        if (!parser.isSet(needed))
            return BadArgument(out, std::string("veritrace-cli area: give --") + needed);
    bool slotOk = false;
    job.Slot = parser.value("slot").toInt(&slotOk);
    if (!slotOk || job.Slot < 0 || job.Slot >= UsableSlots)
        return BadArgument(out, "veritrace-cli area: --slot must be a row from 0 to 4");
    job.Keys = std::move(*keys);
    job.File = ReadFileOption(parser);
    job.From = parser.value("from").toStdString();
    job.To = parser.value("to").toStdString();
    job.Step = parser.value("step").toStdString();
    job.Json = parser.isSet("json");
    job.BracketNegativeX = parser.isSet("bracket-negative-x");
    return job;
}

int RunArea(const AreaJob& job, Output& out) {
    // The window's own checks first, with its own messages, in its order.
    if (const AreaCheck check = CheckAreaInput(job.From, job.To, job.Step);
        check != AreaCheck::Ok) {
        out.Error(AreaCheckMessage(check));
        return ExitRefused;
    }
    const double a = PrefixNumber(job.From), b = PrefixNumber(job.To), dx = PrefixNumber(job.Step);
    if (StepNeverEnds(a, b, dx)) {
        out.Error("The value of dx must move x from the minimum to the maximum range; " + job.Step +
                  " never gets there.");
        return ExitRefused;
    }
    if (const double samples = SweepSamples(a, b, dx); samples > MaxSamples)
        return BadArgument(out, "veritrace-cli area: from " + job.From + " to " + job.To + " by " +
                                    job.Step + " takes " + NumberText(samples) +
                                    " samples; at most " + NumberText(MaxSamples) + " are taken");

    HeadlessSession headless;
    headless.S().BracketNegativeX = job.BracketNegativeX;
    if (!headless.LoadFunctions(job.Keys, job.File, out)) return ExitRefused;
    const AreaOutcome outcome = CalculateArea(headless.S(), job.From, job.To, job.Step, job.Slot);
    if (job.Json)
        PrintJson(out, {{"area", JsonText(outcome.Text)}});
    else
        out.Line(outcome.Text);
    return ExitDone;
}

} // namespace vt::cli
