// SPDX-License-Identifier: GPL-3.0-or-later
// A question before a window closes with work in it.
#include "shell/state/frmLoss.h"

#include "platform/dialogs/modDialogs.h"

#include <QDialog>
#include <QKeyEvent>

#include <utility>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

class LossFilter final : public QObject {
public:
    LossFilter(QDialog& dialog, std::function<QString()> whatIsLost)
        : QObject(&dialog), window(dialog), lost(std::move(whatIsLost))
    {
        dialog.installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (!Leaves(*event) || MayLeave())
            return false;
        event->setAccepted(event->type() != QEvent::Close);
        return true;
    }

private:
    static bool Leaves(const QEvent& event)
    {
        return event.type() == QEvent::Close ||
               (event.type() == QEvent::KeyPress && static_cast<const QKeyEvent&>(event).matches(QKeySequence::Cancel));
    }

    bool MayLeave() const
    {
        const QString what = window.isVisible() ? lost() : QString();
        return what.isEmpty() || MsgBox(LossQuestion(what), BoxIcon::Question, BoxButtons::OkCancel,
                                        window.windowTitle()) == BoxAnswer::Ok;
    }

    QDialog& window;
    std::function<QString()> lost;
};

} // namespace

void AskBeforeLoss(QDialog& window, std::function<QString()> lost)
{
    new LossFilter(window, std::move(lost));
}

QString CountOf(qsizetype count, const QString& one, const QString& many)
{
    return count == 0 ? QString() : u"%1 %2"_s.arg(count).arg(count == 1 ? one : many);
}

} // namespace ob
