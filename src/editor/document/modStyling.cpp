// SPDX-License-Identifier: GPL-3.0-or-later
// The setup of a code window's control.
#include "editor/document/modStyling.h"

#include "editor/document/modBookmarks.h"
#include "editor/document/modSyntaxTable.h"
#include "platform/language/modAnsi.h"
#include "scilexer/modLexer.h"
#include "shell/state/modContrast.h"

namespace ob {

namespace {

// The styles that belong to the control itself.
enum ControlStyle : std::uintptr_t {
    StyleBase = 32,
    StyleLineNumber = 33,
    StyleBrace = 34,
    StyleBadBrace = 35,
};

constexpr std::uintptr_t LanguageLexer = 8;
constexpr std::uintptr_t BookmarkMargin = 1;

void SetFore(Sci sci, std::uintptr_t style, ColorRef color)
{
    SendSci(sci, SCI_STYLESETFORE, style, static_cast<std::intptr_t>(color));
}

void SetSyntaxColors(Sci sci, const EditorSettings& settings)
{
    SetFore(sci, StyleKeyword, settings.KeywordColor);
    SetFore(sci, StyleComment, settings.CommentColor);
    SendSci(sci, SCI_STYLESETITALIC, StyleComment, -1);
    SendSci(sci, SCI_STYLESETBACK, StyleComment, static_cast<std::intptr_t>(settings.CommentBackColor));
    SetFore(sci, StyleString, settings.QuoteColor);
    SetFore(sci, StyleNumber, settings.NumberColor);
    SetFore(sci, StyleOperator, settings.NumberColor);
    SetFore(sci, StyleIdentifier, settings.EditForeColor);
    SetFore(sci, StyleHandle, settings.HandleColor);
    SetFore(sci, StyleLabel, settings.BranchColor);
    SetFore(sci, StyleBrace, settings.KeywordColor);
    SetFore(sci, StyleBadBrace, settings.BranchColor);
}

void SetLineNumberColors(Sci sci, const TextColors& colors)
{
    SetFore(sci, StyleLineNumber, colors.fore);
    SendSci(sci, SCI_STYLESETBACK, StyleLineNumber, static_cast<std::intptr_t>(colors.back));
}

// The colours are chosen for a light window; in a dark one they follow in a form that can be read there.
void ShowOnDark(Sci sci, const EditorSettings& settings)
{
    const EditorSettings shown = ShownColors(settings);
    SendSci(sci, SCI_SETCARETLINEBACK, shown.HighlightColor);
    if (settings.SyntaxColor > 0)
        SetSyntaxColors(sci, shown);
}

} // namespace

void UpdateKeywords(Sci sci)
{
    // The user's words may contain characters beyond ASCII; the control's text is UTF-8.
    SendSci(sci, SCI_SETKEYWORDS, 0, DecodeAnsi(Words().LexerKeywords).constData());
}

void SetSciColors(Sci sci, const EditorSettings& settings)
{
    SetFore(sci, StyleBase, settings.EditForeColor);
    SendSci(sci, SCI_STYLESETBACK, StyleBase, static_cast<std::intptr_t>(settings.EditBackColor));
    // The first argument only has to be non-zero: the selection is drawn inverted.
    SendSci(sci, SCI_SETSELBACK, StyleBase, static_cast<std::intptr_t>(settings.EditForeColor));
    SendSci(sci, SCI_SETSELFORE, StyleBase, static_cast<std::intptr_t>(settings.EditBackColor));
    SendSci(sci, SCI_STYLESETSIZE, StyleBase, settings.FontHeight);
    SendSci(sci, SCI_STYLESETFONT, StyleBase, settings.FontName.toUtf8().constData());
    SendSci(sci, SCI_STYLESETBOLD, StyleBase, settings.FontBold ? 1 : 0);
    SendSci(sci, SCI_STYLECLEARALL);
    SendSci(sci, SCI_SETCARETLINEBACK, settings.HighlightColor);
    SendSci(sci, SCI_SETCARETLINEVISIBLE, settings.HighlightOn ? 1 : 0);
    SendSci(sci, SCI_SETINDENTATIONGUIDES, settings.IndentGuidesOn ? 1 : 0);
    // Otherwise there is nothing to do: the styles have just been reset to the default.
    if (settings.SyntaxColor > 0)
        SetSyntaxColors(sci, settings);
    if (IsDark(settings.EditBackColor))
        ShowOnDark(sci, settings);
    if (settings.TabSize > 0)
        SendSci(sci, SCI_SETTABWIDTH, static_cast<std::uintptr_t>(settings.TabSize));
    const std::intptr_t width = settings.LineNums ? SendSci(sci, SCI_TEXTWIDTH, StyleLineNumber, "_9999") : 0;
    SendSci(sci, SCI_SETMARGINWIDTHN, 0, width);
}

void SetUpSci(Sci sci, const EditorSettings& settings)
{
    SendSci(sci, SCI_SETLEXER, LanguageLexer);
    SendSci(sci, SCI_SETSTYLEBITS, 7);
    UpdateKeywords(sci);
    SendSciTexts(sci, SCI_SETPROPERTY, "fold", "1");
    SetSciColors(sci, settings);
    SendSci(sci, SCI_SETUSETABS, 0);
    SendSci(sci, SCI_SETBACKSPACEUNINDENTS, static_cast<std::uintptr_t>(-1));
    SendSci(sci, SCI_SETMARGINWIDTHN, BookmarkMargin, 10);
    SendSci(sci, SCI_MARKERDEFINE, BookmarkMarker, 1);
    SendSci(sci, SCI_MARKERSETBACK, BookmarkMarker, static_cast<std::intptr_t>(Rgb(255, 255, 0)));
    SetLineNumberColors(sci, ShownLineNumbers(settings));
    SendSci(sci, SCI_SETWORDCHARS, 0, "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789!$?");
}

} // namespace ob
