// SPDX-License-Identifier: GPL-3.0-or-later
// The Syntax Viewer.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/frmSyntax.h"

#include <QClipboard>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString Welcome = u"syntax for chosen keyword\nwill appear here"_s;

frmSyntax* Viewer(TestBench& bench)
{
    bench.Choose(u"mnuSyntaxViewer"_s);
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* viewer = qobject_cast<frmSyntax*>(window); viewer != nullptr && viewer->isVisible())
            return viewer;
    return nullptr;
}

// The program with an open viewer.
struct ViewerBench {
    ViewerBench()
    {
        bench.Start({bench.Write(u"a.bas"_s, "x\r\n")});
        viewer = Viewer(bench);
        list = viewer->findChild<QComboBox*>(u"cmbList"_s);
        text = viewer->findChild<QPlainTextEdit*>(u"Text1"_s);
    }
    ~ViewerBench() { delete viewer; }
    ViewerBench(const ViewerBench&) = delete;
    ViewerBench& operator=(const ViewerBench&) = delete;

    void ChooseWord(const char* word) const
    {
        list->lineEdit()->setFocus();
        list->lineEdit()->selectAll();
        QTest::keyClicks(list->lineEdit(), QString::fromLatin1(word));
        QTest::keyClick(list->lineEdit(), Qt::Key_Return);
    }

    TestBench bench;
    QPointer<frmSyntax> viewer;
    QComboBox* list = nullptr;
    QPlainTextEdit* text = nullptr;
};

} // namespace

class win_frmSyntax : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void itStartsWithoutASelection();
    void theListHoldsEveryRowsKey();
    void aChosenWordShowsItsSyntax();
    void bothRowsOfAKeyCanBeChosen();
    void returningFromAnotherWindowResetsIt();
    void copyPutsTheTextOnTheClipboardAndCloses();
    void cancelAndEscapeClose();
    void thereIsOneViewerAtMost();
};

void win_frmSyntax::itStartsWithoutASelection()
{
    const ViewerBench b;
    QVERIFY(b.viewer != nullptr);
    QCOMPARE(b.list->currentText(), QString());
    QCOMPARE(b.list->lineEdit()->placeholderText(), u"Keyword List"_s);
    QCOMPARE(b.text->toPlainText(), Welcome);
    QVERIFY(!b.viewer->isModal());
}

void win_frmSyntax::theListHoldsEveryRowsKey()
{
    const ViewerBench b;
    QCOMPARE(b.list->count(), 231);
    QCOMPARE(b.list->itemText(0), u"!contents"_s);
    QCOMPARE(b.list->itemText(230), u"word$"_s);
    QVERIFY(b.list->findText(u"txcount(#handle)\n'return"_s, Qt::MatchExactly) >= 0);
}

void win_frmSyntax::aChosenWordShowsItsSyntax()
{
    const ViewerBench b;
    b.ChooseWord("goto");
    QCOMPARE(b.text->toPlainText(),
             u"goto x y   -or-  goto branchlabel\n'draw graphics line from current pos to x,y\n'or go to "
             "specified branch label in code"_s);
    b.ChooseWord("DO");
    QCOMPARE(b.text->toPlainText(), u"do ... loop until/while expr\n'loop until or while expr is true"_s);
    QVERIFY(b.viewer->isVisible());
}

void win_frmSyntax::bothRowsOfAKeyCanBeChosen()
{
    const ViewerBench b;
    const int first = b.list->findText(u"select"_s, Qt::MatchExactly);
    QCOMPARE(b.list->itemText(first + 1), u"select"_s);
    b.list->setCurrentIndex(first);
    Q_EMIT b.list->activated(first);
    QVERIFY(b.text->toPlainText().startsWith(QLatin1String("select case var")));
    b.list->setCurrentIndex(first + 1);
    Q_EMIT b.list->activated(first + 1);
    QVERIFY(b.text->toPlainText().startsWith(QLatin1String("select string$\n")));
}

void win_frmSyntax::returningFromAnotherWindowResetsIt()
{
    ViewerBench b;
    b.ChooseWord("cls");
    QVERIFY(b.text->toPlainText().startsWith(QLatin1String("cls")));
    // A switch to another program changes nothing; offscreen that is a window that loses and regains activation.
    QEvent deactivate(QEvent::WindowDeactivate);
    QEvent activate(QEvent::WindowActivate);
    QApplication::sendEvent(b.viewer, &deactivate);
    QApplication::sendEvent(b.viewer, &activate);
    QVERIFY(b.text->toPlainText().startsWith(QLatin1String("cls")));
    b.bench.Frame().activateWindow();
    QVERIFY(QTest::qWaitFor([&] { return QApplication::activeWindow() == &b.bench.Frame(); }));
    QApplication::processEvents();
    b.bench.Choose(u"mnuSyntaxViewer"_s);
    QVERIFY(QTest::qWaitFor([&] { return b.text->toPlainText() == Welcome; }));
    QCOMPARE(b.list->currentText(), QString());
}

void win_frmSyntax::copyPutsTheTextOnTheClipboardAndCloses()
{
    ViewerBench b;
    b.ChooseWord("do");
    QApplication::clipboard()->setText(u"before"_s);
    QElapsedTimer timer;
    timer.start();
    QTest::mouseClick(b.viewer->findChild<QPushButton*>(u"cmdCopy"_s), Qt::LeftButton);
    QCOMPARE(QApplication::clipboard()->text(), u"do ... loop until/while expr\r\n'loop until or while expr is true"_s);
    QCOMPARE(b.text->toPlainText(), u"Copied to clipboard."_s);
    QCOMPARE(b.text->palette().color(QPalette::Text), QColor(255, 0, 0));
    QVERIFY(b.viewer->isVisible());
    QVERIFY(QTest::qWaitFor([&] { return b.viewer.isNull(); }, 3000));
    QVERIFY2(timer.elapsed() >= 900, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(TestBench::Text(b.bench.Active()), QByteArray("x"));
}

void win_frmSyntax::cancelAndEscapeClose()
{
    {
        const ViewerBench b;
        QTest::mouseClick(b.viewer->findChild<QPushButton*>(u"CancelButton"_s), Qt::LeftButton);
        QVERIFY(QTest::qWaitFor([&] { return b.viewer.isNull(); }));
    }
    const ViewerBench b;
    QTest::keyClick(b.viewer, Qt::Key_Escape);
    QVERIFY(QTest::qWaitFor([&] { return b.viewer.isNull(); }));
}

void win_frmSyntax::thereIsOneViewerAtMost()
{
    ViewerBench b;
    QCOMPARE(Viewer(b.bench), b.viewer.data());
}

OB_BENCH_TEST(win_frmSyntax)
#include "win_frmSyntax.moc"
