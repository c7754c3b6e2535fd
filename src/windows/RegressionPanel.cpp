#include "windows/RegressionPanel.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>

#include "commands/MainCommands.h"
#include "plot/PointSeries.h"
#include "windows/SurfaceView.h"
#include "windows/Twips.h"

namespace vt {

namespace {

// The panel covers the rows' area, left of the graph box and above the zoom buttons.
constexpr int PanelLeft = 0, PanelTop = 900, PanelWidth = 5220, PanelHeight = 5280;

QLabel* Caption(const char* text, QWidget* parent, QRect at) {
    auto* label = new QLabel(QString::fromUtf8(text), parent);
    label->setGeometry(at);
    return label;
}

} // namespace

RegressionPanel::RegressionPanel(Session& s, QWidget* parent) : QWidget(parent), s_(s) {
    setGeometry(Twips(PanelLeft, PanelTop, PanelWidth, PanelHeight));
    setAutoFillBackground(false);

    grid_ = new QTableWidget(this);
    grid_->setGeometry(Twips(120, 60, 2400, 3720));
    grid_->setColumnCount(2);
    grid_->horizontalHeader()->setVisible(false);
    grid_->verticalHeader()->setVisible(false);
    grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid_->setColumnWidth(0, Pixels(1140));
    grid_->setColumnWidth(1, Pixels(1140));

    frame1_ = new QGroupBox(QStringLiteral("Insert Point"), this);
    frame1_->setGeometry(Twips(2640, 60, 2520, 1560));
    Caption("X", frame1_, Twips(120, 360, 240, 300));
    text2_ = new QLineEdit(frame1_);
    text2_->setGeometry(Twips(360, 330, 2040, 330));
    Caption("Y", frame1_, Twips(120, 765, 240, 300));
    text3_ = new QLineEdit(frame1_);
    text3_->setGeometry(Twips(360, 735, 2040, 330));
    command4_ = new QPushButton(QStringLiteral("Insert"), frame1_);
    command4_->setGeometry(Twips(360, 1140, 2040, 345));
    command4_->setAutoDefault(false);
    command4_->setToolTip(QStringLiteral("Click here to insert point into point series."));
    connect(text2_, &QLineEdit::textEdited, this,
            [this](const QString& text) { s_.Panel.Text2 = text.toStdString(); });
    connect(text3_, &QLineEdit::textEdited, this,
            [this](const QString& text) { s_.Panel.Text3 = text.toStdString(); });
    // Enter walks X, Y, Insert.
    connect(text2_, &QLineEdit::returnPressed, this, [this] { text3_->setFocus(); });
    connect(text3_, &QLineEdit::returnPressed, this, [this] { command4_->setFocus(); });
    connect(command4_, &QPushButton::clicked, this, [this] {
        Command4_Click(s_);
        Done();
    });

    frame2_ = new QGroupBox(QStringLiteral("Trend Type"), this);
    frame2_->setGeometry(Twips(2640, 1740, 2520, 1440));
    command1_ = new QRadioButton(QStringLiteral("Linear"), frame2_);
    command1_->setGeometry(Twips(120, 300, 2280, 300));
    command3_ = new QRadioButton(QStringLiteral("Polynomial"), frame2_);
    command3_->setGeometry(Twips(120, 630, 2280, 300));
    Caption("Order:", frame2_, Twips(360, 1005, 840, 300));
    combo1_ = new QComboBox(frame2_);
    combo1_->setGeometry(Twips(1200, 960, 1200, 345));
    for (int order = 2; order <= 10; ++order)
        combo1_->addItem(QString::number(order));
    connect(command1_, &QRadioButton::clicked, this, [this] {
        Command1_Click(s_);
        Done();
    });
    connect(command3_, &QRadioButton::clicked, this, [this] {
        Command3_Click(s_);
        Done();
    });
    connect(combo1_, &QComboBox::activated, this, [this](int index) {
        s_.Panel.Combo1 = combo1_->itemText(index).toStdString();
        Combo1_Click(s_);
        Done();
    });

    frame3_ = new QGroupBox(QStringLiteral("Colors"), this);
    frame3_->setGeometry(Twips(120, 3900, 2400, 1080));
    Caption("Line:", frame3_, Twips(120, 330, 840, 300));
    line_ = new app::ColourSwatch(frame3_);
    line_->setGeometry(Twips(1080, 330, 615, 255));
    Caption("Points:", frame3_, Twips(120, 690, 840, 300));
    points_ = new app::ColourSwatch(frame3_);
    points_->setGeometry(Twips(1080, 690, 615, 255));
    for (const auto& [swatch, index] : {std::pair{line_, 5}, std::pair{points_, 6}}) {
        swatch->setToolTip(QStringLiteral("Click here to change color."));
        swatch->Clicked = [this, index] {
            Picture1_Click(s_, index);
            Done();
        };
    }

    command5_ = new QPushButton(QStringLiteral("Regression Function"), this);
    command5_->setGeometry(Twips(2640, 3960, 2520, 420));
    command5_->setAutoDefault(false);
    command5_->setToolTip(QStringLiteral("Click here to display the regression function."));
    connect(command5_, &QPushButton::clicked, this, [this] {
        if (FunctionClicked) FunctionClicked();
    });
    command7_ = new QPushButton(QStringLiteral("Exit"), this);
    command7_->setGeometry(Twips(2640, 4500, 2520, 420));
    command7_->setAutoDefault(false);
    command7_->setToolTip(QStringLiteral("Click here to return to Graph Analysis."));
    connect(command7_, &QPushButton::clicked, this, [this] {
        if (ExitClicked) ExitClicked();
    });
}

void RegressionPanel::Done() {
    if (Changed) Changed();
}

void RegressionPanel::Mirror() {
    const RegressionPanelState& panel = s_.Panel;
    setVisible(panel.Visible);
    if (text2_->text().toStdString() != panel.Text2)
        text2_->setText(QString::fromStdString(panel.Text2));
    if (text3_->text().toStdString() != panel.Text3)
        text3_->setText(QString::fromStdString(panel.Text3));
    command1_->setChecked(panel.LinearOn);
    command3_->setChecked(panel.PolynomialOn);
    const int order = combo1_->findText(QString::fromStdString(panel.Combo1));
    if (order >= 0) combo1_->setCurrentIndex(order);
    line_->SetColour(s_.Picture1(5));
    points_->SetColour(s_.Picture1(6));

    const auto& rows = panel.MSFlexGrid1;
    grid_->setRowCount(static_cast<int>(rows.size()));
    for (std::size_t r = 0; r < rows.size(); ++r) {
        const int row = static_cast<int>(r);
        for (int column = 0; column < 2; ++column) {
            const QString text = QString::fromStdString(rows[r][static_cast<std::size_t>(column)]);
            QTableWidgetItem* item = grid_->item(row, column);
            if (!item) {
                item = new QTableWidgetItem;
                grid_->setItem(row, column, item);
            }
            item->setText(text);
            // Row 0 holds the headings.
            QFont font = item->font();
            font.setBold(row == 0);
            item->setFont(font);
        }
    }
    if (panel.ScrollTableToEnd) grid_->scrollToBottom();
}

} // namespace vt
