#include "Rules.h"

#include "foundation/XTagList.h"
#include "host/EffectChain.h"
#include "worker/AudioText.h"
#include "worker/CommandText.h"

#include <cmath>
#include <cstring>

namespace {

constexpr wchar_t commandHead[] =
    L" -infile=\"a\" -outfile=\"b\" -convert_to=\"c\" -evtquit=\"d\" -evtwatchdog=\"e\" -batchid=\"1\"";
constexpr std::uint32_t leastRecord = 8; // size and two terminators

XString LineFault(const XString& settings) {
    for (int i = 1; i <= settings.Count(); ++i)
        if (settings.CharAt(i) < 32)
            return L"holds a line end or another control character: settings are one line of a command text";
    return XString();
}

// Behind a terminated text of 16-bit units at `at`; `end` if there is no terminator.
std::uint64_t BehindText(const unsigned char* bytes, std::uint64_t at, std::uint64_t end) {
    for (; at + 2 <= end; at += 2)
        if (bytes[at] == 0 && bytes[at + 1] == 0)
            return at + 2;
    return end + 1;
}

} // namespace

XString ExtensionFault(const XString& extension) {
    if (extension.IsEmpty())
        return L"is empty: outputs would have no extension";
    if (extension.CharAt(1) != L'.')
        return XString(L"is \"") + extension + L"\", without a dot in front: outputs would have no extension";
    if (extension.Count() == 1)
        return L"is a dot and nothing else";
    for (int i = 2; i <= extension.Count(); ++i)
        if (extension.CharAt(i) < 32 || XString(L"\\/:*?\"<>| ").FindChar(extension.CharAt(i)) != 0)
            return XString(L"is \"") + extension + L"\": a file name can't hold that";
    return XString();
}

XString EncoderSettingsFault(const XString& settings) {
    const XString fault = LineFault(settings);
    if (!fault.IsEmpty())
        return fault;
    int quotes = 0;
    for (int i = 1; i <= settings.Count(); ++i)
        quotes += settings.CharAt(i) == L'"' ? 1 : 0;
    if (quotes % 2 != 0)
        return L"has a double quote without its counterpart: values stand in pairs of them, -name=\"value\"";
    clWorkerCommand command;
    XString error;
    if (!ParseWorkerCommand(XString(commandHead) + L" " + settings, command, error))
        return XString(L"breaks the command text that it becomes a part of: ") + error;
    if (command.settings != settings)
        return XString(L"begins like a switch of the worker: of it, only \"") + command.settings +
               L"\" would reach the encoder";
    if (!settings.IsEmpty() && settings.CharAt(1) != L'-')
        return L"is not made of options -name=\"value\"";
    return XString();
}

XString EffectSettingsFault(const XString& settings) {
    const XString fault = LineFault(settings);
    if (!fault.IsEmpty())
        return fault;
    XArray<clChainEntry> chain;
    EffectChainFromText(chain, AppendRequiredEffect(L"", L"a=b"));
    chain[0].settings = settings;
    const XString text = EffectChainToText(chain);
    EffectChainFromText(chain, text);
    if (chain.Count() != 1 || chain[0].settings != settings)
        return L"does not come back from a chain as it went in: \"{qt}\" stands for a double quote there";
    return XString();
}

XString RequiredEffectFault(const XString& specification) {
    XArray<clChainEntry> chain;
    EffectChainFromText(chain, AppendRequiredEffect(L"", specification));
    if (chain.Count() != 1)
        return XString(L"is \"") + specification + L"\", and has to be \"name of the effect=its settings\"";
    return LineFault(specification);
}

XString TagImageFault(const void* image, std::uint32_t size) {
    const auto* bytes = static_cast<const unsigned char*>(image);
    const auto number = [&](std::uint64_t at) {
        std::uint32_t value = 0;
        std::memcpy(&value, bytes + at, sizeof(value));
        return value;
    };
    if (size < 4)
        return L"is shorter than its count of records";
    std::uint64_t at = 4;
    for (std::uint32_t left = number(0), place = 1; left != 0; --left, ++place) {
        const XString which = XString(L"is damaged: record ") + DecimalText(place);
        if (size - at < leastRecord)
            return which + L" of " + UnsignedText(number(0)) + L" lies behind the end";
        const std::uint64_t end = at + number(at);
        if (number(at) < leastRecord || end > size)
            return which + L" says that it has " + UnsignedText(number(at)) +
                   L" bytes (its size counts itself, in bytes)";
        const std::uint64_t value = BehindText(bytes, at + 4, end);
        if (value > end || BehindText(bytes, value, end) > end)
            return which + L" has a key or a value without a terminator";
        if (value == at + 6)
            return which + L" has no key";
        at = end;
    }
    return at == size ? XString() : UnsignedText(size - at) + L" bytes follow its last record";
}

XString FormatFault(const AudioFormatRecord& format) {
    if (format.sampleKind != ztSampleInteger && format.sampleKind != ztSampleFloat)
        return XString(L"has the sampleKind ") + DecimalText(format.sampleKind) +
               L", which is neither 1 nor 3";
    if (format.sampleBytes != 4)
        return XString(L"has the sampleBytes ") + DecimalText(format.sampleBytes) +
               L", and every sample has 4 bytes";
    if (format.bitsPerSample < 1 || format.bitsPerSample > 32 ||
        (format.sampleKind == ztSampleFloat && format.bitsPerSample != 32))
        return XString(L"has the bitsPerSample ") + DecimalText(format.bitsPerSample);
    if (!IsUsableFormat(format))
        return XString(L"describes audio that can't be: ") + FormatText(format);
    return XString();
}

XString SampleFault(const AudioFormatRecord& format, const std::int32_t* samples, std::uint64_t count) {
    const bool isFloat = format.sampleKind == ztSampleFloat;
    const std::int64_t limit = std::int64_t{1} << (format.bitsPerSample - 1);
    for (std::uint64_t i = 0; i < count; ++i) {
        float real = 0;
        std::memcpy(&real, &samples[i], sizeof(real));
        const XString which = XString(L"at frame ") + UnsignedText(i / format.channels);
        if (isFloat && !std::isfinite(real))
            return XString(L"have ") + which + L" a float that is no number";
        if (isFloat && std::fabs(real) > 1000)
            return XString(L"have ") + which + L" a float far beyond full scale, which is 1.0";
        if (!isFloat && (samples[i] >= limit || samples[i] < -limit))
            return XString(L"have ") + which + L" the value " + DecimalText(samples[i]) + L", beyond " +
                   DecimalText(format.bitsPerSample) + L" bits (samples are right-aligned)";
    }
    return XString();
}

XString FormatText(const AudioFormatRecord& format) {
    const XString kind =
        format.sampleKind == ztSampleFloat ? XString(L"float") : DecimalText(format.bitsPerSample) + L" bit";
    return kind + L", " + DecimalText(format.channels) +
           (format.channels == 1 ? L" channel, " : L" channels, ") + DecimalText(format.frequency) + L" Hz";
}
