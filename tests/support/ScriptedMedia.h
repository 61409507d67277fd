// SPDX-License-Identifier: GPL-3.0-or-later
// A media player without sound and pictures: files have the length that the test gives, and time passes when it says.
#pragma once

#include "platform/media/modMci.h"

#include <QMap>
#include <QStringList>

namespace ob {

class ScriptedMedia final : public cMediaDevices {
public:
    ScriptedMedia() : before(SetMediaDevices(this)) {}
    ~ScriptedMedia() override { SetMediaDevices(before); }

    OpenedMedia Open(MediaKind kind, const QString& path) override
    {
        const QStringList kinds = {QStringLiteral("video"), QStringLiteral("midi"), QStringLiteral("sound")};
        log.append(QStringLiteral("open %1 %2").arg(kinds[static_cast<int>(kind)], path));
        if (length < 0)
            return {nullptr, trouble};
        ++openCount;
        return {std::make_unique<Device>(*this), trouble};
    }

    qint64 length = 0;   // milliseconds, of the next file; -1 refuses it
    qint64 position = 0; // of all that are open
    MediaTrouble trouble = MediaTrouble::None;
    int openCount = 0; // devices that are open
    QStringList log;   // "open video /x/y.avi", "play", "close"

private:
    class Device final : public cMediaDevice {
    public:
        explicit Device(ScriptedMedia& of) : owner(of), length(of.length) {}
        ~Device() override
        {
            --owner.openCount;
            owner.log.append(QStringLiteral("close"));
        }
        qint64 Length() const override { return length; }
        qint64 Position() const override { return owner.position; }
        void Play() override { owner.log.append(QStringLiteral("play")); }

    private:
        ScriptedMedia& owner;
        const qint64 length;
    };

    cMediaDevices* before;
};

} // namespace ob
