// SPDX-License-Identifier: GPL-3.0-or-later
// The machine runs programs that were put together by hand.
#include "orchard/machine/SmallPrograms.h"

#include <QTest>

#include <chrono>
#include <thread>

using namespace programs;
using O = Operation;

namespace {

std::vector<double> Run(const MachineCode& program)
{
    const auto wrong = ob::basic::CheckMachineCode(program, Library());
    if (wrong)
        qFatal("%s", wrong->c_str());
    Shown().clear();
    ShownText().clear();
    ob::basic::cMachine machine(program, Library());
    machine.Run();
    return Shown();
}

// The number and line of the error that ends the program.
std::pair<int, std::uint32_t> ErrorOf(const MachineCode& program)
{
    try {
        Run(program);
    } catch (const ob::basic::cRunError& error) {
        return {error.number, error.line};
    }
    return {0, 0};
}

double Binary(Operation operation, double left, double right)
{
    return Run(Alone({{O::Load, 0, 0, 0}, {O::Load, 1, 1, 0}, {operation, 2, 0, 1}, {O::Library, 0, 2, 0}, {O::End}},
                     {left, right}, 3))
        .at(0);
}

} // namespace

class tst_cMachine final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void arithmetic_data();
    void arithmetic();
    void errorsOfArithmetic_data();
    void errorsOfArithmetic();
    void recursion();
    void deepRecursion();
    void countedLoops_data();
    void countedLoops();
    void arrays();
    void arraysOfTexts();
    void indexesBeyondAnArray();
    void texts();
    void gosub();
    void returnWithoutGosub();
    void references();
    void referencesToLostItems();
    void handlerAndResume();
    void handlerOfTheCaller();
    void stopsInALoop();
};

void tst_cMachine::arithmetic_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<double>("left");
    QTest::addColumn<double>("right");
    QTest::addColumn<double>("result");
    QTest::newRow("add") << O::Add << 1.5 << 2.25 << 3.75;
    QTest::newRow("subtract") << O::Subtract << 1.0 << 3.0 << -2.0;
    QTest::newRow("multiply") << O::Multiply << 1.5 << -4.0 << -6.0;
    QTest::newRow("divide") << O::Divide << 1.0 << 4.0 << 0.25;
    QTest::newRow("modulo_of_negative") << O::Modulo << -7.0 << 3.0 << -1.0;
    QTest::newRow("modulo_by_negative") << O::Modulo << 7.0 << -3.0 << 1.0;
    QTest::newRow("modulo_of_fraction") << O::Modulo << 5.5 << 2.0 << 1.5;
    QTest::newRow("modulo_of_large") << O::Modulo << 0x1p60 << 10.0 << 6.0;
    QTest::newRow("power") << O::Power << 2.0 << -1.0 << 0.5;
    QTest::newRow("and") << O::And << 12.9 << 10.0 << 8.0;
    QTest::newRow("or_of_negative") << O::Or << -16.0 << 5.0 << -11.0;
    QTest::newRow("xor") << O::Xor << 6.0 << 3.0 << 5.0;
    QTest::newRow("xor_beyond_64_bits") << O::Xor << 0x1p64 << 3.0 << 3.0;
    QTest::newRow("less") << O::Less << 1.0 << 2.0 << 1.0;
    QTest::newRow("less_or_equal") << O::LessOrEqual << 3.0 << 2.0 << 0.0;
    QTest::newRow("equal") << O::Equal << 2.0 << 2.0 << 1.0;
    QTest::newRow("unequal") << O::Unequal << 2.0 << 2.0 << 0.0;
}

void tst_cMachine::arithmetic()
{
    QFETCH(const Operation, operation);
    QFETCH(const double, left);
    QFETCH(const double, right);
    QTEST(Binary(operation, left, right), "result");
}

void tst_cMachine::errorsOfArithmetic_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<double>("left");
    QTest::addColumn<double>("right");
    QTest::addColumn<int>("error");
    QTest::newRow("division") << O::Divide << 1.0 << 0.0 << 11;
    QTest::newRow("modulo") << O::Modulo << 1.0 << 0.0 << 11;
    QTest::newRow("power_of_zero") << O::Power << 0.0 << -1.0 << 11;
    QTest::newRow("power_without_real_value") << O::Power << -8.0 << 0.5 << 5;
    QTest::newRow("power_too_large") << O::Power << 10.0 << 400.0 << 6;
    QTest::newRow("product_too_large") << O::Multiply << 1e300 << 1e10 << 6;
    QTest::newRow("sum_too_large") << O::Add << 1.7e308 << 1.7e308 << 6;
}

void tst_cMachine::errorsOfArithmetic()
{
    QFETCH(const Operation, operation);
    QFETCH(const double, left);
    QFETCH(const double, right);
    QFETCH(const int, error);
    const auto raised =
        ErrorOf(Alone({{O::Load, 0, 0, 0}, {O::Load, 1, 1, 0}, {operation, 2, 0, 1}, {O::End}}, {left, right}, 3));
    QCOMPARE(raised.first, error);
    QCOMPARE(raised.second, 3U);
}

void tst_cMachine::recursion()
{
    QCOMPARE(Run(Fibonacci(20)), std::vector<double>{6765});
}

void tst_cMachine::deepRecursion()
{
    // deep(n) = n when n < 1, else deep(n - 1) + 1
    MachineCode program = Fibonacci(1000000);
    program.instructions = {{O::Load, 0, 0, 0},
                            {O::Call, 1, 0, 0},
                            {O::Library, 0, 0, 0},
                            {O::End},
                            {O::JumpIfGreaterOrEqualK, 0, 1, 2},
                            {O::Move, 1, 0, 0},
                            {O::Return},
                            {O::AddK, 2, 0, 2},
                            {O::Call, 1, 2, 0},
                            {O::AddK, 1, 2, 1},
                            {O::Return}};
    program.numbers = {1000000, 1, -1};
    program.routines[1].end = 11;
    program.statements = {{0, 1}};
    QCOMPARE(Run(program), std::vector<double>{1000000});
}

void tst_cMachine::countedLoops_data()
{
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::addColumn<double>("step");
    QTest::addColumn<int>("times");
    QTest::addColumn<double>("after");
    QTest::newRow("up") << 1.0 << 3.0 << 1.0 << 3 << 4.0;
    QTest::newRow("down") << 3.0 << 1.0 << -1.0 << 3 << 0.0;
    QTest::newRow("fractions") << 0.0 << 1.0 << 0.25 << 5 << 1.25;
    QTest::newRow("never") << 5.0 << 1.0 << 1.0 << 0 << 5.0;
    QTest::newRow("never_down") << 1.0 << 5.0 << -1.0 << 0 << 1.0;
    QTest::newRow("once") << 1.0 << 1.0 << 10.0 << 1 << 11.0;
}

void tst_cMachine::countedLoops()
{
    QFETCH(const double, from);
    QFETCH(const double, to);
    QFETCH(const double, step);
    // Registers: variable, limit, step, count.
    const std::vector<double> shown = Run(Alone({{O::Load, 0, 0, 0},
                                                 {O::Load, 1, 1, 0},
                                                 {O::Load, 2, 2, 0},
                                                 {O::ForTest, 0, 1, 2},
                                                 {O::AddK, 3, 3, 3},
                                                 {O::ForStep, 0, 1, Over(-2)},
                                                 {O::Library, 0, 3, 0},
                                                 {O::Library, 0, 0, 0},
                                                 {O::End}},
                                                {from, to, step, 1}, 4));
    QTEST(static_cast<int>(shown.at(0)), "times");
    QTEST(shown.at(1), "after");
}

void tst_cMachine::arrays()
{
    MachineCode program = Alone({{O::Load, 0, 0, 0},
                                 {O::Load, 1, 1, 0},
                                 {O::SetItem, 0, 0, 1}, // a(2.9) = 7, of an array that nobody dimensioned
                                 {O::Load, 2, 2, 0},
                                 {O::GetItem, 3, 0, 2}, // a(2)
                                 {O::Library, 0, 3, 0},
                                 {O::Dim2, 2, 1, 1}, // b(2, 2)
                                 {O::SetItem2, 0, 1, 1},
                                 {O::More, 2, 0, 0}, // b(2.9, 2) = 7
                                 {O::GetItem2, 3, 1, 2},
                                 {O::More, 1, 0, 0},
                                 {O::Library, 0, 3, 0},
                                 {O::Dim, 2, 0, 0}, // clears
                                 {O::GetItem, 3, 0, 2},
                                 {O::Library, 0, 3, 0},
                                 {O::End}},
                                {7, 2.9, 2}, 4);
    program.numberArrays = 2;
    QCOMPARE(Run(program), (std::vector<double>{7, 7, 0}));
}

void tst_cMachine::arraysOfTexts()
{
    MachineCode program = Alone({{O::LoadText, 0, 0, 0},
                                 {O::Load, 0, 0, 0},
                                 {O::SetTextItem, 0, 0, 0},
                                 {O::LoadText, 0, 1, 0},
                                 {O::GetTextItem, 1, 0, 0},
                                 {O::Library, 1, 0, 1},
                                 {O::DimText2, 0, 0, 0},
                                 {O::SetTextItem2, 0, 0, 0},
                                 {O::More, 0, 0, 0},
                                 {O::GetTextItem2, 1, 0, 0},
                                 {O::More, 0, 0, 0},
                                 {O::Library, 1, 0, 1},
                                 {O::End}},
                                {3}, 1, 2);
    program.texts = {"first", "second"};
    program.textArrays = 1;
    Run(program);
    QCOMPARE(ShownText(), std::string("firstsecond"));
}

void tst_cMachine::indexesBeyondAnArray()
{
    for (const double index : {11.0, -1.0, 1e300, -1e300}) {
        MachineCode program = Alone({{O::Load, 0, 0, 0}, {O::GetItem, 1, 0, 0}, {O::End}}, {index}, 2);
        program.numberArrays = 1;
        QCOMPARE(ErrorOf(program), (std::pair<int, std::uint32_t>{9, 2}));
    }
    MachineCode huge = Alone({{O::Load, 0, 0, 0}, {O::Dim2, 0, 0, 0}, {O::End}}, {9e12}, 1);
    huge.numberArrays = 1;
    QCOMPARE(ErrorOf(huge).first, 7);
    MachineCode negative = Alone({{O::Load, 0, 0, 0}, {O::Dim, 0, 0, 0}, {O::End}}, {-1}, 1);
    negative.numberArrays = 1;
    QCOMPARE(ErrorOf(negative).first, 9);
}

void tst_cMachine::texts()
{
    MachineCode program = Alone({{O::LoadText, 0, 0, 0},
                                 {O::LoadText, 1, 1, 0},
                                 {O::JoinText, 2, 0, 1},
                                 {O::JoinText, 2, 2, 2},
                                 {O::JoinText, 1, 2, 1},
                                 {O::Library, 1, 0, 1},
                                 {O::Length, 0, 1, 0},
                                 {O::Library, 0, 0, 0},
                                 {O::LessText, 0, 0, 1},
                                 {O::Library, 0, 0, 0},
                                 {O::TakeText, 0, 1, 0},
                                 {O::EqualText, 0, 0, 2},
                                 {O::Library, 0, 0, 0},
                                 {O::Length, 0, 1, 0},
                                 {O::Library, 0, 0, 0},
                                 {O::End}},
                                {}, 1, 3);
    program.texts = {"ab", "c"};
    QCOMPARE(Run(program), (std::vector<double>{7, 1, 0, 0}));
    QCOMPARE(ShownText(), std::string("abcabcc"));
}

void tst_cMachine::gosub()
{
    QCOMPARE(Run(Alone({Far(O::Gosub, 0, 2),
                        Far(O::Gosub, 0, 1),
                        {O::End},
                        {O::AddK, 0, 0, 0},
                        {O::Library, 0, 0, 0},
                        {O::ReturnFromGosub}},
                       {5}, 1)),
             (std::vector<double>{5, 10}));
}

void tst_cMachine::returnWithoutGosub()
{
    QCOMPARE(ErrorOf(Alone({{O::Load, 0, 0, 0}, {O::ReturnFromGosub}}, {1}, 1)), (std::pair<int, std::uint32_t>{3, 2}));
}

void tst_cMachine::references()
{
    // twice(byref x) doubles a register, a global and an item.
    MachineCode program = Alone({{O::Load, 0, 0, 0},        {O::ReferToRegister, 1, 0, 0},
                                 {O::Call, 1, 1, 0},        {O::Library, 0, 0, 0},
                                 {O::StoreGlobal, 0, 0, 0}, {O::ReferToGlobal, 1, 0, 0},
                                 {O::Call, 1, 1, 0},        {O::LoadGlobal, 1, 0, 0},
                                 {O::Library, 0, 1, 0},     {O::ReferToItem, 1, 0, 0},
                                 {O::More, 0, 0, 0},        {O::SetReferred, 0, 1, 0},
                                 {O::Call, 1, 1, 0},        {O::GetItem, 1, 0, 0},
                                 {O::Library, 0, 1, 0},     {O::End},
                                 {O::GetReferred, 1, 0, 0}, {O::Add, 1, 1, 1},
                                 {O::SetReferred, 1, 0, 0}, {O::Return}},
                                {3}, 2);
    program.numberArrays = 1;
    MachineRoutine twice;
    twice.start = program.routines[0].end = 16;
    twice.end = 20;
    twice.numberParameters = 1;
    twice.numberVariables = twice.numberRegisters = 2;
    program.routines.push_back(twice);
    QCOMPARE(Run(program), (std::vector<double>{6, 12, 12}));
}

void tst_cMachine::referencesToLostItems()
{
    MachineCode program = Alone({{O::Load, 0, 0, 0},
                                 {O::ReferToItem, 1, 0, 0},
                                 {O::More, 0, 0, 0},
                                 {O::Load, 0, 1, 0},
                                 {O::Dim, 0, 0, 0},
                                 {O::GetReferred, 0, 1, 0},
                                 {O::End}},
                                {9, 2}, 2);
    program.numberArrays = 1;
    QCOMPARE(ErrorOf(program).first, 9);
}

void tst_cMachine::handlerAndResume()
{
    // The handler makes the divisor 4 and resumes the statement.
    MachineCode program = Alone({Far(O::OnError, 1, 4),
                                 {O::Load, 0, 0, 0},
                                 {O::Divide, 2, 0, 1},
                                 {O::Library, 0, 2, 0},
                                 {O::End},
                                 {O::Load, 1, 1, 0},
                                 {O::Resume}},
                                {10, 4}, 3);
    QCOMPARE(Run(program), std::vector<double>{2.5});
    program.instructions[0].a = 0;
    QCOMPARE(ErrorOf(program), (std::pair<int, std::uint32_t>{11, 3}));
    QCOMPARE(ErrorOf(Alone({{O::Resume}}, {}, 1)).first, 20);
}

void tst_cMachine::handlerOfTheCaller()
{
    MachineCode program = Alone({Far(O::OnError, 1, 4),
                                 {O::AddK, 0, 0, 0},
                                 {O::JumpIfGreaterOrEqualK, 0, 1, 1}, // the second time
                                 {O::Call, 1, 1, 0},
                                 {O::End},
                                 {O::Library, 0, 0, 0},
                                 {O::AddK, 0, 0, 0},
                                 {O::JumpIfLessK, 0, 1, Over(-5)},
                                 {O::End},
                                 {O::Library, 2, 0, 0},
                                 {O::Return}},
                                {1, 3}, 2);
    MachineRoutine raises;
    raises.start = program.routines[0].end = 9;
    raises.end = 11;
    raises.numberRegisters = raises.numberVariables = 1;
    program.routines.push_back(raises);
    QCOMPARE(Run(program), (std::vector<double>{1, 2}));
}

void tst_cMachine::stopsInALoop()
{
    const MachineCode program = Alone({Far(O::Jump, 0, -1)}, {}, 1);
    ob::basic::cMachine machine(program, Library());
    std::thread stopper([&machine] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        machine.Stop();
    });
    const ob::basic::cMachine::Ending ending = machine.Run();
    stopper.join();
    QVERIFY(ending == ob::basic::cMachine::Ending::Stopped);
}

QTEST_APPLESS_MAIN(tst_cMachine)
#include "tst_cMachine.moc"
