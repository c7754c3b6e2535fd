#include "windows/frmPrintSetup.h"

#include <QDate>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>

#include "commands/MainCommands.h"
#include "render/Fonts.h"
#include "render/PrinterPage.h"
#include "windows/Twips.h"

namespace vt {

std::string TodayShortDate() {
    return QLocale().toString(QDate::currentDate(), QLocale::ShortFormat).toStdString();
}

bool PrintPage(Session& s, QPrinter& printer, const PrintHeading& heading) {
    render::PagedPrinterJob job(printer);
    if (!job.Started()) {
        job.KillDoc();
        return false;
    }
    return PrintAndFinish(s, job, heading);
}

frmPrintSetup::frmPrintSetup(Session& s, QPrinter& printer, QWidget* parent)
    : QDialog(parent), s_(s), printer_(printer) {
    setWindowTitle(QString::fromUtf8(PrintSetupCaption));
    setFixedSize(Twips(0, 0, 4695, 2880).size());
    render::LoadBundledFonts();
    const QFont headingFont = render::FontFor("OrlentisFont", 12);

    frame1_ = new QGroupBox(QStringLiteral("Print Heading"), this);
    frame1_->setGeometry(Twips(120, 120, 4455, 1335));
    text1_ = new QLineEdit(QString::fromUtf8(DefaultPrintHeading), frame1_);
    text1_->setGeometry(Twips(120, 300, 4215, 435));
    text1_->setFont(headingFont);
    text2_ = new QLineEdit(QString::fromStdString(TodayShortDate()), frame1_);
    text2_->setGeometry(Twips(120, 780, 4215, 435));
    text2_->setFont(headingFont);

    frame2_ = new QGroupBox(QStringLiteral("Printer Device Name"), this);
    frame2_->setGeometry(Twips(120, 1560, 4455, 615));
    label1_ = new QLabel(frame2_);
    label1_->setGeometry(Twips(120, 270, 4215, 255));

    command3_ = new QPushButton(QStringLiteral("Setup..."), this);
    command3_->setGeometry(Twips(120, 2310, 1035, 405));
    preview_ = new QPushButton(QStringLiteral("Preview..."), this);
    preview_->setGeometry(Twips(1260, 2310, 1035, 405));
    command2_ = new QPushButton(QStringLiteral("OK"), this);
    command2_->setGeometry(Twips(2400, 2310, 1035, 405));
    command1_ = new QPushButton(QStringLiteral("Cancel"), this);
    command1_->setGeometry(Twips(3540, 2310, 1035, 405));
    command2_->setDefault(true);

    connect(command1_, &QPushButton::clicked, this, [this] { Command1_Click(); });
    connect(command2_, &QPushButton::clicked, this, [this] { Command2_Click(); });
    connect(command3_, &QPushButton::clicked, this, [this] { Command3_Click(); });
    connect(preview_, &QPushButton::clicked, this, [this] { Preview_Click(); });
    RefreshPrinterName();
}

PrintHeading frmPrintSetup::Heading() const {
    return {text1_->text().toStdString(), text2_->text().toStdString()};
}

bool frmPrintSetup::NeedsPdfFile() const {
    if (printer_.outputFormat() == QPrinter::PdfFormat) return printer_.outputFileName().isEmpty();
    return printer_.printerName().isEmpty() ||
           QPrinterInfo::printerInfo(printer_.printerName()).isNull();
}

void frmPrintSetup::RefreshPrinterName() {
    const QString name = printer_.outputFormat() == QPrinter::PdfFormat
                             ? QString::fromUtf8(PrintToPdfName)
                             : printer_.printerName();
    // A printer without a name leaves the last one shown.
    if (!name.isEmpty())
        label1_->setText(name);
    else if (label1_->text().isEmpty())
        label1_->setText(QString::fromUtf8(PrintToPdfName));
}

void frmPrintSetup::showEvent(QShowEvent* event) {
    RefreshPrinterName();
    QDialog::showEvent(event);
}

void frmPrintSetup::Command1_Click() {
    close();
}

void frmPrintSetup::Command2_Click() {
    const PrintHeading heading = Heading();
    bool ownFile = false;
    if (NeedsPdfFile()) {
        FileDialogRequest request;
        request.Title = PrintToPdfTitle;
        request.Filter = PdfFileFilter;
        request.InitialDir = s_.SavedProblemsDir;
        request.FileName = "Graph";
        request.DefaultExt = "pdf";
        const std::optional<std::string> path = s_.Host().Dialogs().SaveFileName(request);
        // No file chosen: nothing is printed and the options stay open.
        if (!path) return;
        printer_.setOutputFormat(QPrinter::PdfFormat);
        printer_.setOutputFileName(QString::fromStdString(*path));
        ownFile = true;
    }
    // Failures are silent: the job is abandoned and the dialog goes all the same.
    PrintPage(s_, printer_, heading);
    if (ownFile) printer_.setOutputFileName(QString());
    close();
}

void frmPrintSetup::Command3_Click() {
    mnuGraphPrintSetup_Click(s_);
    RefreshPrinterName();
}

void frmPrintSetup::Preview_Click() {
    QPrintPreviewDialog preview(&printer_, this);
    const PrintHeading heading = Heading();
    connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
            [this, heading](QPrinter* target) { PrintPage(s_, *target, heading); });
    preview.exec();
}

} // namespace vt
