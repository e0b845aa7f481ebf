#include "Judge.h"

#include "contract/Keys.h"
#include "host/DecoderCatalogue.h"
#include "worker/AudioText.h"

namespace {
constexpr std::uint32_t blockFrames = 4096;
}

Judge::Judge(const Checked& checked, const XString& extension) {
    PluginCreateBlock block{};
    if (!checked.judge.IsEmpty()) {
        TryDecoder(checked.judge, extension, decoder, &block);
        return;
    }
    const XString folder = checked.programFolder + L"decoder\\";
    WIN32_FIND_DATAW found{};
    const XFindHandle search(FindFirstFileW(folder + L"*.dll", &found));
    if (search.IsValid())
        do
            if (TryDecoder(folder + found.cFileName, extension, decoder, &block))
                return;
        while (FindNextFileW(search.Get(), &found));
}

bool Judge::Read(const XString& path, Sound& sound, XTagList& tags, XString& error) {
    DecoderOpenBlock block{};
    block.path = path;
    block.wanted = ztOpenAll;
    bool isGood = decoder.AskOpen(block) != 0 && IsUsableFormat(block.format);
    sound.samples.clear();
    if (isGood) {
        sound.format = block.format;
        if (block.tagData)
            tags.Deserialize(block.tagData, block.tagDataSize);
        std::vector<std::int32_t> frames(std::size_t{blockFrames} * sound.format.channels);
        std::int32_t count = 0;
        while ((count = decoder.DecodeBlock(decoder.instance, frames.data(), blockFrames)) > 0)
            sound.samples.insert(sound.samples.end(), frames.begin(),
                                 frames.begin() + std::ptrdiff_t{count} * sound.format.channels);
        isGood = count == 0;
    }
    PluginParams params{};
    if (!isGood && decoder.AskGet(ZtKey::lastError, params) != 0)
        error = params.text1;
    decoder.Close(decoder.instance);
    return isGood;
}
