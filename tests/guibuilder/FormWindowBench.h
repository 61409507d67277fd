// SPDX-License-Identifier: GPL-3.0-or-later
// The form window in the bench, for tests: a small form, and the window's parts.
#pragma once

#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "guibuilder/frmGui.h"
#include "guibuilder/frmSurface.h"
#include "guibuilder/modCompleted.h"
#include "guibuilder/modGenerator.h"
#include "guibuilder/modGui.h"
#include "platform/files/modFiles.h"

#include <QDate>
#include <QLabel>
#include <QLocale>
#include <QMdiArea>
#include <QTest>
#include <QToolButton>

namespace ob {

inline const QByteArray SmallForm =
    "defaults|Black|Buttonface|White|White|White|White|False|True|False|1|True\r\n"
    "Window|Small| 600.5| 450| 6000.25| 4500|main|-2147483633|ms sans serif *10|False|1|True\r\n"
    "menu|&File|E&xit  [quit] * |none|none|none|none|none|none|False|1|True\r\n"
    "button|&Go| 300| 300| 1200| 450|go|go.click|none|False|1|True\r\n"
    "groupbox|Choose| 300| 1050| 3000| 1500|box|none|none|False|1|True\r\n"
    "statusbar|2|one|two||||||False|1|True\r\n\r\n";

inline const QString SaveQuestion = QStringLiteral("Save gui form before closing?");
inline const QString SaveFilter = QStringLiteral("Gui Form (*.obf)|*.obf");
inline const QString LoadFilter = QStringLiteral("Gui Form (*.obf)|*.OBF");

inline frmGui* FormWindow(TestBench& bench)
{
    // A closed window is deleted in the next turn of the event loop.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return bench.Frame().findChild<frmGui*>();
}

inline frmSurface* Surface(TestBench& bench)
{
    return bench.Frame().findChild<frmSurface*>();
}

inline QToolButton* Tool(TestBench& bench, int place)
{
    return bench.Frame().findChild<QToolButton*>(QStringLiteral("cmdTools%1").arg(place));
}

inline QToolButton* Switch(TestBench& bench, const char* name)
{
    return bench.Frame().findChild<QToolButton*>(QString::fromLatin1(name));
}

inline QString StatusOf(TestBench& bench)
{
    return bench.Frame().findChild<QLabel*>(QStringLiteral("statusText"))->text();
}

inline void Pull(QWidget* surface, QPoint from, QPoint to)
{
    QTest::mousePress(surface, Qt::LeftButton, {}, from);
    // The toolkit's own mouse move has no button down.
    for (const QPoint at : {(from + to) / 2, to}) {
        QMouseEvent move(QEvent::MouseMove, at, surface->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(surface, &move);
    }
    QTest::mouseRelease(surface, Qt::LeftButton, {}, to);
}

inline QByteArray OwnProgram(ProgramKind kind)
{
    const GuiForm form = Completed(GuiDesign().form, CompletedFor::Program);
    return GenerateProgram(form, kind, {ShortDateText(QDate::currentDate(), QLocale::system()), {}}).text.toLatin1();
}

class FormWindowBench : public QObject {
protected:
    QString Load(TestBench& bench, const QByteArray& form = SmallForm)
    {
        const QString path = bench.Write(QStringLiteral("small.obf"), form);
        bench.Start({path});
        return path;
    }
};

} // namespace ob
