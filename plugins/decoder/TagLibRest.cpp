#include "plugins/decoder/TagLibRest.h"

#include "plugins/decoder/TagLibKinds.h"

#include <taglib/asffile.h>
#include <taglib/id3v2tag.h>
#include <taglib/mp4file.h>
#include <taglib/textidentificationframe.h>

namespace {

struct Rename {
    const char* from;
    const wchar_t* to;
};

XString ToText(const TagLib::String& text) {
    return XString(text.toCWString());
}

XString NameIn(const Rename* begin, const Rename* end, const TagLib::String& name) {
    for (const Rename* row = begin; row != end; ++row)
        if (name == row->from)
            return row->to;
    return XString();
}

void TakeAll(const XString& key, const TagLib::StringList& values, XTagList& tags, TagFacts& facts) {
    for (const TagLib::String& value : values)
        TakeTag(key, ToText(value), tags, facts);
}

// Atoms of four characters, and items that bring their own name: "----:com.apple.iTunes:NAME".
void AddItems(const TagLib::MP4::Tag& tag, const TagLib::StringList& names, XTagList& tags, TagFacts& facts) {
    static constexpr Rename atoms[] = {
        {"ldes", L"synopsis"},      {"keyw", L"keywords"},           {"\251nrt", L"narrator"},
        {"\251pub", L"publisher"},  {"\251st3", L"subtitle"},        {"\251con", L"conductor"},
        {"\251dir", L"director"},   {"\251prd", L"producer"},        {"\251arg", L"arranger"},
        {"\251lnt", L"linernotes"}, {"\251phg", L"phonogramrights"},
    };
    for (const TagLib::String& name : names) {
        XString key = NameIn(std::begin(atoms), std::end(atoms), name);
        if (name.startsWith("----:")) {
            const XString whole = ToText(name);
            key = whole.From(whole.FindChar(L':', 6) + 1);
        } else if (key.IsEmpty()) {
            key = ToText(name);
            key.Replace(L"\251", L"");
        }
        TakeAll(key, tag.item(name).toStringList(), tags, facts);
    }
}

// Attributes that authors of files and players make up; numbers and bytes among them are technical.
void AddAttributes(const TagLib::ASF::Tag& tag, const TagLib::StringList& names, XTagList& tags,
                   TagFacts& facts) {
    static constexpr const char* technical[] = {"WMFSDK",  "WM/WM",       "WM/Provider",      "WM/Unique",
                                                "WM/Tool", "WM/Encoding", "DeviceConformance"};
    if (names.contains("WM/SharedUserRating"))
        AddLeftOut(facts, L"rating");
    for (const auto& [name, attributes] : tag.attributeListMap()) {
        bool isWanted = name == "Author"; // those beyond the first, which has a field of its own
        if (names.contains(name)) {
            isWanted = true;
            for (const char* start : technical)
                isWanted = isWanted && !name.startsWith(start);
        }
        XString key = name == "Author" ? XString(L"artist") : ToText(name);
        if (key.StartsWith(L"WM/"))
            key = key.From(4);
        for (const TagLib::ASF::Attribute& attribute : attributes)
            if (isWanted && attribute.type() == TagLib::ASF::Attribute::UnicodeType)
                TakeTag(key, ToText(attribute.toString()), tags, facts);
    }
}

// Pairs of role and name; TagLib knows a few roles in capitals, and taggers write others, and small letters.
void AddPeople(const TagLib::ID3v2::Tag& tag, XTagList& tags, TagFacts& facts) {
    static constexpr Rename roles[] = {{"MIX", L"mixer"}, {"DJ-MIX", L"djmixer"}};
    for (const TagLib::ID3v2::Frame* frame : tag.frameList("TIPL")) {
        const auto* people = dynamic_cast<const TagLib::ID3v2::TextIdentificationFrame*>(frame);
        if (!people)
            continue;
        const TagLib::StringList fields = people->fieldList();
        for (unsigned i = 0; i + 1 < fields.size(); i += 2) {
            const XString known = NameIn(std::begin(roles), std::end(roles), fields[i].upper());
            const XString role = known.IsEmpty() ? ToText(fields[i]) : known;
            if (!role.IsEmpty())
                TakeTag(role, ToText(fields[i + 1]), tags, facts);
        }
    }
}

} // namespace

void AddRestOfTags(TagLib::File& file, const TagLib::StringList& names, XTagList& tags, TagFacts& facts) {
    if (const auto* mp4 = dynamic_cast<const TagLib::MP4::File*>(&file); mp4 && mp4->tag())
        AddItems(*mp4->tag(), names, tags, facts);
    if (const auto* asf = dynamic_cast<const TagLib::ASF::File*>(&file); asf && asf->tag())
        AddAttributes(*asf->tag(), names, tags, facts);
    if (const TagLib::ID3v2::Tag* id3 = Id3v2TagOf(file); id3 && names.contains("TIPL"))
        AddPeople(*id3, tags, facts);
}
