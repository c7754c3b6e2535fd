// veritrace-cli eval: the value of every function at one x, as Evaluate f(x) shows it.

#include <QJsonArray>

#include "cli/Headless.h"
#include "cli/Jobs.h"
#include "cli/Json.h"
#include "base/NumberText.h"
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
    if (const auto code = ReadArguments(parser, arguments, out)) return *code;
    EvalJob job;
    auto keys = ReadKeys(parser, out);
    if (!keys) return ExitUsage;
    if (!parser.isSet("at"))
        return BadArgument(out, "veritrace-cli eval: give the x to evaluate at with --at X");
    job.Keys = std::move(*keys);
    job.At = parser.value("at").toStdString();
    job.Json = parser.isSet("json");
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
    headless.LoadRows(job.Keys);
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
    for (std::size_t slot = 0; slot < job.Keys.size(); ++slot) {
        if (job.Keys[slot].empty()) continue;
        out.Line("f" + std::to_string(slot + 1) + "(" + job.At + ") = " + values[slot] + "    [" +
                 job.Keys[slot] + "]");
    }
    return ExitDone;
}

} // namespace vt::cli
