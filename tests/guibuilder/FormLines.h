// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of forms share: forms from lines, lines from forms.
#pragma once

#include "guibuilder/modFormFile.h"
#include "platform/modAnsi.h"

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

// The form that a file holds; a file that cannot be read fails the test.
inline GuiForm FormOf(const QByteArray& file)
{
    GuiForm form;
    if (ReadForm(file, form) != FormLoad::Loaded)
        QTest::qFail("the test's own form cannot be read", __FILE__, __LINE__);
    return form;
}

// The file that a form would be saved as; the form itself is not touched.
inline QByteArray FileOf(GuiForm form)
{
    return AnsiFromText(WriteForm(form)).bytes;
}

} // namespace ob
