// SPDX-License-Identifier: GPL-3.0-or-later
// The mask maker, by its controls.
#include "SpriteFiles.h"
#include "support/BenchTest.h"
#include "support/HeldThreads.h"
#include "support/TestBench.h"

#include "imagetools/pictures/frmPictureView.h"
#include "imagetools/sprites/frmMask.h"
#include "platform/language/cRuntimeError.h"
#include "shell/bench/modStart.h"
#include "shell/state/Module1.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString OpenFilter = u"Sprite Image (*.bmp)|*.BMP"_s;
const QString SaveFilter = u"Bitmap |*.bmp"_s;

// A save box that fails.
class BrokenFileBox final : public cDialogs {
public:
    BrokenFileBox() : others(SetDialogs(this)) {}
    ~BrokenFileBox() override { SetDialogs(others); }

    BoxAnswer Message(const MessageSpec& spec) override { return others->Message(spec); }
    std::optional<QString> Input(const InputSpec& spec) override { return others->Input(spec); }
    QString File(const FileSpec&) override { throw RuntimeErrorOf(ErrorNumber::InvalidCall); }
    QString Folder(const FolderSpec& spec) override { return others->Folder(spec); }
    std::optional<std::uint32_t> Color(const ColorSpec& spec) override { return others->Color(spec); }
    std::optional<FontSpec> Font(const FontSpec& start) override { return others->Font(start); }

private:
    cDialogs* others;
};

} // namespace

class win_frmMask : public QObject {
    Q_OBJECT

    std::unique_ptr<TestBench> bench;
    std::unique_ptr<frmMask> form;

    void Press(const char* name) const
    {
        QTest::mouseClick(form->findChild<QPushButton*>(QLatin1String(name)), Qt::LeftButton);
    }
    frmPictureView* View() const { return form->findChild<frmPictureView*>(u"picMask"_s); }
    QImage Shown() const { return View()->Picture().convertToFormat(QImage::Format_RGB32); }

    void Open(const QString& path) const
    {
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s, OpenFilter, path);
        Press("cmdOpen");
    }
    void SaveTo(const QString& path) const
    {
        bench->dialogs.ExpectFile(FilePurpose::Save, u"Save As"_s, SaveFilter, path);
        Press("cmdSave");
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

    void itStartsWithoutAPicture()
    {
        const auto* label = form->findChild<QLabel*>(u"lblWork"_s);
        QVERIFY(label->isVisible());
        QVERIFY(!View()->isVisible());
    }

    void helpIsAsExpected()
    {
        bench->dialogs.ExpectMessage(
            u"Click the *Batch* button to open a batch processing dialog.  It will allow you to process all bitmaps "
            "in a chosen directory to include masks.  Bitmap files will be overwritten with the masked versions."
            "\n\nOpen a sprite image bitmap.  A proper sprite is a figure surrounded by a black background.  The "
            "mask maker will automatically place a black and white mask of the image above the sprite, making a "
            "proper sprite for use with Orchard BASIC sprite functions.  If the resulting image looks correct, be "
            "sure to save it.  It will not be saved automatically.  Images that do not fit within the viewing area "
            "will still be masked properly."_s,
            BoxAnswer::Ok, BoxIcon::Information);
        Press("cmdHelp");
    }

    void aSpriteIsMaskedShownAndSaved()
    {
        const QImage sprite = SpriteImage(37, 23);
        const QString path = bench->Write(u"ship.bmp"_s, BitmapBytesOf(sprite));
        Open(path);
        QCOMPARE(Shown(), MaskedImage(sprite));
        QCOMPARE(form->windowTitle(), path);
        QVERIFY(View()->isVisible());
        QVERIFY(!form->findChild<QLabel*>(u"lblWork"_s)->isVisible());
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
        // Nothing is saved by itself.
        QCOMPARE(TestBench::Read(path), BitmapBytesOf(sprite));
        const QString target = bench->Path(u"masked.bmp"_s);
        SaveTo(target);
        QCOMPARE(ImageAt(target), MaskedImage(sprite));
        QCOMPARE(TestBench::Read(target).size(), 54 + 112 * 46); // 24 bits a pixel
        QCOMPARE(form->windowTitle(), target);
    }

    void theScreenShowsEachPixel()
    {
        const QImage sprite = SpriteImage(40, 30);
        Open(bench->Write(u"ship.bmp"_s, BitmapBytesOf(sprite)));
        const QImage grabbed = View()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        QCOMPARE(grabbed.size(), QSize(40, 60));
        for (int y = 0; y < 60; ++y) {
            for (int x = 0; x < 40; ++x)
                QCOMPARE(grabbed.pixel(x, y), MaskedImage(sprite).pixel(x, y));
        }
    }

    void aSpriteBeyondTheWindowIsMaskedWhole()
    {
        const QImage sprite = SpriteImage(1500, 900);
        Open(bench->Write(u"large.bmp"_s, BitmapBytesOf(sprite)));
        QCOMPARE(Shown(), MaskedImage(sprite));
        const auto* area = form->findChild<QScrollArea*>(u"scrWork"_s);
        QVERIFY(area->viewport()->width() < 1500);
        QCOMPARE(View()->size(), QSize(1500, 1800));
    }

    void nothingChosenChangesNothing()
    {
        Open({});
        QCOMPARE(form->windowTitle(), u"Make a Mask"_s);
        SaveTo({});
        QCOMPARE(form->windowTitle(), u"Make a Mask"_s);
    }

    void aFileThatCannotBeReadKeepsWhatWasShown()
    {
        const QImage sprite = SpriteImage(10, 10);
        const QString path = bench->Write(u"ship.bmp"_s, BitmapBytesOf(sprite));
        Open(path);
        const QString bad = bench->Write(u"bad.bmp"_s, "BM nothing");
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s, OpenFilter, bad);
        bench->dialogs.ExpectMessage(u"Run-time error '481':\nInvalid picture"_s);
        Press("cmdOpen");
        QCOMPARE(Shown(), MaskedImage(sprite));
        QCOMPARE(form->windowTitle(), path);
    }

    void whatIsWrongWithAFileIsSaid()
    {
        const QString bad = bench->Write(u"bad.bmp"_s, "BM nothing");
        QString reason;
        SetReasonSink([&reason](const QString& text) { reason = text; });
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s, OpenFilter, bad);
        bench->dialogs.ExpectMessage(u"Run-time error '481':\nInvalid picture"_s);
        Press("cmdOpen");
        SetReasonSink({});
        QVERIFY2(reason.contains(u"paint program"_s), qPrintable(reason));
        // The file's name comes from the error's source.
        try {
            form->DoMask(bad);
            QFAIL("a picture was read");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.source, QDir::toNativeSeparators(bad));
            QCOMPARE(error.number, static_cast<int>(ErrorNumber::InvalidPicture));
        }
    }

    void aReadingThatTakesTooLongCanBeCancelled()
    {
        const QImage sprite = SpriteImage(10, 10);
        const QString path = bench->Write(u"ship.bmp"_s, BitmapBytesOf(sprite));
        Open(path);
        const QString other = bench->Write(u"slow.bmp"_s, BitmapBytesOf(SpriteImage(20, 20)));
        const HeldThreads held;
        bench->ExpectModal(u"dlgPatience"_s, [](QDialog& box) { box.findChild<QPushButton*>()->click(); });
        Open(other);
        QCOMPARE(held.Made(), 1);
        QCOMPARE(form->windowTitle(), path);
        QCOMPARE(Shown(), MaskedImage(sprite));
    }

    void saveSuggestsANameWithItsEnding()
    {
        SaveTo({});
        QCOMPARE(bench->dialogs.LastFile().name, u"mask.bmp"_s);
        QCOMPARE(bench->dialogs.LastFile().extension, u"bmp"_s);
        Open(bench->Write(u"big ship.bmp"_s, BitmapBytesOf(SpriteImage(10, 10))));
        SaveTo({});
        QCOMPARE(bench->dialogs.LastFile().name, u"big ship mask.bmp"_s);
    }

    void aSaveBeforeAnyOpenSavesAnEmptyPicture()
    {
        const QString target = bench->Path(u"empty.bmp"_s);
        SaveTo(target);
        QImage white = ImageAt(target);
        QVERIFY(!white.isNull());
        white.fill(Qt::white);
        QCOMPARE(ImageAt(target), white);
    }

    void aFailedSaveIsReported()
    {
        const QImage sprite = SpriteImage(10, 10);
        const QString path = bench->Write(u"ship.bmp"_s, BitmapBytesOf(sprite));
        Open(path);
        bench->dialogs.ExpectFile(FilePurpose::Save, u"Save As"_s, SaveFilter, bench->Path(u"no/such/folder.bmp"_s));
        bench->dialogs.ExpectMessage(u"Error saving file!"_s);
        Press("cmdSave");
        QCOMPARE(form->windowTitle(), path);
        bench->dialogs.ExpectMessage(u"Sprite/mask was not saved."_s);
        const BrokenFileBox box;
        Press("cmdSave");
        QCOMPARE(form->windowTitle(), path);
    }

    void keysWork()
    {
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s, OpenFilter, QString());
        QTest::keyClick(form.get(), Qt::Key_Return);
        QVERIFY(bench->dialogs.Finished());
        QTest::keyClick(form.get(), Qt::Key_Escape);
        QVERIFY(!form->isVisible());
    }

    void exitCloses()
    {
        Press("cmdExit");
        QVERIFY(!form->isVisible());
    }

    void theMenuItemShowsItModally()
    {
        bool wasShown = false;
        bench->ExpectModal(u"frmMask"_s, [&wasShown](QDialog& dialog) {
            wasShown = true;
            dialog.reject();
        });
        bench->Choose(u"mnuToolMask"_s);
        QVERIFY(wasShown);
    }
};

OB_BENCH_TEST(win_frmMask)
#include "win_frmMask.moc"
