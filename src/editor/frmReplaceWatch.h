// SPDX-License-Identifier: GPL-3.0-or-later
// What the windows do while a long replacement runs: Escape ends it, a box with Cancel comes after a second, and the
// text is painted once.
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
    // `text` is the window that shows the text; it stays still until the watch goes.
    explicit frmReplaceWatch(QWidget* text);
    ~frmReplaceWatch() override;

    RoundEnd Round(std::int64_t replacements) override;

protected:
    // Only Escape, and what the box gets, comes through: the text must not change under the replacement.
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
