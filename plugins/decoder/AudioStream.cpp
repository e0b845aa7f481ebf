// Decoding of an open source into blocks of samples.
#include "plugins/decoder/AudioStream.h"

#include "plugins/decoder/OggEnd.h"

#include <algorithm>
#include <cstring>
#include <vector>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswresample/swresample.h>
}

namespace {

// Text that stands around streams (tags at the end, a torn first frame) costs a lossy stream a few
// packets; more than this share of them is damage that one hears.
constexpr unsigned toleratedDamagePercent = 2;
constexpr unsigned toleratedDamageFloor = 3;
// What encoders put around the audio, and decoders cut off, counts in some lengths.
constexpr std::uint64_t usualPaddingFrames = 4000;

constexpr wchar_t wrongChecksum[] =
    L"The source is damaged: its audio does not match the MD5 checksum that it holds of it";

} // namespace

void AudioStream::Fail(const wchar_t* what, int code) {
    error = what;
    if (code == 0)
        return;
    char text[AV_ERROR_MAX_STRING_SIZE] = "";
    av_strerror(code, text, sizeof text);
    error += L": ";
    error += XString(text);
}

void AudioStream::Close() noexcept {
    checksum.Stop();
    wideFlac.reset();
    swr_free(&resampler);
    av_frame_free(&adapted);
    av_frame_free(&frame);
    av_packet_free(&packet);
    avcodec_free_context(&codec);
    avformat_close_input(&container); // leaves the bytes' context to `input`
    input.Close();
    stream = nullptr;
    current = nullptr;
    offset = 0;
    sampleFormat = -1;
    flushed = lossless = isProtected = false;
    exactFrames = expectedFrames = delivered = 0;
    packets = damaged = 0;
    endDoubt.Clear();
}

bool AudioStream::TolerateDamage(int code) {
    ++damaged;
    const unsigned allowed = std::max(toleratedDamageFloor, packets * toleratedDamagePercent / 100);
    if (!lossless && damaged <= allowed)
        return true;
    Fail(L"The source is damaged", code);
    return false;
}

// Hands one packet, or the end, to the codec. False on damage.
bool AudioStream::FeedPacket() {
    while (!flushed) {
        const int read = av_read_frame(container, packet);
        if (read < 0) {
            flushed = true;
            if (input.HadReadError()) {
                Fail(L"Unable to read the source", read);
                return false;
            }
            if (read != AVERROR_EOF && !TolerateDamage(read))
                return false;
            avcodec_send_packet(codec, nullptr);
            return true;
        }
        const bool ours = packet->stream_index == stream->index;
        const int sent = ours ? avcodec_send_packet(codec, packet) : 0;
        packets += ours;
        av_packet_unref(packet);
        if (sent < 0 && sent != AVERROR(EAGAIN) && !TolerateDamage(sent))
            return false;
        if (ours)
            return true;
    }
    return true;
}

AudioStream::Step AudioStream::ReceiveOrFeed() {
    for (;;) {
        const int received = avcodec_receive_frame(codec, frame);
        if (received == 0) {
            if (frame->nb_samples > 0)
                return Step::frame;
        } else if (received == AVERROR_EOF || (received == AVERROR(EAGAIN) && flushed)) {
            return CheckEnd();
        } else {
            const bool goesOn = received == AVERROR(EAGAIN) || TolerateDamage(received);
            if (!goesOn || !FeedPacket())
                return Step::damage;
        }
    }
}

// The index of an MP4 file lists each packet, also those that are not in the file any more.
bool AudioStream::LacksPackets() const {
    const int listed =
        std::strstr(container->iformat->name, "mp4") ? avformat_index_get_entries_count(stream) : 0;
    return !wideFlac && listed > 0 && packets < static_cast<unsigned>(listed);
}

// An Ogg file tells no length, but where it ends.
bool AudioStream::LacksEndMark() const {
    if (std::strcmp(container->iformat->name, "ogg") != 0)
        return false;
    FileInput file;
    XString ignored;
    if (!file.Open(path, ignored))
        return false;
    std::vector<unsigned char> end(
        static_cast<std::size_t>(std::clamp<std::int64_t>(file.Size(), 0, std::int64_t{oggEndBytes})));
    return file.Rewind(file.Size() - static_cast<std::int64_t>(end.size())) &&
           file.Read(end.data(), static_cast<unsigned>(end.size())) == static_cast<int>(end.size()) &&
           !HasOggEnd(end.data(), end.size());
}

// Fewer frames than the container told are a truncated file; estimates get a second of doubt, and so do
// streams of which a damaged packet may be passed over. What is in doubt is told.
AudioStream::Step AudioStream::CheckEnd() {
    const bool isSure = exactFrames && stream->codecpar->codec_id != AV_CODEC_ID_AAC;
    const auto rate = static_cast<std::uint64_t>(std::max(0, stream->codecpar->sample_rate));
    if (delivered + (isSure ? 0 : rate) < expectedFrames || LacksPackets())
        return Truncated();
    if (delivered + std::max(rate / 10, usualPaddingFrames) < expectedFrames)
        endDoubt = L"The source may be truncated: it is a little shorter than it tells";
    else if (LacksEndMark())
        endDoubt = L"The source may be truncated: it has no mark of its end";
    return Step::end;
}

AudioStream::Step AudioStream::Truncated() {
    error.Format(L"The source is truncated: it ends after %s of %s frames", UnsignedText(delivered).Text(),
                 UnsignedText(expectedFrames).Text());
    return Step::damage;
}

// A stream that changes rate, channels or sample format on the way is brought back to its first.
bool AudioStream::AdaptFrame() {
    current = frame;
    if (sampleFormat < 0) {
        sampleFormat = frame->format;
        frequency = frame->sample_rate;
        channels = frame->ch_layout.nb_channels;
        layout = LayoutOf(frame->format, codec->bits_per_raw_sample);
        return true;
    }
    if (frame->format == sampleFormat && frame->sample_rate == frequency &&
        frame->ch_layout.nb_channels == channels)
        return true;
    if (!adapted)
        adapted = av_frame_alloc();
    if (!adapted)
        return false;
    av_frame_unref(adapted);
    adapted->format = sampleFormat;
    adapted->sample_rate = frequency;
    av_channel_layout_default(&adapted->ch_layout, channels);
    if (!resampler) {
        resampler = swr_alloc();
        if (!resampler || swr_config_frame(resampler, adapted, frame) < 0 || swr_init(resampler) < 0)
            return false;
    }
    int converted = swr_convert_frame(resampler, adapted, frame);
    if (converted == AVERROR_INPUT_CHANGED) { // it changed once more
        swr_free(&resampler);
        return AdaptFrame();
    }
    current = adapted;
    checksum.Stop();
    return converted >= 0;
}

AudioStream::Step AudioStream::NextFrame() {
    current = nullptr;
    offset = 0;
    do {
        const Step step = ReceiveOrFeed();
        if (step != Step::frame)
            return step;
        if (!AdaptFrame()) {
            current = nullptr;
            Fail(L"The source changes its audio format in a way that can't be followed");
            return Step::damage;
        }
    } while (current->nb_samples <= 0);
    return Step::frame;
}

int AudioStream::DecodeWideFlac(void* samples, unsigned maxFrames) {
    const int done = wideFlac->Decode(static_cast<std::int32_t*>(samples), maxFrames);
    if (done > 0)
        delivered += static_cast<unsigned>(done);
    else if (done < 0)
        Fail(wideFlac->HasWrongChecksum() ? wrongChecksum : L"The source is damaged");
    else if (CheckEnd() == Step::damage)
        return -1;
    return done;
}

int AudioStream::Decode(void* samples, unsigned maxFrames) {
    if (wideFlac)
        return DecodeWideFlac(samples, maxFrames);
    if (!codec)
        return -1;
    unsigned done = 0;
    auto* out = static_cast<unsigned char*>(samples);
    while (done < maxFrames) {
        if (exactFrames && delivered >= exactFrames)
            break; // some containers decode a frame more than they tell
        if (!current || offset >= current->nb_samples) {
            const Step step = flushed && !current && delivered ? Step::end : NextFrame();
            if (step == Step::damage)
                return -1;
            if (step == Step::end)
                break;
        }
        std::uint64_t count =
            std::min<unsigned>(maxFrames - done, static_cast<unsigned>(current->nb_samples - offset));
        if (exactFrames)
            count = std::min(count, exactFrames - delivered);
        ConvertSamples(*current, offset, static_cast<int>(count), layout, out);
        checksum.Add(out, count);
        out += count * static_cast<unsigned>(channels) * 4;
        offset += static_cast<int>(count);
        done += static_cast<unsigned>(count);
        delivered += count;
    }
    if (done == 0 && maxFrames > 0 && !checksum.IsRight()) {
        Fail(wrongChecksum);
        return -1;
    }
    return static_cast<int>(done);
}

XString AudioStream::DamageText() const {
    if (damaged == 0)
        return endDoubt;
    const XString text = UnsignedText(damaged) + L" of " + UnsignedText(packets) +
                         L" pieces of the source are damaged or no audio, and were left out";
    return endDoubt.IsEmpty() ? text : text + L"\n" + endDoubt;
}

bool AudioStream::SeekTo(std::uint64_t target) {
    if (isProtected || (!codec && !wideFlac))
        return false;
    AudioFormatRecord ignored;
    const XString again = path;
    if (target < delivered && !Open(again, ignored))
        return false;
    if (target != delivered)
        checksum.Stop();
    while (delivered < target) {
        if (wideFlac) {
            std::int32_t dropped[64 * 8]; // FLAC has eight channels at most
            const auto few = static_cast<unsigned>(std::min<std::uint64_t>(target - delivered, 64));
            if (DecodeWideFlac(dropped, few) <= 0)
                return false;
            continue;
        }
        if (!current || offset >= current->nb_samples) {
            if (NextFrame() != Step::frame)
                return false;
        }
        const auto skip = static_cast<int>(
            std::min<std::uint64_t>(target - delivered, static_cast<unsigned>(current->nb_samples - offset)));
        offset += skip;
        delivered += static_cast<unsigned>(skip);
    }
    return true;
}
