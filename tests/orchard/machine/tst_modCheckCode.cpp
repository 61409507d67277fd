// SPDX-License-Identifier: GPL-3.0-or-later
// Damaged programs are refused, and what is not refused runs without harm.
#include "orchard/machine/SmallPrograms.h"

#include <QTest>

#include <functional>
#include <random>
#include <thread>

using namespace programs;
using O = Operation;

Q_DECLARE_METATYPE(std::function<void(MachineCode&)>)

class tst_modCheckCode final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void goodPrograms();
    void damage_data();
    void damage();
    void randomDamage();
};

void tst_modCheckCode::goodPrograms()
{
    QVERIFY(!ob::basic::CheckMachineCode(Fibonacci(5), Library()));
    QVERIFY(!ob::basic::CheckMachineCode(Alone({{O::End}}, {}, 0), {}));
}

void tst_modCheckCode::damage_data()
{
    QTest::addColumn<std::function<void(MachineCode&)>>("change");
    const auto row = [](const char* name, const std::function<void(MachineCode&)>& change) {
        QTest::newRow(name) << change;
    };
    row("no_routine", [](MachineCode& p) { p.routines.clear(); });
    row("no_statement", [](MachineCode& p) { p.statements.clear(); });
    row("statements_out_of_order", [](MachineCode& p) { p.statements[1].instruction = 0; });
    row("statement_beyond_the_end", [](MachineCode& p) { p.statements.back().instruction = 1000; });
    row("gap_between_routines", [](MachineCode& p) { p.routines[1].start = 5; });
    row("code_after_the_last_routine", [](MachineCode& p) { p.instructions.push_back({O::End}); });
    row("routine_beyond_the_code", [](MachineCode& p) { p.routines[1].end = 14; });
    row("main_has_parameters", [](MachineCode& p) { p.routines[0].numberParameters = 1; });
    row("more_variables_than_registers", [](MachineCode& p) { p.routines[1].numberVariables = 5; });
    row("result_beyond_the_registers", [](MachineCode& p) { p.routines[1].resultRegister = 4; });
    row("result_of_a_type_without_registers", [](MachineCode& p) { p.routines[1].result = ValueType::Text; });
    row("unknown_type", [](MachineCode& p) { p.routines[1].result = static_cast<ValueType>(3); });
    row("unknown_operation",
        [](MachineCode& p) { p.instructions[0].operation = static_cast<Operation>(ob::basic::Operations().size()); });
    row("register_beyond", [](MachineCode& p) { p.instructions[0].a = 1; });
    row("constant_beyond", [](MachineCode& p) { p.instructions[0].b = 4; });
    row("routine_of_a_call_beyond", [](MachineCode& p) { p.instructions[1].a = 2; });
    row("call_of_the_main_program", [](MachineCode& p) { p.instructions[1].a = 0; });
    row("window_beyond", [](MachineCode& p) { p.instructions[1].b = 1; });
    row("library_row_beyond", [](MachineCode& p) { p.instructions[2].a = 3; });
    row("text_window_beyond", [](MachineCode& p) { p.instructions[2] = {O::Library, 1, 0, 0}; });
    row("jump_into_the_other_routine", [](MachineCode& p) { p.instructions[0] = Far(O::Jump, 0, 5); });
    row("jump_before_the_start", [](MachineCode& p) { p.instructions[0] = Far(O::Jump, 0, -2); });
    row("short_jump_beyond", [](MachineCode& p) { p.instructions[4].c = 20; });
    row("falls_out_of_the_routine", [](MachineCode& p) { p.instructions[3] = {O::Move, 0, 0, 0}; });
    row("returns_from_the_main_program", [](MachineCode& p) { p.instructions[3] = {O::Return}; });
    row("operand_where_none_is", [](MachineCode& p) { p.instructions[3].b = 1; });
    row("lonely_more", [](MachineCode& p) { p.instructions[5] = {O::More}; });
    row("long_instruction_without_more", [](MachineCode& p) {
        p.numberArrays = 1;
        p.instructions[5] = {O::GetItem2, 0, 0, 0};
    });
    row("step_beyond_the_registers", [](MachineCode& p) { p.instructions[5] = {O::ForStep, 0, 3, 0}; });
    row("division_by_a_constant_zero", [](MachineCode& p) {
        p.numbers[1] = 0;
        p.instructions[5] = {O::DivideK, 0, 0, 1};
    });
    row("number_that_is_none", [](MachineCode& p) { p.numbers[1] = std::numeric_limits<double>::infinity(); });
}

void tst_modCheckCode::damage()
{
    QFETCH(const std::function<void(MachineCode&)>, change);
    MachineCode program = Fibonacci(5);
    QVERIFY(!ob::basic::CheckMachineCode(program, Library()));
    change(program);
    QVERIFY(ob::basic::CheckMachineCode(program, Library()));
}

void tst_modCheckCode::randomDamage()
{
    std::mt19937 random(1);
    int run = 0;
    for (int round = 0; round < 20000; ++round) {
        MachineCode program = Fibonacci(6);
        program.numberArrays = program.textArrays = 1;
        program.texts = {"text"};
        program.routines[1].textRegisters = program.routines[1].textVariables = 2;
        for (int count = 0; count < 3; ++count) {
            Instruction& instruction = program.instructions[random() % program.instructions.size()];
            instruction.operation = static_cast<Operation>(random() % ob::basic::Operations().size());
            for (std::uint16_t* operand : {&instruction.a, &instruction.b, &instruction.c})
                *operand = static_cast<std::uint16_t>(random() % 6 == 0 ? random() : random() % 4);
        }
        if (ob::basic::CheckMachineCode(program, Library()))
            continue;
        ++run;
        ob::basic::cMachine machine(program, Library());
        // Ends a program that loops or calls itself for ever.
        std::thread stopper([&machine] {
            std::this_thread::sleep_for(std::chrono::microseconds(300));
            machine.Stop();
        });
        try {
            machine.Run();
        } catch (const ob::basic::cRunError& error) {
            QVERIFY(error.number != 0);
        }
        stopper.join();
    }
    QVERIFY2(run > 100, qPrintable(QString::number(run)));
}

QTEST_APPLESS_MAIN(tst_modCheckCode)
#include "tst_modCheckCode.moc"
