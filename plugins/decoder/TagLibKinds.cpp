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

const TagLib::ID3v2::Tag* Id3v2TagOf(TagLib::File& file) {
    if (auto* mpeg = dynamic_cast<TagLib::MPEG::File*>(&file))
        return mpeg->hasID3v2Tag() ? mpeg->ID3v2Tag() : nullptr;
    if (auto* flac = dynamic_cast<TagLib::FLAC::File*>(&file))
        return flac->hasID3v2Tag() ? flac->ID3v2Tag() : nullptr;
    if (auto* wave = dynamic_cast<TagLib::RIFF::WAV::File*>(&file))
        return wave->hasID3v2Tag() ? wave->ID3v2Tag() : nullptr;
    if (auto* aiff = dynamic_cast<TagLib::RIFF::AIFF::File*>(&file))
        return aiff->hasID3v2Tag() ? aiff->tag() : nullptr;
    if (auto* trueAudio = dynamic_cast<TagLib::TrueAudio::File*>(&file))
        return trueAudio->hasID3v2Tag() ? trueAudio->ID3v2Tag() : nullptr;
    return nullptr;
}

const TagLib::APE::Tag* ApeTagOf(TagLib::File& file) {
    if (auto* mpeg = dynamic_cast<TagLib::MPEG::File*>(&file))
        return mpeg->hasAPETag() ? mpeg->APETag() : nullptr;
    if (auto* wavPack = dynamic_cast<TagLib::WavPack::File*>(&file))
        return wavPack->hasAPETag() ? wavPack->APETag() : nullptr;
    if (auto* monkey = dynamic_cast<TagLib::APE::File*>(&file))
        return monkey->hasAPETag() ? monkey->APETag() : nullptr;
    if (auto* musepack = dynamic_cast<TagLib::MPC::File*>(&file))
        return musepack->hasAPETag() ? musepack->APETag() : nullptr;
    return nullptr;
}

const TagLib::Tag* Id3v1TagOf(TagLib::File& file) {
    if (auto* mpeg = dynamic_cast<TagLib::MPEG::File*>(&file))
        return mpeg->hasID3v1Tag() ? mpeg->ID3v1Tag() : nullptr;
    if (auto* flac = dynamic_cast<TagLib::FLAC::File*>(&file))
        return flac->hasID3v1Tag() ? flac->ID3v1Tag() : nullptr;
    if (auto* trueAudio = dynamic_cast<TagLib::TrueAudio::File*>(&file))
        return trueAudio->hasID3v1Tag() ? trueAudio->ID3v1Tag() : nullptr;
    if (auto* wavPack = dynamic_cast<TagLib::WavPack::File*>(&file))
        return wavPack->hasID3v1Tag() ? wavPack->ID3v1Tag() : nullptr;
    if (auto* monkey = dynamic_cast<TagLib::APE::File*>(&file))
        return monkey->hasID3v1Tag() ? monkey->ID3v1Tag() : nullptr;
    if (auto* musepack = dynamic_cast<TagLib::MPC::File*>(&file))
        return musepack->hasID3v1Tag() ? musepack->ID3v1Tag() : nullptr;
    return nullptr;
}

const TagLib::RIFF::Info::Tag* InfoTagOf(TagLib::File& file) {
    auto* wave = dynamic_cast<TagLib::RIFF::WAV::File*>(&file);
    return wave && wave->hasInfoTag() ? wave->InfoTag() : nullptr;
}
