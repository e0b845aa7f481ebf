// Filling, copying and measuring of display lists.
#include "toolkit/XDisplayList.h"

#include "toolkit/XDisplayParts.h"
#include "toolkit/XListMeasure.h"
#include "toolkit/XScreenDc.h"

#include <shellapi.h>

std::int32_t XDisplayList::TakeLayer(int layer) {
    Dirty = 1;
    if (layer == 0)
        return std::exchange(LayerCount, WrapAdd(LayerCount, 1));
    if (LayerCount < WrapAdd(layer, 1))
        LayerCount = layer + 1;
    return layer;
}

int XDisplayList::AddFill(const clDLFill& record, int layer) {
    Fills.AddNew(record)->Layer = TakeLayer(layer);
    return WrapAdd(layer, 1);
}

int XDisplayList::AddBox(const clDLBox& record, int layer) {
    Boxes.AddNew(record)->Layer = TakeLayer(layer);
    return WrapAdd(layer, 1);
}

int XDisplayList::AddFrame(const clDLFrame& record, int layer) {
    Frames.AddNew(record)->Layer = TakeLayer(layer);
    return WrapAdd(layer, 1);
}

int XDisplayList::AddLine(const clDLLine& record, int layer) {
    Lines.AddNew(record)->Layer = TakeLayer(layer);
    return WrapAdd(layer, 1);
}

int XDisplayList::AddText(const clDLText& record, int layer) {
    Texts.AddNew(record)->Layer = TakeLayer(layer);
    return WrapAdd(layer, 1);
}

int XDisplayList::AddGradient(const clDLGradient& record, int layer) {
    Gradients.AddPointer(new clDLGradient{.Left = record.Left,
                                          .Top = record.Top,
                                          .Right = record.Right,
                                          .Bottom = record.Bottom,
                                          .TopLeft = record.TopLeft,
                                          .TopRight = record.TopRight,
                                          .BottomLeft = record.BottomLeft,
                                          .BottomRight = record.BottomRight,
                                          .Mask = record.Mask,
                                          .Layer = TakeLayer(layer),
                                          .DropCache = record.DropCache});
    return WrapAdd(layer, 1);
}

int XDisplayList::AddImage(const clDLImage& record, int layer) {
    return AddImage(record, nullptr, layer);
}

int XDisplayList::AddImage(const clDLImage& record, HBITMAP borrowed, int layer) {
    clDLImage* image = Images.AddPointer(new clDLImage{.Left = record.Left,
                                                       .Top = record.Top,
                                                       .RasterOp = record.RasterOp,
                                                       .Mask = record.Mask,
                                                       .Layer = TakeLayer(layer),
                                                       .SharedEncoded = record.SharedEncoded});
    if (borrowed) {
        image->Picture.Copy(borrowed);
    } else if (record.Encoded.size > 0) {
        if (!image->Encoded.Set(record.Encoded.data, record.Encoded.size))
            image->Encoded.Free();
    } else {
        image->Picture.Copy(record.Picture);
    }
    return WrapAdd(layer, 1);
}

int XDisplayList::AddIcon(const clDLIcon& record, int layer) {
    return AddIcon(record, record.Icon.Get(), layer);
}

int XDisplayList::AddIcon(const clDLIcon& record, HICON borrowed, int layer) {
    Icons.AddPointer(new clDLIcon{.Icon = XIcon(borrowed ? DuplicateIcon(nullptr, borrowed) : nullptr),
                                  .Left = record.Left,
                                  .Top = record.Top,
                                  .Mask = record.Mask,
                                  .Layer = TakeLayer(layer),
                                  .SharedIcon = record.SharedIcon});
    return WrapAdd(layer, 1);
}

void XDisplayList::Clear() {
    Fills.Clear();
    Boxes.Clear();
    Frames.Clear();
    Gradients.Clear();
    Lines.Clear();
    Images.Clear();
    Icons.Clear();
    Texts.Clear();
    Dirty = 1;
    PadRight = PadBottom = 0;
    MinWidth = MinHeight = 0;
    LayerCount = 0;
    ActiveMask = 0;
}

void XDisplayList::Copy(const XDisplayList& source) {
    if (this == &source)
        return;
    Clear();
    // One layer up, since 0 would ask for a layer of its own.
    for (const clDLFill& record : source.Fills)
        AddFill(record, WrapAdd(record.Layer, 1));
    for (const clDLBox& record : source.Boxes)
        AddBox(record, WrapAdd(record.Layer, 1));
    for (const clDLFrame& record : source.Frames)
        AddFrame(record, WrapAdd(record.Layer, 1));
    for (const clDLGradient& record : source.Gradients)
        AddGradient(record, WrapAdd(record.Layer, 1));
    for (const clDLLine& record : source.Lines)
        AddLine(record, WrapAdd(record.Layer, 1));
    for (const clDLImage& record : source.Images)
        AddImage(record, WrapAdd(record.Layer, 1));
    for (const clDLIcon& record : source.Icons)
        AddIcon(record, WrapAdd(record.Layer, 1));
    for (const clDLText& record : source.Texts)
        AddText(record, WrapAdd(record.Layer, 1));
}

void XDisplayList::FitTo(int width, int height) {
    Dirty = 1;
    PadRight = PadBottom = 0;
    MinWidth = width;
    MinHeight = height;
}

void XDisplayList::Measure(SIZE& result) {
    XListMeasure measure;
    for (const clDLFill& record : Fills)
        measure.AddEdges(record);
    for (const clDLBox& record : Boxes)
        measure.AddEdges(record);
    for (const clDLFrame& record : Frames)
        measure.AddEdges(record);
    for (const clDLGradient& record : Gradients)
        measure.AddEdges(record);
    for (const clDLLine& record : Lines)
        measure.AddEdges(record);
    for (clDLImage& record : Images) {
        const XImageInUse image(record);
        measure.AddSized(record, record.Picture.Width(), record.Picture.Height());
    }
    for (const clDLIcon& record : Icons) {
        const XIconInUse icon(record);
        measure.AddSized(record, icon.Size.cx, icon.Size.cy);
    }
    const XScreenDc screen;
    XTextFont fonts;
    for (const clDLText& record : Texts) {
        XFont& font = fonts.For(screen, record, 0);
        const SIZE size = TextSize(record, ShownText(record, font), font);
        measure.AddText(record, size.cx, size.cy);
    }
    measure.Finish(PadRight, PadBottom, MinWidth, MinHeight);
    result = {measure.Width, measure.Height};
}
