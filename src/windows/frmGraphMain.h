#pragma once
// The main window: the menu bar, the toolbar, the five function rows, the graph box and the
// coordinates readout. It is thin: each event runs a command of the session (MainCommands,
// the entry, the view control) and then mirrors the session into the widgets. Its layout is
// the designed one, in twips turned into pixels at 15 twips a pixel.

#include <QMainWindow>
#include <QPointer>
#include <array>
#include <map>
#include <memory>
#include <string>

#include "session/Session.h"

class QAction;
class QLabel;
class QMenu;
class QPrinter;
class QToolBar;
class QToolButton;
class QTreeWidget;

namespace vt {

class Platform;

namespace render {
class RasterSurface;
}

namespace app {
class SurfaceView;
class ColourSwatch;
class ClickLabel;
} // namespace app

class RegressionPanel;

struct MainWindowOptions {
    bool ShowSplash = true;
    // The command line as given: one optional graph data file name.
    std::string CommandLine;
    // The program's own folder, where "Saved Problems" goes; empty for the executable's.
    std::string ProgramDir;
    // The printer that Print Setup chooses and Print Graph prints on; the window's own when
    // null.
    QPrinter* Printer = nullptr;
};

// It is also the session's host: the logic reaches the rows, the graph box, the dialogs and the
// other windows through it.
class frmGraphMain : public QMainWindow, public Shell {
  public:
    frmGraphMain(Session& s, Platform& platform, MainWindowOptions options = {},
                 QWidget* parent = nullptr);
    ~frmGraphMain() override;

    // The program's start: the session's start, the folder for graph data, the splash, the
    // first paint, the window shown, a file named on the command line, the focus to row 0.
    void Form_Load();
    // The end of the session: the other windows close with this one. Nothing is saved.
    void Form_Unload();

    // Shows the session in the widgets.
    void Mirror();

    // Events, as the widgets deliver them; public so that they can be driven directly.
    void MenuClick(const std::string& name);
    void ToolbarClick(int index);
    void ToolbarMenuClick(int index, const std::string& entry);

    // The controls, by their designed names.
    QAction* MenuItem(const std::string& name) const;
    QMenu* MenuOf(const std::string& name) const; // a menu title or a submenu
    QToolButton* ToolbarButton(int index) const;  // 1..16; null for a separator
    QToolBar* Toolbar1() const { return toolbar_; }
    app::SurfaceView* Paper(int index) const { return papers_[static_cast<std::size_t>(index)]; }
    QLabel* Label1(int index) const { return labels_[static_cast<std::size_t>(index)]; }
    app::ColourSwatch* Picture1(int index) const {
        return swatches_[static_cast<std::size_t>(index)];
    }
    QToolButton* Blinker() const { return blinker_; }
    app::ClickLabel* Label2() const { return label2_; }
    app::SurfaceView* frmGraph() const { return graph_; }
    QToolButton* Command2() const { return command2_; }
    QToolButton* Command6() const { return command6_; }
    QTreeWidget* ListView1() const { return listView1_; }
    QWidget* ClientArea() const { return client_; }
    RegressionPanel* Panel() const { return panel_; }

    // The session's host.
    Platform& Dialogs() override;
    Surface* GraphBox() override;
    Surface* RowSurface(int row) override;
    bool FocusRow(int row) override;
    void GraphCommand() override;
    bool RunCommand(HostCommand command, int index) override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void BuildMenus();
    void BuildToolbar();
    void BuildRows();
    void BuildGraphBox();
    void BindSession();
    void MakeSavedProblemsFolder();
    // Copy Graph: the graph box's picture to the clipboard.
    void CopyGraph();
    void MirrorRows();
    void MirrorListView();
    // Save Graph Data, Load Graph Data (the replay under the hourglass), Save Graph As Bitmap
    // and Print Graph.
    bool RunFileCommand(HostCommand command);
    // Print Options: modal over a modal dialog (the area dialog's Print Graph), not modal from
    // the menu.
    void ShowPrintSetup();
    QPrinter& Printer();
    void BuildRegressionPanel();
    // Regression mode on or off, and the focus where the switch says.
    void SwitchMode();

    Session& s_;
    Platform& platform_;
    MainWindowOptions options_;

    QWidget* client_ = nullptr;
    QToolBar* toolbar_ = nullptr;
    std::array<QToolButton*, 17> buttons_{}; // by the toolbar's index, 1..16
    std::map<std::string, QAction*, std::less<>> menuItems_;
    std::map<std::string, QMenu*, std::less<>> menus_;

    std::unique_ptr<render::RasterSurface> graphSurface_;
    std::array<std::unique_ptr<render::RasterSurface>, UsableSlots> paperSurfaces_;
    app::SurfaceView* graph_ = nullptr;
    QWidget* shape1_ = nullptr;
    QTreeWidget* listView1_ = nullptr;
    std::array<app::SurfaceView*, UsableSlots> papers_{};
    std::array<QLabel*, UsableSlots> labels_{};
    std::array<app::ColourSwatch*, UsableSlots> swatches_{};
    QToolButton* blinker_ = nullptr;
    app::ClickLabel* label2_ = nullptr;
    QToolButton* command2_ = nullptr;
    QToolButton* command6_ = nullptr;

    // The dialogs while a load runs; the platform's otherwise.
    Platform* loadDialogs_ = nullptr;
    std::unique_ptr<QPrinter> ownPrinter_;
    QPointer<QWidget> printSetup_; // the open Print Options, not modal
    RegressionPanel* panel_ = nullptr;
};

} // namespace vt
