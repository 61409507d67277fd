// SPDX-License-Identifier: GPL-3.0-or-later
// The packaging wizard over an invented engine's folder, and its controls.
#pragma once

#include "engine/package/PackageBench.h"
#include "support/TestBench.h"

#include "shell/state/Module1.h"

#include <QDialog>
#include <QListWidget>
#include <QPushButton>

namespace ob {

inline const QString TokenFilter = QStringLiteral("Orchard BASIC TKN (*.tkn)|*.tkn");

template <class Control>
Control* Find(const QWidget& window, const char* name)
{
    return window.findChild<Control*>(QString::fromLatin1(name));
}

inline QPushButton* Button(const QDialog& dialog, const char* name)
{
    return Find<QPushButton>(dialog, name);
}

// The lines of the package's list.
inline QStringList Lines(const QDialog& dialog)
{
    QStringList lines;
    const auto* list = Find<QListWidget>(dialog, "TEMPList");
    for (int row = 0; row < list->count(); ++row)
        lines.append(list->item(row)->text());
    return lines;
}

inline void ChooseLines(const QDialog& dialog, const QList<int>& rows)
{
    auto* list = Find<QListWidget>(dialog, "TEMPList");
    list->clearSelection();
    for (const int row : rows)
        list->item(row)->setSelected(true);
}

// Selects the token in the menu's box, and runs the script in the wizard.
inline void WithWizard(TestBench& bench, const PackageBench& files, const std::function<void(QDialog&)>& script)
{
    bench.Start();
    OBPath = files.At("engine/orchard.exe");
    bench.dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Choose TKN"), TokenFilter, files.Token());
    bench.ExpectModal(QStringLiteral("frmPackage"), [&script](QDialog& dialog) {
        script(dialog);
        dialog.reject();
    });
    bench.Choose(QStringLiteral("mnuPackage"));
    QVERIFY(bench.dialogs.Finished());
}

} // namespace ob
