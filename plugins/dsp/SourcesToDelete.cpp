#include "plugins/dsp/SourcesToDelete.h"

#include "plugins/common/TagText.h"
#include "plugins/dsp/ResultRows.h"

#include <unordered_map>

namespace {

constexpr std::uint64_t toleranceMs = 100;

std::uint64_t LengthMs(const AudioFormatRecord& format) {
    const std::uint64_t frames = format.frameCount, frequency = format.frequency;
    return frames == 0 ? format.lengthMs : frames / frequency * 1000 + frames % frequency * 1000 / frequency;
}

} // namespace

std::vector<ConvertedSource> ReadConvertedSources(const XTagList& results) {
    std::vector<ConvertedSource> sources;
    std::unordered_map<std::string, std::size_t> places;
    std::unordered_map<std::string, std::size_t> owners; // sources of the outputs
    ResultReader reader(results);
    for (ResultRow row; reader.Next(row);) {
        const auto [place, isNew] = places.emplace(ToUtf8(row.source.Upper()), sources.size());
        if (isNew)
            sources.push_back({row.source, {}, !row.source.IsEmpty()});
        ConvertedSource& source = sources[place->second];
        source.outputs.push_back(row.output);
        source.mayGo = source.mayGo && !row.failed && !row.output.IsEmpty();
        const auto owner = owners.emplace(ToUtf8(row.output.Upper()), place->second).first;
        if (owner->second != place->second)
            source.mayGo = sources[owner->second].mayGo = false;
    }
    for (ConvertedSource& source : sources)
        source.mayGo = source.mayGo && !owners.contains(ToUtf8(source.path.Upper()));
    return sources;
}

bool IsSameLength(const AudioFormatRecord& source, const AudioFormatRecord& output) {
    if (source.frequency == 0 || output.frequency == 0)
        return false;
    const bool isExact = (source.flags & output.flags & ztFormatExactLength) != 0;
    if (isExact && (output.flags & ztFormatLossless) != 0 && source.frequency == output.frequency)
        return source.frameCount == output.frameCount && source.frameCount != 0;
    const std::uint64_t one = LengthMs(source), other = LengthMs(output);
    return one != 0 && other != 0 && (one > other ? one - other : other - one) <= toleranceMs;
}
