// One source file of the batch. Portable.
#pragma once

#include "contract/Plugin.h"
#include "foundation/XBuffer.h"
#include "foundation/XString.h"

#include <atomic>

enum clFileStage : std::uint32_t {
    stageNothing = 0, // not asked yet
    stageFormat = 1,  // format is filled, or the file was asked in vain
    stageTags = 2,    // tags and properties too
};

struct clFileItem {
    XString sourcePath;         // full; written once
    XString outputPath;         // full; empty until computed
    std::uint32_t skipFlag = 0; // non-zero: left out of the conversion
    // These three belong to the read-ahead thread until `stage` says that they are there.
    XBuffer tagImage;      // XTagList image without oversized records; empty if none
    XBuffer propertyImage; // XTagList image as the decoder gave it; empty if none
    AudioFormatRecord format{};

    // clFileStage. Written last, with release; readers on other threads take it with acquire before
    // they look at the fields above.
    std::atomic<std::uint32_t> stage{stageNothing};
    [[nodiscard]] std::uint32_t Stage() const noexcept { return stage.load(std::memory_order_acquire); }
    void SetStage(std::uint32_t value) noexcept { stage.store(value, std::memory_order_release); }
};
