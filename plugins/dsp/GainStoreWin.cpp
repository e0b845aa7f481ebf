#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"
#include "plugins/common/OutputFile.h"
#include "plugins/dsp/GainStore.h"

GainStore::GainStore(std::uint32_t batchId)
    : folder(AddBackslash(TempFolder()) + L"Zt" + UnsignedText(batchId) + L"\\ReplayGain\\") {}

bool GainStore::Keep(const GainMeasure& measure, XString& error) const {
    const ByteVector image = WriteGainMeasure(measure);
    MakeFolders(folder);
    OutputFile file;
    if (file.Create(folder + GainMeasureName(measure.output)) && file.Write(image.data(), image.size()) &&
        file.Close())
        return true;
    error = file.Error();
    return false;
}

bool GainStore::Find(const XString& output, GainMeasure& measure) const {
    XBuffer image;
    return ReadWholeFile(folder + GainMeasureName(output), image) &&
           ReadGainMeasure(image.Bytes(), static_cast<std::size_t>(image.size), measure) &&
           measure.output == output;
}

void GainStore::Remove() const {
    DeleteTree(StripBackslash(folder));
}
