#pragma once
// Print Options: the two heading lines of the printed page, the printer it goes to, "Setup..."
// to choose another printer, "Preview..." to see the page first, OK to print and Cancel. The
// heading starts again from its defaults each time the dialog opens.
//
// Where the printer is no real one (a machine without printers, or a printer set to write a
// PDF without a file name), OK asks where to write the page as a PDF file.

#include <QDialog>

#include "output/PrintGraph.h"
#include "session/Session.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QPrinter;
class QPushButton;

namespace vt {

inline constexpr const char* PrintSetupCaption = "Print Options";
inline constexpr const char* PrintToPdfName = "Print to PDF";
inline constexpr const char* PrintToPdfTitle = "Print Graph to PDF";
inline constexpr const char* PdfFileFilter = "PDF files (.pdf)|*.pdf";

class frmPrintSetup : public QDialog {
  public:
    // Prints on `printer`, which the caller keeps: the one "Print Setup" chooses.
    frmPrintSetup(Session& s, QPrinter& printer, QWidget* parent = nullptr);

    // The heading as it stands in the two boxes.
    PrintHeading Heading() const;

    // Shows the printer's name in Label1.
    void RefreshPrinterName();

    void Command1_Click(); // Cancel
    void Command2_Click(); // OK: print, then close
    void Command3_Click(); // Setup...
    void Preview_Click();  // the page in the system's print preview

    QGroupBox* Frame1() const { return frame1_; }
    QGroupBox* Frame2() const { return frame2_; }
    QLineEdit* Text1() const { return text1_; }
    QLineEdit* Text2() const { return text2_; }
    QLabel* Label1() const { return label1_; }
    QPushButton* Command1() const { return command1_; }
    QPushButton* Command2() const { return command2_; }
    QPushButton* Command3() const { return command3_; }
    QPushButton* PreviewButton() const { return preview_; }

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    // Whether printing would reach nothing: no printer at all, or a PDF with no file named.
    bool NeedsPdfFile() const;

    Session& s_;
    QPrinter& printer_;
    QGroupBox* frame1_ = nullptr;
    QGroupBox* frame2_ = nullptr;
    QLineEdit* text1_ = nullptr;
    QLineEdit* text2_ = nullptr;
    QLabel* label1_ = nullptr;
    QPushButton* command1_ = nullptr;
    QPushButton* command2_ = nullptr;
    QPushButton* command3_ = nullptr;
    QPushButton* preview_ = nullptr;
};

// Today's date in the user's short form: the second heading line as the dialog opens.
std::string TodayShortDate();

// The page drawn on a printer, as OK draws it: the job started, the page, the job ended and
// then killed. False when the printer would not start or the page failed.
bool PrintPage(Session& s, QPrinter& printer, const PrintHeading& heading);

} // namespace vt
