#include <QDir>
#include <QElapsedTimer>
#include <QListWidget>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTreeWidget>

#include "app/QtPlatform.h"
#include "info/SystemInfo.h"
#include "windows/HelpBrowser.h"
#include "windows/WindowTesting.h"
#include "windows/frmAbout.h"
#include "windows/frmLogo.h"

namespace vt::windows {

static QString BookPage(const char* name) {
    return QStringLiteral(VERITRACE_HELP_BOOK "/") + QLatin1String(name);
}

TEST(frmLogo, ClosesItselfAtTheFirstTick) {
    test::QtApp();
    frmLogo splash(nullptr, 40);
    EXPECT_EQ(splash.size(), QSize(542, 240));
    EXPECT_EQ(splash.Image1()->pixmap().size(), QSize(542, 240));
    EXPECT_FALSE(splash.logotime()->isActive()) << "the timer starts when the window loads";
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(splash.exec(), QDialog::Accepted);
    EXPECT_GE(clock.elapsed(), 35);
    EXPECT_EQ(std::tuple(splash.logotime()->isActive(), splash.isVisible()),
              std::tuple(false, false));
}

TEST(HelpBrowser, SaysSoWhenTheBookIsMissingAndOpensItWithContentsIndexAndSearch) {
    test::QtApp();
    HelpBrowser help;
    QTemporaryDir empty;
    EXPECT_FALSE(help.Open(empty.filePath(QStringLiteral("help/index.html"))));
    EXPECT_TRUE(help.Viewer()->toPlainText().contains(QStringLiteral("not found")));
    EXPECT_EQ(help.Contents()->topLevelItemCount(), 0);
    EXPECT_TRUE(help.CurrentPage().isEmpty());
    ASSERT_TRUE(help.Open(BookPage("index.html")));
    EXPECT_EQ(help.CurrentPage(), QStringLiteral("index.html"));
    EXPECT_EQ(help.Viewer()->documentTitle(), QStringLiteral("Veritrace Help"));

    // Contents: the pages the first page lists, in its order, each with its sections.
    QTreeWidget* contents = help.Contents();
    ASSERT_GE(contents->topLevelItemCount(), 10);
    EXPECT_EQ(contents->topLevelItem(0)->text(0), QStringLiteral("Getting started"));
    // A section entry opens its page.
    QTreeWidgetItem* section = contents->topLevelItem(1)->child(1);
    ASSERT_NE(section, nullptr);
    emit contents->itemClicked(section, 0);
    EXPECT_EQ(help.CurrentPage(), QStringLiteral("typing.html"));
    EXPECT_TRUE(help.Viewer()->source().hasFragment());

    // Index: keywords lead to their pages; typing the first letters finds an entry.
    EXPECT_TRUE(help.PagesOfKeyword(QStringLiteral("Fraction")).contains("typing.html"));
    EXPECT_TRUE(help.PagesOfKeyword(QStringLiteral("no such word")).isEmpty());
    help.IndexFilter()->setText(QStringLiteral("regr"));
    ASSERT_NE(help.IndexList()->currentItem(), nullptr);
    EXPECT_TRUE(
        help.IndexList()->currentItem()->text().startsWith("Regression", Qt::CaseInsensitive));
    emit help.IndexFilter()->returnPressed();
    EXPECT_EQ(help.CurrentPage(), QStringLiteral("regression.html"));

    // Search: every word must be on the page; case does not matter.
    const std::pair<const char*, const char*> searches[] = {{"ORDER polynomial", "regression.html"},
                                                            {"Saved Problems vtx", "files.html"},
                                                            {"could not be graphed", "view.html"}};
    for (const auto& [words, page] : searches)
        EXPECT_TRUE(help.Search(QString::fromLatin1(words)).contains(page)) << words;
    EXPECT_TRUE(help.Search(QStringLiteral("fraction qqqzzz")).isEmpty());
    // An index word finds its page, though the page's text never uses it.
    help.SearchText()->setText(QStringLiteral("hatching"));
    emit help.SearchText()->returnPressed();
    ASSERT_EQ(help.SearchResults()->count(), 1);
    emit help.SearchResults()->itemClicked(help.SearchResults()->item(0));
    EXPECT_EQ(help.CurrentPage(), QStringLiteral("area.html"));
}

// The program's folder holds the help book and the web pages; Saved Problems goes to the
// user's data where that folder is closed, as nothing can be made under /proc.
TEST(ProgramFolder, HelpWebAboutAndSavedProblemsFromTheMenusAndTheProgramsHelpWindow) {
    {
        QStandardPaths::setTestModeEnabled(true);
        MainWindowOptions options;
        options.ProgramDir = "/proc/vt";
        test::StartedWindow<> w(options);
        const QString saved =
            QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation))
                .filePath(QStringLiteral("Saved Problems"));
        EXPECT_EQ(QString::fromStdString(w.s->SavedProblemsDir), saved);
        EXPECT_TRUE(QDir(saved).exists());
        QStandardPaths::setTestModeEnabled(false);
        for (const char* item : {"mnuHelpTopics", "mnuVeritrace", "mnuHomePage"})
            w.window->MenuClick(item);
        w.window->ToolbarClick(16);
        w.window->MenuClick("mnuOnlineSupport");
        // About is modal: it is driven from inside its own event loop. Its System Info says
        // there is none to show and leaves the window open.
        test::WhileModal<frmAbout>({[](frmAbout& about) {
                                       EXPECT_EQ(about.windowTitle(), "About Veritrace");
                                       EXPECT_EQ(about.cmdSysInfo()->text(), "System Info...");
                                       about.cmdSysInfo()->click();
                                       EXPECT_TRUE(about.isVisible());
                                       about.Command1()->click();
                                       EXPECT_EQ(about.result(), QDialog::Accepted);
                                   }},
                                   [&] { w.window->MenuClick("mnuAbout"); });
        test::Texts shown;
        for (const auto& call : w.platform.Calls)
            shown.push_back(call.Kind + " " + call.Text);
        EXPECT_EQ(shown, (test::Texts{"ShowHelp /proc/vt/help/index.html",
                                      "OpenWebPage /proc/vt/help/web/veritrace.html",
                                      "OpenWebPage /proc/vt/help/web/home.html",
                                      "OpenWebPage /proc/vt/help/web/home.html",
                                      "OpenWebPage /proc/vt/help/web/support.html",
                                      std::string("MsgBox ") + SysInfoUnavailableText}));
    }
    // The Qt platform shows it in the program's own help window, on the Index tab.
    app::QtPlatform platform;
    platform.ShowHelp(BookPage("index.html").toStdString());
    HelpBrowser* help = platform.HelpWindow();
    ASSERT_NE(help, nullptr);
    EXPECT_TRUE(help->isVisible());
    EXPECT_EQ(help->CurrentPage(), QStringLiteral("index.html"));
    EXPECT_EQ(help->Tabs()->currentIndex(), HelpBrowser::IndexTab);
    // Asking again reuses the window.
    platform.ShowHelp(BookPage("index.html").toStdString());
    EXPECT_EQ(platform.HelpWindow(), help);
    help->close();
}

} // namespace vt::windows
