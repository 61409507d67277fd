// SPDX-License-Identifier: GPL-3.0-or-later
// Reads texts of the BASIC language as far as the libraries use it, and reports mistakes in them.
#pragma once

#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>

#include <utility>
#include <vector>

namespace ob {

inline QStringList LinesOf(const QByteArray& text)
{
    QStringList lines = QString::fromLatin1(text).split(QStringLiteral("\r\n"));
    lines.removeLast();
    return lines;
}

inline QRegularExpressionMatch Match(const char* pattern, const QString& text)
{
    return QRegularExpression(QLatin1String(pattern), QRegularExpression::CaseInsensitiveOption).match(text);
}

inline QString WithoutComment(const QString& line)
{
    bool isQuoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        isQuoted ^= line[i] == QLatin1Char('"');
        if (line[i] == QLatin1Char('\'') && !isQuoted)
            return line.left(i);
    }
    return line;
}

// The pieces between separators outside quotes and parentheses, without spaces around them.
inline QStringList Split(const QString& text, QChar separator)
{
    QStringList pieces = {QString()};
    bool isQuoted = false;
    int depth = 0;
    for (const QChar c : text) {
        isQuoted ^= c == QLatin1Char('"');
        if (!isQuoted)
            depth += (c == QLatin1Char('(')) - (c == QLatin1Char(')'));
        if (c == separator && !isQuoted && depth == 0)
            pieces.append(QString());
        else
            pieces.last() += c;
    }
    for (QString& piece : pieces)
        piece = piece.trimmed();
    return pieces;
}

// The name of each routine, with its lines from the heading to the end.
inline QMap<QString, QStringList> RoutinesOf(const QByteArray& text)
{
    QMap<QString, QStringList> routines;
    QString name;
    for (const QString& line : LinesOf(text)) {
        const auto head = Match(R"(^(?:Function|Sub) ([\w$]+))", line);
        if (head.hasMatch())
            name = head.captured(1);
        if (!name.isEmpty())
            routines[name].append(line);
        if (Match("^End (Function|Sub)$", line).hasMatch())
            name.clear();
    }
    return routines;
}

// Reads a text of the language line by line and records everything wrong with it, each with the line's number.
class LibraryReader {
public:
    explicit LibraryReader(const QByteArray& text)
    {
        QString pending;
        for (const QString& line : LinesOf(text)) {
            ++number;
            const QString code = WithoutComment(line).trimmed();
            CheckShape(line, code);
            if (!pending.isEmpty() && code.isEmpty())
                Complain("is missing after a continued line");
            const bool isContinued = code.endsWith(QLatin1Char('_'));
            if (isContinued && !line.endsWith(QLatin1Char('_')))
                Complain("is continued, but does not end so");
            pending += isContinued ? code.chopped(1) : code;
            if (isContinued)
                continue;
            for (const QString& statement : Split(pending, QLatin1Char(':')))
                Read(statement);
            pending.clear();
        }
        if (!pending.isEmpty())
            Complain("is continued at the end of the text");
        if (!routine.isEmpty())
            Complain("leaves a routine open");
    }

    QStringList troubles;
    QSet<QString> published; // "library function count" of each call

private:
    struct Branch {
        bool isAssigned = false; // here, before any Else
        bool hasElse = false;
        bool wasAssigned = false; // before the Else
    };

    void Complain(const char* what)
    {
        troubles.append(QStringLiteral("line %1 %2").arg(number).arg(QLatin1String(what)));
    }

    void CheckShape(const QString& line, const QString& code)
    {
        if (line.size() > 100)
            Complain("is too long");
        if (line.endsWith(QLatin1Char(' ')))
            Complain("ends in a space");
        if (line.count(QLatin1Char('"')) % 2 != 0)
            Complain("has an odd number of quotes");
        QString bare = code;
        bare.remove(QRegularExpression(QStringLiteral("\"[^\"]*\"")));
        int depth = 0;
        for (const QChar c : bare) {
            depth += (c == QLatin1Char('(')) - (c == QLatin1Char(')'));
            if (depth < 0)
                break;
        }
        if (depth != 0)
            Complain("has parentheses that do not match");
    }

    void Read(const QString& statement)
    {
        if (const auto head = Match(R"(^(Function|Sub) ([\w$]+)(.*)$)", statement); head.hasMatch())
            BeginRoutine(head);
        else if (const auto end = Match("^End (Function|Sub)$", statement); end.hasMatch())
            EndRoutine(end.captured(1));
        else if (const auto record = Match(R"(^struct (\w+),(.+)$)", statement); record.hasMatch())
            ReadStruct(record.captured(1), record.captured(2));
        else if (Match("^CallDLL\\b", statement).hasMatch())
            ReadCall(statement);
        else
            ReadOther(statement);
        ReadMembers(statement);
    }

    void BeginRoutine(const QRegularExpressionMatch& head)
    {
        if (!routine.isEmpty())
            Complain("begins a routine inside another");
        routine = head.captured(2);
        kind = head.captured(1);
        const bool hasParentheses = Match(R"(^\(.*\)$)", head.captured(3)).hasMatch();
        if (hasParentheses != (kind == QLatin1String("Function")))
            Complain("has parentheses for a sub or none for a function");
        ownStructs.clear();
        branches = {Branch()};
    }

    void EndRoutine(const QString& endKind)
    {
        if (routine.isEmpty() || endKind != kind)
            Complain("ends what has not begun");
        else if (branches.size() != 1)
            Complain("ends a routine inside of an If");
        else if (kind == QLatin1String("Function") && !branches.back().isAssigned)
            Complain("ends a function without a value");
        if (!handles.isEmpty())
            Complain("leaves a handle open");
        handles.clear();
        routine.clear();
    }

    void ReadStruct(const QString& name, const QString& members)
    {
        static const QSet<QString> memberTypes = {QStringLiteral("long"), QStringLiteral("ulong"),
                                                  QStringLiteral("short"), QStringLiteral("word"),
                                                  QStringLiteral("ptr")};
        QSet<QString>& known = (routine.isEmpty() ? structs : ownStructs)[name];
        known.clear();
        for (const QString& member : Split(members, QLatin1Char(','))) {
            const auto typed = Match(R"(^(\w+(\$?)) as (\w+)$)", member);
            const QString type = typed.captured(3).toLower();
            if (!typed.hasMatch() || !memberTypes.contains(type))
                Complain("has a member without a type");
            if ((type == QLatin1String("ptr")) == typed.captured(2).isEmpty())
                Complain("has a text that is no ptr, or a ptr that is no text");
            known.insert(typed.captured(1));
        }
    }

    bool IsKnownStruct(const QString& name) const { return ownStructs.contains(name) || structs.contains(name); }

    void ReadCall(const QString& statement)
    {
        static const QSet<QString> ready = {
            QStringLiteral("winmm"),   QStringLiteral("kernel32"), QStringLiteral("user32"),  QStringLiteral("gdi32"),
            QStringLiteral("shell32"), QStringLiteral("comdlg32"), QStringLiteral("comctl32")};
        const auto call = Match("^CallDLL #(\\w+), \"(\\w+)\",(.+)$", statement);
        if (!call.hasMatch())
            return Complain("is no whole call");
        const QString handle = call.captured(1);
        if (!ready.contains(handle) && !handles.contains(handle))
            Complain("calls a library that is not open");
        const QStringList pieces = Split(call.captured(3), QLatin1Char(','));
        for (qsizetype i = 0; i < pieces.size(); ++i)
            ReadArgument(pieces[i], i + 1 == pieces.size());
        const QString library = ready.contains(handle) ? handle : handles.value(handle).first;
        published.insert(QStringLiteral("%1 %2 %3").arg(library, call.captured(2)).arg(pieces.size() - 1));
    }

    void ReadArgument(const QString& text, bool isResult)
    {
        static const QSet<QString> numbers = {QStringLiteral("long"), QStringLiteral("ulong"), QStringLiteral("short"),
                                              QStringLiteral("word"), QStringLiteral("boolean")};
        const auto typed = Match("^([\\w$.-]+|\"[^\"]*\") as (\\w+)$", text);
        const QString value = typed.captured(1);
        const QString type = typed.captured(2).toLower();
        const bool isText = value.endsWith(QLatin1Char('$')) || value.startsWith(QLatin1Char('"'));
        bool isGood = typed.hasMatch() && numbers.contains(type) && !isText;
        if (isResult)
            isGood = (isGood || type == QLatin1String("void")) && Match(R"(^[A-Za-z]\w*$)", value).hasMatch();
        else if (type == QLatin1String("ptr"))
            isGood = isText;
        else if (type == QLatin1String("struct"))
            isGood = IsKnownStruct(value);
        if (!isGood)
            Complain(isResult ? "has a result that is none" : "has an argument of a wrong type");
        if (isResult && value == routine)
            branches.back().isAssigned = true;
    }

    void ReadOther(const QString& statement)
    {
        if (const auto open = Match("^open \"(\\w+)\" for dll as #(\\w+)$", statement); open.hasMatch()) {
            handles[open.captured(2)] = {open.captured(1), branches.size()};
        } else if (const auto close = Match(R"(^close #(\w+)$)", statement); close.hasMatch()) {
            if (handles.take(close.captured(1)).second != branches.size())
                Complain("closes a handle on another path than it was opened");
        } else if (Match("^if .* then$", statement).hasMatch()) {
            branches.push_back({});
        } else if (Match("^else$", statement).hasMatch() && branches.size() > 1) {
            branches.back() = {false, true, branches.back().isAssigned};
        } else if (Match("^end if$", statement).hasMatch() && branches.size() > 1) {
            const Branch closed = branches.back();
            branches.pop_back();
            branches.back().isAssigned |= closed.hasElse && closed.isAssigned && closed.wasAssigned;
        } else if (!routine.isEmpty() && statement.startsWith(routine + QLatin1Char('='))) {
            branches.back().isAssigned = true;
        }
        if (!routine.isEmpty() && Match(R"(\b(exit|goto|gosub|return)\b)", statement).hasMatch())
            Complain("leaves a routine in its middle");
    }

    void ReadMembers(const QString& statement)
    {
        static const QRegularExpression member(QStringLiteral(R"((\w+)(?:\.(\w+\$?))?\.struct\b)"));
        for (const QRegularExpressionMatch& use : member.globalMatch(statement)) {
            const QString name = use.captured(1);
            const QSet<QString> known = ownStructs.contains(name) ? ownStructs[name] : structs.value(name);
            if (!IsKnownStruct(name) || (use.hasCaptured(2) && !known.contains(use.captured(2))))
                Complain("names a member that no struct has");
        }
    }

    int number = 0;
    QString routine; // empty between routines
    QString kind;
    QMap<QString, QSet<QString>> structs;                   // those of the whole text: name, members
    QMap<QString, QSet<QString>> ownStructs;                // those of the routine
    QMap<QString, std::pair<QString, std::size_t>> handles; // open ones: library, depth where it was opened
    std::vector<Branch> branches = {Branch()};              // the routine, then each If that is open
};

} // namespace ob
