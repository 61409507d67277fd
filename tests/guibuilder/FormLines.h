// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of forms share: forms from lines, lines from forms.
#pragma once

#include "guibuilder/modCompleted.h"
#include "guibuilder/modFormFile.h"
#include "platform/language/modAnsi.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QTest>

namespace ob {

inline QByteArray Joined(const QByteArrayList& lines)
{
    QByteArray text;
    for (const QByteArray& line : lines)
        text += line + "\r\n";
    return text;
}

inline constexpr char FreshDefaults[] = "defaults|Black|Buttonface|White|White|White|White|False|False|False|-1|True";
inline constexpr char FreshWindow[] =
    "Window|Window Title| 1200| 900| 8250| 6000|main|-2147483633|ms sans serif *10|False|-1|True";

// A file of the given lines after those of a fresh form, as the bench writes it.
inline QByteArray Fresh(const QByteArrayList& lines)
{
    return Joined(QByteArrayList{FreshDefaults, FreshWindow} + lines + QByteArrayList{""});
}

// The form that a file holds; a file that cannot be read fails the test.
inline GuiForm FormOf(const QByteArray& file)
{
    GuiForm form;
    if (ReadForm(file, form) != FormLoad::Loaded)
        QTest::qFail("the test's own form cannot be read", __FILE__, __LINE__);
    return form;
}

// A fresh form with controls of one kind, placed but not yet named.
inline GuiForm FormWith(ControlKind kind, int count = 1)
{
    GuiForm form;
    for (int number = 0; number < count; ++number)
        form.At(AddControl(form, kind)).visible = true;
    return form;
}

// The text of a form's file. What the save fills in stays in the form, as it does in the bench.
inline QString SavedText(GuiForm& form)
{
    form = Completed(std::move(form), CompletedFor::File);
    return WriteForm(form);
}

// The file that a form would be saved as; the form itself does not change.
inline QByteArray FileOf(GuiForm form)
{
    return AnsiFromText(SavedText(form)).bytes;
}

} // namespace ob
