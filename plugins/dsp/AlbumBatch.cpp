#include "plugins/dsp/AlbumBatch.h"

#include "plugins/common/TagText.h"
#include "plugins/dsp/AlbumTags.h"
#include "plugins/dsp/ReplayGainTags.h"
#include "plugins/dsp/ResultRows.h"

#include <algorithm>
#include <atomic>
#include <map>
#include <set>
#include <thread>

namespace {

constexpr unsigned mostThreads = 16; // they mostly wait for the disk

struct Album {
    std::vector<XString> outputs;
    double decibels = 0, peak = 0;
};

struct Change {
    const XString* output;
    const Album* album;
    XString error;
};

// What was measured is read a second time for the gain, as many albums' histograms would take much room.
std::vector<Album> CollectAlbums(const XTagList& results, const GainStore& store) {
    std::map<std::string, Album> albums;
    std::set<std::string> known;
    ResultReader reader(results);
    for (ResultRow row; reader.Next(row);) {
        GainMeasure measure;
        if (row.failed || !CanHoldAlbumGain(row.output) || !known.insert(ToUtf8(row.output)).second ||
            !store.Find(row.output, measure) || measure.album.IsEmpty())
            continue;
        Album& album = albums[ToUtf8(measure.album)];
        album.outputs.push_back(row.output);
        album.peak = std::max(album.peak, measure.peak);
    }
    std::vector<Album> list;
    for (auto& [key, album] : albums)
        list.push_back(std::move(album));
    return list;
}

// False for an album of silence.
bool FindGain(Album& album, const GainStore& store) {
    LoudnessHistogram all;
    for (const XString& output : album.outputs)
        if (GainMeasure measure; store.Find(output, measure))
            all.Merge(measure.histogram);
    const std::optional<double> decibels = GainOf(all);
    album.decibels = decibels.value_or(0);
    return decibels.has_value();
}

void Apply(std::vector<Change>& changes) {
    std::atomic<std::size_t> next{0};
    const auto work = [&]() noexcept {
        for (std::size_t i = next++; i < changes.size(); i = next++)
            (void)WriteAlbumGain(*changes[i].output, changes[i].album->decibels, changes[i].album->peak,
                                 changes[i].error);
    };
    const std::size_t wanted = std::min<std::size_t>(
        changes.size(), std::clamp(std::thread::hardware_concurrency() * 2, 1U, mostThreads));
    std::vector<std::thread> others;
    try {
        while (others.size() + 1 < wanted)
            others.emplace_back(work);
    } catch (...) { // those that there are will do
    }
    work();
    for (std::thread& other : others)
        other.join();
}

} // namespace

void WriteAlbumGains(const XTagList& results, const GainStore& store, XString& error) {
    std::vector<Album> albums = CollectAlbums(results, store);
    std::erase_if(albums, [&](Album& album) { return !FindGain(album, store); });
    std::vector<Change> changes;
    for (const Album& album : albums)
        for (const XString& output : album.outputs)
            changes.push_back({&output, &album, XString()});
    Apply(changes);
    for (const Change& change : changes) {
        if (!error.IsEmpty() && !change.error.IsEmpty())
            error += L"\n";
        error += change.error;
    }
}
