// How the fakes of the worker's tests are told what to do: words like "failat=2000" in a text.
#pragma once

#include <cstdint>

// The number behind "key=", or `fallback` where the key is not there.
inline std::int64_t NumberOf(const wchar_t* text, const wchar_t* key, std::int64_t fallback) {
    for (const wchar_t* at = text; at && *at; ++at) {
        int i = 0;
        while (key[i] && at[i] == key[i])
            ++i;
        if (key[i] || at[i] != L'=' || (at != text && at[-1] != L' '))
            continue;
        std::int64_t number = 0;
        for (at += i + 1; *at >= L'0' && *at <= L'9'; ++at)
            number = number * 10 + (*at - L'0');
        return number;
    }
    return fallback;
}

// What the fake encoder writes: this head, then int32 samples.
struct FakeHead {
    char mark[4] = {'F', 'A', 'K', 'E'};
    std::uint32_t channels = 0;
    std::uint32_t frequency = 0;
};
