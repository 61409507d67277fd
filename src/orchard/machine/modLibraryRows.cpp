// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of the library that code calls.
#include "orchard/machine/modLibraryRows.h"

#include "orchard/library/modDates.h"
#include "orchard/library/modNumbers.h"
#include "orchard/library/modTexts.h"
#include "orchard/machine/cRun.h"
#include "orchard/machine/modSort.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <variant>

namespace ob::basic {

namespace {

constexpr std::size_t RowCount = RowNumber(Command::Count);
using Rows = std::array<LibraryRow, RowCount>;

cRun& RunOf(cMachine& machine)
{
    return static_cast<cRun&>(*machine.Context());
}

// What only a host with windows has.
void NeedWindow(cMachine&, double*, cText* t)
{
    throw WindowNeeded{std::string(t[0].View())};
}

// A number that names an array, a struct or a layout; UnknownName beyond what the code has.
std::size_t NumberBelow(double number, std::size_t count)
{
    if (!(number >= 0 && number < static_cast<double>(count)))
        Fail(ErrorNumber::UnknownName);
    return static_cast<std::size_t>(number);
}

template <class Row, class Routine>
constexpr void Put(Rows& rows, Row row, Routine routine, std::uint16_t numbers, std::uint16_t texts,
                   ValueType result = ValueType::None)
{
    rows[RowNumber(row)] = {routine, numbers, texts, result};
}

constexpr void PutPrinting(Rows& rows)
{
    Put(
        rows, ServiceRow::PrintNumber, [](cMachine& m, double* n, cText*) { RunOf(m).Output().Number(n[0]); }, 1, 0);
    Put(
        rows, ServiceRow::PrintText, [](cMachine& m, double*, cText* t) { RunOf(m).Output().Text(t[0].View()); }, 0, 1);
    Put(
        rows, ServiceRow::PrintComma, [](cMachine& m, double*, cText*) { RunOf(m).Output().Comma(); }, 0, 0);
    Put(
        rows, ServiceRow::PrintTab, [](cMachine& m, double* n, cText*) { RunOf(m).Output().Tab(n[0]); }, 1, 0);
    Put(
        rows, ServiceRow::PrintEnd,
        [](cMachine& m, double*, cText*) {
            RunOf(m).Output().EndLine();
            RunOf(m).EndPrint();
        },
        0, 0);
    Put(
        rows, ServiceRow::PrintDone,
        [](cMachine& m, double*, cText*) {
            RunOf(m).Output().EndStatement();
            RunOf(m).EndPrint();
        },
        0, 0);
    Put(
        rows, ServiceRow::PrintTo, [](cMachine& m, double*, cText* t) { RunOf(m).PrintTo(t[0].View()); }, 0, 1);
    Put(
        rows, ServiceRow::PrintPrinter, [](cMachine&, double*, cText*) { throw WindowNeeded{"lprint"}; }, 0, 0);
    Put(rows, ServiceRow::Unsupported, NeedWindow, 0, 1);
}

constexpr void PutInput(Rows& rows)
{
    Put(
        rows, ServiceRow::InputStart, [](cMachine& m, double*, cText* t) { RunOf(m).AskFor(t[0].View()); }, 0, 1);
    Put(
        rows, ServiceRow::InputAsk, [](cMachine& m, double*, cText*) { RunOf(m).AskFor(cQuestion::Mark); }, 0, 0);
    Put(
        rows, ServiceRow::InputFrom, [](cMachine& m, double*, cText* t) { RunOf(m).ReadFrom(t[0].View()); }, 0, 1);
    Put(
        rows, ServiceRow::InputNumber, [](cMachine& m, double* n, cText*) { n[0] = Val(RunOf(m).NextItem()); }, 0, 0,
        ValueType::Number);
    Put(
        rows, ServiceRow::InputText, [](cMachine& m, double*, cText* t) { t[0] = cText(RunOf(m).NextItem()); }, 0, 0,
        ValueType::Text);
    Put(
        rows, ServiceRow::InputEnd, [](cMachine& m, double*, cText*) { RunOf(m).EndInput(); }, 0, 0);
    Put(
        rows, ServiceRow::LineInput, [](cMachine& m, double*, cText* t) { t[0] = cText(RunOf(m).NextLine()); }, 0, 0,
        ValueType::Text);
    Put(
        rows, ServiceRow::ReadNumber, [](cMachine& m, double* n, cText*) { n[0] = Val(RunOf(m).NextData(m.Code())); },
        0, 0, ValueType::Number);
    Put(
        rows, ServiceRow::ReadText,
        [](cMachine& m, double*, cText* t) { t[0] = cText::Literal(RunOf(m).NextData(m.Code())); }, 0, 0,
        ValueType::Text);
    Put(
        rows, ServiceRow::Restore, [](cMachine& m, double* n, cText*) { RunOf(m).RestoreData(n[0]); }, 1, 0);
}

constexpr void PutFiles(Rows& rows)
{
    Put(
        rows, ServiceRow::Open,
        [](cMachine& m, double* n, cText* t) { RunOf(m).Open(t[0].View(), t[1].View(), t[2].View(), n[0]); }, 1, 3);
    Put(
        rows, ServiceRow::FieldStart, [](cMachine& m, double*, cText* t) { RunOf(m).StartFields(t[0].View()); }, 0, 1);
    Put(
        rows, ServiceRow::FieldNumber,
        [](cMachine& m, double* n, cText*) { RunOf(m).AddField(n[0], n[1], ValueType::Number); }, 2, 0);
    Put(
        rows, ServiceRow::FieldText,
        [](cMachine& m, double* n, cText*) { RunOf(m).AddField(n[0], n[1], ValueType::Text); }, 2, 0);
    Put(
        rows, ServiceRow::FieldEnd, [](cMachine& m, double*, cText*) { RunOf(m).EndFields(); }, 0, 0);
    Put(
        rows, Command::Close, [](cMachine& m, double*, cText* t) { RunOf(m).Close(t[0].View()); }, 0, 1);
    Put(
        rows, Command::Put, [](cMachine& m, double* n, cText* t) { RunOf(m).Put(m, t[0].View(), n[0]); }, 1, 1);
    Put(
        rows, Command::Get,
        [](cMachine& m, double* n, cText* t) { RunOf(m).Get(m, t[0].View(), n[0], cRun::Blanks::Keep); }, 1, 1);
    Put(
        rows, Command::GetTrim,
        [](cMachine& m, double* n, cText* t) { RunOf(m).Get(m, t[0].View(), n[0], cRun::Blanks::Trim); }, 1, 1);
    Put(
        rows, Command::Seek, [](cMachine& m, double* n, cText* t) { RunOf(m).FileOf(t[0].View()).Seek(n[0]); }, 1, 1);
    Put(
        rows, Command::Kill, [](cMachine& m, double*, cText* t) { RunOf(m).host.Files().Kill(t[0].View()); }, 0, 1);
    Put(
        rows, Command::Name,
        [](cMachine& m, double*, cText* t) { RunOf(m).host.Files().Rename(t[0].View(), t[1].View()); }, 0, 2);
    Put(
        rows, Command::MapHandle, [](cMachine& m, double*, cText* t) { RunOf(m).Rename(t[0].View(), t[1].View()); }, 0,
        2);
    Put(
        rows, Command::Files,
        [](cMachine& m, double* n, cText* t) {
            cArray<cText>& array = m.TextArray(NumberBelow(-n[0] - 1, m.Code().textArrays));
            const FolderEntries found = RunOf(m).host.Files().List(t[0].View(), t[1].View());
            const std::size_t count = found.files.size() + found.folders.size();
            array.Dim(std::max<std::size_t>(count, 1), 3);
            array.Items()[0] = cText(std::to_string(found.files.size()));
            array.Items()[1] = cText(std::to_string(found.folders.size()));
            cText* item = array.Items() + array.Columns();
            for (const auto* entries : {&found.files, &found.folders})
                for (const FolderEntry& entry : *entries)
                    for (const std::string& text : {entry.name, entry.size, entry.date, entry.time})
                        *item++ = cText(text);
        },
        1, 2);
    Put(
        rows, Function::Eof,
        [](cMachine& m, double* n, cText* t) { n[0] = RunOf(m).FileOf(t[0].View()).Eof() ? -1 : 0; }, 0, 1,
        ValueType::Number);
    Put(
        rows, Function::Lof, [](cMachine& m, double* n, cText* t) { n[0] = RunOf(m).FileOf(t[0].View()).Length(); }, 0,
        1, ValueType::Number);
    Put(
        rows, Function::Loc, [](cMachine& m, double* n, cText* t) { n[0] = RunOf(m).FileOf(t[0].View()).Location(); },
        0, 1, ValueType::Number);
    Put(
        rows, Function::MkDir,
        [](cMachine& m, double* n, cText* t) { n[0] = RunOf(m).host.Files().MakeFolder(t[0].View()); }, 0, 1,
        ValueType::Number);
    Put(
        rows, Function::RemDir,
        [](cMachine& m, double* n, cText* t) { n[0] = RunOf(m).host.Files().RemoveFolder(t[0].View()); }, 0, 1,
        ValueType::Number);
}

// A count of bytes to read; OutOfRange for a negative one.
std::size_t ByteCount(double count)
{
    if (count <= -1)
        Fail(ErrorNumber::OutOfRange);
    return static_cast<std::size_t>(std::max<std::int64_t>(WholePart(count), 0));
}

constexpr void PutInputFunctions(Rows& rows)
{
    Put(
        rows, Function::Input,
        [](cMachine& m, double* n, cText* t) {
            RunOf(m).host.Console().EndStatement();
            t[0] = cText(RunOf(m).host.Console().Bytes(ByteCount(n[0])));
        },
        1, 0, ValueType::Text);
    Put(
        rows, ServiceRow::InputFromHandle,
        [](cMachine& m, double* n, cText* t) { t[0] = cText(RunOf(m).FileOf(t[0].View()).Bytes(ByteCount(n[0]))); }, 1,
        1, ValueType::Text);
    Put(
        rows, Function::InputTo,
        [](cMachine& m, double*, cText* t) { t[0] = cText(RunOf(m).FileOf(t[0].View()).UpTo(t[1].View())); }, 0, 2,
        ValueType::Text);
}

template <class Function>
void WorkOut(cMachine&, double* n, cText*)
{
    n[0] = Checked(Function{}(n[0]));
}

// The row of a function from number to number.
template <class Function>
constexpr LibraryRoutine OneNumber(Function)
{
    return WorkOut<Function>;
}

constexpr void PutNumbers(Rows& rows)
{
    const auto one = [&rows](Function row, LibraryRoutine routine) {
        Put(rows, row, routine, 1, 0, ValueType::Number);
    };
    one(Function::Abs, OneNumber([](double x) { return std::abs(x); }));
    one(Function::Int, OneNumber([](double x) { return std::trunc(x) + 0.0; }));
    one(Function::Sqr, OneNumber([](double x) { return Sqr(x); }));
    one(Function::Log, OneNumber([](double x) { return Log(x); }));
    one(Function::Asn, OneNumber([](double x) { return Asn(x); }));
    one(Function::Acs, OneNumber([](double x) { return Acs(x); }));
    one(Function::Atn, OneNumber([](double x) { return std::atan(x); }));
    one(Function::Sin, OneNumber([](double x) { return std::sin(x); }));
    one(Function::Cos, OneNumber([](double x) { return std::cos(x); }));
    one(Function::Tan, OneNumber([](double x) { return std::tan(x); }));
    one(Function::Exp, OneNumber([](double x) { return std::exp(x); }));
    one(Function::Sgn, OneNumber([](double x) { return x > 0 ? 1.0 : x < 0 ? -1.0 : 0.0; }));
    one(Function::Rnd, [](cMachine& m, double* n, cText*) { n[0] = RunOf(m).random.Next(); });
    Put(
        rows, Function::Max, [](cMachine&, double* n, cText*) { n[0] = std::max(n[0], n[1]); }, 2, 0,
        ValueType::Number);
    Put(
        rows, Function::Min, [](cMachine&, double* n, cText*) { n[0] = std::min(n[0], n[1]); }, 2, 0,
        ValueType::Number);
    Put(
        rows, Command::Randomize, [](cMachine& m, double* n, cText*) { RunOf(m).random.Seed(n[0]); }, 1, 0);
}

constexpr void PutTexts(Rows& rows)
{
    const auto text = [&rows](Function row, LibraryRoutine routine, std::uint16_t numbers, std::uint16_t texts) {
        Put(rows, row, routine, numbers, texts, ValueType::Text);
    };
    const auto number = [&rows](Function row, LibraryRoutine routine, std::uint16_t numbers, std::uint16_t texts) {
        Put(rows, row, routine, numbers, texts, ValueType::Number);
    };
    text(
        Function::Left, [](cMachine&, double* n, cText* t) { t[0] = t[0].Slice(Left(t[0].View(), n[0])); }, 1, 1);
    text(
        Function::Right, [](cMachine&, double* n, cText* t) { t[0] = t[0].Slice(Right(t[0].View(), n[0])); }, 1, 1);
    text(
        Function::Mid, [](cMachine&, double* n, cText* t) { t[0] = t[0].Slice(Mid(t[0].View(), n[0], n[1])); }, 2, 1);
    text(
        Function::Trim, [](cMachine&, double*, cText* t) { t[0] = t[0].Slice(Trim(t[0].View())); }, 0, 1);
    text(
        Function::Word,
        [](cMachine& m, double* n, cText* t) { t[0] = t[0].Slice(RunOf(m).WordOf(t[0], n[0], t[1].View())); },
        1, 2);
    text(
        Function::Lower, [](cMachine&, double*, cText* t) { t[0] = cText(Lower(t[0].View())); }, 0, 1);
    text(
        Function::Upper, [](cMachine&, double*, cText* t) { t[0] = cText(Upper(t[0].View())); }, 0, 1);
    text(
        Function::Space, [](cMachine&, double* n, cText* t) { t[0] = cText(Space(n[0])); }, 1, 0);
    text(
        Function::Chr,
        [](cMachine&, double* n, cText* t) { t[0] = cText::Character(static_cast<std::uint8_t>(Chr(n[0]))); }, 1, 0);
    text(
        Function::Str,
        [](cMachine&, double* n, cText* t) {
            NumberBuffer digits;
            t[0] = cText(NumberText(n[0], digits));
        },
        1, 0);
    text(
        Function::DecHex, [](cMachine&, double* n, cText* t) { t[0] = cText(DecHex(n[0])); }, 1, 0);
    text(
        Function::Using, [](cMachine&, double* n, cText* t) { t[0] = cText(Using(t[0].View(), n[0])); }, 1, 1);
    number(
        Function::HexDec, [](cMachine&, double* n, cText* t) { n[0] = HexDec(t[0].View()); }, 0, 1);
    number(
        Function::Val, [](cMachine&, double* n, cText* t) { n[0] = Val(t[0].View()); }, 0, 1);
    number(
        Function::Asc, [](cMachine&, double* n, cText* t) { n[0] = Asc(t[0].View()); }, 0, 1);
    number(
        Function::Len, [](cMachine&, double* n, cText* t) { n[0] = static_cast<double>(t[0].Size()); }, 0, 1);
    number(
        Function::InStr, [](cMachine&, double* n, cText* t) { n[0] = Instr(t[0].View(), t[1].View(), n[0]); }, 1, 2);
}

double NumberOf(const NumberOrText& value)
{
    const auto* number = std::get_if<double>(&value);
    return number != nullptr ? *number : Val(std::get<std::string>(value));
}

cText TextOf(const NumberOrText& value)
{
    const auto* number = std::get_if<double>(&value);
    return cText(number != nullptr ? NumberText(*number) : std::get<std::string>(value));
}

constexpr void PutDates(Rows& rows)
{
    Put(
        rows, Function::Date,
        [](cMachine& m, double*, cText* t) { t[0] = TextOf(Date(t[0].View(), RunOf(m).host.Now())); }, 0, 1,
        ValueType::Text);
    Put(
        rows, ServiceRow::DateNumber,
        [](cMachine& m, double* n, cText* t) { n[0] = NumberOf(Date(t[0].View(), RunOf(m).host.Now())); }, 0, 1,
        ValueType::Number);
    Put(
        rows, ServiceRow::DateOfDays, [](cMachine&, double* n, cText* t) { t[0] = cText(DateOfDays(n[0])); }, 1, 0,
        ValueType::Text);
    Put(
        rows, Function::Time,
        [](cMachine& m, double*, cText* t) { t[0] = TextOf(Time(t[0].View(), RunOf(m).host.Now())); }, 0, 1,
        ValueType::Text);
    Put(
        rows, ServiceRow::TimeNumber,
        [](cMachine& m, double* n, cText* t) { n[0] = NumberOf(Time(t[0].View(), RunOf(m).host.Now())); }, 0, 1,
        ValueType::Number);
}

cStructs& StructsOf(cMachine& machine)
{
    return RunOf(machine).Structs(machine.Code());
}

std::size_t StructIn(cMachine& machine, const double* n)
{
    return NumberBelow(n[0], machine.Code().structCount);
}

constexpr void PutStructs(Rows& rows)
{
    Put(
        rows, ServiceRow::StructDefine,
        [](cMachine& m, double* n, cText*) { StructsOf(m).Define(NumberBelow(n[0], m.Code().layouts.size())); }, 1, 0);
    Put(
        rows, ServiceRow::StructSize,
        [](cMachine& m, double* n, cText*) { n[0] = static_cast<double>(StructsOf(m).Size(StructIn(m, n))); }, 1, 0,
        ValueType::Number);
    Put(
        rows, ServiceRow::FieldGetNumber,
        [](cMachine& m, double* n, cText* t) { n[0] = StructsOf(m).Number(StructIn(m, n), t[0].View()); }, 1, 1,
        ValueType::Number);
    Put(
        rows, ServiceRow::FieldGetText,
        [](cMachine& m, double* n, cText* t) { t[0] = StructsOf(m).Text(StructIn(m, n), t[0].View()); }, 1, 1,
        ValueType::Text);
    Put(
        rows, ServiceRow::FieldSetNumber,
        [](cMachine& m, double* n, cText* t) { StructsOf(m).SetNumber(StructIn(m, n), t[0].View(), n[1]); }, 2, 1);
    Put(
        rows, ServiceRow::FieldSetText,
        [](cMachine& m, double* n, cText* t) { StructsOf(m).SetText(StructIn(m, n), t[0].View(), t[1]); }, 1, 2);
}

constexpr void PutConsole(Rows& rows)
{
    Put(
        rows, Command::Beep, [](cMachine& m, double*, cText*) { RunOf(m).host.Console().Beep(); }, 0, 0);
    Put(
        rows, Command::Cls, [](cMachine& m, double*, cText*) { RunOf(m).host.Console().Clear(); }, 0, 0);
    Put(
        rows, Command::Locate, [](cMachine& m, double* n, cText*) { RunOf(m).host.Console().Locate(n[0], n[1]); }, 2,
        0);
    Put(
        rows, Command::MainWin, [](cMachine& m, double* n, cText*) { RunOf(m).host.Console().SetSize(n[0], n[1]); }, 2,
        0);
    Put(
        rows, Command::NoMainWin, [](cMachine& m, double*, cText*) { RunOf(m).host.Console().Hide(); }, 0, 0);
    Put(
        rows, Command::TitleBar, [](cMachine& m, double*, cText* t) { RunOf(m).host.Console().SetTitle(t[0].View()); },
        0, 1);
    Put(
        rows, Command::Trace, [](cMachine&, double*, cText*) {}, 1, 0);
    Put(
        rows, Command::Dump, [](cMachine& m, double*, cText*) { RunOf(m).host.SendToPrinter(); }, 0, 0);
    Put(
        rows, Command::Notice, [](cMachine& m, double*, cText* t) { RunOf(m).host.Notice(t[0].View()); }, 0, 1);
    Put(
        rows, Command::Confirm,
        [](cMachine& m, double*, cText* t) {
            t[0] = cText::Literal(RunOf(m).host.Confirm(t[0].View()) ? "yes" : "no");
        },
        0, 1, ValueType::Text);
    Put(
        rows, Command::Prompt,
        [](cMachine& m, double*, cText* t) { t[0] = cText(RunOf(m).host.Prompt(t[0].View(), {})); }, 0, 1,
        ValueType::Text);
    Put(
        rows, Command::Run,
        [](cMachine& m, double*, cText* t) { RunOf(m).host.OpenOnDesktop(t[0].View(), t[1].View()); }, 0, 2);
    Put(
        rows, Command::Timer, [](cMachine& m, double* n, cText*) { RunOf(m).SetTimer(n[0], n[1]); }, 2, 0);
    Put(
        rows, Command::Scan, [](cMachine& m, double*, cText*) { RunOf(m).HandleDueEvents(); }, 0, 0);
    Put(
        rows, Command::Wait, [](cMachine& m, double*, cText*) { RunOf(m).WaitForEvent(m); }, 0, 0);
    Put(
        rows, Command::Sort,
        [](cMachine& m, double* n, cText*) {
            if (n[0] < 0)
                SortArray(m.TextArray(NumberBelow(-n[0] - 1, m.Code().textArrays)), n[1], n[2], n[3], m);
            else
                SortArray(m.NumberArray(NumberBelow(n[0], m.Code().numberArrays)), n[1], n[2], n[3], m);
        },
        4, 0);
}

constexpr Rows AllRows = [] {
    Rows rows = {};
    // What a program in a console does not have; the text in the first register names it.
    for (LibraryRow& row : rows)
        row = {NeedWindow, 0, 1, ValueType::None};
    PutPrinting(rows);
    PutInput(rows);
    PutFiles(rows);
    PutInputFunctions(rows);
    PutNumbers(rows);
    PutTexts(rows);
    PutDates(rows);
    PutStructs(rows);
    PutConsole(rows);
    return rows;
}();

} // namespace

std::span<const LibraryRow> LibraryRows()
{
    return AllRows;
}

} // namespace ob::basic
