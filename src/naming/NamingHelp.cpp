// The rows of the list, and the made-up file of the example.
#include "naming/NamingHelp.h"

#include "foundation/XPath.h"
#include "foundation/XTagList.h"
#include "naming/NamingEvaluator.h"
#include "naming/NamingSystem.h"
#include "naming/OutputPath.h"

#include <iterator>

namespace {

constexpr clNamingRow rows[] = {
    {L"[artist]", L"Track artist"},
    {L"[title]", L"Track title"},
    {L"[album]", L"Album title"},
    {L"[album artist]", L"Album Artist"},
    {L"[genre]", L"Genre"},
    {L"[year]", L"Year of release"},
    {L"[track]", L"Track number (two digits)"},
    {L"[track_total]", L"Total tracks on CD"},
    {L"[disc]", L"Compilation disc number"},
    {L"[disc_total]", L"Total discs in compilation"},
    {L"[tag]<element>[]", L"Embed user defined tag element"},
    {L"[tags]<element>,delimiter[]", L"Embed tag element, including multiples, separated by delimiter"},
    {L"\\", L"Folder separator"},
    {L"[unique]", L"Unique number (not padded)"},
    {L"[length]", L"Audio length (in miliseconds)"},
    {L"[length_mmss]", L"Audio length (mm.ss)"},
    {L"[length_hhmmss]", L"Audio length (hh.mm.ss)"},
    {L"[frequency]", L"Sample rate (in Hz)"},
    {L"[channels]", L"Number of channels"},
    {L"[channels_subone]", L"Number of channels, less one"},
    {L"[bits_per_sample]", L"Bits per sample"},
    {L"[bytes_per_sample]", L"Bytes per sample"},
    {L"[encoder]", L"Encoder of the source file"},
    {L"[encoder+]", L"Encoder of the source file, with its settings"},
    {L"[extension]", L"File extension of the new file"},
    {L"[cddb_id]", L"CDDB disc ID"},
    {L"[date]", L"Date now (UTC)"},
    {L"[time]", L"Time now (UTC)"},
    {L"[day_of_week]", L"Day of the week now (0 = Sunday)"},
    {L"[now_year]", L"Year now"},
    {L"[origdrive]", L"Source drive use [origdrive] for 'Output To' value"},
    {L"[origpath]", L"Original Folder Path  ie Folder1\\Folder2"},
    {L"[origfilename]", L"Original file name, without extension"},
    {L"[protected]", L"Yes / No if audio is protected"},
    {L"[id_tag]", L"ID Tag type, ie ID3v2.2 & ID3v1.1"},
    {L"[audio_quality]", L"Audio quality, ie ID Tag type, ie Perfect (Lossless), or Medium (Lossy)"},
    {L"[gapless]", L"Yes / No if audio is gapless"},
    {nullptr, L"Advanced (programmable actions on elements)"},
    {L"[IFCOMP]string[]", L"Includes string if Compiltion CD"},
    {L"[IF!COMP]string[]", L"Includes string if not a Compiltion CD"},
    {L"[IFMULTI]string[]", L"Includes string if one of several discs"},
    {L"[IF!MULTI]string[]", L"Includes string if not one of several discs"},
    {L"[UPPER]string[]", L"String in upper case"},
    {L"[LOWER]string[]", L"String in lower case"},
    {L"[RIGHT]count,string[]", L"Last count characters of string"},
    {L"[GRAB]from,to,string[]", L"Part of string, between two positions (1=first)"},
    {L"[TRIM]string[]", L"Removes spaces at both ends of string"},
    {L"[DEL]from,to,string[]", L"Deletes part of string, between two positions (1=first)"},
    {L"[SETLEN]count,pre,post,string[]", L"Increases or reduces string length"},
    {L"[IFEQUALS]tag,equals,string[]", L"Includes string if the value of tag is the same as equals"},
    {L"[IF!EQUALS]tag,equals,string[]", L"Includes string if the value of tag is not the same as equals"},
    {L"[IF]tag,condition,match,stringmatch,stringnomatch[]", L"See help"},
    {L"[IFVALUE]tag,strifvalue,strnovalue[]", L"Uses strifvalue if tag has a value, else uses strnovalue"},
    {L"[TRIMFIRSTFOLDER]string[]", L"Removes the first folder of string"},
    {L"[TRIMLASTFOLDER]string[]", L"Removes the last folder of string"},
    {L"[FRONTFOLDER]pos[]", L"Insert Source Folder (1=first, 2=second)"},
    {L"[BACKFOLDER]pos[]", L"Insert Source Folder (1=last, 2=second last)"},
    {L"[MAXLENGTH]maxlength,string[]", L"If string is over maxlength characters long, it is shortened"},
};

// Null: from the clock. The lengths differ: they only show the form of each element. Some of these
// elements have no row, but work.
struct SampleValue {
    const wchar_t* key;
    const wchar_t* value;
    XString clNamingClock::*text = nullptr;
    int clNamingClock::*number = nullptr;
};
constexpr SampleValue samples[] = {
    {L"artist", L"Lena Orchard"},
    {L"album", L"Immaculate"},
    {L"album artist", L"Lena Orchard"},
    {L"title", L"Holiday"},
    {L"genre", L"Pop"},
    {L"year", L"2003"},
    {L"track", L"5/15"},
    {L"disc", L"1/3"},
    {L"unique", L"5754"},
    {L"length", L"125955"},
    {L"length_mmss", L"10.51"},
    {L"length_hhmmss", L"01.25.55"},
    {L"encoder", L"mp3 (Lame)"},
    {L"encoder+", L"mp3 (Lame) -q5"},
    {L"extension", L"mp3"},
    {L"cddb_id", L"3DF2700A"},
    {L"origpath", L"Folder1\\Folder2\\Folder3"},
    {L"origfilename", L"filename"},
    {L"origdrive", L"f:\\"},
    {L"protected", L"No"},
    {L"id_tag", L"ID3v2.2"},
    {L"audio_quality", L"Medium (Lossy)"},
    {L"gapless", L"Yes"},
    {L"date", nullptr, &clNamingClock::date},
    {L"time", nullptr, &clNamingClock::time},
    {L"day_of_week", nullptr, nullptr, &clNamingClock::dayOfWeek},
    {L"now_year", nullptr, nullptr, &clNamingClock::year},
    {L"frequency", L"44100"},
    {L"channels", L"2"},
    {L"channels_subone", L"1"},
    {L"bits_per_sample", L"16"},
    {L"bytes_per_sample", L"2"},
    {L"bitrate", L"128000"},
    {L"k_bitrate", L"128"},
};

} // namespace

std::size_t NamingRowCount() noexcept {
    return std::size(rows);
}

const clNamingRow& NamingRowAt(std::size_t index) noexcept {
    return rows[index];
}

XString NamingExample(const XString& namingTemplate) {
    const clNamingClock clock = ReadNamingClock();
    XTagList elements;
    for (const SampleValue& sample : samples) {
        if (sample.text)
            elements.Add(sample.key, clock.*sample.text);
        else if (sample.number)
            elements.Add(sample.key, XString(clock.*sample.number));
        else
            elements.Add(sample.key, sample.value);
    }
    XString example = EvaluateNaming(namingTemplate, elements, nullptr);
    CleanPath(example, false, false);
    return StripBackslash(example);
}

bool TellsFilesApart(const XString& namingTemplate) {
    for (const wchar_t* element : {L"[title]", L"[track]", L"[unique]", L"[origfilename]"})
        if (namingTemplate.Find(element) > 0)
            return true;
    return false;
}
