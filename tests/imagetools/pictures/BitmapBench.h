// SPDX-License-Identifier: GPL-3.0-or-later
// The bitmap previewer's window over a folder of the test, and its controls.
#pragma once

#include "support/TestBench.h"

#include "imagetools/pictures/frmBitmap.h"
#include "imagetools/pictures/frmPreviewBox.h"
#include "platform/desktop/modClipboard.h"

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QLabel>
#include <QListView>
#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace ob {

inline const QString SaveTitle = QStringLiteral("Save As...");
inline const QString SaveFilter = QStringLiteral("Image Files |*.bmp;*.jpg;*.gif;*.emf;*.wmf;");
inline const QString CopiedText =
    QStringLiteral("Bitmap list has been copied to the clipboard.  Please paste it into your program.");
inline const QString NoneText = QStringLiteral("No bitmaps are selected. Do you want to add bitmaps?");

inline void SavePicture(const QString& path, QSize size, QColor color)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QVERIFY(image.save(path));
}

class BitmapBench : public QObject {
protected:
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

    void Begin() { bench = std::make_unique<TestBench>(); }
    void End()
    {
        delete form;
        QVERIFY(bench->dialogs.Finished());
        bench.reset();
        SetClipboardWriter({});
    }
};

} // namespace ob
