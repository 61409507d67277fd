// SPDX-License-Identifier: GPL-3.0-or-later
// The batch masker, by its controls, over real folders.
#include "SpriteFiles.h"
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "imagetools/pictures/frmPictureView.h"
#include "imagetools/sprites/frmMask.h"
#include "shell/bench/modStart.h"
#include "shell/state/Module1.h"

#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QListView>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QTreeView>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString Question =
    u"All bitmap files in this directory will receive masks and the files will be overwritten.  After "
    "the masking has begun, press ESCAPE or the Cancel button to abort the operation.  Continue?"_s;
const QString Cancelled = u"Operation cancelled.  Some bitmaps in this directory may not have received masks."_s;

QPushButton* Button(const QDialog& dialog, const char* name)
{
    return dialog.findChild<QPushButton*>(QLatin1String(name));
}

QString Instructions(const QDialog& dialog)
{
    return dialog.findChild<QLabel*>(u"Label3"_s)->text();
}

QStringList Files(const QDialog& dialog)
{
    const QAbstractItemModel* model = dialog.findChild<QListView*>(u"File1"_s)->model();
    QStringList names;
    for (int row = 0; row < model->rowCount(); ++row)
        names.append(model->index(row, 0).data().toString());
    return names;
}

} // namespace

class win_frmBatch : public QObject {
    Q_OBJECT

    std::unique_ptr<TestBench> bench;
    std::unique_ptr<frmMask> form;

    QString Folder() const { return QDir::toNativeSeparators(QDir::currentPath()); }

    QString WriteSprite(const char* name, int side = 8) const
    {
        return bench->Write(QLatin1String(name), BitmapBytesOf(SpriteImage(side, side)));
    }
    bool IsMasked(const char* name, int side = 8) const
    {
        const QImage sprite = SpriteImage(side, side);
        const QImage found = ImageAt(bench->Path(QLatin1String(name)));
        if (found != sprite && found != MaskedImage(sprite))
            qFatal("%s is neither the sprite nor masked", name);
        return found != sprite;
    }

    void InBatch(const std::function<void(QDialog&)>& script) const
    {
        bench->ExpectModal(u"frmBatch"_s, script);
        QTest::mouseClick(Button(*form, "cmdBatch"), Qt::LeftButton);
    }
    void ExpectQuestion(BoxAnswer answer = BoxAnswer::Ok) const
    {
        bench->dialogs.ExpectMessage(Question, answer, BoxIcon::Critical, BoxButtons::OkCancel);
    }

private Q_SLOTS:
    void init()
    {
        ResetBench();
        QuitQuery = false;
        bench = std::make_unique<TestBench>();
        bench->Start();
        form = std::make_unique<frmMask>();
        form->show();
        QVERIFY(QTest::qWaitForWindowActive(form.get()));
    }
    void cleanup()
    {
        form.reset();
        bench.reset();
    }

    void itStartsWithItsInstructions()
    {
        InBatch([](QDialog& dialog) {
            QCOMPARE(Instructions(dialog), u"Choose a Directory.\nAll Bitmaps in the Directory will receive "
                                           "masks.\nThe bitmap files will be overwritten with the masked "
                                           "versions."_s);
            dialog.reject();
        });
    }

    void theBitmapsOfTheFolderAreListed()
    {
        for (const char* name : {"b.BMP", "a.bmp", "C.bmp"})
            WriteSprite(name);
        bench->Write(u"note.txt"_s, "text");
        InBatch([](QDialog& dialog) {
            QTRY_COMPARE(Files(dialog), QStringList({u"a.bmp"_s, u"b.BMP"_s, u"C.bmp"_s}));
            dialog.reject();
        });
    }

    void allBitmapsReceiveMasks()
    {
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
            WriteSprite(name);
        ExpectQuestion();
        bench->dialogs.ExpectMessage(u"All bitmaps in "_s + Folder() + u" now include masks."_s, BoxAnswer::Ok,
                                     BoxIcon::None);
        QPointer<QDialog> shown;
        InBatch([&](QDialog& dialog) {
            shown = &dialog;
            Button(dialog, "OKButton")->click();
            QVERIFY(!dialog.isVisible());
        });
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
            QVERIFY(IsMasked(name));
        // The mask maker shows the last one, ready for Save As.
        const auto* view = form->findChild<frmPictureView*>(u"picMask"_s);
        QCOMPARE(view->Picture().convertToFormat(QImage::Format_RGB32), MaskedImage(SpriteImage(8, 8)));
        QCOMPARE(form->windowTitle(), bench->Path(u"c.bmp"_s));
    }

    void progressIsReported()
    {
        for (const char* name : {"a.bmp", "b.bmp"})
            WriteSprite(name);
        ExpectQuestion();
        bench->dialogs.ExpectMessage(u"All bitmaps in "_s + Folder() + u" now include masks."_s, BoxAnswer::Ok,
                                     BoxIcon::None);
        QStringList shown;
        QTimer watch;
        InBatch([&](QDialog& dialog) {
            // Runs each time the batch processes events.
            QObject::connect(&watch, &QTimer::timeout, &dialog, [&] {
                shown.append(Instructions(dialog));
                QVERIFY(!Button(dialog, "OKButton")->isEnabled());
                QVERIFY(!dialog.findChild<QTreeView*>(u"Dir1"_s)->isEnabled());
                QVERIFY(Button(dialog, "CancelButton")->isEnabled());
            });
            watch.start(0);
            Button(dialog, "OKButton")->click();
            watch.stop();
        });
        shown.removeDuplicates();
        const QString number =
            u"Click CANCEL to abort.  Processing bitmap number  %1 of  2 bitmaps in \n\n"_s + Folder();
        QCOMPARE(shown, QStringList({number.arg(1), number.arg(2)}));
    }

    void escapeAndCancelStopAfterTheCurrentFile_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("the key") << true;
        QTest::newRow("the button") << false;
    }
    void escapeAndCancelStopAfterTheCurrentFile()
    {
        QFETCH(bool, byKey);
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
            WriteSprite(name);
        ExpectQuestion();
        bench->dialogs.ExpectMessage(Cancelled);
        InBatch([byKey](QDialog& dialog) {
            QTimer::singleShot(0, &dialog, [&dialog, byKey] {
                if (byKey)
                    QTest::keyClick(&dialog, Qt::Key_Escape);
                else
                    Button(dialog, "CancelButton")->click();
                QVERIFY(dialog.isVisible());
            });
            Button(dialog, "OKButton")->click();
            QVERIFY(!dialog.isVisible());
        });
        QVERIFY(IsMasked("a.bmp"));
        QVERIFY(!IsMasked("b.bmp"));
        QVERIFY(!IsMasked("c.bmp"));
    }

    void theQuestionCanBeCancelled()
    {
        WriteSprite("a.bmp");
        ExpectQuestion(BoxAnswer::Cancel);
        InBatch([](QDialog& dialog) {
            Button(dialog, "OKButton")->click();
            QVERIFY(dialog.isVisible());
            QTest::keyClick(&dialog, Qt::Key_Escape);
            QVERIFY(!dialog.isVisible());
        });
        QVERIFY(!IsMasked("a.bmp"));
    }

    void aFolderWithoutBitmapsIsReported()
    {
        bench->dialogs.ExpectMessage(u"There are no bitmaps in "_s + Folder() +
                                     u"!  Please choose another directory."_s);
        InBatch([](QDialog& dialog) {
            Button(dialog, "OKButton")->click();
            QVERIFY(dialog.isVisible());
            dialog.reject();
        });
    }

    void aBitmapThatCannotBeReadEndsTheBatch()
    {
        WriteSprite("a.bmp");
        bench->Write(u"b.bmp"_s, "BM, but no bitmap");
        WriteSprite("c.bmp");
        ExpectQuestion();
        bench->dialogs.ExpectMessage(u"Run-time error '481':\nInvalid picture"_s);
        InBatch([](QDialog& dialog) {
            Button(dialog, "OKButton")->click();
            // The window stays, with the bad file marked.
            QVERIFY(dialog.isVisible());
            QVERIFY(Button(dialog, "OKButton")->isEnabled());
            QCOMPARE(dialog.findChild<QListView*>(u"File1"_s)->currentIndex().data().toString(), u"b.bmp"_s);
            QVERIFY(Instructions(dialog).startsWith(QLatin1String("Choose a Directory.")));
            dialog.reject();
        });
        QVERIFY(IsMasked("a.bmp"));
        QCOMPARE(TestBench::Read(bench->Path(u"b.bmp"_s)), QByteArray("BM, but no bitmap"));
        QVERIFY(!IsMasked("c.bmp"));
    }

    void aBatchThatFailedSaysWhereAndGoesOnFromThere()
    {
        for (const char* name : {"a.bmp", "b.bmp", "d.bmp"})
            WriteSprite(name);
        const QString bad = bench->Write(u"c.bmp"_s, "BM, but no bitmap");
        QString reason;
        SetReasonSink([&reason](const QString& text) { reason = text; });
        ExpectQuestion();
        bench->dialogs.ExpectMessage(u"Run-time error '481':\nInvalid picture"_s);
        ExpectQuestion();
        bench->dialogs.ExpectMessage(u"Run-time error '481':\nInvalid picture"_s);
        ExpectQuestion();
        bench->dialogs.ExpectMessage(u"All bitmaps in "_s + Folder() + u" now include masks."_s, BoxAnswer::Ok,
                                     BoxIcon::None);
        InBatch([&](QDialog& dialog) {
            const auto* outcome = dialog.findChild<QLabel*>(u"lblOutcome"_s);
            QVERIFY(!outcome->isVisible());
            for (int times = 0; times < 2; ++times) {
                Button(dialog, "OKButton")->click();
                QVERIFY(outcome->isVisible());
                QVERIFY2(outcome->text().startsWith(u"c.bmp ended the work; 2 of 4 "_s), qPrintable(outcome->text()));
                QVERIFY2(reason.contains(outcome->text()), qPrintable(reason));
                // IsMasked ends the test for a file that was masked twice.
                QVERIFY(IsMasked("a.bmp") && IsMasked("b.bmp") && !IsMasked("d.bmp"));
            }
            QVERIFY(QFile::remove(bad));
            Button(dialog, "OKButton")->click();
            QVERIFY(!dialog.isVisible());
        });
        SetReasonSink({});
        QVERIFY(IsMasked("a.bmp") && IsMasked("b.bmp") && IsMasked("d.bmp"));
    }

    void aSpriteThatWasDrawnAnewAfterAFailureGetsItsMask()
    {
        WriteSprite("a.bmp");
        const QString bad = bench->Write(u"b.bmp"_s, "BM, but no bitmap");
        ExpectQuestion();
        bench->dialogs.ExpectMessage(u"Run-time error '481':\nInvalid picture"_s);
        ExpectQuestion();
        bench->dialogs.ExpectMessage(u"All bitmaps in "_s + Folder() + u" now include masks."_s, BoxAnswer::Ok,
                                     BoxIcon::None);
        InBatch([&](QDialog& dialog) {
            Button(dialog, "OKButton")->click();
            WriteSprite("a.bmp", 12);
            QVERIFY(QFile::remove(bad));
            Button(dialog, "OKButton")->click();
        });
        QVERIFY(IsMasked("a.bmp", 12));
    }

    void anotherFolderIsChosenByKeys()
    {
        WriteSprite("a.bmp");
        QDir().mkdir(u"sub"_s);
        WriteSprite("sub/inner.bmp");
        ExpectQuestion();
        bench->dialogs.ExpectMessage(u"All bitmaps in "_s + bench->Path(u"sub"_s) + u" now include masks."_s,
                                     BoxAnswer::Ok, BoxIcon::None);
        InBatch([](QDialog& dialog) {
            auto* folders = dialog.findChild<QTreeView*>(u"Dir1"_s);
            QTRY_COMPARE(Files(dialog).size(), 1);
            QTest::keyClick(folders, Qt::Key_Down);
            QTest::keyClick(folders, Qt::Key_Return);
            QTRY_COMPARE(Files(dialog), QStringList(u"inner.bmp"_s));
            Button(dialog, "OKButton")->click();
        });
        QVERIFY(!IsMasked("a.bmp"));
        QVERIFY(IsMasked("sub/inner.bmp"));
    }

    void twoHundredSpritesTakeNoTime()
    {
        for (int index = 0; index < 200; ++index)
            WriteSprite(qPrintable(u"%1.bmp"_s.arg(index)), 256);
        ExpectQuestion();
        bench->dialogs.ExpectMessage(u"All bitmaps in "_s + Folder() + u" now include masks."_s, BoxAnswer::Ok,
                                     BoxIcon::None);
        QElapsedTimer timer;
        InBatch([&timer](QDialog& dialog) {
            timer.start();
            Button(dialog, "OKButton")->click();
        });
        qInfo("200 sprites in %lld ms", timer.elapsed());
        QVERIFY(timer.elapsed() < 20'000);
        QVERIFY(IsMasked("199.bmp", 256));
    }
};

OB_BENCH_TEST(win_frmBatch)
#include "win_frmBatch.moc"
