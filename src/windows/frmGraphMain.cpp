#include "windows/frmGraphMain.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QCursor>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QIcon>
#include <QKeySequence>
#include <QLabel>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPrinter>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QSvgRenderer>
#include <QTemporaryFile>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

#include "base/Platform.h"
#include "commands/KeyStroke.h"
#include "commands/MainCommands.h"
#include "commands/SaveLoad.h"
#include "display/Papers.h"
#include "entry/Entry.h"
#include "info/HelpAndWeb.h"
#include "plot/Appearance.h"
#include "plot/Painter.h"
#include "plot/PointSeries.h"
#include "plot/View.h"
#include "render/Fonts.h"
#include "render/RasterSurface.h"
#include "session/MainMenu.h"
#include "windows/Icons.h"
#include "windows/RegressionPanel.h"
#include "windows/SurfaceView.h"
#include "windows/Twips.h"
#include "windows/frmAbout.h"
#include "windows/frmEvalFX.h"
#include "windows/frmExplain.h"
#include "windows/frmFillRange.h"
#include "windows/frmLineWidth.h"
#include "windows/frmLogo.h"
#include "windows/frmPrintSetup.h"

// The icons live in the render library's resources; a static library keeps them only when
// something asks for them by name.
static void InitIconResources() {
    Q_INIT_RESOURCE(icons);
}

namespace vt {

namespace {

// The client area: the toolbar's width, and room under the graph box's frame.
constexpr int ClientWidth = 11400;
constexpr int ClientHeight = 7200;
constexpr int GraphBoxTwips = 6000;

// The window's background: a light, warm paper with a faint grain, made once.
class BackgroundPanel : public QWidget {
  public:
    using QWidget::QWidget;

  protected:
    void paintEvent(QPaintEvent*) override {
        if (texture_.size() != size()) texture_ = MakeTexture(size());
        QPainter painter(this);
        painter.drawPixmap(0, 0, texture_);
    }

  private:
    static QPixmap MakeTexture(QSize size) {
        QPixmap pixmap(size);
        QPainter painter(&pixmap);
        QLinearGradient base(0, 0, size.width(), size.height());
        base.setColorAt(0, QColor(0xF4, 0xF0, 0xE7));
        base.setColorAt(1, QColor(0xE8, 0xE1, 0xD3));
        painter.fillRect(pixmap.rect(), base);
        // Fixed seed: the same grain on every start.
        QRandomGenerator random(1983);
        for (int y = 0; y < size.height(); y += 2) {
            const int alpha = random.bounded(4, 14);
            const bool dark = random.bounded(2) == 0;
            painter.setPen(dark ? QColor(120, 100, 70, alpha) : QColor(255, 255, 255, alpha));
            const int x0 = random.bounded(-40, size.width() / 2);
            painter.drawLine(x0, y, x0 + random.bounded(size.width() / 3, size.width()), y);
        }
        return pixmap;
    }

    QPixmap texture_;
};

// The frame round the graph box.
class FrameShape : public QWidget {
  public:
    using QWidget::QWidget;

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(QPen(Qt::black, 1));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
};

} // namespace

frmGraphMain::frmGraphMain(Session& s, Platform& platform, MainWindowOptions options,
                           QWidget* parent)
    : QMainWindow(parent), s_(s), platform_(platform), options_(std::move(options)) {
    InitIconResources();
    render::LoadBundledFonts();
    setWindowTitle(QStringLiteral("Orlentis - Veritrace"));
    setWindowIcon(IconFor("veritrace"));

    client_ = new BackgroundPanel(this);
    client_->setFixedSize(Pixels(ClientWidth), Pixels(ClientHeight));
    setCentralWidget(client_);
    // The graph box must never scale: the window keeps its designed size.
    layout()->setSizeConstraint(QLayout::SetFixedSize);

    BuildMenus();
    BuildToolbar();
    BuildGraphBox();
    BuildRows();
    BuildRegressionPanel();
    BindSession();
    Mirror();
}

frmGraphMain::~frmGraphMain() {
    // The rows and the graph box go after this body; focus moving among them on the way out
    // must not reach widgets already gone.
    for (app::SurfaceView* view : papers_)
        view->Disconnect();
    graph_->Disconnect();
    // The session may outlive the window (in the tests it does): leave nothing bound to it.
    s_.BindHost(nullptr);
}

void frmGraphMain::BuildMenus() {
    QMenu* top = nullptr;
    QMenu* sub = nullptr;
    const std::vector<MenuEntry>& tree = MainMenuTree();
    for (std::size_t i = 0; i < tree.size(); ++i) {
        const MenuEntry& entry = tree[i];
        const bool hasChildren = i + 1 < tree.size() && tree[i + 1].Level > entry.Level;
        const QString caption = QString::fromStdString(entry.Caption);
        if (entry.Level == 0) {
            // The Round Options menu is only a pop-up of the readout.
            top = entry.Name == RoundOptionsMenu ? new QMenu(caption, this)
                                                 : menuBar()->addMenu(caption);
            menus_[entry.Name] = top;
            menuItems_[entry.Name] = top->menuAction();
            continue;
        }
        QMenu* parentMenu = entry.Level == 1 ? top : sub;
        if (entry.Caption == "-") {
            menuItems_[entry.Name] = parentMenu->addSeparator();
            continue;
        }
        if (hasChildren) {
            sub = parentMenu->addMenu(caption);
            menus_[entry.Name] = sub;
            menuItems_[entry.Name] = sub->menuAction();
            continue;
        }
        QAction* action = parentMenu->addAction(caption);
        if (!entry.Shortcut.empty())
            action->setShortcut(QKeySequence(QString::fromStdString(entry.Shortcut)));
        const std::string name = entry.Name;
        connect(action, &QAction::triggered, this, [this, name] { MenuClick(name); });
        menuItems_[entry.Name] = action;
    }
    for (const char* checkable : {"mnuHideGrid", "mnuGraphQuadrant", "mnuToggleCoordinates",
                                  "mnuNearWhole", "mnuNearTen", "mnuPtSeries"})
        menuItems_.at(checkable)->setCheckable(true);
    // Off at every start: the program keeps no settings.
    menuItems_.at("mnuBracketNegativeX")->setCheckable(true);
}

void frmGraphMain::BuildToolbar() {
    toolbar_ = new QToolBar(client_);
    toolbar_->setGeometry(Twips(0, 0, ClientWidth, 840));
    toolbar_->setMovable(false);
    toolbar_->setFloatable(false);
    toolbar_->setIconSize(QSize(28, 28));
    for (int index = 1; index <= 16; ++index) {
        const ToolButton& state = s_.Toolbar1(index);
        if (state.Separator) {
            toolbar_->addSeparator();
            continue;
        }
        auto* button = new QToolButton(toolbar_);
        button->setAutoRaise(true);
        button->setIconSize(QSize(28, 28));
        button->setFocusPolicy(Qt::NoFocus);
        connect(button, &QToolButton::clicked, this, [this, index] { ToolbarClick(index); });
        if (!state.DropDown.empty()) {
            auto* menu = new QMenu(button);
            for (const std::string& entry : state.DropDown) {
                QAction* item = menu->addAction(QString::fromStdString(entry));
                connect(item, &QAction::triggered, this,
                        [this, index, entry] { ToolbarMenuClick(index, entry); });
            }
            button->setMenu(menu);
            button->setPopupMode(QToolButton::MenuButtonPopup);
        }
        toolbar_->addWidget(button);
        buttons_[static_cast<std::size_t>(index)] = button;
    }
}

void frmGraphMain::BuildGraphBox() {
    shape1_ = new FrameShape(client_);
    shape1_->setGeometry(Twips(5270, 960, 6030, 6030));

    graphSurface_ =
        std::make_unique<render::RasterSurface>(Pixels(GraphBoxTwips), Pixels(GraphBoxTwips));
    graph_ = new app::SurfaceView(client_);
    graph_->SetSurface(graphSurface_.get());
    graph_->move(Pixels(5280), Pixels(975));
    graph_->setFocusPolicy(Qt::ClickFocus);
    graphSurface_->OnRefresh = [this] { graph_->repaint(); };

    graph_->MouseDown = [this](int button, int shift, float x, float y) {
        if (frmGraph_MouseDown(s_, button, shift, x, y) == GraphMouseAction::ShowGraphWindowMenu)
            menus_.at("mnuGraphWindow")->popup(QCursor::pos());
        Mirror();
    };
    graph_->MouseMove = [this](int button, int shift, float x, float y) {
        s_.Label2Caption = frmGraph_MouseMove(s_, button, shift, x, y);
        label2_->setText(QString::fromStdString(s_.Label2Caption));
        graph_->update();
    };
    graph_->MouseUp = [this](int button, int shift, float x, float y) {
        frmGraph_MouseUp(s_, button, shift, x, y);
        Mirror();
    };
    graph_->KeyDown = [this](int keyCode, int shift) {
        frmGraph_KeyDown(s_, keyCode, shift);
        Mirror();
    };

    listView1_ = new QTreeWidget(graph_);
    listView1_->setColumnCount(1);
    listView1_->setHeaderLabels({QStringLiteral("Coordinates:")});
    listView1_->setRootIsDecorated(false);
    listView1_->setFocusPolicy(Qt::NoFocus);
    listView1_->hide();

    label2_ = new app::ClickLabel(client_);
    label2_->setGeometry(Twips(120, 6690, 3375, 300));
    label2_->Clicked = [this](QPoint at) { menus_.at(RoundOptionsMenu)->popup(at); };

    command2_ = new QToolButton(client_);
    command6_ = new QToolButton(client_);
    const std::pair<QToolButton*, const char*> zooms[] = {{command2_, "zoomin"},
                                                          {command6_, "zoomout"}};
    for (const auto& [button, image] : zooms) {
        button->setIcon(IconFor(image));
        button->setIconSize(QSize(32, 32));
    }
    command2_->setGeometry(Twips(3600, 6240, 735, 735));
    command6_->setGeometry(Twips(4440, 6240, 735, 735));
    command2_->setToolTip(QStringLiteral("Click to zoom in graph."));
    command6_->setToolTip(QStringLiteral("Click to zoom out graph."));
    connect(command2_, &QToolButton::clicked, this, [this] {
        Command2_Click(s_);
        Mirror();
    });
    connect(command6_, &QToolButton::clicked, this, [this] {
        Command6_Click(s_);
        Mirror();
    });
}

void frmGraphMain::BuildRows() {
    const QFont equationFont = render::FontFor(render::EquationFamily, 12);
    QWidget* previous = nullptr;
    for (int i = 0; i < UsableSlots; ++i) {
        const auto slot = static_cast<std::size_t>(i);
        auto surface = render::MakeEquationPaper(Pixels(PaperWidth), Pixels(PaperHeight));
        auto* paper = new app::SurfaceView(client_);
        paper->SetSurface(surface.get());
        paper->move(Pixels(840), Pixels(960 + PaperRowPitch * i));
        paper->setFocusPolicy(Qt::StrongFocus);
        paper->setToolTip(QStringLiteral("Click in the box to enter data."));
        paper->GotFocus = [this, i] {
            Paper_GotFocus(s_, i);
            MirrorRows();
        };
        paper->LostFocus = [this, i] {
            Paper_LostFocus(s_, i);
            MirrorRows();
        };
        paper->KeyDown = [this, i](int keyCode, int shift) {
            Paper_KeyDown(s_, i, keyCode, shift);
            Mirror();
        };
        paper->KeyPress = [this, i](int keyAscii) {
            Paper_KeyPress(s_, i, keyAscii);
            Mirror();
        };
        // Tab follows the rows in order.
        if (previous) setTabOrder(previous, paper);
        previous = paper;

        auto* label = new QLabel(QStringLiteral("f(x)="), client_);
        label->setGeometry(Twips(120, 1080 + PaperRowPitch * i, 855, 375));
        label->setFont(equationFont);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);

        auto* swatch = new app::ColourSwatch(client_);
        swatch->setGeometry(Twips(120, 1320 + PaperRowPitch * i, 615, 255));
        swatch->setToolTip(QStringLiteral("Click here to change color."));
        swatch->Clicked = [this, i] {
            Picture1_Click(s_, i);
            Mirror();
        };

        paperSurfaces_[slot] = std::move(surface);
        papers_[slot] = paper;
        labels_[slot] = label;
        swatches_[slot] = swatch;
    }

    blinker_ = new QToolButton(client_);
    blinker_->setIcon(IconFor("newrow"));
    blinker_->setIconSize(QSize(24, 24));
    blinker_->setToolTip(QStringLiteral("Insert new function."));
    blinker_->setFocusPolicy(Qt::NoFocus);
    connect(blinker_, &QToolButton::clicked, this, [this] {
        Blinker_Click(s_);
        Mirror();
    });
}

void frmGraphMain::BuildRegressionPanel() {
    panel_ = new RegressionPanel(s_, client_);
    panel_->hide();
    panel_->Changed = [this] { Mirror(); };
    panel_->ExitClicked = [this] {
        SwitchMode();
        Mirror();
    };
    panel_->FunctionClicked = [this] {
        ShowRegressionFunction(s_);
        Mirror();
    };
}

void frmGraphMain::SwitchMode() {
    const int row = mnuPtSeries_Click(s_);
    Mirror();
    if (row >= 0) vt::FocusRow(s_, row);
}

void frmGraphMain::BindSession() {
    s_.BindHost(this);
}

Surface* frmGraphMain::GraphBox() {
    return graphSurface_.get();
}

Surface* frmGraphMain::RowSurface(int row) {
    if (row < 0 || row >= UsableSlots) return nullptr;
    return paperSurfaces_[static_cast<std::size_t>(row)].get();
}

bool frmGraphMain::FocusRow(int row) {
    // A row revealed by the same command must be visible before it can take the focus.
    MirrorRows();
    app::SurfaceView* paper = papers_[static_cast<std::size_t>(row)];
    paper->setFocus(Qt::OtherFocusReason);
    // While the window is not the active one, Qt only notes the focus for later and sends no
    // focus event; the caller then makes the row the active one itself.
    return paper->hasFocus();
}

void frmGraphMain::GraphCommand() {
    // Enter on a complete row redraws, as the menu's Graph! does: no auto-scaling.
    mnuGraphIt_Click(s_);
}

bool frmGraphMain::RunCommand(HostCommand command, int index) {
    switch (command) {
    case HostCommand::Swatch:
        ChangeSwatchColour(s_, index);
        return true;
    case HostCommand::GraphGridColor:
        mnuGraphGridColor_Click(s_);
        return true;
    case HostCommand::BackColor:
        mnuBackColor_Click(s_);
        return true;
    case HostCommand::GraphDefault:
        mnuGraphDefault_Click(s_);
        return true;
    case HostCommand::LineWidth:
        ShowLineWidth(s_, this);
        return true;
    case HostCommand::Evaluate:
        ShowEvaluateFX(s_, this);
        return true;
    case HostCommand::Shade:
        ShowCalculateArea(s_, this);
        return true;
    case HostCommand::CopyGraph:
        CopyGraph();
        return true;
    case HostCommand::About:
        windows::ShowAbout(platform_, this);
        return true;
    case HostCommand::Save:
    case HostCommand::Load:
    case HostCommand::BitMap:
    case HostCommand::GraphPrint:
        return RunFileCommand(command);
    case HostCommand::PtSeries:
        SwitchMode();
        return true;
    case HostCommand::Explain:
        ShowExplain(s_, this);
        return true;
    default:
        // The other windows and dialogs are not there yet.
        return false;
    }
}

namespace {

// The dialogs of a load: once the file is chosen, the keys are replayed under the hourglass,
// which gives way to the normal pointer for a message and goes when the load ends.
class LoadDialogs : public Platform {
  public:
    explicit LoadDialogs(Platform& inner) : inner_(inner) {}
    ~LoadDialogs() override { Hourglass(false); }
    LoadDialogs(const LoadDialogs&) = delete;
    LoadDialogs& operator=(const LoadDialogs&) = delete;

    void Hourglass(bool on) {
        if (on == on_) return;
        on_ = on;
        if (on)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QApplication::restoreOverrideCursor();
    }

    int MsgBox(const std::string& prompt, int style, const std::string& title) override {
        Hourglass(false);
        return inner_.MsgBox(prompt, style, title);
    }
    Colour ChooseColour(Colour start) override { return inner_.ChooseColour(start); }
    std::optional<std::string> OpenFileName(const FileDialogRequest& request) override {
        std::optional<std::string> path = inner_.OpenFileName(request);
        if (path) Hourglass(true);
        return path;
    }
    std::optional<std::string> SaveFileName(const FileDialogRequest& request) override {
        return inner_.SaveFileName(request);
    }
    bool ChoosePrinter() override { return inner_.ChoosePrinter(); }
    void ShowHelp(const std::string& topic) override { inner_.ShowHelp(topic); }
    void OpenWebPage(const std::string& address) override { inner_.OpenWebPage(address); }

  private:
    Platform& inner_;
    bool on_ = false;
};

} // namespace

Platform& frmGraphMain::Dialogs() {
    return loadDialogs_ ? *loadDialogs_ : platform_;
}

QPrinter& frmGraphMain::Printer() {
    if (options_.Printer) return *options_.Printer;
    if (!ownPrinter_) ownPrinter_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    return *ownPrinter_;
}

bool frmGraphMain::RunFileCommand(HostCommand command) {
    switch (command) {
    case HostCommand::Save:
        mnuSave_Click(s_);
        return true;
    case HostCommand::Load: {
        LoadDialogs dialogs(platform_);
        // A file named on the command line needs no dialog: the hourglass from the start.
        if (!s_.CommandFile.empty()) dialogs.Hourglass(true);
        loadDialogs_ = &dialogs;
        mnuLoad_Click(s_);
        loadDialogs_ = nullptr;
        // The loaded functions are drawn at once.
        RedrawByMode(s_);
        return true;
    }
    case HostCommand::BitMap:
        mnuBitMap_Click(s_);
        return true;
    case HostCommand::GraphPrint:
        ShowPrintSetup();
        return true;
    default:
        return false;
    }
}

void frmGraphMain::ShowPrintSetup() {
    if (QApplication::activeModalWidget() != nullptr) {
        frmPrintSetup dialog(s_, Printer(), QApplication::activeModalWidget());
        dialog.exec();
        return;
    }
    if (printSetup_ && printSetup_->isVisible()) {
        printSetup_->raise();
        printSetup_->activateWindow();
        return;
    }
    auto* dialog = new frmPrintSetup(s_, Printer(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    printSetup_ = dialog;
    dialog->show();
}

void frmGraphMain::CopyGraph() {
    // The graph box as it stands, pixel for pixel, as Save Graph As Bitmap writes it.
    QGuiApplication::clipboard()->setImage(graphSurface_->QtImage());
}

void frmGraphMain::MakeSavedProblemsFolder() {
    const QString programDir = options_.ProgramDir.empty()
                                   ? QCoreApplication::applicationDirPath()
                                   : QString::fromStdString(options_.ProgramDir);
    s_.ProgramDir = programDir.toStdString();
    const QString name = QStringLiteral("Saved Problems");
    QDir program(programDir);
    // Beside the program where it may write there; an installed copy uses the user's data folder.
    if (program.mkpath(name)) {
        QTemporaryFile probe(program.filePath(name) + QStringLiteral("/probe-XXXXXX"));
        if (probe.open()) {
            s_.SavedProblemsDir = program.filePath(name).toStdString();
            return;
        }
    }
    QDir data(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    data.mkpath(name);
    s_.SavedProblemsDir = data.filePath(name).toStdString();
}

void frmGraphMain::Form_Load() {
    s_.CommandFile = QString::fromStdString(options_.CommandLine).trimmed().toStdString();
    // The point table's headings, the view, the closed graph commands, the incomplete first row
    // and the key mask.
    PrepareMainWindow(s_);
    MakeSavedProblemsFolder();
    if (options_.ShowSplash) {
        windows::frmLogo splash;
        splash.exec();
    }
    RedrawGraph(s_);
    Mirror();
    show();
    if (!s_.CommandFile.empty()) RunMenuCommand(s_, "mnuLoad");
    s_.CommandFile.clear();
    vt::FocusRow(s_, 0);
    Mirror();
}

void frmGraphMain::Form_Unload() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window != this && window->isVisible()) window->close();
}

void frmGraphMain::closeEvent(QCloseEvent* event) {
    Form_Unload();
    event->accept();
}

void frmGraphMain::MenuClick(const std::string& name) {
    if (name == "mnuGraphExit") {
        // Only hides the window; the session ends when it is closed through its frame.
        hide();
        return;
    }
    RunMenuCommand(s_, name);
    Mirror();
}

void frmGraphMain::ToolbarClick(int index) {
    Toolbar1_ButtonClick(s_, s_.Toolbar1(index).Key);
    Mirror();
}

void frmGraphMain::ToolbarMenuClick(int /*index*/, const std::string& entry) {
    Toolbar1_ButtonMenuClick(s_, entry);
    Mirror();
}

QAction* frmGraphMain::MenuItem(const std::string& name) const {
    const auto found = menuItems_.find(name);
    return found == menuItems_.end() ? nullptr : found->second;
}

QMenu* frmGraphMain::MenuOf(const std::string& name) const {
    const auto found = menus_.find(name);
    return found == menus_.end() ? nullptr : found->second;
}

QToolButton* frmGraphMain::ToolbarButton(int index) const {
    if (index < 1 || index > 16) return nullptr;
    return buttons_[static_cast<std::size_t>(index)];
}

void frmGraphMain::MirrorRows() {
    for (int i = 0; i < UsableSlots; ++i) {
        const auto slot = static_cast<std::size_t>(i);
        // The regression panel takes the rows' place.
        const bool visible = s_.RowVisible(i) && !s_.Panel.Visible;
        papers_[slot]->setVisible(visible);
        labels_[slot]->setVisible(visible);
        swatches_[slot]->setVisible(visible);
        swatches_[slot]->SetColour(s_.Picture1(i));
        papers_[slot]->update();
    }
    blinker_->setGeometry(Twips(s_.BlinkerLeft, s_.BlinkerTop, 495, 495));
    blinker_->setVisible(s_.BlinkerVisible && !s_.Panel.Visible);
}

void frmGraphMain::MirrorListView() {
    listView1_->setVisible(s_.ToggleCoordinatesChecked);
    if (!s_.ToggleCoordinatesChecked) return;
    // Placed in view units inside the box; turned into the box's pixels.
    const ListPlacement& place = s_.ListView1Rect;
    const render::RasterSurface& box = *graphSurface_;
    const double left = (place.Left - box.ScaleLeft) * box.PixelWidth() / box.ScaleWidth;
    const double top = (place.Top - box.ScaleTop) * box.PixelHeight() / box.ScaleHeight;
    listView1_->setGeometry(static_cast<int>(left), static_cast<int>(top),
                            static_cast<int>(ListViewPixelWidth), box.PixelHeight() / 2);
    listView1_->clear();
    for (const CoordinateItem& item : s_.ListView1) {
        auto* row = new QTreeWidgetItem(listView1_, {QString::fromStdString(item.Text)});
        row->setForeground(0, QColor::fromRgb(render::QRgbFromColour(item.Colour)));
    }
}

void frmGraphMain::Mirror() {
    for (int index = 1; index <= 16; ++index) {
        QToolButton* button = buttons_[static_cast<std::size_t>(index)];
        if (!button) continue;
        const ToolButton& state = s_.Toolbar1(index);
        const QString image = QString::fromStdString(state.Image);
        if (button->property("image").toString() != image) {
            button->setIcon(IconFor(state.Image));
            button->setProperty("image", image);
        }
        button->setToolTip(QString::fromStdString(state.Tip));
        button->setEnabled(state.Enabled);
    }
    for (const auto& [name, enabled] : s_.MenuEnabled)
        if (QAction* item = MenuItem(name)) item->setEnabled(enabled);
    menuItems_.at("mnuHideGrid")->setChecked(s_.HideGridChecked);
    menuItems_.at("mnuGraphQuadrant")->setChecked(s_.GraphQuadrantChecked);
    menuItems_.at("mnuToggleCoordinates")->setChecked(s_.ToggleCoordinatesChecked);
    menuItems_.at("mnuNearWhole")->setChecked(s_.NearWholeChecked);
    menuItems_.at("mnuNearTen")->setChecked(s_.NearTenChecked);
    menuItems_.at("mnuPtSeries")->setChecked(s_.PtSeriesChecked);
    menuItems_.at("mnuBracketNegativeX")->setChecked(s_.BracketNegativeX);

    MirrorRows();
    label2_->setText(QString::fromStdString(s_.Label2Caption));
    graph_->setToolTip(QString::fromStdString(s_.GraphTip));
    graph_->update();
    MirrorListView();
    panel_->Mirror();
    if (s_.Panel.Visible) panel_->raise();
}

} // namespace vt
