// The two moments at which effects and the batch meet.
#include "engine/BatchEnd.h"

#include "contract/Keys.h"
#include "engine/Batch.h"
#include "host/CodecHandler.h"
#include "host/EffectChain.h"

namespace {

void TellEffect(const clChainEntry& entry, const clConversionSetup& setup, std::uint32_t batchId,
                const XBuffer& image) {
    PluginCreateBlock create{};
    clZtDSP effect;
    if (!clZtCodecHandler::LoadDSP(entry.name, effect, &create))
        return;
    PluginParams params{};
    params.dataSize = static_cast<std::uint32_t>(image.size);
    params.number = batchId;
    params.text1 = entry.settings;
    params.text2 = setup.encoderSettings;
    params.text3 = setup.codecName;
    params.data = image.data;
    effect.AskGet(ZtKey::batchEndConversion, params);
}

} // namespace

void RunBatchEnd(clBatch& batch, const clConversionSetup& setup, const XArray<clBatchResult>& results) {
    if (batch.batchId != 0) {
        XTagList list;
        XBuffer image;
        FillResultList(results, list);
        XArray<clChainEntry> chain;
        EffectChainFromText(chain, setup.chainText);
        if (list.Serialize(image))
            for (const clChainEntry& entry : chain)
                TellEffect(entry, setup, batch.batchId, image);
    }
    batch.RemoveFolder();
    batch.batchId = 0;
}

void AddRequiredEffect(XString& chainText, const XString& codecName, const XString& encoderSettings) {
    PluginCreateBlock create{};
    clZtEncoder encoder;
    if (!clZtCodecHandler::LoadEncoder(codecName, encoder, &create))
        return;
    PluginParams params{};
    params.text1 = encoderSettings;
    if (encoder.AskGet(ZtKey::requiresDsp, params) != 0 && params.text2)
        chainText = AppendRequiredEffect(chainText, params.text2);
}
