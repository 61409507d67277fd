// SPDX-License-Identifier: GPL-3.0-or-later
// The main window: menu, toolbar, status bar, and the area of the code windows.
#pragma once

#include "guibuilder/cGuiWindow.h"
#include "shell/bench/frmMainToolbar.h"
#include "shell/state/cMainForm.h"

#include <QHash>
#include <QMainWindow>
#include <QRect>
#include <QSet>

#include <memory>
#include <optional>

class QKeyEvent;
class QMdiArea;
class QMdiSubWindow;
class QToolBar;

namespace ob {

class cDesigner;
class frmDocument;
class frmGui;
class frmPalette;
class frmRemarks;
class frmStartPage;
class frmStatusBar;

// How the window comes up.
enum class StartState { Normal, Maximized };

class frmMain final : public QMainWindow, public cMainForm, public cGuiWindow {
    Q_OBJECT

public:
    frmMain();
    ~frmMain() override;

    // The main window; null while there is none.
    static frmMain* Instance();

    // The size in pixels at the first start, where nothing maximizes windows, and of a picture.
    static constexpr QSize FirstSize{1280, 800};

    // Everything between creating and showing the window: settings, recent files, the first code window. With a size
    // it opens in that one, otherwise as it was closed, and maximized before anything was ever stored.
    void Load(std::optional<QSize> size = {});

    ActiveChild ActiveKind() const override;
    cDocument* ActiveDocument() const override;
    void ShowDocument(cDocument& document) override;
    void UnloadDocument(cDocument& document) override;
    void SetStatusPanel(const QString& text) override;
    void EnableItem(const QString& name, bool enable) override;
    void ChooseItem(const QString& name) override;
    bool HasShortcut(const QKeyEvent& key) const override;
    void SetItemCaption(const QString& name, const QString& caption) override;
    void ShowItem(const QString& name) override;
    void EnableButton(const QString& name, bool enable) override;
    void EnableCodeTools(bool enable) override;
    bool UnloadGui() override;
    void ShowGui() override;
    void RefreshGui() override;
    void SettleGui(GuiSteps steps) override;
    void ShowGuiDefaults() override;
    void ShowGuiRemarks(const std::vector<FormRemark>& remarks) override;
    void EnableGuiTool(const QString& name, bool enable) override;
    void SendToBack() override;
    void Unload() override;

    // The menu item with that name; null for an unknown one.
    QAction* Item(const QString& name) const { return items.value(name); }

    QMdiArea& Area() { return *mdi; }

    void ShowToolbar(bool show);
    void ShowPalette(bool show);

    // The items of the toolbar's "User" button show the user applications.
    void RefreshUserButtonMenu();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeToolbar();
    void MakeCentre();
    void AskToHideToolbar();
    StartState PlaceWindow(std::optional<QSize> size);
    void StorePlace();

    // Gives file boxes their first folder and their size.
    void HostFileBoxes();
    QString ActiveFolder() const;

    frmDocument* AddWindow(cDocument& document);
    QMdiSubWindow* AddChild(QWidget& child);
    void SubWindowActivated(QMdiSubWindow* window);
    void ActivateChild(QWidget* child);
    void SetStatusOf(const QWidget* child, const QString& text);
    void ShowPassingStatus(const QString& text);
    void EndPassingStatus(const QWidget* child);
    void ForgetChild(const QWidget* child);
    QMdiSubWindow* SubWindowOf(const QWidget* child) const;

    QMdiArea* mdi = nullptr;
    frmStartPage* startPage = nullptr;
    std::optional<QRect> normalPlace; // until the window leaves the maximized state that it started in
    enum class PlaceOf { Frame, Inside } normalPlaceOf = PlaceOf::Frame;
    QToolBar* tbToolBar = nullptr;
    std::unique_ptr<cDesigner> designer; // of the form shown by gui
    frmPalette* picGui = nullptr;
    frmGui* gui = nullptr;            // the form window, while there is one
    frmRemarks* guiRemarks = nullptr; // on the form; made for the first ones
    frmStatusBar* sbStatusBar = nullptr;
    QHash<QString, QAction*> items;
    ToolbarParts toolbar;
    QWidget* activeChild = nullptr;
    QSet<const QWidget*> passingStatus; // children whose text goes with their next change, or when they are left
    QHash<const QWidget*, QString> statusTexts; // the last one of each child, and of the frame without one
};

void mnuOptionsToolbar_Click();
void mnuViewGuiBar_Click();
void mnuHelpContents_Click();

} // namespace ob
