#pragma once
// The session every command starts from: the program just started, with nobody at the window.
// Its message boxes are kept for the output and every question gets its default answer; the
// rows and the graph box get image surfaces only when a command draws.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/CliPlatform.h"
#include "cli/Command.h"
#include "render/RasterSurface.h"
#include "session/Session.h"

namespace vt::cli {

class HeadlessSession {
  public:
    // The session as the program's start leaves it.
    HeadlessSession();
    HeadlessSession(const HeadlessSession&) = delete;
    HeadlessSession& operator=(const HeadlessSession&) = delete;

    Session& S() { return *session_; }
    // The messages the program showed, in order.
    const std::vector<std::string>& Messages() const { return dialogs_.Messages; }

    // Gives the five rows their surfaces, so that typing typesets them.
    void AttachRows();
    // The row's surface; AttachRows first.
    const render::RasterSurface& Row(int slot) const;
    // Gives the session a graph box of the size given, in pixels.
    render::RasterSurface& AttachGraphBox(int pixelWidth, int pixelHeight);

    // Lends the session a surface of the caller's as the graph box, or as a row's.
    void LendGraphBox(Surface& box);
    void LendRow(int slot, Surface& row);

    // Fills the rows from the key strings, rows 0 upward, as loading a graph data file does.
    void LoadRows(const std::vector<std::string>& keys);

    // The functions of a command: the rows from the key strings, or, when a file is named, the
    // whole session that graph data file loads into (rows, points, trend), loaded as the window
    // loads a file named on its command line. Gives the key strings of the rows (with a file,
    // the texts the rows hold after the load), or none when the load showed its message, which
    // goes to the error output.
    std::optional<std::vector<std::string>> LoadFunctions(const std::vector<std::string>& keys,
                                                          const std::string& file, Output& out);

  private:
    std::unique_ptr<Session> session_;
    CliPlatform dialogs_;
    HeadlessShell host_;
    std::vector<std::unique_ptr<render::RasterSurface>> rows_;
    std::unique_ptr<render::RasterSurface> graphBox_;
};

} // namespace vt::cli
