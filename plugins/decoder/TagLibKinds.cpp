#include "plugins/decoder/TagLibKinds.h"

#include <taglib/aifffile.h>
#include <taglib/apefile.h>
#include <taglib/apetag.h>
#include <taglib/flacfile.h>
#include <taglib/id3v1tag.h>
#include <taglib/id3v2tag.h>
#include <taglib/infotag.h>
#include <taglib/mpcfile.h>
#include <taglib/mpegfile.h>
#include <taglib/trueaudiofile.h>
#include <taglib/wavfile.h>
#include <taglib/wavpackfile.h>

namespace {

// Asks the file as the one of these kinds that it is; null if it is none.
template <class Tag, class... Kinds, class Ask>
const Tag* AskAsOneOf(TagLib::File& file, Ask ask) {
    const Tag* tag = nullptr;
    const auto askIf = [&](auto* known) {
        if (known)
            tag = ask(*known);
    };
    (askIf(dynamic_cast<Kinds*>(&file)), ...);
    return tag;
}

} // namespace

const TagLib::ID3v2::Tag* Id3v2TagOf(TagLib::File& file) {
    if (auto* aiff = dynamic_cast<TagLib::RIFF::AIFF::File*>(&file))
        return aiff->hasID3v2Tag() ? aiff->tag() : nullptr;
    return AskAsOneOf<TagLib::ID3v2::Tag, TagLib::MPEG::File, TagLib::FLAC::File, TagLib::RIFF::WAV::File,
                      TagLib::TrueAudio::File>(
        file, [](auto& known) { return known.hasID3v2Tag() ? known.ID3v2Tag() : nullptr; });
}

const TagLib::APE::Tag* ApeTagOf(TagLib::File& file) {
    return AskAsOneOf<TagLib::APE::Tag, TagLib::MPEG::File, TagLib::WavPack::File, TagLib::APE::File,
                      TagLib::MPC::File>(
        file, [](auto& known) { return known.hasAPETag() ? known.APETag() : nullptr; });
}

const TagLib::Tag* Id3v1TagOf(TagLib::File& file) {
    return AskAsOneOf<TagLib::Tag, TagLib::MPEG::File, TagLib::FLAC::File, TagLib::TrueAudio::File,
                      TagLib::WavPack::File, TagLib::APE::File, TagLib::MPC::File>(
        file, [](auto& known) { return known.hasID3v1Tag() ? known.ID3v1Tag() : nullptr; });
}

const TagLib::RIFF::Info::Tag* InfoTagOf(TagLib::File& file) {
    return AskAsOneOf<TagLib::RIFF::Info::Tag, TagLib::RIFF::WAV::File>(
        file, [](auto& known) { return known.hasInfoTag() ? known.InfoTag() : nullptr; });
}
