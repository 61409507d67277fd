// SPDX-License-Identifier: GPL-3.0-or-later
// A bench for the makers of code: their windows by the menu, their controls by name, and the clipboard.
#pragma once

#include "codetools/MakerFiles.h"
#include "platform/desktop/modClipboard.h"
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace ob {

template <class Control>
Control* Find(const QWidget& window, const char* name)
{
    auto* control = window.findChild<Control*>(QString::fromLatin1(name));
    if (control == nullptr)
        qFatal("no such control: %s", name);
    return control;
}

// A press of the mouse on a button, or on the mark of an option or a check box.
inline void Press(const QWidget& window, const char* name)
{
    auto* button = Find<QAbstractButton>(window, name);
    const int half = button->height() / 2;
    QTest::mouseClick(button, Qt::LeftButton, {}, button->isCheckable() ? QPoint(half, half) : QPoint());
}

// Types over what stands in the field.
inline void Fill(const QWidget& window, const char* name, const QString& text)
{
    auto* field = Find<QLineEdit>(window, name);
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, text);
}

inline QString Previewed(const QWidget& window)
{
    return Find<QPlainTextEdit>(window, "codePreview")->toPlainText();
}

// A program text as a text field holds it.
inline QString WithLineFeeds(QString text)
{
    return text.remove(QLatin1Char('\r'));
}

inline QString OnClipboard()
{
    return QApplication::clipboard()->text();
}

// While it lives another program holds the clipboard, which keeps what it held.
struct TakenClipboard {
    TakenClipboard()
    {
        SetClipboardWriter([](const QString&) { return false; });
    }
    ~TakenClipboard() { SetClipboardWriter({}); }
    TakenClipboard(const TakenClipboard&) = delete;
    TakenClipboard& operator=(const TakenClipboard&) = delete;
};

// Controls that the Tab key goes through, by name, from the first one on until it comes round.
inline QStringList TabOrder(QWidget& window, const char* first)
{
    QStringList names;
    for (QWidget* at = Find<QWidget>(window, first); names.isEmpty() || at->objectName() != names.first();
         at = window.focusWidget()) {
        at->setFocus(Qt::TabFocusReason);
        names.append(at->objectName());
        if (names.size() > 40)
            break;
        QTest::keyClick(at, Qt::Key_Tab);
    }
    return names;
}

// The open window of a kind; null when there is none.
template <class Window>
Window* OpenWindow()
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* found = qobject_cast<Window*>(window); found != nullptr && found->isVisible())
            return found;
    return nullptr;
}

} // namespace ob
