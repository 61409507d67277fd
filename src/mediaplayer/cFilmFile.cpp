// SPDX-License-Identifier: GPL-3.0-or-later
// Reading and decoding of films. The file's own claims are not trusted: sizes and rates have bounds.
#include "mediaplayer/cFilmFile.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/channel_layout.h>
#include <libavutil/mem.h>
#include <libswresample/swresample.h>
#include <libswscale/swscale.h>
}

#include <algorithm>
#include <cmath>
#include <vector>

namespace ob {

namespace {

constexpr qint64 MaximumPixels = qint64{8192} * 8192;
constexpr int LowestRate = 1'000;
constexpr int HighestRate = 768'000;
constexpr AVRational Microseconds{1, 1'000'000};

// The container formats of media files. Playlists that name other files, and formats that access the network, are
// excluded.
constexpr char Containers[] = "avi,mpeg,mpegvideo,mpegts,mp3,mp2,aac,ac3,wav,w64,aiff,au,ogg,flac,mov,matroska,asf,m4v";

struct Release {
    void operator()(AVFormatContext* context) const { avformat_close_input(&context); }
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
    void operator()(SwrContext* context) const { swr_free(&context); }
    void operator()(SwsContext* context) const { sws_freeContext(context); }
};
template <class Type>
using Owned = std::unique_ptr<Type, Release>;

int IsStopped(void* stop)
{
    return static_cast<const std::atomic<bool>*>(stop)->load() ? 1 : 0;
}

Owned<AVFormatContext> OpenContainer(const QString& path, const std::atomic<bool>& stop)
{
    AVFormatContext* context = avformat_alloc_context();
    if (context == nullptr)
        return nullptr;
    context->interrupt_callback = {IsStopped, const_cast<std::atomic<bool>*>(&stop)};
    AVDictionary* options = nullptr;
    av_dict_set(&options, "protocol_whitelist", "file", 0);
    av_dict_set(&options, "format_whitelist", Containers, 0);
    const QByteArray name = "file:" + path.toUtf8();
    const int error = avformat_open_input(&context, name.constData(), nullptr, &options);
    av_dict_free(&options);
    if (error < 0)
        return nullptr; // the library has freed the context
    Owned<AVFormatContext> container(context);
    return avformat_find_stream_info(context, nullptr) < 0 ? nullptr : std::move(container);
}

// A picture with padding after its lines and its end, as the library's fast paths write in large steps.
QImage RoomyPicture(int width, int height)
{
    constexpr qsizetype alignment = 64;
    const qsizetype stride = (qsizetype{width} * 4 + alignment - 1) / alignment * alignment;
    auto* bytes = static_cast<uchar*>(av_malloc(static_cast<std::size_t>(stride * height + alignment)));
    return bytes == nullptr ? QImage() : QImage(bytes, width, height, stride, QImage::Format_RGB32, av_free, bytes);
}

// One stream of the file with its decoder; empty when the file has none that can be decoded.
struct Stream {
    AVStream* stream = nullptr;
    Owned<AVCodecContext> decoder;

    explicit operator bool() const { return decoder != nullptr; }
};

bool IsPlayable(const AVStream& stream)
{
    const AVCodecParameters& codec = *stream.codecpar;
    if (codec.codec_type == AVMEDIA_TYPE_AUDIO)
        return codec.sample_rate >= LowestRate && codec.sample_rate <= HighestRate && codec.ch_layout.nb_channels > 0;
    // The cover of a song is not a film.
    return codec.width > 0 && codec.height > 0 && (stream.disposition & AV_DISPOSITION_ATTACHED_PIC) == 0 &&
           qint64{codec.width} * codec.height <= MaximumPixels;
}

Stream OpenStream(AVFormatContext& container, AVMediaType type)
{
    const AVCodec* codec = nullptr;
    const int number = av_find_best_stream(&container, type, -1, -1, &codec, 0);
    if (number < 0 || codec == nullptr || !IsPlayable(*container.streams[number]))
        return {};
    Stream opened{container.streams[number], Owned<AVCodecContext>(avcodec_alloc_context3(codec))};
    AVCodecContext* decoder = opened.decoder.get();
    if (decoder == nullptr || avcodec_parameters_to_context(decoder, opened.stream->codecpar) < 0)
        return {};
    decoder->pkt_timebase = opened.stream->time_base;
    decoder->max_pixels = MaximumPixels;
    decoder->thread_count = 0; // one per processor
    if (avcodec_open2(decoder, codec, nullptr) < 0)
        return {};
    return opened;
}

} // namespace

struct cFilmFile::Parts {
    Owned<AVFormatContext> container;
    Stream pictures;
    Stream sound;
    FilmRequest request;
    Owned<AVPacket> packet{av_packet_alloc()};
    Owned<AVFrame> frame{av_frame_alloc()};
    Owned<SwsContext> scaler;
    Owned<SwrContext> resampler;
    int resampledRate = 0; // the resampler's current input
    int resampledFormat = -1;
    AVChannelLayout resampledLayout = {};
    std::vector<float> stereo;
    qint64 start = 0;
    qint64 end = 0;

    ~Parts() { av_channel_layout_uninit(&resampledLayout); }

    qint64 TimeOf(std::int64_t stamp, const AVStream& stream) const
    {
        return av_rescale_q(stamp, stream.time_base, Microseconds) - start;
    }

    void NoteEnd(const AVStream& stream);
    bool MakeResampler();
    void GivePicture(cFilmTaker& taker);
    void GiveSound(cFilmTaker& taker);
    void Decode(const Stream& stream, const AVPacket* from, cFilmTaker& taker);
};

void cFilmFile::Parts::NoteEnd(const AVStream& stream)
{
    const std::int64_t stamp = packet->pts != AV_NOPTS_VALUE ? packet->pts : packet->dts;
    if (stamp != AV_NOPTS_VALUE)
        end = std::max(end, TimeOf(stamp + std::max<std::int64_t>(packet->duration, 0), stream));
}

void cFilmFile::Parts::GivePicture(cFilmTaker& taker)
{
    const int width = frame->width;
    const int height = frame->height;
    QImage picture = RoomyPicture(width, height);
    scaler.reset(sws_getCachedContext(scaler.release(), width, height, static_cast<AVPixelFormat>(frame->format), width,
                                      height, AV_PIX_FMT_0RGB32, SWS_BILINEAR, nullptr, nullptr, nullptr));
    if (scaler == nullptr || picture.isNull())
        return;
    std::uint8_t* const lines[] = {picture.bits()};
    const int strides[] = {static_cast<int>(picture.bytesPerLine())};
    sws_scale(scaler.get(), frame->data, frame->linesize, 0, height, lines, strides);
    const std::int64_t stamp = frame->best_effort_timestamp;
    taker.TakePicture(std::move(picture), stamp == AV_NOPTS_VALUE ? end : TimeOf(stamp, *pictures.stream));
}

// A stream may change its format midway.
bool cFilmFile::Parts::MakeResampler()
{
    if (resampler != nullptr && resampledRate == frame->sample_rate && resampledFormat == frame->format &&
        av_channel_layout_compare(&resampledLayout, &frame->ch_layout) == 0)
        return true;
    resampler.reset();
    if (frame->sample_rate < LowestRate || frame->sample_rate > HighestRate)
        return false;
    AVChannelLayout stereoLayout = AV_CHANNEL_LAYOUT_STEREO;
    SwrContext* made = nullptr;
    swr_alloc_set_opts2(&made, &stereoLayout, AV_SAMPLE_FMT_FLT, request.soundRate, &frame->ch_layout,
                        static_cast<AVSampleFormat>(frame->format), frame->sample_rate, 0, nullptr);
    resampler.reset(made);
    if (made == nullptr || swr_init(made) < 0) {
        resampler.reset();
        return false;
    }
    resampledRate = frame->sample_rate;
    resampledFormat = frame->format;
    return av_channel_layout_copy(&resampledLayout, &frame->ch_layout) >= 0;
}

void cFilmFile::Parts::GiveSound(cFilmTaker& taker)
{
    constexpr int longest = 1 << 24; // frames in one piece
    if (!MakeResampler())
        return;
    const int room = swr_get_out_samples(resampler.get(), frame->nb_samples);
    if (room <= 0 || room > longest)
        return;
    stereo.resize(static_cast<std::size_t>(room) * 2);
    auto* out = reinterpret_cast<std::uint8_t*>(stereo.data());
    const int count = swr_convert(resampler.get(), &out, room, const_cast<const std::uint8_t**>(frame->extended_data),
                                  frame->nb_samples);
    if (count <= 0)
        return;
    const std::int64_t stamp = frame->best_effort_timestamp;
    taker.TakeSound(std::span(stereo).first(static_cast<std::size_t>(count) * 2),
                    stamp == AV_NOPTS_VALUE ? end : TimeOf(stamp, *sound.stream));
}

// Without a packet, the decoder is drained.
void cFilmFile::Parts::Decode(const Stream& stream, const AVPacket* from, cFilmTaker& taker)
{
    if (avcodec_send_packet(stream.decoder.get(), from) < 0 && from != nullptr)
        return;
    while (avcodec_receive_frame(stream.decoder.get(), frame.get()) >= 0) {
        if (&stream == &pictures)
            GivePicture(taker);
        else
            GiveSound(taker);
        av_frame_unref(frame.get());
    }
}

cFilmFile::cFilmFile() : parts(std::make_unique<Parts>()) {}

cFilmFile::~cFilmFile() = default;

std::unique_ptr<cFilmFile> cFilmFile::Open(const QString& path, const FilmRequest& request,
                                           const std::atomic<bool>& stop)
{
    av_log_set_level(AV_LOG_QUIET);
    auto film = std::make_unique<cFilmFile>();
    Parts& parts = *film->parts;
    parts.request = request;
    parts.container = OpenContainer(path, stop);
    if (parts.container == nullptr || parts.packet == nullptr || parts.frame == nullptr)
        return nullptr;
    parts.sound = OpenStream(*parts.container, AVMEDIA_TYPE_AUDIO);
    if (request.pictures)
        parts.pictures = OpenStream(*parts.container, AVMEDIA_TYPE_VIDEO);
    if (!parts.sound && !parts.pictures)
        return nullptr;
    if (parts.container->start_time != AV_NOPTS_VALUE)
        parts.start = av_rescale_q(parts.container->start_time, AVRational{1, AV_TIME_BASE}, Microseconds);
    return film;
}

qint64 cFilmFile::Length() const
{
    const std::int64_t duration = parts->container->duration;
    return duration == AV_NOPTS_VALUE || duration < 0
               ? 0
               : av_rescale_q(duration, AVRational{1, AV_TIME_BASE}, Microseconds);
}

bool cFilmFile::GivesPictures() const
{
    return static_cast<bool>(parts->pictures);
}

bool cFilmFile::GivesSound() const
{
    return parts->sound && parts->request.soundRate > 0;
}

bool cFilmFile::HasSound() const
{
    return static_cast<bool>(parts->sound);
}

QSize cFilmFile::ShownSize() const
{
    if (!parts->pictures)
        return {};
    const AVCodecParameters& codec = *parts->pictures.stream->codecpar;
    const AVRational pixel = av_guess_sample_aspect_ratio(parts->container.get(), parts->pictures.stream, nullptr);
    const double ratio = pixel.num > 0 && pixel.den > 0 ? av_q2d(pixel) : 1;
    // No real film has a more extreme ratio.
    constexpr double widest = 8;
    const double width = codec.width * std::clamp(ratio, 1 / widest, widest);
    return {std::max(1, static_cast<int>(std::lround(width))), codec.height};
}

FilmStep cFilmFile::Step(cFilmTaker& taker)
{
    if (av_read_frame(parts->container.get(), parts->packet.get()) < 0) {
        if (GivesPictures())
            parts->Decode(parts->pictures, nullptr, taker);
        if (GivesSound())
            parts->Decode(parts->sound, nullptr, taker);
        return FilmStep::End;
    }
    const AVPacket& packet = *parts->packet;
    if (parts->pictures && packet.stream_index == parts->pictures.stream->index) {
        parts->NoteEnd(*parts->pictures.stream);
        parts->Decode(parts->pictures, &packet, taker);
    } else if (parts->sound && packet.stream_index == parts->sound.stream->index) {
        parts->NoteEnd(*parts->sound.stream);
        if (GivesSound())
            parts->Decode(parts->sound, &packet, taker);
    }
    av_packet_unref(parts->packet.get());
    return FilmStep::More;
}

qint64 cFilmFile::EndOfRead() const
{
    return parts->end;
}

} // namespace ob
