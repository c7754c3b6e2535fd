#include "commands/SaveLoad.h"

#include <algorithm>
#include <cmath>
#include <exception>

#include "base/NumberText.h"
#include "base/Surface.h"
#include "commands/KeyStroke.h"
#include "commands/MainCommands.h"
#include "entry/Entry.h"
#include "output/Bitmap.h"
#include "output/DataFile.h"
#include "output/SafeFile.h"
#include "plot/PointSeries.h"
#include "plot/View.h"
#include "translate/breakdown/Breakdown.h"

namespace vt {

namespace {

// The order list of Combo1: "2" at index 0 up to "10" at index 8.
constexpr int LowestOrder = 2;
constexpr int HighestOrderIndex = 8;

FileDialogRequest DialogRequest(const Session& s, const char* title, const std::string& filter,
                                const std::string& fileName, const char* extension) {
    FileDialogRequest request;
    request.Title = title;
    request.Filter = filter;
    request.InitialDir = s.SavedProblemsDir;
    request.FileName = fileName;
    request.DefaultExt = extension;
    return request;
}

// Combo1's list index from a file's order field: the field's leading number less 2, rounded to
// a whole number half to even as an index is. No value outside the list.
std::optional<int> OrderIndex(const std::string& field) {
    const double index = RoundHalfEven(PrefixNumber(field) - LowestOrder, 0);
    if (!(index >= 0 && index <= HighestOrderIndex)) return std::nullopt;
    return static_cast<int>(index);
}

// A trend chosen with the series just emptied: the options' clicks and the order's come down
// to the fit's new degree, as there are no points to feed again.
void ApplyTrendToEmptySeries(Session& s, int degree) {
    s.FitObject.SetDegree(degree);
    RedrawRegression(s);
}

void Message(Session& s, const char* text) {
    s.Host().Dialogs().MsgBox(text, MsgOkOnly, "");
}

} // namespace

FileDialogRequest SaveDataDialogRequest(Session& s, const std::string& proposedName) {
    s.DialogFilter = DataFileFilter;
    return DialogRequest(s, "Save Graph Data As", s.DialogFilter, proposedName, "vtx");
}

FileDialogRequest LoadDataDialogRequest(const Session& s) {
    return DialogRequest(s, "Load Graph Data", s.DialogFilter, "", "vtx");
}

FileDialogRequest SaveBitmapDialogRequest(Session& s, const std::string& proposedName) {
    s.DialogFilter = BitmapFileFilter;
    return DialogRequest(s, "Save Graph Bitmap As", s.DialogFilter, proposedName, "bmp");
}

std::optional<std::string> GraphDataText(const Session& s) {
    GraphDataFields fields;
    for (int slot = 0; slot < UsableSlots; ++slot)
        fields.Slots[static_cast<std::size_t>(slot)] = EntryText(s, slot);
    const int count = s.FitObject.XYCount();
    // The fit goes on counting past the points kept; such a series cannot be written.
    if (count > PointsCapacity) return std::nullopt;
    for (int i = 1; i <= count; ++i)
        fields.Points.push_back({s.Points(i - 1).X, s.Points(i - 1).Y});
    fields.Linear = s.Panel.LinearOn;
    fields.OrderText = s.Panel.Combo1;
    return BuildDataText(fields);
}

bool WriteGraphDataFile(const std::string& path, const std::string& dataText) {
    return WriteFileReplacing(path, dataText + std::string(DataLineEnd)).Written;
}

bool LoadGraphDataText(Session& s, const std::string& text) {
    ClearAllRows(s);
    // The term tables of the equation breakdown go with the rows they were read from.
    ClearBreakdown(s, false);
    for (int i = 1; i <= 4; ++i)
        s.RowVisible(i) = false;
    s.BlinkerLeft = BlinkerHomeLeft;
    s.BlinkerTop = BlinkerHomeTop;
    s.BlinkerVisible = true;
    s.MousePointer = HourglassPointer;

    const std::vector<std::string> fields = SplitFields(text);

    // The rows' texts go through the entry rules key by key, as if typed; the trigonometric
    // letters pass as they do from the Insert menu. A text too short for five rows ends the
    // load at the first missing row, with the letters still passing.
    s.TrigFromMenu = true;
    int lastUsed = 0;
    for (int slot = 0; slot < UsableSlots; ++slot) {
        s.ActiveSlot = slot;
        if (static_cast<std::size_t>(slot) >= fields.size()) return false;
        for (char c : fields[static_cast<std::size_t>(slot)]) {
            Paper_KeyPress(s, slot, static_cast<unsigned char>(c));
            lastUsed = slot;
        }
    }
    s.TrigFromMenu = false;
    s.ActiveSlot = 0;
    s.ShownRows = 0;

    // Every row up to the last used one shows, empty or not.
    for (int i = 0; i < lastUsed; ++i) {
        s.QuietSlotReveal = true;
        Blinker_Click(s);
        s.QuietSlotReveal = false;
    }

    FocusRow(s, 0);
    // The panel empties its table with the series.
    ClearSeries(s);

    // Counted from the end: the trend, then the order, then what followed the last separator.
    const std::size_t u = fields.size() - 1;
    // Switching an option on runs its click; the other goes off with it.
    if (fields[u - 2] == "False") {
        s.Panel.LinearOn = false;
        s.Panel.PolynomialOn = true;
        ApplyTrendToEmptySeries(s, static_cast<int>(PrefixNumber(s.Panel.Combo1)));
    } else {
        s.Panel.PolynomialOn = false;
        s.Panel.LinearOn = true;
        ApplyTrendToEmptySeries(s, 1);
    }

    const std::optional<int> index = OrderIndex(fields[u - 1]);
    if (!index) return false;
    // Choosing an order applies it only while Polynomial is on.
    s.Panel.Combo1 = std::to_string(*index + LowestOrder);
    if (s.Panel.PolynomialOn) ApplyTrendToEmptySeries(s, *index + LowestOrder);

    for (std::size_t i = 5; i + 3 <= u; i += 2) {
        const double x = PrefixNumber(fields[i]);
        const double y = PrefixNumber(fields[i + 1]);
        if (s.FitObject.XYAdd(x, y)) return false;
        // The point past the last one kept is counted by the fit all the same.
        const int count = s.FitObject.XYCount();
        if (count > PointsCapacity) return false;
        s.Points(count - 1) = {x, y};
    }
    RedrawRegression(s);
    return true;
}

void mnuSave_Click(Session& s) {
    const std::optional<std::string> text = GraphDataText(s);
    if (!text) {
        Message(s, SaveFailedText);
        return;
    }
    SaveDataDialog(s, *text, ProposedDataFileName(Today()));
}

bool SaveDataDialog(Session& s, const std::string& dataText, const std::string& proposedName) {
    const FileDialogRequest request = SaveDataDialogRequest(s, proposedName);
    const std::optional<std::string> path = s.Host().Dialogs().SaveFileName(request);
    if (!path) return false;
    return WriteGraphDataFile(*path, dataText);
}

std::string LoadDataDialog(Session& s) {
    const FileDialogRequest request = LoadDataDialogRequest(s);
    const std::optional<std::string> path = s.Host().Dialogs().OpenFileName(request);
    std::string text;
    if (!path || !ReadWholeFile(*path, text)) return {};
    return text;
}

void mnuLoad_Click(Session& s) {
    std::string text;
    bool opened = true;
    if (!s.CommandFile.empty()) {
        std::string path = s.CommandFile;
        path.erase(std::remove(path.begin(), path.end(), '"'), path.end());
        opened = ReadWholeFile(path, text);
    } else {
        text = LoadDataDialog(s);
    }
    bool loaded = true;
    if (opened && !text.empty()) {
        try {
            loaded = LoadGraphDataText(s, text);
        } catch (const std::exception&) {
            // A row's rules or the series failing on their own: the same message, and what
            // was done stays done.
            loaded = false;
        }
    }
    if (!opened || !loaded) Message(s, OpenFailedText);
    s.MousePointer = s.DefaultPointer;
}

void LoadCommandFile(Session& s, const std::string& commandLine) {
    s.CommandFile = commandLine;
    // The whole command line is the name, blanks around it aside.
    const auto first = s.CommandFile.find_first_not_of(" \t");
    const auto last = s.CommandFile.find_last_not_of(" \t");
    s.CommandFile = first == std::string::npos ? "" : s.CommandFile.substr(first, last - first + 1);
    if (!s.CommandFile.empty()) mnuLoad_Click(s);
    s.CommandFile.clear();
}

void mnuBitMap_Click(Session& s) {
    SaveBitmapDialog(s, ProposedBitmapFileName(Today()));
}

void SaveBitmapDialog(Session& s, const std::string& proposedName) {
    const FileDialogRequest request = SaveBitmapDialogRequest(s, proposedName);
    Surface* box = s.Host().GraphBox();
    if (box == nullptr) return;
    const std::optional<std::string> path = s.Host().Dialogs().SaveFileName(request);
    if (!path) return;
    const std::string bytes = EncodeBitmap(box->Image());
    if (!bytes.empty()) WriteFileReplacing(*path, bytes);
}

} // namespace vt
