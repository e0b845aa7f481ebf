// Pictures, icons and fonts for as long as records use them.
#include "toolkit/XDisplayParts.h"

#include <shellapi.h>

namespace {
constexpr int defaultTextSize = 13; // pixels
} // namespace

SIZE IconSize(HICON icon) {
    ICONINFO info{};
    if (!icon || !GetIconInfo(icon, &info))
        return {};
    const XGdiObject colour(info.hbmColor);
    const XGdiObject mask(info.hbmMask);
    BITMAP facts{};
    if (!GetObjectW(colour.IsValid() ? colour.Get() : mask.Get(), sizeof facts, &facts))
        return {};
    // Without colours the mask holds two pictures, one above the other.
    return {facts.bmWidth, colour.IsValid() ? facts.bmHeight : facts.bmHeight / 2};
}

XImageInUse::XImageInUse(clDLImage& image) : image(image) {
    const bool shared = image.SharedEncoded && image.SharedEncoded->size > 0;
    const XBuffer& source = shared ? *image.SharedEncoded : image.Encoded;
    decoded = source.size > 0;
    if (decoded)
        image.Picture.Decode(source.data, source.size);
}

XImageInUse::~XImageInUse() {
    if (decoded)
        image.Picture.Free();
}

XIconInUse::XIconInUse(const clDLIcon& record) {
    if (record.SharedIcon)
        copy.Reset(DuplicateIcon(nullptr, record.SharedIcon));
    Handle = record.SharedIcon ? copy.Get() : record.Icon.Get();
    Size = IconSize(Handle);
}

XFont& XTextFont::For(HDC dc, const clDLText& record, COLORREF colour) {
    const bool same = last && font.Colour == colour && last->Size == record.Size &&
                      last->Bold == record.Bold && last->Italic == record.Italic &&
                      last->Underline == record.Underline && last->FontName == record.FontName;
    if (!same)
        font.Create(dc, record.FontName, record.Size ? record.Size : defaultTextSize, colour, record.Bold,
                    record.Italic, record.Underline);
    else if (!font.Selected)
        font.Select(dc);
    last = &record;
    return font;
}

XString ShownText(const clDLText& record, const XFont& font) {
    XString shown = record.Text;
    if (record.MaxWidth)
        font.FitWidth(record.MaxWidth, shown);
    return shown;
}

SIZE TextSize(const clDLText& record, const XString& shown, XFont& font) {
    return {font.Width(nullptr, shown, true, record.Left), font.Height(shown, true)};
}
