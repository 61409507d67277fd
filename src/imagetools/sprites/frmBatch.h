// SPDX-License-Identifier: GPL-3.0-or-later
// Gives all bitmaps of a folder their masks.
#pragma once

#include "imaging/cDIBSection.h"

#include <QDialog>

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

    void SetState(State next);
    void MaskAll(const QString& folder, const QStringList& names);
    void ShowProgress(const QString& folder, qsizetype place, qsizetype count);

    void OKButton_Click();

    std::unique_ptr<Ui::frmBatch> ui;
    FolderBrowser* browser;
    std::atomic<State> state = State::Choosing; // the work looks at it
};

} // namespace ob
