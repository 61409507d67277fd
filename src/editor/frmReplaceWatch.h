// SPDX-License-Identifier: GPL-3.0-or-later
// The windows during a long replacement: Escape stops it, a box with Cancel appears after a second, and the text is
// painted only once.
#pragma once

#include "editor/modFind.h"
#include "platform/dialogs/frmHold.h"

#include <QElapsedTimer>
#include <QPointer>

#include <memory>

class QProgressDialog;
class QWidget;

namespace ob {

// Only Escape and input for the box pass: the text must not change during the replacement.
class frmReplaceWatch final : public cReplaceWatch {
public:
    // `text` is the window that shows the text; it is not painted during the lifetime of the watch.
    explicit frmReplaceWatch(QWidget* text);
    ~frmReplaceWatch() override;

    RoundEnd Round(std::int64_t replacements) override;

private:
    void ShowProgress(std::int64_t replacements);
    void Stop();

    frmHold hold;
    QPointer<QWidget> still;
    std::unique_ptr<QProgressDialog> box;
    QElapsedTimer sinceStart;
    QElapsedTimer sinceTurn;
    bool isStopped = false;
};

} // namespace ob
