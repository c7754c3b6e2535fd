// --bracket-negative-x on the companion's commands that evaluate the functions, run in process.

#include <gtest/gtest.h>

#include <QImage>
#include <QTemporaryDir>

#include "cli/Command.h"
#include "support/QtApp.h"

namespace vt::test {
namespace {

struct Ran {
    int Exit = -1;
    cli::Output Out;
};

// Runs a command of the table as the companion's dispatch does.
Ran RunCommand(const QString& name, QStringList arguments) {
    QtApp();
    Ran ran;
    for (const cli::Command& command : cli::Commands())
        if (name == command.Name) {
            arguments.prepend("veritrace-cli " + name);
            ran.Exit = command.Run(arguments, ran.Out);
        }
    return ran;
}

// Whether a colour is among the pixels within two of (x, y).
bool Near(const QImage& image, int x, int y, QRgb colour) {
    for (int dy = -2; dy <= 2; ++dy)
        for (int dx = -2; dx <= 2; ++dx)
            if (image.pixel(x + dx, y + dy) == colour) return true;
    return false;
}

TEST(CliBracketNegativeX, EvalAndAreaSquareANegativeXOnlyWithTheOption) {
    // {command, arguments, output without the option, output with it}
    // clang-format off
    const std::tuple<QString, QStringList, std::string, std::string> cases[] = {
        {"eval", {"--at", "-3", "-k", "x^2"}, "f1(-3) = -9    [x^2]\n", "f1(-3) = 9    [x^2]\n"},
        // A minus written before x^2 stays outside the power either way.
        {"eval", {"--at", "-3", "-k", "-x^2"}, "f1(-3) = 9    [-x^2]\n",
         "f1(-3) = -9    [-x^2]\n"},
        {"eval", {"--at", "-2", "-k", "x^3+x^2"}, "f1(-2) = -12    [x^3+x^2]\n",
         "f1(-2) = -4    [x^3+x^2]\n"},
        // A positive x is the same either way.
        {"eval", {"--at", "3", "-k", "x^2"}, "f1(3) = 9    [x^2]\n", "f1(3) = 9    [x^2]\n"},
        // Samples at -2, -1 and 0, each at full weight.
        {"area", {"--from", "-2", "--to", "0", "--step", "1", "-k", "x^2"}, "-5.00\n", "5.00\n"},
        {"area", {"--from", "-1", "--to", "1", "--step", "0.5", "-k", "x^2"}, "0.00\n", "1.25\n"}};
    // clang-format on
    for (const auto& [command, arguments, bare, bracketed] : cases) {
        SCOPED_TRACE((command + ' ' + arguments.join(' ')).toStdString());
        const Ran plain = RunCommand(command, arguments);
        EXPECT_EQ(plain.Exit, 0) << plain.Out.Err;
        EXPECT_EQ(plain.Out.Out, bare);
        const Ran option = RunCommand(command, QStringList(arguments) << "--bracket-negative-x");
        EXPECT_EQ(option.Exit, 0) << option.Out.Err;
        EXPECT_EQ(option.Out.Out, bracketed);
    }
    // Only the commands that evaluate take it.
    EXPECT_EQ(RunCommand("fit", {"--bracket-negative-x", "-p", "0,0", "-p", "1,1"}).Exit,
              cli::ExitUsage);
}

TEST(CliBracketNegativeX, ExportPaintsAndShadesTheBracketedCurve) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString png = dir.filePath("g.png");
    // Left of the y axis x^2 goes up with the option, down without; the band from -2 to 0
    // (columns 180..200) lies above the axis with it, below without.
    for (const bool bracket : {false, true}) {
        SCOPED_TRACE(bracket);
        QStringList arguments = {"-k", "x^2", "--shade", "-2,0", "-o", png};
        if (bracket) arguments << "--bracket-negative-x";
        const Ran ran = RunCommand("export", arguments);
        ASSERT_EQ(ran.Exit, 0) << ran.Out.Err;
        const QImage image = QImage(png).convertToFormat(QImage::Format_RGB32);
        ASSERT_EQ(image.size(), QSize(400, 400));
        // x = -3: y is 9 (row 110) bracketed, -9 (row 290) bare.
        const QRgb red = qRgb(255, 0, 0), grey = qRgb(0xE0, 0xE0, 0xE0);
        EXPECT_EQ(Near(image, 170, 110, red), bracket);
        EXPECT_EQ(Near(image, 170, 290, red), !bracket);
        // x = -1.5, between the curve and the axis.
        EXPECT_EQ(image.pixel(185, 195) == grey, bracket);
        EXPECT_EQ(image.pixel(185, 205) == grey, !bracket);
    }
}

} // namespace
} // namespace vt::test
