#include "host/DecoderCatalogue.h"

#include "contract/Keys.h"
#include "foundation/XFileSystem.h"
#include "foundation/XFindFile.h"
#include "foundation/XPath.h"
#include "host/Settings.h"

namespace {

// A library that never says "no more" would hold up the form for ever; no real one comes near this.
constexpr std::uint32_t mostFormats = 4096;

// Loaded for no extension, so that OpenDecoderFor's short cut can't match it.
constexpr wchar_t forNoExtension[] = L".NOTUSING";

bool AskFormat(clZtDecoder& decoder, std::uint32_t index, PluginParams& params) {
    params = PluginParams{};
    params.index = index;
    return index < mostFormats && decoder.AskGet(ZtKey::decodes, params) != 0 && params.text1;
}

bool FindByScan(const XString& extension, clZtDecoder& decoder, PluginCreateBlock* block, XString& found) {
    XFindFile files(DecoderFolder(), L"*.dll");
    while (files.Next()) {
        if (files.IsFolder() || !TryDecoder(files.fullPath, extension, decoder, block))
            continue;
        found = files.fullPath;
        return true;
    }
    return false;
}

void AppendFormats(clZtDecoder& decoder, XStringArray& extensions, XStringArray& descriptions) {
    PluginParams params;
    for (std::uint32_t index = 0; AskFormat(decoder, index, params) && params.text2; ++index) {
        const XString extension = params.text1;
        if (extension.Find(ignoredExtensionMark) > 0)
            continue;
        extensions.AddString(extension);
        descriptions.AddString(params.text2);
    }
}

int LibraryIconIndex(const wchar_t* path) {
    clZtDecoder decoder;
    PluginCreateBlock block{};
    if (!OpenDecoderFor(path, decoder, &block))
        return -1;
    return ShellIconIndex(StripExtension(decoder.loadedPath) + L".ico", shellFromDisk);
}

} // namespace

XString SourceExtension(const wchar_t* path) {
    const XString text = path;
    const int dot = text.ReverseFindChar(L'.');
    return dot > text.ReverseFindChar(L'\\') ? text.From(dot) : XString();
}

bool TryDecoder(const wchar_t* libraryPath, const wchar_t* extension, clZtDecoder& decoder,
                PluginCreateBlock* block) {
    if (decoder.LoadFor(libraryPath, extension) && decoder.Recreate(block)) {
        PluginParams params;
        for (std::uint32_t index = 0; AskFormat(decoder, index, params); ++index) {
            if (decoder.loadedExtension.EqualsNoCase(params.text1))
                return true;
        }
    }
    decoder.Unload();
    return false;
}

bool OpenDecoderFor(const wchar_t* path, clZtDecoder& decoder, PluginCreateBlock* block) {
    decoder.DestroyInstance();
    const XString extension = SourceExtension(path);
    if (!extension.IsEmpty() && decoder.LoadedExtension().EqualsNoCase(extension))
        return decoder.Recreate(block);
    const XString cacheKey = SettingsPath(Setting::keyDecoderCache);
    XString library = RegReadString(extension, nullptr, cacheKey);
    const bool remembered = !library.IsEmpty() && TryDecoder(library, extension, decoder, block);
    if (!remembered && !FindByScan(extension, decoder, block, library))
        return false;
    RegWriteString(library, extension, nullptr, cacheKey);
    return true;
}

void EnumerateDecoders(bool allAudioEntry, XStringArray* extensions, DecoderFilterList* filters) {
    XStringArray foundExtensions;
    XStringArray descriptions;
    XFindFile files(DecoderFolder(), L"*.dll");
    while (files.Next()) {
        if (files.IsFolder())
            continue;
        clZtDecoder decoder;
        PluginCreateBlock block{};
        if (decoder.LoadFor(files.fullPath, forNoExtension) && decoder.Recreate(&block))
            AppendFormats(decoder, foundExtensions, descriptions);
    }
    if (extensions)
        extensions->CopyFrom(foundExtensions);
    if (filters)
        BuildDecoderFilterList(*filters, foundExtensions, descriptions, allAudioEntry);
}

int GetSourceIconIndex(SourceIconCache& cache, const wchar_t* pathOrExtension) {
    const XString text = pathOrExtension;
    const bool bare = text.CharAt(1) == L'.';
    const XString extension = bare ? text : SourceExtension(text);
    if (!cache.extension.IsEmpty() && cache.extension.EqualsNoCase(extension))
        return cache.iconIndex;
    int index = -1;
    if (extension.Find(ignoredExtensionMark) > 0)
        index = LibraryIconIndex(text);
    else
        index = ShellIconIndex(bare ? L"C:\\file" + text : text, 0);
    cache.extension = extension;
    cache.iconIndex = index;
    return index;
}
