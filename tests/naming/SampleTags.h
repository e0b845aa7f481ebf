// The tags of one file, with what is hard about tags: empty and several values, brackets, commas.
#pragma once

#include "foundation/XTagList.h"

inline void FillSample(XTagList& tags) {
    tags.Add(L"artist", L"Ox,Ew");
    tags.Add(L"album", L"");
    tags.Add(L"title", L"Back [Live]");
    tags.Add(L"track", L"5/15");
    tags.Add(L"disc", L"1/3");
    tags.Add(L"genre", L"Pop\\Rock");
    tags.Add(L"composer", L"A\rB");
    tags.Add(L"year", L"1987");
    tags.Add(L"year", L"2001");
    tags.Add(L"label", L"x]");
    tags.Add(L"Custom Key", L"own");
    tags.Add(L"compilation", L"Yes");
    tags.Add(L"origdrive", L"D:\\");
    tags.Add(L"origpath", L"Music\\Old, new\\CD1");
    tags.Add(L"origfilename", L"song");
}
