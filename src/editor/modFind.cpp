// SPDX-License-Identifier: GPL-3.0-or-later
// Find and replace in the active code window.
#include "editor/modFind.h"

#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "editor/modTextSearch.h"
#include "platform/dialogs/modDialogs.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <new>

using namespace Qt::StringLiterals;

namespace ob {

FindState& Finding()
{
    static FindState state;
    return state;
}

namespace {

using Position = std::intptr_t; // bytes

bool BeginsCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

Position CharacterCount(QByteArrayView text)
{
    return std::count_if(text.begin(), text.end(), BeginsCharacter);
}

// The position after that many characters, or the end of a shorter text.
Position PositionOfCharacter(std::string_view text, Position number)
{
    std::size_t position = 0;
    while (position < text.size() && (!BeginsCharacter(text[position]) || number-- > 0))
        ++position;
    return static_cast<Position>(position);
}

// Status values of the control from here on are warnings.
constexpr std::intptr_t FirstWarning = 1000;

constexpr int MostBytesOfCharacter = 4;

constexpr qsizetype LongestForControl = 256;

constexpr int MostShownCharacters = 400;
constexpr int MostShownLines = 12;

std::uintptr_t Unsigned(Position position)
{
    return static_cast<std::uintptr_t>(position);
}

bool IsInsideCharacter(Sci sci, Position position)
{
    return (SendSci(sci, SCI_GETCHARAT, Unsigned(position)) & 0xC0) == 0x80;
}

// The next character, at most the end of the text. CR and LF count as two.
Position Next(Sci sci, Position position)
{
    const Position length = SendSci(sci, SCI_GETLENGTH);
    do
        ++position;
    while (position < length && IsInsideCharacter(sci, position));
    return std::min(position, length);
}

// The start of the character that contains the position.
Position CharacterStart(Sci sci, Position position)
{
    while (position > 0 && IsInsideCharacter(sci, position))
        --position;
    return position;
}

void Select(Sci sci, Position anchor, Position caret)
{
    SendSci(sci, SCI_SETSEL, Unsigned(anchor), caret);
}

void SelectFirstCharacter(Sci sci)
{
    Select(sci, 0, Next(sci, 0));
}

Position Caret(Sci sci)
{
    return SendSci(sci, SCI_GETCURRENTPOS);
}

bool HasSelection(Sci sci)
{
    return SendSci(sci, SCI_GETSELECTIONSTART) != SendSci(sci, SCI_GETSELECTIONEND);
}

void ReplaceSelection(Sci sci, const QByteArray& text)
{
    SendSci(sci, SCI_REPLACESEL, 0, text.constData());
}

Search SearchOf(const QString& text)
{
    return {text.toUtf8(), Finding().FindFlags, Finding().FindFromStart ? SearchStart::Text : SearchStart::Caret};
}

Position StartOf(Sci sci, const Search& search)
{
    return search.start == SearchStart::Text ? 0 : Next(sci, Caret(sci));
}

// Whether the control's own search gives the expected result in acceptable time.
bool SuitsControl(const Search& search)
{
    const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
    return search.text.size() <= LongestForControl &&
           ((search.flags & FindMatchCase) != 0 || std::all_of(search.text.begin(), search.text.end(), isAscii));
}

std::optional<TextRange> SearchOurselves(Sci sci, const Search& search, Position from)
{
    const Position length = SendSci(sci, SCI_GETLENGTH);
    const auto* bytes = reinterpret_cast<const char*>(SendSci(sci, SCI_GETRANGEPOINTER, Unsigned(from), length - from));
    const QByteArrayView text(bytes, length - from);
    const TextPattern pattern(search.text, (search.flags & FindMatchCase) != 0 ? CaseRule::Exact : CaseRule::Folded);
    auto match = pattern.FindIn(text);
    while (match) {
        const TextRange range{from + match->start, from + match->end};
        if ((search.flags & FindWholeWord) == 0 || SendSci(sci, SCI_ISRANGEWORD, Unsigned(range.start), range.end) != 0)
            return range;
        match = pattern.FindIn(text, Next(sci, range.start) - from);
    }
    return std::nullopt;
}

Position VisibleLine(Sci sci, Position position)
{
    const auto line = SendSci(sci, SCI_LINEFROMPOSITION, Unsigned(position));
    return SendSci(sci, SCI_VISIBLEFROMDOCLINE, Unsigned(line));
}

// `above` is the number of lines to show above the line of the position.
void ScrollTo(Sci sci, Position position, Position above)
{
    SendSci(sci, SCI_SETFIRSTVISIBLELINE, Unsigned(std::max<Position>(VisibleLine(sci, position) - above, 0)));
}

// A jump out of view leaves the caret at the view's edge; a match is better read with its surroundings.
void SelectWithSurroundings(Sci sci, Position anchor, Position caret)
{
    const auto firstBefore = SendSci(sci, SCI_GETFIRSTVISIBLELINE);
    Select(sci, anchor, caret);
    if (SendSci(sci, SCI_GETFIRSTVISIBLELINE) != firstBefore)
        ScrollTo(sci, caret, SendSci(sci, SCI_LINESONSCREEN) / 3);
}

// Question boxes appear in the middle of the window; the match goes above them.
void SelectAboveQuestion(Sci sci, Position anchor, Position caret)
{
    Select(sci, anchor, caret);
    const auto quarter = SendSci(sci, SCI_LINESONSCREEN) / 4;
    if (VisibleLine(sci, caret) - SendSci(sci, SCI_GETFIRSTVISIBLELINE) > quarter)
        ScrollTo(sci, caret, quarter);
}

Position PositionOf(const std::optional<TextRange>& match)
{
    return match ? match->start : -1;
}

// The text may come from a selection; a box with a whole program could be neither read nor closed.
QString Shown(const QString& text)
{
    const QString start = text.section(QLatin1Char('\n'), 0, MostShownLines - 1).left(MostShownCharacters);
    return start.size() == text.size() ? text : start + u"..."_s;
}

void ReportNoMore(const QString& text)
{
    MsgBox(u"No more instances of <"_s + Shown(text) + u">  found."_s);
}

// "Replace all" inserts a space at the start of the text, so that a search that starts one character after the caret
// reaches the first character, and removes it at the end.
class ReplaceAllStep {
public:
    // The handle is read each time, as the window may close while a question is open.
    explicit ReplaceAllStep(const Sci& control) : sci(control)
    {
        SendSci(sci, SCI_SETSTATUS, 0);
        SendSci(sci, SCI_BEGINUNDOACTION);
        SendSci(sci, SCI_INSERTTEXT, 0, " ");
    }
    ~ReplaceAllStep()
    {
        if (!isOver)
            SendSci(sci, SCI_ENDUNDOACTION);
    }
    ReplaceAllStep(const ReplaceAllStep&) = delete;
    ReplaceAllStep& operator=(const ReplaceAllStep&) = delete;

    void Finish(std::int64_t replacements)
    {
        SelectFirstCharacter(sci);
        ReplaceSelection(sci, {});
        SendSci(sci, SCI_ENDUNDOACTION);
        isOver = true;
        // A text in which nothing was found must not count as changed.
        if (replacements == 0)
            SendSci(sci, SCI_UNDO);
        Select(sci, 0, 0);
    }

private:
    const Sci& sci;
    bool isOver = false;
};

void ThrowIfFull(Sci sci)
{
    const auto status = SendSci(sci, SCI_GETSTATUS);
    if (status > 0 && status < FirstWarning)
        throw std::bad_alloc();
}

ReplaceResult ReplaceRounds(Sci sci, const Search& search, const QByteArray& replacement, cReplaceWatch* watch)
{
    // A replacement cannot create a match before the first one, except where the text reaches up to it. So a search
    // from the start of the text need not begin there again.
    const Position reach = MostBytesOfCharacter * (search.text.size() + 1);
    ReplaceResult result;
    auto match = SearchFrom(sci, search, StartOf(sci, search));
    while (match) {
        ++result.count;
        result.lastMatch = match->start;
        SendSci(sci, SCI_SETTARGETRANGE, Unsigned(match->start), match->end);
        SendSci(sci, SCI_REPLACETARGET, Unsigned(replacement.size()), replacement.constData());
        ThrowIfFull(sci);
        if (watch != nullptr && watch->Round(result.count) == RoundEnd::Stop) {
            result.end = ReplaceEnd::Cancelled;
            return result;
        }
        const Position from = search.start == SearchStart::Text
                                  ? CharacterStart(sci, std::max<Position>(match->start - reach, 0))
                                  : Next(sci, Next(sci, match->start));
        match = SearchFrom(sci, search, from);
    }
    result.lastMatch = -1;
    return result;
}

// Asks at each match. The answer No changes nothing, so a search from the start of the text meets the match again.
ReplaceResult ReplaceAsking(const cDocument& document, const Search& search, const QByteArray& replacement)
{
    ReplaceAllStep step(document.sci);
    ReplaceResult result;
    while (const auto match = SearchFrom(document.sci, search, StartOf(document.sci, search))) {
        result.lastMatch = match->start;
        SelectAboveQuestion(document.sci, match->start, match->end);
        const BoxAnswer answer =
            MsgBox(u"Replace this selection?"_s, BoxIcon::Question, BoxButtons::YesNoCancel, u"Replace?"_s);
        if (answer == BoxAnswer::Cancel) {
            result.end = ReplaceEnd::Cancelled;
            break;
        }
        if (answer == BoxAnswer::No)
            continue;
        ++result.count;
        ReplaceSelection(document.sci, replacement);
        ThrowIfFull(document.sci);
        const Position after = Next(document.sci, match->start);
        Select(document.sci, after, after);
    }
    if (result.end == ReplaceEnd::NoMoreMatches)
        result.lastMatch = -1;
    step.Finish(result.count);
    return result;
}

void ReplaceAllIn(const cDocument& document, const QString& find, const QString& replace,
                  const MakeReplaceWatch& makeWatch)
{
    const bool asks =
        MsgBox(u"Confirm each replacement?"_s, BoxIcon::Question, BoxButtons::YesNo, u"Confirm?"_s) == BoxAnswer::Yes;
    Finding().LastFind = find;
    ReplaceResult result;
    if (asks) {
        result = ReplaceAsking(document, SearchOf(find), replace.toUtf8());
    } else {
        const auto watch = makeWatch ? makeWatch() : nullptr;
        result = ReplaceUnasked(document.sci, SearchOf(find), replace.toUtf8(), watch.get());
    }
    Finding().FoundPos = result.lastMatch;
    if (result.end == ReplaceEnd::Cancelled)
        return;
    ReportNoMore(find);
    MsgBox(u"Number of replacements made: %1"_s.arg(result.count), BoxIcon::Information, BoxButtons::Ok, u"Finished"_s);
}

void ReportEmpty(const QString& message)
{
    MsgBox(message, BoxIcon::Exclamation);
}

} // namespace

std::optional<TextRange> SearchFrom(Sci sci, const Search& search, std::intptr_t from)
{
    const Position length = SendSci(sci, SCI_GETLENGTH);
    from = std::min(from, length);
    if (sci == nullptr || search.text.isEmpty())
        return std::nullopt;
    if (!SuitsControl(search))
        return SearchOurselves(sci, search, from);
    SendSci(sci, SCI_SETSEARCHFLAGS, Unsigned(search.flags));
    SendSci(sci, SCI_SETTARGETRANGE, Unsigned(from), length);
    const auto start = SendSci(sci, SCI_SEARCHINTARGET, Unsigned(search.text.size()), search.text.constData());
    if (start < 0)
        return std::nullopt;
    return TextRange{start, SendSci(sci, SCI_GETTARGETEND)};
}

ReplaceResult ReplaceUnasked(Sci sci, const Search& search, const QByteArray& replacement, cReplaceWatch* watch)
{
    ReplaceAllStep step(sci);
    const ReplaceResult result = ReplaceRounds(sci, search, replacement, watch);
    step.Finish(result.count);
    return result;
}

void FindText(const cDocument& document, const QString& text)
{
    const Sci sci = document.sci;
    Finding().LastFind = text;
    const Search search = SearchOf(text);
    const auto match = SearchFrom(sci, search, StartOf(sci, search));
    Finding().FoundPos = PositionOf(match);
    if (match) {
        SelectWithSurroundings(sci, match->start, match->end);
        return;
    }
    const Position caret = PositionOfCharacter(SciText(sci), CharacterCount(search.text) - 1);
    SelectWithSurroundings(sci, CharacterStart(sci, caret), CharacterStart(sci, caret));
    ReportNoMore(text);
}

void FindAgain(const cDocument& document, const QString& text)
{
    const Sci sci = document.sci;
    Search search = SearchOf(text);
    search.start = SearchStart::Caret;
    const auto match = SearchFrom(sci, search, StartOf(sci, search));
    Finding().FoundPos = PositionOf(match);
    if (match) {
        SelectWithSurroundings(sci, match->end, match->start);
        return;
    }
    SelectFirstCharacter(sci);
    MsgBox(u"<"_s + Shown(text) + u">  not found."_s);
}

void ReplaceText(const cDocument& document, const QString& find, const QString& replace)
{
    const Search search = SearchOf(find);
    const QByteArray replacement = replace.toUtf8();
    if (HasSelection(document.sci))
        ReplaceSelection(document.sci, replacement);
    for (;;) {
        // Read again, as a question was open in between.
        const Sci sci = document.sci;
        const Position caret = Caret(sci);
        const auto match = SearchFrom(sci, search, caret > 0 ? Next(sci, caret) : 0);
        Finding().FoundPos = PositionOf(match);
        if (!match) {
            SelectFirstCharacter(sci);
            MsgBox(u"Text not found."_s);
            return;
        }
        SelectAboveQuestion(sci, match->end, match->start);
        const BoxAnswer answer = MsgBox(u"Replace?"_s, BoxIcon::Question, BoxButtons::YesNoCancel);
        if (answer == BoxAnswer::Cancel)
            return;
        if (answer == BoxAnswer::Yes)
            ReplaceSelection(document.sci, replacement);
        const Position after = Next(document.sci, match->start);
        Select(document.sci, after, after);
    }
}

void ReplaceAllText(const cDocument& document, const QString& find, const QString& replace,
                    const MakeReplaceWatch& makeWatch)
{
    try {
        ReplaceAllIn(document, find, replace, makeWatch);
    } catch (const std::exception&) {
        MsgBox(u"Error Replacing Text!"_s);
    }
}

void GoBeforeSelection(const cDocument& document)
{
    const Position start = SendSci(document.sci, SCI_GETSELECTIONSTART);
    const QByteArrayView before(SciText(document.sci).substr(0, static_cast<std::size_t>(start)));
    constexpr Position enough = 3;
    if (HasSelection(document.sci) && CharacterCount(before.first(std::min(start, enough * MostBytesOfCharacter))) > 2)
        SendSci(document.sci, SCI_GOTOPOS, Unsigned(CharacterStart(document.sci, start - 1)));
}

QString TakeFindText(const cDocument* document)
{
    QString& last = Finding().LastFind;
    if (document == nullptr || !HasSelection(document->sci))
        return last;
    QByteArray selected(SendSci(document->sci, SCI_GETSELTEXT), '\0');
    SendSci(document->sci, SCI_GETSELTEXT, 0, selected.data());
    // The control counts and writes a terminating NUL.
    selected.chop(1);
    if (!selected.isEmpty())
        last = QString::fromUtf8(selected);
    return last;
}

Fields CheckFindField(const QString& find)
{
    if (!find.isEmpty())
        return Fields::Filled;
    ReportEmpty(u"No text specified!"_s);
    return Fields::Empty;
}

Fields CheckReplaceFields(const QString& find, const QString& replace)
{
    const Fields first = CheckFindField(find);
    if (!replace.isEmpty())
        return first;
    ReportEmpty(u"No replacement text specified!"_s);
    return Fields::Empty;
}

QPoint PlaceBeside(const QRect& frame, const QRect& place, const QRect& screen)
{
    if (!frame.intersects(place))
        return frame.topLeft();
    const QPoint beside[] = {
        {frame.x(), place.y() + place.height()},
        {frame.x(), place.y() - frame.height()},
        {place.x() + place.width(), frame.y()},
        {place.x() - frame.width(), frame.y()},
    };
    std::optional<QPoint> best;
    for (const QPoint& corner : beside) {
        if (!screen.contains(QRect(corner, frame.size())))
            continue;
        const auto way = [&](const QPoint& to) { return (to - frame.topLeft()).manhattanLength(); };
        if (!best || way(corner) < way(*best))
            best = corner;
    }
    return best.value_or(frame.topLeft());
}

void mnuEditFindAgain_Click()
{
    const cDocument* document = NeedDocument();
    if (document != nullptr && !Finding().LastFind.isEmpty())
        FindAgain(*document, Finding().LastFind);
}

} // namespace ob
