// The two moments at which effects and the batch meet.
#include "engine/BatchEnd.h"

#include "contract/Keys.h"
#include "engine/Batch.h"
#include "host/CodecHandler.h"
#include "host/EffectChain.h"

namespace {

// The image is empty if memory ran out.
XBuffer ImageOf(const XTagList& list) {
    XBuffer image;
    if (!list.Serialize(image))
        image.Free();
    return image;
}

void Tell(const clZtDSP& effect, const wchar_t* key, const clChainEntry& entry,
          const clConversionSetup& setup, std::uint32_t batchId, const XBuffer& image) {
    if (image.size == 0)
        return;
    PluginParams params{};
    params.dataSize = static_cast<std::uint32_t>(image.size);
    params.number = batchId;
    params.text1 = entry.settings;
    params.text2 = setup.encoderSettings;
    params.text3 = setup.codecName;
    params.data = image.data;
    effect.AskGet(key, params);
}

} // namespace

void RunBatchEnd(clBatch& batch, const clConversionSetup& setup, const XArray<clBatchResult>& results,
                 const XArray<clLogEntry>& errorLog) {
    if (batch.batchId != 0) {
        XTagList list, errors;
        FillResultList(results, list);
        FillErrorList(results, errorLog, errors);
        const XBuffer image = ImageOf(list);
        const XBuffer errorImage = errors.Count() > 0 ? ImageOf(errors) : XBuffer();
        XArray<clChainEntry> chain;
        EffectChainFromText(chain, setup.chainText);
        for (const clChainEntry& entry : chain) {
            PluginCreateBlock create{};
            clZtDSP effect;
            if (!clZtCodecHandler::LoadDSP(entry.name, effect, &create))
                continue;
            Tell(effect, ZtKey::batchErrors, entry, setup, batch.batchId, errorImage);
            Tell(effect, ZtKey::batchEndConversion, entry, setup, batch.batchId, image);
        }
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
