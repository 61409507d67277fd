// SPDX-License-Identifier: GPL-3.0-or-later
// The WAV window, by its controls, over real folders and a scripted player.
#include "support/BenchTest.h"
#include "support/ScriptedMedia.h"
#include "support/TestBench.h"

#include "imagetools/media/frmWav.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTreeView>

using namespace Qt::StringLiterals;

using namespace ob;

class win_frmWav : public QObject {
    Q_OBJECT

private:
    template <class Control>
    Control* Find(const char* name) const
    {
        return window->findChild<Control*>(QString::fromLatin1(name));
    }
    void Click(const char* button) const { QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton); }
    QString State() const { return Find<QLabel>("lblState")->text(); }

    QModelIndex Row(int row) const { return Find<QListView>("Fil")->model()->index(row, 0); }
    QPoint PlaceOf(int row) const { return Find<QListView>("Fil")->visualRect(Row(row)).center(); }
    void ChooseFile(int row) const
    {
        QTest::mouseClick(Find<QListView>("Fil")->viewport(), Qt::LeftButton, {}, PlaceOf(row));
    }

    std::unique_ptr<TestBench> bench;
    std::unique_ptr<ScriptedMedia> media;
    std::unique_ptr<frmWav> window;

private Q_SLOTS:
    void init()
    {
        bench = std::make_unique<TestBench>();
        bench->Write(u"Beep.WAV"_s, "beep");
        bench->Write(u"horn.wav"_s, "horn");
        bench->Write(u"horn.mid"_s, "no wav");
        QDir().mkdir(bench->Path(u"more"_s));
        bench->Write(u"more/deep.wav"_s, "deep");
        media = std::make_unique<ScriptedMedia>();
        media->length = 2'000;
        window = std::make_unique<frmWav>();
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QTRY_COMPARE(State(), u"WAV files: 2"_s);
    }
    void cleanup()
    {
        window.reset();
        media.reset();
        const bool isFinished = bench->dialogs.Finished();
        bench.reset();
        QVERIFY(isFinished);
    }

    void theFolderShowsItsWavFiles()
    {
        QCOMPARE(Row(0).data().toString(), u"Beep.WAV"_s);
        QCOMPARE(Row(1).data().toString(), u"horn.wav"_s);
        QCOMPARE(Find<QLineEdit>("Text1")->text(), QString());
        ChooseFile(1);
        QCOMPARE(Find<QLineEdit>("Text1")->text(), u"horn.wav"_s);
    }

    void whatIsSaidOfOneFileGoesWithIt()
    {
        ChooseFile(0);
        media->length = -1;
        Click("cmdPlay");
        QCOMPARE(State(), u"This file cannot be played."_s);
        ChooseFile(1);
        QCOMPARE(State(), u"WAV files: 2"_s);
    }

    void aCopyHasANameAndAppearsInTheList()
    {
        ChooseFile(1);
        const QString filter = u"Wav sound file (*.wav)|*.wav"_s;
        bench->dialogs.ExpectFile(FilePurpose::Save, u"Save As..."_s, filter, bench->Path(u"horn copy.wav"_s));
        Click("cmdCopy");
        QCOMPARE(bench->dialogs.LastFile().name, u"horn copy.wav"_s);
        QCOMPARE(bench->dialogs.LastFile().extension, u"wav"_s);
        QTRY_COMPARE(State(), u"WAV files: 3"_s);
        QCOMPARE(Row(1).data().toString(), u"horn copy.wav"_s);
        // The chosen file is still chosen.
        QTRY_COMPARE(Find<QLineEdit>("Text1")->text(), u"horn.wav"_s);
        // A copy elsewhere changes nothing here.
        bench->dialogs.ExpectFile(FilePurpose::Save, u"Save As..."_s, filter, bench->Path(u"more/x.wav"_s));
        Click("cmdCopy");
        QCOMPARE(State(), u"WAV files: 3"_s);
    }

    void anotherFolderForgetsTheFile()
    {
        ChooseFile(1);
        auto* folders = Find<QTreeView>("Dir1");
        // The folder shown is the current one, with its subfolder below.
        const QModelIndex below = folders->indexBelow(folders->currentIndex());
        QCOMPARE(below.data().toString(), u"more"_s);
        folders->setFocus();
        folders->setCurrentIndex(below);
        QTest::keyClick(folders, Qt::Key_Return);
        QTRY_COMPARE(State(), u"WAV files: 1"_s);
        QCOMPARE(Find<QLineEdit>("Text1")->text(), QString());
        ChooseFile(0);
        Click("cmdPlay");
        QCOMPARE(media->log.first(), u"open sound "_s + bench->Path(u"more/deep.wav"_s));
    }

    void playNeedsAChosenFile()
    {
        bench->dialogs.ExpectMessage(u"Please choose a wav from the file box!"_s, BoxAnswer::Ok, BoxIcon::Exclamation);
        Click("cmdPlay");
        QVERIFY(media->log.isEmpty());
    }

    void playAndStop()
    {
        ChooseFile(0);
        Click("cmdPlay");
        const QString path = bench->Path(u"Beep.WAV"_s);
        QCOMPARE(media->log, (QStringList{u"open sound "_s + path, u"play"_s}));
        Click("cmdStop");
        QCOMPARE(media->openCount, 0);
    }

    void enterAndADoubleClickPlay()
    {
        ChooseFile(0);
        QTest::keyClick(Find<QListView>("Fil"), Qt::Key_Return);
        QCOMPARE(media->log.count(u"play"_s), 1);
        auto* list = Find<QListView>("Fil");
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, PlaceOf(1));
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, PlaceOf(1));
        QCOMPARE(media->log.count(u"play"_s), 2);
        QCOMPARE(media->openCount, 1);
    }

    void anUnplayableFileIsReportedNextToTheList()
    {
        media->length = -1;
        ChooseFile(0);
        Click("cmdPlay");
        QCOMPARE(State(), u"This file cannot be played."_s);
    }

    void aVanishedFileIsReportedNextToTheList()
    {
        ChooseFile(0);
        QVERIFY(QFile::remove(bench->Path(u"Beep.WAV"_s)));
        Click("cmdPlay");
        QVERIFY(media->log.isEmpty());
        QCOMPARE(State(), u"This file cannot be played."_s);
        const QString target = bench->Path(u"copy.wav"_s);
        bench->dialogs.ExpectFile(FilePurpose::Save, u"Save As..."_s, u"Wav sound file (*.wav)|*.wav"_s, target);
        bench->dialogs.ExpectMessage(u"Error saving file!"_s);
        Click("cmdCopy");
        QVERIFY(!QFile::exists(target));
    }

    void aMissingSoundDeviceIsReportedNextToTheList()
    {
        media->trouble = MediaTrouble::NoSoundDevice;
        ChooseFile(0);
        Click("cmdPlay");
        QCOMPARE(State(), u"There is no sound device to play it on."_s);
        media->trouble = MediaTrouble::None;
        Click("cmdPlay");
        QCOMPARE(State(), u"WAV files: 2"_s);
    }

    void theFileIsCopied()
    {
        bench->dialogs.ExpectMessage(u"No wav is chosen!"_s, BoxAnswer::Ok, BoxIcon::None);
        Click("cmdCopy");
        ChooseFile(1);
        const QString target = bench->Path(u"copy.wav"_s);
        bench->dialogs.ExpectFile(FilePurpose::Save, u"Save As..."_s, u"Wav sound file (*.wav)|*.wav"_s, target);
        Click("cmdCopy");
        QCOMPARE(TestBench::Read(target), QByteArray("horn"));
    }

    void leavingEndsTheSound_data()
    {
        QTest::addColumn<bool>("byEscape");
        QTest::newRow("exit") << false;
        QTest::newRow("escape") << true;
    }

    void leavingEndsTheSound()
    {
        QFETCH(bool, byEscape);
        ChooseFile(0);
        Click("cmdPlay");
        if (byEscape)
            QTest::keyClick(window.get(), Qt::Key_Escape);
        else
            Click("cmdExit");
        QVERIFY(!window->isVisible());
        window.reset();
        QCOMPARE(media->openCount, 0);
    }

    void theMenuItemShowsItModally()
    {
        bench->ExpectModal(u"frmWav"_s, [](QDialog& dialog) { dialog.reject(); });
        mnuToolWav_Click();
    }
};

OB_BENCH_TEST(win_frmWav)
#include "win_frmWav.moc"
