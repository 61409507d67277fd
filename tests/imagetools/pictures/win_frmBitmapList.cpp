// SPDX-License-Identifier: GPL-3.0-or-later
// The bitmap previewer's list for loadbmp, what may come into it, and names of copies.
#include "imagetools/pictures/BitmapBench.h"
#include "support/BenchTest.h"
#include "support/HeldThreads.h"

#include "editor/document/cDocument.h"
#include "imagetools/pictures/modLoadBmp.h"

#include <QClipboard>
#include <QDir>
#include <QListWidget>

using namespace Qt::StringLiterals;

using namespace ob;

class win_frmBitmapList : public BitmapBench {
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

    void aPictureThatCannotBeShownIsNotAdded();
    void theListIsSeenAndCorrected();
    void theListIsInsertedAtTheCaret();
    void noLineOfTextWidensTheWindow();
    void aReadingThatTakesTooLongCanBeCancelled();
    void saveAsSuggestsANameAndListsTheCopy();
};

void win_frmBitmapList::aPictureThatCannotBeShownIsNotAdded()
{
    Picture("a.bmp");
    bench->Write(u"b.bmp"_s, "BM, but no bitmap");
    Open();
    Click(u"b.bmp"_s);
    Press("cmdAdd"); // at once, before the preview has been read
    QCOMPARE(Text("lblProblem"), u"b.bmp cannot be shown."_s);
    QCOMPARE(ChosenFile(), u"b.bmp"_s);
    Press("cmdAdd");
    QCOMPARE(Text("lblList"), u"In the LoadBmp list: 0 of 150"_s);
    Click(u"a.bmp"_s);
    Press("cmdAdd");
    QCOMPARE(Text("lblList"), u"In the LoadBmp list: 1 of 150"_s);
}

void win_frmBitmapList::noLineOfTextWidensTheWindow()
{
    Open();
    const int before = form->minimumSizeHint().width();
    for (const char* line : {"lblState", "Label1", "lblList"})
        Control<QLabel>(line)->setText(QString(200, u'w'));
    QCOMPARE(form->minimumSizeHint().width(), before);
}

void win_frmBitmapList::theListIsSeenAndCorrected()
{
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp", "d.bmp"})
        Picture(name);
    Open();
    Click(u"a.bmp"_s);
    for (int i = 0; i < 4; ++i)
        Press("cmdAdd");
    auto* shown = Control<QListWidget>("lstBmps");
    const auto listed = [shown] {
        QString names;
        for (int row = 0; row < shown->count(); ++row)
            names += shown->item(row)->text().left(1);
        return names;
    };
    QCOMPARE(listed(), u"abcd"_s);
    QCOMPARE(shown->item(1)->toolTip(), QDir::toNativeSeparators(bench->Path(u"b.bmp"_s)));
    QVERIFY(!Control<QPushButton>("cmdDown")->isEnabled());
    Press("cmdUp");
    QCOMPARE(listed(), u"abdc"_s);
    shown->setCurrentRow(0);
    QVERIFY(!Control<QPushButton>("cmdUp")->isEnabled());
    Press("cmdDown");
    Press("cmdDown");
    QCOMPARE(listed(), u"bdac"_s);
    shown->setFocus();
    QTest::keyClick(shown, Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(listed(), u"badc"_s);
    QTest::keyClick(shown, Qt::Key_Delete);
    QCOMPARE(listed(), u"bdc"_s);
    Press("cmdRemove");
    QCOMPARE(listed(), u"bc"_s);
    QCOMPARE(Text("lblList"), u"In the LoadBmp list: 2 of 150"_s);
    bench->dialogs.ExpectMessage(CopiedText, BoxAnswer::Ok, BoxIcon::Information);
    Press("cmdCreate");
    const QString folder = bench->Path({});
    QCOMPARE(QApplication::clipboard()->text().remove(u'\r'),
             LoadBmpText({folder + u"b.bmp"_s, folder + u"c.bmp"_s}, ImageLibrary::Unused, PathInformation::Left)
                 .remove(u'\r'));
}

void win_frmBitmapList::theListIsInsertedAtTheCaret()
{
    const QString path = Picture("a.bmp");
    Open();
    const auto* insert = Control<QPushButton>("cmdInsert");
    Click(u"a.bmp"_s);
    Press("cmdAdd");
    QVERIFY(!insert->isEnabled()); // no program is active
    bench->Choose(u"mnuFileNew"_s);
    QVERIFY(insert->isEnabled());
    Press("cmdRemove");
    QVERIFY(!insert->isEnabled()); // the list is empty
    Press("cmdAdd");
    const cDocument* program = bench->Active();
    TestBench::Type(bench->Active(), "print 1\r\n");
    SendSci(program->sci, SCI_SETSEL, 6, 7);
    QApplication::clipboard()->setText(u"before"_s);
    Press("cmdInsert");
    QVERIFY(form == nullptr || !form->isVisible());
    const QByteArray code = LoadBmpText({path}, ImageLibrary::Unused, PathInformation::Left).toUtf8();
    QCOMPARE(TestBench::Text(program), "print " + code + "\r\n");
    QCOMPARE(QApplication::clipboard()->text(), u"before"_s);
    SendSci(program->sci, SCI_UNDO);
    QCOMPARE(TestBench::Text(program), QByteArray("print 1\r\n"));
}

void win_frmBitmapList::aReadingThatTakesTooLongCanBeCancelled()
{
    Picture("a.bmp");
    Open();
    const HeldThreads held;
    Click(u"a.bmp"_s);
    for (const char* button : {"cmdAdd", "cmdCopy"}) {
        bench->ExpectModal(u"dlgPatience"_s, [](QDialog& box) { box.findChild<QPushButton*>()->click(); });
        Press(button);
    }
    QCOMPARE(Text("lblList"), u"In the LoadBmp list: 0 of 150"_s);
    held.Release();
    QTRY_COMPARE(Text("lblName"), u"a.bmp"_s);
}

void win_frmBitmapList::saveAsSuggestsANameAndListsTheCopy()
{
    Picture("rose.bmp");
    Picture("tulip.jpg");
    Open();
    Show(u"rose.bmp"_s);
    const QString target = bench->Path(u"rose copy.bmp"_s);
    bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, target);
    bench->dialogs.ExpectMessage(u"Image has been saved as "_s + target, BoxAnswer::Ok, BoxIcon::None);
    Press("cmdCopy");
    QCOMPARE(bench->dialogs.LastFile().name, u"rose copy.bmp"_s);
    QCOMPARE(bench->dialogs.LastFile().extension, u"bmp"_s);
    QTRY_COMPARE(Files().join(QLatin1Char(' ')), u"rose copy.bmp rose.bmp"_s);
    QTRY_COMPARE(ChosenFile(), u"rose.bmp"_s);
    Tick("chkDLL");
    Show(u"tulip.jpg"_s);
    for (const char* name : {"tulip copy.jpg", "tulip copy.bmp"}) {
        bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, {});
        Press("cmdCopy");
        QCOMPARE(bench->dialogs.LastFile().name, QLatin1String(name));
        Tick("chk256");
    }
}

OB_BENCH_TEST(win_frmBitmapList)
#include "win_frmBitmapList.moc"
