// SPDX-License-Identifier: GPL-3.0-or-later
// The slot of a code window: what outlives the window, and the window's interface while there is one.
#pragma once

#include "scilexer/modSci.h"

#include <QString>

#include <memory>
#include <vector>

namespace ob {

// What other routines require of a code window.
class cDocumentWindow {
public:
    cDocumentWindow() = default;
    cDocumentWindow(const cDocumentWindow&) = delete;
    cDocumentWindow& operator=(const cDocumentWindow&) = delete;

    virtual void ShowCaption(const QString& caption) = 0;

    // Rebuilds the label lists; FillBranchBox also moves the caret to the start of the selection.
    virtual void FillLabelLists() = 0;
    virtual void FillBranchBox() = 0;

    virtual int WidthInPixels() const = 0;

protected:
    ~cDocumentWindow() = default;
};

// Tag is "Open" while the slot is in use, "Closed" once its window has been unloaded, empty in a new slot and after a
// save. The caption is the only record of the file's name. sci is null while there is no window.
class cDocument {
public:
    explicit cDocument(int slotNumber) : number(slotNumber) {}
    cDocument(const cDocument&) = delete;
    cDocument& operator=(const cDocument&) = delete;

    const QString& Caption() const { return caption; }

    void SetCaption(const QString& text)
    {
        caption = text;
        if (window != nullptr)
            window->ShowCaption(text);
    }

    const int number; // the slot's number, from 1
    QString Tag;
    Sci sci = nullptr;
    cDocumentWindow* window = nullptr;
    bool SyntaxTipShown = false; // and no scroll has hidden it since

private:
    QString caption;
};

// The slots, from 1 (slot 0 is never used). The list never shrinks.
inline std::vector<std::unique_ptr<cDocument>> Documents;

inline const QString TagOpen = QStringLiteral("Open");
inline const QString TagClosed = QStringLiteral("Closed");

} // namespace ob
