// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the mask of a sprite and shows both.
#pragma once

#include "imaging/cDIBSection.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmMask;
}

namespace ob {

class frmMask final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "sprite-masker";

    explicit frmMask(QWidget* parent = nullptr);
    ~frmMask() override;

    // Reads a sprite and shows its mask growing. Raises what LoadPicture raises; after that, and when the user cancels
    // the reading, it shows what it showed before.
    void DoMask(const QString& fileName);

private:
    void ShowPicture(const QString& fileName, cDIBSection picture);

    void cmdOpen_Click();
    void cmdSave_Click();
    void cmdBatch_Click();
    static void cmdHelp_Click();

    std::unique_ptr<Ui::frmMask> ui;
    QString sprite;   // the file last read
    cDIBSection mask; // the sprite with its mask; without pixels at first
};

void mnuToolMask_Click();

} // namespace ob
