// SPDX-License-Identifier: GPL-3.0-or-later
// A media player without sound and pictures: files have the length set by the test, and time passes when it says so.
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

    qint64 length = 0;   // milliseconds, of the next file; -1 rejects it
    qint64 position = 0; // of all open devices
    MediaTrouble trouble = MediaTrouble::None;
    int openCount = 0; // the number of open devices
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
