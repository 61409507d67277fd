// SPDX-License-Identifier: GPL-3.0-or-later
// The AVI maker's window over bitmaps of the test, and its controls.
#pragma once

#include "imagetools/avi/AviBench.h"
#include "support/TestBench.h"

#include "imagetools/avi/frmAVI.h"
#include "imagetools/pictures/frmScaledPicture.h"

#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

namespace ob {

inline const QString OpenTitle = QStringLiteral("Choose BMP file to add to video stream");
inline const QString OpenFilter = QStringLiteral("BMP Files|*.bmp|DIB Files|*.dib");
inline const QString SaveTitle = QStringLiteral("Choose a filename to save AVI to...");
inline const QString SaveFilter = QStringLiteral("AVI Files|*.avi");
inline const QString DifferentFormat = QStringLiteral("Chosen bitmap file is a different format!");
inline const QString SubscriptError = QStringLiteral("Run-time error '9':\nSubscript out of range");
inline const QString WriteError = QStringLiteral("There was an error writing the file.");

class AviWindowBench : public QObject {
protected:
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
    QString Names() const
    {
        QStringList names;
        for (int row = 0; row < List()->count(); ++row)
            names.append(QFileInfo(List()->item(row)->text()).fileName());
        return names.join(u' ');
    }
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

    void Begin()
    {
        bench = std::make_unique<TestBench>();
        window = std::make_unique<frmAVI>();
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }
    void End()
    {
        window.reset();
        bench.reset();
    }
};

} // namespace ob
