#pragma once
// What the typesetter leaves behind after printing a text: where an insertion mark would go.
// No mark is drawn (the rows show no caret); the values are kept so that the position of the
// end of an equation can be read after it is printed.

namespace vt {

struct DisplayState {
    double CaretX = 0;               // the pen's X less 4 at the end of a row's text
    double CaretY = 0;               // the pen's Y there
    bool CaretAfterFraction = false; // the last thing printed was a fraction
    int FractionEndX = 0;            // the pen's X after the last denominator, a 16-bit integer
};

} // namespace vt
