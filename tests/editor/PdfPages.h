// SPDX-License-Identifier: GPL-3.0-or-later
// The contents of a PDF file as other programs see it: the tools of poppler-utils.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QStringList>
#include <QTest>

namespace ob {

// The output of a program; the test fails when the program is missing or fails.
inline QByteArray OutputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        const QString trouble =
            QStringLiteral("%1 does not run: %2 %3")
                .arg(program, process.errorString(), QString::fromUtf8(process.readAllStandardError()));
        QTest::qFail(qPrintable(trouble), __FILE__, __LINE__);
    }
    return process.readAllStandardOutput();
}

// The lines of each page, with runs of spaces reduced to one and none at the ends of a line; without empty lines.
inline QList<QStringList> PagesOf(const QString& pdf)
{
    const QByteArray text =
        OutputOf(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    QList<QStringList> pages;
    for (const QString& page : QString::fromUtf8(text).chopped(1).split(QLatin1Char('\f'))) {
        QStringList lines;
        for (const QString& line : page.split(QLatin1Char('\n')))
            if (!line.simplified().isEmpty())
                lines.append(line.simplified());
        pages.append(lines);
    }
    return pages;
}

inline QStringList LinesOf(const QString& pdf)
{
    QStringList lines;
    for (const QStringList& page : PagesOf(pdf))
        lines += page;
    return lines;
}

// A field known to pdfinfo, such as "Pages" or "Title".
inline QString PdfField(const QString& pdf, const QString& field)
{
    for (const QByteArray& line : OutputOf(QStringLiteral("pdfinfo"), {pdf}).split('\n'))
        if (line.startsWith(field.toUtf8() + ':'))
            return QString::fromUtf8(line.mid(field.size() + 1)).trimmed();
    return {};
}

// The first page as a picture with 100 dots per inch.
inline QImage FirstPage(const QString& pdf)
{
    const QString root = pdf + QStringLiteral(".page");
    OutputOf(QStringLiteral("pdftoppm"), {QStringLiteral("-r"), QStringLiteral("100"), QStringLiteral("-png"),
                                          QStringLiteral("-singlefile"), pdf, root});
    const QImage picture(root + QStringLiteral(".png"));
    QFile::remove(root + QStringLiteral(".png"));
    return picture.convertToFormat(QImage::Format_RGB32);
}

} // namespace ob
