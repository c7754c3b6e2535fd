#include "windows/HelpBrowser.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMap>
#include <QRegularExpression>
#include <QSplitter>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTextDocument>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace vt::windows {

namespace {

constexpr int UrlRole = Qt::UserRole;

QString ReadText(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(file.readAll());
}

// The text of a piece of HTML: tags dropped, the few entities the book uses turned back.
QString PlainText(const QString& html) {
    QTextDocument document;
    document.setHtml(html);
    return document.toPlainText().simplified();
}

QString FirstMatch(const QString& html, const QRegularExpression& pattern) {
    const QRegularExpressionMatch match = pattern.match(html);
    return match.hasMatch() ? PlainText(match.captured(1)) : QString();
}

} // namespace

HelpBrowser::HelpBrowser(QWidget* parent) : QWidget(parent, Qt::Window) {
    setWindowTitle(QStringLiteral("Veritrace Help"));
    resize(980, 680);

    auto* bar = new QToolBar(this);
    back_ = new QToolButton(bar);
    back_->setText(QStringLiteral("Back"));
    forward_ = new QToolButton(bar);
    forward_->setText(QStringLiteral("Forward"));
    auto* home = new QToolButton(bar);
    home->setText(QStringLiteral("Contents"));
    bar->addWidget(back_);
    bar->addWidget(forward_);
    bar->addWidget(home);

    tabs_ = new QTabWidget(this);
    contents_ = new QTreeWidget(tabs_);
    contents_->setHeaderHidden(true);
    tabs_->addTab(contents_, QStringLiteral("Contents"));

    auto* indexPage = new QWidget(tabs_);
    auto* indexLayout = new QVBoxLayout(indexPage);
    indexFilter_ = new QLineEdit(indexPage);
    indexFilter_->setPlaceholderText(QStringLiteral("Type the first letters of a word"));
    indexList_ = new QListWidget(indexPage);
    indexLayout->addWidget(indexFilter_);
    indexLayout->addWidget(indexList_);
    tabs_->addTab(indexPage, QStringLiteral("Index"));

    auto* searchPage = new QWidget(tabs_);
    auto* searchLayout = new QVBoxLayout(searchPage);
    searchText_ = new QLineEdit(searchPage);
    searchText_->setPlaceholderText(QStringLiteral("Words to look for, then Enter"));
    searchResults_ = new QListWidget(searchPage);
    searchLayout->addWidget(searchText_);
    searchLayout->addWidget(searchResults_);
    tabs_->addTab(searchPage, QStringLiteral("Search"));

    viewer_ = new QTextBrowser(this);
    viewer_->setOpenLinks(false);

    auto* splitter = new QSplitter(this);
    splitter->addWidget(tabs_);
    splitter->addWidget(viewer_);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({260, 720});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(bar);
    layout->addWidget(splitter);

    connect(back_, &QToolButton::clicked, viewer_, &QTextBrowser::backward);
    connect(forward_, &QToolButton::clicked, viewer_, &QTextBrowser::forward);
    connect(viewer_, &QTextBrowser::backwardAvailable, back_, &QToolButton::setEnabled);
    connect(viewer_, &QTextBrowser::forwardAvailable, forward_, &QToolButton::setEnabled);
    back_->setEnabled(false);
    forward_->setEnabled(false);
    connect(home, &QToolButton::clicked, this,
            [this] { ShowUrl(BookUrl(QStringLiteral("index.html"))); });
    connect(viewer_, &QTextBrowser::anchorClicked, this, &HelpBrowser::ShowUrl);
    connect(viewer_, &QTextBrowser::sourceChanged, this, [this] {
        const QString title = viewer_->documentTitle();
        setWindowTitle(title.isEmpty() ? QStringLiteral("Veritrace Help")
                                       : QStringLiteral("Veritrace Help - ") + title);
    });
    const auto openItem = [this](const QVariant& url) {
        if (url.isValid()) ShowUrl(url.toUrl());
    };
    connect(contents_, &QTreeWidget::itemActivated, this,
            [openItem](QTreeWidgetItem* item) { openItem(item->data(0, UrlRole)); });
    connect(contents_, &QTreeWidget::itemClicked, this,
            [openItem](QTreeWidgetItem* item) { openItem(item->data(0, UrlRole)); });
    for (QListWidget* list : {indexList_, searchResults_}) {
        connect(list, &QListWidget::itemActivated, this,
                [openItem](QListWidgetItem* item) { openItem(item->data(UrlRole)); });
        connect(list, &QListWidget::itemClicked, this,
                [openItem](QListWidgetItem* item) { openItem(item->data(UrlRole)); });
    }
    connect(indexFilter_, &QLineEdit::textChanged, this, &HelpBrowser::FilterIndex);
    connect(indexFilter_, &QLineEdit::returnPressed, this, [this, openItem] {
        if (QListWidgetItem* item = indexList_->currentItem()) openItem(item->data(UrlRole));
    });
    connect(searchText_, &QLineEdit::returnPressed, this, &HelpBrowser::RunSearch);
}

bool HelpBrowser::Open(const QString& page) {
    const QFileInfo info(page);
    if (!info.isFile()) {
        folder_.clear();
        pages_.clear();
        contents_->clear();
        indexList_->clear();
        searchResults_->clear();
        viewer_->setHtml(QStringLiteral("<h2>Veritrace Help</h2><p>The help book was not found:"
                                        "</p><p><tt>%1</tt></p><p>It belongs in the folder "
                                        "\"help\" beside the program.</p>")
                             .arg(page.toHtmlEscaped()));
        return false;
    }
    const QString folder = info.absolutePath();
    if (folder != folder_) LoadBook(folder);
    viewer_->setSource(QUrl::fromLocalFile(info.absoluteFilePath()));
    return true;
}

void HelpBrowser::ShowTab(Tab tab) {
    tabs_->setCurrentIndex(tab);
}

QString HelpBrowser::CurrentPage() const {
    const QUrl source = viewer_->source();
    if (!source.isLocalFile() || folder_.isEmpty()) return {};
    return QDir(folder_).relativeFilePath(source.toLocalFile());
}

void HelpBrowser::LoadBook(const QString& folder) {
    folder_ = folder;
    pages_.clear();
    viewer_->setSearchPaths({folder});
    static const QRegularExpression title(QStringLiteral("<title>(.*?)</title>"),
                                          QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression keywords(
        QStringLiteral("<meta\\s+name=\"keywords\"\\s+content=\"([^\"]*)\""));
    static const QRegularExpression section(QStringLiteral("<h2 id=\"([^\"]+)\">(.*?)</h2>"),
                                            QRegularExpression::DotMatchesEverythingOption);
    const QDir dir(folder);
    for (const QString& file : dir.entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name)) {
        const QString html = ReadText(dir.filePath(file));
        Page page;
        page.File = file;
        page.Title = FirstMatch(html, title);
        if (page.Title.isEmpty()) page.Title = file;
        page.Text = PlainText(html);
        const QRegularExpressionMatch words = keywords.match(html);
        if (words.hasMatch())
            for (const QString& word :
                 words.captured(1).split(QLatin1Char(';'), Qt::SkipEmptyParts))
                page.Keywords << word.trimmed();
        // The index's words find their page in a search too.
        page.Text += QLatin1Char(' ') + page.Keywords.join(QLatin1Char(' '));
        for (auto it = section.globalMatch(html); it.hasNext();) {
            const QRegularExpressionMatch match = it.next();
            page.Sections.emplace_back(match.captured(1), PlainText(match.captured(2)));
        }
        pages_.push_back(std::move(page));
    }
    FillContents(ReadText(dir.filePath(QStringLiteral("index.html"))));
    FillIndex();
    searchResults_->clear();
}

void HelpBrowser::FillContents(const QString& indexHtml) {
    contents_->clear();
    // The book's first page lists its pages in reading order; each becomes an entry, with the
    // page's sections under it.
    static const QRegularExpression link(QStringLiteral("<a href=\"([^\"#:]+\\.html)\">"));
    QStringList seen;
    for (auto it = link.globalMatch(indexHtml); it.hasNext();) {
        const QString file = it.next().captured(1);
        const Page* page = PageNamed(file);
        if (!page || seen.contains(file)) continue;
        seen << file;
        auto* item = new QTreeWidgetItem(contents_, {page->Title});
        item->setData(0, UrlRole, BookUrl(file));
        for (const auto& [anchor, heading] : page->Sections) {
            auto* child = new QTreeWidgetItem(item, {heading});
            child->setData(0, UrlRole, BookUrl(file, anchor));
        }
    }
}

void HelpBrowser::FillIndex() {
    indexList_->clear();
    QMap<QString, std::pair<QString, QStringList>> entries; // folded word -> word, pages
    for (const Page& page : pages_)
        for (const QString& word : page.Keywords) {
            auto& entry = entries[word.toCaseFolded()];
            if (entry.first.isEmpty()) entry.first = word;
            entry.second << page.File;
        }
    for (const auto& [word, files] : entries) {
        for (const QString& file : files) {
            const QString text =
                files.size() == 1 ? word : word + QStringLiteral(" - ") + PageNamed(file)->Title;
            auto* item = new QListWidgetItem(text, indexList_);
            item->setData(UrlRole, BookUrl(file));
        }
    }
}

void HelpBrowser::FilterIndex(const QString& text) {
    const QString wanted = text.trimmed();
    if (wanted.isEmpty()) return;
    for (int i = 0; i < indexList_->count(); ++i) {
        QListWidgetItem* item = indexList_->item(i);
        if (item->text().startsWith(wanted, Qt::CaseInsensitive)) {
            indexList_->setCurrentItem(item);
            indexList_->scrollToItem(item, QAbstractItemView::PositionAtTop);
            return;
        }
    }
}

QStringList HelpBrowser::PagesOfKeyword(const QString& keyword) const {
    QStringList files;
    for (const Page& page : pages_)
        for (const QString& word : page.Keywords)
            if (word.compare(keyword, Qt::CaseInsensitive) == 0) files << page.File;
    return files;
}

QStringList HelpBrowser::Search(const QString& words) const {
    const QStringList wanted = words.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (wanted.isEmpty()) return {};
    std::vector<std::pair<qsizetype, QString>> found;
    for (const Page& page : pages_) {
        qsizetype mentions = 0;
        bool all = true;
        for (const QString& word : wanted) {
            const qsizetype count = page.Text.count(word, Qt::CaseInsensitive);
            if (count == 0) {
                all = false;
                break;
            }
            mentions += count;
        }
        if (all) found.emplace_back(mentions, page.File);
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return a.first > b.first; });
    QStringList files;
    for (const auto& hit : found)
        files << hit.second;
    return files;
}

void HelpBrowser::RunSearch() {
    searchResults_->clear();
    const QStringList files = Search(searchText_->text());
    for (const QString& file : files) {
        auto* item = new QListWidgetItem(PageNamed(file)->Title, searchResults_);
        item->setData(UrlRole, BookUrl(file));
    }
    if (files.isEmpty() && !searchText_->text().trimmed().isEmpty())
        new QListWidgetItem(QStringLiteral("No page holds all these words."), searchResults_);
}

void HelpBrowser::ShowUrl(const QUrl& url) {
    // Pages of the book open here; anything else (a web address, mail) goes to the desktop.
    if (!url.scheme().isEmpty() && !url.isLocalFile()) {
        QDesktopServices::openUrl(url);
        return;
    }
    if (folder_.isEmpty()) return;
    const QUrl current =
        viewer_->source().isLocalFile() ? viewer_->source() : BookUrl(QStringLiteral("index.html"));
    viewer_->setSource(url.isLocalFile() ? url : current.resolved(url));
}

QUrl HelpBrowser::BookUrl(const QString& file, const QString& anchor) const {
    QUrl url = QUrl::fromLocalFile(QDir(folder_).filePath(file));
    if (!anchor.isEmpty()) url.setFragment(anchor);
    return url;
}

const HelpBrowser::Page* HelpBrowser::PageNamed(const QString& file) const {
    for (const Page& page : pages_)
        if (page.File == file) return &page;
    return nullptr;
}

} // namespace vt::windows
