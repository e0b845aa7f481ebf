#include "plugins/encoder/VorbisChannels.h"

#include "plugins/common/PcmConvert.h"

#include <iterator>

namespace {

// Speaker bits of the contract.
constexpr std::uint32_t left = 0x1, right = 0x2, centre = 0x4, lfe = 0x8, backLeft = 0x10, backRight = 0x20,
                        backCentre = 0x100, sideLeft = 0x200, sideRight = 0x400;

constexpr std::uint32_t orders[][VorbisChannels::most] = {
    {centre},
    {left, right},
    {left, centre, right},
    {left, right, backLeft, backRight},
    {left, centre, right, backLeft, backRight},
    {left, centre, right, backLeft, backRight, lfe},
    {left, centre, right, sideLeft, sideRight, backCentre, lfe},
    {left, centre, right, sideLeft, sideRight, backLeft, backRight, lfe},
};
static_assert(std::size(orders) == VorbisChannels::most);

// The channel that the source has at a speaker; channels stand in the order of the bits. -1: none.
int ChannelAt(std::uint32_t mask, std::uint32_t speaker) noexcept {
    if (!(mask & speaker))
        return -1;
    int index = 0;
    for (std::uint32_t bit = 1; bit != speaker; bit <<= 1)
        index += (mask & bit) != 0;
    return index;
}

// Side speakers stand for back ones where there is but one pair of them.
std::uint32_t WithBackPair(std::uint32_t mask) noexcept {
    constexpr std::uint32_t sides = sideLeft | sideRight, backs = backLeft | backRight;
    return (mask & sides) == sides && !(mask & (backs | backCentre)) ? (mask & ~sides) | backs : mask;
}

bool Fits(const std::uint32_t (&order)[VorbisChannels::most], int count, std::uint32_t mask) noexcept {
    for (int i = 0; i < count; ++i)
        mask &= ~order[i];
    return mask == 0;
}

} // namespace

void VorbisChannels::Choose(const PcmFormat& source) noexcept {
    const std::uint32_t usual = UsualChannelMask(source.channels);
    std::uint32_t mask = WithBackPair(source.channels > 2 && source.channelMask ? source.channelMask : usual);
    count = source.channels;
    while (count < most && !Fits(orders[count - 1], count, mask))
        ++count;
    hasLostPlaces = !Fits(orders[count - 1], count, mask);
    if (hasLostPlaces) {
        count = source.channels;
        mask = WithBackPair(usual);
    }
    for (int i = 0; i < count; ++i)
        from[i] = ChannelAt(mask, orders[count - 1][i]);
}

void VorbisChannels::Convert(const PcmFormat& source, const void* in, float* out,
                             std::size_t frames) const noexcept {
    const std::size_t step = static_cast<std::size_t>(source.channels);
    const float* floats = static_cast<const float*>(in);
    const std::int32_t* integers = static_cast<const std::int32_t*>(in);
    for (std::size_t frame = 0; frame < frames; ++frame)
        for (int i = 0; i < count; ++i, ++out) {
            const std::size_t at = frame * step + static_cast<std::size_t>(from[i] < 0 ? 0 : from[i]);
            if (from[i] < 0)
                *out = 0;
            else if (source.isFloat)
                *out = floats[at];
            else
                IntToFloat(integers + at, out, 1, source.bits);
        }
}

XString VorbisChannels::Information(const wchar_t* target, const PcmFormat& source) const {
    XString text = XString(target) + L" can't hold the places of these " + DecimalText(source.channels);
    if (hasLostPlaces)
        return text + L" channels: they were given the usual ones";
    return count == source.channels ? XString()
                                    : text + L" channels alone: they were written as " + DecimalText(count) +
                                          L", the others silent";
}
