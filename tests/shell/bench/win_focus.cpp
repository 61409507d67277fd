// SPDX-License-Identifier: GPL-3.0-or-later
// Where the keyboard is after a box: in the window that asked. Also run on a real server with window managers.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "platform/dialogs/dlgStandard.h"
#include "shell/bench/frmTools.h"
#include "shell/bench/frmUser.h"

#include <QAction>
#include <QColorDialog>
#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QSet>
#include <QToolButton>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

bool IsBox(const QDialog& dialog)
{
    return qobject_cast<const QMessageBox*>(&dialog) != nullptr ||
           qobject_cast<const QFileDialog*>(&dialog) != nullptr ||
           qobject_cast<const QInputDialog*>(&dialog) != nullptr ||
           qobject_cast<const QColorDialog*>(&dialog) != nullptr ||
           qobject_cast<const QFontDialog*>(&dialog) != nullptr;
}

bool IsActive(const QWidget* window)
{
    return QTest::qWaitFor([window] { return QApplication::activeWindow() == window; }, 3000);
}

// The tool that can be seen, another than the one given; null for none.
QDialog* OpenTool(const QDialog* other = nullptr)
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* tool = qobject_cast<QDialog*>(window);
            tool != nullptr && tool != other && tool->isVisible() && !IsBox(*tool))
            return tool;
    return nullptr;
}

// The real boxes, in place of the scripted ones for as long as this lives.
class RealBoxes {
public:
    RealBoxes() : before(SetDialogs(&boxes)) {}
    ~RealBoxes() { SetDialogs(before); }

private:
    dlgStandard boxes;
    cDialogs* before;
};

// On a real server the mouse and the keys are the server's own: window managers look at the times of their events.
bool IsOnServer()
{
    return QGuiApplication::platformName() == u"xcb"_s;
}

void XDo(const QStringList& arguments)
{
    QProcess::startDetached(u"xdotool"_s, arguments);
}

// Returns when the click has been worked off, boxes and all.
void Click(QAbstractButton& button)
{
    if (!IsOnServer()) {
        QTest::mouseClick(&button, Qt::LeftButton);
        return;
    }
    bool isClicked = false;
    QObject scope;
    QObject::connect(&button, &QAbstractButton::clicked, &scope, [&isClicked] { isClicked = true; });
    const QPoint place = button.mapToGlobal(button.rect().center());
    XDo({u"mousemove"_s, QString::number(place.x()), QString::number(place.y()), u"click"_s, u"1"_s});
    if (!QTest::qWaitFor([&isClicked] { return isClicked; }))
        QTest::qFail(qPrintable(u"not clicked: "_s + button.objectName()), __FILE__, __LINE__);
}

// Escape to the window that has the keyboard; a box that does not take it is closed.
void Leave(QDialog& box)
{
    if (IsOnServer())
        XDo({u"key"_s, u"Escape"_s});
    else
        QTest::keyClick(&box, Qt::Key_Escape);
    if (!QTest::qWaitFor([&box] { return !box.isVisible(); }, 1000))
        box.reject();
}

// Check boxes and options raise no boxes, nor does a button that stays down.
bool IsCommand(const QAbstractButton& button)
{
    const bool isButton =
        qobject_cast<const QPushButton*>(&button) != nullptr || qobject_cast<const QToolButton*>(&button) != nullptr;
    return isButton && !button.isCheckable();
}

const QString AddIns = u"Manage Add-ins"_s; // has no menu item

// The association with the desktop is the user's own; what is inserted changes the program.
const QSet<QString> Untouched = {u"cmdAssoc"_s, u"cmdInsert"_s};

} // namespace

class win_focus : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void aToolIsActiveAfterItsBoxes_data();
    void aToolIsActiveAfterItsBoxes();
    void theBenchIsActiveAfterAToolHasClosed();
    void aBoxThatFollowsABoxBelongsToTheSameWindow();

private:
    void Answer(QDialog& modal);
    void PressNext(QDialog& tool);
    void OpenAndPress();

    std::unique_ptr<TestBench> bench;
    std::unique_ptr<RealBoxes> boxes;
    QString item;         // of the tool's menu
    qsizetype next = 0;   // the button to be pressed next
    bool isDone = false;  // all are pressed
    int shown = 0;        // boxes so far
    QStringList troubles; // what was not active after which button
};

void win_focus::init()
{
    bench = std::make_unique<TestBench>();
    bench->Start();
    bench->Choose(u"mnuFileNew"_s);
    TestBench::Type(bench->Active(), "print 1\r\n");
    boxes = std::make_unique<RealBoxes>();
    bench->AnswerModals([this](QDialog& modal) { Answer(modal); });
    next = shown = 0;
    isDone = false;
    troubles.clear();
}

void win_focus::cleanup()
{
    boxes.reset();
    bench.reset();
}

void win_focus::Answer(QDialog& modal)
{
    if (!IsBox(modal) && &modal == OpenTool()) {
        while (modal.isVisible() && !isDone)
            PressNext(modal);
    } else {
        ++shown;
        if (!IsActive(&modal))
            troubles.append(u"not active: "_s + modal.windowTitle());
        Leave(modal);
        return;
    }
    if (modal.isVisible())
        modal.reject();
}

// Presses the tool's next button and looks where the keyboard is after the boxes that this brought up.
void win_focus::PressNext(QDialog& tool)
{
    QList<QAbstractButton*> buttons;
    for (auto* button : tool.findChildren<QAbstractButton*>())
        if (IsCommand(*button) && button->isVisible() && button->isEnabled() &&
            !Untouched.contains(button->objectName()))
            buttons.append(button);
    if (next >= buttons.size()) {
        isDone = true;
        return;
    }
    QAbstractButton* button = buttons[next++];
    const QString name = button->objectName();
    const QPointer<QDialog> asked = &tool;
    const int before = shown;
    if (!IsActive(&tool))
        troubles.append(u"not active before "_s + name);
    Click(*button);
    // A button may open another tool.
    if (QDialog* another = asked.isNull() ? nullptr : OpenTool(asked); another != nullptr)
        another->close();
    if (shown == before)
        return;
    QWidget* expected = &bench->Frame();
    if (!asked.isNull() && asked->isVisible())
        expected = asked;
    if (!IsActive(expected))
        troubles.append(u"not active after "_s + name);
}

void win_focus::OpenAndPress()
{
    if (item == AddIns)
        ShowUserApplications();
    else
        bench->Choose(item);
    const QPointer<QDialog> tool = OpenTool();
    while (!tool.isNull() && tool->isVisible() && !isDone)
        PressNext(*tool);
    if (!tool.isNull())
        tool->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void win_focus::aToolIsActiveAfterItsBoxes_data()
{
    QTest::addColumn<QString>("name");
    // Those that are no windows, or that would start another program.
    const QSet<QString> others = {u"mnuWrapper"_s,     u"mnuToolPrinter"_s, u"mnuToolTE"_s,
                                  u"mnuGui"_s,         u"mnuPackage"_s,     u"mnuToolSnippet"_s,
                                  u"mnuColorDialog"_s, u"mnuToolFont"_s,    u"mnuToolFreeform"_s};
    for (const ToolRow& tool : Tools())
        if (const QString name = QString::fromLatin1(tool.name); !others.contains(name))
            QTest::newRow(tool.name) << name;
    for (const char* name : {"mnuEditFind", "mnuShowOptions", "mnuOptionsKeywords", "mnuFileExplore"})
        QTest::newRow(name) << QString::fromLatin1(name);
    QTest::newRow("add-ins") << AddIns;
}

void win_focus::aToolIsActiveAfterItsBoxes()
{
    QFETCH(QString, name);
    item = name;
    for (int round = 0; round < 20 && !isDone; ++round)
        OpenAndPress();
    QVERIFY(isDone);
    QVERIFY2(troubles.isEmpty(), qPrintable(troubles.join(u"; ")));
    QCOMPARE(TestBench::Text(bench->Active()).trimmed(), QByteArray("print 1"));
}

void win_focus::theBenchIsActiveAfterAToolHasClosed()
{
    for (const char* name : {"mnuToolMedia", "mnuEditFind", "mnuToolBitmap"}) {
        bench->Choose(QString::fromLatin1(name));
        QDialog* tool = OpenTool();
        QVERIFY2(tool != nullptr && IsActive(tool), name);
        QTest::keyClick(tool, Qt::Key_Escape);
        QVERIFY2(IsActive(&bench->Frame()), name);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void win_focus::aBoxThatFollowsABoxBelongsToTheSameWindow()
{
    bench->Choose(u"mnuToolMedia"_s);
    QDialog* tool = OpenTool();
    QVERIFY(tool != nullptr && IsActive(tool));
    QList<QWidget*> owners;
    bench->AnswerModals([&owners](QDialog& modal) {
        owners.append(modal.parentWidget());
        (void)IsActive(&modal);
        Leave(modal);
    });
    MsgBox(u"One"_s);
    MsgBox(u"Two"_s);
    FileBox({FilePurpose::Open, u"Three"_s, {}, {}, u"A|*.a"_s});
    MsgBox(u"Four"_s);
    QCOMPARE(owners, QList<QWidget*>(4, tool));
    QVERIFY(IsActive(tool));
    tool->close();
}

OB_BENCH_TEST(win_focus)
#include "win_focus.moc"
