// An effect library that acts at the end of a batch, driven through its exports.
#pragma once

#include "EncoderDriver.h"

#include <gtest/gtest.h>

class EffectDriver : public testing::Test {
protected:
    explicit EffectDriver(const wchar_t* name) : name(name) {}
    void SetUp() override {
        module.Reset(LoadLibraryW(TestedProgramFolder() + L"DSPs\\" + name + L".dll"));
        ASSERT_TRUE(module.IsValid());
        Bind(create, "DSP_Create");
        Bind(destroy, "DSP_Destroy");
        Bind(get, "DSP_Get");
        Bind(begin, "DSP_BeginConversion");
        PluginCreateBlock block{};
        instance = create(&block);
        ASSERT_NE(instance, nullptr);
    }
    void TearDown() override {
        if (instance)
            destroy(instance);
    }
    bool EndBatch(const XTagList& results, const XString& settings) {
        return TellBatch(L"BatchEndConversion", results, settings);
    }
    bool TellBatch(const wchar_t* key, const XTagList& list, const XString& settings) {
        XBuffer image;
        EXPECT_TRUE(list.Serialize(image));
        PluginParams params{};
        params.number = 7;
        params.data = image.data;
        params.dataSize = static_cast<std::uint32_t>(image.size);
        params.text1 = settings;
        return get(instance, key, &params) != 0;
    }
    XString LastError() {
        PluginParams params{};
        return get(instance, L"Last Error", &params) != 0 ? XString(params.text1) : XString();
    }
    std::int32_t Begin() {
        DspBeginBlock block{};
        block.size = sizeof block;
        return begin(instance, &block);
    }

private:
    template <class Function>
    void Bind(Function& function, const char* exportName) {
        function =
            reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module.Get(), exportName)));
        ASSERT_NE(function, nullptr) << exportName;
    }

    const wchar_t* name;
    XModule module;
    DspCreate create = nullptr;
    DspDestroy destroy = nullptr;
    DspGet get = nullptr;
    DspBeginConversion begin = nullptr;
    ZtInstance instance = nullptr;
};
