#pragma once
// Curve tracing: the inner loop of the paint. For each filled slot it samples the function
// across the view, joins the samples, decides where a curve breaks, carries the two sides of a
// pole to the edge of the view and fills the coordinates list. Also the Graph button's
// auto-scaling, which doubles the view until a curve shows.

#include <optional>

#include "base/Surface.h"
#include "plot/Evaluate.h"
#include "session/Session.h"

namespace vt {

// The paint's one failure handler. Any statement of a paint may fail (a value "NA" read as a
// number, a break beyond the end of the break list, a coordinates key past 255, a number too
// large for the surface or for a whole-number conversion). A failure does not stop the paint:
// it inverts SampleFailed, sets ProbeFailed and SkipSegment, and the paint goes on with the
// next statement. The tracing reads these flags to decide about breaks and poles, so the rule
// is the tracing's own logic and not just error handling.
//
// Each statement that can fail runs through Run (a statement answers false when it failed part
// way; the rest of it is abandoned) or, for the condition of an If or a While, through If, where
// a failed condition counts as true so that the body runs. A condition evaluates all of its
// operands, with no short cut, until one fails.
class PaintTrap {
  public:
    bool SampleFailed = false; // the sample in hand has no value (toggled by each failure)
    bool ProbeFailed = false;  // a failure happened since this was last cleared
    bool SkipSegment = false;  // the next segment that would be drawn is dropped instead
    int Failures = 0;          // failures caught in this paint

    void Fail() {
        SampleFailed = !SampleFailed;
        ProbeFailed = true;
        SkipSegment = true;
        ++Failures;
    }

    template <class Statement> void Run(Statement&& statement) {
        if (!statement()) Fail();
    }

    template <class Condition> bool If(Condition&& condition) {
        const std::optional<bool> held = condition();
        if (!held) {
            Fail();
            return true;
        }
        return *held;
    }
};

// The working values of one paint that the painter and the tracing share. PrevX and PrevY are
// not reset between slots or passes, ListIndex not between passes.
struct PaintRun {
    PaintTrap Trap;
    double PrevX = 0;
    double PrevY = 0;
    double SampleY = 0;
    int ListIndex = 0; // items added to the coordinates list in this paint
    int ScanCount = 0;
};

// Conversions whose failure is a failure of the statement that makes them.
// To single precision, as every coordinate goes to the surface.
std::optional<float> ToSingle(double value);
// To a 32-bit whole number, halves to even.
std::optional<long> ToLong(double value);
// To a 16-bit whole number, halves to even.
std::optional<int> ToInteger(double value);
// A colour kept as decimal text.
std::optional<Colour> ColourValue(const std::string& text);
// A line (or with outline, the box) between two points in view units; false when a coordinate
// does not fit the surface.
bool LineStatement(Surface& box, double x1, double y1, double x2, double y2, bool outline = false);

// The value of a slot at x as the painter reads it: no value for "NA".
std::optional<double> PaintValue(Session& s, double x, int slot);

// Adds an entry to the break list (three statements, each of which fails beyond entry 1000).
void RecordBreak(Session& s, PaintTrap& trap, double x);

// Traces slots 0 to LastFilledSlot on the box, with the pen and fill colour that the painter
// set for slot 0.
void TraceSlots(Session& s, Surface& box, PaintRun& run);

// The toolbar's Graph command: draws, and doubles the view until a curve shows, at most
// fourteen times; failing that, resets the view and says so through the session's host.
void AutoGraph(Session& s);

} // namespace vt
