// SPDX-License-Identifier: GPL-3.0-or-later
// The AVI maker's window, as used.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "imagetools/avi/AviWindowBench.h"
#include "imagetools/avi/dlgAviOptions.h"
#include "imagetools/avi/frmAVI.h"
#include "imagetools/pictures/frmScaledPicture.h"
#include "platform/files/modPaths.h"
#include "shell/state/frmLoss.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QSlider>

using namespace Qt::StringLiterals;

using namespace ob;

class win_frmAVI : public AviWindowBench {
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

    void itStartsEmpty()
    {
        QVERIFY(Find<QLineEdit>("txtFPS")->isEnabled());
        QVERIFY(!Button("cmdClearList")->isEnabled() && !Button("cmdWriteAVI")->isEnabled());
        QVERIFY(!Find<QProgressBar>("pgbFrames")->isVisible());
        QVERIFY(Preview().isNull());
    }

    void filesAreListedWithTheirPicture()
    {
        AddBitmaps(2);
        QCOMPARE(List()->item(1)->text(), At(u"1.bmp"_s));
        QVERIFY(Preview() == ImageOf(LoadPicture(At(u"1.bmp"_s))));
        QVERIFY(Button("cmdClearList")->isEnabled() && Button("cmdWriteAVI")->isEnabled());
        List()->setCurrentRow(0);
        QVERIFY(Preview() == ImageOf(LoadPicture(At(u"0.bmp"_s))));
        Add({});
        QCOMPARE(List()->count(), 2);
        Button("cmdClearList")->click();
        QCOMPARE(List()->count(), 0);
        QVERIFY(Preview().isNull());
        QVERIFY(!Button("cmdClearList")->isEnabled() && !Button("cmdWriteAVI")->isEnabled());
        Add(Bitmap(3, {.bits = 8}));
        QCOMPARE(List()->count(), 1);
    }

    void theBoxOpensWhereTheLastFileWas()
    {
        struct Watch final : cDialogs {
            BoxAnswer Message(const MessageSpec&) override { return BoxAnswer::Ok; }
            std::optional<QString> Input(const InputSpec&) override { return {}; }
            QString File(const FileSpec& spec) override
            {
                folders.append(spec.folder);
                return answer;
            }
            QString Folder(const FolderSpec&) override { return {}; }
            std::optional<std::uint32_t> Color(const ColorSpec&) override { return {}; }
            std::optional<FontSpec> Font(const FontSpec&) override { return {}; }
            QString answer;
            QStringList folders;
        } watch;
        watch.answer = Bitmap(1);
        cDialogs* before = SetDialogs(&watch);
        Button("cmdFileOpen")->click();
        Button("cmdFileOpen")->click();
        SetDialogs(before);
        QCOMPARE(watch.folders, (QStringList{QString(), At(QString())}));
    }

    void filesThatDoNotFitAreReportedAndNotAdded()
    {
        AddBitmaps(1);
        Add(Bitmap(1, {.bits = 8}), DifferentFormat);
        const QString text = bench->Write(u"text.bmp"_s, "text");
        Add(text, u"File is not a supported bitmap format:\r\n"_s + text);
        QByteArray noSize = NoiseBitmap({}, 1);
        noSize.replace(34, 4, QByteArray(4, '\0'));
        Add(bench->Write(u"noSize.bmp"_s, noSize), SubscriptError, BoxIcon::Critical);
        QCOMPARE(List()->count(), 1);
        QVERIFY(Preview() == ImageOf(LoadPicture(At(u"0.bmp"_s))));
    }

    void aBitmapThatIsNoPictureIsNotAdded()
    {
        QByteArray bitmap = NoiseBitmap({}, 1);
        bitmap[28] = 7; // bits per pixel
        Add(bench->Write(u"odd.bmp"_s, bitmap), u"Run-time error '481':\nInvalid picture"_s, BoxIcon::Critical);
        QCOMPARE(List()->count(), 0);
        QVERIFY(!Button("cmdWriteAVI")->isEnabled());
    }

    void theListIsWrittenFrameByFrame()
    {
        AddBitmaps(5);
        Find<QLineEdit>("txtFPS")->setText(u"12.5"_s);
        ChooseCodec(0);
        auto* status = Find<QLabel>("lblStatus");
        PressWrite(At(u"film"_s));
        QVERIFY(Find<QProgressBar>("pgbFrames")->isVisible());
        QVERIFY(!Button("cmdFileOpen")->isEnabled() && !Button("cmdClearList")->isEnabled() &&
                !Button("cmdWriteAVI")->isEnabled() && Button("cmdCancel")->isEnabled());
        QTRY_VERIFY2(Status() == u"Finished!"_s, qPrintable(status->text()));
        const QString video = At(u"film.avi"_s);
        QVERIFY(Decoded(video) == AllPixels());
        QCOMPARE(Probed(video, "stream=r_frame_rate,nb_frames"), QByteArray("12/1,5"));
        QVERIFY(!Find<QProgressBar>("pgbFrames")->isVisible());
        QVERIFY(Button("cmdFileOpen")->isEnabled() && Button("cmdWriteAVI")->isEnabled());
        QCOMPARE(List()->currentRow(), 4);
        QTRY_VERIFY(Preview() == ImageOf(LoadPicture(At(u"4.bmp"_s))));
        // A second video in the same window.
        ChooseCodec(0);
        PressWrite(At(u"again.avi"_s));
        QTRY_COMPARE(Status(), u"Finished!"_s);
        QVERIFY(bench->Read(video) == bench->Read(At(u"again.avi"_s)));
    }

    void theStatusNamesEachFrameFromZero()
    {
        class Watch : public QObject {
        public:
            QStringList texts;

        protected:
            bool eventFilter(QObject* watched, QEvent* event) override
            {
                const QString text = static_cast<QLabel*>(watched)->text();
                if (event->type() == QEvent::Paint && text.startsWith(u"Frame"_s) && !texts.contains(text))
                    texts.append(text);
                return false;
            }
        } watch;
        AddBitmaps(3);
        Find<QLabel>("lblStatus")->installEventFilter(&watch);
        ChooseCodec(0);
        PressWrite(At(u"x.avi"_s));
        QTRY_COMPARE(Status(), u"Finished!"_s);
        Find<QLabel>("lblStatus")->removeEventFilter(&watch);
        QCOMPARE(watch.texts,
                 (QStringList{u"Frame number 0 saved"_s, u"Frame number 1 saved"_s, u"Frame number 2 saved"_s}));
    }

    void escapeAsksBeforeTheListIsLost()
    {
        AddBitmaps(2);
        const auto escape = [this](const QString& lost, BoxAnswer answer) {
            bench->dialogs.ExpectMessage(LossQuestion(lost), answer, BoxIcon::Question, BoxButtons::OkCancel,
                                         u"AVI Maker"_s);
            QTest::keyClick(window.get(), Qt::Key_Escape);
            QVERIFY(bench->dialogs.Finished());
        };
        escape(u"The list of 2 files"_s, BoxAnswer::Cancel);
        QVERIFY(window->isVisible());
        ChooseCodec(0);
        PressWrite(At(u"film.avi"_s));
        QTRY_COMPARE(Status(), u"Finished!"_s);
        Add(Bitmap(2));
        escape(u"The list of 3 files"_s, BoxAnswer::Cancel);
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        List()->setFocus();
        QTest::keyClick(List(), Qt::Key_Delete);
        QTest::keyClick(window.get(), Qt::Key_Escape);
        QVERIFY(!window->isVisible());
    }

    void cancelOfTheSaveBoxDoesNothing()
    {
        AddBitmaps(1);
        PressWrite({});
        QCOMPARE(Status(), u"AVI Status"_s);
        QCOMPARE(Files("*.avi"), QStringList());
    }

    void cancelOfTheOptionsLeavesAnEmptyFileAndSaysNothing()
    {
        AddBitmaps(1);
        const auto dismiss = [](QDialog& dialog) { dialog.findChild<QPushButton*>(u"cmdCancel"_s)->click(); };
        bench->ExpectModal(u"dlgAviOptions"_s, dismiss);
        PressWrite(At(u"new.avi"_s));
        QCOMPARE(Files("*.avi"), QStringList{u"new.avi"_s});
        QCOMPARE(bench->Read(At(u"new.avi"_s)), QByteArray());
        bench->Write(u"old.avi"_s, "old");
        bench->ExpectModal(u"dlgAviOptions"_s, dismiss);
        PressWrite(At(u"old.avi"_s));
        QCOMPARE(bench->Read(At(u"old.avi"_s)), QByteArray("old"));
        QVERIFY(Button("cmdWriteAVI")->isEnabled());
        QCOMPARE(Files("*.tmp"), QStringList());
    }

    void enterPressesTheButtonThatHasTheFocus()
    {
        AddBitmaps(1);
        bench->ExpectModal(u"dlgAviOptions"_s, [](QDialog& dialog) {
            auto* cancel = dialog.findChild<QPushButton*>(u"cmdCancel"_s);
            cancel->setFocus();
            QTest::keyClick(cancel, Qt::Key_Return);
            QVERIFY(!dialog.isVisible());
            QCOMPARE(dialog.result(), static_cast<int>(QDialog::Rejected));
        });
        bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, At(u"x.avi"_s));
        Button("cmdWriteAVI")->setFocus();
        QTest::keyClick(Button("cmdWriteAVI"), Qt::Key_Return);
        QVERIFY(bench->dialogs.Finished());
        QCOMPARE(bench->Read(At(u"x.avi"_s)), QByteArray());
    }

    void oneMoreEnterDoesNotEndTheWriting()
    {
        AddForLongWork();
        Button("cmdWriteAVI")->setFocus();
        PressWrite(At(u"x.avi"_s));
        QTest::keyClick(window->focusWidget(), Qt::Key_Return);
        QTest::keyClick(window->focusWidget(), Qt::Key_Space);
        QVERIFY(!Status().startsWith(u"Stop"_s));
        QTest::keyClick(window.get(), Qt::Key_Escape);
        QTRY_COMPARE(Status(), u"Stopped. No file was written."_s);
    }

    void aCompressorIsChosenWithItsQuality()
    {
        AddBitmaps(2, {.height = 24, .width = 32});
        bench->ExpectModal(u"dlgAviOptions"_s, [](QDialog& dialog) {
            auto* list = dialog.findChild<QListWidget*>(u"lstCodec"_s);
            auto* quality = dialog.findChild<QSlider*>(u"sldQuality"_s);
            QVERIFY(!quality->isEnabled());
            const auto found = list->findItems(u"Motion JPEG"_s, Qt::MatchStartsWith);
            QCOMPARE(found.size(), 1);
            list->setCurrentItem(found.first());
            QVERIFY(quality->isEnabled());
            quality->setValue(40);
            QCOMPARE(dialog.findChild<QLabel*>(u"lblValue"_s)->text(), u"40"_s);
            const AviOptions options = static_cast<dlgAviOptions&>(dialog).Options();
            QCOMPARE(options.codec, std::string("mjpeg"));
            QCOMPARE(options.quality, 40);
            dialog.findChild<QPushButton*>(u"cmdOK"_s)->click();
        });
        PressWrite(At(u"x.avi"_s));
        QTRY_COMPARE(Status(), u"Finished!"_s);
        QCOMPARE(Probed(At(u"x.avi"_s), "stream=codec_name,nb_frames"), QByteArray("mjpeg,2"));
    }

    void aCompressorThatRefusesTheSizeCannotBeChosen()
    {
        AddBitmaps(1);
        bench->ExpectModal(u"dlgAviOptions"_s, [](QDialog& dialog) {
            auto* list = dialog.findChild<QListWidget*>(u"lstCodec"_s);
            auto* ok = dialog.findChild<QPushButton*>(u"cmdOK"_s);
            auto* note = dialog.findChild<QLabel*>(u"lblNote"_s);
            QVERIFY(ok->isEnabled() && note->text().isEmpty());
            list->setCurrentItem(list->findItems(u"Cinepak"_s, Qt::MatchStartsWith).first());
            QVERIFY(!ok->isEnabled());
            QVERIFY(note->text().contains(u"multiples of 4"_s));
            list->setCurrentRow(0);
            QVERIFY(ok->isEnabled() && note->text().isEmpty());
            dialog.reject();
        });
        PressWrite(At(u"x.avi"_s));
    }

    void anUnwritablePlaceIsReportedAtOnce()
    {
        AddBitmaps(1);
        PressWrite(At(u"gone/x.avi"_s), {{WriteError}});
        QCOMPARE(Status(), u"Path not found"_s);
        QVERIFY(Button("cmdWriteAVI")->isEnabled());
    }

    void aMissingFirstBitmapIsReported()
    {
        AddBitmaps(2);
        const QString first = At(u"0.bmp"_s);
        QVERIFY(QFile::remove(first));
        PressWrite(At(u"x.avi"_s), {{u"File does not exist:\r\n"_s + first, BoxIcon::Critical},
                                    {u"Could not load first bitmap file in list!"_s}});
        QCOMPARE(Files("*.avi"), QStringList());
        QVERIFY(Button("cmdWriteAVI")->isEnabled());
    }

    void vanishedBitmapsAreReportedAndTheFrameBeforeRepeats()
    {
        AddBitmaps(4);
        const QByteArray first = PixelsOf(LoadPicture(At(u"0.bmp"_s)));
        const QByteArray last = PixelsOf(LoadPicture(At(u"3.bmp"_s)));
        QList<Message> messages;
        for (const char* name : {"1.bmp", "2.bmp"}) {
            const QString file = At(QString::fromLatin1(name));
            QVERIFY(QFile::remove(file));
            messages.append({u"File does not exist:\r\n"_s + file, BoxIcon::Critical});
        }
        ChooseCodec(0);
        PressWrite(At(u"x.avi"_s), messages);
        QTRY_COMPARE(Status(), u"Finished!"_s);
        QTRY_VERIFY(bench->dialogs.Finished());
        QVERIFY(Decoded(At(u"x.avi"_s)) == first + first + first + last);
    }

    void aBitmapWithoutItsSizeEndsTheWriting()
    {
        AddBitmaps(2);
        QByteArray noSize = NoiseBitmap({}, 1);
        noSize.replace(34, 4, QByteArray(4, '\0'));
        bench->Write(u"1.bmp"_s, noSize);
        ChooseCodec(0);
        PressWrite(At(u"x.avi"_s), {{SubscriptError, BoxIcon::Critical}});
        QTRY_VERIFY(Button("cmdWriteAVI")->isEnabled());
        QVERIFY(bench->dialogs.Finished());
        QCOMPARE(Files("*.avi") + Files("*.tmp"), QStringList());
    }

#ifdef Q_OS_UNIX
    void aFullDiskIsReportedAndLeavesNoFile()
    {
        AddBitmaps(6);
        const FileSizeLimit limit(9000);
        ChooseCodec(0);
        PressWrite(At(u"x.avi"_s), {{WriteError}});
        QTRY_COMPARE(Status(), u"Disk full"_s);
        QTRY_VERIFY(bench->dialogs.Finished());
        QCOMPARE(Files("*.avi") + Files("*.tmp"), QStringList());
    }
#endif

    void cancelEndsTheWritingAndThenCloses()
    {
        AddForLongWork();
        PressWrite(At(u"x.avi"_s));
        QTRY_VERIFY(Status().startsWith(u"Frame number"_s));
        QTest::keyClick(window.get(), Qt::Key_Escape);
        QTRY_COMPARE(Status(), u"Stopped. No file was written."_s);
        QVERIFY(window->isVisible());
        QCOMPARE(Files("*.avi") + Files("*.tmp"), QStringList());
        QVERIFY(Button("cmdWriteAVI")->isEnabled());
        QVERIFY(!Find<QProgressBar>("pgbFrames")->isVisible());
        Button("cmdCancel")->click();
        QVERIFY(!window->isVisible());
    }

    void closingTheWindowEndsTheWriting()
    {
        AddForLongWork();
        PressWrite(At(u"x.avi"_s));
        window->close();
        QTRY_VERIFY(!window->isVisible());
        QCOMPARE(Files("*.avi") + Files("*.tmp"), QStringList());
    }

    void aWindowThatIsDestroyedEndsTheWriting()
    {
        AddForLongWork();
        PressWrite(At(u"x.avi"_s));
        window.reset();
        QCOMPARE(Files("*.avi") + Files("*.tmp"), QStringList());
    }

    void droppedFilesAreAddedUntilOneDoesNotFit()
    {
        QMimeData files;
        files.setUrls({QUrl::fromLocalFile(Bitmap(1)), QUrl::fromLocalFile(Bitmap(2)),
                       QUrl::fromLocalFile(Bitmap(3, {.bits = 8})), QUrl::fromLocalFile(Bitmap(4, {.bits = 8}))});
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &enter);
        QVERIFY(enter.isAccepted());
        bench->dialogs.ExpectMessage(DifferentFormat, BoxAnswer::Ok, BoxIcon::Information);
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &drop);
        QCOMPARE(List()->count(), 2);
    }

    void deleteRemovesAFileFromTheList()
    {
        AddBitmaps(3);
        List()->setFocus();
        List()->setCurrentRow(1);
        QTest::keyClick(List(), Qt::Key_Delete);
        QCOMPARE(List()->count(), 2);
        QVERIFY(Preview() == ImageOf(LoadPicture(List()->currentItem()->text())));
        ChooseCodec(0);
        PressWrite(At(u"x.avi"_s));
        QTRY_COMPARE(Status(), u"Finished!"_s);
        QVERIFY(Decoded(At(u"x.avi"_s)) == AllPixels());
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        List()->setFocus();
        QTest::keyClick(List(), Qt::Key_Delete);
        QTest::keyClick(List(), Qt::Key_Delete);
        QCOMPARE(List()->count(), 0);
        QVERIFY(Preview().isNull());
        QVERIFY(!Button("cmdWriteAVI")->isEnabled());
        Add(Bitmap(9, {.bits = 8}));
        QCOMPARE(List()->count(), 1);
    }

    void picturesAreScaledDownAndNeverEnlarged()
    {
        frmScaledPicture view;
        view.resize(100, 80);
        QImage large(400, 200, QImage::Format_RGB32);
        large.fill(Qt::red);
        view.SetPicture(large);
        const auto redIn = [&] {
            QImage painted(view.size(), QImage::Format_RGB32);
            painted.fill(Qt::black);
            view.render(&painted, {}, {}, {});
            QRect red;
            for (int y = 0; y < painted.height(); ++y)
                for (int x = 0; x < painted.width(); ++x)
                    if (qRed(painted.pixel(x, y)) > 128)
                        red |= QRect(x, y, 1, 1);
            return red;
        };
        QCOMPARE(redIn(), QRect(0, 15, 100, 50));
        view.SetPicture(large.scaled(20, 10));
        QCOMPARE(redIn(), QRect(40, 35, 20, 10));
        view.SetPicture(QImage());
        QVERIFY(redIn().isNull());
    }
};

OB_BENCH_TEST(win_frmAVI)
#include "win_frmAVI.moc"
