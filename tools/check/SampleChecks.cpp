// Sample files through a decoder.
#include "Checks.h"
#include "DecoderRun.h"
#include "Rules.h"
#include "contract/Keys.h"
#include "foundation/XPath.h"
#include "worker/AudioText.h"

#include <algorithm>
#include <cstring>
#include <thread>

namespace {

constexpr std::uint32_t usualBlock = 4096, oddBlock = 1000;
constexpr std::uint64_t comparedFrames = 20000; // behind a position
constexpr std::uint64_t lengthSlackMs = 100;

class SampleCheck {
public:
    SampleCheck(Checked& checked, const XString& path)
        : checked(checked), report(checked.report), path(path), name(NameOf(path) + L": ") {}
    void Run();

private:
    bool CheckOpen();
    void CheckDeleteTag(DecoderRun& run);
    bool CheckWhole();
    void CheckPosition(std::uint64_t frame);
    void CheckSmallBlocks();
    void CheckTwoThreads();
    void CheckLetsGo();

    Checked& checked;
    Report& report;
    XString path;
    XString name;
    AudioFormatRecord format{};
    Sound whole;
};

bool SampleCheck::CheckOpen() {
    Instance instance(checked);
    DecoderRun run(checked, instance);
    if (!run.Open(path, ztOpenFormat)) {
        report.Broken(name + L"Open refuses it: " + instance.TextOf(ZtKey::lastError));
        return false;
    }
    format = run.block.format;
    const XString fault = FormatFault(format);
    if (!report.Demand(fault.IsEmpty(), name + L"its format " + fault))
        return false;
    report.Demand(!run.block.tagData && !run.block.propertyData,
                  name + L"Open delivers tags though only the format was wanted (4)");
    const std::uint64_t countedMs = FramesToMs(format.frameCount, format.frequency);
    const std::uint64_t apart =
        countedMs > format.lengthMs ? countedMs - format.lengthMs : format.lengthMs - countedMs;
    report.Demand(format.frameCount == 0 || apart <= lengthSlackMs,
                  name + L"lengthMs is " + UnsignedText(format.lengthMs) + L", and frameCount makes " +
                      UnsignedText(countedMs) + L" ms");
    report.Demand(format.lengthMs != 0 || format.frameCount == 0,
                  name + L"lengthMs is 0: progress counts it");
    if ((format.flags & ztFormatExactLength) != 0 && format.frameCount == 0)
        report.Note(name + L"the length is told exactly, and it is 0");
    if (!run.Open(path, ztOpenAll)) { // without Close: Open closes an earlier file
        report.Broken(name + L"Open with 28 refuses what Open with 4 took");
        return false;
    }
    report.Demand(std::memcmp(&format, &run.block.format, sizeof(format)) == 0,
                  name + L"Open delivers another format with 28 than with 4");
    for (const auto& [data, size, what] :
         {std::tuple(run.block.tagData, run.block.tagDataSize, L"tags"),
          std::tuple(run.block.propertyData, run.block.propertyDataSize, L"properties")}) {
        const XString imageFault = data ? TagImageFault(data, size) : XString();
        report.Demand(imageFault.IsEmpty(), name + L"the list of " + what + L" " + imageFault);
    }
    CheckDeleteTag(run);
    return true;
}

void SampleCheck::CheckDeleteTag(DecoderRun& run) {
    XTagList tags;
    if (!run.block.tagData)
        return;
    tags.Deserialize(run.block.tagData, run.block.tagDataSize);
    report.Demand(
        checked.report.In(L"DeleteATag",
                          [&] { return checked.library.deleteTag(run.instance.value, L"no such tag"); }) == 0,
        name + L"DeleteATag says that it has deleted a tag that was not there");
    if (tags.Count() != 0)
        report.Demand(checked.report.In(
                          L"DeleteATag",
                          [&] { return checked.library.deleteTag(run.instance.value, tags[0].key); }) != 0,
                      name + L"DeleteATag does not delete the tag " + tags[0].key);
}

bool SampleCheck::CheckWhole() {
    Instance instance(checked);
    DecoderRun run(checked, instance);
    if (!run.Open(path, ztOpenAll))
        return false;
    if (!run.Decode(whole, usualBlock)) {
        report.Broken(name + L"decoding fails after frame " + UnsignedText(whole.Frames()) + L": " +
                      instance.TextOf(ZtKey::lastError));
        return false;
    }
    std::vector<std::int32_t> more(std::size_t{usualBlock} * format.channels);
    report.Demand(checked.report.In(
                      L"DecodeBlock at the end",
                      [&] { return checked.library.decode(instance.value, more.data(), usualBlock); }) == 0,
                  name + L"DecodeBlock answers other than 0 when asked once more at the end");
    const XString fault = SampleFault(format, whole.samples.data(), whole.samples.size());
    report.Demand(fault.IsEmpty(), name + L"the samples " + fault);
    const bool isExact = (format.flags & ztFormatExactLength) != 0;
    report.Check(!isExact || whole.Frames() == format.frameCount,
                 name + FormatText(format) + L", " + UnsignedText(whole.Frames()) + L" frames" +
                     (isExact ? L" as announced" : L""),
                 name + L"frameCount is " + UnsignedText(format.frameCount) + L" and told to be exact, and " +
                     UnsignedText(whole.Frames()) + L" frames came: Tonemill takes the file for truncated");
    if (!isExact && format.frameCount != 0 && whole.Frames() != format.frameCount)
        report.Note(name + L"frameCount is " + UnsignedText(format.frameCount) + L", and " +
                    UnsignedText(whole.Frames()) + L" frames came");
    CheckPosition(0);
    CheckPosition(whole.Frames() / 2);
    static_cast<void>(instance.TextOf(ZtKey::information));
    return true;
}

void SampleCheck::CheckPosition(std::uint64_t frame) {
    Instance instance(checked);
    DecoderRun run(checked, instance);
    Sound part;
    if (!run.Open(path, ztOpenFormat) || !run.Decode(part, usualBlock, usualBlock))
        return;
    if (!run.Seek(frame)) {
        report.Note(name + L"SetPosition(" + UnsignedText(frame) + L") fails");
        return;
    }
    run.Decode(part, oddBlock, comparedFrames);
    const std::size_t from = frame * format.channels;
    const std::size_t count = std::min(part.samples.size(), whole.samples.size() - from);
    const bool isLong = part.Frames() >= std::min(comparedFrames, whole.Frames() - frame);
    const bool isSame =
        isLong && std::equal(part.samples.begin(), part.samples.begin() + static_cast<std::ptrdiff_t>(count),
                             whole.samples.begin() + static_cast<std::ptrdiff_t>(from));
    const XString told = name + L"behind SetPosition(" + UnsignedText(frame) + L") come ";
    const bool mayDiffer = frame != 0 && (format.flags & ztFormatLossless) == 0 && isLong;
    if (!isSame && mayDiffer)
        report.Note(told + L"other samples, as lossy sources may have them");
    else
        report.Check(isSame, told + L"the same samples",
                     told + L"other samples than when the file is read in a row");
}

void SampleCheck::CheckSmallBlocks() {
    for (const std::uint32_t size : {std::uint32_t{1}, std::uint32_t{7}}) {
        Instance instance(checked);
        DecoderRun run(checked, instance);
        Sound part;
        if (!run.Open(path, ztOpenFormat) || !run.Decode(part, size, comparedFrames / 4))
            continue;
        report.Demand(part.samples.size() <= whole.samples.size() &&
                          std::equal(part.samples.begin(), part.samples.end(), whole.samples.begin()),
                      name + L"in blocks of " + DecimalText(size) + L" frames it decodes otherwise");
    }
}

// The read-ahead and the worker's checks have instances of their own.
void SampleCheck::CheckTwoThreads() {
    bool areSame[2] = {};
    report.In(
        L"Open and DecodeBlock on two threads at once",
        [&] {
            const auto work = [&](bool& isSame) {
                PluginCreateBlock create{};
                const ZtInstance instance = checked.library.create(&create);
                DecoderOpenBlock block{};
                block.path = path;
                block.wanted = ztOpenAll;
                std::vector<std::int32_t> frames(std::size_t{usualBlock} * format.channels);
                std::size_t at = 0;
                isSame = instance && checked.library.open(instance, &block) != 0;
                for (std::int32_t count = 1; isSame && count > 0;) {
                    count = checked.library.decode(instance, frames.data(), usualBlock);
                    const std::size_t samples =
                        count > 0 ? static_cast<std::size_t>(count) * format.channels : 0;
                    isSame = at + samples <= whole.samples.size() &&
                             std::equal(frames.begin(), frames.begin() + static_cast<std::ptrdiff_t>(samples),
                                        whole.samples.begin() + static_cast<std::ptrdiff_t>(at));
                    at += samples;
                }
                isSame = isSame && at == whole.samples.size();
                if (instance)
                    checked.library.destroy(instance);
            };
            std::thread other(work, std::ref(areSame[1]));
            work(areSame[0]);
            other.join();
        },
        longCallLimitMs);
    report.Check(areSame[0] && areSame[1], name + L"two threads decode it at once",
                 name + L"two instances that decode it on two threads at once disturb each other");
}

// After Close, and after Destroy of an instance that has it open, nobody holds the file.
void SampleCheck::CheckLetsGo() {
    const XString copy = checked.folder + L"copy \x00E4" + ExtensionOf(path);
    for (const bool byClose : {true, false}) {
        if (!CopyFileW(path, copy, FALSE))
            return;
        SetFileAttributesW(copy, FILE_ATTRIBUTE_NORMAL);
        Instance instance(checked);
        DecoderRun run(checked, instance);
        Sound part;
        if (!report.Demand(run.Open(copy, ztOpenAll), name + L"Open refuses a copy whose path is not ASCII"))
            return;
        run.Decode(part, usualBlock, usualBlock);
        if (byClose)
            run.Close();
        else
            instance.Destroy();
        report.Check(DeleteFileW(copy) != FALSE,
                     name + (byClose ? L"Close" : L"Destroy") + L" lets the file go",
                     name + (byClose ? L"Close" : L"Destroy") +
                         L" leaves the file open: it can't be moved or deleted");
    }
}

void SampleCheck::Run() {
    if (!CheckOpen() || !CheckWhole())
        return;
    CheckSmallBlocks();
    CheckTwoThreads();
    CheckLetsGo();
}

} // namespace

void CheckDecoderSamples(Checked& checked) {
    if (checked.samples.IsEmpty())
        checked.report.Note(L"no sample files were given: decoding was not examined");
    for (const XString& path : checked.samples)
        SampleCheck(checked, path).Run();
}
