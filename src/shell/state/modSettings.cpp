// SPDX-License-Identifier: GPL-3.0-or-later
// The settings store as a text file of the user.
#include "shell/state/modSettings.h"

#include "platform/files/cTemporaryFile.h"
#include "platform/files/modFileErrors.h"
#include "platform/files/modFiles.h"
#include "platform/files/modNativePath.h"
#include "platform/language/cRuntimeError.h"
#include "shell/state/cMainForm.h"

#include <QFileInfo>
#include <QSettings>
#include <QStringList>
#include <QTimer>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

QString Address(const QString& section, const QString& key)
{
    return section + u'/' + key;
}

const QString Settings = u"Settings"_s;

// The file that a test asked for; empty for the user's own.
QString askedFile;

std::unique_ptr<QSettings> OpenStore()
{
    if (!askedFile.isEmpty())
        return std::make_unique<QSettings>(askedFile, QSettings::IniFormat);

    auto store = std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope, u"OB Bench"_s);
    // The store is the user's only: missing keys are not looked up in a machine-wide file.
    store->setFallbacksEnabled(false);
    return store;
}

// One open store for the whole run: opening it costs more than reading all of it.
std::unique_ptr<QSettings>& Store()
{
    static std::unique_ptr<QSettings> store = OpenStore();
    return store;
}

QString Read(const QString& section, const QString& key, const QString& fallback)
{
    const QVariant value = Store()->value(Address(section, key));
    if (!value.isValid())
        return fallback;
    // A file edited by hand may contain a comma outside quotes, which the format reads as a list.
    return value.typeId() == QMetaType::QStringList ? value.toStringList().join(QLatin1String(", ")) : value.toString();
}

// The toolkit keeps no reason for a store that it could not write; a file beside it, as large, meets the same one.
void RaiseReason(const QString& path)
{
    const std::filesystem::path file = NativePath(path);
    if (FileExists(path))
        RequireWritable(file, path);
    constexpr qint64 block = 4096;
    const qint64 size = (QFileInfo(path).size() / block + 1) * block;
    cTemporaryFile probe(file, path);
    probe.Write(std::vector<std::uint8_t>(static_cast<std::size_t>(size)));
    probe.Complete(Durability::Synced);
    throw RuntimeErrorOf(ErrorNumber::DeviceIoError, path, u"The settings could not be written"_s);
}

void Sync()
{
    // An error sticks to the object that met it. Another one shares what is still to be written.
    if (Store()->status() != QSettings::NoError)
        Store() = OpenStore();
    Store()->sync();
    const QString path = Store()->fileName();
    if (Store()->status() == QSettings::AccessError)
        RaiseReason(path);
    if (!FileExists(path))
        return;
    if (const std::error_code error = SyncNames(FolderOfNative(NativePath(path))))
        RaiseFileError(error, path);
}

} // namespace

QString ReadSetting(const QString& key, const QString& fallback)
{
    return Read(Settings, key, fallback);
}

void WriteSetting(const QString& key, const QString& value)
{
    Store()->setValue(Address(Settings, key), value);
}

QString ReadRemembered(const QString& section, const QString& key)
{
    return Read(section, key, {});
}

void WriteRemembered(const QString& section, const QString& key, const QString& value)
{
    Store()->setValue(Address(section, key), value);
}

bool HasSettings()
{
    return !Store()->allKeys().isEmpty();
}

void SyncSettings()
{
    try {
        Sync();
    } catch (const RuntimeError& error) {
        // The command at work may have a status of its own still to show; this one follows it.
        QTimer::singleShot(0, [reason = error.reason] { SetStatusText(reason); });
    }
}

QString SettingsFile()
{
    return Store()->fileName();
}

void SetSettingsFile(const QString& path)
{
    askedFile = path;
    Store() = OpenStore();
}

} // namespace ob
