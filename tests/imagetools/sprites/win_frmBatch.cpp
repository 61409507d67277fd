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

using namespace ob;

namespace {

const QString Question =
    QStringLiteral("All bitmap files in this directory will receive masks and the files will be overwritten.  After "
                   "the masking has begun, press ESCAPE or the Cancel button to abort the operation.  Continue?");
const QString Cancelled =
    QStringLiteral("Operation cancelled.  Some bitmaps in this directory may not have received masks.");

QPushButton* Button(const QDialog& dialog, const char* name)
{
    return dialog.findChild<QPushButton*>(QLatin1String(name));
}

QString Instructions(const QDialog& dialog)
{
    return dialog.findChild<QLabel*>(QStringLiteral("Label3"))->text();
}

QStringList Files(const QDialog& dialog)
{
    const QAbstractItemModel* model = dialog.findChild<QListView*>(QStringLiteral("File1"))->model();
    QStringList names;
    for (int row = 0; row < model->rowCount(); ++row)
        names.append(model->index(row, 0).data().toString());
    return names;
}

} // namespace

class win_frmBatch : public QObject {
    Q_OBJECT

    std::unique_ptr<TestBench> bench;
    QPointer<frmMask> form;

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
        bench->ExpectModal(QStringLiteral("frmBatch"), script);
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
        bench->Choose(QStringLiteral("mnuToolMask"));
        form = bench->Frame().findChild<frmMask*>();
        QVERIFY(form);
    }
    void cleanup()
    {
        form->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        bench.reset();
    }

    void itStartsWithItsInstructions()
    {
        InBatch([](QDialog& dialog) {
            QCOMPARE(Instructions(dialog),
                     QStringLiteral("Choose a Directory.\nAll Bitmaps in the Directory will receive "
                                    "masks.\nThe bitmap files will be overwritten with the masked "
                                    "versions."));
            dialog.reject();
        });
    }

    void theBitmapsOfTheFolderAreListed()
    {
        for (const char* name : {"b.BMP", "a.bmp", "C.bmp"})
            WriteSprite(name);
        bench->Write(QStringLiteral("note.txt"), "text");
        InBatch([](QDialog& dialog) {
            QTRY_COMPARE(Files(dialog),
                         QStringList({QStringLiteral("a.bmp"), QStringLiteral("b.BMP"), QStringLiteral("C.bmp")}));
            dialog.reject();
        });
    }

    void allBitmapsReceiveMasks()
    {
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
            WriteSprite(name);
        ExpectQuestion();
        bench->dialogs.ExpectMessage(QStringLiteral("All bitmaps in ") + Folder() +
                                         QStringLiteral(" now include masks."),
                                     BoxAnswer::Ok, BoxIcon::None);
        QPointer<QDialog> shown;
        InBatch([&](QDialog& dialog) {
            shown = &dialog;
            Button(dialog, "OKButton")->click();
            QVERIFY(!dialog.isVisible());
        });
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
            QVERIFY(IsMasked(name));
        // The mask maker shows the last one, ready for Save As.
        const auto* view = form->findChild<frmPictureView*>(QStringLiteral("picMask"));
        QCOMPARE(view->Picture().convertToFormat(QImage::Format_RGB32), MaskedImage(SpriteImage(8, 8)));
        QCOMPARE(form->windowTitle(), bench->Path(QStringLiteral("c.bmp")));
    }

    void progressIsReported()
    {
        for (const char* name : {"a.bmp", "b.bmp"})
            WriteSprite(name);
        ExpectQuestion();
        bench->dialogs.ExpectMessage(QStringLiteral("All bitmaps in ") + Folder() +
                                         QStringLiteral(" now include masks."),
                                     BoxAnswer::Ok, BoxIcon::None);
        QStringList shown;
        QTimer watch;
        InBatch([&](QDialog& dialog) {
            // Runs each time the batch processes events.
            QObject::connect(&watch, &QTimer::timeout, &dialog, [&] {
                shown.append(Instructions(dialog));
                QVERIFY(!Button(dialog, "OKButton")->isEnabled());
                QVERIFY(!dialog.findChild<QTreeView*>(QStringLiteral("Dir1"))->isEnabled());
                QVERIFY(Button(dialog, "CancelButton")->isEnabled());
            });
            watch.start(0);
            Button(dialog, "OKButton")->click();
            watch.stop();
        });
        shown.removeDuplicates();
        const QString number =
            QStringLiteral("Click CANCEL to abort.  Processing bitmap number  %1 of  2 bitmaps in \n\n") + Folder();
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
        bench->dialogs.ExpectMessage(QStringLiteral("There are no bitmaps in ") + Folder() +
                                     QStringLiteral("!  Please choose another directory."));
        InBatch([](QDialog& dialog) {
            Button(dialog, "OKButton")->click();
            QVERIFY(dialog.isVisible());
            dialog.reject();
        });
    }

    void aBitmapThatCannotBeReadEndsTheBatch()
    {
        WriteSprite("a.bmp");
        bench->Write(QStringLiteral("b.bmp"), "BM, but no bitmap");
        WriteSprite("c.bmp");
        ExpectQuestion();
        bench->dialogs.ExpectMessage(QStringLiteral("Run-time error '481':\nInvalid picture"));
        InBatch([](QDialog& dialog) {
            Button(dialog, "OKButton")->click();
            // The window stays, with the bad file marked.
            QVERIFY(dialog.isVisible());
            QVERIFY(Button(dialog, "OKButton")->isEnabled());
            QCOMPARE(dialog.findChild<QListView*>(QStringLiteral("File1"))->currentIndex().data().toString(),
                     QStringLiteral("b.bmp"));
            QVERIFY(Instructions(dialog).startsWith(QLatin1String("Choose a Directory.")));
            dialog.reject();
        });
        QVERIFY(IsMasked("a.bmp"));
        QCOMPARE(TestBench::Read(bench->Path(QStringLiteral("b.bmp"))), QByteArray("BM, but no bitmap"));
        QVERIFY(!IsMasked("c.bmp"));
    }

    void anotherFolderIsChosenByKeys()
    {
        WriteSprite("a.bmp");
        QDir().mkdir(QStringLiteral("sub"));
        WriteSprite("sub/inner.bmp");
        ExpectQuestion();
        bench->dialogs.ExpectMessage(QStringLiteral("All bitmaps in ") + bench->Path(QStringLiteral("sub")) +
                                         QStringLiteral(" now include masks."),
                                     BoxAnswer::Ok, BoxIcon::None);
        InBatch([](QDialog& dialog) {
            auto* folders = dialog.findChild<QTreeView*>(QStringLiteral("Dir1"));
            QTRY_COMPARE(Files(dialog).size(), 1);
            QTest::keyClick(folders, Qt::Key_Down);
            QTest::keyClick(folders, Qt::Key_Return);
            QTRY_COMPARE(Files(dialog), QStringList(QStringLiteral("inner.bmp")));
            Button(dialog, "OKButton")->click();
        });
        QVERIFY(!IsMasked("a.bmp"));
        QVERIFY(IsMasked("sub/inner.bmp"));
    }

    void twoHundredSpritesTakeNoTime()
    {
        for (int index = 0; index < 200; ++index)
            WriteSprite(qPrintable(QStringLiteral("%1.bmp").arg(index)), 256);
        ExpectQuestion();
        bench->dialogs.ExpectMessage(QStringLiteral("All bitmaps in ") + Folder() +
                                         QStringLiteral(" now include masks."),
                                     BoxAnswer::Ok, BoxIcon::None);
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
