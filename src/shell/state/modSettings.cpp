// SPDX-License-Identifier: GPL-3.0-or-later
// The settings store as a text file of the user.
#include "shell/state/modSettings.h"

#include <QSettings>
#include <QStringList>

#include <memory>

namespace ob {

namespace {

QString Address(const QString& key)
{
    return QStringLiteral("Settings/") + key;
}

std::unique_ptr<QSettings> UsersStore()
{
    auto store = std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("OB Bench"));
    // The store is the user's only: missing keys are not looked up in a machine-wide file.
    store->setFallbacksEnabled(false);
    return store;
}

// One open store for the whole run: opening it costs more than reading all of it.
std::unique_ptr<QSettings>& Store()
{
    static std::unique_ptr<QSettings> store = UsersStore();
    return store;
}

} // namespace

QString ReadSetting(const QString& key, const QString& fallback)
{
    const QVariant value = Store()->value(Address(key));
    if (!value.isValid())
        return fallback;
    // A file edited by hand may contain a comma outside quotes, which the format reads as a list.
    return value.typeId() == QMetaType::QStringList ? value.toStringList().join(QLatin1String(", ")) : value.toString();
}

void WriteSetting(const QString& key, const QString& value)
{
    Store()->setValue(Address(key), value);
}

void SyncSettings()
{
    Store()->sync();
}

QString SettingsFile()
{
    return Store()->fileName();
}

void SetSettingsFile(const QString& path)
{
    Store() = path.isEmpty() ? UsersStore() : std::make_unique<QSettings>(path, QSettings::IniFormat);
}

} // namespace ob
