// veritrace-cli area: the area under one function between two x, as Calculate Area works it out.

#include <cmath>

#include "analysis/Area.h"
#include "cli/Command.h"
#include "cli/Json.h"
#include "session/NumberText.h"

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

int AreaCommand(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Works out the area under one function row from A to B as the Calculate Area window\n"
        "does: samples at A, A + DX, ... and B, each at full weight, a point without a value\n"
        "counting 0; the result is signed and shown with two to four decimals.\n"
        "A step that would never end the sum (0, or too small to move x) is refused.");
    parser.addOption(QCommandLineOption("from", "Start of the interval.", "A"));
    parser.addOption(QCommandLineOption("to", "End of the interval.", "B"));
    parser.addOption(QCommandLineOption("step", "The step dx.", "DX"));
    parser.addOption(QCommandLineOption("slot", "The function row, 0 to 4 (default 0).", "N", "0"));
    AddKeysOption(parser);
    AddJsonOption(parser);
    if (const int code = ParseOrExit(parser, arguments); code >= 0) return code;
    std::vector<std::string> keys;
    if (!KeyStrings(parser, keys)) return ExitUsage;
    for (const char* needed : {"from", "to", "step"}) {
        if (!parser.isSet(needed)) {
            Err(std::string("veritrace-cli area: give --") + needed);
            return ExitUsage;
        }
    }
    bool slotOk = false;
    const int slot = parser.value("slot").toInt(&slotOk);
    if (!slotOk || slot < 0 || slot >= UsableSlots) {
        Err("veritrace-cli area: --slot must be a row from 0 to 4");
        return ExitUsage;
    }

    const std::string from = parser.value("from").toStdString();
    const std::string to = parser.value("to").toStdString();
    const std::string step = parser.value("step").toStdString();
    // The window's own checks first, with its own messages, in its order.
    if (const AreaCheck check = CheckAreaInput(from, to, step); check != AreaCheck::Ok) {
        Err(AreaCheckMessage(check));
        return ExitRefused;
    }
    if (StepNeverEnds(PrefixNumber(from), PrefixNumber(to), PrefixNumber(step))) {
        Err("The value of dx must move x from the minimum to the maximum range; " + step +
            " never gets there.");
        return ExitRefused;
    }

    Session s;
    if (const int code = LoadFunctions(s, parser, keys); code >= 0) return code;
    const AreaOutcome outcome = CalculateArea(s, from, to, step, slot);
    if (parser.isSet("json"))
        Out("{\"area\":" + JsonString(outcome.Text) + "}");
    else
        Out(outcome.Text);
    return 0;
}

} // namespace vt::cli
