#pragma once
// The program's help window: the help book's pages in a text browser, with three tabs beside
// them: Contents (the pages the book's first page lists, with their sections), Index (the
// keywords the pages name) and Search (the pages that hold all the words asked for). It reads
// only the book's folder; a link that leaves the book goes to the desktop's browser.

#include <QString>
#include <QStringList>
#include <QUrl>
#include <QWidget>
#include <vector>

class QLineEdit;
class QListWidget;
class QTabWidget;
class QTextBrowser;
class QTreeWidget;
class QToolButton;

namespace vt::windows {

class HelpBrowser : public QWidget {
  public:
    enum Tab { ContentsTab = 0, IndexTab = 1, SearchTab = 2 };

    explicit HelpBrowser(QWidget* parent = nullptr);

    // Opens a page; its folder is the book. Without the page, the window says that the help
    // book was not found, and the answer is false.
    bool Open(const QString& page);
    void ShowTab(Tab tab);

    // The pages that hold every word of `words` (case ignored), the most mentions first, as
    // file names of the book.
    QStringList Search(const QString& words) const;
    // The pages of an index keyword, as file names; none for an unknown keyword.
    QStringList PagesOfKeyword(const QString& keyword) const;

    QTextBrowser* Viewer() const { return viewer_; }
    QTabWidget* Tabs() const { return tabs_; }
    QTreeWidget* Contents() const { return contents_; }
    QLineEdit* IndexFilter() const { return indexFilter_; }
    QListWidget* IndexList() const { return indexList_; }
    QLineEdit* SearchText() const { return searchText_; }
    QListWidget* SearchResults() const { return searchResults_; }
    // The page shown, as a file name of the book; empty when none is.
    QString CurrentPage() const;

  private:
    struct Page {
        QString File; // name within the book's folder
        QString Title;
        QString Text; // plain text, for the search
        QStringList Keywords;
        std::vector<std::pair<QString, QString>> Sections; // anchor, heading
    };

    void LoadBook(const QString& folder);
    void FillContents(const QString& indexHtml);
    void FillIndex();
    void RunSearch();
    void ShowUrl(const QUrl& url);
    void FilterIndex(const QString& text);
    const Page* PageNamed(const QString& file) const;
    QUrl BookUrl(const QString& file, const QString& anchor = {}) const;

    QString folder_;
    std::vector<Page> pages_;
    QTextBrowser* viewer_ = nullptr;
    QTabWidget* tabs_ = nullptr;
    QTreeWidget* contents_ = nullptr;
    QLineEdit* indexFilter_ = nullptr;
    QListWidget* indexList_ = nullptr;
    QLineEdit* searchText_ = nullptr;
    QListWidget* searchResults_ = nullptr;
    QToolButton* back_ = nullptr;
    QToolButton* forward_ = nullptr;
};

} // namespace vt::windows
