// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of the form builder's commands share: a form that the user changed, and the boxes about it.
#pragma once

#include "core/CoreBench.h"
#include "guibuilder/modGuiCommands.h"

namespace ob {

inline QStringList Log(std::initializer_list<const char*> lines)
{
    QStringList log;
    for (const char* line : lines)
        log.append(QString::fromLatin1(line));
    return log;
}

// The form window left open after a user's change.
inline void OpenModifiedForm(CoreBench& bench)
{
    bench.form.ShowGui();
    GuiDesign().form.caption = QStringLiteral("Drawn");
    GuiDesign().GuiFormModified = true;
    bench.form.log.clear();
}

// The question of a modified form that is about to close, and the box for its file.
inline void ExpectCloseQuestion(CoreBench& bench, BoxAnswer answer)
{
    bench.dialogs.ExpectMessage(QStringLiteral("Save gui form before closing?"), answer, BoxIcon::Question,
                                BoxButtons::YesNoCancel);
}

inline void ExpectSaveBox(CoreBench& bench, const QString& chosen)
{
    bench.dialogs.ExpectFile(FilePurpose::Save, QStringLiteral("Save Gui Form As"),
                             QStringLiteral("Gui Form (*.obf)|*.obf"), chosen);
}

} // namespace ob
