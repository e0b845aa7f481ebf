// The kinds of tags that a file of TagLib's may hold side by side, whatever its format. Null for none; all
// belong to the file.
#pragma once

namespace TagLib {
class File;
class Tag;
namespace APE {
class Tag;
}
namespace ID3v2 {
class Tag;
}
namespace RIFF::Info {
class Tag;
}
} // namespace TagLib

[[nodiscard]] const TagLib::ID3v2::Tag* Id3v2TagOf(TagLib::File& file);
[[nodiscard]] const TagLib::APE::Tag* ApeTagOf(TagLib::File& file);
[[nodiscard]] const TagLib::Tag* Id3v1TagOf(TagLib::File& file);
[[nodiscard]] const TagLib::RIFF::Info::Tag* InfoTagOf(TagLib::File& file);
