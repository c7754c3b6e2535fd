#pragma once
// The program's dialogs with Qt: message boxes in the classic button and icon styles, the colour
// chooser, file dialogs with the program's filter texts, the printer dialog, and help and web
// pages through the desktop's own programs.

#include <QPointer>
#include <QString>
#include <memory>

#include "base/Platform.h"

class QPrinter;
class QWidget;

namespace vt::windows {
class HelpBrowser;
}

namespace vt::app {

// "Veritrace files (.vtx)|*.vtx|All (*.*)|*.*" to "Veritrace files (.vtx) (*.vtx);;All (*.*)":
// caption and pattern pairs, the patterns joined by ";" becoming a space-separated list. A
// caption that already ends with its own patterns in parentheses is kept as it is.
QString QtFilterFromPairs(const std::string& filter);

class QtPlatform : public Platform {
  public:
    QtPlatform();
    ~QtPlatform() override;

    // The window the dialogs belong to; none until the main window stands.
    void SetParent(QWidget* parent) { parent_ = parent; }

    int MsgBox(const std::string& prompt, int style, const std::string& title) override;
    Colour ChooseColour(Colour start) override;
    std::optional<std::string> OpenFileName(const FileDialogRequest& request) override;
    std::optional<std::string> SaveFileName(const FileDialogRequest& request) override;
    // The printer dialog in setup mode: it chooses the printer that printing then uses.
    bool ChoosePrinter() override;
    // Shows a page of the help book in the program's help window, on its Index tab.
    void ShowHelp(const std::string& topic) override;
    // Opens a web address, or a page shipped with the program (a path), in the desktop's
    // browser.
    void OpenWebPage(const std::string& address) override;
    // The help window, once help has been shown.
    windows::HelpBrowser* HelpWindow() const;

    // The printer chosen with ChoosePrinter, the system's default until then.
    QPrinter& Printer();

  private:
    QWidget* parent_ = nullptr;
    std::unique_ptr<QPrinter> printer_;
    QPointer<windows::HelpBrowser> help_;
};

} // namespace vt::app
