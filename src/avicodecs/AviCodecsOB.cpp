// SPDX-License-Identifier: GPL-3.0-or-later
// Compressed frames by libavcodec. The program itself writes the file around them.
#include "avicodecs/AviCodecsOB_Api.h"
#include "imaging/cByteWriter.h"

#include <QtGlobal>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/opt.h>
#include <libswscale/swscale.h>
}

#include <algorithm>
#include <array>

namespace ob {

namespace {

struct Recipe {
    AviCodec codec;
    AVPixelFormat pixels; // the encoder's input; for lossless ones a format that preserves all three channels
};

constexpr Recipe recipes[] = {
    {{"huffyuv", "Huffyuv: lossless, quick"}, AV_PIX_FMT_RGB24},
    {{"utvideo", "Ut Video: lossless, quick"}, AV_PIX_FMT_GBRP},
    {{"ffv1", "FFV1: lossless, small files"}, AV_PIX_FMT_BGR0},
    {{"png", "PNG: lossless, a PNG picture for each frame"}, AV_PIX_FMT_RGB24},
    {{"zmbv", "Zip Motion Blocks: lossless, good for flat colours"}, AV_PIX_FMT_BGR0},
    {{"mjpeg", "Motion JPEG: small, plays nearly everywhere", AviQuality::Adjustable}, AV_PIX_FMT_YUVJ420P},
    {{"mpeg4", "MPEG-4: smallest files", AviQuality::Adjustable}, AV_PIX_FMT_YUV420P},
    {{"cinepak", "Cinepak: for very old players, slow to make; sides in multiples of 4", AviQuality::Adjustable, 4},
     AV_PIX_FMT_RGB24},
};

constexpr int WorstScale = 31; // the coarsest step of encoders with a quality setting
constexpr int InfoHeaderBytes = 40;

template <auto Free>
struct Release {
    template <class Thing>
    void operator()(Thing* thing) const
    {
        Free(&thing);
    }
};
struct ReleaseScaler {
    void operator()(SwsContext* scaler) const { sws_freeContext(scaler); }
};
using Context = std::unique_ptr<AVCodecContext, Release<avcodec_free_context>>;
using FramePointer = std::unique_ptr<AVFrame, Release<av_frame_free>>;
using PacketPointer = std::unique_ptr<AVPacket, Release<av_packet_free>>;
using Scaler = std::unique_ptr<SwsContext, ReleaseScaler>;

std::uint32_t TagOf(AVCodecID id)
{
    const AVCodecTag* const lists[] = {avformat_get_riff_video_tags(), nullptr};
    return av_codec_get_tag(lists, id);
}

const AVCodec* EncoderOf(std::string_view name)
{
    const AVCodec* encoder = avcodec_find_encoder_by_name(std::string(name).c_str());
    return encoder != nullptr && TagOf(encoder->id) != 0 ? encoder : nullptr;
}

// 100 is the finest step, 1 the coarsest.
int ScaleOf(int quality)
{
    return 1 + (100 - std::clamp(quality, 1, 100)) * (WorstScale - 1) / 99;
}

void SetUp(AVCodecContext& context, const Recipe& recipe, const AviEncoderSpec& spec)
{
    context.width = spec.width;
    context.height = spec.height;
    context.time_base = {1, spec.framesPerSecond};
    context.framerate = {spec.framesPerSecond, 1};
    context.pix_fmt = recipe.pixels;
    context.flags |= AV_CODEC_FLAG_BITEXACT;
    context.gop_size = 1;
    context.keyint_min = 1;
    context.max_b_frames = 0;
    // With some encoders the bytes depend on the number of threads.
    context.thread_count = 1;
    if (recipe.codec.quality == AviQuality::Adjustable) {
        context.flags |= AV_CODEC_FLAG_QSCALE;
        context.qmin = 1;
        context.qmax = WorstScale;
        context.global_quality = FF_QP2LAMBDA * ScaleOf(spec.quality);
    }
    if (context.codec_id == AV_CODEC_ID_FFV1) {
        // A fixed number of slices gives the same bytes with any number of threads.
        constexpr int leastSide = 64;
        context.level = 3;
        context.slices = std::min(spec.width, spec.height) < leastSide ? 1 : 4;
        context.thread_type = FF_THREAD_SLICE;
        context.thread_count = 0;
    }
    if (context.codec_id == AV_CODEC_ID_PNG)
        av_opt_set(context.priv_data, "pred", "paeth", 0);
    // Further iterations cost time and gain nothing.
    if (context.codec_id == AV_CODEC_ID_CINEPAK)
        av_opt_set_int(context.priv_data, "max_extra_cb_iterations", 0, 0);
}

std::string ErrorText(int error)
{
    std::array<char, AV_ERROR_MAX_STRING_SIZE> text = {};
    av_strerror(error, text.data(), text.size());
    return text.data();
}

class Encoder final : public cAviEncoder {
public:
    // Returns the reason for a failure, or an empty text.
    std::string Open(const Recipe& recipe, const AviEncoderSpec& spec)
    {
        const AVCodec* codec = EncoderOf(recipe.codec.name);
        if (codec == nullptr)
            return "This codec is not installed.";
        context.reset(avcodec_alloc_context3(codec));
        frame.reset(av_frame_alloc());
        packet.reset(av_packet_alloc());
        if (!context || !frame || !packet)
            return ErrorText(AVERROR(ENOMEM));
        SetUp(*context, recipe, spec);
        if (const int error = avcodec_open2(context.get(), codec, nullptr); error < 0)
            return ErrorText(error);
        scaler.reset(sws_getContext(spec.width, spec.height, AV_PIX_FMT_BGR24, spec.width, spec.height, recipe.pixels,
                                    SWS_BICUBIC | SWS_ACCURATE_RND | SWS_BITEXACT | SWS_FULL_CHR_H_INP, nullptr,
                                    nullptr, nullptr));
        return scaler ? std::string() : "Pictures of this size cannot be converted.";
    }

    std::uint32_t Handler() const override
    {
        return context->codec_tag != 0 ? context->codec_tag : TagOf(context->codec_id);
    }

    std::vector<std::uint8_t> Format() const override
    {
        const auto extra = static_cast<std::uint32_t>(std::max(context->extradata_size, 0));
        const int coded = context->bits_per_coded_sample;
        const auto bits = static_cast<std::uint32_t>(coded > 0 ? coded : 24);
        const auto width = static_cast<std::uint32_t>(context->width);
        const auto height = static_cast<std::uint32_t>(context->height);
        cByteWriter writer;
        writer.Long(InfoHeaderBytes + extra).Long(width).Long(height).Long(1 | bits << 16);
        writer.Long(Handler()).Long(width * height * 3).Zeros(16);
        if (extra != 0)
            writer.Bytes({context->extradata, extra});
        return writer.Take();
    }

    std::span<const std::uint8_t> Encode(const std::uint8_t* topLine, std::ptrdiff_t lineStep) override
    {
        av_packet_unref(packet.get());
        if (!Convert(topLine, lineStep))
            return {};
        frame->pts = nextFrame++;
        frame->quality = context->global_quality;
        frame->pict_type = AV_PICTURE_TYPE_I;
        if (avcodec_send_frame(context.get(), frame.get()) < 0 ||
            avcodec_receive_packet(context.get(), packet.get()) < 0 || (packet->flags & AV_PKT_FLAG_KEY) == 0)
            return {};
        return {packet->data, static_cast<std::size_t>(packet->size)};
    }

private:
    bool Convert(const std::uint8_t* topLine, std::ptrdiff_t lineStep)
    {
        if (frame->data[0] == nullptr) {
            frame->format = context->pix_fmt;
            frame->width = context->width;
            frame->height = context->height;
            if (av_frame_get_buffer(frame.get(), 0) < 0)
                return false;
        }
        if (av_frame_make_writable(frame.get()) < 0)
            return false;
        const std::uint8_t* const lines[] = {topLine, nullptr, nullptr, nullptr};
        const int steps[] = {static_cast<int>(lineStep), 0, 0, 0};
        return sws_scale(scaler.get(), lines, steps, 0, context->height, frame->data, frame->linesize) ==
               context->height;
    }

    Context context;
    FramePointer frame;
    PacketPointer packet;
    Scaler scaler;
    std::int64_t nextFrame = 0;
};

class InstalledCodecs final : public cAviCodecs {
public:
    InstalledCodecs()
    {
        // The program itself reports errors.
        av_log_set_level(AV_LOG_QUIET);
        for (const Recipe& recipe : recipes)
            if (EncoderOf(recipe.codec.name) != nullptr)
                codecs.push_back(recipe.codec);
    }

    std::span<const AviCodec> Codecs() const override { return codecs; }

    std::unique_ptr<cAviEncoder> MakeEncoder(std::string_view name, const AviEncoderSpec& spec,
                                             std::string& reason) const override
    {
        const auto* recipe = std::find_if(std::begin(recipes), std::end(recipes),
                                          [&](const Recipe& one) { return one.codec.name == name; });
        if (recipe == std::end(recipes)) {
            reason = "There is no such codec.";
            return nullptr;
        }
        auto encoder = std::make_unique<Encoder>();
        reason = encoder->Open(*recipe, spec);
        if (!reason.empty())
            return nullptr;
        return encoder;
    }

private:
    std::vector<AviCodec> codecs;
};

} // namespace

} // namespace ob

extern "C" Q_DECL_EXPORT const ob::cAviCodecs* AviCodecsOB_Codecs()
{
    static const ob::InstalledCodecs codecs;
    return &codecs;
}
