// SPDX-License-Identifier: GPL-3.0-or-later
// Answers the program's boxes from a script. A box that is not in the script fails the test, and so does a scripted box
// that never came.
#pragma once

#include "platform/dialogs/modDialogs.h"

#include <QList>

namespace ob {

class ScriptedDialogs final : public cDialogs {
public:
    ScriptedDialogs();
    ~ScriptedDialogs() override;

    void ExpectMessage(const QString& text, BoxAnswer answer = BoxAnswer::Ok, BoxIcon icon = BoxIcon::Critical,
                       BoxButtons buttons = BoxButtons::Ok, const QString& title = {});
    void ExpectQuestion(const QString& text, BoxAnswer answer);
    void ExpectInput(const InputSpec& spec, const std::optional<QString>& answer);
    // The position of the chosen filter is returned to a caller that requests it.
    void ExpectFile(FilePurpose purpose, const QString& title, const QString& filter, const QString& answer,
                    int filterIndex = 0);

    // A box for several files; ExpectFile does for one.
    void ExpectFiles(const QString& title, const QString& filter, const QStringList& answer);

    void ExpectFolder(const QString& title, const QString& answer);
    void ExpectColor(const QString& title, std::uint32_t start, std::optional<std::uint32_t> answer);
    void ExpectFont(const FontSpec& start, const std::optional<FontSpec>& answer);

    // What the last file box was asked for.
    const FileSpec& LastFile() const { return lastFile; }

    // Whether the whole script has been played; writes the rest of it to the test's log.
    bool Finished() const;

    BoxAnswer Message(const MessageSpec& spec) override;
    std::optional<QString> Input(const InputSpec& spec) override;
    QString File(const FileSpec& spec) override;
    QStringList Files(const FileSpec& spec) override;
    QString Folder(const FolderSpec& spec) override;
    std::optional<std::uint32_t> Color(const ColorSpec& spec) override;
    std::optional<FontSpec> Font(const FontSpec& start) override;

private:
    struct Step {
        QString description; // everything that the box shows, on one line
        BoxAnswer answer = BoxAnswer::Ok;
        std::optional<QString> text;
        std::optional<std::uint32_t> color;
        std::optional<FontSpec> font;
        int filterIndex = 0;
        QStringList files = {}; // of a box for several
    };

    static QString Describe(const MessageSpec& spec);
    static QString Describe(const InputSpec& spec);
    static QString Describe(const ColorSpec& spec);
    static QString Describe(const FontSpec& font);
    static QString Describe(FilePurpose purpose, const QString& title, const QString& filter);
    std::optional<Step> Next(const QString& shown);

    QList<Step> steps;
    FileSpec lastFile;
    cDialogs* before = nullptr;
};

} // namespace ob
