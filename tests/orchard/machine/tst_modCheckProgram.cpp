// SPDX-License-Identifier: GPL-3.0-or-later
// Damaged programs are refused, and what is not refused runs without harm.
#include "orchard/machine/SmallPrograms.h"

#include <QTest>

#include <functional>
#include <random>
#include <thread>

using namespace programs;
using O = Operation;

Q_DECLARE_METATYPE(std::function<void(Program&)>)

class tst_modCheckProgram final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void goodPrograms();
    void damage_data();
    void damage();
    void randomDamage();
};

void tst_modCheckProgram::goodPrograms()
{
    QVERIFY(!ob::CheckProgram(Fibonacci(5), Library()));
    QVERIFY(!ob::CheckProgram(Alone({{O::End}}, {}, 0), {}));
}

void tst_modCheckProgram::damage_data()
{
    QTest::addColumn<std::function<void(Program&)>>("change");
    const auto row = [](const char* name, const std::function<void(Program&)>& change) {
        QTest::newRow(name) << change;
    };
    row("no_routine", [](Program& p) { p.routines.clear(); });
    row("no_statement", [](Program& p) { p.statements.clear(); });
    row("statements_out_of_order", [](Program& p) { p.statements[1].instruction = 0; });
    row("statement_beyond_the_end", [](Program& p) { p.statements.back().instruction = 1000; });
    row("gap_between_routines", [](Program& p) { p.routines[1].start = 5; });
    row("code_after_the_last_routine", [](Program& p) { p.code.push_back({O::End}); });
    row("routine_beyond_the_code", [](Program& p) { p.routines[1].end = 14; });
    row("main_has_parameters", [](Program& p) { p.routines[0].numberParameters = 1; });
    row("more_variables_than_registers", [](Program& p) { p.routines[1].numberVariables = 5; });
    row("result_beyond_the_registers", [](Program& p) { p.routines[1].resultRegister = 4; });
    row("result_of_a_type_without_registers", [](Program& p) { p.routines[1].result = ValueType::Text; });
    row("unknown_type", [](Program& p) { p.routines[1].result = static_cast<ValueType>(3); });
    row("unknown_operation", [](Program& p) { p.code[0].operation = static_cast<Operation>(ob::Operations().size()); });
    row("register_beyond", [](Program& p) { p.code[0].a = 1; });
    row("constant_beyond", [](Program& p) { p.code[0].b = 4; });
    row("routine_of_a_call_beyond", [](Program& p) { p.code[1].a = 2; });
    row("call_of_the_main_program", [](Program& p) { p.code[1].a = 0; });
    row("window_beyond", [](Program& p) { p.code[1].b = 1; });
    row("library_row_beyond", [](Program& p) { p.code[2].a = 3; });
    row("text_window_beyond", [](Program& p) { p.code[2] = {O::Library, 1, 0, 0}; });
    row("jump_into_the_other_routine", [](Program& p) { p.code[0] = Far(O::Jump, 0, 5); });
    row("jump_before_the_start", [](Program& p) { p.code[0] = Far(O::Jump, 0, -2); });
    row("short_jump_beyond", [](Program& p) { p.code[4].c = 20; });
    row("falls_out_of_the_routine", [](Program& p) { p.code[3] = {O::Move, 0, 0, 0}; });
    row("returns_from_the_main_program", [](Program& p) { p.code[3] = {O::Return}; });
    row("operand_where_none_is", [](Program& p) { p.code[3].b = 1; });
    row("lonely_more", [](Program& p) { p.code[5] = {O::More}; });
    row("long_instruction_without_more", [](Program& p) {
        p.numberArrays = 1;
        p.code[5] = {O::GetItem2, 0, 0, 0};
    });
    row("step_beyond_the_registers", [](Program& p) { p.code[5] = {O::ForStep, 0, 3, 0}; });
    row("division_by_a_constant_zero", [](Program& p) {
        p.numbers[1] = 0;
        p.code[5] = {O::DivideK, 0, 0, 1};
    });
    row("number_that_is_none", [](Program& p) { p.numbers[1] = std::numeric_limits<double>::infinity(); });
}

void tst_modCheckProgram::damage()
{
    QFETCH(const std::function<void(Program&)>, change);
    Program program = Fibonacci(5);
    QVERIFY(!ob::CheckProgram(program, Library()));
    change(program);
    QVERIFY(ob::CheckProgram(program, Library()));
}

void tst_modCheckProgram::randomDamage()
{
    std::mt19937 random(1);
    int run = 0;
    for (int round = 0; round < 20000; ++round) {
        Program program = Fibonacci(6);
        program.numberArrays = program.textArrays = program.globalNumbers = program.globalTexts = 1;
        program.texts = {"text"};
        program.routines[1].textRegisters = program.routines[1].textVariables = 2;
        for (int count = 0; count < 3; ++count) {
            Instruction& instruction = program.code[random() % program.code.size()];
            instruction.operation = static_cast<Operation>(random() % ob::Operations().size());
            for (std::uint16_t* operand : {&instruction.a, &instruction.b, &instruction.c})
                *operand = static_cast<std::uint16_t>(random() % 6 == 0 ? random() : random() % 4);
        }
        if (ob::CheckProgram(program, Library()))
            continue;
        ++run;
        ob::cMachine machine(program, Library());
        // Ends a program that loops or calls itself for ever.
        std::thread stopper([&machine] {
            std::this_thread::sleep_for(std::chrono::microseconds(300));
            machine.Stop();
        });
        try {
            machine.Run();
        } catch (const ob::RunError& error) {
            QVERIFY(error.number != 0);
        }
        stopper.join();
    }
    QVERIFY2(run > 100, qPrintable(QString::number(run)));
}

QTEST_APPLESS_MAIN(tst_modCheckProgram)
#include "tst_modCheckProgram.moc"
