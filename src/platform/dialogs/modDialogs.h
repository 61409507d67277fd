// SPDX-License-Identifier: GPL-3.0-or-later
// Every modal box of the program: message, input and file boxes, behind a seam that tests and obtool replace.
#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <optional>

namespace ob {

class NumberedError;
class RuntimeError;

enum class BoxIcon { None, Critical, Question, Exclamation, Information };
enum class BoxButtons { Ok, OkCancel, YesNo, YesNoCancel, RetryCancel, AbortRetryIgnore };
enum class BoxAnswer { Ok, Cancel, Yes, No, Abort, Retry, Ignore };
enum class FilePurpose { Open, Save };

struct MessageSpec {
    QString text;
    BoxIcon icon = BoxIcon::None;
    BoxButtons buttons = BoxButtons::Ok;
    QString title;       // empty: the program's name
    QString reason = {}; // what the status bar shows while and after the box is there; empty: as it is

    // Paths in the text: a line may end after one of their separators, but not within a name.
    QStringList paths = {};
};

struct InputSpec {
    QString prompt;
    QString title;
    QString initial;
};

struct FileSpec {
    FilePurpose purpose = FilePurpose::Open;
    QString title;
    QString folder; // where the dialog starts; empty: the current directory
    QString name;   // the initial name in the field
    QString filter; // "Words|*.bas;*.bak|Other words|*.*": pairs of text and patterns

    QString extension = {}; // "bmp": added on saving to a name without one

    // If not null: the index of the initial filter and, afterwards, of the chosen one, from 0.
    int* filterIndex = nullptr;
};

struct ColorSpec {
    QString title;
    std::uint32_t start = 0; // red in the low byte, like the answer
};

// Whether the font box lets the user choose among a family's styles; not where they would be ignored.
enum class FontStyles { Offered, Ignored };

// A font as passed to and returned by the font box; the size is in points.
struct FontSpec {
    QString name;
    int size = 10;
    bool bold = false;
    bool italic = false;
    FontStyles styles = FontStyles::Offered;
};

struct FolderSpec {
    QString title;
    QString start;
};

// The boxes themselves. The file and folder boxes return an empty string when nothing was chosen.
class cDialogs {
public:
    cDialogs() = default;
    cDialogs(const cDialogs&) = delete;
    cDialogs& operator=(const cDialogs&) = delete;
    virtual ~cDialogs() = default;

    virtual BoxAnswer Message(const MessageSpec& spec) = 0;
    virtual std::optional<QString> Input(const InputSpec& spec) = 0;
    virtual QString File(const FileSpec& spec) = 0;
    virtual QStringList Files(const FileSpec& spec); // several at once, where a box can; else the one of File
    virtual QString Folder(const FolderSpec& spec) = 0;
    virtual std::optional<std::uint32_t> Color(const ColorSpec& spec) = 0;
    virtual std::optional<FontSpec> Font(const FontSpec& start) = 0;
};

// Sets the boxes of this process; the owner keeps them alive. Returns the previous ones.
cDialogs* SetDialogs(cDialogs* dialogs);

BoxAnswer MsgBox(const QString& text, BoxIcon icon = BoxIcon::None, BoxButtons buttons = BoxButtons::Ok,
                 const QString& title = {});
BoxAnswer MsgBox(const MessageSpec& spec);

// A box whose words are fixed, about a failed piece of work; the error's reason goes to the status bar.
void FailureBox(const QString& text, const RuntimeError& error, const QString& title = {});

std::optional<QString> InputBox(const QString& prompt, const QString& title, const QString& initial);
QString FileBox(const FileSpec& spec);

// A file box that takes several files. Empty: nothing chosen.
QStringList FilesBox(const FileSpec& spec);

// A file box titled "Open File..." for files that exist. Empty: nothing chosen.
QString OpenFileDialog(const QString& filter, const QString& folder);

QString FolderBox(const QString& title, const QString& start);
std::optional<std::uint32_t> ColorBox(const QString& title, std::uint32_t start);
std::optional<FontSpec> FontBox(const FontSpec& start);

// Splits "Words|*.bas;*.bak|More|*.*" into a text and its patterns for each pair; "*.*" becomes "*".
struct FileFilter {
    QString label;
    QStringList patterns;
};
QList<FileFilter> FileFiltersOf(const QString& filter);

// Where the reasons of failures are shown, the status bar's first panel; an empty function for nowhere, as in obtool.
void SetReasonSink(std::function<void(const QString&)> sink);

// The error's reason without a box; nothing for an error that has none.
void ShowReason(const RuntimeError& error);

// "Run-time error 'N':", a line break and the description, with the stop icon; the reason goes to the status bar.
void ShowRuntimeError(const NumberedError& error);

// Called while an exception is handled: shows that one. A runtime error is shown as above, want of memory as the
// runtime's error 7, any other with its reason.
void ShowCaughtError();

enum class CommandEnd { Finished, Failed };

// Runs a command to its end. An exception that nobody caught ends the command and is shown; the program goes on.
CommandEnd RunCommand(const std::function<void()>& command);

} // namespace ob
