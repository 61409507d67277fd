// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's status bar.
#include "shell/bench/frmStatusBar.h"

#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "platform/desktop/modKeyState.h"
#include "scilexer/modSci.h"

#include <QApplication>
#include <QDateTime>
#include <QEvent>
#include <QLabel>
#include <QLocale>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace ob {

frmStatusBar::frmStatusBar(QWidget* parent) : QStatusBar(parent)
{
    setObjectName(u"sbStatusBar"_s);
    textPanel = new QLabel(this);
    textPanel->setObjectName(u"statusText"_s);
    textPanel->setTextFormat(Qt::PlainText);
    // A long text must not widen the window.
    textPanel->setMinimumWidth(1);
    textPanel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    addWidget(textPanel, 1);
    numPanel = AddPanel("statusNum", u"NUM"_s);
    capsPanel = AddPanel("statusCaps", u"CAPS"_s);
    insPanel = AddPanel("statusIns", u"INS"_s);
    datePanel = AddPanel("statusDate", {});
    timePanel = AddPanel("statusTime", {});
    ShowClock();
    ShowKeys();
    qApp->installEventFilter(this);
}

frmStatusBar::~frmStatusBar() = default;

QLabel* frmStatusBar::AddPanel(const char* name, const QString& text)
{
    auto* panel = new QLabel(text, this);
    panel->setObjectName(QString::fromLatin1(name));
    addPermanentWidget(panel);
    return panel;
}

void frmStatusBar::SetText(const QString& text)
{
    textPanel->setText(text);
    textPanel->setToolTip(text);
}

void frmStatusBar::ShowClock()
{
    const QLocale locale = QLocale::system();
    const QDateTime now = QDateTime::currentDateTime();
    datePanel->setText(locale.toString(now.date(), QLocale::ShortFormat));
    // The panel changes once a minute, so seconds would be wrong.
    QString format = locale.timeFormat(QLocale::ShortFormat);
    timePanel->setText(locale.toString(now.time(), format.remove(QLatin1String(":ss"))));
    const int untilNextMinute = 60'000 - (now.time().msecsSinceStartOfDay() % 60'000);
    QTimer::singleShot(untilNextMinute + 20, this, &frmStatusBar::ShowClock);
}

void frmStatusBar::ShowKeys()
{
    numPanel->setEnabled(IsLockOn(LockKey::NumLock));
    capsPanel->setEnabled(IsLockOn(LockKey::CapsLock));
    const cDocument* document = ActiveDocument();
    insPanel->setEnabled(document == nullptr || SendSci(document->sci, SCI_GETOVERTYPE) == 0);
}

bool frmStatusBar::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::KeyRelease || type == QEvent::WindowActivate || type == QEvent::ApplicationActivate)
        ShowKeys();
    return QStatusBar::eventFilter(watched, event);
}

} // namespace ob
