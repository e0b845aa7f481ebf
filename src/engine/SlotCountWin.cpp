// What the system and the target encoder say about parallel work.
#include "engine/SlotCount.h"

#include "contract/Keys.h"
#include "host/CodecHandler.h"

clEncoderAnswers AskEncoder(const XString& codecName, const XString& encoderSettings) {
    clEncoderAnswers answers;
    PluginCreateBlock create{};
    clZtEncoder encoder;
    if (!clZtCodecHandler::LoadEncoder(codecName, encoder, &create))
        return answers;
    PluginParams params{};
    params.text1 = encoderSettings;
    answers.noMultiCpu = encoder.AskGet(ZtKey::noMultiCpu, params) != 0;
    const std::int32_t multiplier = encoder.AskGet(ZtKey::encodingMultiplier, params);
    answers.multiplier = multiplier > 1 ? multiplier : 1;
    return answers;
}

int SystemProcessors() {
    SYSTEM_INFO info{};
    GetSystemInfo(&info);
    return static_cast<int>(info.dwNumberOfProcessors);
}
