// SPDX-License-Identifier: GPL-3.0-or-later
// The Enter key on every button of every window.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "codetools/dlgImage.h"
#include "codetools/dlgStylebitsHelp.h"
#include "codetools/dlgTBOK.h"
#include "codetools/dlgToolbar.h"
#include "codetools/frmArray.h"
#include "codetools/frmKey.h"
#include "codetools/frmMB.h"
#include "codetools/frmMenuMaker.h"
#include "codetools/frmStylebits.h"
#include "codetools/frmTip.h"
#include "editor/dlgPrinting.h"
#include "editor/frmCodeExplorer.h"
#include "editor/frmFind.h"
#include "editor/frmKeywords.h"
#include "editor/frmSnip.h"
#include "editor/frmSyntax.h"
#include "engine/package/frmPackage.h"
#include "engine/package/modPackage.h"
#include "engine/run/dlgProcess.h"
#include "engine/run/dlgShowVar.h"
#include "guibuilder/dlgMenu.h"
#include "guibuilder/frmColorDefault.h"
#include "guibuilder/frmProp.h"
#include "guibuilder/modGui.h"
#include "imagetools/avi/dlgAviOptions.h"
#include "imagetools/avi/frmAVI.h"
#include "imagetools/colors/frmColor.h"
#include "imagetools/colors/frmColorNames.h"
#include "imagetools/icons/dlgBmp.h"
#include "imagetools/icons/frmIcon.h"
#include "imagetools/media/frmMedia.h"
#include "imagetools/media/frmWav.h"
#include "imagetools/pictures/frmBitmap.h"
#include "imagetools/sprites/frmBatch.h"
#include "imagetools/sprites/frmMask.h"
#include "shell/bench/dlgAbout.h"
#include "shell/bench/frmOptions.h"
#include "shell/bench/frmUser.h"
#include "shell/help/frmHelp.h"
#include "shell/state/Module1.h"

#include <QDialogButtonBox>
#include <QDirIterator>
#include <QLineEdit>
#include <QPushButton>
#include <QSet>
#include <QToolButton>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

using Maker = std::unique_ptr<QDialog> (*)(QWidget* frame);

template <class Window>
std::unique_ptr<QDialog> Make(QWidget* frame)
{
    return std::make_unique<Window>(frame);
}

const Maker makers[] = {
    Make<dlgImage>,
    Make<dlgStylebitsHelp>,
    Make<dlgTBOK>,
    Make<dlgToolbar>,
    Make<frmArray>,
    Make<frmKey>,
    Make<frmMB>,
    Make<frmMenuMaker>,
    Make<frmStylebits>,
    Make<frmTip>,
    Make<dlgPrinting>,
    Make<frmCodeExplorer>,
    Make<frmFind>,
    Make<frmKeywords>,
    Make<frmSnip>,
    Make<frmSyntax>,
    [](QWidget* frame) -> std::unique_ptr<QDialog> { return std::make_unique<frmPackage>(u"game.tkn"_s, frame); },
    [](QWidget* frame) -> std::unique_ptr<QDialog> {
        return std::make_unique<dlgProcess>(dlgProcess::Leaving{}, frame);
    },
    Make<dlgShowVar>,
    Make<dlgMenu>,
    Make<frmColorDefault>,
    [](QWidget* frame) -> std::unique_ptr<QDialog> {
        GuiDesign().form.List(ControlKind::Button).resize(1);
        return std::make_unique<frmProp>(ControlRef{ControlKind::Button, 0}, u"button"_s, frame);
    },
    [](QWidget* frame) -> std::unique_ptr<QDialog> { return std::make_unique<dlgAviOptions>(AviFormat(), frame); },
    Make<frmAVI>,
    Make<frmColor>,
    Make<frmColorNames>,
    Make<dlgBmp>,
    Make<frmIcon>,
    Make<frmMedia>,
    Make<frmWav>,
    Make<frmBitmap>,
    Make<frmBatch>,
    Make<frmMask>,
    Make<dlgAbout>,
    Make<frmOptions>,
    Make<frmUser>,
    Make<frmHelp>,
};

// The names of all windows that are designed in a file.
QSet<QString> DesignedWindows()
{
    QSet<QString> names;
    for (QDirIterator files(u"" OB_TEST_DATA "/../../src"_s, {u"*.ui"_s}, QDir::Files, QDirIterator::Subdirectories);
         files.hasNext();)
        names.insert(QFileInfo(files.next()).completeBaseName());
    return names;
}

QList<QAbstractButton*> PressableButtons(const QDialog& window)
{
    QList<QAbstractButton*> buttons;
    for (auto* button : window.findChildren<QAbstractButton*>())
        if (qobject_cast<QPushButton*>(button) != nullptr || qobject_cast<QToolButton*>(button) != nullptr)
            buttons.append(button);
    return buttons;
}

// What the buttons do has tests of its own; here none must do it.
void CutOff(const QDialog& window)
{
    for (QAbstractButton* button : PressableButtons(window)) {
        QObject::disconnect(button, nullptr, nullptr, nullptr);
        if (const auto* tool = qobject_cast<QToolButton*>(button); tool != nullptr && tool->defaultAction() != nullptr)
            QObject::disconnect(tool->defaultAction(), nullptr, nullptr, nullptr);
    }
}

// Presses a button's key and returns the names of the buttons that this clicked.
QStringList ClickedByKey(QDialog& window, QAbstractButton& button, Qt::Key key)
{
    QStringList clicked;
    QObject scope;
    for (QAbstractButton* each : PressableButtons(window))
        QObject::connect(each, &QAbstractButton::clicked, &scope, [&clicked, each, &button] {
            clicked.append(each == &button ? u"itself"_s : each->objectName() + each->text());
        });
    QTest::keyClick(&button, key);
    return clicked;
}

} // namespace

class win_buttons : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void enterOnAButtonPressesThatButton();
    void enterInAFieldPressesTheDefaultButton();
    void theButtonsOfBoxesHaveNoIcons();
};

void win_buttons::enterOnAButtonPressesThatButton()
{
    TestBench bench;
    bench.Start();
    bench.Choose(u"mnuFileNew"_s);
    OBPath = bench.Write(u"orchard.exe"_s, "x");
    OBRuntimePath = bench.Write(u"run.exe"_s, "x");
    bench.dialogs.ExpectMessage(NoEngineBox().text, BoxAnswer::Ok, NoEngineBox().icon);
    QSet<QString> walked;
    int count = 0;
    for (const Maker make : makers) {
        const std::unique_ptr<QDialog> window = make(&bench.Frame());
        walked.insert(window->objectName());
        window->setModal(false);
        window->show();
        for (QAbstractButton* button : PressableButtons(*window)) {
            CutOff(*window);
            button->setEnabled(true);
            for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
                const QStringList clicked = ClickedByKey(*window, *button, key);
                const QString where = window->objectName() + u'.' + button->objectName() + u' ' + clicked.join(u',');
                QVERIFY2(clicked == QStringList{u"itself"_s}, qPrintable(where));
            }
            ++count;
        }
    }
    QVERIFY2(count > 100, qPrintable(QString::number(count)));
    const QSet<QString> missing = DesignedWindows() - walked;
    QVERIFY2(missing.isEmpty(), qPrintable(missing.values().join(u' ')));
}

void win_buttons::enterInAFieldPressesTheDefaultButton()
{
    TestBench bench;
    bench.Start();
    bench.Choose(u"mnuFileNew"_s);
    frmFind find(&bench.Frame());
    find.show();
    auto* field = find.findChild<QLineEdit*>(u"Text1"_s);
    auto* button = find.findChild<QPushButton*>(u"OKButton"_s);
    disconnect(button, nullptr, nullptr, nullptr);
    int presses = 0;
    connect(button, &QPushButton::clicked, this, [&presses] { ++presses; });
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(presses, 1);
}

void win_buttons::theButtonsOfBoxesHaveNoIcons()
{
    TestBench bench;
    bench.Start();
    QDialog window(&bench.Frame());
    QDialogButtonBox box(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Save, &window);
    box.button(QDialogButtonBox::Ok)->setIcon(QIcon(u":/icons/save.svg"_s));
    QVERIFY(!box.button(QDialogButtonBox::Ok)->icon().isNull());
    window.show();
    for (const QAbstractButton* button : box.buttons())
        QVERIFY2(button->icon().isNull(), qPrintable(button->text()));
}

OB_BENCH_TEST(win_buttons)
#include "win_buttons.moc"
