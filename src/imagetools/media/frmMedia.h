// SPDX-License-Identifier: GPL-3.0-or-later
// Plays a MIDI, AVI, MPEG or MP3 file and writes the BASIC code that plays it.
#pragma once

#include <QDialog>

#include <memory>

class QTimer;

namespace Ui {
class frmMedia;
}

namespace ob {

class frmInsertButton;

class frmMedia final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "media-preview";

    explicit frmMedia(QWidget* parent = nullptr);
    ~frmMedia() override;

    // Puts the code of the file into txtCode; without a file nothing changes.
    void WriteCodeMedia();

private:
    void cmdOpen_Click();
    void cmdPlay_Click();
    void cmdStop_Click();
    void cmdCode_Click();
    void cmdCopy_Click();
    void tmrPlay_Timer();
    void ShowTime(float position);
    QString FinishedCode() const;

    std::unique_ptr<Ui::frmMedia> ui;
    QTimer* tmrPlay;
    frmInsertButton* insert; // belongs to its button
    QString file;            // empty for none
    QString played;          // the file last played
};

void mnuToolMedia_Click();

} // namespace ob
