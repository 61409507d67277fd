// SPDX-License-Identifier: GPL-3.0-or-later
// A file of groups with lines "key=value", such as desktop entries and lists of default programs (freedesktop.org, desktop
// entries 1.5, sections 3 to 5).
#pragma once

#include <QByteArrayView>
#include <QHash>
#include <QString>
#include <QStringList>

namespace ob {

class cKeyFile {
public:
    // UTF-8 text. Lines that are neither a group, a key nor a comment are skipped; of a duplicate key the first counts.
    explicit cKeyFile(QByteArrayView text);
    // A file that cannot be read has no groups.
    static cKeyFile Read(const QString& path);

    // The value with \s \n \t \r \\ unescaped, any other backslash being literal; empty where the key is missing.
    QString Text(const QString& group, const QString& key) const;
    // The same, in the best translation for a locale "lang_COUNTRY.ENCODING@MODIFIER".
    QString Text(const QString& group, const QString& key, const QString& locale) const;
    // The parts of a value between its semicolons; "\;" is a semicolon within a part. No part is empty.
    QStringList List(const QString& group, const QString& key) const;
    bool IsTrue(const QString& group, const QString& key) const;

private:
    QString Raw(const QString& group, const QString& key) const;

    QHash<QString, QHash<QString, QString>> groups;
};

} // namespace ob
