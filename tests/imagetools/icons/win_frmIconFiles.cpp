// SPDX-License-Identifier: GPL-3.0-or-later
// The icon bench: icons out of files and pictures, and into files and engines.
#include "imagetools/icons/IconBench.h"
#include "imagetools/icons/IconBytes.h"
#include "platform/files/FileTrouble.h"
#include "support/BenchTest.h"
#include "support/HeldThreads.h"

#include <QCheckBox>
#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString IconFilter = u"Icons (*.ico)(*.icl)(*.exe)(*.dll)|*.ICO;*.ICL;*.EXE;*.DLL"_s;
const QString PictureFilter = u"Images (*.bmp)|*.BMP;*.JPG;*.WMF;"_s;
const QString SaveFilter = u"Icons (*.ico)|*.ico|Bitmaps (*.bmp)|*.bmp"_s;
const QString EngineFilter = u"Runtime engine|*.exe"_s;
const QString EngineQuestion = u"Is this program written in Orchard BASIC v4.x?"_s;

// Quarters of four colours.
QImage Quarters(int side)
{
    QImage image(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            image.setPixelColor(
                x, y, y < side / 2 ? (x < side / 2 ? Qt::red : Qt::blue) : (x < side / 2 ? Qt::black : Qt::white));
    return image;
}

} // namespace

class win_frmIconFiles : public IconBench {
    Q_OBJECT

private:
    void ExpectSave(const QString& path, int filter = 0) const
    {
        bench->dialogs.ExpectFile(FilePurpose::Save, Text("Save As"), SaveFilter, path, filter);
    }
    void ExpectOpenBitmap(const QString& path) const
    {
        bench->dialogs.ExpectFile(FilePurpose::Open, Text("Open Bitmap"), PictureFilter, path);
    }
    void ExpectOpenIcon(const QString& path) const
    {
        bench->dialogs.ExpectFile(FilePurpose::Open, Text("Open or Extract Icon"), IconFilter, path);
    }
    void ExpectEngine(BoxAnswer isFour, const QString& path) const
    {
        bench->dialogs.ExpectMessage(EngineQuestion, isFour, BoxIcon::Question, BoxButtons::YesNo,
                                     Text("Orchard BASIC Version?"));
        bench->dialogs.ExpectFile(FilePurpose::Open, Text("Runtime Icon"), EngineFilter, path);
    }
    // Opens a picture without its instructions.
    void OpenPicture(const QImage& image) const
    {
        const QString path = bench->Path(Text("picture.bmp"));
        QVERIFY(image.save(path));
        dlgBmp::isWanted = false;
        ExpectOpenBitmap(path);
        Choose("openBitmap");
        QCOMPARE(Picture()->size(), image.size());
    }

    // Three icons of one colour in a library.
    QString WriteLibrary() const
    {
        using icons::PlainImage;
        return bench->Write(Text("fruit.icl"), icons::NeFile(icons::ResourcesOf({{PlainImage(32, 32, 4, 0xFF0000)},
                                                                                 {PlainImage(32, 32, 24, 0x0000FF)},
                                                                                 {PlainImage(32, 32, 4, 0x000000)}})));
    }

private Q_SLOTS:
    void init() { Open(); }
    void cleanup() { Close(); }

    // --- Icons from files. ---

    void anIconFileIsShownAndChosen()
    {
        Icon icon;
        icon.At(3, 4) = Red;
        icon.At(31, 0) = Blue;
        ExpectOpenIcon(bench->Write(Text("one.ico"), IconFileOf(icon)));
        Choose("op");
        QVERIFY(Key("cmdChoose")->isVisible());
        QVERIFY(!Key("cmdIcon0")->isVisible() && !Key("cmdIcon1")->isVisible());
        QVERIFY(Shown("picOrig") == icon);
        QVERIFY(Shown() == Icon());
        QCOMPARE(window->focusWidget(), Key("cmdChoose"));
        QTest::keyClick(window->focusWidget(), Qt::Key_Return);
        QVERIFY(Shown() == icon);
        QCOMPARE(TestBench::Read(bench->ProgramPath(Text("temp.ico"))), IconFileOf(icon));
        // It counts as saved, and the last icon can be restored.
        QVERIFY(Item("runtime")->isEnabled());
        Choose("und");
        QVERIFY(Shown() == Icon());
        QVERIFY(window->close());
    }

    void choosingAnIconReplacesTheDrawingAndUndoRestoresIt()
    {
        const Icon drawn = DrawSomething();
        ExpectOpenIcon(bench->Write(Text("one.ico"), IconFileOf(Icon())));
        Choose("op");
        Key("cmdChoose")->click();
        QVERIFY(Shown() == Icon());
        Choose("und");
        QVERIFY(Shown() == drawn);
        ExpectSaveQuestion(BoxAnswer::Cancel);
        QVERIFY(!window->close());
    }

    void aLibraryIsBrowsed()
    {
        ExpectOpenIcon(WriteLibrary());
        Choose("op");
        const auto isAt = [this](const char* words, ColorRef color, bool hasPrevious, bool hasNext) {
            return Find<QLabel>("lblOrig")->text() == Text(words) && Shown("picOrig").At(16, 16) == color &&
                   Key("cmdIcon0")->isEnabled() == hasNext && Key("cmdIcon1")->isEnabled() == hasPrevious;
        };
        QVERIFY(isAt("fruit.icl\n1 of 3", Red, false, true));
        Key("cmdIcon0")->click();
        QVERIFY(isAt("fruit.icl\n2 of 3", Blue, true, true));
        Key("cmdIcon0")->click();
        QVERIFY(isAt("fruit.icl\n3 of 3", Black, true, false));
        Key("cmdIcon1")->click();
        QVERIFY(isAt("fruit.icl\n2 of 3", Blue, true, true));
        Key("cmdChoose")->click();
        QCOMPARE(std::ranges::count(Shown().pixels, Blue), 32 * 32);
        Key("cmdIcon1")->click();
        QVERIFY(isAt("fruit.icl\n1 of 3", Red, false, true));
        QCOMPARE(Pixel(0, 0), Blue);
    }

    void manyColorsAreReducedByTheChoice()
    {
        ExpectOpenIcon(bench->Write(Text("many.ico"), icons::IcoFile({icons::PlainImage(32, 32, 24, 0xF01005)})));
        Choose("op");
        QCOMPARE(Shown("picOrig").At(0, 0), Rgb(0xF0, 0x10, 0x05));
        Key("cmdChoose")->click();
        QCOMPARE(Pixel(0, 0), Red);
    }

    void aFileWithoutIconStopsWithoutABox()
    {
        const Icon drawn = DrawSomething();
        ExpectOpenIcon(bench->Write(Text("none.exe"), "MZ, but nothing more"));
        Choose("op");
        QVERIFY(!Key("cmdChoose")->isVisible());
        QCOMPARE(State(), Text("There is no icon in none.exe."));
        ExpectOpenIcon({});
        Choose("op");
        QVERIFY(Shown() == drawn);
    }

    void anIconThatCannotBeReadCannotBeChosen()
    {
        using icons::PlainImage;
        const auto resources = icons::ResourcesOf({{PlainImage(32, 32, 4, 0xFF0000)}, {{32, 32, 4, "damaged"}}});
        ExpectOpenIcon(bench->Write(Text("half.icl"), icons::NeFile(resources)));
        Choose("op");
        Key("cmdIcon0")->click();
        QVERIFY(!Key("cmdChoose")->isEnabled());
        QCOMPARE(State(), Text("This icon cannot be read."));
        Key("cmdIcon1")->click();
        QVERIFY(State().startsWith(Text("Left button: paint.")));
        QVERIFY(Key("cmdChoose")->isEnabled());
    }

    // --- Icons from pictures. ---

    void instructionsAppearUntilTheyAreTurnedOff()
    {
        const QString path = bench->Path(Text("picture.bmp"));
        QVERIFY(Quarters(64).save(path));
        for (const bool again : {true, false}) {
            ExpectOpenBitmap(path);
            bench->ExpectModal(Text("dlgBmp"), [this, again](QDialog& dialog) {
                QVERIFY(Picture()->isVisible());
                QCOMPARE(dialog.windowTitle(), Text("Bitmap Instructions"));
                QVERIFY(dialog.findChild<QLabel*>(Text("lblBmp"))
                            ->text()
                            .startsWith(Text("Click and drag with mouse to select bitmap area to make into icon.")));
                auto* box = dialog.findChild<QCheckBox*>(Text("chkAgain"));
                QCOMPARE(box->text().remove(u'&'), Text("Don't show this message again."));
                box->setChecked(!again);
                QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
            });
            Choose("openBitmap");
        }
        ExpectOpenBitmap(path);
        Choose("openBitmap");
        QVERIFY(Picture()->isVisible());
    }

    void aBoxBecomesTheIcon()
    {
        OpenPicture(Quarters(64));
        Choose("chCol");
        Pull(Picture(), {0, 0}, {64, 64});
        const Icon expected = IconFromPicture(CreateFromPicture(Quarters(64)));
        QVERIFY(Shown() == expected && Shown("picOrig") == expected);
        QVERIFY(Item("mnuPaint")->isChecked());
        QCOMPARE(TestBench::Read(bench->ProgramPath(Text("temp.ico"))), IconFileOf(expected));
        Pull(Picture(), {32, 32}, {40, 60});
        QCOMPARE(std::ranges::count(Shown().pixels, Rgb(255, 255, 255)), 32 * 32);
        Choose("und");
        QVERIFY(Shown() == expected);
    }

    void aBoxDrawnUpAndLeftIsTheSameBox()
    {
        OpenPicture(Quarters(100));
        Pull(Picture(), {20, 30}, {70, 90});
        const Icon icon = Shown();
        QVERIFY(icon != Icon());
        for (const auto& [from, to] : {std::pair{QPoint(70, 90), QPoint(20, 30)}, {QPoint(70, 30), QPoint(20, 90)}}) {
            Choose("mnuNew");
            Pull(Picture(), from, to);
            QVERIFY(Shown() == icon);
        }
    }

    void anEmptyBoxDoesNothing()
    {
        OpenPicture(Quarters(64));
        Pull(Picture(), {20, 20}, {20, 50});
        Pull(Picture(), {20, 20}, {50, 20});
        QTest::mouseClick(Picture(), Qt::LeftButton, {}, {10, 10});
        QVERIFY(Shown() == Icon());
        QVERIFY(!Item("und")->isEnabled());
    }

    void aBoxEndsAtThePicturesEdge()
    {
        OpenPicture(Quarters(64));
        Pull(Picture(), {32, 0}, {500, -90});
        QVERIFY(Shown() == Icon());
        Pull(Picture(), {32, 0}, {500, 32});
        QCOMPARE(std::ranges::count(Shown().pixels, Blue), 32 * 32);
    }

    void theBandIsDrawnAndDisappearsWithoutATrace()
    {
        OpenPicture(Quarters(64));
        const QImage plain = Picture()->grab().toImage();
        QTest::mousePress(Picture(), Qt::LeftButton, {}, {10, 10});
        Move(Picture(), {50, 50});
        const QImage banded = Picture()->grab().toImage();
        QVERIFY(banded != plain);
        QCOMPARE(banded.pixelColor(30, 30), plain.pixelColor(30, 30));
        // Half a pixel does not count.
        const QPointF half(50.9, 50.9);
        QMouseEvent event(QEvent::MouseMove, half, Picture()->mapToGlobal(half), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(Picture(), &event);
        QCOMPARE(Picture()->grab().toImage(), banded);
        Move(Picture(), {20, 60});
        Move(Picture(), {50, 50});
        QCOMPARE(Picture()->grab().toImage(), banded);
        QTest::mouseRelease(Picture(), Qt::LeftButton, {}, {50, 50});
    }

    void theRightButtonEndsTheSelection()
    {
        const int width = window->width();
        OpenPicture(Quarters(300));
        QVERIFY(window->width() > width);
        QTest::mouseClick(Picture(), Qt::RightButton);
        QVERIFY(!Picture()->isVisible());
        QCOMPARE(window->width(), width);
        QVERIFY(window->isVisible());
    }

    void aPictureCanBeCutWithTheKeys()
    {
        OpenPicture(Quarters(64));
        QCOMPARE(window->focusWidget(), Picture());
        QTest::keyClick(Picture(), Qt::Key_Right); // the box appears
        QTest::keyClick(Picture(), Qt::Key_Return);
        QCOMPARE(std::ranges::count(Shown().pixels, Red), 32 * 32);
        for (int count = 0; count < 40; ++count)
            QTest::keyClick(Picture(), Qt::Key_Right);
        QTest::keyClick(Picture(), Qt::Key_Return);
        QCOMPARE(std::ranges::count(Shown().pixels, Blue), 32 * 32);
        QTest::keyClick(Picture(), Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyClick(Picture(), Qt::Key_Return);
        QCOMPARE(std::ranges::count(Shown().pixels, Blue), 32 * 32);
        QTest::keyClick(Picture(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(Picture(), Qt::Key_Return);
        QVERIFY(Shown() == IconFromPicture(CreateFromPicture(Quarters(64))));
        QTest::keyClick(Picture(), Qt::Key_Escape);
        QVERIFY(!Picture()->isVisible() && window->isVisible());
    }

    void aPictureThatCannotBeReadIsReported()
    {
        ExpectOpenBitmap(bench->Write(Text("bad.bmp"), "BM and no more"));
        bench->dialogs.ExpectMessage(Text("Run-time error '481':\nInvalid picture"));
        Choose("openBitmap");
        QVERIFY(!Picture()->isVisible());
    }

    // --- Saving. ---

    void savesAnIconOrABitmapByTheFilter()
    {
        const Icon icon = DrawSomething();
        ExpectSave(bench->Path(Text("drawn.ico")));
        Choose("sva");
        QCOMPARE(TestBench::Read(bench->Path(Text("drawn.ico"))), IconFileOf(icon));
        Click(0, 31);
        ExpectSave(bench->Path(Text("drawn.bmp")), 1);
        Item("save")->trigger();
        QCOMPARE(TestBench::Read(bench->Path(Text("drawn.bmp"))), BitmapFileOf(Shown()));
        QVERIFY(Shown() != icon);
        QVERIFY(window->close());
    }

    void aSavedIconGetsItsEnding()
    {
        DrawSomething();
        ExpectSave({});
        Choose("sva");
        QCOMPARE(bench->dialogs.LastFile().extension, Text("ico"));
        QCOMPARE(bench->dialogs.LastFile().name, QString());
    }

    void aSaveThatFailsSaysWhatToDo()
    {
        DrawSomething();
        QString reason;
        SetReasonSink([&reason](const QString& text) { reason = text; });
        ExpectSave(Text("/proc/self/a.ico"));
        bench->dialogs.ExpectMessage(Text("Run-time error '75':\nPath/File access error"));
        Choose("sva");
        SetReasonSink({});
        QVERIFY2(reason.endsWith(Text("Choose another folder or another name.")), qPrintable(reason));
    }

    void aPictureThatTakesTooLongCanBeCancelled()
    {
        ExpectOpenBitmap(bench->Write(Text("slow.bmp"), "BM and no more"));
        const HeldThreads held;
        bench->ExpectModal(Text("dlgPatience"), [](QDialog& box) { box.findChild<QPushButton*>()->click(); });
        Choose("openBitmap");
        QVERIFY(!Picture()->isVisible());
    }

    void aCancelledSaveChangesNothing()
    {
        DrawSomething();
        ExpectSave({});
        Choose("sva");
        ExpectSaveQuestion(BoxAnswer::Cancel);
        QVERIFY(!window->close());
    }

    void aFailedSaveIsReportedAndTheIconStaysUnsaved()
    {
        DrawSomething();
        ExpectSave(Text("/dev/full"));
        bench->dialogs.ExpectMessage(Text("Run-time error '61':\nDisk full"));
        Choose("sva");
        const QString path = bench->Write(Text("old.ico"), "the old one");
        {
            QVERIFY(QFile::setPermissions(path, QFile::ReadOwner));
            QVERIFY(QFile::setPermissions(bench->Path({}), QFile::ReadOwner | QFile::ExeOwner | QFile::ExeOther));
            const PlainUser user;
            ExpectSave(path);
            bench->dialogs.ExpectMessage(Text("Run-time error '75':\nPath/File access error"));
            Choose("sva");
        }
        QVERIFY(QFile::setPermissions(bench->Path({}), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        QCOMPARE(TestBench::Read(path), QByteArray("the old one"));
        ExpectSaveQuestion(BoxAnswer::No);
        QVERIFY(window->close());
    }

    void closingAsksForAnUnsavedIcon()
    {
        const Icon icon = DrawSomething();
        ExpectSaveQuestion(BoxAnswer::Cancel);
        QTest::keyClick(window.get(), Qt::Key_Escape);
        QVERIFY(window->isVisible());
        // A save that is cancelled or fails keeps it open too.
        ExpectSaveQuestion(BoxAnswer::Yes);
        ExpectSave({});
        QVERIFY(!window->close());
        ExpectSaveQuestion(BoxAnswer::Yes);
        ExpectSave(bench->Path(Text("last.ico")));
        Choose("mnuExit");
        QVERIFY(!window->isVisible());
        QCOMPARE(TestBench::Read(bench->Path(Text("last.ico"))), IconFileOf(icon));
    }

    void anUntouchedIconClosesWithoutAQuestion()
    {
        Click(1, 1, Qt::RightButton);
        QTest::mouseClick(Grid(), Qt::LeftButton, {}, {10, 10});
        QTest::keyClick(window.get(), Qt::Key_Escape);
        QVERIFY(!window->isVisible());
    }

    void theTemporaryIconIsRemovedWithTheWindow()
    {
        OpenPicture(Quarters(64));
        Pull(Picture(), {0, 0}, {64, 64});
        QVERIFY(QFile::exists(bench->ProgramPath(Text("temp.ico"))));
        window.reset();
        QVERIFY(!QFile::exists(bench->ProgramPath(Text("temp.ico"))));
    }

    // --- The runtime engine. ---

    void anEngineGetsTheIcon_data()
    {
        QTest::addColumn<bool>("isFour");
        QTest::addColumn<int>("start");
        QTest::newRow("version 3") << false << 21663;
        QTest::newRow("version 4") << true << 21735;
    }
    void anEngineGetsTheIcon()
    {
        QFETCH(const bool, isFour);
        QFETCH(const int, start);
        const QByteArray engine = icons::Noise(50'000, 3);
        const QString path = bench->Write(Text("game.exe"), engine);
        const Icon icon = DrawSomething();
        ExpectEngine(isFour ? BoxAnswer::Yes : BoxAnswer::No, path);
        bench->dialogs.ExpectMessage(Text("Current Icon has been included in copy of runtime engine named ") + path,
                                     BoxAnswer::Ok, BoxIcon::None);
        Item("runtime")->trigger();
        QByteArray expected = engine;
        expected.replace(start, 745, '\0' + IconFileOf(icon).sliced(22));
        QCOMPARE(TestBench::Read(path), expected);
        QVERIFY(Shown() == icon);
        // It is not in a file of its own yet.
        ExpectSaveQuestion(BoxAnswer::No);
        QVERIFY(window->close());
    }

    void aCancelledEngineBoxDoesNothing()
    {
        ExpectEngine(BoxAnswer::Yes, {});
        Choose("runtimeicon");
        QVERIFY(!QFile::exists(bench->ProgramPath(Text("temp.ico"))));
    }

    void anEngineThatCannotBeWrittenIsReportedWithoutABox()
    {
        DrawSomething();
        const QString path = bench->Write(Text("game.exe"), QByteArray(1000, 'e'));
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadOther));
        {
            QVERIFY(QFile::setPermissions(bench->ProgramPath({}), QFile::Permissions(0x7777)));
            QVERIFY(QFile::setPermissions(bench->Path({}) + Text(".."), QFile::Permissions(0x7777)));
            const PlainUser user;
            ExpectEngine(BoxAnswer::Yes, path);
            Choose("runtimeicon");
        }
        QCOMPARE(TestBench::Read(path), QByteArray(1000, 'e'));
        QVERIFY2(State().startsWith(Text("The icon was not put into game.exe: ")), qPrintable(State()));
    }
};

OB_BENCH_TEST(win_frmIconFiles)
#include "win_frmIconFiles.moc"
