// SPDX-License-Identifier: GPL-3.0-or-later
// The main window without a window: records the requests of commands and gives documents a control.
#pragma once

#include "core/FakeSci.h"
#include "editor/document/cDocument.h"
#include "guibuilder/cGuiWindow.h"
#include "guibuilder/modGuiCommands.h"
#include "shell/state/cMainForm.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace ob {

class FakeMainForm final : public cMainForm, public cGuiWindow {
public:
    FakeMainForm() { GuiWindow = this; }
    ~FakeMainForm() override { GuiWindow = nullptr; }

    ActiveChild ActiveKind() const override { return kind; }
    cDocument* ActiveDocument() const override { return kind == ActiveChild::Code ? active : nullptr; }

    void ShowDocument(cDocument& document) override
    {
        log.append(QStringLiteral("show %1").arg(document.number));
        kind = ActiveChild::Code;
        active = &document;
        if (document.sci != nullptr || !hasEditLibrary)
            return;
        controls.push_back(std::make_unique<FakeSci>());
        document.sci = controls.back().get();
    }

    void UnloadDocument(cDocument& document) override
    {
        log.append(QStringLiteral("unload %1").arg(document.number));
        document.sci = nullptr;
        document.Tag = TagClosed;
        kind = ActiveChild::None;
        active = nullptr;
    }

    void SetStatusPanel(const QString& text) override { status = text; }

    void EnableItem(const QString& name, bool enable) override
    {
        log.append((enable ? QStringLiteral("enable ") : QStringLiteral("disable ")) + name);
    }

    void ChooseItem(const QString& name) override { log.append(QStringLiteral("choose ") + name); }
    bool HasShortcut(const QKeyEvent&) const override { return false; }

    // The items of the recent list are "mnuFileMRU1" to "mnuFileMRU8".
    void SetItemCaption(const QString& name, const QString& caption) override { captions[PlaceOf(name)] = caption; }
    void ShowItem(const QString& name) override { shownItems[PlaceOf(name)] = true; }

    void EnableButton(const QString& name, bool enable) override
    {
        log.append((enable ? QStringLiteral("enable button ") : QStringLiteral("disable button ")) + name);
    }

    void EnableCodeTools(bool enable) override
    {
        log.append(enable ? QStringLiteral("enable code tools") : QStringLiteral("disable code tools"));
    }

    bool UnloadGui() override
    {
        if (!GuiDesign().GuiFormOpen)
            return true;
        if (QueryGuiUnload() == UnloadAnswer::Stay)
            return false;
        log.append(QStringLiteral("unload gui"));
        GuiFormUnloaded();
        kind = ActiveChild::None;
        return true;
    }

    void ShowGui() override
    {
        log.append(QStringLiteral("show gui"));
        kind = ActiveChild::Gui;
        GuiFormLoaded();
    }

    void RefreshGui() override { log.append(QStringLiteral("refresh gui")); }
    void SettleGui(GuiSteps) override {}
    void ShowGuiDefaults() override { log.append(QStringLiteral("gui defaults")); }

    void EnableGuiTool(const QString& name, bool enable) override
    {
        log.append((enable ? QStringLiteral("enable tool ") : QStringLiteral("disable tool ")) + name);
    }
    void SendToBack() override { log.append(QStringLiteral("back")); }
    void Unload() override { log.append(QStringLiteral("unload frame")); }

    // The control of a document that has one.
    static FakeSci& Control(const cDocument& document) { return *static_cast<FakeSci*>(document.sci); }
    FakeSci& ActiveControl() const { return Control(*active); }

    // The numbers of the visible recent items.
    QList<int> ShownItems() const
    {
        QList<int> numbers;
        for (std::size_t i = 0; i < shownItems.size(); ++i)
            if (shownItems[i])
                numbers.append(static_cast<int>(i) + 1);
        return numbers;
    }

    ActiveChild kind = ActiveChild::None;
    cDocument* active = nullptr;
    bool hasEditLibrary = true;
    QString status;
    QStringList log;
    std::array<QString, 8> captions;
    std::array<bool, 8> shownItems = {};

private:
    static std::size_t PlaceOf(const QString& name)
    {
        return name.mid(QStringLiteral("mnuFileMRU").size()).toUInt() - 1;
    }

    std::vector<std::unique_ptr<FakeSci>> controls;
};

} // namespace ob
