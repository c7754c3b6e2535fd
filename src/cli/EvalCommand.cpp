// veritrace-cli eval: the value of every function at one x, as Evaluate f(x) shows it.

#include "cli/Command.h"
#include "cli/Json.h"
#include "plot/Evaluate.h"
#include "session/NumberText.h"

namespace vt::cli {

int EvalCommand(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Evaluates each function row at x as the Evaluate f(x) window does: an empty row gives\n"
        "an empty value, a point where the function has no value gives NA.");
    parser.addOption(QCommandLineOption("at", "The x to evaluate at.", "X"));
    AddKeysOption(parser);
    AddJsonOption(parser);
    if (const int code = ParseOrExit(parser, arguments); code >= 0) return code;
    std::vector<std::string> keys;
    if (!KeyStrings(parser, keys)) return ExitUsage;
    if (!parser.isSet("at")) {
        Err("veritrace-cli eval: give the x to evaluate at with --at X");
        return ExitUsage;
    }
    const std::string given = parser.value("at").toStdString();
    if (!IsNumericText(given)) {
        Err("x must be a number.");
        return ExitRefused;
    }
    const double x = PrefixNumber(given);

    Session s;
    if (const int code = LoadFunctions(s, parser, keys); code >= 0) return code;
    PreCalcFX(s);
    std::vector<std::string> values;
    for (int slot = 0; slot < UsableSlots; ++slot) values.push_back(CalculateYEval(s, x, slot));

    if (parser.isSet("json")) {
        std::string out = "{\"x\":" + JsonString(given) + ",\"values\":[";
        for (std::size_t i = 0; i < values.size(); ++i)
            out += (i ? "," : "") + JsonString(values[i]);
        Out(out + "]}");
        return 0;
    }
    for (int slot = 0; slot < UsableSlots; ++slot) {
        const std::string& keysOfSlot =
            slot < static_cast<int>(keys.size()) ? keys[static_cast<std::size_t>(slot)] : "";
        if (keysOfSlot.empty()) continue;
        Out("f" + std::to_string(slot + 1) + "(" + given + ") = " +
            values[static_cast<std::size_t>(slot)] + "    [" + keysOfSlot + "]");
    }
    return 0;
}

} // namespace vt::cli
