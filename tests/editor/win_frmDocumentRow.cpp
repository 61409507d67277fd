// SPDX-License-Identifier: GPL-3.0-or-later
// The row above the text: font, bookmark buttons, label lists and Wrap under mouse and keys.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "editor/frmDocument.h"
#include "shell/state/Module1.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QToolTip>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

QByteArray Program()
{
    return "[start]\r\nprint 1\r\n[quit]\r\nend \r\n";
}

template <class Widget>
Widget* Find(const TestBench& bench, const char* name)
{
    return bench.ActiveWindow()->findChild<Widget*>(QString::fromLatin1(name));
}

std::intptr_t Ask(const TestBench& bench, unsigned message, std::uintptr_t wParam = 0)
{
    return SendSci(bench.Active()->sci, message, wParam);
}

QString Label(const TestBench& bench)
{
    return Find<QComboBox>(bench, "cboLabels")->currentText();
}

// The user types into the field of the label list.
void TypeLabel(const TestBench& bench, const QString& text)
{
    QLineEdit* field = Find<QComboBox>(bench, "cboLabels")->lineEdit();
    QTest::mouseClick(field, Qt::LeftButton);
    field->selectAll();
    QTest::keyClicks(field, text);
    QCOMPARE(field->text(), text);
}

} // namespace

class win_frmDocumentRow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fontIsThatOfTheWindowWhereItFits();
    void largeFontIsMadeToFit();
    void bookmarkButtonsAreHitAboveAndBelowToo();
    void typedTextThatIsNoLabelGoes();
    void typedLabelIsGoneTo();
    void reusedWindowForgetsTheLabels();
    void reusedWindowShowsTheLabelsOfItsNewText();
    void savedAsWindowKeepsItsLabel();
    void wrapGivesTheKeyboardBack();
};

void win_frmDocumentRow::fontIsThatOfTheWindowWhereItFits()
{
    TestBench bench;
    QFont small = QApplication::font();
    const QFont before = small;
    small.setPointSizeF(8);
    QApplication::setFont(small);
    bench.Start({bench.Write(u"a.bas"_s, Program())});
    QCOMPARE(Find<QComboBox>(bench, "cboLabels")->font().pointSizeF(), 8.0);
    QCOMPARE(Find<QPushButton>(bench, "cmdBranch")->font().pointSizeF(), 8.0);
    QApplication::setFont(before);
}

void win_frmDocumentRow::largeFontIsMadeToFit()
{
    TestBench bench;
    QFont large = QApplication::font();
    const QFont before = large;
    large.setPointSizeF(20);
    QApplication::setFont(large);
    bench.Start({bench.Write(u"a.bas"_s, Program())});
    const auto* refresh = Find<QPushButton>(bench, "cmdBranch");
    QVERIFY(refresh->fontMetrics().height() <= refresh->height());
    QVERIFY(refresh->fontMetrics().horizontalAdvance(refresh->text()) < refresh->width());
    QApplication::setFont(before);
}

void win_frmDocumentRow::bookmarkButtonsAreHitAboveAndBelowToo()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, Program())});
    frmDocument* window = bench.ActiveWindow();
    QTest::mouseClick(window, Qt::LeftButton, {}, QPoint(6, 2));
    QCOMPARE(Ask(bench, SCI_MARKERGET, 0), 2);
    SendSci(bench.Active()->sci, SCI_GOTOLINE, 2);
    // The third button goes back.
    QTest::mouseClick(window, Qt::LeftButton, {}, QPoint(30, 28));
    QCOMPARE(Ask(bench, SCI_LINEFROMPOSITION, static_cast<std::uintptr_t>(Ask(bench, SCI_GETCURRENTPOS))), 0);
    QTest::mouseClick(window, Qt::RightButton, {}, QPoint(6, 2));
    QCOMPARE(Ask(bench, SCI_MARKERGET, 0), 2);
    QHelpEvent help(QEvent::ToolTip, QPoint(46, 3), window->mapToGlobal(QPoint(46, 3)));
    QCoreApplication::sendEvent(window, &help);
    QCOMPARE(QToolTip::text(), u"Clear All Bookmarks"_s);
    QTest::mouseClick(window, Qt::LeftButton, {}, QPoint(46, 3));
    QCOMPARE(Ask(bench, SCI_MARKERGET, 0), 0);
}

void win_frmDocumentRow::typedTextThatIsNoLabelGoes()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, Program())});
    QCOMPARE(Label(bench), u"[start]"_s);
    TypeLabel(bench, u"zzz"_s);
    QTest::keyClick(Find<QComboBox>(bench, "cboLabels")->lineEdit(), Qt::Key_Return);
    QCOMPARE(Label(bench), u"[start]"_s);
    TypeLabel(bench, u"zzz"_s);
    bench.ActiveWindowEdit()->setFocus();
    QCOMPARE(Label(bench), u"[start]"_s);
    TypeLabel(bench, u"zzz"_s);
    QPushButton* refresh = Find<QPushButton>(bench, "cmdBranch");
    refresh->setFocus();
    QTest::mouseClick(refresh, Qt::LeftButton);
    QCOMPARE(Label(bench), u"[start]"_s);
}

void win_frmDocumentRow::typedLabelIsGoneTo()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, Program())});
    TypeLabel(bench, u"[quit]"_s);
    QTest::keyClick(Find<QComboBox>(bench, "cboLabels")->lineEdit(), Qt::Key_Return);
    QCOMPARE(Label(bench), u"[quit]"_s);
    QCOMPARE(Ask(bench, SCI_LINEFROMPOSITION, static_cast<std::uintptr_t>(Ask(bench, SCI_GETCURRENTPOS))), 2);
}

void win_frmDocumentRow::reusedWindowForgetsTheLabels()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, Program())});
    const cDocument* document = bench.Active();
    bench.Choose(u"mnuFileSave"_s);
    bench.Choose(u"mnuFileNew"_s);
    QCOMPARE(bench.Active(), document);
    QCOMPARE(Label(bench), QString());
    QCOMPARE(Find<QComboBox>(bench, "cboLabels")->count(), 0);
    QCOMPARE(Find<QComboBox>(bench, "cboSorted")->count(), 0);
    QuitQuery = false;
}

void win_frmDocumentRow::reusedWindowShowsTheLabelsOfItsNewText()
{
    TestBench bench;
    const QString other = bench.Write(u"b.bas"_s, "print 2\r\n[other]\r\nend \r\n");
    bench.Start({bench.Write(u"a.bas"_s, Program())});
    const cDocument* document = bench.Active();
    bench.Choose(u"mnuFileSave"_s);
    bench.dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s,
                             u"BASIC Code (*.bas)(*.oba)(*.bak)|*.BAS;*.OBA;*.BAK"_s, other);
    bench.Choose(u"mnuFileOpenCode"_s);
    QCOMPARE(bench.Active(), document);
    QCOMPARE(Label(bench), u"[other]"_s);
}

void win_frmDocumentRow::savedAsWindowKeepsItsLabel()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, Program())});
    TypeLabel(bench, u"[quit]"_s);
    QTest::keyClick(Find<QComboBox>(bench, "cboLabels")->lineEdit(), Qt::Key_Return);
    bench.Active()->SetCaption(bench.Path(u"c.bas"_s));
    QCOMPARE(Label(bench), u"[quit]"_s);
}

void win_frmDocumentRow::wrapGivesTheKeyboardBack()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, Program())});
    auto* wrap = Find<QCheckBox>(bench, "chkWrap");
    wrap->setFocus();
    QTest::mouseClick(wrap, Qt::LeftButton, {}, QPoint(5, wrap->height() / 2));
    QVERIFY(wrap->isChecked());
    QCOMPARE(bench.Frame().focusWidget(), bench.ActiveWindowEdit());
}

OB_BENCH_TEST(win_frmDocumentRow)
#include "win_frmDocumentRow.moc"
