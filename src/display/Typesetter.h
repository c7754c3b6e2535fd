#pragma once
// The typesetter: draws an equation's display text on a surface, character by character, with no
// layout tree. A fraction stands between two "#", an exponent between two "^", a root between two
// "~"; "[" and "]" switch red on and off; "`" is the font's pi glyph. It prints at the surface's
// pen, moves the pen, and calls itself for the elements.
//
// The same typesetting runs on three surfaces: the function rows (and the rows of the evaluate
// and area dialogs), the printed page and the regression equation window. What differs between
// them is gathered in one table, TypesetVariant; the walk itself is shared.

#include <string>

#include "base/Surface.h"
#include "session/Session.h"

namespace vt {

enum class TypesetTarget { Screen, Printer, RegressionWindow };

// A distance on the surface: a fixed part plus a multiple of the font size in use at that moment.
struct PenStep {
    double Fixed = 0;
    double PerFontSize = 0;
};

// How a surface's typesetting differs from the rows'.
struct TypesetVariant {
    TypesetTarget Target = TypesetTarget::Screen;

    // The opening: two spaces printed or not, then the pen moved down and to the right. With
    // DropByFontSizeForSlash, a text holding a "/" anywhere drops by the font size instead, so
    // that a numerator clears the top of the window.
    bool OpeningSpaces = true;
    PenStep OpeningDown;
    bool DropByFontSizeForSlash = false;
    double OpeningRight = 0;
    bool OpeningBlack = false;         // ForeColor 0 before the start colour
    bool TakesColour = false;          // the request's colour flag and colour text count
    bool StartBlue = false;            // ForeColor 0xFF0000 at the start
    Colour CloseColour = 0;            // what "]" sets
    Colour CloseColourInColour = 0;    // what "]" sets when printing in the row's colour
    bool ReplaceTrigBeforeCopy = true; // sin, cos, tan spelt out in the cells, or single letters

    // Line end: when asked (the rows, limit from the surface's width), always (fixed limit), or
    // never. After a break: "...", the pen to WrapIndent, the baseline down by WrapDown.
    enum WrapRule { WrapWhenAsked, WrapAlways, WrapNever } Wrap = WrapWhenAsked;
    double WrapLimit = 0; // fixed limit, for WrapAlways
    double WrapIndent = 0;
    double WrapDown = 0;

    // Page end (0: none): a baseline at or past it starts a new page at PageLeft, PageTop.
    double PageEnd = 0;
    double PageTop = 0;
    double PageLeft = 0;

    bool WritesCaret = true; // CaretX and CaretY

    PenStep ExponentUp; // measured at the exponent's own size, 8
    PenStep NumeratorUp;
    PenStep DenominatorDown;
    PenStep OverbarUp;
    double OverbarUpWithFraction = 0; // more, when the root holds a fraction
    PenStep OverbarStart;             // from the root's left edge

    // The tall root sign, for a root that holds a fraction: up, right, "&", down, left, "~".
    double TallUp = 0, TallRight = 0, TallDown = 0, TallLeft = 0;
    // The plain root sign: left, up, "~"; with PlainSignFont, printed in that font and
    // PlainSignFontBack put back afterwards.
    double PlainLeft = 0, PlainUp = 0;
    const char* PlainSignFont = nullptr;
    const char* PlainSignFontBack = nullptr;

    // The pen arithmetic and the kept pen values in single precision.
    bool SinglePrecision = false;
};

const TypesetVariant& VariantFor(TypesetTarget target);

// The text shown when a text cannot be typeset.
inline constexpr const char* DisplayFailureText = "An error occurred while displaying information.";

// A row's text on a screen surface (the rows, the evaluate and area dialogs). `text` is returned
// with "S", "C" and "T" spelt out as "sin", "cos", "tan". With wrap, a line that runs within 20
// pixels of the surface's right edge goes on further down. Any failure ends the drawing, shows
// DisplayFailureText through the session's host and puts FontSize back to 12.
void PrintEquation(Session& s, std::string& text, Surface& surface, bool wrap);

// An equation on the printed page, whose scale is 800 by 600: always wrapped, with page ends.
// With useColour the text starts in the colour given as decimal text and "]" goes back to
// blue; without it everything not red is black.
void PrintEquationOnPrinter(Session& s, std::string& text, Surface& printer, bool useColour,
                            const std::string& colourText);

// The fitted equation in the regression window (its main font "Book Antiqua"), in blue.
void PrintRegressionEquation(Session& s, std::string& text, Surface& window);

// The three entries in one: what the table of the variant says, plus the arguments that only
// some of them have.
struct TypesetRequest {
    TypesetTarget Target = TypesetTarget::Screen;
    bool Wrap = false;      // the screen's wrap flag
    bool UseColour = false; // the printer's colour flag
    std::string ColourText; // the printer's colour, decimal 0xBBGGRR
};
void PrintEquation(Session& s, std::string& text, Surface& surface, const TypesetRequest& request);

// The insides of the elements, marks removed, as the variant of the request draws them. They
// have no failure handling of their own: a cell limit passed throws SubscriptError, a value the
// surface cannot take std::range_error, and PrintEquation is what catches them.
void PrintFraction(Session& s, const std::string& text, Surface& surface,
                   const TypesetRequest& request = {});
void PrintExponent(Session& s, const std::string& text, Surface& surface,
                   const TypesetRequest& request = {});
void PrintRoot(Session& s, const std::string& text, Surface& surface,
               const TypesetRequest& request = {});

} // namespace vt
