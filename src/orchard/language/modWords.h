// SPDX-License-Identifier: GPL-3.0-or-later
// The words of the language, a row each: statements with their arguments, functions with theirs, variables of the
// system.
#pragma once

#include <cstdint>
#include <string_view>

namespace ob::basic {

enum class Type : std::uint8_t {
    None,   // no value: a handle, a label, an array as a whole
    Number, // a 64-bit float
    Text,   // bytes
    Either, // rows of this table alone: what the argument is decides
};

// The statements that have a parsing routine of their own.
enum class Keyword : std::uint8_t {
    Call,
    CallBack,
    CallDll,
    Case,
    Data,
    Dim,
    Do,
    Else,
    ElseIf,
    End,
    EndIf,
    Exit,
    For,
    Function,
    Global,
    GoSub,
    GoTo,
    If,
    Input,
    Let,
    Line,
    Loop,
    LPrint,
    Next,
    On,
    Open,
    Print,
    Read,
    ReDim,
    Rem,
    Restore,
    Resume,
    Return,
    Select,
    Stop,
    Struct,
    Sub,
    Wend,
    While,
    // Reserved inside statements
    And,
    As,
    ByRef,
    Mod,
    Not,
    Or,
    Step,
    Then,
    To,
    Until,
    Xor,
};

// The statements whose arguments are a row of the table. `Command` is also the number of the routine that runs it.
enum class Command : std::uint8_t {
    Beep,
    BmpButton,
    BmpSave,
    Button,
    CheckBox,
    Close,
    Cls,
    ColorDialog,
    ComboBox,
    Confirm,
    Cursor,
    Dump,
    Field,
    FileDialog,
    Files,
    FontDialog,
    Get,
    GetTrim,
    GraphicBox,
    GroupBox,
    Kill,
    ListBox,
    LoadBmp,
    Locate,
    MainWin,
    MapHandle,
    Menu,
    Name,
    NoMainWin,
    Notice,
    OnComError,
    Out,
    PlayMidi,
    PlayWave,
    PopupMenu,
    PrinterDialog,
    Prompt,
    Put,
    RadioButton,
    Randomize,
    ReadJoystick,
    Run,
    Scan,
    Seek,
    Sort,
    StaticText,
    StopMidi,
    StyleBits,
    TextBox,
    TextEditor,
    Timer,
    TitleBar,
    Trace,
    UnloadBmp,
    Wait,
    Count,
};

// The functions, which are such where `(` follows. `Function` is also the number of the routine that works it out.
enum class Function : std::uint8_t {
    Abs,
    Acs,
    Asc,
    Asn,
    Atn,
    Chr,
    Cos,
    Date, // its type goes by the argument: see Program
    DecHex,
    Eof,
    Eval,
    EvalText,
    Exp,
    HBmp,
    HexDec,
    HWnd,
    Inp,
    Input,
    InputTo,
    InStr,
    Int,
    Left,
    Len,
    Loc,
    Lof,
    Log,
    Lower,
    Max,
    Mid,
    MidiPos,
    Min,
    MkDir,
    RemDir, // rmdir and remdir
    Right,
    Rnd,
    Sgn,
    Sin,
    Space,
    Sqr,
    Str,
    Tab, // an item of print, without a type
    Tan,
    Time, // as Date
    Trim,
    TxCount,
    Upper,
    Using,
    Val,
    WinString,
    Word,
    Count,
};

// The variables that the system sets or heeds. All routines share them, as if they were global.
enum class SystemVariable : std::uint8_t {
    BackgroundColor,
    ComboboxColor,
    CommandLine,
    DefaultDir,
    DisplayHeight,
    DisplayWidth,
    Drives,
    Err,
    ErrText,
    ForegroundColor,
    InKey,
    Joy1Button1,
    Joy1Button2,
    Joy1X,
    Joy1Y,
    Joy1Z,
    Joy2Button1,
    Joy2Button2,
    Joy2X,
    Joy2Y,
    Joy2Z,
    ListboxColor,
    MouseX,
    MouseY,
    Platform,
    PrinterFont,
    TextboxColor,
    TexteditorColor,
    UpperLeftX,
    UpperLeftY,
    Version,
    WindowHeight,
    WindowWidth,
    Count,
};

// A row's arguments, a character each:
//   n number, t text, e either          N, T, V   a variable, item or field that is set: number, text, either
//   A text array, a any array           h handle       l label or sub       m item of a menu: text and label, or |
//   w bare word, or a text when it begins with a quote or a name that ends in $
//   s a struct or a text                , ;   as written       ~ a comma or nothing       @ the word as
//   [...] may be left out               {...} any number of times, none included
struct CommandRow {
    std::string_view word;
    std::string_view arguments;
};

struct FunctionRow {
    std::string_view word;
    Type type;
    std::string_view arguments;
};

struct SystemVariableRow {
    std::string_view word;
    Type type;
};

const CommandRow& RowOf(Command command);
const FunctionRow& RowOf(Function function);
const SystemVariableRow& RowOf(SystemVariable variable);
std::string_view WordOf(Keyword keyword);

enum class WordKind : std::uint8_t {
    Name,
    Keyword,
    Command,
    Function,
    SystemVariable,
    StructPath, // a struct or a field of one: the name ends in .struct
};

// What a spelling means to the language; `number` is the enumerator of the kind.
struct WordMeaning {
    WordKind kind = WordKind::Name;
    std::uint8_t number = 0;

    bool operator==(const WordMeaning&) const = default;
    bool Is(Keyword keyword) const { return kind == WordKind::Keyword && number == static_cast<std::uint8_t>(keyword); }
};

// Looks a word up in any case.
WordMeaning MeaningOf(std::string_view word);

} // namespace ob::basic
