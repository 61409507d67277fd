// SPDX-License-Identifier: GPL-3.0-or-later
// The media window, by its controls, over a scripted player.
#include "support/BenchTest.h"
#include "support/ScriptedMedia.h"
#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "imagetools/media/frmMedia.h"
#include "imagetools/media/modMedia.h"
#include "platform/desktop/modClipboard.h"
#include "shell/state/frmTool.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString OpenTitle = u"Open File..."_s;
const QString OpenFilter = u"Media Files|*.MID;*.AVI;*.MPG;*.MPEG;*.MP3"_s;

} // namespace

class win_frmMedia : public QObject {
    Q_OBJECT

private:
    template <class Control>
    Control* Find(const char* name) const
    {
        return window->findChild<Control*>(QString::fromLatin1(name));
    }
    void Click(const char* button) const { QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton); }
    QString Now() const { return Find<QLabel>("lblNow")->text(); }
    bool IsTicking() const { return Find<QTimer>("tmrPlay")->isActive(); }
    QString Code() const { return Find<QPlainTextEdit>("txtCode")->toPlainText(); }

    // Opens a file of that name, which the bench makes.
    QString OpenFile(const char* name)
    {
        // No dot in a folder's name, as the first one decides.
        const QString path = folder->filePath(QString::fromLatin1(name));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(name) < 0)
            qFatal("cannot write");
        file.close();
        bench->dialogs.ExpectFile(FilePurpose::Open, OpenTitle, OpenFilter, path);
        Click("cmdOpen");
        return path;
    }

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<TestBench> bench;
    std::unique_ptr<ScriptedMedia> media;
    std::unique_ptr<frmMedia> window;

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>(QDir::tempPath() + u"/obmediaXXXXXX"_s);
        bench = std::make_unique<TestBench>();
        media = std::make_unique<ScriptedMedia>();
        media->length = 90'000;
        window = std::make_unique<frmMedia>();
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }
    void cleanup()
    {
        window.reset();
        media.reset();
        const bool isFinished = bench->dialogs.Finished();
        bench.reset();
        folder.reset();
        QVERIFY(isFinished);
    }

    void itStartsWithoutAFile()
    {
        QCOMPARE(Find<QLineEdit>("lblFile")->text(), u"No File"_s);
        QCOMPARE(Code(), QString());
        QVERIFY(!IsTicking());
        Click("cmdPlay");
        Find<QCheckBox>("chkPath")->click();
        QCOMPARE(Code(), QString());
        QVERIFY(media->log.isEmpty());
        bench->dialogs.ExpectMessage(u"No file to save!"_s, BoxAnswer::Ok, BoxIcon::None);
        Click("cmdCopy");
    }

    void timesBelongToTheFileThatPlays()
    {
        OpenFile("song.mid");
        Click("cmdPlay");
        QCOMPARE(Now(), u"0:00 / 1:30"_s);
        // While it plays on, the line says whose times these are.
        OpenFile("film.avi");
        QTRY_COMPARE(Now(), u"song.mid  0:00 / 1:30"_s);
        Click("cmdStop");
        QCOMPARE(Now(), u"0:00 / 0:00"_s);
        OpenFile("song.mid");
        Click("cmdPlay");
        Click("cmdStop");
        QCOMPARE(Now(), u"0:00 / 1:30"_s);
        OpenFile("film.avi");
        QCOMPARE(Now(), u"0:00 / 0:00"_s);
    }

    void aCopyHasANameWithTheEndingOfTheFile()
    {
        OpenFile("song.mid");
        bench->dialogs.ExpectFile(FilePurpose::Save, u"Save As..."_s, u"MIDI Files (*.mid)| *.mid"_s, {});
        Click("cmdCopy");
        QCOMPARE(bench->dialogs.LastFile().name, u"song copy.mid"_s);
        QCOMPARE(bench->dialogs.LastFile().extension, u"mid"_s);
    }

    void theCodeIsInsertedAtTheCaret()
    {
        window.reset();
        bench->Start();
        window = std::make_unique<frmMedia>(&bench->Frame());
        window->show();
        const auto* insert = Find<QPushButton>("cmdInsert");
        bench->Choose(u"mnuFileNew"_s);
        QVERIFY(!insert->isEnabled()); // no file is open
        const QString path = OpenFile("song.mid");
        QVERIFY(insert->isEnabled());
        const cDocument* program = bench->Active();
        TestBench::Type(bench->Active(), "print 1\r\n");
        SendSci(program->sci, SCI_SETSEL, 6, 7);
        Click("cmdInsert");
        const QByteArray code = MediaCode(path, MediaPath::NameOnly).toUtf8();
        QCOMPARE(TestBench::Text(program), "print " + code + "\r\n");
        SendSci(program->sci, SCI_UNDO);
        QCOMPARE(TestBench::Text(program), QByteArray("print 1\r\n"));
        window.reset();
    }

    void anOpenedFileIsShownWithItsCode()
    {
        const QString path = OpenFile("song.mid");
        QCOMPARE(Find<QLineEdit>("lblFile")->text(), path);
        QCOMPARE(Code(), MediaCode(path, MediaPath::NameOnly).remove(u'\r'));
        QVERIFY(Code().startsWith(QLatin1String("a$ = \"open song.mid type sequencer alias PlayFile\"\n")));
        Find<QCheckBox>("chkPath")->click();
        QCOMPARE(Code(), MediaCode(path, MediaPath::Whole).remove(u'\r'));
        QVERIFY(media->log.isEmpty());
    }

    void theCodeStaysUnchanged()
    {
        OpenFile("song.mid");
        const QString code = Code();
        auto* field = Find<QPlainTextEdit>("txtCode");
        QVERIFY(field->isReadOnly());
        field->setPlainText(u"something else"_s);
        QCOMPARE(Code(), code);
    }

    void openingNothingForgetsTheFile()
    {
        OpenFile("song.mid");
        const QString code = Code();
        bench->dialogs.ExpectFile(FilePurpose::Open, OpenTitle, OpenFilter, QString());
        Click("cmdOpen");
        QCOMPARE(Find<QLineEdit>("lblFile")->text(), u"No File"_s);
        QCOMPARE(Code(), code);
        Click("cmdPlay");
        QVERIFY(media->log.isEmpty());
    }

    void playingShowsPositionAndLengthToItsEnd()
    {
        const QString path = OpenFile("film.avi");
        Click("cmdPlay");
        QCOMPARE(media->log, (QStringList{u"open video "_s + path, u"play"_s}));
        QCOMPARE(Now(), u"0:00 / 1:30"_s);
        QVERIFY(IsTicking());
        media->position = 45'000;
        QTRY_COMPARE(Now(), u"0:45 / 1:30"_s);
        QCOMPARE(Find<QProgressBar>("prgNow")->value(), 500);
        media->position = 90'000;
        QTRY_VERIFY(!IsTicking());
        QCOMPARE(media->openCount, 0);
        QCOMPARE(Now(), u"0:00 / 1:30"_s);
        QCOMPARE(Find<QProgressBar>("prgNow")->value(), 0);
    }

    void enterPlaysAnOpenedFileAndStopEndsIt()
    {
        OpenFile("SONG.MP3");
        QTest::keyClick(window->focusWidget(), Qt::Key_Return);
        QCOMPARE(media->openCount, 1);
        Click("cmdStop");
        QCOMPARE(media->openCount, 0);
        QVERIFY(!IsTicking());
    }

    void aFileThatCannotBeOpenedStopsAtTheFirstTick()
    {
        OpenFile("film.mpg");
        media->length = -1;
        Click("cmdPlay");
        QVERIFY(IsTicking());
        QTRY_VERIFY(!IsTicking());
        QCOMPARE(Now(), u"0:00 / 0:00"_s);
    }

    void aFileThatIsNotMediaIsRejected()
    {
        OpenFile("two.parts.mid");
        bench->dialogs.ExpectMessage(u"File does not appear to be a valid media file."_s);
        Click("cmdPlay");
        QVERIFY(media->log.isEmpty() && !IsTicking());
    }

    void aFileThatVanishedPlaysNothing()
    {
        QVERIFY(QFile::remove(OpenFile("song.mid")));
        Click("cmdPlay");
        QVERIFY(media->log.isEmpty());
        const QString target = folder->filePath(u"copy.mid"_s);
        bench->dialogs.ExpectFile(FilePurpose::Save, u"Save As..."_s, u"MIDI Files (*.mid)| *.mid"_s, target);
        bench->dialogs.ExpectMessage(u"Error saving file!"_s);
        Click("cmdCopy");
        QVERIFY(!QFile::exists(target));
    }

    void aMissingSoundFontIsReported()
    {
        OpenFile("song.mid");
        media->length = -1;
        media->trouble = MediaTrouble::NoSoundFont;
        bench->dialogs.ExpectMessage(
            u"MIDI files need a sound font, and none was found.  Please install one, for example the "
            "package timgm6mb-soundfont."_s,
            BoxAnswer::Ok, BoxIcon::Exclamation);
        Click("cmdPlay");
    }

    void aMissingSoundDeviceIsShown()
    {
        QVERIFY(!Find<QLabel>("lblSilent")->isVisible());
        OpenFile("song.mid");
        media->trouble = MediaTrouble::NoSoundDevice;
        Click("cmdPlay");
        QVERIFY(Find<QLabel>("lblSilent")->isVisible());
        QVERIFY(IsTicking());
        media->trouble = MediaTrouble::None;
        Click("cmdPlay");
        QVERIFY(!Find<QLabel>("lblSilent")->isVisible());
    }

    void theCodeIsCopiedAsProgramText()
    {
        const QString path = OpenFile("song.mid");
        QString copied;
        SetClipboardWriter([&](const QString& text) {
            copied = text;
            return true;
        });
        bench->dialogs.ExpectMessage(u"Code has been copied to the clipboard.  Please paste into your program."_s,
                                     BoxAnswer::Ok, BoxIcon::None);
        Click("cmdCode");
        SetClipboardWriter({});
        QCOMPARE(copied, MediaCode(path, MediaPath::NameOnly));
    }

    void theFileIsCopiedUnderAnotherName()
    {
        OpenFile("film.AVI");
        const QString target = folder->filePath(u"copy.avi"_s);
        bench->dialogs.ExpectFile(FilePurpose::Save, u"Save As..."_s, u"AVI Files (*.avi)| *.avi"_s, target);
        bench->dialogs.ExpectMessage(u"File has been saved as "_s + target, BoxAnswer::Ok, BoxIcon::None);
        Click("cmdCopy");
        QCOMPARE(TestBench::Read(target), QByteArray("film.AVI"));
        bench->dialogs.ExpectFile(FilePurpose::Save, u"Save As..."_s, u"AVI Files (*.avi)| *.avi"_s, QString());
        Click("cmdCopy");
    }

    void aSecondFilePlaysInPlaceOfTheFirst()
    {
        OpenFile("song.mid");
        Click("cmdPlay");
        OpenFile("film.avi");
        QCOMPARE(media->openCount, 1);
        Click("cmdPlay");
        QCOMPARE(media->openCount, 1);
        QCOMPARE(media->log.count(u"close"_s), 1);
    }

    void leavingStopsThePlaying_data()
    {
        QTest::addColumn<bool>("byEscape");
        QTest::newRow("exit") << false;
        QTest::newRow("escape") << true;
    }

    void leavingStopsThePlaying()
    {
        QFETCH(bool, byEscape);
        OpenFile("song.mid");
        Click("cmdPlay");
        if (byEscape)
            QTest::keyClick(window.get(), Qt::Key_Escape);
        else
            Click("cmdExit");
        QVERIFY(!window->isVisible());
        window.reset();
        QCOMPARE(media->openCount, 0);
    }

    void tabRunsThroughAllControls()
    {
        QStringList names;
        QWidget* const first = Find<QLineEdit>("lblFile");
        first->setFocus();
        do {
            names.append(window->focusWidget()->objectName());
            QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
        } while (window->focusWidget() != first && names.size() < 20);
        QCOMPARE(names.join(u' '), u"lblFile cmdOpen cmdPlay cmdStop cmdCopy cmdAVI txtCode chkPath cmdCode cmdExit"_s);
    }

    void theAviMakerIsOneClickAway()
    {
        bench->Start();
        bench->ExpectModal(u"frmAVI"_s, [](QDialog& dialog) { dialog.reject(); });
        Click("cmdAVI");
    }

    void theMenuItemShowsOneWindowNextToTheBench()
    {
        bench->Start();
        mnuToolMedia_Click();
        mnuToolMedia_Click();
        const auto shown = bench->Frame().findChildren<frmMedia*>();
        QCOMPARE(shown.size(), 1);
        QVERIFY(!shown.first()->isModal() && shown.first()->isVisible());
    }
};

OB_BENCH_TEST(win_frmMedia)
#include "win_frmMedia.moc"
