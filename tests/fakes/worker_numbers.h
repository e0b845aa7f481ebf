// How the fakes of the worker's tests are told what to do: words like "failat=2000" in a text.
#pragma once

#include <cstdint>
#include <vector>

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

// The image of a list with the tag "title" of so many values, of one letter each.
inline std::vector<unsigned char> OneTag(std::int64_t values) {
    std::vector<unsigned char> image = {1, 0, 0, 0, 0, 0, 0, 0};
    for (const char c : {'t', 'i', 't', 'l', 'e', '\0'})
        image.insert(image.end(), {static_cast<unsigned char>(c), 0});
    for (std::int64_t i = 0; i < values; ++i)
        image.insert(image.end(), {'a', 0, static_cast<unsigned char>(i + 1 < values ? '\r' : 0), 0});
    image[4] = static_cast<unsigned char>(image.size() - 4);
    return image;
}

// What the fake encoder writes: this head with the beginning of the tags that it got, then int32 samples.
struct FakeHead {
    char mark[4] = {'F', 'A', 'K', 'E'};
    std::uint32_t channels = 0;
    std::uint32_t frequency = 0;
    unsigned char tags[48] = {};
};
