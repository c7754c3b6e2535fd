#include <QString>
#include <QtGlobal>

#include <cstdio>

#include "cli/Cli.h"

// The companion prints its output and its own messages only: the toolkit's notes about the
// machine (no runtime folder, no display, font fallbacks) go nowhere. A fatal error still says
// why the program stops.
static void DropToolkitMessages(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtFatalMsg) std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
}

int main(int argc, char** argv) {
    qInstallMessageHandler(DropToolkitMessages);
    return vt::cli::Main(argc, argv);
}
