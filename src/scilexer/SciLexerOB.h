// SPDX-License-Identifier: GPL-3.0-or-later
// The edit control: Scintilla, which requests styles when it needs them and gets them from the language's lexer.
#pragma once

#include "scilexer/QsciBase.h"
#include "scilexer/SciLongLines.h"
#include "scilexer/SciOwnParts.h"
#include "scilexer/SciUndoSteps.h"
#include "scilexer/modLexer.h"
#include "scilexer/modSci.h"
#include "scilexer/modTextOffsets.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace ob {

class cSciLexerOB final : public QsciScintillaBase, public cSciControl {
public:
    explicit cSciLexerOB(QWidget* parent);

    std::intptr_t Send(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) override;

    TextOffsets& Offsets() { return offsets; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    using Position = std::intptr_t; // bytes
    using DirectFunction = std::intptr_t (*)(std::intptr_t, unsigned, std::uintptr_t, std::intptr_t);

    enum class Lexer { None, Language };
    enum class Folding { Off, On };
    enum class Agreement { No, Yes };
    enum class Change { Insertion, Deletion };

    // The lexer's position: everything before `position` is done.
    struct Place {
        Position position = 0;
        std::intptr_t line = 0;
        int state = 0;
    };

    std::intptr_t Direct(unsigned message, std::uintptr_t wParam = 0, std::intptr_t lParam = 0) const
    {
        return directFunction(directPointer, message, wParam, lParam);
    }
    std::intptr_t LineAt(Position position) const;
    Position StartOf(std::intptr_t line) const;
    std::string_view Bytes(Position from, Position to) const;

    std::intptr_t FormatPage(std::uintptr_t draw, std::intptr_t record);

    void ChooseLexer(std::uintptr_t number);
    void UpdateFolding();
    void Restyle();
    void Forget(Position from);
    void NoteChange(Change change, Position position, Position length);

    void StyleTo(Position needed);
    Agreement StyleFromEnd(Position needed);
    void NoteStop(Position position);
    Position BlockEnd(const Place& from, Position needed) const;
    Agreement StyleBlock(Place& place, Position end);
    bool PassLongLine(Place& place);
    LexedLine StyleLine(const Place& place, std::string_view text, unsigned char* lineStyles);
    bool IsUnchanged(Position lineStart) const { return lineStart > changedEnd && lineStart < styledEnd; }

    void NoteTyping(const QString& text);

    void WatchLongInsertion(Position length);
    void FollowCaret();

    void ShowBraces();
    bool ShowBraceAt(Position position);

    void NoteForAssistants(Change change, Position position, Position length);
    void ReportToAssistants();

    DirectFunction directFunction = nullptr;
    std::intptr_t directPointer = 0;

    Lexer lexer = Lexer::None;
    Folding folding = Folding::Off;
    SciUndoSteps undoSteps;
    KeywordSet keywords;
    std::vector<unsigned char> styles;
    std::intptr_t lexedLines = 0;

    // Scintilla resets its own mark of the styled end at each change. The styles beyond it are still valid from the
    // first line that begins after `changedEnd` and whose state comes out unchanged: up to `brokenAt`, where lines
    // begin that were styled for a state other than the one the previous line now leaves; or, for a line at or after
    // `brokenAt`, up to `styledEnd`.
    Position changedEnd = -1;
    Position brokenAt = 0;
    Position styledEnd = 0;

    bool hasBraces = false;

    // For assistive tools: the last change, while it has not been reported, and the caret and selection reported last.
    struct PendingChange {
        Change change = Change::Insertion;
        Position position = 0;
        Position length = 0;
        QString removed;
    };
    struct Reported {
        int caret = 0;
        int selectionStart = 0;
        int selectionEnd = 0;
    };
    TextOffsets offsets;
    SciOwnParts ownParts;
    SciLongLines longLines;
    bool isFollowing = false; // the caret in a long line, as soon as no paint is under way
    std::optional<PendingChange> pending;
    Reported reported;
};

} // namespace ob
