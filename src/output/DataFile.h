#pragma once
// The graph data file as text: one line in which every field is followed by "BB" and the line
// ends with CR LF. Fields 0 to 4 are the typed keys of the five rows, then X and Y of every
// point, then the trend ("True" for Linear, "False" for Polynomial) and the order as Combo1
// shows it. There is no header and no escape; the reader replays the rows' texts as keys, so
// this module only builds and splits the line.
//
// The file is single-byte text (Latin-1): a byte is a character is a key code. Every token of a
// row is plain ASCII, so a file written here reads the same in any single-byte code page.

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace vt {

inline constexpr std::string_view FieldSeparator = "BB";
inline constexpr std::string_view DataLineEnd = "\r\n";

struct PointXY {
    double X = 0;
    double Y = 0;
};

// What a data file holds.
struct GraphDataFields {
    std::array<std::string, 5> Slots; // the keys of rows 0 to 4, as typed
    std::vector<PointXY> Points;      // in entry order
    bool Linear = true;               // the Linear option; false is Polynomial
    std::string OrderText = "2";      // Combo1's text, "2" to "10"
};

// The data text, every field followed by the separator, without the line end. Numbers are
// written in the general number text (15 significant digits, "." as the mark).
std::string BuildDataText(const GraphDataFields& fields);

// Splits a text at every separator, left to right and without overlap ("BBB" gives "" and "B").
// The piece after the last separator is a field too, so "aBB" gives "a" and "". An empty text
// gives no fields at all.
std::vector<std::string> SplitFields(std::string_view text);

// The calendar day that the proposed file names and the print heading use.
struct CalendarDate {
    int Year = 2000;
    int Month = 1;
    int Day = 1;
};
CalendarDate Today();

// "mm-dd-yy", the date in the proposed file names.
std::string FileNameDate(const CalendarDate& date);
// "Veritrace mm-dd-yy" and "GraphBitmap mm-dd-yy"; the extension comes from the dialog.
std::string ProposedDataFileName(const CalendarDate& date);
std::string ProposedBitmapFileName(const CalendarDate& date);

} // namespace vt
