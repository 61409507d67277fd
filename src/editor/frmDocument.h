// SPDX-License-Identifier: GPL-3.0-or-later
// The code window: the edit control under a row of bookmark buttons and branch label lists.
#pragma once

#include "editor/document/cDocument.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QKeyEvent;
class QPushButton;
class QToolButton;

namespace ob {

class frmDocument final : public QWidget, public cDocumentWindow {
    Q_OBJECT

public:
    explicit frmDocument(cDocument& slot, QWidget* parent = nullptr);
    ~frmDocument() override;

    // Creates the edit control and sets it up. LibraryMissing after a message to the user.
    enum class Birth { Done, LibraryMissing };
    Birth LoadControl();

    // The last step of creation, once the window is shown: caret at the start, nothing to save, focus.
    void EndLoad();

    cDocument& Document() const { return document; }

    // Called by the main window when the active child changes; the filter on the control's keys follows.
    void Activate();
    void Deactivate();

    void ShowCaption(const QString& caption) override;
    void FillLabelLists() override;
    void FillBranchBox() override;
    int WidthInPixels() const override { return width(); }

    QSize sizeHint() const override { return {640, 480}; }

Q_SIGNALS:
    // The window has closed for good; its slot is free.
    void Unloaded(ob::frmDocument* window);

    // The text had nothing to save and is changed now.
    void TextChanged(ob::frmDocument* window);

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Hook { Off, On };

    void MakeHeadRow();
    void MakeLabelControls();
    void FilterKey(const QKeyEvent& key);
    void GoToLabelOf(const QComboBox& list);
    void KeepLabel(QComboBox& list);
    void ShowLabels(const QStringList& entries, const QStringList& sorted, const QString& current);
    void FitHeadRowFont();
    QToolButton* BookmarkButtonOver(QPoint place) const;
    void cmdSort_Click();
    void HookSci(Hook enable);
    void LetGo();
    void chkWrap_Click();

    cDocument& document;
    QWidget* edit = nullptr;
    QToolButton* cmdToggle = nullptr;
    QToolButton* cmdNext = nullptr;
    QToolButton* cmdPrev = nullptr;
    QToolButton* cmdClear = nullptr;
    QComboBox* cboLabels = nullptr;
    QComboBox* cboSorted = nullptr;
    QPushButton* cmdBranch = nullptr;
    QPushButton* cmdSort = nullptr;
    QCheckBox* chkWrap = nullptr;
    QString shownLabel; // the one shown last, which may have left the text
    Hook hook = Hook::Off;
    bool returnPressed = false;
};

// The document of the widget, or null when the widget is no code window.
cDocument* DocumentOf(QWidget* widget);

} // namespace ob
