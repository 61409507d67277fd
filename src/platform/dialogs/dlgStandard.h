// SPDX-License-Identifier: GPL-3.0-or-later
// The toolkit's own message, input and file boxes.
#pragma once

#include "platform/dialogs/modDialogs.h"

class QWidget;

namespace ob {

class dlgStandard final : public cDialogs {
public:
    BoxAnswer Message(const MessageSpec& spec) override;
    std::optional<QString> Input(const InputSpec& spec) override;
    QString File(const FileSpec& spec) override;
    QStringList Files(const FileSpec& spec) override;
    QString Folder(const FolderSpec& spec) override;
    std::optional<std::uint32_t> Color(const ColorSpec& spec) override;
    std::optional<FontSpec> Font(const FontSpec& start) override;
};

} // namespace ob
