// Tags as M4A files have them: items below moov/udta/meta/ilst, as players on all systems read them.
// Box layouts: ISO 14496-12; items and their type codes: Apple's QuickTime metadata list.
#pragma once

#include "foundation/XTagList.h"
#include "plugins/common/ByteWriter.h"
#include "plugins/common/Information.h"

#include <string>

// The items of all records, each with every value. Keys that have no item of their own, and numbers that
// theirs can't hold, become free-form items. Pictures of other kinds than JPEG, PNG, GIF and BMP can't be
// held and go to `leftOut`.
[[nodiscard]] ByteVector BuildMp4Items(const XTagList& tags, LeftOutTags& leftOut);
// One free-form item with one value.
[[nodiscard]] ByteVector BuildMp4FreeItem(const std::string& name, const std::string& value);
// What players cut off before and behind so many frames, as the value of the item "iTunSMPB".
[[nodiscard]] std::string GaplessText(std::uint64_t delay, std::uint64_t padding, std::uint64_t frames);
// Puts the items into a moov box, in place of those it has. The box must stand behind the audio, whose
// places it tells. False if the bytes do not begin with a sound moov box.
[[nodiscard]] bool PutMp4Items(ByteVector& moov, const ByteVector& items);
