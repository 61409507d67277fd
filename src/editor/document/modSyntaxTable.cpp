// SPDX-License-Identifier: GPL-3.0-or-later
// The catalogue of syntax hints on the language, and the keyword lists for autocompletion and colouring.
#include "editor/document/modSyntaxTable.h"

#include "platform/language/modRuntime.h"

#include <QResource>
#include <QString>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

LanguageWords& Words()
{
    static LanguageWords words;
    return words;
}

namespace {

constexpr std::size_t ExpectedRows = 231;
constexpr char RowEnd = '|';

// Ordered by hand, with one word listed twice; F2 shows the list exactly like this.
constexpr char KeywordText[] =
    "Abs( Acs( Append As Asc( Asn( Atn( BackgroundColor$ Beep Binary BmpButton BmpSave Boolean Button Call CallBack "
    "CallDLL Case Checkbox Chr$( Close Cls Colordialog Combobox ComboboxColor$ CommandLine$ Confirm Cos( Cursor Data "
    "Date$( DecHex$( DefaultDir$ Dialog Dialog_fs Dialog_modal Dialog_nf Dialog_nf_modal Dialog_nf_fs Dim "
    "DisplayHeight DisplayWidth DLL Do Drives$( Dword Dump Else End Eof( Err Error Err$ Eval( Eval$( Exit Exp Field "
    "FileDialog Files FontDialog End For ForegroundColor$ Function Get GetTrim Global GoSub GoTo Graphics "
    "Graphics_fs Graphics_fs_nsb Graphics_nsb Graphics_nf_nsb Graphicbox Groupbox hBmp( Hexdec( hWnd( If Inkey$ Inp( "
    "Input Input$( Inputto$( Instr( Int( Joy1x Joy1y Joy1z Joy1button1 Joy1button2 Joy2x Joy2y Joy2z Joy2button1 "
    "Joy2button2 Kill Left$( Len( Let Line Listbox ListboxColor$ LL LoadBmp Locate Loc( Lof( Log Long Loop Lower$( "
    "LPrint LR Maphandle Max( Menu Midipos( Mid$( Min( MkDir Name Next NoMainWin Notice On Open Out Output Platform$ "
    "Playmidi PlayWave PopupMenu Print PrinterDialog PrinterFont$ Prompt Ptr Put Radiobutton Randomize Read "
    "Readjoystick ReDim( Rem Restore Return Right$( RmDir Rnd( Run Scan Seek Select Short Sin( Sort Space$( "
    "Spreadsheet Sqr( Statictext Str$( Stopmidi struct Stylebits Sub Tab( Tan( Text Textbox TextboxColor$ Texteditor "
    "TexteditorColor$ Text_fs Text_nsb Text_nsb_ins Then Time$( Timer TitleBar Trace Trim$( Txcount( UL Ulong "
    "UnloadBmp Until Upper$( UpperLeftX UpperLeftY UR Ushort Using( Val( Version$ Void Wait Wend While Window "
    "WindowHeight WindowWidth Window_nf Winstring( Word Word$( ";

// The catalogue's text; for an uncompressed resource this is the resource's memory, not a copy.
std::string_view CatalogueText()
{
    static const QByteArray text = QResource(u":/texts/syntax.txt"_s).uncompressedData();
    return {text.constData(), static_cast<std::size_t>(text.size())};
}

// The rows of the text in their order. The line feed after a row's end only keeps the file readable and belongs to no
// row; what follows the last row's end is not a row.
void SplitRows(std::string_view text, std::vector<std::string_view>& rows)
{
    rows.clear();
    rows.reserve(ExpectedRows);
    for (std::size_t end = text.find(RowEnd); end != std::string_view::npos; end = text.find(RowEnd)) {
        rows.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
        if (text.starts_with('\n'))
            text.remove_prefix(1);
    }
}

} // namespace

void BuildSyntaxTable()
{
    SplitRows(CatalogueText(), Words().SyntaxTable);
    Words().SyntaxTableLast = static_cast<std::int16_t>(static_cast<int>(Words().SyntaxTable.size()) - 1);
    Words().KeywordList = QByteArray::fromRawData(KeywordText, sizeof(KeywordText) - 1);
    Words().LexerKeywords = Words().KeywordList.toLower();
}

std::string_view KeyOfRow(std::string_view row)
{
    return row.substr(0, row.find(' '));
}

std::string_view ReportedKey(std::string_view row)
{
    const std::string_view key = KeyOfRow(row);
    return key.substr(0, key.find('\n'));
}

std::optional<int> FindSyntaxRow(std::string_view term)
{
    const auto found = std::ranges::find_if(Words().SyntaxTable, [term](std::string_view row) {
        return EqualsIgnoreCase(QByteArrayView(KeyOfRow(row)), QByteArrayView(term));
    });
    if (found == Words().SyntaxTable.end())
        return std::nullopt;
    return static_cast<int>(found - Words().SyntaxTable.begin());
}

std::string_view SyntaxTip(std::string_view term)
{
    const std::optional<int> row = FindSyntaxRow(term);
    return row ? Words().SyntaxTable[static_cast<std::size_t>(*row)] : NoSyntaxHelp;
}

} // namespace ob
