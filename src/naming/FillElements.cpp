// The elements of one file, in the order in which they win.
#include "naming/FillElements.h"

#include "foundation/XDurationText.h"
#include "foundation/XNumberText.h"
#include "foundation/XPath.h"
#include "host/clFileItem.h"
#include "naming/ExtraElements.h"
#include "naming/NamingSystem.h"

namespace {

void AddNumber(XTagList& list, const wchar_t* key, std::int64_t number) {
    list.Add(key, DecimalText(number));
}

void AddUnlessEmpty(XTagList& list, const wchar_t* key, const XString& value) {
    if (!value.IsEmpty())
        list.Add(key, value);
}

XString OrNo(const XString& value) {
    return value.IsEmpty() ? XString(L"No") : value;
}

// File names hold no colons: the parts of a duration stand between points.
XString DurationForNames(std::uint64_t lengthMs, XDurationMode mode) {
    XString text = FormatDuration(static_cast<std::int64_t>(lengthMs), mode);
    const XString separator(LocaleNumbers().timeSeparator);
    if (separator.FindChar(L'.') == 0)
        text.Replace(separator, L".");
    return text;
}

void AddSource(XTagList& list, const XString& sourcePath) {
    const XString folder = FolderOf(sourcePath);
    const int root = RootEnd(folder);
    list.Add(L"origdrive", folder.Left(root - 1));
    list.Add(L"origpath", StripBackslash(folder.From(root)));
    list.Add(L"origfilename", NameWithoutExtension(sourcePath));
}

void AddClock(XTagList& list) {
    const clNamingClock clock = ReadNamingClock();
    list.Add(L"date", clock.date);
    list.Add(L"time", clock.time);
    AddNumber(list, L"day_of_week", clock.dayOfWeek);
    AddNumber(list, L"now_year", clock.year);
}

void AddAudio(XTagList& list, const AudioFormatRecord& format) {
    AddNumber(list, L"frequency", format.frequency);
    AddNumber(list, L"channels", format.channels);
    AddNumber(list, L"channels_subone", std::int64_t{format.channels} - 1);
    AddNumber(list, L"bits_per_sample", format.bitsPerSample);
    AddNumber(list, L"bytes_per_sample", format.bitsPerSample >> 3);
}

} // namespace

void FillElements(const clFileItem& item, const XString& extension, const XString& namingTemplate,
                  XTagList& list) {
    // What the read-ahead thread has not finished is left alone.
    const std::uint32_t stage = item.Stage();
    const AudioFormatRecord format = stage >= stageFormat ? item.format : AudioFormatRecord{};
    XTagList properties;
    if (stage >= stageTags) {
        list.Deserialize(item.tagImage.data, static_cast<std::int64_t>(item.tagImage.size));
        properties.Deserialize(item.propertyImage.data, static_cast<std::int64_t>(item.propertyImage.size));
    }

    if (namingTemplate.Find(L"[unique]") > 0)
        AddNumber(list, L"unique", TakeUniqueNumber());
    list.Add(L"length", UnsignedText(format.lengthMs));
    list.Add(L"length_mmss", DurationForNames(format.lengthMs, durationShort));
    list.Add(L"length_hhmmss", DurationForNames(format.lengthMs, durationLong));
    AddUnlessEmpty(list, L"encoder", properties.Get(L"Encoder"));
    AddUnlessEmpty(list, L"encoder+", properties.Get(L"Encoder Settings"));
    list.Add(L"extension", extension.From(2));
    AddSource(list, item.sourcePath);
    list.Add(L"protected", OrNo(properties.Get(L"protected")));
    AddUnlessEmpty(list, L"id_tag", properties.Get(L"ID Tag"));
    AddUnlessEmpty(list, L"audio_quality", properties.Get(L"Audio Quality"));
    list.Add(L"gapless", OrNo(properties.Get(L"gapless")));
    AddClock(list);
    AddAudio(list, format);
    // An empty title of the file stays in front of this one, and is what the element shows.
    if (list.Get(L"title").IsEmpty())
        list.Add(L"Title", NameWithoutExtension(item.sourcePath));
    list.Merge(zTMExtraElements);
}
