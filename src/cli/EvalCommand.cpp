// veritrace-cli eval: the value of every function at one x, as Evaluate f(x) shows it.

#include <QJsonArray>

#include "base/NumberText.h"
#include "cli/Headless.h"
#include "cli/Jobs.h"
#include "cli/Json.h"
#include "plot/Evaluate.h"

namespace vt::cli {

Parsed<EvalJob> ParseEval(const QStringList& arguments, Output& out) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Evaluates each function row at x as the Evaluate f(x) window does: an empty row gives\n"
        "an empty value, a point where the function has no value gives NA.");
    parser.addOption(QCommandLineOption("at", "The x to evaluate at.", "X"));
    AddKeysOption(parser);
    AddJsonOption(parser);
    AddBracketNegativeXOption(parser);
    if (const auto code = ReadArguments(parser, arguments, out)) return *code;
    EvalJob job;
    auto keys = ReadKeys(parser, out);
    if (!keys) return ExitUsage;
    if (!parser.isSet("at"))
        return BadArgument(out, "veritrace-cli eval: give the x to evaluate at with --at X");
    job.Keys = std::move(*keys);
    job.File = ReadFileOption(parser);
    job.At = parser.value("at").toStdString();
    job.Json = parser.isSet("json");
    job.BracketNegativeX = parser.isSet("bracket-negative-x");
    return job;
}

int RunEval(const EvalJob& job, Output& out) {
    if (!IsNumericText(job.At)) {
        out.Error("x must be a number.");
        return ExitRefused;
    }
    const double x = PrefixNumber(job.At);

    HeadlessSession headless;
    Session& s = headless.S();
    s.BracketNegativeX = job.BracketNegativeX;
    const auto keys = headless.LoadFunctions(job.Keys, job.File, out);
    if (!keys) return ExitRefused;
    PreCalcFX(s);
    std::vector<std::string> values;
    for (int slot = 0; slot < UsableSlots; ++slot)
        values.push_back(CalculateYEval(s, x, slot));

    if (job.Json) {
        QJsonArray list;
        for (const std::string& value : values)
            list.append(JsonText(value));
        PrintJson(out, {{"x", JsonText(job.At)}, {"values", list}});
        return ExitDone;
    }
    for (std::size_t slot = 0; slot < keys->size(); ++slot) {
        if ((*keys)[slot].empty()) continue;
        out.Line("f" + std::to_string(slot + 1) + "(" + job.At + ") = " + values[slot] + "    [" +
                 (*keys)[slot] + "]");
    }
    return ExitDone;
}

} // namespace vt::cli
