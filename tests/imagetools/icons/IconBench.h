// SPDX-License-Identifier: GPL-3.0-or-later
// An icon bench under test: its controls, its mouse, and the icon that it shows.
#pragma once

#include "support/TestBench.h"

#include "imagetools/icons/dlgBmp.h"
#include "imagetools/icons/frmIcon.h"
#include "imagetools/icons/frmPictureArea.h"
#include "imagetools/icons/frmPixelGrid.h"
#include "imagetools/pictures/modPicture.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>

#include <memory>

namespace ob {

constexpr ColorRef Black = Rgb(0, 0, 0);
constexpr ColorRef Blue = Rgb(0, 0, 255);
constexpr ColorRef Red = Rgb(255, 0, 0);
constexpr int BlueSwatch = 9;
constexpr int RedSwatch = 12;

inline QString Text(const char* text)
{
    return QString::fromLatin1(text);
}

inline QPoint MiddleOf(int x, int y)
{
    return {x * 10 + 5, y * 10 + 5};
}

// The toolkit's own test events take a press at (0, 0) for one in the middle, and know no move with a button down.
inline void Send(QWidget* widget, QEvent::Type type, QPoint place, Qt::MouseButtons held)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, widget->mapToGlobal(place), button, held, {});
    QApplication::sendEvent(widget, &event);
}

inline void Move(QWidget* widget, QPoint place)
{
    Send(widget, QEvent::MouseMove, place, Qt::LeftButton);
}

inline void Pull(QWidget* widget, QPoint from, QPoint to)
{
    Send(widget, QEvent::MouseButtonPress, from, Qt::LeftButton);
    Move(widget, to);
    Send(widget, QEvent::MouseButtonRelease, to, Qt::NoButton);
}

class IconBench : public QObject {
protected:
    void Open()
    {
        dlgBmp::isWanted = true;
        bench = std::make_unique<TestBench>();
        window = std::make_unique<frmIcon>();
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }
    void Close()
    {
        window.reset();
        bench.reset();
    }

    template <class Kind>
    Kind* Find(const char* name) const
    {
        return window->findChild<Kind*>(QString::fromLatin1(name));
    }
    frmPixelGrid* Grid() const { return Find<frmPixelGrid>("Picture3"); }
    QPushButton* Key(const char* name) const { return Find<QPushButton>(name); }
    QAction* Item(const char* name) const { return Find<QAction>(name); }
    frmPictureArea* Picture() const { return Find<frmPictureArea>("picBmp"); }
    QString State() const { return Find<QLabel>("lblState")->text(); }

    Icon Shown(const char* view = "Picture1") const
    {
        return IconFromPicture(CreateFromPicture(Find<QLabel>(view)->pixmap().toImage()));
    }
    ColorRef Pixel(int x, int y) const { return Shown().At(x, y); }

    void Choose(const char* item) const
    {
        QVERIFY2(Item(item) != nullptr && Item(item)->isEnabled(), item);
        Item(item)->trigger();
    }
    void Swatch(int index) const
    {
        QTest::mouseClick(window->findChild<QWidget*>(QStringLiteral("Picture2_%1").arg(index)), Qt::LeftButton);
    }
    void Click(int x, int y, Qt::MouseButton button = Qt::LeftButton) const
    {
        QTest::mouseClick(Grid(), button, {}, MiddleOf(x, y));
    }
    void Drag(QPoint from, QPoint to) const { Pull(Grid(), from, to); }

    // A drawing that every operation changes.
    Icon DrawSomething() const
    {
        Swatch(BlueSwatch);
        Drag(MiddleOf(1, 2), MiddleOf(20, 5));
        Swatch(RedSwatch);
        Drag(MiddleOf(30, 3), MiddleOf(7, 29));
        return Shown();
    }

    void ExpectSaveQuestion(BoxAnswer answer) const
    {
        bench->dialogs.ExpectMessage(Text("Save icon?"), answer, BoxIcon::Question, BoxButtons::YesNoCancel);
    }

    std::unique_ptr<TestBench> bench;
    std::unique_ptr<frmIcon> window;
};

} // namespace ob
