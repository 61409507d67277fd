// SPDX-License-Identifier: GPL-3.0-or-later
// How the edit control keeps its styles, line states, fold levels and brace marks.
#include "scilexer/SciLexerOB.h"

#include "scilexer/SciAccessible.h"
#include "scilexer/SciLexerOB_Api.h"
#include "scilexer/SciPrintView.h"

#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>

#include <algorithm>

namespace ob {

namespace {

// Suspends a widget's paint requests. Unlike QWidget::setUpdatesEnabled, it requests no paint of its own at the end.
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

// The lexer number under which the program knows the language.
constexpr std::uintptr_t LanguageLexerNumber = 8;

// Styles go to Scintilla in pieces of about this many bytes: far more than a call costs, and still in the cache.
constexpr std::intptr_t BlockBytes = 64 * 1024;

// How far beyond the required position the lexer looks for a line whose state is unchanged.
constexpr std::intptr_t BytesAhead = 4 * 1024;

constexpr std::intptr_t NoPosition = -1;

// For each change that it is notified of, QScintilla counts the characters of the whole text; not for announcements.
constexpr std::uintptr_t Announcements =
    QsciScintillaBase::SC_MOD_BEFOREINSERT | QsciScintillaBase::SC_MOD_BEFOREDELETE;

// Assistive tools have no use for longer changes than this.
constexpr std::intptr_t MostReportedBytes = 4 * 1024;

std::uintptr_t Unsigned(std::intptr_t value)
{
    return static_cast<std::uintptr_t>(value);
}

std::intptr_t Address(const void* pointer)
{
    return reinterpret_cast<std::intptr_t>(pointer);
}

// Where the system has no key of its own for a third character on a key, Ctrl and Alt together are that key.
bool HasAltGr(Qt::KeyboardModifiers modifiers)
{
    return modifiers.testFlag(Qt::ControlModifier) && modifiers.testFlag(Qt::AltModifier) &&
           QGuiApplication::platformName() == QLatin1String("windows");
}

// Only a key without Ctrl, Alt and the like is typed: a combination is a command, or nothing.
bool IsTyped(const QKeyEvent& key)
{
    constexpr auto commandKeys = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return (key.modifiers() & commandKeys) == 0 || HasAltGr(key.modifiers());
}

// Keys that move the caret have no text.
bool MayReplaceSelection(const QKeyEvent& key)
{
    return !key.text().isEmpty() || key.key() == Qt::Key_Delete || key.key() == Qt::Key_Backspace;
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
                                     [this] { return Direct(SCI_GETLENGTH); }),
      ownParts([this](unsigned message, std::uintptr_t wParam, std::intptr_t lParam) {
          return Direct(message, wParam, lParam);
      }),
      longLines([this](unsigned message, std::uintptr_t wParam, std::intptr_t lParam) {
          return Direct(message, wParam, lParam);
      })
{
    directFunction = reinterpret_cast<DirectFunction>(SendScintillaPtrResult(SCI_GETDIRECTFUNCTION));
    directPointer = Address(SendScintillaPtrResult(SCI_GETDIRECTPOINTER));

    Direct(SCI_SETCODEPAGE, SC_CP_UTF8);
    Direct(SCI_SETEOLMODE, SC_EOL_CRLF);
    Direct(SCI_SETLEXER, SCLEX_CONTAINER);
    // A jump over millions of bytes shows the text at once, and its colours as soon as they are known.
    Direct(SCI_SETIDLESTYLING, SC_IDLESTYLING_TOVISIBLE);
    // Otherwise only the caret's line is kept from one paint to the next.
    Direct(SCI_SETLAYOUTCACHE, SC_CACHE_PAGE);
    Direct(SCI_SETMODEVENTMASK, Announcements);
    ownParts.Start();
    longLines.HideRest();
    // Installed after QScintilla's own factory, this one is asked first.
    QAccessible::installFactory(MakeAccessible);

    connect(this, &QsciScintillaBase::SCN_STYLENEEDED, this, [this](int position) { StyleTo(position); });
    connect(this, &QsciScintillaBase::SCN_MODIFIED, this, [this](int position, int type, const char*, int length) {
        if ((type & SC_MOD_INSERTTEXT) != 0) {
            Direct(SCI_SETMODEVENTMASK, Announcements);
            longLines.NoteInsertion(position, length);
        } else if ((type & SC_MOD_BEFOREINSERT) != 0) {
            NoteChange(Change::Insertion, position, length);
            WatchLongInsertion(length);
        } else if ((type & SC_MOD_BEFOREDELETE) != 0) {
            NoteChange(Change::Deletion, position, length);
        }
    });
    connect(this, &QsciScintillaBase::SCN_UPDATEUI, this, [this](int updated) {
        if ((updated & (SC_UPDATE_CONTENT | SC_UPDATE_SELECTION)) == 0)
            return;
        ownParts.FitLineNumbers();
        ShowBraces();
        FollowCaret();
        ReportToAssistants();
    });
    // The window around the control learns by the toolkit's own event whether there is anything to save.
    connect(this, &QsciScintillaBase::SCN_SAVEPOINTLEFT, this, [this] { setWindowModified(true); });
    connect(this, &QsciScintillaBase::SCN_SAVEPOINTREACHED, this, [this] { setWindowModified(false); });
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
    case SCI_STYLESETFORE:
    case SCI_STYLESETBACK:
        if (wParam == STYLE_LINENUMBER)
            ownParts.NoteLineNumberColor();
        break;
    case SCI_STYLECLEARALL:
        ownParts.ClearStyles();
        longLines.HideRest();
        return 0;
    case SCI_SETMARGINWIDTHN:
        Direct(message, wParam, lParam);
        ownParts.FitLineNumbers();
        return 0;
    case SCI_CLEARALL:
        ownParts.ForgetLineWidth();
        break;
    case SCI_EMPTYUNDOBUFFER:
    case SCI_UNDO:
    case SCI_REDO:
        undoSteps.End();
        break;
    case SCI_CLEAR:
    case SCI_CUT:
    case SCI_PASTE:
    case SCI_REPLACESEL: {
        const SciLongLines::Unlocked unlocked(longLines);
        return Direct(message, wParam, lParam);
    }
    case SCI_GRABFOCUS:
        // QScintilla ignores this message.
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

// The look of the printed page must not appear on the screen.
std::intptr_t cSciLexerOB::FormatPage(std::uintptr_t draw, std::intptr_t record)
{
    const UpdatePause pause(viewport());
    const SciLongLines::Whole whole(longLines);
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

// The text is contiguous on either side of Scintilla's gap; a range across the gap moves the gap to its start.
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

// Everything after `from` counts as never styled.
void cSciLexerOB::Forget(Position from)
{
    styledEnd = std::min(styledEnd, std::max<Position>(from, 0));
    brokenAt = std::min(brokenAt, styledEnd);
}

// Runs at the announcement of a change: by the time that Scintilla reports the change itself, it may have scrolled and
// requested styles already.
void cSciLexerOB::NoteChange(Change change, Position position, Position length)
{
    longLines.Lock();
    NoteForAssistants(change, position, length);
    // After the styled end there are no styles that a change could invalidate.
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
    // A second turn is needed when the lines found unchanged end before the required position.
    while (Direct(SCI_GETENDSTYLED) < needed && StyleFromEnd(needed) == Agreement::Yes) {
    }
}

// Styles whole lines from the styled end on, until `needed` is reached or the rest up to `styledEnd` is known to be
// valid.
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
    // After a keystroke, the next lines usually show that everything after them may stay.
    Position limit = needed + BytesAhead;
    if (brokenAt < limit + BytesAhead)
        limit = std::max(limit, brokenAt + 1);
    while (agreement == Agreement::No && IsUnchanged(place.position) && place.position < limit)
        agreement = StyleBlock(place, BlockEnd(place, std::min(limit, styledEnd)));

    if (agreement == Agreement::No)
        NoteStop(place.position);
    return agreement;
}

// Records what is known of the lines after a place where the lexer stopped with a state other than before.
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

// The end of the next lines that are contiguous in memory. The gap moves only for a line that it splits, and then no
// further than to that line's start.
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
    if (PassLongLine(place))
        return Agreement::No;
    const std::string_view block = Bytes(place.position, end);
    if (styles.size() < block.size())
        styles.resize(block.size());
    Agreement agreement = Agreement::No;
    Position goodEnd = 0;
    std::size_t at = 0;
    // No margin shows levels, yet Scintilla would request a paint for each new state and level. Only new styles need
    // one.
    std::optional<UpdatePause> pause(viewport());
    while (at < block.size() && agreement == Agreement::No) {
        const LexedLine line = StyleLine(place, block.substr(at), styles.data() + at);
        const std::intptr_t before = Direct(SCI_SETLINESTATE, Unsigned(place.line), line.state);
        if (folding == Folding::On)
            Direct(SCI_SETFOLDLEVEL, Unsigned(place.line),
                   FoldLevel(place.state, line.state, block.substr(at, line.length)));
        // A changed line's old state means nothing: Scintilla may have copied it from another line.
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

// A key in a long line that has its styles costs no turn over its megabytes.
bool cSciLexerOB::PassLongLine(Place& place)
{
    const Position end = StartOf(place.line + 1);
    const Position length = end - place.position;
    if (!SciLongLines::IsLong(length) || !longLines.IsStyled(place.position, length))
        return false;
    Direct(SCI_SETLINESTATE, Unsigned(place.line), place.state);
    Direct(SCI_STARTSTYLING, Unsigned(end));
    place.position = end;
    ++place.line;
    return true;
}

// `text` begins with the line at `place`. A line that is too long to be coloured opens and closes no block.
LexedLine cSciLexerOB::StyleLine(const Place& place, std::string_view text, unsigned char* lineStyles)
{
    const auto room = static_cast<Position>(text.size());
    const Position length = SciLongLines::IsLong(room) ? StartOf(place.line + 1) - place.position : 0;
    if (!SciLongLines::IsLong(length))
        return LexFirstLine(place.state, text, keywords, lineStyles);
    longLines.Style(place.position, length, lineStyles);
    return {static_cast<std::size_t>(length), place.state};
}

// Text that may hold a long line needs its styles at once.
void cSciLexerOB::WatchLongInsertion(Position length)
{
    longLines.NoteGrowth(length);
    if (SciLongLines::IsLong(length))
        Direct(SCI_SETMODEVENTMASK, Announcements | SC_MOD_INSERTTEXT);
}

// Runs within a paint, which must not scroll.
void cSciLexerOB::FollowCaret()
{
    if (isFollowing || longLines.IsCaretAtRest())
        return;
    isFollowing = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            isFollowing = false;
            longLines.Follow();
        },
        Qt::QueuedConnection);
}

// Highlights the brace before the caret, or else the one after it, with its partner.
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
    const Position end = StartOf(lineNumber + 1);
    if (SciLongLines::IsLong(end - start))
        return false;
    const std::string_view line = Bytes(start, end);
    // The control may not have requested this line's styles yet.
    std::vector<unsigned char> lineStyles(line.size());
    LexLine(0, line, keywords, lineStyles.data());
    const auto column = static_cast<std::size_t>(position - start);
    const std::optional<std::size_t> partner = MatchBrace(line, lineStyles.data(), column);
    // In a comment or a string, an unmatched brace is no mistake.
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
    pending.reset();
    if (length > MostReportedBytes || !QAccessible::isActive())
        return;
    pending = PendingChange{change, position, length, {}};
    if (change == Change::Deletion)
        pending->removed = QString::fromUtf8(Bytes(position, position + length));
}

void cSciLexerOB::ReportToAssistants()
{
    if (!QAccessible::isActive())
        return;
    if (pending) {
        const auto offset = static_cast<int>(offsets.OffsetOf(pending->position));
        if (pending->change == Change::Insertion) {
            const Position end = std::min(pending->position + pending->length, Direct(SCI_GETLENGTH));
            QAccessibleTextInsertEvent event(this, offset, QString::fromUtf8(Bytes(pending->position, end)));
            QAccessible::updateAccessibility(&event);
        } else {
            QAccessibleTextRemoveEvent event(this, offset, pending->removed);
            QAccessible::updateAccessibility(&event);
        }
        pending.reset();
    }
    const Reported now{static_cast<int>(offsets.OffsetOf(Direct(SCI_GETCURRENTPOS))),
                       static_cast<int>(offsets.OffsetOf(Direct(SCI_GETSELECTIONSTART))),
                       static_cast<int>(offsets.OffsetOf(Direct(SCI_GETSELECTIONEND)))};
    const bool isSelectionNew =
        now.selectionStart != reported.selectionStart || now.selectionEnd != reported.selectionEnd;
    const bool hasSelection =
        now.selectionStart != now.selectionEnd || reported.selectionStart != reported.selectionEnd;
    if (isSelectionNew && hasSelection) {
        QAccessibleTextSelectionEvent event(this, now.selectionStart, now.selectionEnd);
        event.setCursorPosition(now.caret);
        QAccessible::updateAccessibility(&event);
    } else if (now.caret != reported.caret) {
        QAccessibleTextCursorEvent event(this, now.caret);
        QAccessible::updateAccessibility(&event);
    }
    reported = now;
}

// A combination of keys that is no command must not type its character.
void cSciLexerOB::keyPressEvent(QKeyEvent* event)
{
    std::optional<SciLongLines::Unlocked> unlocked;
    if (MayReplaceSelection(*event))
        unlocked.emplace(longLines);
    if (!IsTyped(*event)) {
        QKeyEvent command(event->type(), event->key(), event->modifiers(), QString(), event->isAutoRepeat(),
                          static_cast<quint16>(event->count()));
        QsciScintillaBase::keyPressEvent(&command);
        event->setAccepted(command.isAccepted());
        return;
    }
    NoteTyping(event->text());
    QsciScintillaBase::keyPressEvent(event);
}

void cSciLexerOB::inputMethodEvent(QInputMethodEvent* event)
{
    const SciLongLines::Unlocked unlocked(longLines);
    NoteTyping(event->commitString());
    QsciScintillaBase::inputMethodEvent(event);
}

// Runs before the text is typed. An empty group of actions parts the steps before and after it.
void cSciLexerOB::NoteTyping(const QString& text)
{
    if (text.isEmpty() || !undoSteps.Begins(text))
        return;
    Direct(SCI_BEGINUNDOACTION);
    Direct(SCI_ENDUNDOACTION);
}

// A dropped file belongs to the window around the control, which opens it.
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
