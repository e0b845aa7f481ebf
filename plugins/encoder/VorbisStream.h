// One Ogg stream of Vorbis audio: libvorbis with all that it needs, and the pages that it fills.
#pragma once

#include "plugins/encoder/VorbisOptions.h"

#include <vorbis/vorbisenc.h>

#include <cstdint>
#include <string>
#include <vector>

class OutputFile;

class VorbisStream {
public:
    VorbisStream() noexcept { vorbis_info_init(&info); }
    ~VorbisStream();
    VorbisStream(const VorbisStream&) = delete;
    VorbisStream& operator=(const VorbisStream&) = delete;

    // Takes the settings; false if Vorbis has none for so many channels at such a rate. An average
    // rate that it does not reach becomes the nearest one; `abr` tells which, for the whole file.
    [[nodiscard]] bool Choose(const VorbisChoice& choice, int channels, std::uint32_t frequency, int& abr);
    // Writes the headers. False: see the file, or memory ran out.
    [[nodiscard]] bool Start(OutputFile& file, const std::vector<std::string>& comments, int serial);
    // `samples` interleaved, at most 8192 frames; none: the audio is over, and the stream ends. False:
    // see the file.
    [[nodiscard]] bool Write(OutputFile& file, const float* samples, int frames);

private:
    [[nodiscard]] bool WriteHeaders(OutputFile& file, const std::vector<std::string>& comments);
    [[nodiscard]] bool WritePages(OutputFile& file, bool all);

    vorbis_info info{};
    vorbis_dsp_state state{};
    vorbis_block block{};
    ogg_stream_state pages{};
    bool isStarted = false;
};
