// An effect library that acts at the end of a batch, driven as the program does, in a folder of its own.
#pragma once

#include "EncoderDriver.h"
#include "host/clZtDSP.h"
#include "tests/foundation/TestFolder.h"

class EffectDriver : public TestFolder {
protected:
    explicit EffectDriver(const wchar_t* name) {
        SetDllDirectoryW(TestedProgramFolder()); // where the decoder's libraries stand
        PluginCreateBlock block{};
        EXPECT_TRUE(library.Load(TestedProgramFolder() + L"DSPs\\" + name + L".dll") &&
                    library.Recreate(&block));
    }
    // A row of the list `results`.
    void AddRow(const XString& source, const XString& output) {
        const XString key = L"file" + DecimalText(++rows);
        results.Add(key + L"_in", source);
        results.Add(key + L"_out", output);
    }
    bool EndBatch(const XString& settings) { return TellBatch(L"BatchEndConversion", results, settings); }
    bool TellBatch(const wchar_t* key, const XTagList& list, const XString& settings) {
        XBuffer image;
        EXPECT_TRUE(list.Serialize(image));
        PluginParams params{};
        params.number = 7;
        params.data = image.data;
        params.dataSize = static_cast<std::uint32_t>(image.size);
        params.text1 = settings;
        return library.AskGet(key, params) != 0;
    }
    XString LastError() {
        PluginParams params{};
        return library.AskGet(L"Last Error", params) != 0 ? XString(params.text1) : XString();
    }
    XTagList results;

private:
    clZtDSP library;
    int rows = 0;
};
