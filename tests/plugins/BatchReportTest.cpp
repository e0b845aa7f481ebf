// The effect "Batch Report" through its exports, as the end of a batch calls it.
#include "EncoderDriver.h"

#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class BatchReport : public testing::Test {
protected:
    void SetUp() override {
        module.Reset(LoadLibraryW(TestedProgramFolder() + L"DSPs\\Batch Report.dll"));
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
    template <class Function>
    void Bind(Function& function, const char* name) {
        function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module.Get(), name)));
        ASSERT_NE(function, nullptr) << name;
    }
    std::int32_t EndBatch(const XTagList& results, const XString& settings) {
        XBuffer image;
        EXPECT_TRUE(results.Serialize(image));
        PluginParams params{};
        params.number = 7;
        params.data = image.data;
        params.dataSize = static_cast<std::uint32_t>(image.size);
        params.text1 = settings;
        return get(instance, L"BatchEndConversion", &params);
    }

    XModule module;
    DspCreate create = nullptr;
    DspDestroy destroy = nullptr;
    DspGet get = nullptr;
    DspBeginConversion begin = nullptr;
    ZtInstance instance = nullptr;
};

TEST_F(BatchReport, WantsNoAudio) {
    DspBeginBlock block{};
    block.size = sizeof block;
    EXPECT_EQ(begin(instance, &block), 0);
}

TEST_F(BatchReport, WritesTheFileThatItsSettingsName) {
    XTempFile report;
    ASSERT_TRUE(report.MakeNew(L"rep")); // stands already: it is replaced
    XTagList results;
    results.Add(L"file1_in", L"C:\\a.wav");
    results.Add(L"file1_out", L"C:\\a.flac");
    results.Add(L"file1_conversionhaderrors", L"");
    EXPECT_NE(EndBatch(results, L"-file=\"" + report + L"\""), 0);
    XBuffer bytes;
    ASSERT_TRUE(ReadWholeFile(report, bytes));
    EXPECT_EQ(std::string(bytes.Bytes(), bytes.Bytes() + bytes.size),
              "failed\tC:\\a.wav\tC:\\a.flac\nend\t1\n");
    EXPECT_FALSE(PathExists(report + L".tmp"));
}

TEST_F(BatchReport, WithoutAFileItDoesNothing) {
    EXPECT_NE(EndBatch(XTagList(), L""), 0);
    EXPECT_EQ(EndBatch(XTagList(), L"-file=\"" + TestedProgramFolder() + L"no such folder\\report.txt\""), 0);
    PluginParams params{};
    ASSERT_NE(get(instance, L"Last Error", &params), 0);
    EXPECT_GT(XString(params.text1).Find(L"no such folder"), 0);
}

} // namespace
