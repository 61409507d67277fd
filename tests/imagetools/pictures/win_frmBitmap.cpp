// SPDX-License-Identifier: GPL-3.0-or-later
// The bitmap previewer, by its controls, over real folders.
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

using namespace ob;

namespace {

const QString SaveTitle = QStringLiteral("Save As...");
const QString SaveFilter = QStringLiteral("Image Files |*.bmp;*.jpg;*.gif;*.emf;*.wmf;");
const QString CopiedText =
    QStringLiteral("Bitmap list has been copied to the clipboard.  Please paste it into your program.");
const QString NoneText = QStringLiteral("No bitmaps are selected. Do you want to add bitmaps?");

void SavePicture(const QString& path, QSize size, QColor color)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QVERIFY(image.save(path));
}

} // namespace

class win_frmBitmap : public QObject {
    Q_OBJECT

    std::unique_ptr<TestBench> bench;
    QPointer<frmBitmap> form;

    template <class Widget>
    Widget* Control(const char* name) const
    {
        auto* found = form->findChild<Widget*>(QString::fromLatin1(name));
        if (found == nullptr)
            qFatal("no control %s", name);
        return found;
    }
    QString Text(const char* name) const { return Control<QLabel>(name)->text(); }
    void Press(const char* name) const { QTest::mouseClick(Control<QPushButton>(name), Qt::LeftButton); }
    void Tick(const char* name) const
    {
        auto* box = Control<QCheckBox>(name);
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    }
    QListView* File1() const { return Control<QListView>("File1"); }
    QStringList Files() const
    {
        QStringList names;
        for (int row = 0; row < File1()->model()->rowCount(); ++row)
            names.append(File1()->model()->index(row, 0).data().toString());
        return names;
    }
    QString ChosenFile() const { return File1()->currentIndex().data().toString(); }
    void Click(const QString& name) const
    {
        const QModelIndex index = File1()->model()->index(static_cast<int>(Files().indexOf(name)), 0);
        QVERIFY2(index.isValid(), qPrintable(name));
        File1()->scrollTo(index);
        QTest::mouseClick(File1()->viewport(), Qt::LeftButton, {}, File1()->visualRect(index).center());
    }
    void Show(const QString& name) const
    {
        Click(name);
        QTRY_COMPARE(Text("lblName"), name);
    }
    QColor PixelOfPreview() const
    {
        auto* box = Control<frmPreviewBox>("Picture1");
        return box->grab().toImage().pixelColor(box->PictureRect().center());
    }
    QString Picture(const char* name, QSize size = {40, 30}, QColor color = Qt::red) const
    {
        const QString path = bench->Path(QString::fromLatin1(name));
        SavePicture(path, size, color);
        return path;
    }

    void Open()
    {
        bench->Start();
        bench->Choose(QStringLiteral("mnuToolBitmap"));
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* found = qobject_cast<frmBitmap*>(window))
                form = found;
        QVERIFY(form != nullptr);
        QTRY_VERIFY(Text("lblState") != QStringLiteral("Reading the folder..."));
    }

private Q_SLOTS:
    void init() { bench = std::make_unique<TestBench>(); }
    void cleanup()
    {
        delete form;
        QVERIFY(bench->dialogs.Finished());
        bench.reset();
        SetClipboardWriter({});
    }

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
    bench->Write(QStringLiteral("e.wmf"), WmfBytes().Placeable(0, 0, 9, 9, 96));
    bench->Write(QStringLiteral("f.emf"), EmfBytes().File(9, 9));
    bench->Write(QStringLiteral("g.gif"), "GIF");
    Open();
    QCOMPARE(Files().join(QLatin1Char(' ')), QStringLiteral("a.bmp B.BMP"));
    QCOMPARE(Text("lblState"), QStringLiteral("Pictures: 2"));
    Tick("chkDLL");
    QTRY_COMPARE(Files().join(QLatin1Char(' ')), QStringLiteral("a.bmp B.BMP c.jpg e.wmf"));
    Tick("chkDLL");
    QTRY_COMPARE(Files().join(QLatin1Char(' ')), QStringLiteral("a.bmp B.BMP"));
}

void win_frmBitmap::showsNameSizeAndFittedPicture()
{
    const QString path = Picture("large.bmp", {2000, 500}, Qt::blue);
    Open();
    QCOMPARE(form->windowTitle(), QStringLiteral("Bitmap Preview"));
    QCOMPARE(Text("lblName"), QStringLiteral("Bitmap Name"));
    QCOMPARE(Text("Label1"), QStringLiteral("Dimensions:"));
    Show(QStringLiteral("large.bmp"));
    QCOMPARE(Text("Label1"), QStringLiteral("Dimensions: 2000 x 500"));
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
    Show(QStringLiteral("small.bmp"));
    QCOMPARE(Control<frmPreviewBox>("Picture1")->PictureRect().size(), QSize(20, 10));
    QCOMPARE(PixelOfPreview(), QColor(Qt::green));
}

void win_frmBitmap::resizingTheWindowFitsItAgain()
{
    Picture("large.bmp", {3000, 3000});
    Open();
    Show(QStringLiteral("large.bmp"));
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
    QVERIFY(halves.save(bench->Path(QStringLiteral("halves.bmp"))));
    Open();
    form->resize(form->minimumSizeHint());
    QApplication::processEvents();
    Click(QStringLiteral("halves.bmp"));
    form->resize(2400, 2200);
    QTRY_COMPARE(Text("lblName"), QStringLiteral("halves.bmp"));
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
    bench->Write(QStringLiteral("hostile.bmp"),
                 "BM" + Longs({54, 0, 54, 40, 30'000, 30'000}) + Words({1, 24}) + Longs({0, 0, 0, 0, 0, 0}));
    bench->Write(QStringLiteral("empty.bmp"), {});
    Open();
    Show(QStringLiteral("good.bmp"));
    QVERIFY(Text("lblProblem").isEmpty());
    for (const char* name : {"hostile.bmp", "empty.bmp"}) {
        Click(QLatin1String(name));
        QTRY_COMPARE(Text("lblProblem"), QLatin1String(name) + QStringLiteral(" cannot be shown."));
        QVERIFY(Control<QLabel>("lblProblem")->isVisible());
        // Fitting the previous one again does not make it the chosen one.
        form->resize(form->width() + 10, form->height());
        QTest::qWait(100);
        QCOMPARE(Text("lblProblem"), QLatin1String(name) + QStringLiteral(" cannot be shown."));
        QCOMPARE(Text("lblName"), QStringLiteral("good.bmp"));
        QCOMPARE(Text("Label1"), QStringLiteral("Dimensions: 40 x 30"));
        QCOMPARE(PixelOfPreview(), QColor(Qt::red));
    }
    Click(QStringLiteral("good.bmp"));
    QTRY_VERIFY(Text("lblProblem").isEmpty());
}

void win_frmBitmap::vanishedFileLeavesThePreviousOne()
{
    Picture("a.bmp");
    const QString gone = Picture("b.bmp", {50, 50}, Qt::blue);
    Open();
    Show(QStringLiteral("a.bmp"));
    QVERIFY(QFile::remove(gone));
    Click(QStringLiteral("b.bmp"));
    QTRY_COMPARE(Text("lblProblem"), QStringLiteral("b.bmp cannot be shown."));
    QCOMPARE(Text("lblName"), QStringLiteral("a.bmp"));
    QCOMPARE(PixelOfPreview(), QColor(Qt::red));
}

void win_frmBitmap::addTakesTheFileAndGoesToTheNext()
{
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
        Picture(name);
    Open();
    QVERIFY(!Control<QPushButton>("cmdAdd")->isEnabled());
    Click(QStringLiteral("b.bmp"));
    Press("cmdAdd");
    QCOMPARE(ChosenFile(), QStringLiteral("c.bmp"));
    Press("cmdAdd");
    QCOMPARE(ChosenFile(), QStringLiteral("c.bmp")); // the last one stays
    QCOMPARE(Text("lblList"), QStringLiteral("In the LoadBmp list: 2 of 150"));
    QTRY_COMPARE(Text("lblName"), QStringLiteral("c.bmp"));
    bench->dialogs.ExpectMessage(CopiedText, BoxAnswer::Ok, BoxIcon::Information);
    Press("cmdCreate");
    QCOMPARE(QApplication::clipboard()->text().count(QStringLiteral("    loadbmp \"")), 2);
    QVERIFY(QApplication::clipboard()->text().contains(QStringLiteral("    loadbmp \"b\", DefaultDir$ + \"\\b.bmp\"")));
}

void win_frmBitmap::the151stBitmapIsRefusedAndSoIsEachFurtherOne()
{
    for (int i = 1; i <= 152; ++i)
        Picture(qPrintable(QStringLiteral("p%1.bmp").arg(i, 3, 10, QLatin1Char('0'))), {2, 2});
    Open();
    Click(QStringLiteral("p001.bmp"));
    for (int i = 1; i <= 150; ++i)
        Press("cmdAdd");
    QVERIFY(bench->dialogs.Finished());
    QCOMPARE(ChosenFile(), QStringLiteral("p151.bmp"));
    for (int i = 0; i < 2; ++i)
        bench->dialogs.ExpectMessage(BmpListFullText, BoxAnswer::Ok, BoxIcon::None);
    Press("cmdAdd");
    Press("cmdAdd");
    QCOMPARE(ChosenFile(), QStringLiteral("p151.bmp"));
    bench->dialogs.ExpectMessage(CopiedText, BoxAnswer::Ok, BoxIcon::Information);
    Press("cmdCreate");
    const QString text = QApplication::clipboard()->text();
    QCOMPARE(text.count(QStringLiteral("    loadbmp \"")), 150);
    QVERIFY(text.contains(QStringLiteral("\"p150\"")) && !text.contains(QStringLiteral("p151")));
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
    Click(QStringLiteral("rose.bmp"));
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
    const QStringList paths = {folder + QStringLiteral("/rose.bmp"), folder + QStringLiteral("/tulip.bmp")};
    QCOMPARE(copied, LoadBmpText(paths, library ? ImageLibrary::Used : ImageLibrary::Unused,
                                 path ? PathInformation::Full : PathInformation::Left));
    QCOMPARE(copied.contains(QStringLiteral("Function LoadImageFile(hWnd, file$)\r\n")), library);
    QCOMPARE(copied.contains(folder + QStringLiteral("/rose.bmp\"")), path);
}

void win_frmBitmap::createWithoutBitmapsAsks()
{
    Open();
    bench->dialogs.ExpectMessage(NoneText, BoxAnswer::Yes, BoxIcon::Question, BoxButtons::YesNo,
                                 QStringLiteral("Error!"));
    Press("cmdCreate");
    QVERIFY(!form.isNull() && form->isVisible());
    bench->dialogs.ExpectMessage(NoneText, BoxAnswer::No, BoxIcon::Question, BoxButtons::YesNo,
                                 QStringLiteral("Error!"));
    Press("cmdCreate");
    QTRY_VERIFY(form.isNull());
}

void win_frmBitmap::createStaysWhenTheClipboardIsTaken()
{
    Picture("a.bmp");
    Open();
    Click(QStringLiteral("a.bmp"));
    Press("cmdAdd");
    SetClipboardWriter([](const QString&) { return false; });
    bench->dialogs.ExpectMessage(ClipboardTakenText, BoxAnswer::Ok, BoxIcon::Exclamation);
    Press("cmdCreate");
    QVERIFY(form->isVisible());
    QCOMPARE(Text("lblList"), QStringLiteral("In the LoadBmp list: 1 of 150"));
}

void win_frmBitmap::closingForgetsTheList()
{
    Picture("a.bmp");
    Open();
    Click(QStringLiteral("a.bmp"));
    Press("cmdAdd");
    Press("cmdExit");
    QTRY_VERIFY(form.isNull());
    bench->Choose(QStringLiteral("mnuToolBitmap"));
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* found = qobject_cast<frmBitmap*>(window))
            form = found;
    QCOMPARE(Text("lblList"), QStringLiteral("In the LoadBmp list: 0 of 150"));
}

// --- Saving. --------------------------------------------------------------------------------------------------------

void win_frmBitmap::saveAsWithoutAPicture()
{
    Picture("a.bmp");
    Open();
    bench->dialogs.ExpectMessage(QStringLiteral("No bitmap to save!"), BoxAnswer::Ok, BoxIcon::Exclamation);
    Press("cmdCopy");
}

void win_frmBitmap::saveAsCopiesTheFile()
{
    const QString source = Picture("a.bmp");
    const QString target = bench->Path(QStringLiteral("copy.jpg"));
    Open();
    Show(QStringLiteral("a.bmp"));
    bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, {});
    Press("cmdCopy");
    bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, target);
    bench->dialogs.ExpectMessage(QStringLiteral("Image has been saved as ") + target, BoxAnswer::Ok, BoxIcon::None);
    Press("cmdCopy");
    QCOMPARE(TestBench::Read(target), TestBench::Read(source));
}

void win_frmBitmap::saveAsAppliesToTheLastChosenFile()
{
    Picture("a.bmp", {3000, 2000});
    const QString source = Picture("b.bmp", {3000, 2000}, Qt::blue);
    const QString target = bench->Path(QStringLiteral("copy.bmp"));
    Open();
    bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, target);
    bench->dialogs.ExpectMessage(QStringLiteral("Image has been saved as ") + target, BoxAnswer::Ok, BoxIcon::None);
    Click(QStringLiteral("a.bmp"));
    Click(QStringLiteral("b.bmp"));
    Press("cmdCopy");
    QCOMPARE(Text("lblName"), QStringLiteral("b.bmp"));
    QCOMPARE(TestBench::Read(target), TestBench::Read(source));
}

void win_frmBitmap::saveAsConvertsTo256Colors()
{
    Picture("a.bmp", {32, 16}, QColor(0, 0, 255));
    const QString target = bench->Path(QStringLiteral("copy.bmp"));
    Open();
    Show(QStringLiteral("a.bmp"));
    Tick("chk256");
    bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, target);
    bench->dialogs.ExpectMessage(QStringLiteral("Image has been saved in Windows default 256-color format as ") +
                                     target,
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
    Show(QStringLiteral("a.bmp"));
    for (const bool is256 : {false, true}) {
        if (is256)
            Tick("chk256");
        // A folder that accepts no file from any user.
        bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, QStringLiteral("/proc/self/a.bmp"));
        bench->dialogs.ExpectMessage(QStringLiteral("Error saving file!"));
        Press("cmdCopy");
    }
    QVERIFY(QFile::remove(source));
    const QString older = bench->Write(QStringLiteral("older.bmp"), "older");
    bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, older);
    bench->dialogs.ExpectMessage(QStringLiteral("Error saving file!"));
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
    bench->dialogs.ExpectFolder(QStringLiteral("Save Image DLL to Disk"), {});
    Press("cmdJpg");
    const QString folder = bench->Path({});
    const QString path = QDir(folder).filePath(QStringLiteral("jpeg.dll"));
    bench->dialogs.ExpectFolder(QStringLiteral("Save Image DLL to Disk"), QDir::cleanPath(folder));
    bench->dialogs.ExpectMessage(QStringLiteral("Image DLL saved as ") + path, BoxAnswer::Ok, BoxIcon::None);
    Press("cmdJpg");
    const auto embedded = EmbeddedText(104, QStringLiteral("CUSTOM"));
    QCOMPARE(TestBench::Read(path), QByteArray(embedded->data(), static_cast<qsizetype>(embedded->size())));
    QVERIFY(TestBench::Read(bench->Path(QStringLiteral("jpeg.bas"))).startsWith("'jpeg.bas: "));
}

void win_frmBitmap::imageLibraryIntoAnUnwritableFolder()
{
    if (!CarriesImageLibrary())
        QSKIP("the library is not embedded in this build");
    Open();
    bench->dialogs.ExpectFolder(QStringLiteral("Save Image DLL to Disk"), QStringLiteral("/proc/self"));
    bench->dialogs.ExpectMessage(QStringLiteral("Run-time error '75':\nPath/File access error"));
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
    QCOMPARE(Text("lblList"), QStringLiteral("In the LoadBmp list: 1 of 150"));
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
        QVERIFY(QFile::link(first, bench->Path(QStringLiteral("p%1.bmp").arg(i, 4, 10, QLatin1Char('0')))));
    Open();
    QTRY_COMPARE(Files().size(), 1000);
    Click(QStringLiteral("p0000.bmp"));
    qint64 longest = 0;
    QElapsedTimer timer;
    for (int i = 1; i < 1000; ++i) {
        timer.start();
        QTest::keyClick(File1(), Qt::Key_Down);
        QApplication::processEvents();
        longest = std::max(longest, timer.elapsed());
    }
    QTRY_COMPARE_WITH_TIMEOUT(Text("lblName"), QStringLiteral("p0999.bmp"), 30'000);
    // A picture of this size takes longer to read than this, so none was awaited.
    qInfo("longest step %lld ms", longest);
    QVERIFY2(longest < 1000, qPrintable(QString::number(longest)));
}

OB_BENCH_TEST(win_frmBitmap)
#include "win_frmBitmap.moc"
