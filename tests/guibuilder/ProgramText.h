// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of generated programs share: a form's program, split at its fixed lines.
#pragma once

#include "guibuilder/FormLines.h"
#include "guibuilder/modGenerator.h"

namespace ob {

struct ProgramParts {
    QByteArray header;   // to the lists
    QByteArray lists;    // to "[InitColors]"
    QByteArray controls; // from after "[ControlSetup]" to the empty line before the open statement
    QByteArray open;     // from there to after the trapclose line
    QByteArray opened;   // from there to "[loop]"
    QByteArray stubs;    // after the closing lines, up to the routines
};

// The program of a form. What the compilation fills in stays in the form, as it does in the bench.
inline GeneratedProgram Compiled(GuiForm& form, ProgramKind kind, const ProgramHeader& header)
{
    form = Completed(std::move(form), CompletedFor::Program);
    return GenerateProgram(form, kind, header);
}

inline QByteArray ProgramOf(GuiForm& form, ProgramKind kind)
{
    return AnsiFromText(Compiled(form, kind, {QStringLiteral("DATE"), std::nullopt}).text).bytes;
}

// The parts of a program without the routines for tool tips and status bar.
inline ProgramParts PartsOf(const QByteArray& program)
{
    qsizetype at = 0;
    const auto upTo = [&](const QByteArray& mark, qsizetype skipped = 0) {
        const qsizetype found = program.indexOf(mark, at);
        if (found < 0)
            QTest::qFail((mark + " is missing").constData(), __FILE__, __LINE__);
        const qsizetype start = at;
        at = found + skipped;
        return program.mid(start, at - start);
    };
    ProgramParts parts;
    const QByteArray headerEnd = program.contains("True = 1") ? "    True = 1 : False = 0\r\n" : "\r\n\r\n";
    parts.header = upTo(headerEnd, headerEnd.size());
    parts.lists = upTo("\r\n[InitColors]");
    upTo("[ControlSetup]\r\n", 16);
    parts.controls = upTo("\r\nOpen \"");
    parts.open = upTo("trapclose [quit]\"\r\n", 19);
    parts.opened = upTo("[loop]\r\n    Wait\r\n\r\n");
    upTo(" : END\r\n\r\n", 10);
    parts.stubs = program.mid(at);
    return parts;
}

inline ProgramParts PartsOf(GuiForm& form, ProgramKind kind)
{
    return PartsOf(ProgramOf(form, kind));
}

} // namespace ob
