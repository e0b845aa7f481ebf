// The technical properties of an open source, as the naming language shows them.
#pragma once

#include "plugins/decoder/Tags.h"

// `facts` are what reading the tags brought, `hasTags` whether there were any.
void CollectProperties(const AudioStream& source, const XString& path, const TagFacts& facts, bool hasTags,
                       XTagList& properties);
