// SPDX-License-Identifier: GPL-3.0-or-later
// The AVI maker's list: how files come into it and are put in order, and how its frames are played.
#include "imagetools/avi/AviWindowBench.h"
#include "support/BenchTest.h"
#include "support/HeldThreads.h"

#include <QElapsedTimer>
#include <QLineEdit>

using namespace Qt::StringLiterals;

using namespace ob;

class win_frmAVIList : public AviWindowBench {
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

    void manyFilesOfOneBoxAreAddedInNumberOrder()
    {
        QStringList files;
        for (const int number : {10, 9, 1})
            files.append(Bitmap(number));
        bench->dialogs.ExpectFiles(OpenTitle, OpenFilter, files);
        Button("cmdFileOpen")->click();
        QCOMPARE(Names(), u"1.bmp 9.bmp 10.bmp"_s);
        QTRY_VERIFY(Preview() == ImageOf(LoadPicture(At(u"10.bmp"_s))));
    }

    void aWholeFolderIsAdded()
    {
        for (const int number : {12, 3, 1})
            Bitmap(number);
        Bitmap(2, {.bits = 8});
        bench->dialogs.ExpectFolder(u"Add the bitmaps of a folder"_s, At(QString()));
        Button("cmdFolder")->click();
        QCOMPARE(Names(), u"1.bmp 3.bmp 12.bmp"_s);
        QVERIFY2(Status().startsWith(u"Files added: 3. Left out"_s) && Status().contains(u"2.bmp"_s),
                 qPrintable(Status()));
        QTRY_VERIFY(Preview() == ImageOf(LoadPicture(At(u"1.bmp"_s))));
        bench->dialogs.ExpectFolder(u"Add the bitmaps of a folder"_s, {});
        Button("cmdFolder")->click();
        QCOMPARE(List()->count(), 3);
    }

    void entriesAreMovedAndTheVideoFollows()
    {
        AddBitmaps(3);
        QVERIFY(!Button("cmdLater")->isEnabled());
        Button("cmdEarlier")->click();
        QCOMPARE(Names(), u"0.bmp 2.bmp 1.bmp"_s);
        List()->setFocus();
        QTest::keyClick(List(), Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(Names(), u"2.bmp 0.bmp 1.bmp"_s);
        QVERIFY(!Button("cmdEarlier")->isEnabled());
        Button("cmdLater")->click();
        Button("cmdLater")->click();
        QCOMPARE(Names(), u"0.bmp 1.bmp 2.bmp"_s);
        List()->setCurrentRow(1);
        Button("cmdRemove")->click();
        QCOMPARE(Names(), u"0.bmp 2.bmp"_s);
        ChooseCodec(0);
        PressWrite(At(u"film.avi"_s));
        QVERIFY(!Button("cmdRemove")->isEnabled() && !Button("cmdPlay")->isEnabled());
        QTRY_COMPARE(Status(), u"Finished!"_s);
        QVERIFY(Decoded(At(u"film.avi"_s)) == AllPixels());
    }

    void thePreviewPlaysAtTheChosenRate()
    {
        AddBitmaps(1);
        QVERIFY(!Button("cmdPlay")->isEnabled());
        for (int number = 1; number < 5; ++number)
            Add(Bitmap(number));
        List()->setCurrentRow(0);
        Find<QLineEdit>("txtFPS")->setText(u"20"_s);
        QElapsedTimer clock;
        clock.start();
        Button("cmdPlay")->click();
        // The fifth frame is due after four twentieths of a second.
        QTRY_COMPARE(List()->currentRow(), 4);
        QVERIFY(clock.elapsed() >= 190);
        QTRY_VERIFY(List()->currentRow() < 4);
        QVERIFY(clock.elapsed() >= 240);
        QTRY_VERIFY(Preview() != ImageOf(LoadPicture(At(u"0.bmp"_s))));
        Button("cmdPlay")->click();
        const int stopped = List()->currentRow();
        QCOMPARE(Button("cmdEarlier")->isEnabled(), stopped > 0);
        QCOMPARE(Button("cmdLater")->isEnabled(), stopped < 4);
        QTest::qWait(150);
        QCOMPARE(List()->currentRow(), stopped);
        // At one frame a second nothing moves within a third of one.
        Find<QLineEdit>("txtFPS")->setText(u"1"_s);
        Button("cmdPlay")->click();
        QTest::qWait(300);
        QCOMPARE(List()->currentRow(), stopped);
        Button("cmdClearList")->click();
        QVERIFY(!Button("cmdPlay")->isChecked());
        QTest::qWait(50);
    }

    void aBitmapThatTakesTooLongCanBeCancelled()
    {
        const HeldThreads held;
        bench->ExpectModal(u"dlgPatience"_s, [](QDialog& box) { box.findChild<QPushButton*>()->click(); });
        Add(Bitmap(1));
        QCOMPARE(List()->count(), 0);
        bench->ExpectModal(u"dlgPatience"_s, [](QDialog& box) { box.findChild<QPushButton*>()->click(); });
        bench->dialogs.ExpectFolder(u"Add the bitmaps of a folder"_s, At(QString()));
        Button("cmdFolder")->click();
        QCOMPARE(List()->count(), 0);
    }

    void aFileThatHasGoneIsNamed()
    {
        AddBitmaps(2);
        QVERIFY(QFile::remove(At(u"0.bmp"_s)));
        List()->setCurrentRow(0);
        QTRY_COMPARE(Status(), u"0.bmp cannot be shown."_s);
    }
};

OB_BENCH_TEST(win_frmAVIList)
#include "win_frmAVIList.moc"
