// SPDX-License-Identifier: GPL-3.0-or-later
// How the edit control keeps its styles, line states, fold levels and brace marks.
#include "scilexer/SciLexerOB.h"

#include "scilexer/SciAccessible.h"
#include "scilexer/SciLexerOB_Api.h"
#include "scilexer/SciPrintView.h"

#include <QDropEvent>
#include <QMimeData>

#include <algorithm>

namespace ob {

namespace {

// Holds back a widget's wish to be painted. Unlike QWidget's own switch it does not end with a wish of its own.
class UpdatePause {
public:
    explicit UpdatePause(QWidget* pausedWidget)
        : widget(pausedWidget), wasPaused(pausedWidget->testAttribute(Qt::WA_UpdatesDisabled))
    {
        widget->setAttribute(Qt::WA_UpdatesDisabled);
    }
    ~UpdatePause() { widget->setAttribute(Qt::WA_UpdatesDisabled, wasPaused); }
    UpdatePause(const UpdatePause&) = delete;
    UpdatePause& operator=(const UpdatePause&) = delete;

private:
    QWidget* widget;
    bool wasPaused;
};

// The number that the program knows the language's lexer by.
constexpr std::uintptr_t LanguageLexerNumber = 8;

// Styles go to Scintilla in pieces of about this many bytes: far more than a call costs, and still in the cache.
constexpr std::intptr_t BlockBytes = 64 * 1024;

// How far behind the place that is needed the lexer looks for a line whose state is as it was.
constexpr std::intptr_t BytesAhead = 4 * 1024;

constexpr std::intptr_t NoPosition = -1;

// No assistive tool wants more bytes than this read out as one change.
constexpr std::intptr_t MostToldBytes = 4 * 1024;

std::uintptr_t Unsigned(std::intptr_t value)
{
    return static_cast<std::uintptr_t>(value);
}

std::intptr_t Address(const void* pointer)
{
    return reinterpret_cast<std::intptr_t>(pointer);
}

QAccessibleInterface* MakeAccessible(const QString&, QObject* object)
{
    auto* control = dynamic_cast<cSciLexerOB*>(object);
    return control == nullptr ? nullptr : new SciAccessible(control, control, control->Offsets());
}

} // namespace

cSciLexerOB::cSciLexerOB(QWidget* parent)
    : QsciScintillaBase(parent), offsets(
                                     [this](Position from, Position to) {
                                         const Position gap = Direct(SCI_GETGAPPOSITION);
                                         return Bytes(from, from < gap && gap < to ? gap : to);
                                     },
                                     [this] { return Direct(SCI_GETLENGTH); })
{
    directFunction = reinterpret_cast<DirectFunction>(SendScintillaPtrResult(SCI_GETDIRECTFUNCTION));
    directPointer = Address(SendScintillaPtrResult(SCI_GETDIRECTPOINTER));

    Direct(SCI_SETCODEPAGE, SC_CP_UTF8);
    Direct(SCI_SETEOLMODE, SC_EOL_CRLF);
    Direct(SCI_SETLEXER, SCLEX_CONTAINER);
    // A jump over millions of bytes shows the text at once, and its colours as soon as they are known.
    Direct(SCI_SETIDLESTYLING, SC_IDLESTYLING_TOVISIBLE);
    // The announcements alone: QScintilla answers each told change by counting the characters of the whole text.
    Direct(SCI_SETMODEVENTMASK, SC_MOD_BEFOREINSERT | SC_MOD_BEFOREDELETE);
    // Behind QScintilla's own, so that it is asked first.
    QAccessible::installFactory(MakeAccessible);

    connect(this, &QsciScintillaBase::SCN_STYLENEEDED, this, [this](int position) { StyleTo(position); });
    connect(this, &QsciScintillaBase::SCN_MODIFIED, this, [this](int position, int type, const char*, int length) {
        if ((type & SC_MOD_BEFOREINSERT) != 0)
            NoteChange(Change::Insertion, position, length);
        else if ((type & SC_MOD_BEFOREDELETE) != 0)
            NoteChange(Change::Deletion, position, length);
    });
    connect(this, &QsciScintillaBase::SCN_UPDATEUI, this, [this](int updated) {
        if ((updated & (SC_UPDATE_CONTENT | SC_UPDATE_SELECTION)) == 0)
            return;
        ShowBraces();
        TellAssistants();
    });
}

std::intptr_t cSciLexerOB::Send(unsigned message, std::uintptr_t wParam, std::intptr_t lParam)
{
    switch (message) {
    case SCI_SETLEXER:
        ChooseLexer(wParam);
        return 0;
    case SCI_GETLEXER:
        return lexer == Lexer::Language ? static_cast<std::intptr_t>(LanguageLexerNumber) : Direct(SCI_GETLEXER);
    case SCI_SETKEYWORDS:
        if (wParam != 0)
            break;
        keywords = KeywordSet(lParam == 0 ? "" : reinterpret_cast<const char*>(lParam));
        Restyle();
        return 0;
    case SCI_SETPROPERTY:
        Direct(message, wParam, lParam);
        UpdateFolding();
        return 0;
    case SCI_COLOURISE:
    case SCI_STARTSTYLING:
        Forget(static_cast<Position>(wParam));
        break;
    case SCI_CLEARDOCUMENTSTYLE:
        Forget(0);
        break;
    case SCI_GRABFOCUS:
        // The toolkit's library passes this message over.
        setFocus(Qt::OtherFocusReason);
        return 0;
    case SCI_FORMATRANGE:
        return FormatPage(wParam, lParam);
    case SCI_OB_COUNTLEXEDLINES:
        return lexedLines;
    default:
        break;
    }
    return Direct(message, wParam, lParam);
}

// The page's look must not be seen on the screen.
std::intptr_t cSciLexerOB::FormatPage(std::uintptr_t draw, std::intptr_t record)
{
    const UpdatePause pause(viewport());
    const SciPrintView view([this](unsigned message, std::uintptr_t wParam, std::intptr_t lParam) {
        return Direct(message, wParam, lParam);
    });
    return Direct(SCI_FORMATRANGE, draw, record);
}

std::intptr_t cSciLexerOB::LineAt(Position position) const
{
    return Direct(SCI_LINEFROMPOSITION, Unsigned(position));
}

cSciLexerOB::Position cSciLexerOB::StartOf(std::intptr_t line) const
{
    return Direct(SCI_POSITIONFROMLINE, Unsigned(line));
}

// The text lies in one piece on either side of Scintilla's gap; a range across the gap moves it to the range's start.
std::string_view cSciLexerOB::Bytes(Position from, Position to) const
{
    const std::intptr_t address = Direct(SCI_GETRANGEPOINTER, Unsigned(from), to - from);
    return {reinterpret_cast<const char*>(address), static_cast<std::size_t>(to - from)};
}

void cSciLexerOB::ChooseLexer(std::uintptr_t number)
{
    lexer = number == LanguageLexerNumber ? Lexer::Language : Lexer::None;
    const std::uintptr_t container = SCLEX_CONTAINER;
    Direct(SCI_SETLEXER, lexer == Lexer::Language ? container : number);
    Restyle();
}

void cSciLexerOB::UpdateFolding()
{
    const Folding wanted = Direct(SCI_GETPROPERTYINT, Unsigned(Address("fold"))) > 0 ? Folding::On : Folding::Off;
    if (folding == wanted)
        return;
    folding = wanted;
    Restyle();
}

// Lets the whole text be styled anew, each part when it is shown.
void cSciLexerOB::Restyle()
{
    Forget(0);
    Direct(SCI_COLOURISE, 0, 0);
}

// What lies behind `from` counts as never styled.
void cSciLexerOB::Forget(Position from)
{
    styledEnd = std::min(styledEnd, std::max<Position>(from, 0));
    brokenAt = std::min(brokenAt, styledEnd);
}

// Goes by the announcement of a change: by the time that Scintilla tells of it, it may have scrolled and asked for
// styles already.
void cSciLexerOB::NoteChange(Change change, Position position, Position length)
{
    NoteForAssistants(change, position, length);
    // What lies behind the styled end has no styles that a change could spoil.
    if (position > styledEnd)
        return;
    const Position growth = change == Change::Insertion ? length : -length;
    for (Position* mark : {&changedEnd, &brokenAt, &styledEnd})
        if (*mark >= position)
            *mark = std::max(position, *mark + growth);
    changedEnd = std::max(changedEnd, position + std::max<Position>(growth, 0));
}

void cSciLexerOB::StyleTo(Position needed)
{
    if (lexer == Lexer::None)
        return;
    const Position length = Direct(SCI_GETLENGTH);
    needed = std::min(needed, length);
    Forget(length);
    // A second turn is due when what was found to stand ends before the place that is needed.
    while (Direct(SCI_GETENDSTYLED) < needed && StyleFromEnd(needed) == Agreement::Yes) {
    }
}

// Styles whole lines from the styled end on, until `needed` is reached or the rest up to `styledEnd` is known to stand.
cSciLexerOB::Agreement cSciLexerOB::StyleFromEnd(Position needed)
{
    Place place;
    place.line = LineAt(Direct(SCI_GETENDSTYLED));
    place.position = StartOf(place.line);
    if (place.line > 0)
        place.state = static_cast<int>(Direct(SCI_GETLINESTATE, Unsigned(place.line - 1)));
    Direct(SCI_STARTSTYLING, Unsigned(place.position));

    Agreement agreement = Agreement::No;
    while (place.position < needed && agreement == Agreement::No)
        agreement = StyleBlock(place, BlockEnd(place, needed));
    // After a keystroke the next lines most often tell that all behind them may stay.
    Position limit = needed + BytesAhead;
    if (brokenAt < limit + BytesAhead)
        limit = std::max(limit, brokenAt + 1);
    while (agreement == Agreement::No && IsUnchanged(place.position) && place.position < limit)
        agreement = StyleBlock(place, BlockEnd(place, std::min(limit, styledEnd)));

    if (agreement == Agreement::No)
        NoteStop(place.position);
    return agreement;
}

// Keeps what is known of the lines behind a place where the lexer stopped with another state than before.
void cSciLexerOB::NoteStop(Position position)
{
    if (position >= styledEnd) {
        changedEnd = -1;
        brokenAt = styledEnd = position;
    } else if (position >= brokenAt || brokenAt == styledEnd) {
        brokenAt = position;
        if (changedEnd < position)
            changedEnd = -1;
    } else {
        // Only one break is kept: the lines before the old one count as changed.
        changedEnd = std::max(changedEnd, brokenAt - 1);
    }
}

// The end of the next lines that lie in memory in one piece. Only a line that the gap itself lies in makes the gap
// move, and then no further than to that line's start.
cSciLexerOB::Position cSciLexerOB::BlockEnd(const Place& from, Position needed) const
{
    const Position wanted = std::min(needed, from.position + BlockBytes);
    const Position end = StartOf(LineAt(wanted - 1) + 1);
    const Position gap = Direct(SCI_GETGAPPOSITION);
    if (gap <= from.position || gap >= end)
        return end;
    const std::intptr_t gapLine = LineAt(gap);
    return gapLine > from.line ? StartOf(gapLine) : StartOf(gapLine + 1);
}

cSciLexerOB::Agreement cSciLexerOB::StyleBlock(Place& place, Position end)
{
    const std::string_view block = Bytes(place.position, end);
    if (styles.size() < block.size())
        styles.resize(block.size());
    Agreement agreement = Agreement::No;
    Position goodEnd = 0;
    std::size_t at = 0;
    // No margin shows levels, yet Scintilla would paint for each new state and level. New styles it must paint.
    std::optional<UpdatePause> pause(viewport());
    while (at < block.size() && agreement == Agreement::No) {
        const LexedLine line = LexFirstLine(place.state, block.substr(at), keywords, styles.data() + at);
        const std::intptr_t before = Direct(SCI_SETLINESTATE, Unsigned(place.line), line.state);
        if (folding == Folding::On)
            Direct(SCI_SETFOLDLEVEL, Unsigned(place.line),
                   FoldLevel(place.state, line.state, block.substr(at, line.length)));
        // A changed line's old state tells nothing: Scintilla may have given it another line's.
        if (before == line.state && IsUnchanged(place.position)) {
            agreement = Agreement::Yes;
            goodEnd = place.position < brokenAt ? brokenAt : styledEnd;
        }
        at += line.length;
        place.position += static_cast<Position>(line.length);
        place.state = line.state;
        ++place.line;
        ++lexedLines;
    }
    pause.reset();
    Direct(SCI_SETSTYLINGEX, at, Address(styles.data()));
    if (agreement == Agreement::Yes) {
        if (goodEnd == styledEnd)
            brokenAt = styledEnd;
        changedEnd = -1;
        Direct(SCI_STARTSTYLING, Unsigned(std::max(goodEnd, place.position)));
    }
    return agreement;
}

// Marks the brace before the caret or else the one behind it, with its partner.
void cSciLexerOB::ShowBraces()
{
    const Position caret = Direct(SCI_GETCURRENTPOS);
    const bool isShown = lexer == Lexer::Language && ((caret > 0 && ShowBraceAt(caret - 1)) || ShowBraceAt(caret));
    if (hasBraces && !isShown)
        Direct(SCI_BRACEHIGHLIGHT, Unsigned(NoPosition), NoPosition);
    hasBraces = isShown;
}

bool cSciLexerOB::ShowBraceAt(Position position)
{
    if (!IsBrace(static_cast<char>(Direct(SCI_GETCHARAT, Unsigned(position)))))
        return false;
    const std::intptr_t lineNumber = LineAt(position);
    const Position start = StartOf(lineNumber);
    const std::string_view line = Bytes(start, StartOf(lineNumber + 1));
    // The control may not have asked for this line's styles yet.
    std::vector<unsigned char> lineStyles(line.size());
    LexLine(0, line, keywords, lineStyles.data());
    const auto column = static_cast<std::size_t>(position - start);
    const std::optional<std::size_t> partner = MatchBrace(line, lineStyles.data(), column);
    // A lone brace is a mistake in code, not in prose.
    if (!partner && (lineStyles[column] == StyleComment || lineStyles[column] == StyleString))
        return false;
    if (partner)
        Direct(SCI_BRACEHIGHLIGHT, Unsigned(position), start + static_cast<Position>(*partner));
    else
        Direct(SCI_BRACEBADLIGHT, Unsigned(position));
    return true;
}

void cSciLexerOB::NoteForAssistants(Change change, Position position, Position length)
{
    offsets.NoteChange(position);
    untold.reset();
    if (length > MostToldBytes || !QAccessible::isActive())
        return;
    untold = Untold{change, position, length, {}};
    if (change == Change::Deletion)
        untold->removed = QString::fromUtf8(Bytes(position, position + length));
}

void cSciLexerOB::TellAssistants()
{
    if (!QAccessible::isActive())
        return;
    if (untold) {
        const auto offset = static_cast<int>(offsets.OffsetOf(untold->position));
        if (untold->change == Change::Insertion) {
            const Position end = std::min(untold->position + untold->length, Direct(SCI_GETLENGTH));
            QAccessibleTextInsertEvent event(this, offset, QString::fromUtf8(Bytes(untold->position, end)));
            QAccessible::updateAccessibility(&event);
        } else {
            QAccessibleTextRemoveEvent event(this, offset, untold->removed);
            QAccessible::updateAccessibility(&event);
        }
        untold.reset();
    }
    const Told now{static_cast<int>(offsets.OffsetOf(Direct(SCI_GETCURRENTPOS))),
                   static_cast<int>(offsets.OffsetOf(Direct(SCI_GETSELECTIONSTART))),
                   static_cast<int>(offsets.OffsetOf(Direct(SCI_GETSELECTIONEND)))};
    const bool isSelectionNew = now.selectionStart != told.selectionStart || now.selectionEnd != told.selectionEnd;
    const bool hasSelection = now.selectionStart != now.selectionEnd || told.selectionStart != told.selectionEnd;
    if (isSelectionNew && hasSelection) {
        QAccessibleTextSelectionEvent event(this, now.selectionStart, now.selectionEnd);
        event.setCursorPosition(now.caret);
        QAccessible::updateAccessibility(&event);
    } else if (now.caret != told.caret) {
        QAccessibleTextCursorEvent event(this, now.caret);
        QAccessible::updateAccessibility(&event);
    }
    told = now;
}

// A file that is dropped belongs to the window around the control, which opens it.
void cSciLexerOB::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->ignore();
    else
        QsciScintillaBase::dragEnterEvent(event);
}

void cSciLexerOB::dragMoveEvent(QDragMoveEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->ignore();
    else
        QsciScintillaBase::dragMoveEvent(event);
}

void cSciLexerOB::dropEvent(QDropEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->ignore();
    else
        QsciScintillaBase::dropEvent(event);
}

} // namespace ob

extern "C" Q_DECL_EXPORT ob::SciLexerOB_Window SciLexerOB_Create(QWidget* parent)
{
    auto* control = new ob::cSciLexerOB(parent);
    return {control, control};
}
