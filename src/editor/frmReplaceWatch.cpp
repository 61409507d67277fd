// SPDX-License-Identifier: GPL-3.0-or-later
// The windows during a long replacement.
#include "editor/frmReplaceWatch.h"

#include "platform/work/cWork.h"
#include "shell/state/frmTool.h"

#include <QLocale>
#include <QProgressDialog>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// In milliseconds: how often the event loop runs, and when the box appears.
constexpr qint64 turnEvery = 50;
constexpr qint64 boxAfter = 1000;

} // namespace

frmReplaceWatch::frmReplaceWatch(QWidget* text) : hold([this] { Stop(); }), still(text)
{
    if (still != nullptr)
        still->setUpdatesEnabled(false);
    sinceStart.start();
    sinceTurn.start();
}

frmReplaceWatch::~frmReplaceWatch()
{
    if (still != nullptr)
        still->setUpdatesEnabled(true);
}

RoundEnd frmReplaceWatch::Round(std::int64_t replacements)
{
    if (sinceTurn.elapsed() >= turnEvery) {
        if (sinceStart.elapsed() >= boxAfter)
            ShowProgress(replacements);
        LetEventsRun();
        sinceTurn.restart();
    }
    return isStopped ? RoundEnd::Stop : RoundEnd::GoOn;
}

void frmReplaceWatch::ShowProgress(std::int64_t replacements)
{
    if (box == nullptr) {
        box = std::make_unique<QProgressDialog>(ToolOwner());
        box->setObjectName(u"frmReplaceProgress"_s);
        box->setWindowTitle(u"Replace All"_s);
        box->setWindowModality(Qt::ApplicationModal);
        box->setRange(0, 0);
        box->setMinimumWidth(320);
        QObject::connect(box.get(), &QProgressDialog::canceled, box.get(), [this] { isStopped = true; });
        hold.Except(box.get());
        box->show();
    }
    box->setLabelText(u"Replacements made so far: %1"_s.arg(QLocale().toString(replacements)));
}

void frmReplaceWatch::Stop()
{
    isStopped = true;
    if (box != nullptr)
        box->cancel();
}

} // namespace ob
