// SPDX-License-Identifier: GPL-3.0-or-later
// The windows during a long replacement: Escape stops it, a box with Cancel appears after a second, and the text is
// painted only once.
#pragma once

#include "editor/modFind.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

class QProgressDialog;
class QWidget;

namespace ob {

class frmReplaceWatch final : public QObject, public cReplaceWatch {
    Q_OBJECT

public:
    // `text` is the window that shows the text; it is not painted during the lifetime of the watch.
    explicit frmReplaceWatch(QWidget* text);
    ~frmReplaceWatch() override;

    RoundEnd Round(std::int64_t replacements) override;

protected:
    // Only Escape and input for the box pass: the text must not change during the replacement.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowProgress(std::int64_t replacements);
    bool IsOfBox(QObject* watched) const;

    QPointer<QWidget> still;
    std::unique_ptr<QProgressDialog> box;
    QElapsedTimer sinceStart;
    QElapsedTimer sinceTurn;
    bool isStopped = false;
};

} // namespace ob
