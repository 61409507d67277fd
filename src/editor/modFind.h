// SPDX-License-Identifier: GPL-3.0-or-later
// Find and replace in the active code window, and the search under them.
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

// What to look for: UTF-8, FindFlag bits, and where each search of a series begins: at the start of the text, or one
// character behind the caret.
struct Search {
    QByteArray text;
    int flags = 0;
    SearchStart start = SearchStart::Caret;
};

// Positions in the control, in bytes; the end is behind the last one.
struct TextRange {
    std::intptr_t start = 0;
    std::intptr_t end = 0;
};

// The first match that starts at `from` or behind it. Without the flag for case, characters of every script match
// their capitals, so a match may have another length than the text. Nothing for an empty text and a null control.
std::optional<TextRange> SearchFrom(Sci sci, const Search& search, std::intptr_t from);

// How a window goes along with a long replacement: made before the first round, asked once a round, gone at the end.
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

// Replaces match after match without asking, as one step that can be undone; the caret goes to the start. After a
// match the next search begins two characters behind its start, or at the start of the text. A replacement that holds
// the text may never end by itself: the watch, which may be null, stops it. Throws std::bad_alloc when the control
// cannot hold more.
ReplaceResult ReplaceUnasked(Sci sci, const Search& search, const QByteArray& replacement, cReplaceWatch* watch);

// The last search, for the whole bench: its text, its flags and place, and where it found something (-1: nowhere).
struct FindState {
    QString LastFind;
    int FindFlags = 0;
    std::intptr_t FoundPos = -1;
    bool FindFromStart = false; // from the start of the text, not from the caret
};
FindState& Finding();

// The four routines search with the state's flags and place, and leave their result there. They show a message when
// nothing is found. Texts must not be empty.

// The next match is selected, the caret after it; the text becomes the last one. After a failure the caret is at the
// character whose number is one less than the text's length.
void FindText(const cDocument& document, const QString& text);

// The next match after the caret is selected, the caret before it; after a failure the first character.
void FindAgain(const cDocument& document, const QString& text);

// Replaces the selection, and then asks at every match after it.
void ReplaceText(const cDocument& document, const QString& find, const QString& replace);

// Asks whether to ask at every match, replaces, and shows how many. One step that can be undone.
void ReplaceAllText(const cDocument& document, const QString& find, const QString& replace,
                    const MakeReplaceWatch& makeWatch = {});

// So that "replace all" begins with the selected text: the caret goes before it, unless it starts in the first bytes.
void GoBeforeSelection(const cDocument& document);

// The document's selection, or else the last text; it becomes the last text. The document may be null.
QString TakeFindText(const cDocument* document);

enum class Fields { Filled, Empty };

// Tells the user of each field that is empty.
Fields CheckFindField(const QString& find);
Fields CheckReplaceFields(const QString& find, const QString& replace);

// Where a window of that frame goes, on that screen, so that it does not cover the place; all in the same pixels. It
// moves as little as it can, and not at all when nothing helps.
QPoint PlaceBeside(const QRect& frame, const QRect& place, const QRect& screen);

void mnuEditFindAgain_Click();

} // namespace ob
