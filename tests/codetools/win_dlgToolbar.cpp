// SPDX-License-Identifier: GPL-3.0-or-later
// The toolbar maker: pictures from disk and from the set, labels and tips, the bitmap, the listing.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "codetools/dlgImage.h"
#include "codetools/dlgToolbar.h"
#include "codetools/modToolbarStrip.h"
#include "editor/document/cDocument.h"
#include "platform/files/modPaths.h"
#include "platform/language/modAnsi.h"
#include "shell/state/Module1.h"
#include "shell/state/frmLoss.h"

#include <QComboBox>
#include <QDir>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString OpenFilter = u"Images (*.bmp)(*.ico)|*.BMP;*.ICO"_s;
const QString SaveTitle = u"Save Bitmap"_s;
const QString SaveFilter = u"Bitmap (*.bmp)|*.bmp"_s;

template <class Kind>
Kind* Control(const QWidget& window, const char* name)
{
    return window.findChild<Kind*>(QString::fromLatin1(name));
}

void Press(const QWidget& window, const char* name)
{
    QTest::mouseClick(Control<QPushButton>(window, name), Qt::LeftButton);
}

QImage Plain(QColor color, int width = 16, int height = 16)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

} // namespace

class win_dlgToolbar : public QObject {
    Q_OBJECT

    std::unique_ptr<TestBench> bench;

    QString Picture(const QString& name, const QImage& image) const
    {
        const QString path = bench->Path(name);
        if (!image.save(path))
            QTest::qFail("the picture was not written", __FILE__, __LINE__);
        return path;
    }

    void ExpectQuestions(const QString& number, const std::optional<QString>& branch, const std::optional<QString>& tip)
    {
        const QString title = u"Toolbar Maker"_s;
        bench->dialogs.ExpectInput(
            {u"Please type a branch label for this button."_s + number, title, u"branch"_s + number}, branch);
        bench->dialogs.ExpectInput({u"Please type a tooltip caption for this button."_s, title, u"tooltip"_s}, tip);
    }

    void AddFromDisk(const QWidget& window, const QString& path, const QString& number,
                     const std::optional<QString>& branch, const std::optional<QString>& tip)
    {
        bench->dialogs.ExpectFile(FilePurpose::Open, {}, OpenFilter, path);
        ExpectQuestions(number, branch, tip);
        Press(window, "cmdAdd");
    }

    // Answers the window that asks for the purpose of the code, which cannot be cancelled here.
    void ExpectTarget(const std::optional<QString>& handle)
    {
        bench->ExpectModal(u"dlgTBOK"_s, [handle](QDialog& target) {
            if (!handle)
                return Press(target, "CancelButton");
            if (!handle->isEmpty()) {
                Control<QRadioButton>(target, "optAdd1")->click();
                Control<QLineEdit>(target, "txtHandle")->setText(*handle);
            }
            Press(target, "OKButton");
        });
    }

    // Opens the maker from its menu item.
    void WithMaker(std::function<void(QDialog&)> script)
    {
        bench->ExpectModal(u"dlgToolbar"_s, std::move(script));
        bench->Choose(u"mnuToolbar"_s);
        QVERIFY(bench->dialogs.Finished());
    }

private Q_SLOTS:
    void init()
    {
        ToolImageIndex = 1;
        bench = std::make_unique<TestBench>();
        bench->Start();
    }
    void cleanup() { bench.reset(); }

    void aNewWindowHasItsBitmap()
    {
        const QString red = Picture(u"red.bmp"_s, Plain(Qt::red, 40, 20));
        const QString blue = Picture(u"blue.bmp"_s, Plain(Qt::blue));
        const QString strip = bench->Path(u"strip.bmp"_s);
        WithMaker([&](QDialog& maker) {
            AddFromDisk(maker, red, u"1"_s, u"open"_s, u"Open"_s);
            AddFromDisk(maker, blue, u"2"_s, std::nullopt, std::nullopt);
            QCOMPARE(Control<QComboBox>(maker, "cboBranch")->itemText(1), u"[branch2]"_s);
            QCOMPARE(Control<QComboBox>(maker, "cboTips")->itemText(1), u"branch2 tooltip"_s);
            QCOMPARE(Control<QLabel>(maker, "picBar")->pixmap().size(), QSize(32, 16));
            QVERIFY(Control<QPlainTextEdit>(maker, "txtPreview")->toPlainText().contains(u"[open]"_s));
            Control<QRadioButton>(maker, "optThick")->click();
            ExpectTarget(QString());
            bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, strip);
            Press(maker, "OKButton");
            QVERIFY(!maker.isVisible());
        });
        ToolbarSpec spec;
        spec.buttons = {{u"[open]"_s, u"Open"_s}, {u"[branch2]"_s, u"branch2 tooltip"_s}};
        spec.border = ToolbarBorder::Thick;
        spec.bitmap = strip;
        QCOMPARE(TestBench::Text(bench->Active()), ToolbarCode(spec).toUtf8());
        QCOMPARE(bench->Active()->Caption(), u"untitled.bas"_s);

        const QImage written(strip);
        QCOMPARE(written.format(), QImage::Format_Indexed8);
        QCOMPARE(written.size(), QSize(32, 16));
        QCOMPARE(written.pixelColor(5, 5), QColor(Qt::red));
        QCOMPARE(written.pixelColor(20, 15), QColor(Qt::blue));
    }

    void anExistingWindowFallsBackToTheProgramsFolder()
    {
        WithMaker([&](QDialog& maker) {
            bench->ExpectModal(u"dlgImage"_s, [](QDialog& images) { Press(images, "OKButton"); });
            ExpectQuestions(u"1"_s, u"[new]"_s, u"New"_s);
            Press(maker, "cmdStandard");
            ExpectTarget(u"win"_s);
            bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, {});
            Press(maker, "OKButton");
        });
        const QByteArray code = TestBench::Text(bench->Active());
        const QString name = QDir::toNativeSeparators(ProgramFolder()) + u"\\\\toolbar.bmp"_s;
        QVERIFY(code.contains(u"LoadBitmapSystemColors(\"%1\")"_s.arg(name).toUtf8()));
        QVERIFY(code.contains("    hMain = Hwnd(#win)"));
        QVERIFY(!code.contains("'Program saved as"));
        QCOMPARE(QImage(bench->ProgramPath(u"toolbar.bmp"_s)).convertToFormat(QImage::Format_RGB32),
                 dlgImage::StandardImage(1).convertToFormat(QImage::Format_RGB32));
    }

    void aNewWindowNeedsANameForTheBitmap()
    {
        const QString red = Picture(u"red.bmp"_s, Plain(Qt::red));
        WithMaker([&](QDialog& maker) {
            AddFromDisk(maker, red, u"1"_s, u"a"_s, u"A"_s);
            ExpectTarget(QString());
            bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, {});
            bench->dialogs.ExpectMessage(u"You must choose a name for the toolbar bitmap."_s, BoxAnswer::Ok,
                                         BoxIcon::Exclamation);
            Press(maker, "OKButton");
            QVERIFY(maker.isVisible());
            QVERIFY(bench->Active() == nullptr);
            Press(maker, "CancelButton");
        });
    }

    void aBitmapThatCannotBeSavedGivesNoListing()
    {
        const QString red = Picture(u"red.bmp"_s, Plain(Qt::red));
        WithMaker([&](QDialog& maker) {
            AddFromDisk(maker, red, u"1"_s, u"a"_s, u"A"_s);
            for (const QString& place : {bench->Path(u"nowhere/strip.bmp"_s), bench->Path({})}) {
                ExpectTarget(QString());
                bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, place);
                bench->dialogs.ExpectMessage(u"Error saving bitmap."_s);
                Press(maker, "OKButton");
                QVERIFY(maker.isVisible());
            }
            QVERIFY(bench->Active() == nullptr);
            Press(maker, "CancelButton");
        });
    }

#ifdef Q_OS_LINUX
    void aFullDiskLeavesTheOldBitmap()
    {
        const QString red = Picture(u"red.bmp"_s, Plain(Qt::red));
        WithMaker([&](QDialog& maker) {
            AddFromDisk(maker, red, u"1"_s, u"a"_s, u"A"_s);
            ExpectTarget(QString());
            bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, u"/dev/full"_s);
            bench->dialogs.ExpectMessage(u"Error saving bitmap."_s);
            Press(maker, "OKButton");
            Press(maker, "CancelButton");
        });
    }
#endif

    // Enter presses the button with the focus, or otherwise the one that creates the code.
    void enterOnCancelLeaves()
    {
        const QString red = Picture(u"red.bmp"_s, Plain(Qt::red));
        WithMaker([&](QDialog& maker) {
            AddFromDisk(maker, red, u"1"_s, u"a"_s, u"A"_s);
            auto* cancel = Control<QPushButton>(maker, "CancelButton");
            cancel->setFocus();
            QTest::keyClick(cancel, Qt::Key_Return);
            QVERIFY(!maker.isVisible());
            QVERIFY(bench->Active() == nullptr);
        });
    }

    void withoutButtonsNothingHappens()
    {
        WithMaker([&](QDialog& maker) {
            QVERIFY(!Control<QPushButton>(maker, "cmdRemove")->isEnabled());
            QVERIFY(!Control<QPushButton>(maker, "OKButton")->isEnabled());
            Press(maker, "OKButton");
            QVERIFY(maker.isVisible());
            QTest::keyClick(&maker, Qt::Key_Escape);
            QVERIFY(!maker.isVisible());
        });
    }

    void escapeAsksBeforeButtonsAreLost()
    {
        const QString red = Picture(u"red.bmp"_s, Plain(Qt::red));
        WithMaker([&](QDialog& maker) {
            AddFromDisk(maker, red, u"1"_s, u"a"_s, u"A"_s);
            for (const BoxAnswer answer : {BoxAnswer::Cancel, BoxAnswer::Ok}) {
                bench->dialogs.ExpectMessage(LossQuestion(u"1 button"_s), answer, BoxIcon::Question,
                                             BoxButtons::OkCancel, u"Toolbar Maker"_s);
                QTest::keyClick(&maker, Qt::Key_Escape);
                QCOMPARE(maker.isVisible(), answer == BoxAnswer::Cancel);
            }
        });
    }

    void theNewestButtonIsInView()
    {
        const QString red = Picture(u"red.bmp"_s, Plain(Qt::red));
        WithMaker([&](QDialog& maker) {
            const auto* strip = Control<QScrollArea>(maker, "bar");
            for (int number = 1; number <= 60; ++number)
                AddFromDisk(maker, red, QString::number(number), u"a"_s, u"A"_s);
            QVERIFY(strip->horizontalScrollBar()->maximum() > 0);
            QCOMPARE(strip->horizontalScrollBar()->value(), strip->horizontalScrollBar()->maximum());
            QApplication::processEvents();
            QCOMPARE(strip->horizontalScrollBar()->value(), strip->horizontalScrollBar()->maximum());
            Press(maker, "CancelButton");
        });
    }

    void insertPutsTheListingAtTheCaret()
    {
        const QString red = Picture(u"red.bmp"_s, Plain(Qt::red));
        const QString strip = bench->Path(u"strip.bmp"_s);
        bench->Choose(u"mnuFileNew"_s);
        cDocument* program = bench->Active();
        TestBench::Type(program, "'mine\r\n");
        WithMaker([&](QDialog& maker) {
            QVERIFY(!Control<QPushButton>(maker, "cmdInsert")->isEnabled());
            AddFromDisk(maker, red, u"1"_s, u"open"_s, u"Open"_s);
            QVERIFY(Control<QPushButton>(maker, "cmdInsert")->isEnabled());
            ExpectTarget(u"win"_s);
            bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, strip);
            Press(maker, "cmdInsert");
            QVERIFY(!maker.isVisible());
        });
        QCOMPARE(bench->Active(), program);
        ToolbarSpec spec;
        spec.buttons = {{u"[open]"_s, u"Open"_s}};
        spec.bitmap = strip;
        spec.handle = u"#win"_s;
        QCOMPARE(TestBench::Text(program), "'mine\r\n" + ToolbarCode(spec).toUtf8());
        SendSci(program->sci, SCI_UNDO);
        QCOMPARE(TestBench::Text(program), QByteArray("'mine\r\n"));
    }

    void theHandleIsRequestedUntilItIsValid()
    {
        const QString red = Picture(u"red.bmp"_s, Plain(Qt::red));
        WithMaker([&](QDialog& maker) {
            AddFromDisk(maker, red, u"1"_s, u"a"_s, u"A"_s);
            bench->ExpectModal(u"dlgTBOK"_s, [this](QDialog& target) {
                QVERIFY(!Control<QLineEdit>(target, "txtHandle")->isEnabled());
                Control<QRadioButton>(target, "optAdd1")->click();
                QVERIFY(Control<QLineEdit>(target, "txtHandle")->isEnabled());
                bench->dialogs.ExpectMessage(NoHandleText, BoxAnswer::Ok, BoxIcon::Exclamation);
                Press(target, "OKButton");
                QVERIFY(target.isVisible());
                Press(target, "CancelButton");
            });
            Press(maker, "OKButton");
            QVERIFY(maker.isVisible());
            Press(maker, "CancelButton");
        });
    }

    void theLastButtonCanBeRemoved()
    {
        const QString red = Picture(u"red.bmp"_s, Plain(Qt::red));
        WithMaker([&](QDialog& maker) {
            AddFromDisk(maker, red, u"1"_s, u"a"_s, u"A"_s);
            Press(maker, "cmdRemove");
            QCOMPARE(Control<QComboBox>(maker, "cboBranch")->count(), 0);
            QVERIFY(Control<QPlainTextEdit>(maker, "txtPreview")->toPlainText().isEmpty());
            AddFromDisk(maker, red, u"1"_s, u"b"_s, u"B"_s);
            QCOMPARE(Control<QComboBox>(maker, "cboBranch")->itemText(0), u"[b]"_s);
            Press(maker, "CancelButton");
        });
    }

    void aFileThatIsNotAPictureIsReportedAndAddsNoButton()
    {
        const QString junk = bench->Write(u"junk.bmp"_s, "BMjunk");
        WithMaker([&](QDialog& maker) {
            bench->dialogs.ExpectFile(FilePurpose::Open, {}, OpenFilter, junk);
            bench->dialogs.ExpectMessage(u"Run-time error '481':\nInvalid picture"_s);
            Press(maker, "cmdAdd");
            QCOMPARE(Control<QComboBox>(maker, "cboBranch")->count(), 0);
            bench->dialogs.ExpectFile(FilePurpose::Open, {}, OpenFilter, {});
            Press(maker, "cmdAdd");
            QCOMPARE(Control<QComboBox>(maker, "cboBranch")->count(), 0);
            Press(maker, "CancelButton");
        });
    }

    void theSetIsBrowsedInARing()
    {
        const int count = dlgImage::StandardImageCount();
        QVERIFY(count >= 24);
        dlgImage images;
        const auto* place = Control<QLabel>(images, "lblPlace");
        QCOMPARE(place->text(), u"1 of %1"_s.arg(count));
        Press(images, "cmdNext0");
        QCOMPARE(ToolImageIndex, count);
        Press(images, "cmdNext1");
        QCOMPARE(ToolImageIndex, 1);
        for (int i = 1; i < count; ++i)
            Press(images, "cmdNext1");
        QCOMPARE(ToolImageIndex, count);
        Press(images, "OKButton");
        QCOMPARE(ToolImageIndex, count);
        dlgImage again;
        QCOMPARE(ToolImageIndex, count);
        Press(again, "CancelButton");
        QCOMPARE(ToolImageIndex, 0);
        const dlgImage fresh;
        QCOMPARE(ToolImageIndex, 1);
    }

    void leavingTheSetAddsNoButton()
    {
        WithMaker([&](QDialog& maker) {
            bench->ExpectModal(u"dlgImage"_s, [](QDialog& images) { QTest::keyClick(&images, Qt::Key_Escape); });
            Press(maker, "cmdStandard");
            QCOMPARE(Control<QComboBox>(maker, "cboBranch")->count(), 0);
            Press(maker, "CancelButton");
        });
    }

    // They are drawn in the system's colours, so that none changes in the 256-colour strip.
    void theSetUsesOnlyTheSixteenColours()
    {
        QSet<QRgb> colors;
        for (int number = 1; number <= dlgImage::StandardImageCount(); ++number) {
            const QImage image = dlgImage::StandardImage(number).convertToFormat(QImage::Format_RGB32);
            QCOMPARE(image.size(), QSize(16, 16));
            QSet<QRgb> own;
            for (int y = 0; y < 16; ++y)
                for (int x = 0; x < 16; ++x)
                    own.insert(image.pixel(x, y));
            QVERIFY(own.size() > 1);
            colors.unite(own);
        }
        QSet<QRgb> sixteen = {qRgb(128, 128, 128), qRgb(192, 192, 192)};
        for (const int part : {128, 255})
            for (int mix = 0; mix < 8; ++mix)
                sixteen.insert(qRgb(mix & 1 ? part : 0, mix & 2 ? part : 0, mix & 4 ? part : 0));
        QCOMPARE(sixteen.size(), 16);
        for (const QRgb color : colors)
            QVERIFY2(sixteen.contains(color), qPrintable(QColor(color).name()));
    }

    void anIconGetsTheGreyOfAButton()
    {
        QImage icon(16, 16, QImage::Format_ARGB32);
        icon.fill(Qt::transparent);
        icon.setPixel(3, 4, qRgb(255, 0, 0));
        const QString path = Picture(u"a.ico"_s, icon);
        const QImage button = ToolbarPicture(path);
        QCOMPARE(button.pixel(0, 0), qRgb(192, 192, 192));
        QCOMPARE(button.pixel(3, 4), qRgb(255, 0, 0));
    }
};

OB_BENCH_TEST(win_dlgToolbar)
#include "win_dlgToolbar.moc"
