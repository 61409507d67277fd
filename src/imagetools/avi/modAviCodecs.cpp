// SPDX-License-Identifier: GPL-3.0-or-later
// Access to the compressors' plugin.
#include "imagetools/avi/modAviCodecs.h"

#include "platform/files/modFiles.h"
#include "platform/files/modPaths.h"

#include <QLibrary>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

struct Plugin {
    const cAviCodecs* codecs = nullptr;
    QString trouble;
};

// Looked up again until it is found; then it stays loaded until the process ends, as its encoders need it.
Plugin LoadPlugin()
{
    static const cAviCodecs* loaded = nullptr;
    if (loaded != nullptr)
        return {loaded, {}};
    const QString path = LibraryFile(u"AviCodecsOB"_s);
    if (!FileExists(path))
        return {nullptr, u"The compressors are missing: there is no %1."_s.arg(path)};
    QLibrary library(path);
    const auto open = reinterpret_cast<AviCodecsOB_Function*>(library.resolve(AviCodecsOB_Name));
    if (open == nullptr)
        return {nullptr, u"The compressors cannot be loaded: %1"_s.arg(library.errorString())};
    loaded = open();
    return {loaded, {}};
}

QString TextOf(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Checks that do not depend on the encoder's libraries and have clearer messages than theirs.
QString StepRefusal(const AviCodec& codec, int width, int height)
{
    if (width % codec.sizeStep == 0 && height % codec.sizeStep == 0)
        return {};
    return u"%1 needs a width and a height that are multiples of %2. These pictures have %3 x %4 pixels."_s
        .arg(TextOf(codec.description.substr(0, codec.description.find(':'))))
        .arg(codec.sizeStep)
        .arg(width)
        .arg(height);
}

} // namespace

std::vector<AviCodec> AviCodecs()
{
    std::vector<AviCodec> codecs = {{NoCodec, "Uncompressed: every bit of the bitmaps, the largest files"}};
    if (const Plugin plugin = LoadPlugin(); plugin.codecs != nullptr) {
        const auto found = plugin.codecs->Codecs();
        codecs.insert(codecs.end(), found.begin(), found.end());
    }
    return codecs;
}

QString AviCodecsTrouble()
{
    return LoadPlugin().trouble;
}

QString AviRefusal(const AviOptions& options, int width, int height)
{
    return options.codec == NoCodec ? QString() : MakeAviEncoder(options, width, height, 1).reason;
}

AviEncoderResult MakeAviEncoder(const AviOptions& options, int width, int height, int framesPerSecond)
{
    const Plugin plugin = LoadPlugin();
    if (plugin.codecs == nullptr)
        return {nullptr, plugin.trouble};
    const auto codecs = plugin.codecs->Codecs();
    const auto codec =
        std::find_if(codecs.begin(), codecs.end(), [&](const AviCodec& one) { return one.name == options.codec; });
    if (codec == codecs.end())
        return {nullptr, u"There is no codec \"%1\" here."_s.arg(TextOf(options.codec))};
    if (const QString refusal = StepRefusal(*codec, width, height); !refusal.isEmpty())
        return {nullptr, refusal};
    std::string reason;
    auto encoder = plugin.codecs->MakeEncoder(options.codec, {width, height, framesPerSecond, options.quality}, reason);
    if (encoder)
        return {std::move(encoder), {}};
    const QString refusal = u"This codec does not take pictures of %1 x %2 pixels (%3)."_s;
    return {nullptr, refusal.arg(width).arg(height).arg(TextOf(reason))};
}

} // namespace ob
