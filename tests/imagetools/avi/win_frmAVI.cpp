// SPDX-License-Identifier: GPL-3.0-or-later
// The AVI maker's window, as used.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "imagetools/avi/AviBench.h"
#include "imagetools/avi/dlgAviOptions.h"
#include "imagetools/avi/frmAVI.h"
#include "imagetools/pictures/frmScaledPicture.h"
#include "platform/files/modPaths.h"

#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QSlider>

using namespace ob;

namespace {

const QString OpenTitle = QStringLiteral("Choose BMP file to add to video stream");
const QString OpenFilter = QStringLiteral("BMP Files|*.bmp|DIB Files|*.dib");
const QString SaveTitle = QStringLiteral("Choose a filename to save AVI to...");
const QString SaveFilter = QStringLiteral("AVI Files|*.avi");
const QString DifferentFormat = QStringLiteral("Chosen bitmap file is a different format!");
const QString SubscriptError = QStringLiteral("Run-time error '9':\nSubscript out of range");
const QString WriteError = QStringLiteral("There was an error writing the file.");

} // namespace

class win_frmAVI : public QObject {
    Q_OBJECT

    std::unique_ptr<TestBench> bench;
    std::unique_ptr<frmAVI> window;

    template <class Control>
    Control* Find(const char* name) const
    {
        return window->findChild<Control*>(QString::fromLatin1(name));
    }
    QPushButton* Button(const char* name) const { return Find<QPushButton>(name); }
    QListWidget* List() const { return Find<QListWidget>("lstDIBList"); }
    QString Status() const { return Find<QLabel>("lblStatus")->text(); }
    const QImage& Preview() const { return Find<frmScaledPicture>("imgPreview")->Picture(); }
    QString At(const QString& name) const { return bench->Path(name); }
    QStringList Files(const char* pattern) const
    {
        return QDir(At(QString())).entryList({QString::fromLatin1(pattern)}, QDir::Files | QDir::Hidden);
    }

    QString Bitmap(int number, const BitmapKind& kind = {}) const
    {
        return bench->Write(QStringLiteral("%1.bmp").arg(number), NoiseBitmap(kind, static_cast<unsigned>(number)));
    }
    // The message is the one that the choice should cause; empty for none.
    void Add(const QString& file, const QString& message = {}, BoxIcon icon = BoxIcon::Information)
    {
        bench->dialogs.ExpectFile(FilePurpose::Open, OpenTitle, OpenFilter, file);
        if (!message.isEmpty())
            bench->dialogs.ExpectMessage(message, BoxAnswer::Ok, icon);
        Button("cmdFileOpen")->click();
    }
    void AddBitmaps(int count, const BitmapKind& kind = {})
    {
        for (int number = 0; number < count; ++number)
            Add(Bitmap(number, kind));
        QCOMPARE(List()->count(), count);
    }
    void ChooseCodec(int row)
    {
        bench->ExpectModal(QStringLiteral("dlgAviOptions"), [row](QDialog& dialog) {
            dialog.findChild<QListWidget*>(QStringLiteral("lstCodec"))->setCurrentRow(row);
            dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
        });
    }
    // Frames that take a while in total, with a slow compressor.
    void AddForLongWork()
    {
        const QString file = Bitmap(0, {.height = 256, .width = 256});
        for (int count = 0; count < 100; ++count)
            Add(file);
        ChooseCodec(4);
    }

    struct Message {
        QString text;
        BoxIcon icon = BoxIcon::Information;
    };
    void PressWrite(const QString& out, const QList<Message>& messages = {})
    {
        bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, out);
        for (const Message& message : messages)
            bench->dialogs.ExpectMessage(message.text, BoxAnswer::Ok, message.icon);
        Button("cmdWriteAVI")->click();
    }
    QByteArray AllPixels() const
    {
        QByteArray pixels;
        for (int row = 0; row < List()->count(); ++row)
            pixels += PixelsOf(LoadPicture(List()->item(row)->text()));
        return pixels;
    }

private Q_SLOTS:
    void init()
    {
        bench = std::make_unique<TestBench>();
        window = std::make_unique<frmAVI>();
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }
    void cleanup()
    {
        window.reset();
        bench.reset();
    }

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
        QCOMPARE(List()->item(1)->text(), At(QStringLiteral("1.bmp")));
        QVERIFY(Preview() == ImageOf(LoadPicture(At(QStringLiteral("1.bmp")))));
        QVERIFY(Button("cmdClearList")->isEnabled() && Button("cmdWriteAVI")->isEnabled());
        List()->setCurrentRow(0);
        QVERIFY(Preview() == ImageOf(LoadPicture(At(QStringLiteral("0.bmp")))));
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
        const QString text = bench->Write(QStringLiteral("text.bmp"), "text");
        Add(text, QStringLiteral("File is not a supported bitmap format:\r\n") + text);
        QByteArray noSize = NoiseBitmap({}, 1);
        noSize.replace(34, 4, QByteArray(4, '\0'));
        Add(bench->Write(QStringLiteral("noSize.bmp"), noSize), SubscriptError, BoxIcon::Critical);
        QCOMPARE(List()->count(), 1);
        QVERIFY(Preview() == ImageOf(LoadPicture(At(QStringLiteral("0.bmp")))));
    }

    void aBitmapThatIsNoPictureIsNotAdded()
    {
        QByteArray bitmap = NoiseBitmap({}, 1);
        bitmap[28] = 7; // bits per pixel
        Add(bench->Write(QStringLiteral("odd.bmp"), bitmap), QStringLiteral("Run-time error '481':\nInvalid picture"),
            BoxIcon::Critical);
        QCOMPARE(List()->count(), 0);
        QVERIFY(!Button("cmdWriteAVI")->isEnabled());
    }

    void theListIsWrittenFrameByFrame()
    {
        AddBitmaps(5);
        Find<QLineEdit>("txtFPS")->setText(QStringLiteral("12.5"));
        ChooseCodec(0);
        auto* status = Find<QLabel>("lblStatus");
        PressWrite(At(QStringLiteral("film")));
        QVERIFY(Find<QProgressBar>("pgbFrames")->isVisible());
        QVERIFY(!Button("cmdFileOpen")->isEnabled() && !Button("cmdClearList")->isEnabled() &&
                !Button("cmdWriteAVI")->isEnabled() && Button("cmdCancel")->isEnabled());
        QTRY_VERIFY2(Status() == QStringLiteral("Finished!"), qPrintable(status->text()));
        const QString video = At(QStringLiteral("film.avi"));
        QVERIFY(Decoded(video) == AllPixels());
        QCOMPARE(Probed(video, "stream=r_frame_rate,nb_frames"), QByteArray("12/1,5"));
        QVERIFY(!Find<QProgressBar>("pgbFrames")->isVisible());
        QVERIFY(Button("cmdFileOpen")->isEnabled() && Button("cmdWriteAVI")->isEnabled());
        QCOMPARE(List()->currentRow(), 4);
        QVERIFY(Preview() == ImageOf(LoadPicture(At(QStringLiteral("4.bmp")))));
        // A second video in the same window.
        ChooseCodec(0);
        PressWrite(At(QStringLiteral("again.avi")));
        QTRY_COMPARE(Status(), QStringLiteral("Finished!"));
        QVERIFY(bench->Read(video) == bench->Read(At(QStringLiteral("again.avi"))));
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
                if (event->type() == QEvent::Paint && text.startsWith(QStringLiteral("Frame")) && !texts.contains(text))
                    texts.append(text);
                return false;
            }
        } watch;
        AddBitmaps(3);
        Find<QLabel>("lblStatus")->installEventFilter(&watch);
        ChooseCodec(0);
        PressWrite(At(QStringLiteral("x.avi")));
        QTRY_COMPARE(Status(), QStringLiteral("Finished!"));
        Find<QLabel>("lblStatus")->removeEventFilter(&watch);
        QCOMPARE(watch.texts,
                 (QStringList{QStringLiteral("Frame number 0 saved"), QStringLiteral("Frame number 1 saved"),
                              QStringLiteral("Frame number 2 saved")}));
    }

    void cancelOfTheSaveBoxDoesNothing()
    {
        AddBitmaps(1);
        PressWrite({});
        QCOMPARE(Status(), QStringLiteral("AVI Status"));
        QCOMPARE(Files("*.avi"), QStringList());
    }

    void cancelOfTheOptionsLeavesAnEmptyFileAndSaysNothing()
    {
        AddBitmaps(1);
        const auto dismiss = [](QDialog& dialog) {
            dialog.findChild<QPushButton*>(QStringLiteral("cmdCancel"))->click();
        };
        bench->ExpectModal(QStringLiteral("dlgAviOptions"), dismiss);
        PressWrite(At(QStringLiteral("new.avi")));
        QCOMPARE(Files("*.avi"), QStringList{QStringLiteral("new.avi")});
        QCOMPARE(bench->Read(At(QStringLiteral("new.avi"))), QByteArray());
        bench->Write(QStringLiteral("old.avi"), "old");
        bench->ExpectModal(QStringLiteral("dlgAviOptions"), dismiss);
        PressWrite(At(QStringLiteral("old.avi")));
        QCOMPARE(bench->Read(At(QStringLiteral("old.avi"))), QByteArray("old"));
        QVERIFY(Button("cmdWriteAVI")->isEnabled());
        QCOMPARE(Files("*.tmp"), QStringList());
    }

    void enterPressesTheButtonThatHasTheFocus()
    {
        AddBitmaps(1);
        bench->ExpectModal(QStringLiteral("dlgAviOptions"), [](QDialog& dialog) {
            auto* cancel = dialog.findChild<QPushButton*>(QStringLiteral("cmdCancel"));
            cancel->setFocus();
            QTest::keyClick(cancel, Qt::Key_Return);
            QVERIFY(!dialog.isVisible());
            QCOMPARE(dialog.result(), static_cast<int>(QDialog::Rejected));
        });
        bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, At(QStringLiteral("x.avi")));
        Button("cmdWriteAVI")->setFocus();
        QTest::keyClick(Button("cmdWriteAVI"), Qt::Key_Return);
        QVERIFY(bench->dialogs.Finished());
        QCOMPARE(bench->Read(At(QStringLiteral("x.avi"))), QByteArray());
    }

    void oneMoreEnterDoesNotEndTheWriting()
    {
        AddForLongWork();
        Button("cmdWriteAVI")->setFocus();
        PressWrite(At(QStringLiteral("x.avi")));
        QTest::keyClick(window->focusWidget(), Qt::Key_Return);
        QTest::keyClick(window->focusWidget(), Qt::Key_Space);
        QVERIFY(!Status().startsWith(QStringLiteral("Stop")));
        QTest::keyClick(window.get(), Qt::Key_Escape);
        QTRY_COMPARE(Status(), QStringLiteral("Stopped. No file was written."));
    }

    void aCompressorIsChosenWithItsQuality()
    {
        AddBitmaps(2, {.height = 24, .width = 32});
        bench->ExpectModal(QStringLiteral("dlgAviOptions"), [](QDialog& dialog) {
            auto* list = dialog.findChild<QListWidget*>(QStringLiteral("lstCodec"));
            auto* quality = dialog.findChild<QSlider*>(QStringLiteral("sldQuality"));
            QVERIFY(!quality->isEnabled());
            const auto found = list->findItems(QStringLiteral("Motion JPEG"), Qt::MatchStartsWith);
            QCOMPARE(found.size(), 1);
            list->setCurrentItem(found.first());
            QVERIFY(quality->isEnabled());
            quality->setValue(40);
            QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("lblValue"))->text(), QStringLiteral("40"));
            const AviOptions options = static_cast<dlgAviOptions&>(dialog).Options();
            QCOMPARE(options.codec, std::string("mjpeg"));
            QCOMPARE(options.quality, 40);
            dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
        });
        PressWrite(At(QStringLiteral("x.avi")));
        QTRY_COMPARE(Status(), QStringLiteral("Finished!"));
        QCOMPARE(Probed(At(QStringLiteral("x.avi")), "stream=codec_name,nb_frames"), QByteArray("mjpeg,2"));
    }

    void aCompressorThatRefusesTheSizeCannotBeChosen()
    {
        AddBitmaps(1);
        bench->ExpectModal(QStringLiteral("dlgAviOptions"), [](QDialog& dialog) {
            auto* list = dialog.findChild<QListWidget*>(QStringLiteral("lstCodec"));
            auto* ok = dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"));
            auto* note = dialog.findChild<QLabel*>(QStringLiteral("lblNote"));
            QVERIFY(ok->isEnabled() && note->text().isEmpty());
            list->setCurrentItem(list->findItems(QStringLiteral("Cinepak"), Qt::MatchStartsWith).first());
            QVERIFY(!ok->isEnabled());
            QVERIFY(note->text().contains(QStringLiteral("multiples of 4")));
            list->setCurrentRow(0);
            QVERIFY(ok->isEnabled() && note->text().isEmpty());
            dialog.reject();
        });
        PressWrite(At(QStringLiteral("x.avi")));
    }

    void anUnwritablePlaceIsReportedAtOnce()
    {
        AddBitmaps(1);
        PressWrite(At(QStringLiteral("gone/x.avi")), {{WriteError}});
        QCOMPARE(Status(), QStringLiteral("Path not found"));
        QVERIFY(Button("cmdWriteAVI")->isEnabled());
    }

    void aMissingFirstBitmapIsReported()
    {
        AddBitmaps(2);
        const QString first = At(QStringLiteral("0.bmp"));
        QVERIFY(QFile::remove(first));
        PressWrite(At(QStringLiteral("x.avi")),
                   {{QStringLiteral("File does not exist:\r\n") + first, BoxIcon::Critical},
                    {QStringLiteral("Could not load first bitmap file in list!")}});
        QCOMPARE(Files("*.avi"), QStringList());
        QVERIFY(Button("cmdWriteAVI")->isEnabled());
    }

    void vanishedBitmapsAreReportedAndTheFrameBeforeRepeats()
    {
        AddBitmaps(4);
        const QByteArray first = PixelsOf(LoadPicture(At(QStringLiteral("0.bmp"))));
        const QByteArray last = PixelsOf(LoadPicture(At(QStringLiteral("3.bmp"))));
        QList<Message> messages;
        for (const char* name : {"1.bmp", "2.bmp"}) {
            const QString file = At(QString::fromLatin1(name));
            QVERIFY(QFile::remove(file));
            messages.append({QStringLiteral("File does not exist:\r\n") + file, BoxIcon::Critical});
        }
        ChooseCodec(0);
        PressWrite(At(QStringLiteral("x.avi")), messages);
        QTRY_COMPARE(Status(), QStringLiteral("Finished!"));
        QTRY_VERIFY(bench->dialogs.Finished());
        QVERIFY(Decoded(At(QStringLiteral("x.avi"))) == first + first + first + last);
    }

    void aBitmapWithoutItsSizeEndsTheWriting()
    {
        AddBitmaps(2);
        QByteArray noSize = NoiseBitmap({}, 1);
        noSize.replace(34, 4, QByteArray(4, '\0'));
        bench->Write(QStringLiteral("1.bmp"), noSize);
        ChooseCodec(0);
        PressWrite(At(QStringLiteral("x.avi")), {{SubscriptError, BoxIcon::Critical}});
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
        PressWrite(At(QStringLiteral("x.avi")), {{WriteError}});
        QTRY_COMPARE(Status(), QStringLiteral("Disk full"));
        QTRY_VERIFY(bench->dialogs.Finished());
        QCOMPARE(Files("*.avi") + Files("*.tmp"), QStringList());
    }
#endif

    void cancelEndsTheWritingAndThenCloses()
    {
        AddForLongWork();
        PressWrite(At(QStringLiteral("x.avi")));
        QTRY_VERIFY(Status().startsWith(QStringLiteral("Frame number")));
        QTest::keyClick(window.get(), Qt::Key_Escape);
        QTRY_COMPARE(Status(), QStringLiteral("Stopped. No file was written."));
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
        PressWrite(At(QStringLiteral("x.avi")));
        window->close();
        QTRY_VERIFY(!window->isVisible());
        QCOMPARE(Files("*.avi") + Files("*.tmp"), QStringList());
    }

    void aWindowThatIsDestroyedEndsTheWriting()
    {
        AddForLongWork();
        PressWrite(At(QStringLiteral("x.avi")));
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
        PressWrite(At(QStringLiteral("x.avi")));
        QTRY_COMPARE(Status(), QStringLiteral("Finished!"));
        QVERIFY(Decoded(At(QStringLiteral("x.avi"))) == AllPixels());
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
