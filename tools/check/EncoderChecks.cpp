// What an encoder says of itself and how it writes.
#include "Checks.h"
#include "EncoderRun.h"
#include "Judge.h"
#include "Rules.h"
#include "contract/Keys.h"
#include "foundation/XFileSystem.h"
#include "worker/AudioText.h"

namespace {

constexpr wchar_t ignored[] = L".IGNORE"; // there is no output
constexpr std::uint32_t soundMs = 300;
constexpr double levelSlack = 0.3; // lossy codecs need some; the next channel is 0.7 or 1.43 times as loud

struct FormatRow {
    bool isFloat;
    int bits, channels;
    std::uint32_t frequency;
};
constexpr FormatRow formats[] = {
    {false, 16, 2, 44100}, {false, 16, 1, 8000},  {false, 24, 2, 96000},
    {false, 24, 6, 48000}, {false, 32, 1, 48000}, {false, 32, 2, 192000},
    {true, 32, 2, 48000},  {true, 32, 6, 44100},  {false, 8, 2, 22050},
};

struct TagRow {
    const wchar_t* key;
    const wchar_t* value;
};
constexpr TagRow tagRows[] = {
    {L"title", L"Title \x00E4\x0416\x4E2D"},
    {L"artist", L"An artist"},
    {L"album", L"An album"},
    {L"track", L"3/12"},
    {L"genre", L"Jazz"},
};

XString ExtensionFrom(Instance& instance) {
    return instance.TextOf(ZtKey::extension);
}

void CheckSettingsKey(Checked& checked) {
    Instance instance(checked);
    struct Row {
        const wchar_t* settings;
        bool isGood;
        const wchar_t* fault;
    };
    constexpr Row rows[] = {
        {L"", true, L"refuses the empty text, which means the defaults"},
        {nullptr, true, L"refuses null, which means the defaults"},
        {L"-no_such_option=\"nonsense\"", false,
         L"accepts an option that does not exist: a slip in stored "
         L"settings would go unnoticed"},
    };
    for (const Row& row : rows) {
        PluginParams params{};
        params.text1 = row.settings;
        const bool accepted = instance.Ask(ZtKey::checkSettings, params) != 0;
        if (!accepted && !params.text2) {
            checked.report.Note(
                L"ENC_Get(\"Check Settings\") is not answered: wrong settings are found only when "
                L"files fail");
            return;
        }
        if (!accepted)
            checked.report.Demand(!TakeText(checked, L"ENC_Get(\"Check Settings\")", params.text2).IsEmpty(),
                                  L"ENC_Get(\"Check Settings\") refused settings with an empty text2: it has "
                                  L"to say what is wrong");
        if (!checked.report.Demand(accepted == row.isGood,
                                   XString(L"ENC_Get(\"Check Settings\") ") + row.fault))
            return;
    }
    checked.report.Ok(L"ENC_Get(\"Check Settings\") takes the defaults and refuses nonsense");
}

void CheckEstimate(Checked& checked) {
    Instance instance(checked);
    const AudioFormatRecord format = SoundFormat(false, 16, 2, 44100);
    std::int64_t results[3] = {};
    constexpr std::int64_t lengths[] = {0, 60000, 120000};
    for (int i = 0; i < 3; ++i) {
        PluginParams params{};
        params.number = lengths[i];
        params.text1 = L"";
        params.data = &format;
        if (instance.Ask(ZtKey::estimatedFileSize, params) == 0) {
            checked.report.Note(
                L"ENC_Get(\"GetEstimatedFileSize\") is not answered: lists show no estimated size");
            return;
        }
        results[i] = params.result;
    }
    checked.report.Check(results[0] >= 0 && results[1] >= results[0] && results[2] >= results[1],
                         XString(L"a minute of 16 bit stereo is estimated at ") + DecimalText(results[1]) +
                             L" bytes",
                         XString(L"ENC_Get(\"GetEstimatedFileSize\") says ") + DecimalText(results[1]) +
                             L" bytes for one minute and " + DecimalText(results[2]) + L" for two");
}

void CheckRequiredEffect(Checked& checked, Instance& instance) {
    PluginParams params{};
    params.text1 = L"";
    if (instance.Ask(ZtKey::requiresDsp, params) == 0)
        return;
    const XString text = TakeText(checked, L"ENC_Get(\"RequiresDSP\")", params.text2);
    const XString fault = RequiredEffectFault(text);
    if (!checked.report.Check(fault.IsEmpty(), XString(L"it requires the effect ") + text,
                              XString(L"ENC_Get(\"RequiresDSP\") returned a text that ") + fault))
        return;
    const XString name = text.Left(text.FindChar(L'=') - 1);
    if (!IsFile(checked.programFolder + L"DSPs\\" + name + L".dll"))
        checked.report.Note(XString(L"the effect '") + name +
                            L"', which it requires, is not in the folder DSPs");
}

void CheckChoices(Checked& checked, Instance& instance) {
    PluginParams params{};
    params.text1 = L"";
    instance.Ask(ZtKey::noMultiCpu, params);
    params = {};
    params.text1 = L"";
    const std::int32_t multiplier = instance.Ask(ZtKey::encodingMultiplier, params);
    checked.report.Demand(multiplier >= 0 && multiplier <= 1000,
                          XString(L"ENC_Get(\"MultiEncEncodingMultiplier\") returned ") +
                              DecimalText(multiplier) + L": the speed is multiplied by it");
    PluginParams same{}, chosen{};
    const bool isSameOff = instance.Ask(ZtKey::disableSameFolder, same) != 0;
    const bool isChosenOff = instance.Ask(ZtKey::disableConvertToFolder, chosen) != 0;
    if (isSameOff && isChosenOff)
        checked.report.Note(L"neither the source's folder nor a chosen one is offered for outputs");
}

// Of what the output holds beside its length.
void CheckLevels(Checked& checked, const XString& what, const Sound& in, const Sound& out) {
    if (in.format.channels != out.format.channels) {
        checked.report.Note(what + L": the output has " + DecimalText(out.format.channels) + L" channels");
        return;
    }
    for (int channel = 0; channel < in.format.channels; ++channel) {
        const double wanted = LevelOf(in, channel), found = LevelOf(out, channel);
        if (found > wanted * (1 - levelSlack) && found < wanted * (1 + levelSlack))
            continue;
        XString ratio;
        ratio.FromReal(wanted > 0 ? found / wanted : 0, 3, false);
        checked.report.Broken(
            what + L": channel " + DecimalText(channel + 1) + L" is " + ratio +
            L" times as loud in the output: look at the scale of samples (16 bit audio runs "
            L"from -32768 to 32767, float to 1.0) and the order of channels");
        return;
    }
}

void CheckTags(Checked& checked, XTagList& found) {
    XString lost;
    for (const TagRow& row : tagRows) {
        const XString value = found.Get(row.key);
        if (value.IsEmpty())
            lost += (lost.IsEmpty() ? XString() : XString(L", ")) + row.key;
        else
            checked.report.Demand(value == row.value, XString(L"the tag ") + row.key + L" is \"" + value +
                                                          L"\" in the output, and was \"" + row.value +
                                                          L"\"");
    }
    if (lost.IsEmpty())
        checked.report.Ok(L"the tags are in the output");
    else
        checked.report.Note(XString(L"these tags are not found in the output: ") + lost);
}

class AudioCheck {
public:
    explicit AudioCheck(Checked& checked) : checked(checked), report(checked.report) {
        Instance instance(checked);
        extension = ExtensionFrom(instance);
        writes = !extension.EqualsNoCase(ignored);
        XTagList list;
        for (const TagRow& row : tagRows)
            list.Add(row.key, row.value);
        static_cast<void>(list.Serialize(tags));
    }
    void Run();

private:
    bool ConvertOne(const FormatRow& row, Judge& judge, bool isFirst);
    void Compare(const XString& what, const Sound& in, const EncoderRun& run, Instance& instance,
                 Judge& judge, bool isFirst);
    void CompareWritten(const XString& what, Instance& instance, const AudioFormatRecord& format,
                        XTagList& found);
    void CheckEmpty();
    void CheckCancelled();
    void CheckDestroyed();
    void CheckBadPaths();
    void CheckBadTags();

    Checked& checked;
    Report& report;
    XString extension;
    bool writes = true;
    XBuffer tags;
};

// What the encoder says of its file, against what a decoder finds in it, as the worker compares them.
void AudioCheck::CompareWritten(const XString& what, Instance& instance, const AudioFormatRecord& format,
                                XTagList& found) {
    PluginParams params{};
    if (instance.Ask(ZtKey::writtenFormat, params) != 0) {
        const auto* said = static_cast<const AudioFormatRecord*>(params.data);
        if (said)
            report.Demand(said->channels == format.channels && said->frequency == format.frequency,
                          what + L": ENC_Get(\"Written Format\") says " + FormatText(*said) +
                              L", and a decoder finds " + FormatText(format));
        else
            report.Broken(what + L": ENC_Get(\"Written Format\") answered yes and left data null");
    }
    params = {};
    if (instance.Ask(ZtKey::writtenTags, params) == 0 || !params.data)
        return;
    const XString fault = TagImageFault(params.data, params.dataSize);
    if (!report.Demand(fault.IsEmpty(),
                       what + L": the list that ENC_Get(\"Written Tags\") delivers " + fault))
        return;
    XTagList said;
    said.Deserialize(params.data, params.dataSize);
    for (const XTagItem& item : said.items)
        report.Demand(found.Find(item.key) != nullptr, what + L": ENC_Get(\"Written Tags\") names the tag " +
                                                           item.key + L", and a decoder does not find it");
}

void AudioCheck::Compare(const XString& what, const Sound& in, const EncoderRun& run, Instance& instance,
                         Judge& judge, bool isFirst) {
    const XString size = DecimalText(run.SizeBytes()) + L" bytes";
    if (!judge.IsThere()) {
        report.Ok(what + L": " + size);
        return;
    }
    Sound out;
    XTagList found;
    XString error;
    if (!judge.Read(run.path, out, found, error)) {
        report.Broken(what + L": no decoder can read the output (" + error + L")");
        return;
    }
    report.Check(IsCountedLengthGood(out.format, out.Frames(), in.Frames(), in.format.frequency),
                 what + L": " + UnsignedText(in.Frames()) + L" frames in, " + UnsignedText(out.Frames()) +
                     L" out, " + size,
                 what + L": " + UnsignedText(in.Frames()) + L" frames went in and " +
                     UnsignedText(out.Frames()) + L" of " + DecimalText(out.format.frequency) +
                     L" Hz came out: Tonemill would not accept the file");
    CheckLevels(checked, what, in, out);
    CompareWritten(what, instance, out.format, found);
    if (isFirst)
        CheckTags(checked, found);
}

bool AudioCheck::ConvertOne(const FormatRow& row, Judge& judge, bool isFirst) {
    const Sound sound = MakeSound(SoundFormat(row.isFloat, row.bits, row.channels, row.frequency), soundMs);
    const XString what = FormatText(sound.format);
    Instance instance(checked);
    EncoderRun run(checked, extension);
    const EncoderRun::Outcome outcome = run.Convert(instance, sound, &tags);
    if (outcome != EncoderRun::Outcome::complete) {
        const XString words = instance.TextOf(ZtKey::lastError);
        const XString told = what + (outcome == EncoderRun::Outcome::refused ? L" is refused" : L" fails");
        if (words.IsEmpty())
            report.Broken(told + L", and ENC_Get(\"Last Error\") does not say why");
        else if (outcome == EncoderRun::Outcome::refused)
            report.Note(told + L": " + words);
        else
            report.Broken(told + L": " + words);
        return false;
    }
    static_cast<void>(instance.TextOf(ZtKey::information));
    if (!report.Demand((run.SizeBytes() >= 0) == writes,
                       what + (writes ? L": there is no file at outputPath"
                                      : L": a file was written although the extension is .IGNORE")))
        return true;
    if (writes)
        Compare(what, sound, run, instance, judge, isFirst);
    else
        report.Ok(what + L": taken");
    report.Demand(run.Delete(), what + L": the output is still open after ENC_EndConversion");
    return true;
}

void AudioCheck::CheckEmpty() {
    Instance instance(checked);
    EncoderRun run(checked, extension);
    Sound nothing;
    nothing.format = SoundFormat(false, 16, 2, 44100);
    if (run.Convert(instance, nothing) == EncoderRun::Outcome::complete)
        report.Ok(L"a source without a frame is a file all the same");
    else if (instance.TextOf(ZtKey::lastError).IsEmpty())
        report.Broken(L"a source without a frame fails, and ENC_Get(\"Last Error\") does not say why");
    else
        report.Note(L"a source without a frame fails");
    instance.Destroy(); // as after every failure
    report.Demand(run.Delete(), L"the output of a source without a frame is still open after its end");
}

void AudioCheck::CheckCancelled() {
    Instance instance(checked);
    const Sound sound = MakeSound(SoundFormat(false, 16, 2, 44100), soundMs);
    EncoderRun run(checked, extension);
    if (!run.Begin(instance, sound.format) || !run.Encode(instance, sound))
        return;
    run.End(instance, false);
    report.Check(run.Delete(), L"a cancelled file is closed",
                 L"ENC_EndConversion(0) left the file open: the worker can't delete what is incomplete");
    EncoderRun next(checked, extension);
    report.Check(next.Convert(instance, sound) == EncoderRun::Outcome::complete,
                 L"the instance goes on after a cancelled file",
                 L"after ENC_EndConversion(0) the instance can't write another file");
}

void AudioCheck::CheckDestroyed() {
    Instance instance(checked);
    const Sound sound = MakeSound(SoundFormat(false, 16, 2, 44100), soundMs);
    EncoderRun run(checked, extension);
    if (!run.Begin(instance, sound.format) || !run.Encode(instance, sound))
        return;
    instance.Destroy();
    report.Check(run.Delete(), L"an instance that goes closes its file", L"ENC_Destroy left the file open");
}

// Two instances that fail at different files: each has words of its own.
void AudioCheck::CheckBadPaths() {
    if (!writes)
        return;
    Instance a(checked), b(checked);
    EncoderRun runA(checked, extension), runB(checked, extension);
    runA.path = checked.folder + L"no folder A\\a" + extension;
    runB.path = checked.folder + L"no folder B\\b" + extension;
    const Sound sound = MakeSound(SoundFormat(false, 16, 2, 44100), soundMs);
    if (!report.Demand(runA.Convert(a, sound) != EncoderRun::Outcome::complete,
                       L"a file in a folder that does not exist counts as written"))
        return;
    PluginParams params{};
    if (a.Ask(ZtKey::lastError, params) == 0 || !params.text1) {
        report.Broken(L"ENC_Get(\"Last Error\") has no words for a folder that does not exist");
        return;
    }
    const XString words = TakeText(checked, L"ENC_Get(\"Last Error\")", params.text1);
    runB.Convert(b, sound);
    static_cast<void>(b.TextOf(ZtKey::lastError));
    report.Check(
        IsStill(params.text1, words), XString(L"failures have words: ") + words,
        L"ENC_Get(\"Last Error\") of one instance changed the text that another one had returned: keep it "
        L"in the instance");
}

void AudioCheck::CheckBadTags() {
    static const unsigned char wild[] = {0xFF, 0xFF, 0xFF, 0x7F, 0xFF, 0xFF, 0xFF, 0xFF, 'a', 0};
    XBuffer image;
    if (!image.Set(wild, sizeof(wild)))
        return;
    Instance instance(checked);
    EncoderRun run(checked, extension);
    const Sound sound = MakeSound(SoundFormat(false, 16, 2, 44100), soundMs);
    report.Check(run.Convert(instance, sound, &image) == EncoderRun::Outcome::complete,
                 L"a damaged list of tags does no harm", L"a damaged list of tags makes the conversion fail");
}

void AudioCheck::Run() {
    Judge judge(checked, extension);
    if (writes && !judge.IsThere())
        report.Note(
            XString(L"no decoder takes ") + extension +
            L": lengths, levels and tags of the outputs were not examined (name one by -decoder=FILE)");
    int taken = 0;
    for (const FormatRow& row : formats)
        taken += ConvertOne(row, judge, taken == 0) ? 1 : 0;
    if (taken == 0) {
        report.Broken(L"no usual format is taken, not even 16 bit stereo of 44100 Hz");
        return;
    }
    CheckEmpty();
    CheckCancelled();
    CheckDestroyed();
    CheckBadPaths();
    CheckBadTags();
}

} // namespace

void CheckEncoderKeys(Checked& checked) {
    Instance instance(checked);
    if (!instance.value)
        return;
    PluginParams params{};
    if (instance.Ask(ZtKey::extension, params) == 0 && !params.text1) {
        checked.report.Broken(L"ENC_Get(\"Extension\") is not answered: outputs would have no extension");
    } else {
        const XString extension = TakeText(checked, L"ENC_Get(\"Extension\")", params.text1);
        const XString fault = ExtensionFault(extension);
        checked.report.Check(fault.IsEmpty(), XString(L"outputs have the extension ") + extension,
                             XString(L"ENC_Get(\"Extension\") returned a text that ") + fault);
    }
    CheckSettingsKey(checked);
    CheckEstimate(checked);
    CheckRequiredEffect(checked, instance);
    CheckChoices(checked, instance);
}

void CheckEncoderAudio(Checked& checked) {
    AudioCheck(checked).Run();
}
