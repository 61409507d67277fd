// SPDX-License-Identifier: GPL-3.0-or-later
// The interpreter of the command strings.
#include "platform/media/modMci.h"

#include "platform/files/modFiles.h"
#include "platform/files/modPaths.h"
#include "platform/language/modRuntime.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QLibrary>
#include <QTimer>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

struct NamedDevice {
    QString alias;
    std::unique_ptr<cMediaDevice> device;
    bool isStarted = false;
};

// What this process has open.
struct OpenMedia {
    std::vector<NamedDevice> named;
    std::unique_ptr<cMediaDevice> sound;
    unsigned soundCount = 0; // distinguishes a sound from the next one
    cMediaDevices* replaced = nullptr;
    MediaTrouble trouble = MediaTrouble::None;
};

OpenMedia& Media()
{
    static OpenMedia media;
    return media;
}

// Devices have windows and sound, which must not outlive the application object.
void CloseEverything()
{
    Media().named.clear();
    Media().sound.reset();
}

cMediaDevices* LoadedDevices()
{
    static cMediaDevices* devices = nullptr;
    const QString path = LibraryFile(u"MediaPlayerOB"_s);
    if (devices == nullptr && FileExists(path)) {
        auto* function =
            reinterpret_cast<MediaPlayerOB_DevicesFunction*>(QLibrary::resolve(path, MediaPlayerOB_DevicesName));
        devices = function == nullptr ? nullptr : function();
    }
    return devices;
}

std::unique_ptr<cMediaDevice> OpenDevice(MediaKind kind, const QString& path)
{
    static const bool isRegistered = (qAddPostRoutine(CloseEverything), true);
    Q_UNUSED(isRegistered)
    OpenMedia& media = Media();
    media.trouble = MediaTrouble::None;
    // A pipe would block and a folder would fail later on.
    if (!FileExists(path))
        return nullptr;
    cMediaDevices* devices = media.replaced != nullptr ? media.replaced : LoadedDevices();
    if (devices == nullptr) {
        media.trouble = MediaTrouble::NoPlayer;
        return nullptr;
    }
    OpenedMedia opened = devices->Open(kind, path);
    media.trouble = opened.trouble;
    return std::move(opened.device);
}

// Lets events run until the work is done.
template <class IsDone>
void WaitUntil(IsDone isDone)
{
    constexpr int interval = 20; // milliseconds
    QEventLoop loop;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        if (isDone())
            loop.quit();
    });
    timer.start(interval);
    if (!isDone())
        loop.exec();
}

bool HasEnded(const cMediaDevice& device)
{
    return device.Position() >= device.Length();
}

std::vector<NamedDevice>::iterator Find(QStringView alias)
{
    auto& named = Media().named;
    return std::find_if(named.begin(), named.end(),
                        [&](const NamedDevice& each) { return EqualsIgnoreCase(each.alias, alias); });
}

std::optional<MediaKind> KindOf(QStringView device)
{
    const QString word = LowerAscii(TrimSpaces(device));
    if (word == QLatin1String("avivideo") || word == QLatin1String("mpegvideo"))
        return MediaKind::Video;
    if (word == QLatin1String("sequencer"))
        return MediaKind::Midi;
    if (word == QLatin1String("waveaudio"))
        return MediaKind::Sound;
    return std::nullopt;
}

struct Answer {
    MciResult result = MciResult::Done;
    QByteArray text = {};
};

QString WithoutQuotes(QStringView name)
{
    const QString text = TrimSpaces(name);
    const bool isQuoted = text.size() >= 2 && text.startsWith(u'"') && text.endsWith(u'"');
    return isQuoted ? text.sliced(1, text.size() - 2) : text;
}

// Cuts the text at the last occurrence of the word, which includes its spaces, and returns what follows it.
std::optional<QString> CutAfter(QStringView& text, QLatin1String word)
{
    const qsizetype place = text.lastIndexOf(word, -1, Qt::CaseInsensitive);
    if (place < 0)
        return std::nullopt;
    const QString tail = TrimSpaces(text.sliced(place + word.size()));
    text = text.first(place);
    return tail;
}

Answer Open(QStringView rest)
{
    const std::optional<QString> alias = CutAfter(rest, QLatin1String(" alias "));
    const qsizetype mark = rest.indexOf(u'!');
    std::optional<MediaKind> kind = mark < 0 ? std::nullopt : KindOf(rest.first(mark));
    if (kind)
        rest = rest.sliced(mark + 1);
    else if (const std::optional<QString> type = CutAfter(rest, QLatin1String(" type ")))
        kind = KindOf(*type);
    if (!kind)
        return {MciResult::InvalidDeviceName};
    const QString file = WithoutQuotes(rest);
    const QString name = alias.value_or(file);
    if (Find(name) != Media().named.end())
        return {MciResult::DuplicateAlias};
    if (!FileExists(file))
        return {MciResult::FileNotFound};
    std::unique_ptr<cMediaDevice> device = OpenDevice(*kind, file);
    if (device == nullptr)
        return {MciResult::InvalidFile};
    Media().named.push_back({name, std::move(device)});
    return {MciResult::Done, "1"};
}

Answer Status(QStringView rest)
{
    const QString text = TrimSpaces(rest);
    const qsizetype space = text.lastIndexOf(u' ');
    const auto place = Find(TrimSpaces(QStringView(text).first(std::max<qsizetype>(space, 0))));
    if (place == Media().named.end())
        return {MciResult::InvalidDeviceName};
    const cMediaDevice& device = *place->device;
    const QString item = LowerAscii(QStringView(text).sliced(space + 1));
    if (item == QLatin1String("length"))
        return {MciResult::Done, QByteArray::number(device.Length())};
    if (item == QLatin1String("position"))
        return {MciResult::Done, QByteArray::number(device.Position())};
    if (item == QLatin1String("mode"))
        return {MciResult::Done, place->isStarted && !HasEnded(device) ? "playing" : "stopped"};
    return {MciResult::UnsupportedFunction};
}

Answer Play(QStringView rest)
{
    QString alias = TrimSpaces(rest);
    auto place = Find(alias);
    const bool waits = place == Media().named.end() && alias.endsWith(QLatin1String(" wait"), Qt::CaseInsensitive);
    if (waits) {
        alias = TrimSpaces(alias.chopped(5));
        place = Find(alias);
    }
    if (place == Media().named.end())
        return {MciResult::InvalidDeviceName};
    place->isStarted = true;
    place->device->Play();
    if (waits) {
        WaitUntil([&] {
            const auto now = Find(alias);
            return now == Media().named.end() || HasEnded(*now->device);
        });
    }
    return {};
}

Answer Close(QStringView rest)
{
    const QString alias = TrimSpaces(rest);
    if (EqualsIgnoreCase(alias, QLatin1String("all"))) {
        // Removed first, so that nothing finds a device that is being destroyed.
        const auto closing = std::exchange(Media().named, {});
        return {};
    }
    const auto place = Find(alias);
    if (place == Media().named.end())
        return {MciResult::InvalidDeviceName};
    const NamedDevice closing = std::move(*place);
    Media().named.erase(place);
    return {};
}

Answer Run(const QString& command)
{
    const QString text = TrimSpaces(command);
    if (text.isEmpty())
        return {MciResult::MissingCommandString};
    const qsizetype space = text.indexOf(u' ');
    const QString verb = LowerAscii(space < 0 ? QStringView(text) : QStringView(text).first(space));
    const QStringView rest = space < 0 ? QStringView() : QStringView(text).sliced(space);
    if (verb == QLatin1String("open"))
        return Open(rest);
    if (verb == QLatin1String("status"))
        return Status(rest);
    if (verb == QLatin1String("play"))
        return Play(rest);
    // A stopped device does no more than a closed one.
    if (verb == QLatin1String("close") || verb == QLatin1String("stop"))
        return Close(rest);
    return {MciResult::UnrecognizedCommand};
}

} // namespace

MciResult mciSendStringA(const QString& command, QByteArray* buffer, int size, int)
{
    const Answer answer = Run(command);
    if (buffer == nullptr || size <= 0)
        return answer.result;
    if (buffer->size() < size)
        buffer->resize(size, '\0');
    const qsizetype length = std::min<qsizetype>(answer.text.size(), size - 1);
    std::copy_n(answer.text.cbegin(), length, buffer->begin());
    (*buffer)[length] = '\0';
    return length < answer.text.size() ? MciResult::AnswerTooLong : answer.result;
}

bool sndPlaySoundA(const QString& file, unsigned flags)
{
    OpenMedia& media = Media();
    media.sound.reset();
    const unsigned count = ++media.soundCount;
    if (NameOf(file) == file && !file.contains(u'.'))
        return false;
    media.sound = OpenDevice(MediaKind::Sound, file);
    if (media.sound == nullptr)
        return false;
    media.sound->Play();
    if ((flags & SND_ASYNC) == 0)
        WaitUntil([&] { return media.soundCount != count || media.sound == nullptr || HasEnded(*media.sound); });
    return true;
}

MediaTrouble LastMediaTrouble()
{
    return Media().trouble;
}

cMediaDevices* SetMediaDevices(cMediaDevices* devices)
{
    CloseEverything();
    Media().trouble = MediaTrouble::None;
    return std::exchange(Media().replaced, devices);
}

} // namespace ob
