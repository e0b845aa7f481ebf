// Stands in where the build has no codec libraries: rates and channels stay as they are.
#include "plugins/common/Resampler.h"

struct Resampler::Engine {};

Resampler::Resampler() = default;
Resampler::~Resampler() = default;

bool Resampler::Open(const PcmFormat&, int, std::uint32_t, XString& error) {
    error = L"This build can't change the rate or the channels";
    return false;
}

bool Resampler::Convert(const void*, std::uint32_t, XString&) {
    return false;
}
