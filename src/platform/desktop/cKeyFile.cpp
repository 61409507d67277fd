// SPDX-License-Identifier: GPL-3.0-or-later
// Files of groups with lines "key=value".
#include "platform/desktop/cKeyFile.h"

#include "platform/language/cLines.h"

#include <QFile>

namespace ob {

namespace {

QChar Unescaped(QChar mark)
{
    switch (mark.unicode()) {
    case u's':
        return u' ';
    case u'n':
        return u'\n';
    case u't':
        return u'\t';
    case u'r':
        return u'\r';
    case u'\\':
        return u'\\';
    default:
        return {};
    }
}

// Unescapes a value and splits it at the separator; a separator after a backslash is an ordinary character.
QStringList Parts(const QString& raw, QChar separator)
{
    QStringList parts = {QString()};
    for (qsizetype place = 0; place < raw.size(); ++place) {
        const QChar next = place + 1 < raw.size() ? raw[place + 1] : QChar();
        if (raw[place] == separator) {
            parts.append(QString());
            continue;
        }
        const bool isSeparator = raw[place] == u'\\' && !next.isNull() && next == separator;
        const QChar meant = isSeparator ? separator : raw[place] == u'\\' ? Unescaped(next) : QChar();
        parts.last() += meant.isNull() ? raw[place] : meant;
        place += meant.isNull() ? 0 : 1;
    }
    return parts;
}

// "lang_COUNTRY.ENCODING@MODIFIER" to the suffixes of a translated key, the best one first.
QStringList LocaleMarks(const QString& locale)
{
    const QString modifier = locale.contains(u'@') ? u'@' + locale.section(u'@', 1) : QString();
    const QString place = locale.section(u'@', 0, 0).section(u'.', 0, 0);
    const QString language = place.section(u'_', 0, 0);
    QStringList marks = {place + modifier, place, language + modifier, language};
    marks.removeDuplicates();
    return marks;
}

} // namespace

cKeyFile::cKeyFile(QByteArrayView text)
{
    cLines lines(text);
    QHash<QString, QString>* group = nullptr;
    while (lines.Next()) {
        const QByteArray line = lines.Line().toByteArray().trimmed();
        const qsizetype sign = line.indexOf('=');
        if (line.startsWith('[') && line.endsWith(']')) {
            group = &groups[QString::fromUtf8(line.sliced(1, line.size() - 2))];
        } else if (group != nullptr && sign > 0 && !line.startsWith('#')) {
            const QString key = QString::fromUtf8(line.first(sign).trimmed());
            if (!group->contains(key))
                group->insert(key, QString::fromUtf8(line.sliced(sign + 1).trimmed()));
        }
    }
}

cKeyFile cKeyFile::Read(const QString& path)
{
    QFile file(path);
    return cKeyFile(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
}

QString cKeyFile::Raw(const QString& group, const QString& key) const
{
    const auto found = groups.constFind(group);
    return found == groups.constEnd() ? QString() : found->value(key);
}

QString cKeyFile::Text(const QString& group, const QString& key) const
{
    return Parts(Raw(group, key), QChar()).first();
}

QString cKeyFile::Text(const QString& group, const QString& key, const QString& locale) const
{
    for (const QString& mark : LocaleMarks(locale)) {
        const QString text = Text(group, key + u'[' + mark + u']');
        if (!text.isEmpty())
            return text;
    }
    return Text(group, key);
}

QStringList cKeyFile::List(const QString& group, const QString& key) const
{
    QStringList parts = Parts(Raw(group, key), u';');
    parts.removeAll(QString());
    return parts;
}

bool cKeyFile::IsTrue(const QString& group, const QString& key) const
{
    return Raw(group, key) == QLatin1String("true");
}

} // namespace ob
