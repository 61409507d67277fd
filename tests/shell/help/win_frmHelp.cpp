// SPDX-License-Identifier: GPL-3.0-or-later
// The help window: contents, search, links, back and forward, keys, pictures, and its lifetime beside other windows.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "shell/bench/frmMainMenu.h"
#include "shell/help/frmHelp.h"
#include "shell/help/frmHelpPage.h"
#include "shell/help/frmHelpResults.h"
#include "shell/state/frmTool.h"

#include <QApplication>
#include <QDesktopServices>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QSet>
#include <QStackedWidget>
#include <QTextBlock>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const ManualPlace Contents{ManualContentsPage, {}};

ManualPlace PageNamed(const char* name, const char* section = "")
{
    return {QString::fromLatin1(name), QString::fromLatin1(section)};
}

// All visible help windows.
QList<frmHelp*> OpenHelp()
{
    QList<frmHelp*> open;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* help = qobject_cast<frmHelp*>(window); help != nullptr && help->isVisible())
            open.append(help);
    return open;
}

// Whether the window gets the keyboard focus in time.
bool IsActive(const QWidget* window)
{
    return QTest::qWaitFor([window] { return QApplication::activeWindow() == window; });
}

// The window after the manual has been opened, with the keyboard focus.
frmHelp* Help(const QString& page = {})
{
    ShowManual(page);
    frmHelp* help = OpenHelp().value(0);
    if (help == nullptr || !IsActive(help))
        QTest::qFail("the help window is not there", __FILE__, __LINE__);
    return help;
}

template <class Control>
Control* Find(const frmHelp* help, const char* name)
{
    return help->findChild<Control*>(QString::fromLatin1(name));
}

void Press(const frmHelp* help, const char* button)
{
    QTest::mouseClick(Find<QToolButton>(help, button), Qt::LeftButton);
}

void Search(const frmHelp* help, const char* text)
{
    auto* field = Find<QLineEdit>(help, "txtSearch");
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, QString::fromLatin1(text));
}

QString Shown(const frmHelp* help)
{
    return Find<QTextBrowser>(help, "txtPage")->toPlainText();
}

// Clicks the link with that text on the page, like the mouse.
void ClickLink(const frmHelp* help, const QString& text)
{
    auto* page = Find<QTextBrowser>(help, "txtPage");
    for (QTextBlock block = page->document()->begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            if (!it.fragment().charFormat().isAnchor() || it.fragment().text() != text)
                continue;
            QTextCursor cursor(page->document());
            cursor.setPosition(it.fragment().position() + 1);
            page->setTextCursor(cursor);
            page->ensureCursorVisible();
            QTest::mouseClick(page->viewport(), Qt::LeftButton, {}, page->cursorRect(cursor).center());
            return;
        }
    }
    QTest::qFail("the page has no such link", __FILE__, __LINE__);
}

QTreeWidgetItem* TreeItem(const frmHelp* help, const QString& caption)
{
    return Find<QTreeWidget>(help, "treeContents")->findItems(caption, Qt::MatchExactly | Qt::MatchRecursive).value(0);
}

// A tool window with a page.
class frmSample final : public QDialog {
public:
    static constexpr char ManualPage[] = "files";
    explicit frmSample(QWidget* parent) : QDialog(parent) { setObjectName(u"frmSample"_s); }
};

} // namespace

class win_frmHelp : public QObject {
    Q_OBJECT

public Q_SLOTS:
    void TakeUrl(const QUrl& url) { opened.append(url.toString()); }

private Q_SLOTS:
    void cleanup();
    void instructionsOpenTheContents();
    void aPageOpensAtItsTop();
    void aSectionIsGoneToBeforeTheWindowIsShown();
    void treeHoldsTheContentsAndTheirSections();
    void treeOpensPagesAndSections();
    void searchListsThePagesAndAClickOpensOne();
    void emptiedSearchBringsTheContentsBack();
    void searchThatFindsNothingSaysSo();
    void keysLeadFromTheSearchIntoThePage();
    void linkGoesToItsPageAndSection();
    void linkToTheWebLeavesTheProgram();
    void backAndForwardComeBackToTheirLines();
    void keysGoBackAndForward();
    void missingPageLeadsToTheContents();
    void escapeCloses();
    void f1ShowsTheContents();
    void allHelpUsesOneWindow();
    void f1InAToolOpensItsPage();
    void helpOfAModalToolCanBeUsedAndStays();
    void helpGoesWithTheMainWindow();
    void openHelpDoesNotKeepTheProgramAlive();
    void picturesFitTheWidth();
    void everyPictureOfTheManualIsEmbedded();
    void darkPaletteTurnsThePageDark();
    void everyCommandOfTheMenuIsInTheManual();
    void everyPageIsReachedFromTheContents();
    void everyPageIsInTheContentsTree();

private:
    QStringList opened;
};

void win_frmHelp::cleanup()
{
    for (frmHelp* help : OpenHelp())
        help->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    opened.clear();
}

void win_frmHelp::instructionsOpenTheContents()
{
    TestBench bench;
    bench.Start();
    mnuHelpInstruct_Click();
    QCOMPARE(OpenHelp().size(), 1);
    const frmHelp* help = OpenHelp().first();
    QCOMPARE(help->Here(), Contents);
    QCOMPARE(help->windowTitle(), u"Orchard Bench Help"_s);
    QVERIFY(Shown(help).startsWith(QLatin1String("Orchard Bench\n")));
    QVERIFY(!Find<QToolButton>(help, "cmdBack")->isEnabled());
    QVERIFY(!Find<QToolButton>(help, "cmdForward")->isEnabled());
}

// The window stays open between pages or is made anew, and its first page is longer than the window.
void win_frmHelp::aPageOpensAtItsTop()
{
    for (const char* page : {"index", "files", "running", "files"}) {
        frmHelp* help = Help(QString::fromLatin1(page));
        const QScrollBar* bar = Find<QTextBrowser>(help, "txtPage")->verticalScrollBar();
        QApplication::processEvents();
        QVERIFY2(bar->maximum() > 0, page);
        QCOMPARE(bar->value(), 0);
        if (help->Here() == PageNamed("running"))
            continue;
        help->close();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void win_frmHelp::aSectionIsGoneToBeforeTheWindowIsShown()
{
    frmHelp help(nullptr);
    help.GoTo(PageNamed("files", "untitledbak"));
    help.show();
    QVERIFY(IsActive(&help));
    const QTextCursor top = Find<QTextBrowser>(&help, "txtPage")->cursorForPosition(QPoint(60, 24));
    QCOMPARE(top.block().text(), u"untitled.bak"_s);
}

void win_frmHelp::treeHoldsTheContentsAndTheirSections()
{
    const frmHelp* help = Help();
    QStringList shown;
    QStringList expected;
    for (QTreeWidgetItemIterator it(Find<QTreeWidget>(help, "treeContents")); *it != nullptr; ++it)
        if ((*it)->parent() == nullptr || (*it)->parent()->parent() == nullptr)
            shown.append((*it)->text(0));
    for (const ManualEntry& entry : ContentsOf(*FindManualPage(ManualContentsPage)))
        expected.append(entry.caption);
    QVERIFY(expected.size() > 10);
    QCOMPARE(shown, expected);
    TreeItem(help, u"Files"_s)->setExpanded(true);
    QVERIFY(TreeItem(help, u"What a save does to the text"_s) != nullptr);
}

void win_frmHelp::treeOpensPagesAndSections()
{
    const frmHelp* help = Help();
    auto* tree = Find<QTreeWidget>(help, "treeContents");
    const auto click = [tree](QTreeWidgetItem* item) {
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(item).center());
    };
    click(TreeItem(help, u"Running programs"_s));
    QCOMPARE(help->Here(), PageNamed("running"));
    QCOMPARE(help->windowTitle(), u"Running programs - Orchard Bench Help"_s);
    QVERIFY(TreeItem(help, u"Running programs"_s)->isExpanded());
    click(TreeItem(help, u"Include lines"_s));
    QCOMPARE(help->Here(), PageNamed("running", "include-lines"));
    QVERIFY(Find<QTextBrowser>(help, "txtPage")->verticalScrollBar()->value() > 0);
    // A group is not a page.
    click(TreeItem(help, u"Start here"_s));
    QCOMPARE(help->Here(), PageNamed("running", "include-lines"));
}

void win_frmHelp::searchListsThePagesAndAClickOpensOne()
{
    const frmHelp* help = Help();
    Search(help, "include lines");
    auto* list = Find<QListWidget>(help, "lstResults");
    QVERIFY(list->isVisible());
    const auto hits = SearchManual(Manual(), u"include lines");
    QVERIFY(hits.size() >= 2);
    QCOMPARE(list->count(), static_cast<int>(hits.size()));
    QCOMPARE(Find<QLabel>(help, "lblFound")->text(), u"%1 pages"_s.arg(hits.size()));
    for (int row = 0; row < list->count(); ++row)
        QCOMPARE(list->item(row)->text(), hits[static_cast<std::size_t>(row)].title);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
    QCOMPARE(help->Here(), hits[1].place);
    const auto marks = Find<QTextBrowser>(help, "txtPage")->extraSelections();
    QVERIFY(marks.size() >= 2);
    for (const auto& mark : marks) {
        const QString word = mark.cursor.selectedText().toLower();
        QVERIFY2(word == QLatin1String("include") || word == QLatin1String("lines"), qPrintable(word));
    }
}

void win_frmHelp::emptiedSearchBringsTheContentsBack()
{
    const frmHelp* help = Help();
    Search(help, "untitled");
    QTest::keyClick(Find<QLineEdit>(help, "txtSearch"), Qt::Key_Return);
    QVERIFY(!Find<QTextBrowser>(help, "txtPage")->extraSelections().isEmpty());
    Find<QLineEdit>(help, "txtSearch")->selectAll();
    QTest::keyClick(Find<QLineEdit>(help, "txtSearch"), Qt::Key_Delete);
    QVERIFY(Find<QTreeWidget>(help, "treeContents")->isVisible());
    QVERIFY(Find<QTextBrowser>(help, "txtPage")->extraSelections().isEmpty());
}

void win_frmHelp::searchThatFindsNothingSaysSo()
{
    const frmHelp* help = Help();
    Search(help, "zyxwvu");
    QCOMPARE(Find<QListWidget>(help, "lstResults")->count(), 0);
    QCOMPARE(Find<QLabel>(help, "lblFound")->text(), u"No page holds all of these words."_s);
    QTest::keyClick(Find<QLineEdit>(help, "txtSearch"), Qt::Key_Return);
    QTest::keyClick(Find<QLineEdit>(help, "txtSearch"), Qt::Key_Down);
    QCOMPARE(help->Here(), Contents);
}

void win_frmHelp::keysLeadFromTheSearchIntoThePage()
{
    frmHelp* help = Help();
    auto* field = Find<QLineEdit>(help, "txtSearch");
    QVERIFY(!field->hasFocus());
    QTest::keyClick(help, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(field->hasFocus());
    QTest::keyClicks(field, u"save"_s);
    const auto hits = SearchManual(Manual(), u"save");
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(help->Here(), hits[0].place);
    QTest::keyClick(field, Qt::Key_Down);
    auto* list = Find<QListWidget>(help, "lstResults");
    QVERIFY(list->hasFocus());
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(help->Here(), hits[1].place);
    QVERIFY(help->isVisible());
}

void win_frmHelp::linkGoesToItsPageAndSection()
{
    const frmHelp* help = Help();
    ClickLink(help, u"Files"_s);
    QCOMPARE(help->Here(), PageNamed("files"));
    help = Help(u"running"_s);
    ClickLink(help, u"program's folder"_s);
    QCOMPARE(help->Here(), PageNamed("files", "untitledbak"));
    auto* page = Find<QTextBrowser>(help, "txtPage");
    const QTextCursor top = page->cursorForPosition(QPoint(60, 24));
    QCOMPARE(top.block().text(), u"untitled.bak"_s);
    QCOMPARE(Find<QTreeWidget>(help, "treeContents")->currentItem()->text(0), u"untitled.bak"_s);
}

void win_frmHelp::linkToTheWebLeavesTheProgram()
{
    QDesktopServices::setUrlHandler(u"https"_s, this, "TakeUrl");
    const frmHelp* help = Help();
    const QString address = u"https://www.orchardbasic.example/"_s;
    Q_EMIT Find<QTextBrowser>(help, "txtPage")->anchorClicked(QUrl(address));
    QDesktopServices::unsetUrlHandler(u"https"_s);
    QCOMPARE(opened, QStringList{address});
    QCOMPARE(help->Here(), Contents);
}

void win_frmHelp::backAndForwardComeBackToTheirLines()
{
    frmHelp* help = Help(u"files"_s);
    QScrollBar* bar = Find<QTextBrowser>(help, "txtPage")->verticalScrollBar();
    bar->setValue(333);
    QCOMPARE(bar->value(), 333);
    help->GoTo(PageNamed("running"));
    QCOMPARE(bar->value(), 0);
    bar->setValue(111);
    Press(help, "cmdBack");
    QCOMPARE(help->Here(), PageNamed("files"));
    QCOMPARE(bar->value(), 333);
    Press(help, "cmdForward");
    QCOMPARE(help->Here(), PageNamed("running"));
    QCOMPARE(bar->value(), 111);
    QVERIFY(!Find<QToolButton>(help, "cmdForward")->isEnabled());
    Press(help, "cmdContents");
    QCOMPARE(help->Here(), Contents);
}

void win_frmHelp::keysGoBackAndForward()
{
    frmHelp* help = Help(u"files"_s);
    QTest::keyClick(Find<QTextBrowser>(help, "txtPage"), Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(help->Here(), Contents);
    QTest::keyClick(Find<QLineEdit>(help, "txtSearch"), Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(help->Here(), PageNamed("files"));
    // At the end of the history nothing happens.
    QTest::keyClick(help, Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(help->Here(), PageNamed("files"));
}

void win_frmHelp::missingPageLeadsToTheContents()
{
    const frmHelp* help = Help(u"no-such-page"_s);
    QVERIFY(Shown(help).startsWith(QLatin1String("There is no page on this yet.\n")));
    QCOMPARE(help->windowTitle(), u"Orchard Bench Help"_s);
    ClickLink(help, u"contents"_s);
    QCOMPARE(help->Here(), Contents);
    Press(help, "cmdBack");
    QVERIFY(Shown(help).startsWith(QLatin1String("There is no page on this yet.\n")));
}

void win_frmHelp::escapeCloses()
{
    for (const char* control : {"txtPage", "txtSearch", "treeContents"}) {
        const frmHelp* help = Help();
        auto* focus = Find<QWidget>(help, control);
        focus->setFocus();
        QTest::keyClick(focus, Qt::Key_Escape);
        QVERIFY2(OpenHelp().isEmpty(), control);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void win_frmHelp::f1ShowsTheContents()
{
    frmHelp* help = Help(u"files"_s);
    QTest::keyClick(help, Qt::Key_F1);
    QCOMPARE(help->Here(), Contents);
    QCOMPARE(OpenHelp().size(), 1);
}

void win_frmHelp::allHelpUsesOneWindow()
{
    const frmHelp* first = Help(u"files"_s);
    const frmHelp* second = Help(u"running"_s);
    QCOMPARE(first, second);
    QCOMPARE(second->Here(), PageNamed("running"));
    QVERIFY(Find<QToolButton>(second, "cmdBack")->isEnabled());
}

void win_frmHelp::f1InAToolOpensItsPage()
{
    TestBench bench;
    bench.Start();
    auto* tool = ShowTool<frmSample>();
    QVERIFY(IsActive(tool));
    QTest::keyClick(tool, Qt::Key_F1);
    QCOMPARE(OpenHelp().size(), 1);
    QCOMPARE(OpenHelp().first()->Here(), PageNamed("files"));
    tool->close();
}

void win_frmHelp::helpOfAModalToolCanBeUsedAndStays()
{
    TestBench bench;
    bench.Start();
    Help(u"running"_s);
    bench.ExpectModal(u"frmSample"_s, [](QDialog& tool) {
        QVERIFY(IsActive(&tool));
        QTest::keyClick(&tool, Qt::Key_F1);
        QCOMPARE(OpenHelp().size(), 1);
        frmHelp* help = OpenHelp().first();
        QCOMPARE(help->Here(), PageNamed("files"));
        QVERIFY(IsActive(help));
        // A window blocked by a modal one gets no clicks.
        QTest::mouseClick(help->windowHandle(), Qt::LeftButton, {},
                          Find<QToolButton>(help, "cmdBack")->mapTo(help, QPoint(8, 8)));
        QCOMPARE(help->Here(), PageNamed("running"));
        tool.accept();
    });
    ShowToolModally<frmSample>();
    QCOMPARE(OpenHelp().size(), 1);
    QVERIFY(OpenHelp().first()->parentWidget() == nullptr);
    QCOMPARE(OpenHelp().first()->Here(), PageNamed("running"));
}

void win_frmHelp::helpGoesWithTheMainWindow()
{
    {
        TestBench bench;
        bench.Start();
        Help();
        QVERIFY(bench.Close());
    }
    QVERIFY(OpenHelp().isEmpty());
}

void win_frmHelp::openHelpDoesNotKeepTheProgramAlive()
{
    TestBench bench;
    bench.Start();
    Help();
    QTimer::singleShot(0, &bench.Frame(), &QWidget::close);
    QTimer::singleShot(5000, qApp, [] { QApplication::exit(7); });
    QCOMPARE(QApplication::exec(), 0);
}

void win_frmHelp::picturesFitTheWidth()
{
    frmHelp* help = Help(u"first-steps"_s);
    auto* page = Find<QTextBrowser>(help, "txtPage");
    const QUrl picture(u"pictures/bench.png"_s);
    const auto width = [&] {
        const auto image = page->document()->resource(QTextDocument::ImageResource, picture).value<QImage>();
        return qRound(image.width() / image.devicePixelRatio());
    };
    help->resize(1400, 800);
    QApplication::processEvents();
    const int natural = QImage(u":/manual/pictures/bench.png"_s).width();
    QCOMPARE(width(), natural);
    help->resize(640, 500);
    QApplication::processEvents();
    QVERIFY(width() > 100 && width() < page->viewport()->width());
    help->resize(1400, 800);
    QApplication::processEvents();
    QCOMPARE(width(), natural);
}

void win_frmHelp::everyPictureOfTheManualIsEmbedded()
{
    for (const HelpPage& page : Manual())
        for (const ManualBlock& block : page.blocks)
            for (const ManualLink& picture : block.pictures)
                QVERIFY2(!QImage(u":/manual/"_s + picture.target).isNull(), qPrintable(picture.target));
}

void win_frmHelp::darkPaletteTurnsThePageDark()
{
    frmHelp* help = Help(u"running"_s);
    auto* page = Find<QTextBrowser>(help, "txtPage");
    const auto linkColor = [&] {
        for (QTextBlock block = page->document()->begin(); block.isValid(); block = block.next())
            for (auto it = block.begin(); !it.atEnd(); ++it)
                if (it.fragment().charFormat().isAnchor())
                    return it.fragment().charFormat().foreground().color();
        return QColor();
    };
    QVERIFY(linkColor().lightness() < 128);
    page->verticalScrollBar()->setValue(200);
    QPalette dark = help->palette();
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, QColor(230, 230, 230));
    help->setPalette(dark);
    QApplication::processEvents();
    QVERIFY(linkColor().lightness() > 128);
    QCOMPARE(page->verticalScrollBar()->value(), 200);
    const QImage picture = page->viewport()->grab().toImage();
    QCOMPARE(picture.pixelColor(4, 4), QColor(30, 30, 30));
}

void win_frmHelp::everyCommandOfTheMenuIsInTheManual()
{
    TestBench bench;
    bench.Start();
    const HelpPage* page = FindManualPage(u"menus-and-keys");
    QVERIFY(page != nullptr);
    QStringList missing;
    for (const MenuRow& row : MenuTree()) {
        if (row.click == nullptr)
            continue;
        const QString caption = QString::fromLatin1(row.caption).remove(QLatin1Char('&')).simplified();
        const QString key = QString::fromLatin1(row.key);
        bool isThere = false;
        for (const ManualBlock& block : page->blocks) {
            const QString item = block.text.section(u"  "_s, 0, 0).section(u" > "_s, -1);
            const QString itemKey = block.text.section(u"  "_s, 1, 1);
            isThere = isThere || (block.kind == BlockKind::Row && item == caption && itemKey == key);
        }
        if (!isThere)
            missing.append(caption + QLatin1Char(' ') + key);
    }
    QVERIFY2(missing.isEmpty(), qPrintable(missing.join(QLatin1Char('\n'))));
}

void win_frmHelp::everyPageIsReachedFromTheContents()
{
    TestBench bench;
    bench.Start();
    QSet<QString> reached = {ManualContentsPage};
    QStringList ahead = {ManualContentsPage};
    while (!ahead.isEmpty()) {
        const HelpPage* page = FindManualPage(ahead.takeFirst());
        if (page == nullptr)
            continue;
        for (const ManualBlock& block : page->blocks) {
            for (const ManualLink& link : block.links) {
                const QString name = PlaceOfLink(link.target, page->name).page;
                if (IsManualLink(link.target) && !reached.contains(name)) {
                    reached.insert(name);
                    ahead.append(name);
                }
            }
        }
    }
    for (const HelpPage& page : Manual())
        QVERIFY2(reached.contains(page.name), qPrintable(page.name));
}

void win_frmHelp::everyPageIsInTheContentsTree()
{
    TestBench bench;
    bench.Start();
    QStringList listed = {ManualContentsPage};
    for (const ManualEntry& entry : ContentsOf(*FindManualPage(ManualContentsPage)))
        listed.append(entry.page);
    for (const HelpPage& page : Manual())
        QVERIFY2(listed.contains(page.name), qPrintable(page.name));
}

OB_BENCH_TEST(win_frmHelp)
#include "win_frmHelp.moc"
