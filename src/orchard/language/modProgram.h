// SPDX-License-Identifier: GPL-3.0-or-later
// A program as it was read and resolved: every name has its slot, every call its routine, every jump its statement.
//
// A program is three flat arrays. `statements` are in the order of the text, blocks included: a loop or a condition is
// a statement at its start and one at its end, joined by indices, so that whoever works through the program needs no
// recursion. `nodes` are the operands of the statements, in the order in which they are worked out: an operand comes
// after its own operands (postfix), so that one pass with a stack of operands does. `routines` are the main program and
// its subs and functions.
//
// A program with errors has arrays too, but only its names and errors may be used.
#pragma once

#include "orchard/language/cLineTable.h"
#include "orchard/language/cNames.h"
#include "orchard/language/modWords.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ob::basic {

using Index = std::uint32_t;  // into one of the program's arrays
using Offset = std::uint32_t; // a place in the program's text, in bytes

constexpr Index NoIndex = 0xFFFFFFFF;

enum class NodeKind : std::uint8_t {
    // Values
    Number,   // a: index in `numbers`; constants of the system's interfaces too
    Text,     // a: offset in the text, b: length
    Variable, // scope; a: its slot (see VariableInfo)
    Item,     // a: index in `arrays`; the operands are its one or two indexes
    Field,    // a: index in `structs`, b: the field's name
    Call,     // a: index in `routines`, a function; the operands are its arguments
    Builtin,  // a: Function; the operands are its arguments

    // Operators. The first two have one operand, the others two. Comparisons compare texts when the type of the node
    // directly before them (the right operand) is Text.
    Negate,
    Not,
    Power,
    Multiply,
    Divide,
    Mod,
    Add,
    Join, // texts
    Subtract,
    Equal,
    NotEqual,
    Less,
    Greater,
    LessEqual,
    GreaterEqual,
    And,
    Xor,
    Or,

    // Operands that have no value
    Array,     // a: index in `arrays`, as a whole: `a$()`
    Struct,    // a: index in `structs`, as a whole: `name.struct`, or `name as struct` in calldll
    Handle,    // a: index in `handles`
    HandleOf,  // the handle whose name its one operand (a text variable) holds
    Label,     // a: index in `labels`, a label of this routine, b: its name. a is NoIndex for a control whose label is
               // nowhere in the program: the event is an error then
    Routine,   // a: index in `routines`: the sub that handles an event, the function of callback
    Word,      // a: name: the kind of a window, a corner, a mode
    DataType,  // a: DataType of the operand before it (calldll, callback)
    Separator, // print: a: 0 for `;`, 1 for `,`
    Bar,       // menu: `|`
};

// Where a variable is. Those of a routine are new at each call.
enum class Scope : std::uint8_t {
    Local,  // slot among the routine's numbers or texts, as its type says; value parameters are the first of them
    ByRef,  // slot among the same; what is in it is the caller's variable, item or field
    Global, // slot among the program's global numbers or texts
    System, // slot: SystemVariable
};

enum class Use : std::uint8_t {
    Value,     // read
    Target,    // set: the left side of an assignment, what `input` and `read` fill, what a box answers, a dll's result
    Reference, // handed over to be read and set: an argument for a byref parameter, a text that a dll's `ptr` may fill
    Size,      // Item in dim and redim: the operands are the highest indexes
};

struct Node {
    NodeKind kind;
    Type type;   // Number or Text for what has a value, else None
    Scope scope; // Variable
    Use use;     // Variable, Item, Field
    Index count; // number of operands
    Index first; // the first node of this operand with all that belongs to it; this node is its last
    Index a;
    Index b;
    Offset offset; // the name, the sign or the first byte in the text
};

// The functions date$ and time$ have the type Number or Text as the place needs it where both fit ("days" and the like
// give numbers, known when the argument is a quoted text); with Text a number is shown as str$ does.

enum class StatementKind : std::uint8_t {
    Assign,        // target, value
    Print,         // values and separators; an end without a separator ends the line
    PrintTo,       // the handle, then as Print; `#h "text"` too
    PrintPrinter,  // lprint
    Input,         // [text when `detail` is HasPrompt], targets
    InputFrom,     // the handle, targets
    LineInput,     // [text when `detail` is HasPrompt], one target
    LineInputFrom, // the handle, one target
    Command,       // `detail`: Command; the operands in the order of its row, punctuation left out

    // `target` is the statement that goes on.
    If,        // condition; when false: target
    Else,      // the end of the part before: target, which is the EndIf. `elseif` is an Else and an If
    EndIf,     //
    For,       // variable (Target), first, limit [, step]; when the start is beyond: target, which is after the Next
    Next,      // target: its For; the body is after that
    While,     // condition; when false: target, after the Wend
    Wend,      // target: its While
    Do,        // `detail`: Condition, and then the condition; when the loop is over: target, after the Loop
    Loop,      // `detail`: Condition, and then the condition; when the loop goes on: target, its Do
    Exit,      // exit for, while, do: target, after the loop's end
    Select,    // [value]; without one each case is a condition
    Case,      // values or conditions, `other`: its Select; when none fits: target
    EndCase,   // the end of the case before: target, which is the EndSelect
    CaseElse,  //
    EndSelect, //
    Goto,      // target
    Gosub,     // target
    Return,    //
    OnError,   // target, NoIndex for `on error goto 0`
    Resume,    //

    Call, // `other`: the sub in `routines`; its arguments, Use::Reference for a byref parameter that gets a variable
    RoutineStart, // `other`: the routine; the main program ends here; target: after its RoutineEnd
    RoutineEnd,   // returns
    ExitRoutine,  // exit sub, exit function
    End,          // end, stop
    Label,        // `other`: the label

    Read,       // targets
    Restore,    // `other`: index in `data` of the next item to read
    Data,       // nothing at run time
    Dim,        // Items with Use::Size; redim too
    Global,     // nothing at run time
    DefineType, // struct; `other`: index in `layouts`
    Open, // name (text), type (Word: input, output, append, random, binary, dll, a window's), handle [, record length]
    CallDll,   // handle, name (text), then a value and a DataType each; the last pair is the result, a Target
    CallBack,  // target of the address, Routine, a DataType for each of its arguments, DataType of its result
    EndOfText, // the last statement of every program: waits while windows are open, then ends
};

enum class Condition : std::uint8_t { None, While, Until };
constexpr std::uint8_t HasPrompt = 1;

struct Statement {
    StatementKind kind;
    std::uint8_t detail;
    Index firstNode; // the operands are nodes[firstNode, endNode), one after the other (see Operands)
    Index endNode;
    Index target;
    Index other;
    Offset offset; // of its first word; the line of an error at run time
};

enum class RoutineKind : std::uint8_t { Main, Sub, Function };

struct Routine {
    NameId name; // cNames::NoName for the main program
    RoutineKind kind;
    Type type;            // of a function's value, else None
    Index firstStatement; // its RoutineStart; 0 for the main program
    Index endStatement;   // after its RoutineEnd; for the main program the number of statements: its own are those that
                          // are outside every other routine
    Index firstParameter; // in `parameters`, in the order of the declaration
    Index parameterCount;
    Index firstLabel; // in `labels`
    Index labelCount;
    Index firstVariable; // in `variables`
    Index variableCount;
    Index numberCount; // slots of its number variables: parameters, then the function's value, then the others
    Index textCount;   // slots of its text variables, likewise
    Index valueSlot;   // of a function's value
    Offset offset;
};

struct Parameter {
    NameId name;
    Type type;
    bool byRef;
    Index slot; // among the routine's numbers or texts
    Offset offset;
};

// A variable of one routine, or a global one; all names that the routine uses, for `eval` and for commands to windows.
struct VariableInfo {
    NameId name;
    Type type;
    Scope scope;
    Index slot;
};

struct LabelInfo {
    NameId name; // with its brackets; a number without leading zeros
    Index routine;
    Index statement; // its Label statement
    Index data;      // in `data`: the first item after it
};

struct ArrayInfo {
    NameId name;
    Type type;
};

enum class DataType : std::uint8_t {
    Boolean,
    Char,
    Double,
    DWord,
    Long,
    Ptr,
    Short,
    Struct,
    ULong,
    UShort,
    Void,
    Word,
};

struct FieldInfo {
    NameId name;
    DataType type;
    Type valueType; // Text for char and for a ptr whose name ends in $
    Index offset;   // in bytes, without gaps
    Index size;     // in bytes
};

// One `struct` statement.
struct LayoutInfo {
    Index structure; // in `structs`
    Index firstField;
    Index fieldCount;
    Index size; // in bytes
};

struct StructInfo {
    NameId name;
    Index layout; // NoIndex when statements of this name differ: then the one that ran last counts
};

struct DataItem {
    Offset offset; // quotes and spaces around it are left out
    Index length;
};

// What is wrong at a place of the text.
struct ReadError {
    Offset offset;
    Index length; // 0 at the end of a line
    std::string found;
    std::string expected;

    std::string Text() const { return "found " + found + ", expected " + expected; }
};

struct Program {
    std::unique_ptr<const std::string> source; // its bytes stay where they are when the program is moved
    cLineTable lines;
    cNames names;

    std::vector<Statement> statements;
    std::vector<Node> nodes;
    std::vector<Routine> routines; // the main program is the first

    std::vector<double> numbers;
    std::vector<Parameter> parameters;
    std::vector<LabelInfo> labels; // by routine, in the order of the text
    std::vector<VariableInfo> variables;
    std::vector<VariableInfo> globals; // in the order of their statements
    Index globalNumberCount = 0;
    Index globalTextCount = 0;
    std::vector<ArrayInfo> arrays;
    std::vector<StructInfo> structs;
    std::vector<LayoutInfo> layouts;
    std::vector<FieldInfo> fields;
    std::vector<NameId> handles; // without the #
    std::vector<DataItem> data;

    std::vector<ReadError> errors; // in the order of the text

    std::string_view TextAt(Offset offset, Index length) const
    {
        return std::string_view(*source).substr(offset, length);
    }
};

// The operands of a statement or a node, as the indices of their last nodes, in order. `end` is endNode of a statement,
// or the index of a node. Appends to `operands`.
void AppendOperands(const Program& program, Index first, Index end, std::vector<Index>& operands);

// The field of a layout by name; null when it has none.
const FieldInfo* FindField(const Program& program, Index layout, NameId name);

// A label of the routine by its text, brackets included; NoIndex when there is none.
Index FindLabel(const Program& program, Index routine, std::string_view text);

// A sub or function by its name; NoIndex when there is none.
Index FindRoutine(const Program& program, std::string_view name);

// A variable as the routine sees it: its own, a global one or one of the system. False when the program does not name
// it.
bool FindVariable(const Program& program, Index routine, std::string_view name, VariableInfo& variable);

} // namespace ob::basic
