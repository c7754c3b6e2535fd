#pragma once
// The graphable expression builder: from a row's grouped tokens it decides where exponents,
// roots and fractions end, and makes the marked-up display text and the evaluator text.

#include <string>

#include "session/Session.h"

namespace vt {

// What a run of the builder made of a row. The row keeps the same in its cells and flags
// (DisplayTokens, GraphableCells, SlotIncomplete); what the window shows of it, and whether the
// graph commands open, is for the caller to decide.
struct GraphableRow {
    std::string Display;     // the marked-up display text (cells 0..1000 of DisplayTokens)
    std::string Evaluator;   // the evaluator text, x still free
    bool Incomplete = false; // the row cannot be graphed as it stands
};

// One run over the active row's grouped tokens. A row too long for the working grids ends the
// run with SubscriptError, for the keystroke to roll back.
GraphableRow BuildGraphable(Session& s);

// Cells 0..2000 of GraphableCells of the slot joined.
std::string GraphableText(const Session& s, int slot);
// Cells 0..1000 of DisplayTokens of the slot joined, and whether that text has anything in it.
std::string DisplayText(const Session& s, int slot);
bool HasDisplayText(const Session& s, int slot);

} // namespace vt
