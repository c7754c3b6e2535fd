#pragma once
// The graphable expression builder: from a row's grouped tokens it decides where exponents,
// roots and fractions end, and makes the marked-up display text and the evaluator text.

#include <string>

#include "session/Session.h"

namespace vt {

// One run over the active row. Returns the new display text (cells 0..1000 of DisplayTokens).
std::string BuildGraphable(Session& s);
// The whole work of a run; always true.
bool GraphablePass(Session& s);

// Cells 0..2000 of GraphableCells of the slot joined.
std::string GraphableText(const Session& s, int slot);
// Cells 0..1000 of DisplayTokens of the slot joined.
std::string DisplayText(const Session& s, int slot);

} // namespace vt
