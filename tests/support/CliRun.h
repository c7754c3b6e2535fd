#pragma once
// Runs veritrace-cli as a program and keeps what it printed and how it ended; reads what it
// wrote.

#include <QFile>
#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>
#include <string>

namespace vt::test {

struct CliRun {
    int Exit = -1; // -1: it did not end within a minute
    std::string Out, Err;
};

// `bare`: no runtime folder and no display, as from a plain terminal or a script.
inline CliRun RunCli(const QStringList& arguments, bool bare = false) {
    QProcess process;
    if (bare) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* name :
             {"XDG_RUNTIME_DIR", "DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(QString::fromLatin1(name));
        process.setProcessEnvironment(environment);
    }
    process.start(QStringLiteral(VERITRACE_CLI), arguments);
    CliRun run;
    if (!process.waitForFinished(60000)) {
        process.kill();
        process.waitForFinished();
        run.Err = "timed out";
        return run;
    }
    run.Exit = process.exitCode();
    run.Out = process.readAllStandardOutput().toStdString();
    run.Err = process.readAllStandardError().toStdString();
    return run;
}

inline QJsonObject Json(const std::string& text) {
    return QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
}

inline QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// How many pixels of a part of an image (all of it by default) have a colour, as 0xRRGGBB.
inline int Count(const QImage& image, QRgb colour, QRect part = {}) {
    if (part.isNull()) part = image.rect();
    int count = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            count += image.valid(x, y) && (image.pixel(x, y) & 0xFFFFFF) == colour;
    return count;
}

// Whether a colour lies within `reach` pixels of (x, y).
inline bool Near(const QImage& image, int x, int y, QRgb colour, int reach = 2) {
    return Count(image, colour, QRect(x - reach, y - reach, 2 * reach + 1, 2 * reach + 1)) > 0;
}

} // namespace vt::test
