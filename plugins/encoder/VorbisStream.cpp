#include "plugins/encoder/VorbisStream.h"

#include "plugins/common/OutputFile.h"

namespace {
// Beyond all that Vorbis reaches, kbit/s of eight channels.
constexpr int mostRate = 3000;

bool TakesRate(vorbis_info& info, int channels, std::uint32_t frequency, int rate) {
    if (rate < 1)
        return false;
    vorbis_info_clear(&info);
    vorbis_info_init(&info);
    return vorbis_encode_setup_managed(&info, channels, static_cast<long>(frequency), -1, rate * 1000L, -1) ==
           0;
}

// As libvorbis wants a field: text that it only reads.
char* Borrowed(const std::string& text) noexcept {
    return const_cast<char*>(text.c_str());
}
} // namespace

VorbisStream::~VorbisStream() {
    if (isStarted) {
        ogg_stream_clear(&pages);
        vorbis_block_clear(&block);
        vorbis_dsp_clear(&state);
    }
    vorbis_info_clear(&info);
}

bool VorbisStream::Choose(const VorbisChoice& choice, int channels, std::uint32_t frequency, int& abr) {
    if (!choice.abr)
        return vorbis_encode_init_vbr(&info, channels, static_cast<long>(frequency),
                                      static_cast<float>(choice.quality) / 10) == 0;
    const int wanted = UsualBitRate(choice, channels);
    for (int away = 0; away <= mostRate; ++away)
        for (const int rate : {wanted - away, wanted + away})
            if (TakesRate(info, channels, frequency, rate)) {
                abr = rate;
                return vorbis_encode_setup_init(&info) == 0;
            }
    return false;
}

bool VorbisStream::Start(OutputFile& file, const std::vector<std::string>& comments, int serial) {
    if (vorbis_analysis_init(&state, &info) != 0 || vorbis_block_init(&state, &block) != 0 ||
        ogg_stream_init(&pages, serial) != 0)
        return false;
    isStarted = true;
    return WriteHeaders(file, comments);
}

// Audio starts on a page of its own.
bool VorbisStream::WriteHeaders(OutputFile& file, const std::vector<std::string>& comments) {
    vorbis_comment comment;
    vorbis_comment_init(&comment);
    for (const std::string& field : comments)
        vorbis_comment_add(&comment, Borrowed(field));
    ogg_packet packets[3];
    bool good = vorbis_analysis_headerout(&state, &comment, &packets[0], &packets[1], &packets[2]) == 0;
    vorbis_comment_clear(&comment);
    for (ogg_packet& packet : packets)
        good = good && ogg_stream_packetin(&pages, &packet) == 0;
    return good && WritePages(file, true);
}

bool VorbisStream::WritePages(OutputFile& file, bool all) {
    ogg_page page;
    while ((all ? ogg_stream_flush(&pages, &page) : ogg_stream_pageout(&pages, &page)) != 0)
        if (!file.Write(page.header, static_cast<std::uint64_t>(page.header_len)) ||
            !file.Write(page.body, static_cast<std::uint64_t>(page.body_len)))
            return false;
    return true;
}

bool VorbisStream::Write(OutputFile& file, const float* samples, int frames) {
    float** planes = frames > 0 ? vorbis_analysis_buffer(&state, frames) : nullptr;
    for (int frame = 0; frame < frames; ++frame)
        for (int channel = 0; channel < info.channels; ++channel)
            planes[channel][frame] = *samples++;
    vorbis_analysis_wrote(&state, frames);
    while (vorbis_analysis_blockout(&state, &block) == 1) {
        vorbis_analysis(&block, nullptr);
        vorbis_bitrate_addblock(&block);
        ogg_packet packet;
        while (vorbis_bitrate_flushpacket(&state, &packet) != 0)
            if (ogg_stream_packetin(&pages, &packet) != 0 || !WritePages(file, false))
                return false;
    }
    return true;
}
