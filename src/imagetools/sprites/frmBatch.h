// SPDX-License-Identifier: GPL-3.0-or-later
// Gives all bitmaps of a folder their masks.
#pragma once

#include "imagetools/sprites/modMask.h"

#include <QDateTime>
#include <QDialog>
#include <QHash>

#include <atomic>
#include <memory>

namespace Ui {
class frmBatch;
}

namespace ob {

class FolderBrowser;

class frmBatch final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "sprite-masker";

    explicit frmBatch(QWidget* parent = nullptr);
    ~frmBatch() override;

    // While files are being masked this ends the work after the file in hand, else it closes the window.
    void reject() override;

Q_SIGNALS:
    // A file has been written.
    void Masked(const QString& path, const cDIBSection& picture);

private:
    enum class State { Choosing, AtWork, Cancelled };

    // A file as this window wrote it; one that has been changed since is another sprite.
    struct Written {
        qint64 size = 0;
        QDateTime time;
        bool operator==(const Written&) const = default;
    };

    void SetState(State next);
    static Written StateOf(const QString& path);
    bool IsMasked(const QString& path) const;
    void MaskAll(const QString& folder, const QStringList& names);
    BatchEnd Mask(const QString& folder, const QStringList& left, qsizetype count);
    void ShowProgress(const QString& folder, const QString& name, qsizetype place, qsizetype count);
    void ShowOutcome(const QString& text);

    void OKButton_Click();

    std::unique_ptr<Ui::frmBatch> ui;
    FolderBrowser* browser;
    QHash<QString, Written> masked;             // by this window, by path
    std::atomic<State> state = State::Choosing; // the work looks at it
};

} // namespace ob
