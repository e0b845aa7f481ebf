// Frames of ID3v2.4. Plain ASCII is written as Latin-1, everything else as UTF-16 with a byte-order
// mark, which more readers know than UTF-8.
#include "plugins/common/Id3Tag.h"

#include "plugins/common/TagText.h"

#include <cstring>

namespace {

constexpr std::size_t mostBytes = (std::size_t(1) << 28) - 1;
constexpr std::size_t headerBytes = 10;
constexpr unsigned char latin1 = 0, utf16 = 1;

bool IsAscii(const XString& text) noexcept {
    for (int i = 1; i <= text.Count(); ++i)
        if (text.CharAt(i) >= 0x80)
            return false;
    return true;
}

// Sizes have 7 bits per byte so that no byte looks like the start of an MPEG frame.
void PutSize(unsigned char* at, std::size_t size) noexcept {
    for (int i = 3; i >= 0; --i, size >>= 7)
        at[i] = static_cast<unsigned char>(size & 0x7F);
}

class FrameWriter {
public:
    explicit FrameWriter(ByteVector& out) : out(out) {}

    void Begin(const char* id) {
        start = out.size();
        Raw(id, 4);
        out.insert(out.end(), headerBytes - 4, 0);
    }
    // False if the frame did not fit and went again.
    bool End() {
        const std::size_t size = out.size() - start - headerBytes;
        const bool fits = out.size() <= mostBytes;
        if (fits)
            PutSize(out.data() + start + 4, size);
        else
            out.resize(start);
        return fits;
    }
    void Byte(int value) { out.push_back(static_cast<unsigned char>(value)); }
    void Raw(const void* bytes, std::size_t count) {
        const unsigned char* from = static_cast<const unsigned char*>(bytes);
        out.insert(out.end(), from, from + count);
    }
    void Text(const XString& text, unsigned char encoding, bool terminated) {
        const int units = text.Count() + (terminated ? 1 : 0);
        const wchar_t* from = text.Text();
        if (encoding == utf16)
            Raw("\xFF\xFE", 2);
        for (int i = 0; i < units; ++i) {
            Byte(from[i] & 0xFF);
            if (encoding == utf16)
                Byte(from[i] >> 8);
        }
    }

private:
    ByteVector& out;
    std::size_t start = 0;
};

unsigned char EncodingOf(const XStringArray& values, const XString& other) noexcept {
    if (!IsAscii(other))
        return utf16;
    for (const XString& value : values)
        if (!IsAscii(value))
            return utf16;
    return latin1;
}

// Several values stand behind one another with terminators between them.
bool WriteTextFrame(FrameWriter& frame, const char* id, const XString& description,
                    const XStringArray& values) {
    const unsigned char encoding = EncodingOf(values, description);
    frame.Begin(id);
    frame.Byte(encoding);
    if (std::strcmp(id, "TXXX") == 0)
        frame.Text(description, encoding, true);
    for (std::int64_t i = 0; i < values.Count(); ++i)
        frame.Text(values[i], encoding, i + 1 < values.Count());
    return frame.End();
}

// Comments and lyrics have a language and a description, and can't hold several values.
bool WriteLanguageFrame(FrameWriter& frame, const char* id, const XStringArray& values) {
    XString all;
    for (const XString& value : values) {
        if (!all.IsEmpty())
            all.Extend(L"\n");
        all.Extend(value);
    }
    const unsigned char encoding = IsAscii(all) ? latin1 : utf16;
    frame.Begin(id);
    frame.Byte(encoding);
    frame.Raw("eng", 3);
    frame.Text(XString(), encoding, true);
    frame.Text(all, encoding, false);
    return frame.End();
}

bool WritePictureFrame(FrameWriter& frame, const TagPicture& picture) {
    const unsigned char encoding = IsAscii(picture.description) ? latin1 : utf16;
    frame.Begin("APIC");
    frame.Byte(encoding);
    frame.Raw(picture.mime.c_str(), picture.mime.size() + 1);
    frame.Byte(picture.type);
    frame.Text(picture.description, encoding, true);
    frame.Raw(picture.bytes, picture.size);
    return frame.End();
}

// False if the tag can't hold it; true, too, where there is nothing to write.
bool WriteItem(FrameWriter& frame, const XTagItem& item) {
    if (IsPicture(item)) {
        TagPicture picture;
        if (!ReadPicture(item, picture))
            return true;
        return picture.size < mostBytes && WritePictureFrame(frame, picture);
    }
    XStringArray values;
    SplitValues(item, values);
    if (values.IsEmpty() || item.key.IsEmpty())
        return true;
    const TagName* name = FindTagName(item.key);
    const char* id = name && name->id3 ? name->id3 : "TXXX";
    if (std::strcmp(id, "COMM") == 0 || std::strcmp(id, "USLT") == 0)
        return WriteLanguageFrame(frame, id, values);
    return WriteTextFrame(frame, id, item.key, values);
}

} // namespace

ByteVector BuildId3Tag(const XTagList& tags, std::size_t padding, LeftOutTags& leftOut) {
    ByteVector out(headerBytes, 0);
    FrameWriter frame(out);
    for (std::int64_t i = 0; i < tags.Count(); ++i)
        if (!WriteItem(frame, tags[i]))
            leftOut.Add(tags[i]);
    if (out.size() == headerBytes)
        return {};
    if (out.size() + padding <= mostBytes)
        out.resize(out.size() + padding, 0);
    std::memcpy(out.data(), "ID3\x04", 4);
    PutSize(out.data() + 6, out.size() - headerBytes);
    return out;
}
