// SPDX-License-Identifier: GPL-3.0-or-later
// The bitmap previewer, by its controls, over real folders.
#include "imagetools/pictures/BitmapBench.h"
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "imagetools/metafiles/MetafileBytes.h"
#include "imagetools/pictures/frmBitmap.h"
#include "imagetools/pictures/frmPreviewBox.h"
#include "imagetools/pictures/modImageFiles.h"
#include "platform/desktop/modClipboard.h"
#include "shell/state/modTexts.h"

#include <QCheckBox>
#include <QClipboard>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QPointer>
#include <QPushButton>

using namespace Qt::StringLiterals;

using namespace ob;

class win_frmBitmap : public BitmapBench {
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

    void listsOnlyBitmapsUntilTheLibraryIsUsed();
    void showsNameSizeAndFittedPicture();
    void pictureIsNeverEnlarged();
    void resizingTheWindowFitsItAgain();
    void windowThatGrowsWhileAPictureIsReadShowsItSharp();
    void pictureThatCannotBeShownLeavesThePreviousOne();
    void vanishedFileLeavesThePreviousOne();
    void addTakesTheFileAndGoesToTheNext();
    void the151stBitmapIsRefusedAndSoIsEachFurtherOne();
    void createPutsTheListOnTheClipboard_data();
    void createPutsTheListOnTheClipboard();
    void createWithoutBitmapsAsks();
    void createStaysWhenTheClipboardIsTaken();
    void closingForgetsTheList();
    void saveAsWithoutAPicture();
    void saveAsCopiesTheFile();
    void saveAsAppliesToTheLastChosenFile();
    void saveAsConvertsTo256Colors();
    void saveAsThatFails();
    void imageLibraryIsSaved();
    void imageLibraryIntoAnUnwritableFolder();
    void keysAndEscape();
    void manyLargePicturesStayFluid();
};

void win_frmBitmap::listsOnlyBitmapsUntilTheLibraryIsUsed()
{
    for (const char* name : {"a.bmp", "B.BMP", "c.jpg", "d.png"})
        Picture(name);
    bench->Write(u"e.wmf"_s, WmfBytes().Placeable(0, 0, 9, 9, 96));
    bench->Write(u"f.emf"_s, EmfBytes().File(9, 9));
    bench->Write(u"g.gif"_s, "GIF");
    Open();
    QCOMPARE(Files().join(QLatin1Char(' ')), u"a.bmp B.BMP"_s);
    QCOMPARE(Text("lblState"), u"Pictures: 2"_s);
    Tick("chkDLL");
    QTRY_COMPARE(Files().join(QLatin1Char(' ')), u"a.bmp B.BMP c.jpg e.wmf"_s);
    Tick("chkDLL");
    QTRY_COMPARE(Files().join(QLatin1Char(' ')), u"a.bmp B.BMP"_s);
}

void win_frmBitmap::showsNameSizeAndFittedPicture()
{
    const QString path = Picture("large.bmp", {2000, 500}, Qt::blue);
    Open();
    QCOMPARE(form->windowTitle(), u"Bitmap Preview"_s);
    QCOMPARE(Text("lblName"), u"Bitmap Name"_s);
    QCOMPARE(Text("Label1"), u"Dimensions:"_s);
    Show(u"large.bmp"_s);
    QCOMPARE(Text("Label1"), u"Dimensions: 2000 x 500"_s);
    QCOMPARE(QFileInfo(Control<QLineEdit>("Text1")->text()), QFileInfo(path));
    const auto* box = Control<frmPreviewBox>("Picture1");
    QCOMPARE(box->PictureRect().width(), box->contentsRect().width());
    QVERIFY(qAbs(box->PictureRect().width() - 4 * box->PictureRect().height()) <= 4);
    QVERIFY(box->contentsRect().contains(box->PictureRect()));
    QCOMPARE(PixelOfPreview(), QColor(Qt::blue));
}

void win_frmBitmap::pictureIsNeverEnlarged()
{
    Picture("small.bmp", {20, 10}, Qt::green);
    Open();
    Show(u"small.bmp"_s);
    QCOMPARE(Control<frmPreviewBox>("Picture1")->PictureRect().size(), QSize(20, 10));
    QCOMPARE(PixelOfPreview(), QColor(Qt::green));
}

void win_frmBitmap::resizingTheWindowFitsItAgain()
{
    Picture("large.bmp", {3000, 3000});
    Open();
    Show(u"large.bmp"_s);
    auto* box = Control<frmPreviewBox>("Picture1");
    const QSize before = box->PictureRect().size();
    form->resize(form->width() + 300, form->height() + 300);
    QTRY_VERIFY(box->PictureRect().width() > before.width());
    QCOMPARE(box->PictureRect().height(), std::min(box->contentsRect().height(), box->contentsRect().width()));
    QTest::qWait(100);
    QCOMPARE(PixelOfPreview(), QColor(Qt::red));
}

void win_frmBitmap::windowThatGrowsWhileAPictureIsReadShowsItSharp()
{
    QImage halves(4000, 4000, QImage::Format_RGB32);
    halves.fill(Qt::red);
    QPainter(&halves).fillRect(2000, 0, 2000, 4000, Qt::blue);
    QVERIFY(halves.save(bench->Path(u"halves.bmp"_s)));
    Open();
    form->resize(form->minimumSizeHint());
    QApplication::processEvents();
    Click(u"halves.bmp"_s);
    form->resize(2400, 2200);
    QTRY_COMPARE(Text("lblName"), u"halves.bmp"_s);
    QTest::qWait(100);
    auto* box = Control<frmPreviewBox>("Picture1");
    const QImage shown = box->grab().toImage();
    const QRect place = box->PictureRect();
    const int middle = place.left() + place.width() / 2;
    QCOMPARE(shown.pixelColor(middle - 3, place.center().y()), QColor(Qt::red));
    QCOMPARE(shown.pixelColor(middle + 3, place.center().y()), QColor(Qt::blue));
}

void win_frmBitmap::pictureThatCannotBeShownLeavesThePreviousOne()
{
    Picture("good.bmp");
    bench->Write(u"hostile.bmp"_s,
                 "BM" + Longs({54, 0, 54, 40, 30'000, 30'000}) + Words({1, 24}) + Longs({0, 0, 0, 0, 0, 0}));
    bench->Write(u"empty.bmp"_s, {});
    Open();
    Show(u"good.bmp"_s);
    QVERIFY(Text("lblProblem").isEmpty());
    for (const char* name : {"hostile.bmp", "empty.bmp"}) {
        Click(QLatin1String(name));
        QTRY_COMPARE(Text("lblProblem"), QLatin1String(name) + u" cannot be shown."_s);
        QVERIFY(Control<QLabel>("lblProblem")->isVisible());
        // Fitting the previous one again does not make it the chosen one.
        form->resize(form->width() + 10, form->height());
        QTest::qWait(100);
        QCOMPARE(Text("lblProblem"), QLatin1String(name) + u" cannot be shown."_s);
        QCOMPARE(Text("lblName"), u"good.bmp"_s);
        QCOMPARE(Text("Label1"), u"Dimensions: 40 x 30"_s);
        QCOMPARE(PixelOfPreview(), QColor(Qt::red));
    }
    Click(u"good.bmp"_s);
    QTRY_VERIFY(Text("lblProblem").isEmpty());
}

void win_frmBitmap::vanishedFileLeavesThePreviousOne()
{
    Picture("a.bmp");
    const QString gone = Picture("b.bmp", {50, 50}, Qt::blue);
    Open();
    Show(u"a.bmp"_s);
    QVERIFY(QFile::remove(gone));
    Click(u"b.bmp"_s);
    QTRY_COMPARE(Text("lblProblem"), u"b.bmp cannot be shown."_s);
    QCOMPARE(Text("lblName"), u"a.bmp"_s);
    QCOMPARE(PixelOfPreview(), QColor(Qt::red));
}

void win_frmBitmap::addTakesTheFileAndGoesToTheNext()
{
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
        Picture(name);
    Open();
    QVERIFY(!Control<QPushButton>("cmdAdd")->isEnabled());
    Click(u"b.bmp"_s);
    Press("cmdAdd");
    QCOMPARE(ChosenFile(), u"c.bmp"_s);
    Press("cmdAdd");
    QCOMPARE(ChosenFile(), u"c.bmp"_s); // the last one stays
    QCOMPARE(Text("lblList"), u"In the LoadBmp list: 2 of 150"_s);
    QTRY_COMPARE(Text("lblName"), u"c.bmp"_s);
    bench->dialogs.ExpectMessage(CopiedText, BoxAnswer::Ok, BoxIcon::Information);
    Press("cmdCreate");
    QCOMPARE(QApplication::clipboard()->text().count(u"    loadbmp \""_s), 2);
    QVERIFY(QApplication::clipboard()->text().contains(u"    loadbmp \"b\", DefaultDir$ + \"\\b.bmp\""_s));
}

void win_frmBitmap::the151stBitmapIsRefusedAndSoIsEachFurtherOne()
{
    for (int i = 1; i <= 152; ++i)
        Picture(qPrintable(u"p%1.bmp"_s.arg(i, 3, 10, QLatin1Char('0'))), {2, 2});
    Open();
    Click(u"p001.bmp"_s);
    for (int i = 1; i <= 150; ++i)
        Press("cmdAdd");
    QVERIFY(bench->dialogs.Finished());
    QCOMPARE(ChosenFile(), u"p151.bmp"_s);
    for (int i = 0; i < 2; ++i)
        bench->dialogs.ExpectMessage(BmpListFullText, BoxAnswer::Ok, BoxIcon::None);
    Press("cmdAdd");
    Press("cmdAdd");
    QCOMPARE(ChosenFile(), u"p151.bmp"_s);
    bench->dialogs.ExpectMessage(CopiedText, BoxAnswer::Ok, BoxIcon::Information);
    Press("cmdCreate");
    const QString text = QApplication::clipboard()->text();
    QCOMPARE(text.count(u"    loadbmp \""_s), 150);
    QVERIFY(text.contains(u"\"p150\""_s) && !text.contains(u"p151"_s));
}

void win_frmBitmap::createPutsTheListOnTheClipboard_data()
{
    QTest::addColumn<bool>("library");
    QTest::addColumn<bool>("path");
    QTest::newRow("plain") << false << false;
    QTest::newRow("path") << false << true;
    QTest::newRow("library") << true << false;
    QTest::newRow("both") << true << true;
}

void win_frmBitmap::createPutsTheListOnTheClipboard()
{
    QFETCH(bool, library);
    QFETCH(bool, path);
    Picture("rose.bmp");
    Picture("tulip.bmp");
    Open();
    if (library)
        Tick("chkDLL");
    if (path)
        Tick("chkPath");
    QTRY_COMPARE(Files().size(), 2);
    Click(u"rose.bmp"_s);
    Press("cmdAdd");
    Press("cmdAdd");
    QString copied;
    SetClipboardWriter([&](const QString& text) {
        copied = text;
        return true;
    });
    bench->dialogs.ExpectMessage(CopiedText, BoxAnswer::Ok, BoxIcon::Information);
    Press("cmdCreate");
    QTRY_VERIFY(form.isNull());
    const QString folder = QDir::currentPath();
    const QStringList paths = {folder + u"/rose.bmp"_s, folder + u"/tulip.bmp"_s};
    QCOMPARE(copied, LoadBmpText(paths, library ? ImageLibrary::Used : ImageLibrary::Unused,
                                 path ? PathInformation::Full : PathInformation::Left));
    QCOMPARE(copied.contains(u"Function LoadImageFile(hWnd, file$)\r\n"_s), library);
    QCOMPARE(copied.contains(folder + u"/rose.bmp\""_s), path);
}

void win_frmBitmap::createWithoutBitmapsAsks()
{
    Open();
    bench->dialogs.ExpectMessage(NoneText, BoxAnswer::Yes, BoxIcon::Question, BoxButtons::YesNo, u"Error!"_s);
    Press("cmdCreate");
    QVERIFY(!form.isNull() && form->isVisible());
    bench->dialogs.ExpectMessage(NoneText, BoxAnswer::No, BoxIcon::Question, BoxButtons::YesNo, u"Error!"_s);
    Press("cmdCreate");
    QTRY_VERIFY(form.isNull());
}

void win_frmBitmap::createStaysWhenTheClipboardIsTaken()
{
    Picture("a.bmp");
    Open();
    Click(u"a.bmp"_s);
    Press("cmdAdd");
    SetClipboardWriter([](const QString&) { return false; });
    bench->dialogs.ExpectMessage(ClipboardTakenText, BoxAnswer::Ok, BoxIcon::Exclamation);
    Press("cmdCreate");
    QVERIFY(form->isVisible());
    QCOMPARE(Text("lblList"), u"In the LoadBmp list: 1 of 150"_s);
}

void win_frmBitmap::closingForgetsTheList()
{
    Picture("a.bmp");
    Open();
    Click(u"a.bmp"_s);
    Press("cmdAdd");
    Press("cmdExit");
    QTRY_VERIFY(form.isNull());
    bench->Choose(u"mnuToolBitmap"_s);
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* found = qobject_cast<frmBitmap*>(window))
            form = found;
    QCOMPARE(Text("lblList"), u"In the LoadBmp list: 0 of 150"_s);
}

// --- Saving. --------------------------------------------------------------------------------------------------------

void win_frmBitmap::saveAsWithoutAPicture()
{
    Picture("a.bmp");
    Open();
    bench->dialogs.ExpectMessage(u"No bitmap to save!"_s, BoxAnswer::Ok, BoxIcon::Exclamation);
    Press("cmdCopy");
}

void win_frmBitmap::saveAsCopiesTheFile()
{
    const QString source = Picture("a.bmp");
    const QString target = bench->Path(u"copy.jpg"_s);
    Open();
    Show(u"a.bmp"_s);
    bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, {});
    Press("cmdCopy");
    bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, target);
    bench->dialogs.ExpectMessage(u"Image has been saved as "_s + target, BoxAnswer::Ok, BoxIcon::None);
    Press("cmdCopy");
    QCOMPARE(TestBench::Read(target), TestBench::Read(source));
}

void win_frmBitmap::saveAsAppliesToTheLastChosenFile()
{
    Picture("a.bmp", {3000, 2000});
    const QString source = Picture("b.bmp", {3000, 2000}, Qt::blue);
    const QString target = bench->Path(u"copy.bmp"_s);
    Open();
    bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, target);
    bench->dialogs.ExpectMessage(u"Image has been saved as "_s + target, BoxAnswer::Ok, BoxIcon::None);
    Click(u"a.bmp"_s);
    Click(u"b.bmp"_s);
    Press("cmdCopy");
    QCOMPARE(Text("lblName"), u"b.bmp"_s);
    QCOMPARE(TestBench::Read(target), TestBench::Read(source));
}

void win_frmBitmap::saveAsConvertsTo256Colors()
{
    Picture("a.bmp", {32, 16}, QColor(0, 0, 255));
    const QString target = bench->Path(u"copy.bmp"_s);
    Open();
    Show(u"a.bmp"_s);
    Tick("chk256");
    bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, target);
    bench->dialogs.ExpectMessage(u"Image has been saved in Windows default 256-color format as "_s + target,
                                 BoxAnswer::Ok, BoxIcon::None);
    Press("cmdCopy");
    const QByteArray bytes = TestBench::Read(target);
    QCOMPARE(bytes.size(), 1078 + 32 * 16);
    QCOMPARE(int(bytes[28]), 8);
    QCOMPARE(QImage(target).pixelColor(3, 3), QColor(0, 0, 255));
}

void win_frmBitmap::saveAsThatFails()
{
    const QString source = Picture("a.bmp");
    Open();
    Show(u"a.bmp"_s);
    for (const bool is256 : {false, true}) {
        if (is256)
            Tick("chk256");
        // A folder that accepts no file from any user.
        bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, u"/proc/self/a.bmp"_s);
        bench->dialogs.ExpectMessage(u"Error saving file!"_s);
        Press("cmdCopy");
    }
    QVERIFY(QFile::remove(source));
    const QString older = bench->Write(u"older.bmp"_s, "older");
    bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, older);
    bench->dialogs.ExpectMessage(u"Error saving file!"_s);
    Press("cmdCopy");
    QCOMPARE(TestBench::Read(older), QByteArray("older"));
}

void win_frmBitmap::imageLibraryIsSaved()
{
    Open();
    if (!CarriesImageLibrary()) {
        bench->dialogs.ExpectMessage(NoImageLibraryText, BoxAnswer::Ok, BoxIcon::Exclamation);
        Press("cmdJpg");
        return;
    }
    bench->dialogs.ExpectFolder(u"Save Image DLL to Disk"_s, {});
    Press("cmdJpg");
    const QString folder = bench->Path({});
    const QString path = QDir(folder).filePath(u"jpeg.dll"_s);
    bench->dialogs.ExpectFolder(u"Save Image DLL to Disk"_s, QDir::cleanPath(folder));
    bench->dialogs.ExpectMessage(u"Image DLL saved as "_s + path, BoxAnswer::Ok, BoxIcon::None);
    Press("cmdJpg");
    const auto embedded = EmbeddedText(104, u"CUSTOM"_s);
    QCOMPARE(TestBench::Read(path), QByteArray(embedded->data(), static_cast<qsizetype>(embedded->size())));
    QVERIFY(TestBench::Read(bench->Path(u"jpeg.bas"_s)).startsWith("'jpeg.bas: "));
}

void win_frmBitmap::imageLibraryIntoAnUnwritableFolder()
{
    if (!CarriesImageLibrary())
        QSKIP("the library is not embedded in this build");
    Open();
    bench->dialogs.ExpectFolder(u"Save Image DLL to Disk"_s, u"/proc/self"_s);
    bench->dialogs.ExpectMessage(u"Run-time error '75':\nPath/File access error"_s);
    Press("cmdJpg");
}

// --- Feel. ----------------------------------------------------------------------------------------------------------

void win_frmBitmap::keysAndEscape()
{
    Picture("a.bmp");
    Picture("b.bmp");
    Open();
    QVERIFY(QTest::qWaitForWindowActive(form));
    QCOMPARE(form->focusWidget(), File1());
    QTest::keyClick(File1(), Qt::Key_Down);
    const QString first = ChosenFile();
    QTRY_COMPARE(Text("lblName"), first);
    // Enter adds and moves on.
    QTest::keyClick(File1(), Qt::Key_Return);
    QCOMPARE(Text("lblList"), u"In the LoadBmp list: 1 of 150"_s);
    for (const QWidget* control : form->findChildren<QWidget*>())
        if (control->focusPolicy() != Qt::NoFocus && control->parentWidget() != nullptr &&
            qobject_cast<const QAbstractButton*>(control) != nullptr)
            QVERIFY2(!static_cast<const QAbstractButton*>(control)->text().isEmpty(),
                     qPrintable(control->objectName()));
    QTest::keyClick(form, Qt::Key_Escape);
    QTRY_VERIFY(form.isNull());
}

void win_frmBitmap::manyLargePicturesStayFluid()
{
    const QString first = Picture("p0000.bmp", {4000, 3000}, Qt::blue);
    for (int i = 1; i < 1000; ++i)
        QVERIFY(QFile::link(first, bench->Path(u"p%1.bmp"_s.arg(i, 4, 10, QLatin1Char('0')))));
    Open();
    QTRY_COMPARE(Files().size(), 1000);
    Click(u"p0000.bmp"_s);
    qint64 longest = 0;
    QElapsedTimer timer;
    for (int i = 1; i < 1000; ++i) {
        timer.start();
        QTest::keyClick(File1(), Qt::Key_Down);
        QApplication::processEvents();
        longest = std::max(longest, timer.elapsed());
    }
    QTRY_COMPARE_WITH_TIMEOUT(Text("lblName"), u"p0999.bmp"_s, 30'000);
    // A picture of this size takes longer to read than this, so none was awaited.
    qInfo("longest step %lld ms", longest);
    QVERIFY2(longest < 1000, qPrintable(QString::number(longest)));
}

OB_BENCH_TEST(win_frmBitmap)
#include "win_frmBitmap.moc"
