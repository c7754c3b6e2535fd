// Veritrace: graphs of functions for school mathematics.
//
//   veritrace [FILE]
//
// FILE is a graph data file to open at start. Options for tests and documentation, not shown
// to users: --no-splash, --screenshot PNG (grab the window after start and quit), --keys TEXT
// (type TEXT into the first row first), --graph (press the toolbar's Graph button first).

#include <QApplication>
#include <QPixmap>
#include <QStringList>
#include <QTimer>
#include <cstdio>
#include <memory>

#include "app/QtPlatform.h"
#include "commands/KeyStroke.h"
#include "commands/MainCommands.h"
#include "entry/Entry.h"
#include "session/Session.h"
#include "windows/frmGraphMain.h"

namespace {

struct Arguments {
    bool Splash = true;
    QString Screenshot;
    QString Keys;
    bool Graph = false;
    QStringList Files;
};

// Reads the options by hand: the file name is the rest of the command line, and a name that
// begins with "-" is still a name once the options are done.
bool ReadArguments(const QStringList& args, Arguments& out) {
    bool options = true;
    for (int i = 1; i < args.size(); ++i) {
        const QString& arg = args[i];
        if (options && arg == QStringLiteral("--")) {
            options = false;
        } else if (options && arg == QStringLiteral("--no-splash")) {
            out.Splash = false;
        } else if (options && arg == QStringLiteral("--graph")) {
            out.Graph = true;
        } else if (options &&
                   (arg == QStringLiteral("--screenshot") || arg == QStringLiteral("--keys"))) {
            if (i + 1 >= args.size()) {
                std::fprintf(stderr, "veritrace: %s needs a value\n", qPrintable(arg));
                return false;
            }
            (arg == QStringLiteral("--keys") ? out.Keys : out.Screenshot) = args[++i];
        } else {
            out.Files << arg;
        }
    }
    return true;
}

} // namespace

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Veritrace"));
    QApplication::setOrganizationName(QStringLiteral("Orlentis"));
    QApplication::setDesktopFileName(QStringLiteral("org.orlentis.Veritrace"));

    Arguments args;
    if (!ReadArguments(QApplication::arguments(), args)) return 2;

    auto session = std::make_unique<vt::Session>();
    vt::app::QtPlatform platform;
    vt::MainWindowOptions options;
    options.ShowSplash = args.Splash && args.Screenshot.isEmpty();
    // The whole command line is one file name, spaces and all.
    options.CommandLine = args.Files.join(QLatin1Char(' ')).toStdString();
    // Print Setup chooses the printer that Print Graph prints on.
    options.Printer = &platform.Printer();

    vt::frmGraphMain window(*session, platform, options);
    platform.SetParent(&window);
    window.Form_Load();

    if (!args.Keys.isEmpty()) {
        for (QChar c : args.Keys)
            vt::Paper_KeyPress(*session, session->ActiveSlot, c.unicode() <= 255 ? c.unicode() : 0);
        window.Mirror();
    }
    if (args.Graph) window.ToolbarClick(1);

    if (!args.Screenshot.isEmpty()) {
        const QString target = args.Screenshot;
        QTimer::singleShot(800, &window, [&window, target] {
            const bool saved = window.grab().save(target, "PNG");
            if (!saved) std::fprintf(stderr, "veritrace: cannot write %s\n", qPrintable(target));
            QApplication::exit(saved ? 0 : 1);
        });
    }
    return app.exec();
}
