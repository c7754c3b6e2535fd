#include "app/QtPlatform.h"

#include <QColorDialog>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QStringList>
#include <QUrl>

#include "windows/HelpBrowser.h"

namespace vt::app {

namespace {

// What the message boxes say when the caller gives no title: the program's name.
const char* const ProgramTitle = "Veritrace";

QColor QColorFromColour(Colour colour) {
    return QColor(static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
                  static_cast<int>((colour >> 16) & 0xFF));
}

Colour ColourFromQColor(const QColor& colour) {
    return static_cast<Colour>(colour.red()) | (static_cast<Colour>(colour.green()) << 8) |
           (static_cast<Colour>(colour.blue()) << 16);
}

// The buttons of a style, in the order the classic box shows them, with what each answers.
struct StyleButton {
    QMessageBox::StandardButton Button;
    int Answer;
};

std::vector<StyleButton> ButtonsOf(int style) {
    switch (style & 7) {
    case 1:
        return {{QMessageBox::Ok, MsgResultOk}, {QMessageBox::Cancel, MsgResultCancel}};
    case 2:
        return {{QMessageBox::Abort, 3}, {QMessageBox::Retry, 4}, {QMessageBox::Ignore, 5}};
    case 3:
        return {{QMessageBox::Yes, MsgResultYes},
                {QMessageBox::No, MsgResultNo},
                {QMessageBox::Cancel, MsgResultCancel}};
    case 4:
        return {{QMessageBox::Yes, MsgResultYes}, {QMessageBox::No, MsgResultNo}};
    case 5:
        return {{QMessageBox::Retry, 4}, {QMessageBox::Cancel, MsgResultCancel}};
    default:
        return {{QMessageBox::Ok, MsgResultOk}};
    }
}

QMessageBox::Icon IconOf(int style) {
    switch (style & 0x70) {
    case MsgCritical:
        return QMessageBox::Critical;
    case MsgQuestion:
        return QMessageBox::Question;
    case MsgExclamation:
        return QMessageBox::Warning;
    case MsgInformation:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

QString FromStd(const std::string& text) {
    return QString::fromStdString(text);
}

std::optional<std::string> RunFileDialog(QWidget* parent, const FileDialogRequest& request,
                                         bool save) {
    QFileDialog dialog(parent, FromStd(request.Title), FromStd(request.InitialDir),
                       QtFilterFromPairs(request.Filter));
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (!request.DefaultExt.empty()) dialog.setDefaultSuffix(FromStd(request.DefaultExt));
    if (!request.FileName.empty()) dialog.selectFile(FromStd(request.FileName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return dialog.selectedFiles().first().toStdString();
}

} // namespace

QString QtFilterFromPairs(const std::string& filter) {
    const QStringList parts = FromStd(filter).split(QLatin1Char('|'));
    QStringList out;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        const QString caption = parts[i].trimmed();
        QStringList patterns = parts[i + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts);
        for (QString& pattern : patterns)
            pattern = pattern.trimmed();
        const QString list = patterns.join(QLatin1Char(' '));
        if (caption.endsWith(QStringLiteral("(") + list + QStringLiteral(")")))
            out << caption;
        else
            out << caption + QStringLiteral(" (") + list + QStringLiteral(")");
    }
    return out.join(QStringLiteral(";;"));
}

QtPlatform::QtPlatform() = default;
QtPlatform::~QtPlatform() {
    // A help window of its own (shown before there was a main window) goes with the platform.
    if (help_ && !help_->parent()) delete help_.data();
}

int QtPlatform::MsgBox(const std::string& prompt, int style, const std::string& title) {
    QMessageBox box(parent_);
    box.setWindowTitle(title.empty() ? QString::fromLatin1(ProgramTitle) : FromStd(title));
    box.setText(FromStd(prompt));
    box.setIcon(IconOf(style));
    const std::vector<StyleButton> buttons = ButtonsOf(style);
    std::vector<QAbstractButton*> made;
    for (const StyleButton& b : buttons)
        made.push_back(box.addButton(b.Button));
    // 256 and 512 make the second or third button the default.
    const std::size_t defaultIndex = static_cast<std::size_t>((style >> 8) & 3);
    if (defaultIndex < made.size())
        box.setDefaultButton(static_cast<QPushButton*>(made[defaultIndex]));
    box.exec();
    QAbstractButton* clicked = box.clickedButton();
    for (std::size_t i = 0; i < made.size(); ++i)
        if (made[i] == clicked) return buttons[i].Answer;
    // Closed through its frame: the box's way out.
    return buttons.size() == 1 ? buttons[0].Answer : MsgResultCancel;
}

Colour QtPlatform::ChooseColour(Colour start) {
    const QColor chosen = QColorDialog::getColor(QColorFromColour(start), parent_);
    return chosen.isValid() ? ColourFromQColor(chosen) : start;
}

std::optional<std::string> QtPlatform::OpenFileName(const FileDialogRequest& request) {
    return RunFileDialog(parent_, request, false);
}

std::optional<std::string> QtPlatform::SaveFileName(const FileDialogRequest& request) {
    return RunFileDialog(parent_, request, true);
}

QPrinter& QtPlatform::Printer() {
    if (!printer_) printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    return *printer_;
}

bool QtPlatform::ChoosePrinter() {
    QPrintDialog dialog(&Printer(), parent_);
    // Only the printer is chosen here: no printing to a file, no page numbers, no selection.
    dialog.setOption(QAbstractPrintDialog::PrintToFile, false);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
    dialog.setOption(QAbstractPrintDialog::PrintSelection, false);
    return dialog.exec() == QDialog::Accepted;
}

void QtPlatform::ShowHelp(const std::string& topic) {
    // One help window, kept while it is open; it closes with the main window.
    if (!help_) {
        help_ = new windows::HelpBrowser(parent_);
        help_->setAttribute(Qt::WA_DeleteOnClose);
    }
    help_->Open(FromStd(topic));
    help_->ShowTab(windows::HelpBrowser::IndexTab);
    help_->show();
    help_->raise();
    help_->activateWindow();
}

windows::HelpBrowser* QtPlatform::HelpWindow() const {
    return help_.data();
}

void QtPlatform::OpenWebPage(const std::string& address) {
    const QString text = FromStd(address);
    QDesktopServices::openUrl(QFileInfo::exists(text) ? QUrl::fromLocalFile(text) : QUrl(text));
}

} // namespace vt::app
