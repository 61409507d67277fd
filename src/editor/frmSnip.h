// SPDX-License-Identifier: GPL-3.0-or-later
// The snippet bench: the user's small pieces of code, one file each.
#pragma once

#include <QDialog>

#include <memory>

class QKeyEvent;
class QStringListModel;

namespace Ui {
class frmSnip;
}

namespace ob {

class frmSnip final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "snippets";

    explicit frmSnip(QWidget* parent = nullptr);
    ~frmSnip() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ConnectControls();
    void Refresh(const QString& chosen);
    QString ChosenName() const;
    QString ChosenPath() const;
    void ShowText(const QString& text);
    void TypeTab();
    bool IsListKey(const QKeyEvent& press);

    void lstSnip_Click();
    void lstSnip_DblClick();
    void cmdNew_Click();
    void cmdSave_Click();
    void cmdDelete_Click();
    void cmdCopy_Click();
    void cmdPaste_Click();
    void cmdPasteNew_Click();

    std::unique_ptr<Ui::frmSnip> ui;
    QString folder; // of the snippets
    QStringListModel* names = nullptr;
    bool pressLoaded = false; // whether this press of the mouse has already shown its snippet
    bool refreshing = false;
};

void mnuToolSnipBench_Click();

} // namespace ob
