// SPDX-License-Identifier: GPL-3.0-or-later
// Test support for the code makers: their windows from the menu, their controls by name, and the clipboard.
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

// Clicks a button, or the indicator of an option or a check box.
inline void Press(const QWidget& window, const char* name)
{
    auto* button = Find<QAbstractButton>(window, name);
    const int half = button->height() / 2;
    QTest::mouseClick(button, Qt::LeftButton, {}, button->isCheckable() ? QPoint(half, half) : QPoint());
}

// Replaces the contents of the field by typing.
inline void Fill(const QWidget& window, const char* name, const QString& text)
{
    auto* field = Find<QLineEdit>(window, name);
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, text);
}

// Puts the text on the clipboard and pastes it at the end of the field.
inline void Paste(const QWidget& window, const char* name, const QString& text)
{
    auto* field = Find<QLineEdit>(window, name);
    QApplication::clipboard()->setText(text);
    field->end(false);
    QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
}

inline QString Previewed(const QWidget& window)
{
    return Find<QPlainTextEdit>(window, "codePreview")->toPlainText();
}

// A program text as a text field returns it.
inline QString WithLineFeeds(QString text)
{
    return text.remove(QLatin1Char('\r'));
}

inline QString OnClipboard()
{
    return QApplication::clipboard()->text();
}

// During its lifetime another program owns the clipboard, whose contents stay.
struct TakenClipboard {
    TakenClipboard()
    {
        SetClipboardWriter([](const QString&) { return false; });
    }
    ~TakenClipboard() { SetClipboardWriter({}); }
    TakenClipboard(const TakenClipboard&) = delete;
    TakenClipboard& operator=(const TakenClipboard&) = delete;
};

// The names of the controls in tab order, from the first one until it wraps around.
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
