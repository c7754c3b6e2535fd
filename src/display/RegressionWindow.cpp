#include "display/RegressionWindow.h"

#include <algorithm>

#include "display/Typesetter.h"

namespace vt {

namespace {

// A twip is a twentieth of a point.
constexpr float TwipsPerPoint = 20;

void ScaleInPoints(Surface& form) {
    form.ScaleLeft = 0;
    form.ScaleTop = 0;
    form.ScaleWidth =
        static_cast<float>(form.PixelWidth()) * Surface::TwipsPerPixel / TwipsPerPoint;
    form.ScaleHeight =
        static_cast<float>(form.PixelHeight()) * Surface::TwipsPerPixel / TwipsPerPoint;
}

void ScaleInPixels(Surface& form) {
    form.ScaleLeft = 0;
    form.ScaleTop = 0;
    form.ScaleWidth = static_cast<float>(form.PixelWidth());
    form.ScaleHeight = static_cast<float>(form.PixelHeight());
}

void PrintLine(Session& s, const std::string& line, Surface& form) {
    std::string text = line;
    PrintRegressionEquation(s, text, form);
}

} // namespace

std::string ExplainCaption(const Session& s) {
    return s.Panel.LinearOn ? LinearEquationCaption : PolynomialEquationCaption;
}

int ShowEquation(Session& s, Surface& form) {
    ScaleInPoints(form);
    std::string rest = s.RegressionEquation;
    form.Cls();
    form.CurrentX = 0;
    form.CurrentY = 0;
    // Positions count from 1, as the characters of a line do.
    std::size_t pos = 0, lastBlank = 0;
    std::string hidden;
    while (pos < rest.size()) {
        ++pos;
        const char c = rest[pos - 1];
        if (c == '/') {
            // A denominator stands under its numerator: the fraction's marks and its lower
            // side take no width on the line, so they are measured and taken off.
            hidden += "iii";
            const std::size_t end = rest.find('#', pos);
            const std::size_t follow = (end == std::string::npos ? rest.size() : end) - pos;
            hidden.append(follow, 'i');
        }
        if (c == ' ') lastBlank = pos;
        if (form.TextWidth(rest.substr(0, pos)) - form.TextWidth(hidden) <= form.ScaleWidth)
            continue;
        // The line is full: break at the last blank, or before the character that overflowed.
        // A first character too wide on its own still goes out alone, so every line takes one.
        const std::size_t cut = std::max<std::size_t>(lastBlank != 0 ? lastBlank : pos, 2);
        PrintLine(s, rest.substr(0, cut - 1), form);
        rest.erase(0, std::min(cut - 1, rest.size()));
        rest.erase(0, rest.find_first_not_of(' ') == std::string::npos
                          ? rest.size()
                          : rest.find_first_not_of(' '));
        pos = 0;
        lastBlank = 0;
        hidden.clear();
    }
    if (!rest.empty()) PrintLine(s, rest, form);
    const double height = static_cast<double>(form.FontSize) * Surface::TwipsPerPixel * 3.5 +
                          static_cast<double>(form.CurrentY) * Surface::TwipsPerPixel;
    ScaleInPixels(form);
    return static_cast<int>(std::clamp(height, 0.0, 1.0e6));
}

} // namespace vt
