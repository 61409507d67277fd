// SPDX-License-Identifier: GPL-3.0-or-later
// The engine's reader on any text: what it gives holds together, so that code can be made from it without a check.
#include "orchard/language/modDump.h"
#include "orchard/language/modRead.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

// Every node's operands are the nodes before it, and every statement's operands are whole.
void CheckNodes(const ob::basic::Program& program)
{
    std::vector<ob::basic::Index> operands;
    for (const ob::basic::Statement& statement : program.statements) {
        Require(statement.firstNode <= statement.endNode && statement.endNode <= program.nodes.size());
        Require(statement.target == ob::basic::NoIndex || statement.target < program.statements.size());
        std::size_t depth = 0;
        for (ob::basic::Index at = statement.firstNode; at < statement.endNode; ++at) {
            const ob::basic::Node& node = program.nodes[at];
            Require(node.first >= statement.firstNode && node.first <= at && node.count <= depth);
            Require(node.type != ob::basic::Type::Either);
            depth = depth - node.count + 1;
        }
        operands.clear();
        AppendOperands(program, statement.firstNode, statement.endNode, operands);
        Require(operands.size() == depth);
    }
}

// An expression of eval over a program that has a bit of everything.
void ReadAsExpression(const std::string& text)
{
    static const ob::basic::Program outer =
        ob::basic::ReadProgram("global g$\na = 1 : b(1) = a : print #h, f(a)\nstruct s, l as long, n as "
                               "char[4]\nfunction f(byref n)\nend function\n",
                               nullptr);
    const ob::basic::Program program = ob::basic::ReadExpression(text, outer, 1, nullptr);
    if (program.errors.empty())
        CheckNodes(program);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    ReadAsExpression(text);
    const ob::basic::Program program = ob::basic::ReadProgram(text, nullptr);
    for (std::size_t at = 0; at < program.errors.size(); ++at) {
        const ob::basic::ReadError& error = program.errors[at];
        Require(error.offset + error.length <= program.source->size());
        Require(at == 0 || program.errors[at - 1].offset <= error.offset);
        Require(!error.found.empty() && !error.expected.empty());
    }
    if (!program.errors.empty())
        return 0;
    CheckNodes(program);
    // The dump of deep operands takes square time.
    constexpr std::size_t longest = 4096;
    if (size < longest)
        Require(!DumpProgram(program).empty());
    return 0;
}
