// SPDX-License-Identifier: GPL-3.0-or-later
// Find and replace in the active code window, and the underlying search.
#pragma once

#include "scilexer/modSci.h"

#include <QByteArray>
#include <QPoint>
#include <QRect>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace ob {

class cDocument;

// The bits of FindFlags, by the control's numbers.
enum FindFlag : int { FindWholeWord = 2, FindMatchCase = 4 };

enum class SearchStart { Text, Caret };

// What to search for: UTF-8, FindFlag bits, and where each search of a series begins: at the start of the text, or one
// character after the caret.
struct Search {
    QByteArray text;
    int flags = 0;
    SearchStart start = SearchStart::Caret;
};

// Positions in the control, in bytes; the end is exclusive.
struct TextRange {
    std::intptr_t start = 0;
    std::intptr_t end = 0;
};

// The first match that starts at or after `from`. When case is ignored, so is that of characters of every script, so
// that a match may differ in length from the text. Nothing for an empty text or a null control.
std::optional<TextRange> SearchFrom(Sci sci, const Search& search, std::intptr_t from);

// How a window accompanies a long replacement: created before the first round, called once per round, destroyed at the
// end.
enum class RoundEnd { GoOn, Stop };
class cReplaceWatch {
public:
    cReplaceWatch() = default;
    cReplaceWatch(const cReplaceWatch&) = delete;
    cReplaceWatch& operator=(const cReplaceWatch&) = delete;
    virtual ~cReplaceWatch() = default;

    virtual RoundEnd Round(std::int64_t replacements) = 0;
};
using MakeReplaceWatch = std::function<std::unique_ptr<cReplaceWatch>()>;

enum class ReplaceEnd { NoMoreMatches, Cancelled };
struct ReplaceResult {
    ReplaceEnd end = ReplaceEnd::NoMoreMatches;
    std::int64_t count = 0;
    std::intptr_t lastMatch = -1; // -1 when the last search found nothing
};

// Replaces match after match without asking, as a single undo step; the caret goes to the start. After a match, the
// next search begins two characters after its start, or at the start of the text. A replacement that contains the text
// may never end by itself: the watch, which may be null, stops it. Throws std::bad_alloc when the control cannot hold
// more.
ReplaceResult ReplaceUnasked(Sci sci, const Search& search, const QByteArray& replacement, cReplaceWatch* watch);

// The last search of the whole program: its text, its flags and origin, and where it found something (-1: nowhere).
struct FindState {
    QString LastFind;
    int FindFlags = 0;
    std::intptr_t FoundPos = -1;
    bool FindFromStart = false; // from the start of the text instead of the caret
};
FindState& Finding();

// The four routines search with the flags and the origin of the state, and store their result there. They show a
// message when nothing is found. Texts must not be empty.

// Selects the next match, with the caret after it; the text becomes the last one. When nothing is found the caret goes
// to the character whose number is one less than the text's length.
void FindText(const cDocument& document, const QString& text);

// Selects the next match after the caret, with the caret before it; when nothing is found, the first character.
void FindAgain(const cDocument& document, const QString& text);

// Replaces the selection, and then asks at every match after it.
void ReplaceText(const cDocument& document, const QString& find, const QString& replace);

// Asks whether to confirm each match, replaces, and reports the count. A single undo step.
void ReplaceAllText(const cDocument& document, const QString& find, const QString& replace,
                    const MakeReplaceWatch& makeWatch = {});

// Makes "replace all" begin with the selected text: moves the caret before it, unless it starts in the first bytes.
void GoBeforeSelection(const cDocument& document);

// The document's selection, or else the last text; it becomes the last text. The document may be null.
QString TakeFindText(const cDocument* document);

enum class Fields { Filled, Empty };

// Shows a message for each field that is empty.
Fields CheckFindField(const QString& find);
Fields CheckReplaceFields(const QString& find, const QString& replace);

// Where to move a window with that frame on that screen so that it does not cover the place; all in the same pixels.
// The window moves as little as possible, and not at all when nothing helps.
QPoint PlaceBeside(const QRect& frame, const QRect& place, const QRect& screen);

void mnuEditFindAgain_Click();

} // namespace ob
