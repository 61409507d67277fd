// SPDX-License-Identifier: GPL-3.0-or-later
// The tools as their rooms register them: in the menu, on the toolbar, in the manual.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "shell/bench/frmMainMenu.h"
#include "shell/bench/frmTools.h"
#include "shell/help/frmHelp.h"
#include "shell/help/modManual.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QShortcut>
#include <QToolBar>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

QStringList Captions(const QList<QAction*>& actions)
{
    QStringList captions;
    for (const QAction* action : actions)
        if (!action->isSeparator())
            captions.append(action->text());
    return captions;
}

QMenu* ButtonMenu(TestBench& bench, const char* button)
{
    const auto* bar = bench.Frame().findChild<QToolBar*>(u"tbToolBar"_s);
    return bar->findChild<QAction*>(QString::fromLatin1(button))->menu();
}

// What the menus of tools show, from top to bottom; tools that came later may follow.
const QStringList Construction = {
    u"&Array Maker"_s,         u"Men&u Maker"_s,       u"&Message Boxes"_s,   u"AP&I Wrapper Library"_s,
    u"&Printer API Library"_s, u"Snipp&et Bench"_s,    u"&Snippet Library"_s, u"Mas&k Maker"_s,
    u"A&VI Maker"_s,           u"Packaging &Wizard"_s, u"&Toolbar Maker"_s,   u"Style&Bits Wizard"_s,
    u"API &Texteditor"_s,
};
const QStringList Preview = {
    u"&Wav Preview"_s,  u"&Bitmap Preview"_s, u"Med&ia Preview"_s, u"RGB &Color Preview"_s,
    u"Color &Dialog"_s, u"Color &Names"_s,    u"&Font Dialog"_s,   u"&Key Code Preview"_s,
};

// The menu item as the manual writes it: "Construction Tools > Array Maker".
QString PathOf(const ToolRow& tool)
{
    QString path = QString::fromLatin1(tool.caption);
    for (const MenuRow& row : MenuTree())
        if (row.depth > 0 && std::string_view(row.name) == tool.menu)
            path.prepend(QString::fromLatin1(row.caption) + u" > "_s);
    return path.remove(QLatin1Char('&'));
}

bool HasRow(const HelpPage& page, const QString& item)
{
    return std::any_of(page.blocks.begin(), page.blocks.end(), [&item](const ManualBlock& block) {
        return block.kind == BlockKind::Row && block.text.startsWith(item + u"  "_s);
    });
}

// The dialog that can be seen and is not the manual; null for none, or several.
QDialog* OpenTool()
{
    QList<QDialog*> open;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* tool = qobject_cast<QDialog*>(window);
        if (tool != nullptr && tool->isVisible() && qobject_cast<frmHelp*>(window) == nullptr)
            open.append(tool);
    }
    return open.size() == 1 ? open.first() : nullptr;
}

frmHelp* OpenHelp()
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* help = qobject_cast<frmHelp*>(window); help != nullptr && help->isVisible())
            return help;
    return nullptr;
}

QString PageByF1(const QDialog& tool)
{
    for (QShortcut* key : tool.findChildren<QShortcut*>(Qt::FindDirectChildrenOnly))
        if (key->key() == QKeySequence(Qt::Key_F1))
            Q_EMIT key->activated();
    const frmHelp* help = OpenHelp();
    return help == nullptr ? QString() : help->Here().page;
}

// Opens the tool, passes its window to the script, and closes it.
void WithTool(const QString& name, const std::function<void(QDialog&)>& script)
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, "a = 1\r\nend\r\n")});
    const auto play = [&script](QDialog& tool) {
        tool.activateWindow();
        if (!QTest::qWaitFor([&tool] { return tool.isActiveWindow(); }))
            QTest::qFail("the tool did not become the active window", __FILE__, __LINE__);
        script(tool);
        tool.reject();
    };
    bench.AnswerModals(play);
    bench.Choose(name);
    if (QDialog* tool = OpenTool())
        play(*tool);
}

// These open a code window, a form, a box of the system's or another program, or ask for files first.
const QStringList WithoutWindow = {
    u"mnuWrapper"_s,  u"mnuToolPrinter"_s,  u"mnuToolSnippet"_s, u"mnuToolTE"_s,  u"mnuColorDialog"_s,
    u"mnuToolFont"_s, u"mnuToolFreeform"_s, u"mnuGui"_s,         u"mnuPackage"_s,
};

} // namespace

class win_frmTools : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void toolsHaveNamesOfTheirOwn();
    void menusShowTheToolsInTheirOrder();
    void buttonsOfferTheToolsInTheirOrder();
    void everyToolIsOnceInTheMenuTree();
    void everyToolHasAnIcon();
    void everyToolHasAPageInTheContents();
    void everyToolIsAmongMenusAndKeys();
    void f1OpensThePageOfATool_data() { AddToolsWithWindows(); }
    void f1OpensThePageOfATool();
    void everyListShowsTheKeyboard_data() { AddToolsWithWindows(); }
    void everyListShowsTheKeyboard();
    void everyFieldHoldsWhatItShows_data() { AddToolsWithWindows(); }
    void everyFieldHoldsWhatItShows();

private:
    static void AddToolsWithWindows();
};

void win_frmTools::toolsHaveNamesOfTheirOwn()
{
    QStringList names;
    for (const ToolRow& tool : Tools())
        names.append(QString::fromLatin1(tool.name));
    QVERIFY(names.size() >= 25);
    QCOMPARE(names.removeDuplicates(), 0);
    QVERIFY(FindTool(u"mnuToolArray"_s) != nullptr);
    QVERIFY(FindTool(u"mnuFileNew"_s) == nullptr);
}

void win_frmTools::menusShowTheToolsInTheirOrder()
{
    TestBench bench;
    bench.Start();
    const auto captions = [&](const char* menu, const QStringList& expected) {
        return Captions(bench.Frame().Item(QString::fromLatin1(menu))->menu()->actions()).mid(0, expected.size());
    };
    const QStringList others = {u"&Applications"_s, u"&Construction Tools"_s, u"&Preview Tools"_s, u"&Gui Builder"_s,
                                u"&Icon Editor"_s,  u"&FreeForm"_s,           u"Show &Variables"_s};
    QCOMPARE(captions(ConstructionTools, Construction), Construction);
    QCOMPARE(captions(PreviewTools, Preview), Preview);
    QCOMPARE(captions(OtherTools, others), others);
}

void win_frmTools::buttonsOfferTheToolsInTheirOrder()
{
    TestBench bench;
    bench.Start();
    QStringList construction = Construction;
    construction.insert(construction.indexOf(u"&Toolbar Maker"_s), u"&Icon Editor"_s);
    QCOMPARE(Captions(ButtonMenu(bench, "Construct")->actions()).mid(0, construction.size()), construction);
    QCOMPARE(Captions(ButtonMenu(bench, "View")->actions()).mid(0, Preview.size()), Preview);
}

void win_frmTools::everyToolIsOnceInTheMenuTree()
{
    for (const ToolRow& tool : Tools())
        QCOMPARE(std::count_if(MenuTree().begin(), MenuTree().end(),
                               [&tool](const MenuRow& row) {
                                   return row.click == tool.show && row.icon == tool.icon &&
                                          row.caption == tool.caption;
                               }),
                 1);
    for (const MenuRow& row : MenuTree())
        QVERIFY2(row.kind != ItemKind::Tool, row.name);
}

void win_frmTools::everyToolHasAnIcon()
{
    for (const ToolRow& tool : Tools())
        QVERIFY2(QFile::exists(u":/icons/%1.svg"_s.arg(QLatin1String(tool.icon))), tool.name);
}

void win_frmTools::everyToolHasAPageInTheContents()
{
    TestBench bench;
    bench.Start();
    QStringList listed;
    for (const ManualEntry& entry : ContentsOf(*FindManualPage(ManualContentsPage)))
        listed.append(entry.page);
    for (const ToolRow& tool : Tools()) {
        QVERIFY2(FindManualPage(QString::fromLatin1(tool.page)) != nullptr, tool.name);
        QVERIFY2(listed.contains(QLatin1String(tool.page)), tool.name);
    }
}

void win_frmTools::everyToolIsAmongMenusAndKeys()
{
    TestBench bench;
    bench.Start();
    const HelpPage* page = FindManualPage(u"menus-and-keys");
    for (const ToolRow& tool : Tools())
        QVERIFY2(HasRow(*page, PathOf(tool)), qPrintable(PathOf(tool)));
}

void win_frmTools::AddToolsWithWindows()
{
    QTest::addColumn<QString>("name");
    for (const ToolRow& tool : Tools())
        if (!WithoutWindow.contains(QLatin1String(tool.name)))
            QTest::newRow(tool.name) << QString::fromLatin1(tool.name);
}

void win_frmTools::f1OpensThePageOfATool()
{
    QFETCH(QString, name);
    QString page;
    WithTool(name, [&page](QDialog& tool) {
        page = PageByF1(tool);
        OpenHelp()->close();
    });
    QCOMPARE(page, QString::fromLatin1(FindTool(name)->page));
}

void win_frmTools::everyListShowsTheKeyboard()
{
    QFETCH(QString, name);
    WithTool(name, [](QDialog& tool) {
        for (auto* list : tool.findChildren<QAbstractItemView*>()) {
            if (!list->isVisible() || !list->isEnabled() || list->focusPolicy() == Qt::NoFocus)
                continue;
            list->setFocus();
            const QImage shown = list->grab().toImage();
            const QColor frame = list->palette().color(QPalette::Active, QPalette::Highlight);
            QVERIFY2(shown.pixelColor(shown.width() / 2, 0) == frame, qPrintable(list->objectName()));
            QVERIFY2(shown.pixelColor(0, shown.height() / 2) == frame, qPrintable(list->objectName()));
        }
    });
}

void win_frmTools::everyFieldHoldsWhatItShows()
{
    QFETCH(QString, name);
    QApplication::clipboard()->setText(u"one\r\ntwo\nthree\n"_s);
    WithTool(name, [](QDialog& tool) {
        for (auto* field : tool.findChildren<QLineEdit*>()) {
            if (!field->isVisible() || !field->isEnabled() || field->isReadOnly())
                continue;
            field->clear();
            QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
            QVERIFY2(field->text() == field->displayText(), qPrintable(field->objectName()));
            field->clear();
        }
    });
}

OB_BENCH_TEST(win_frmTools)
#include "win_frmTools.moc"
