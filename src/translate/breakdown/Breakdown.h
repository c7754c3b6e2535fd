#pragma once
// The equation breakdown: a second reading of an equation, beside the evaluator text. The token
// list in BreakdownTokens is split at its relation sign, and a side is read into a table of terms,
// each a signed rational coefficient (numerator and denominator) and the text of its letters;
// char2str_graph writes a side back as a normal-form text ("+2/1x^+2+1/1S").
//
// Nothing in the windows calls it. Every entry point reports the run-time error that stopped it
// (a subscript out of a table's bounds, a text that is no number, an overflow, a division by
// zero) as its result; the tables stay as the error left them.

#include <string>
#include <string_view>
#include <vector>

#include "session/Session.h"

namespace vt {

enum class BreakdownError { None, Subscript, TypeMismatch, Overflow, DivisionByZero };

// "Subscript out of range", "Type mismatch", "Overflow", "Division by zero"; "" for None.
const char* BreakdownErrorName(BreakdownError error);

// Resets the term tables of the current side: groups 0 to 5 (15 when wide), in each the parts in
// use and five more (fifteen), in each part the terms in use and four more (fourteen). So a run
// finds clean only the rows near what the last run used.
BreakdownError ClearBreakdown(BreakdownState& b, bool wide);

// Joins the characters of each number into one cell ("1", "2", ".", "5" into "12.5"; "3", "/",
// "4" into "3/4" when a plain number follows the "/"). BreakdownCount ends three past the last.
BreakdownError MergeBreakdownTokens(BreakdownState& b);
// Makes every term's sign explicit (a leading "+", a sign after each "(", "|" and "="), drops a
// "*" in front of "(" unless it stands behind a fraction, and moves the list to start at cell 1.
BreakdownError NormaliseBreakdownSigns(BreakdownState& b);
// BreakdownCount becomes the first empty cell from cell 1 on.
BreakdownError TrimBreakdownCount(BreakdownState& b);
// The cell of the relation sign ("<", "=", ">"; the "=" of "<=" and ">="), or BreakdownCount.
BreakdownError FindRelation(const BreakdownState& b, int& position);

// A number with an "E" as plain text: the mantissa times ten to the digits from the second
// character after the "E" on. The character right after the "E" is taken as its sign whatever it
// is, so "1E-5" and "1E+5" both give "100000" and "1E5" has no digits left (a type mismatch).
// Text without "E" comes back as it is.
BreakdownError ExpandENotation(const std::string& s, std::string& out);
// A "/" in s as a quotient: the numbers on either side of a "/" (up to the next "/" or the end),
// the last "/" deciding, quotient rounded to FractionDigits places when roundIt. Text without "/"
// comes back as it is; a zero divisor gives "".
BreakdownError FractionValue(const BreakdownState& b, const std::string& s, bool roundIt,
                             std::string& out);

// Reads one side (BreakdownSide) of the tokens into the tables: clears them, normalises the signs,
// and walks the side.
BreakdownError ParseBreakdown(Session& s);
// MergeBreakdownTokens, then ParseBreakdown.
BreakdownError BreakdownEquation(Session& s);
// The left side's normal-form text: each term of the first part of group 0 as its sign, numerator,
// "/", denominator and letters, every "^" written "^+".
BreakdownError char2str_graph(Session& s, std::string& text);

// The text of a single-precision number: at most seven significant digits, plain from 0.0001 up
// to seven whole digits, otherwise with an exponent ("0.1", "0.3333333", "1E+07", "1E-05").
std::string SingleText(float value);

// Bringing an equation in. The tokens of a row, from cell 0, with BreakdownCount their number.
BreakdownError CopySlotToBreakdown(Session& s, int slot);
// Given tokens, one a cell from cell 0; more than the 2001 cells is a subscript error.
BreakdownError SetBreakdownTokens(BreakdownState& b, const std::vector<std::string>& tokens);
// A token list written with blanks between the tokens.
std::vector<std::string> SplitBreakdownTokens(std::string_view text);

// One run as char2str_graph makes it, with what each stage left.
struct BreakdownTermSummary {
    float Num = 0;
    float Den = 0;
    std::string Letters;
};
struct BreakdownRun {
    std::vector<std::string> Merged;             // tokens after MergeBreakdownTokens
    std::vector<std::string> Normalised;         // tokens after NormaliseBreakdownSigns
    std::string Text;                            // the normal-form text of the left side
    std::vector<BreakdownTermSummary> Terms;     // the first part of group 0, left side
    BreakdownError Error = BreakdownError::None; // what stopped the run; then no text or terms
};
BreakdownRun RunBreakdown(Session& s);

} // namespace vt
