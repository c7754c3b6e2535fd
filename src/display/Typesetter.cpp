#include "display/Typesetter.h"

#include <exception>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "base/Checked.h"
#include "base/NumberText.h"
#include "base/Platform.h"

namespace vt {

namespace {

constexpr Colour Red = 255;
constexpr Colour Blue = 0xFF0000;
constexpr float RowFontSize = 12;
constexpr float ExponentFontSize = 8;

// The three surfaces' differences. Everything not named here is the same walk.
constexpr TypesetVariant ScreenVariant{
    .Target = TypesetTarget::Screen,
    .OpeningSpaces = true,
    .OpeningDown = {11, 0},
    .Wrap = TypesetVariant::WrapWhenAsked,
    .WrapIndent = 29,
    .WrapDown = 14,
    .WritesCaret = true,
    .ExponentUp = {0, 0.2},
    .NumeratorUp = {0, 0.6},
    .DenominatorDown = {0, 1.7},
    .OverbarUp = {0, 1.5},
    .OverbarUpWithFraction = 7,
    .OverbarStart = {0, 0.5},
    .TallUp = 9,
    .TallRight = 2,
    .TallDown = 16,
    .TallLeft = 14,
    .PlainLeft = 2,
    .PlainUp = 2,
};

// The page is scaled 800 by 600 by its caller: 765 is the end of a line, 560 the end of a page.
// The steps are fixed so that a printer's font size does not spread the elements apart.
constexpr TypesetVariant PrinterVariant{
    .Target = TypesetTarget::Printer,
    .OpeningSpaces = false,
    .OpeningDown = {12, 0},
    .OpeningRight = 12,
    .OpeningBlack = true,
    .TakesColour = true,
    .CloseColour = 0,
    .CloseColourInColour = Blue,
    .Wrap = TypesetVariant::WrapAlways,
    .WrapLimit = 765,
    .WrapIndent = 15,
    .WrapDown = 12,
    .PageEnd = 560,
    .PageTop = 24,
    .PageLeft = 12,
    .WritesCaret = false,
    .ExponentUp = {1, 0},
    .NumeratorUp = {5, 0},
    .DenominatorDown = {14, 0},
    .OverbarUp = {12, 0},
    .OverbarUpWithFraction = 0,
    .OverbarStart = {6, 0},
    .TallUp = 7,
    .TallRight = 1,
    .TallDown = 10,
    .TallLeft = 14,
    .PlainLeft = 2,
    .PlainUp = 2,
};

// The window's own font is "Book Antiqua", which has no root sign: the plain sign is borrowed
// from OrlentisFont. Its text comes from the fit, not from the rows, so it never holds the
// single letters S, C, T and they are copied before they would be spelt out.
constexpr TypesetVariant RegressionVariant{
    .Target = TypesetTarget::RegressionWindow,
    .OpeningSpaces = false,
    .OpeningDown = {3, 0},
    .DropByFontSizeForSlash = true,
    .StartBlue = true,
    .CloseColour = Blue,
    .CloseColourInColour = Blue,
    .ReplaceTrigBeforeCopy = false,
    .Wrap = TypesetVariant::WrapNever,
    .WritesCaret = false,
    .ExponentUp = {0, 0.2},
    .NumeratorUp = {0, 0.6},
    .DenominatorDown = {0, 1.7},
    .OverbarUp = {0, 1.5},
    .OverbarUpWithFraction = 0,
    .OverbarStart = {0, 0.5},
    .TallUp = 9,
    .TallRight = 2,
    .TallDown = 16,
    .TallLeft = 14,
    .PlainLeft = 2,
    .PlainUp = 0,
    .PlainSignFont = "OrlentisFont",
    .PlainSignFontBack = "Book Antiqua",
    .SinglePrecision = true,
};

// A text in numbered cells 1..Hi, as the typesetter walks it. A text longer than its cells, and a
// walk past the last cell, are subscript errors.
template <int Hi> class Cells {
  public:
    explicit Cells(std::string_view text) : length_(static_cast<int>(text.size())) {
        for (int i = 0; i < length_; ++i)
            cells_(i + 1) = text[static_cast<std::size_t>(i)];
    }

    char operator()(int i) const { return cells_(i); }
    int Length() const { return length_; }

    // The cells after i up to the next `mark`, joined; i is left on the mark. A mark that never
    // comes runs into the end of the cells.
    std::string Until(int& i, char mark) const {
        std::string inside;
        for (++i; cells_(i) != mark; ++i)
            if (cells_(i) != 0) inside += cells_(i);
        return inside;
    }

  private:
    Array1<char, 0, Hi> cells_{};
    int length_;
};

// "S", "C", "T" spelt out; none of the words holds a capital, so one pass does what three
// successive replacements do.
void SpellOutTrig(std::string& text) {
    std::string out;
    out.reserve(text.size());
    for (char c : text) {
        if (c == 'S')
            out += "sin";
        else if (c == 'C')
            out += "cos";
        else if (c == 'T')
            out += "tan";
        else
            out += c;
    }
    text = std::move(out);
}

// A pen value stored as a 16-bit integer, rounded half to even.
int ToInteger16(double value) {
    const double rounded = RoundHalfEven(value, 0);
    if (!(rounded >= -32768 && rounded <= 32767))
        throw std::range_error("pen position out of the integer range");
    return static_cast<int>(rounded);
}

// The printer's start colour, given as decimal text and taken as the colour property takes it:
// a number rounded to a whole colour; anything else is refused.
Colour ColourFromText(const std::string& text) {
    if (!IsNumericText(text)) throw std::range_error("colour is not a number");
    std::size_t first = text.find_first_not_of(" \t");
    const double value = RoundHalfEven(PrefixNumber(std::string_view(text).substr(first)), 0);
    if (!(value >= 0 && value <= 0xFFFFFF)) throw std::range_error("colour out of range");
    return static_cast<Colour>(value);
}

class Typesetter {
  public:
    Typesetter(Session& s, Surface& out, const TypesetRequest& request)
        : s_(s), out_(out), v_(VariantFor(request.Target)), request_(request) {}

    void Equation(std::string& text);
    void Fraction(const std::string& text);
    void Exponent(const std::string& text);
    void Root(const std::string& text);

  private:
    // What a root's walk notes about a fraction inside it.
    struct RootNotes {
        bool HasFraction = false;
        double FractionY = 0; // the pen's Y before the fraction; 0 counts as none
    };

    // A kept pen value: single precision on the regression window, double elsewhere.
    double Keep(double value) const {
        return v_.SinglePrecision ? static_cast<double>(static_cast<float>(value)) : value;
    }
    // The pen moved by a step (sign +1 down or right, -1 up or left) at the present font size.
    float Moved(double pen, PenStep step, int sign) const {
        if (v_.SinglePrecision) {
            const float distance = static_cast<float>(step.Fixed) +
                                   static_cast<float>(step.PerFontSize) * out_.FontSize;
            return static_cast<float>(pen) + static_cast<float>(sign) * distance;
        }
        const double distance = step.Fixed + step.PerFontSize * out_.FontSize;
        return static_cast<float>(pen + sign * distance);
    }
    Colour CloseColour() const {
        return v_.TakesColour && request_.UseColour ? v_.CloseColourInColour : v_.CloseColour;
    }
    void PrintOn(const std::string& text) { out_.Print(text, true); }
    void PrintChar(char c) { out_.Print(std::string(1, c), true); }
    // A row of "_" from the pen up to `end`; the last one may pass it.
    void Underscores(double end);
    // The inside of a fraction side (rootNotes null) or of a root.
    void WalkInside(const std::string& text, RootNotes* rootNotes);
    float SideWidth(const std::string& side);

    Session& s_;
    Surface& out_;
    const TypesetVariant& v_;
    const TypesetRequest& request_;
};

bool IsMark(char c) {
    return c == '#' || c == '^' || c == '~' || c == '[' || c == ']';
}

void Typesetter::Equation(std::string& text) {
    if (v_.OpeningSpaces) PrintOn("  ");
    PenStep down = v_.OpeningDown;
    if (v_.DropByFontSizeForSlash && text.find('/') != std::string::npos) down = {0, 1};
    out_.CurrentY = Moved(out_.CurrentY, down, +1);
    if (v_.OpeningRight != 0) out_.CurrentX = Moved(out_.CurrentX, {v_.OpeningRight, 0}, +1);
    double baseline = Keep(out_.CurrentY);
    if (v_.OpeningBlack) out_.ForeColor = 0;
    if (v_.TakesColour && request_.UseColour) out_.ForeColor = ColourFromText(request_.ColourText);
    if (v_.StartBlue) out_.ForeColor = Blue;

    std::optional<Cells<3000>> cells;
    if (!v_.ReplaceTrigBeforeCopy) cells.emplace(text);
    SpellOutTrig(text);
    if (v_.ReplaceTrigBeforeCopy) cells.emplace(text);

    // The walk runs over the text as it stands now, spelt out; where the cells were copied
    // before, the cells past the copied text are empty and print nothing.
    const int length = static_cast<int>(text.size());
    for (int i = 1; i <= length; ++i) {
        char c = (*cells)(i);
        if (c == '#') {
            Fraction(cells->Until(i, '#'));
            s_.CaretAfterFraction = true;
            ++i;
        } else if (c == '^') {
            Exponent(cells->Until(i, '^'));
            ++i;
        } else if (c == '~') {
            Root(cells->Until(i, '~'));
            ++i;
        } else if (c == '[') {
            out_.ForeColor = Red;
            ++i;
        } else if (c == ']') {
            out_.ForeColor = CloseColour();
            ++i;
        }
        out_.CurrentY = static_cast<float>(baseline);
        c = (*cells)(i);
        if (c != 0) s_.CaretAfterFraction = false;
        if (IsMark(c)) {
            // A mark right after an element: the loop's own step brings the walk back to it.
            --i;
            continue;
        }
        // An empty cell (the end of the text after an element) prints nothing, but the line
        // and page ends are looked at all the same. Only characters at this level are tested,
        // so a fraction or a root is never split, though it may run past the line.
        if (v_.PageEnd > 0 && baseline >= v_.PageEnd) {
            out_.NewPage();
            out_.CurrentY = static_cast<float>(v_.PageTop);
            baseline = v_.PageTop;
            out_.CurrentX = static_cast<float>(v_.PageLeft);
        }
        if (c != 0) PrintChar(c);
        double limit = 0;
        bool wraps = false;
        if (v_.Wrap == TypesetVariant::WrapAlways) {
            wraps = true;
            limit = v_.WrapLimit;
        } else if (v_.Wrap == TypesetVariant::WrapWhenAsked && request_.Wrap) {
            // The surface's width in twips over the screen's twips per pixel: its pixel width.
            wraps = true;
            limit = static_cast<double>(out_.PixelWidth()) - 20;
        }
        if (wraps && out_.CurrentX > limit) {
            // The break falls wherever the line is full, inside a number or a word alike.
            PrintOn("...");
            out_.CurrentX = static_cast<float>(v_.WrapIndent);
            baseline = Keep(baseline + v_.WrapDown);
        }
    }

    if (v_.WritesCaret) {
        s_.CaretX = out_.CurrentX - 4.0;
        s_.CaretY = out_.CurrentY;
    }
    out_.Print(" ", false);
}

void Typesetter::Exponent(const std::string& text) {
    const float keptSize = out_.FontSize;
    const double keptY = Keep(out_.CurrentY);
    out_.FontSize = ExponentFontSize;
    out_.CurrentY = Moved(out_.CurrentY, v_.ExponentUp, -1);
    // Inside an exponent only a root is an element; "#" and "/" print as they stand.
    const Cells<250> cells(text);
    for (int i = 1; i <= cells.Length(); ++i) {
        const char c = cells(i);
        if (c == '~')
            Root(cells.Until(i, '~'));
        else if (c != 0)
            PrintChar(c);
    }
    out_.FontSize = keptSize;
    out_.CurrentY = static_cast<float>(keptY);
}

float Typesetter::SideWidth(const std::string& side) {
    // Every character is weighed as plain text at the present size, those of an exponent at
    // 1/12 and the others at 1/10 of their width; a root's sign weighs nothing.
    const Cells<250> cells(side);
    float width = 0;
    bool inExponent = false;
    for (int i = 1; i <= cells.Length(); ++i) {
        const char c = cells(i);
        if (c == '^') {
            inExponent = !inExponent;
            continue;
        }
        if (c == '~' || c == '[' || c == ']') continue;
        width += out_.TextWidth(std::string(1, c)) / (inExponent ? 12.0f : 10.0f);
    }
    return width;
}

void Typesetter::Fraction(const std::string& text) {
    // The dividing "/" is the last one outside parentheses, bars and roots.
    int round = 0, bars = 0, roots = 0;
    std::string numerator, denominator;
    for (std::size_t k = 0; k < text.size(); ++k) {
        const char c = text[k];
        if (c == '(')
            ++round;
        else if (c == ')')
            --round;
        else if (c == '|')
            bars = bars >= 1 ? bars - 1 : bars + 1;
        else if (c == '~')
            roots = roots >= 1 ? roots - 1 : roots + 1;
        else if (c == '/' && round == 0 && bars == 0 && roots == 0) {
            numerator = text.substr(0, k);
            denominator = text.substr(k + 1);
        }
    }

    const float numeratorWidth = SideWidth(numerator);
    const float denominatorWidth = SideWidth(denominator);
    const std::string* longer = &numerator;
    int numeratorPadding = 0, denominatorPadding = 0;
    if (numeratorWidth < denominatorWidth) {
        longer = &denominator;
        numeratorPadding = static_cast<int>(RoundHalfEven(denominatorWidth - numeratorWidth, 0));
    } else if (denominatorWidth < numeratorWidth) {
        denominatorPadding = static_cast<int>(RoundHalfEven(numeratorWidth - denominatorWidth, 0));
    }

    const double x0 = Keep(out_.CurrentX);
    double barEnd = 0;
    out_.CurrentY = Moved(out_.CurrentY, v_.NumeratorUp, -1);
    if (numeratorPadding > 0) PrintOn(std::string(static_cast<std::size_t>(numeratorPadding), ' '));
    WalkInside(numerator, nullptr);
    if (numerator == *longer) barEnd = Keep(out_.CurrentX);

    out_.CurrentY = Moved(out_.CurrentY, v_.DenominatorDown, +1);
    out_.CurrentX = static_cast<float>(x0);
    if (denominatorPadding > 0)
        PrintOn(std::string(static_cast<std::size_t>(denominatorPadding), ' '));
    WalkInside(denominator, nullptr);
    s_.FractionEndX = ToInteger16(out_.CurrentX);
    if (denominator == *longer) barEnd = Keep(out_.CurrentX);

    // The bar is a row of underscores on the numerator's line; the pen stays at its end.
    out_.CurrentY = Moved(out_.CurrentY, v_.DenominatorDown, -1);
    out_.CurrentX = static_cast<float>(x0);
    Underscores(barEnd);
}

void Typesetter::Root(const std::string& text) {
    const double y0 = Keep(out_.CurrentY);
    const double x0 = Keep(out_.CurrentX);
    PrintOn("  "); // room for the sign
    out_.CurrentY = static_cast<float>(y0);
    RootNotes notes;
    WalkInside(text, &notes);
    double contentEnd = Keep(out_.CurrentX);

    // The overbar, higher over a fraction so that it clears the numerator.
    out_.CurrentY = Moved(out_.CurrentY, v_.OverbarUp, -1);
    out_.CurrentX = Moved(x0, v_.OverbarStart, +1);
    if (notes.FractionY != 0 && v_.OverbarUpWithFraction != 0)
        out_.CurrentY = Moved(out_.CurrentY, {v_.OverbarUpWithFraction, 0}, -1);
    Underscores(contentEnd);

    out_.CurrentY = static_cast<float>(y0);
    contentEnd = Keep(out_.CurrentX);
    out_.CurrentX = static_cast<float>(x0);
    if (notes.HasFraction) {
        // A tall sign in two pieces: "&" is its upper part, "~" below it the usual sign.
        out_.CurrentY = Moved(out_.CurrentY, {v_.TallUp, 0}, -1);
        out_.CurrentX = Moved(out_.CurrentX, {v_.TallRight, 0}, +1);
        PrintOn("&");
        out_.CurrentY = Moved(out_.CurrentY, {v_.TallDown, 0}, +1);
        out_.CurrentX = Moved(out_.CurrentX, {v_.TallLeft, 0}, -1);
        out_.Print("~", false);
    } else {
        out_.CurrentX = Moved(out_.CurrentX, {v_.PlainLeft, 0}, -1);
        if (v_.PlainUp != 0) out_.CurrentY = Moved(out_.CurrentY, {v_.PlainUp, 0}, -1);
        if (v_.PlainSignFont != nullptr) {
            out_.FontName = v_.PlainSignFont;
            out_.Print("~", false);
            out_.FontName = v_.PlainSignFontBack;
        } else {
            out_.Print("~", false);
        }
    }
    out_.CurrentX = static_cast<float>(contentEnd);
    out_.CurrentY = static_cast<float>(y0);
}

void Typesetter::WalkInside(const std::string& text, RootNotes* rootNotes) {
    // A fraction side holds exponents and roots, a root holds fractions and exponents.
    const char element = rootNotes != nullptr ? '#' : '~';
    const auto isMark = [element](char c) {
        return c == '^' || c == '[' || c == ']' || c == element;
    };
    const Cells<250> cells(text);
    for (int i = 1; i <= cells.Length(); ++i) {
        char c = cells(i);
        if (c == '^') {
            Exponent(cells.Until(i, '^'));
            ++i;
        } else if (c == element && rootNotes != nullptr) {
            rootNotes->FractionY = Keep(out_.CurrentY);
            Fraction(cells.Until(i, '#'));
            out_.CurrentY = static_cast<float>(rootNotes->FractionY);
            s_.CaretAfterFraction = true;
            rootNotes->HasFraction = true;
            ++i;
        } else if (c == element) {
            Root(cells.Until(i, '~'));
            ++i;
        } else if (c == '[') {
            out_.ForeColor = Red;
            ++i;
        } else if (c == ']') {
            out_.ForeColor = CloseColour();
            ++i;
        }
        c = cells(i);
        if (isMark(c)) {
            --i;
            continue;
        }
        if (c != 0) PrintChar(c);
    }
}

void Typesetter::Underscores(double end) {
    while (out_.CurrentX < end) {
        const float before = out_.CurrentX;
        PrintOn("_");
        // A surface whose "_" has no width would never reach the end.
        if (!(out_.CurrentX > before)) break;
    }
}

} // namespace

const TypesetVariant& VariantFor(TypesetTarget target) {
    switch (target) {
    case TypesetTarget::Printer:
        return PrinterVariant;
    case TypesetTarget::RegressionWindow:
        return RegressionVariant;
    case TypesetTarget::Screen:
        break;
    }
    return ScreenVariant;
}

void PrintEquation(Session& s, std::string& text, Surface& surface, const TypesetRequest& request) {
    try {
        Typesetter(s, surface, request).Equation(text);
    } catch (const std::exception&) {
        // The drawing of this text ends here. An exponent may have been at its small size;
        // the colour stays as it was. An empty title is the program's own name.
        s.Host().Dialogs().MsgBox(DisplayFailureText, MsgOkOnly, "");
        surface.FontSize = RowFontSize;
    }
}

void PrintEquation(Session& s, std::string& text, Surface& surface, bool wrap) {
    PrintEquation(s, text, surface, TypesetRequest{TypesetTarget::Screen, wrap, false, {}});
}

void PrintEquationOnPrinter(Session& s, std::string& text, Surface& printer, bool useColour,
                            const std::string& colourText) {
    PrintEquation(s, text, printer,
                  TypesetRequest{TypesetTarget::Printer, false, useColour, colourText});
}

void PrintRegressionEquation(Session& s, std::string& text, Surface& window) {
    PrintEquation(s, text, window,
                  TypesetRequest{TypesetTarget::RegressionWindow, false, false, {}});
}

void PrintFraction(Session& s, const std::string& text, Surface& surface,
                   const TypesetRequest& request) {
    Typesetter(s, surface, request).Fraction(text);
}

void PrintExponent(Session& s, const std::string& text, Surface& surface,
                   const TypesetRequest& request) {
    Typesetter(s, surface, request).Exponent(text);
}

void PrintRoot(Session& s, const std::string& text, Surface& surface,
               const TypesetRequest& request) {
    Typesetter(s, surface, request).Root(text);
}

} // namespace vt
