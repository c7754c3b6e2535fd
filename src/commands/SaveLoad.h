#pragma once
// Save Graph Data, Load Graph Data and Save Graph As Bitmap, against the session. The dialogs
// and the messages go through s.Host; without one (the companion), the dialogs answer as
// cancelled and the routines that take a path are used instead.

#include <optional>
#include <string>

#include "base/Platform.h"
#include "session/Session.h"

namespace vt {

inline constexpr const char* OpenFailedText = "Veritrace could not open the specified file.";
inline constexpr const char* SaveFailedText = "Veritrace could not save the specified file.";

inline constexpr const char* DataFileFilter = "Veritrace files (.vtx)|*.vtx";
inline constexpr const char* BitmapFileFilter = "bitmap files (.bmp)|*.bmp";

// The mouse pointer while a load replays its keys.
inline constexpr int HourglassPointer = 11;

// The dialogs as each command opens them, in the folder for saved problems. The save dialogs
// ask before replacing a file; the load dialog takes only a file that exists. The save dialogs
// leave their filter on the shared dialog; the load dialog shows it.
FileDialogRequest SaveDataDialogRequest(Session& s, const std::string& proposedName);
FileDialogRequest LoadDataDialogRequest(const Session& s);
FileDialogRequest SaveBitmapDialogRequest(Session& s, const std::string& proposedName);

// The data text of the session: the rows' keys, the points, the trend and the order. No value
// when the series has outgrown the points kept (501 points and more).
std::optional<std::string> GraphDataText(const Session& s);

// Writes a data text as the file's one line, CR LF at its end, replacing the file whole.
bool WriteGraphDataFile(const std::string& path, const std::string& dataText);

// The rows, the series and the trend rebuilt from a file's whole text, as a load does: the rows
// cleared and the keys replayed through the entry rules, the rows up to the last used revealed,
// the series emptied and the trend, the order and the points set. False where the text is no
// graph data file; what was done before that stays. The hourglass is left on: the caller puts
// the pointer back.
bool LoadGraphDataText(Session& s, const std::string& text);

// The menu commands. Save reports a series it cannot write; load reports a file it cannot
// open or read as graph data. Cancelled dialogs and failed writes say nothing.
void mnuSave_Click(Session& s);
void mnuLoad_Click(Session& s);
void mnuBitMap_Click(Session& s);

// The file named on the command line, loaded as mnuLoad_Click loads CommandFile at start: the
// double quotes dropped wherever they stand.
void LoadCommandFile(Session& s, const std::string& commandLine);

// The dialog halves of the commands: true when the file was written; the whole text of the
// chosen file, or the empty string on cancel or any failure.
bool SaveDataDialog(Session& s, const std::string& dataText, const std::string& proposedName);
std::string LoadDataDialog(Session& s);
// The graph box's picture as a bitmap, through the dialog. Nothing happens without a graph
// box, on cancel, or on a failed write.
void SaveBitmapDialog(Session& s, const std::string& proposedName);

} // namespace vt
