// Tags by TagLib, which edits a PieceFile: nothing is written before it has succeeded.
#include "plugins/dsp/AlbumTags.h"

#include "foundation/XPath.h"
#include "plugins/dsp/EditedFile.h"
#include "plugins/dsp/ReplayGainTags.h"

#include <algorithm>
#include <taglib/aifffile.h>
#include <taglib/apetag.h>
#include <taglib/flacfile.h>
#include <taglib/id3v2header.h>
#include <taglib/id3v2tag.h>
#include <taglib/mp4file.h>
#include <taglib/mpegfile.h>
#include <taglib/opusfile.h>
#include <taglib/textidentificationframe.h>
#include <taglib/vorbisfile.h>
#include <taglib/wavfile.h>
#include <taglib/wavpackfile.h>
#include <taglib/xiphcomment.h>

namespace {

// TagLib's offsets are long, which has 32 bits on Windows.
constexpr std::uint64_t mostBytes = 0x7FFFFFFF - (1 << 24);

class PieceStream final : public TagLib::IOStream {
public:
    PieceStream(PieceFile& file, const XString& path) : file(file), path(path) {}

    TagLib::FileName name() const override { return path.Text(); }
    TagLib::ByteVector readBlock(unsigned long length) override {
        const std::uint64_t left = file.Size() - std::min(file.Size(), at);
        TagLib::ByteVector bytes(static_cast<unsigned>(std::min<std::uint64_t>(length, left)), '\0');
        const std::size_t count = file.Read(at, reinterpret_cast<unsigned char*>(bytes.data()), bytes.size());
        bytes.resize(static_cast<unsigned>(count));
        at += count;
        return bytes;
    }
    void writeBlock(const TagLib::ByteVector& data) override {
        Replace(at, data.size(), data);
        at += data.size();
    }
    void insert(const TagLib::ByteVector& data, unsigned long start, unsigned long replaced) override {
        Replace(start, replaced, data);
        at = start + data.size();
    }
    void removeBlock(unsigned long start, unsigned long length) override {
        Replace(start, length, TagLib::ByteVector());
    }
    bool readOnly() const override { return false; }
    bool isOpen() const override { return true; }
    void seek(long offset, Position from) override {
        const std::int64_t base =
            from == Beginning ? 0 : static_cast<std::int64_t>(from == Current ? at : file.Size());
        at = static_cast<std::uint64_t>(std::max<std::int64_t>(base + offset, 0));
    }
    long tell() const override { return static_cast<long>(at); }
    long length() override { return static_cast<long>(file.Size()); }
    void truncate(long length) override {
        const auto size = static_cast<std::uint64_t>(length);
        if (size < file.Size())
            Replace(size, file.Size() - size, TagLib::ByteVector());
    }

private:
    void Replace(std::uint64_t offset, std::uint64_t removed, const TagLib::ByteVector& data) {
        file.Replace(offset, removed, reinterpret_cast<const unsigned char*>(data.data()), data.size());
    }

    PieceFile& file;
    const XString& path;
    std::uint64_t at = 0;
};

struct AlbumGain {
    TagLib::String gain, peak, opusGain;
};

TagLib::String ToTagLib(const wchar_t* text) {
    return TagLib::String(text);
}

void PutFrame(TagLib::ID3v2::Tag& tag, const wchar_t* name, const TagLib::String& value) {
    using Frame = TagLib::ID3v2::UserTextIdentificationFrame;
    const TagLib::String description = ToTagLib(name);
    const TagLib::ID3v2::FrameList frames = tag.frameList("TXXX"); // a copy: removing changes the tag's
    for (TagLib::ID3v2::Frame* any : frames)
        if (const auto* frame = dynamic_cast<Frame*>(any);
            frame && frame->description().upper() == description.upper())
            tag.removeFrame(any);
    tag.addFrame(new Frame(description, TagLib::StringList(value), TagLib::String::Latin1));
}

TagLib::ID3v2::Version PutFrames(TagLib::ID3v2::Tag& tag, const AlbumGain& values) {
    PutFrame(tag, albumGainKey, values.gain);
    PutFrame(tag, albumPeakKey, values.peak);
    return tag.header()->majorVersion() == 3 ? TagLib::ID3v2::v3 : TagLib::ID3v2::v4;
}

bool SaveComments(TagLib::File& file, TagLib::Ogg::XiphComment* comments, const AlbumGain& values) {
    if (!file.isValid() || !comments)
        return false;
    comments->addField(ToTagLib(albumGainKey).upper(), values.gain, true);
    comments->addField(ToTagLib(albumPeakKey).upper(), values.peak, true);
    return file.save();
}

bool EditFlac(TagLib::IOStream& stream, const AlbumGain& values) {
    TagLib::FLAC::File file(&stream, TagLib::ID3v2::FrameFactory::instance(), false);
    return file.isValid() && SaveComments(file, file.xiphComment(true), values);
}

bool EditVorbis(TagLib::IOStream& stream, const AlbumGain& values) {
    TagLib::Ogg::Vorbis::File file(&stream, false);
    return SaveComments(file, file.isValid() ? file.tag() : nullptr, values);
}

bool EditOpus(TagLib::IOStream& stream, const AlbumGain& values) {
    TagLib::Ogg::Opus::File file(&stream, false);
    if (!file.isValid() || !file.tag())
        return false;
    file.tag()->addField(ToTagLib(opusAlbumGainKey).upper(), values.opusGain, true);
    return file.save();
}

bool EditMpeg(TagLib::IOStream& stream, const AlbumGain& values) {
    using File = TagLib::MPEG::File;
    File file(&stream, TagLib::ID3v2::FrameFactory::instance(), false);
    if (!file.isValid() || !file.ID3v2Tag(true))
        return false;
    const TagLib::ID3v2::Version version = PutFrames(*file.ID3v2Tag(), values);
    return file.save(File::ID3v2, File::StripNone, version, File::DoNotDuplicate);
}

bool EditMp4(TagLib::IOStream& stream, const AlbumGain& values) {
    TagLib::MP4::File file(&stream, false);
    if (!file.isValid() || !file.tag())
        return false;
    const TagLib::String mean("----:com.apple.iTunes:");
    file.tag()->setItem(mean + ToTagLib(albumGainKey), TagLib::StringList(values.gain));
    file.tag()->setItem(mean + ToTagLib(albumPeakKey), TagLib::StringList(values.peak));
    return file.save();
}

bool EditWavPack(TagLib::IOStream& stream, const AlbumGain& values) {
    TagLib::WavPack::File file(&stream, false);
    if (!file.isValid() || !file.APETag(true))
        return false;
    file.APETag()->addValue(ToTagLib(albumGainKey), values.gain, true);
    file.APETag()->addValue(ToTagLib(albumPeakKey), values.peak, true);
    return file.save();
}

bool EditAiff(TagLib::IOStream& stream, const AlbumGain& values) {
    TagLib::RIFF::AIFF::File file(&stream, false);
    if (!file.isValid() || !file.tag())
        return false;
    return file.save(PutFrames(*file.tag(), values));
}

bool EditWave(TagLib::IOStream& stream, const AlbumGain& values) {
    using File = TagLib::RIFF::WAV::File;
    File file(&stream, false);
    if (!file.isValid() || !file.ID3v2Tag())
        return false;
    const TagLib::ID3v2::Version version = PutFrames(*file.ID3v2Tag(), values);
    return file.save(File::ID3v2, File::StripNone, version);
}

struct Editor {
    const wchar_t* extension;
    bool (*edit)(TagLib::IOStream& stream, const AlbumGain& values);
};
constexpr Editor editors[] = {{L".flac", EditFlac}, {L".mp3", EditMpeg},   {L".m4a", EditMp4},
                              {L".mp4", EditMp4},   {L".ogg", EditVorbis}, {L".oga", EditVorbis},
                              {L".opus", EditOpus}, {L".wv", EditWavPack}, {L".aif", EditAiff},
                              {L".aiff", EditAiff}, {L".aifc", EditAiff},  {L".wav", EditWave}};

const Editor* EditorOf(const XString& path) {
    const XString extension = ExtensionOf(path);
    for (const Editor& editor : editors)
        if (extension.EqualsNoCase(editor.extension))
            return &editor;
    return nullptr;
}

bool Edit(const Editor& editor, PieceFile& content, const XString& path, const AlbumGain& values) {
    try {
        PieceStream stream(content, path);
        return editor.edit(stream, values) && !content.HasFailed();
    } catch (...) { // a damaged tag, or memory ran out
        return false;
    }
}

} // namespace

bool CanHoldAlbumGain(const XString& path) {
    return EditorOf(path) != nullptr;
}

bool WriteAlbumGain(const XString& path, double decibels, double peak, XString& error) {
    const Editor* editor = EditorOf(path);
    const AlbumGain values = {ToTagLib(GainText(decibels)), ToTagLib(PeakText(peak)),
                              ToTagLib(OpusGainText(decibels))};
    EditedFile file;
    bool isGood = editor && file.Open(path);
    if (isGood && (file.Content().Size() > mostBytes || !Edit(*editor, file.Content(), path, values))) {
        error = L"The tags of '" + path + L"' can't be changed";
        return false;
    }
    isGood = isGood && file.Commit();
    if (!isGood)
        error = file.Error();
    return isGood;
}
