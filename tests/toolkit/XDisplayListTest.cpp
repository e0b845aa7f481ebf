// Painting display lists, read back pixel by pixel.
#include "toolkit/XDisplayList.h"
#include "Canvas.h"
#include "toolkit/XFont.h"
#include "toolkit/XGradientColours.h"

#include <gtest/gtest.h>

#include <functional>

namespace {
constexpr COLORREF white = 0xFFFFFF;
constexpr int all = anchorFar;

XBuffer Encoded(int width, int height, COLORREF colour) {
    const std::vector<unsigned char> bytes = EncodedBitmap(width, height, colour);
    XBuffer buffer;
    EXPECT_TRUE(buffer.Set(bytes.data(), bytes.size()));
    return buffer;
}

// The kinds in their order of painting within a layer. Each colours the pixel (2, 0).
struct Dot {
    int x, y;
    COLORREF colour;
};
struct KindRow {
    const char* name;
    void (*add)(XDisplayList&, int layer);
    std::vector<Dot> dots; // of a list of 20 by 20; the first is that pixel
};
const KindRow kindRows[] = {
    {"fill",
     [](XDisplayList& list, int layer) {
         list.AddFill({.Left = 2, .Right = all, .Bottom = all, .Colour = 1}, layer);
     },
     {{2, 0, 1}, {19, 19, 1}, {20, 19, white}, {19, 20, white}, {1, 0, white}}},
    {"box",
     [](XDisplayList& list, int layer) {
         list.AddBox({.Left = 2, .Right = all, .Bottom = all, .FillColour = 99, .PenColour = 2}, layer);
     },
     {{2, 0, 2}, {19, 19, 2}, {3, 1, 99}, {18, 18, 99}, {1, 0, white}, {20, 20, white}}},
    {"gradient",
     [](XDisplayList& list, int layer) {
         clDLGradient record{.Left = 2, .Right = all, .Bottom = all, .TopLeft = 3, .TopRight = 21};
         record.BottomLeft = 3;
         record.BottomRight = 21;
         list.AddGradient(record, layer);
     },
     {{2, 0, 3}, {2, 19, 3}, {12, 5, 13}, {19, 19, 20}, {1, 0, white}, {20, 0, white}, {2, 20, white}}},
    {"frame",
     [](XDisplayList& list, int layer) {
         list.AddFrame({.Left = 2, .Right = all, .Bottom = all, .Colour = 4}, layer);
     },
     {{2, 0, 4}, {19, 19, 4}, {3, 1, white}, {20, 20, white}}},
    {"line",
     [](XDisplayList& list, int layer) { list.AddLine({.Colour = 5, .Left = 2, .Right = 12}, layer); },
     {{2, 0, 5}, {11, 0, 5}, {12, 0, white}, {2, 1, white}}},
    {"image",
     [](XDisplayList& list, int layer) {
         list.AddImage({.Left = all | anchorEnd | anchorBack | 14, .Encoded = Encoded(4, 6, 6)}, layer);
     },
     {{2, 0, 6}, {5, 5, 6}, {1, 0, white}, {6, 5, white}, {5, 6, white}}},
    {"icon",
     [](XDisplayList& list, int layer) {
         list.AddIcon({.Left = all | anchorEnd | anchorBack | 8}, MakeIcon(10, 0xFF070000).Get(), layer);
     },
     {{2, 0, 7}, {11, 9, 7}, {1, 0, white}, {12, 9, white}, {11, 10, white}}},
    {"rounded box",
     [](XDisplayList& list, int layer) {
         list.AddBox({.Right = all, .Bottom = all, .FillColour = 9, .PenColour = 8, .Radius = 12}, layer);
     },
     {{0, 0, white}, {19, 19, white}, {10, 0, 8}, {0, 10, 8}, {10, 10, 9}}},
    {"inverting image",
     [](XDisplayList& list, int layer) {
         list.AddImage({.RasterOp = NOTSRCCOPY, .Encoded = Encoded(2, 2, 8)}, layer);
     },
     {{0, 0, 0xFFFFF7}, {1, 1, 0xFFFFF7}, {2, 0, white}}},
    {"focus frame",
     [](XDisplayList& list, int layer) { list.AddFrame({.Right = all, .Bottom = all, .IsFocus = 1}, layer); },
     {{1, 1, white}, {20, 20, white}}},
};
constexpr int stackedKinds = 7; // the rows that colour (2, 0)

TEST(XDisplayList, EachKindPaintsInItsBox) {
    for (const KindRow& row : kindRows) {
        Canvas canvas;
        XDisplayList list;
        row.add(list, 0);
        list.FitTo(20, 20);
        list.Paint(canvas, 5, 6);
        for (const Dot& dot : row.dots)
            EXPECT_EQ(canvas.At(5 + dot.x, 6 + dot.y), dot.colour)
                << row.name << ' ' << dot.x << ',' << dot.y;
        EXPECT_GT(canvas.Count(white), 3600 - 401) << row.name;
        EXPECT_LT(canvas.Count(white), 3600) << row.name;
    }
}

TEST(XDisplayList, ALayerPaintsByKindAndLayersInOrder) {
    for (int top = 0; top < stackedKinds; ++top) {
        XDisplayList grouped, single, copy;
        for (int kind = top; kind >= 0; --kind) {
            kindRows[kind].add(grouped, 3);
            kindRows[kind].add(single, 0);
        }
        kindRows[0].add(grouped, 2); // below the others
        Canvas canvas, second;
        for (XDisplayList* list : {&grouped, &single})
            list->FitTo(20, 20);
        grouped.Paint(canvas, 0, 0);
        EXPECT_EQ(canvas.At(2, 0), kindRows[top].dots[0].colour) << top;
        single.Paint(canvas, 0, 0);
        EXPECT_EQ(canvas.At(2, 0), kindRows[0].dots[0].colour) << top; // added last

        copy.Copy(single);
        EXPECT_EQ(copy.LayerCount, single.LayerCount + 1);
        copy.FitTo(20, 20);
        copy.Paint(second, 0, 0);
        canvas.Wipe();
        single.Paint(canvas, 0, 0);
        EXPECT_EQ(canvas.Pixels(), second.Pixels()) << top;
    }
}

TEST(XDisplayList, ALayerWithoutNumberLiesOnTop) {
    XDisplayList list;
    Canvas canvas;
    COLORREF colour = 0;
    for (const int layer : {7, 1000000000, -2, 0})
        list.AddFill({.Right = 1, .Bottom = 1, .Colour = ++colour}, layer);
    list.Paint(canvas, 0, 0); // soon done, however high the layers are
    EXPECT_EQ(canvas.At(0, 0), colour);
}

TEST(XDisplayList, TheActiveMaskChoosesWithoutAnUpdate) {
    XDisplayList list;
    for (const std::uint32_t mask : {0u, 4u, 12u})
        list.AddFill({.Right = 9, .Bottom = 9, .Colour = mask, .Mask = mask});
    Canvas canvas;
    for (const auto& [mask, colour] : {std::pair{0u, 0u}, {4u, 4u}, {12u, 12u}, {8u, 0u}, {0xFFu, 12u}}) {
        list.ActiveMask = mask;
        list.Paint(canvas, 0, 0);
        EXPECT_EQ(canvas.At(8, 8), colour) << mask;
    }
}

TEST(XDisplayList, TheBoxIsMeasuredFromRealSizes) {
    XDisplayList list;
    list.AddFill({.Right = all, .Bottom = all});
    list.AddImage({.Left = 3, .Top = all | anchorEnd, .Encoded = Encoded(10, 6, 0)});
    list.AddIcon({.Left = 2, .Top = 9}, MakeIcon(8, ~0u).Get());
    list.PadRight = 5;
    SIZE size{};
    list.Measure(size);
    EXPECT_EQ(size.cx, 18);
    EXPECT_EQ(size.cy, 17);
    list.AddText({.Left = 2, .Text = L"wider than the image\rtwo", .Size = 20});
    list.Measure(size);
    XFont font;
    Canvas canvas;
    font.Create(canvas, L"Tahoma", 20);
    EXPECT_EQ(size.cx, 2 + font.Width(nullptr, L"wider than the image") + 4 + 5);
    EXPECT_EQ(size.cy, 2 * font.LineHeight() + 1);
    list.FitTo(400, 8);
    list.Paint(canvas, 0, 0);
    EXPECT_EQ(list.Width, 400);
    EXPECT_EQ(list.Height, size.cy); // a box never becomes too small for its records
}

TEST(XDisplayList, GradientsReachTheirFourCornersAndAreRenderedOnce) {
    constexpr COLORREF corners[] = {0x0000FF, 0x00FF00, 0xFF0000, 0x808080};
    clDLGradient record{.Right = all, .Bottom = all, .TopLeft = corners[0], .TopRight = corners[1]};
    record.BottomLeft = corners[2];
    record.BottomRight = corners[3];
    XDisplayList list;
    list.AddGradient(record);
    const auto expectColours = [&](const Canvas& canvas, int height) {
        list.Paint(canvas, 0, 0);
        for (int y = 0; y < height; ++y) { // each row runs from its own left colour to its own right one
            const COLORREF left = ColourBetween(corners[0], corners[2], y, height);
            const COLORREF right = ColourBetween(corners[1], corners[3], y, height);
            for (const int x : {0, 25, 49})
                for (const int shift : {0, 8, 16})
                    EXPECT_NEAR(canvas.At(x, y) >> shift & 255,
                                ColourBetween(left, right, x, 50) >> shift & 255, 12)
                        << x << ',' << y;
        }
    };
    list.FitTo(50, 40);
    expectColours(Canvas(), 40);
    clDLGradient& gradient = list.Gradients[0];
    const HBITMAP cached = gradient.Cache.Handle();
    expectColours(Canvas(), 40);
    EXPECT_EQ(gradient.Cache.Handle(), cached);
    list.FitTo(50, 41);
    gradient.DropCache = 1;
    expectColours(Canvas(), 41);
    EXPECT_FALSE(gradient.Cache.IsValid());
}

TEST(XDisplayList, PicturesComeFromOneOfFourSources) {
    const XBuffer shared = Encoded(4, 4, 1), empty;
    XBitmap loose;
    loose.Bitmap.Reset(CreateBitmap(4, 4, 1, 32, std::vector<std::uint32_t>(16, 0x040000).data()));
    struct Row {
        const char* name;
        int encoded; // colour, 0 for none
        const XBuffer* shared;
        bool picture;
        HBITMAP borrowed;
        COLORREF colour;
        bool keeps; // the bitmap after the paint
    };
    for (const Row& row : {Row{"shared bytes first", 2, &shared, false, nullptr, 1, false},
                           Row{"empty shared bytes do not count", 2, &empty, false, nullptr, 2, false},
                           Row{"bytes before a bitmap", 2, nullptr, true, nullptr, 2, false},
                           Row{"a bitmap", 0, nullptr, true, nullptr, 3, true},
                           Row{"a borrowed bitmap before bytes", 2, nullptr, false, loose.Handle(), 4, true},
                           Row{"bytes that are no picture", -1, nullptr, false, nullptr, white, false},
                           Row{"no picture at all", 0, nullptr, false, nullptr, white, false}}) {
        clDLImage record{.SharedEncoded = row.shared};
        if (row.encoded != 0)
            record.Encoded = Encoded(4, 4, static_cast<COLORREF>(row.encoded));
        if (row.encoded < 0)
            record.Encoded.Bytes()[0] = 0;
        if (row.picture)
            record.Picture.Decode(Encoded(4, 4, 3).data, Encoded(4, 4, 3).size);
        XDisplayList list;
        list.AddImage(record, row.borrowed);
        Canvas canvas;
        list.Paint(canvas, 0, 0);
        EXPECT_EQ(canvas.At(3, 3), row.colour) << row.name;
        EXPECT_EQ(list.Images[0].Picture.IsValid(), row.keeps) << row.name;
        EXPECT_EQ(list.Width, row.colour == white ? 0 : 4) << row.name;
    }
}

TEST(XDisplayList, IconsAreCopiedBlendedAndSharedOnesMayGo) {
    XIcon half = MakeIcon(8, 0x80FF0000), blue = MakeIcon(8, 0xFF0000FF);
    XDisplayList list;
    list.AddIcon({}, half.Get());
    list.AddIcon({.Left = 10, .SharedIcon = blue.Get()});
    half.Reset(); // the list has its own
    Canvas canvas;
    list.Paint(canvas, 0, 0);
    EXPECT_NEAR(GetGValue(canvas.At(2, 2)), 127, 4);
    EXPECT_EQ(GetRValue(canvas.At(2, 2)), 255);
    EXPECT_EQ(canvas.At(12, 2), 0xFF0000u);
    blue.Reset();
    canvas.Wipe();
    list.Paint(canvas, 0, 0);
    EXPECT_EQ(canvas.At(12, 2), white);
}

TEST(XDisplayList, TextsAreAnchoredShortenedAndLeaveTheContextAlone) {
    Canvas canvas(200, 60);
    SetTextColor(canvas, 0x123456);
    SetBkMode(canvas, OPAQUE);
    const HGDIOBJ before = GetCurrentObject(canvas, OBJ_FONT);
    XFont font;
    font.Create(canvas, L"Tahoma", 13);
    const int width = font.Width(nullptr, L"Hill"), height = font.LineHeight();
    const int x = 100 - width / 2, y = 30 - height / 2;
    font.Destroy();
    constexpr int centre = anchorHalf | anchorCentre, end = all | anchorEnd;
    struct Row {
        clDLText text;
        RECT within;
    };
    for (const Row& row :
         {Row{{.Left = 2, .Top = 1, .Text = L"Hill"}, {2, 1, 2 + width, 1 + height}},
          Row{{.Left = centre, .Top = centre, .Text = L"Hill"}, {x, y, x + width, y + height}},
          Row{{.Left = end | anchorBack | 4, .Text = L"Hill"}, {196 - width, 0, 196, height}},
          Row{{.Top = end, .Text = L"Hill\r\nHi"}, {0, 60 - 2 * height, width, 60}},
          Row{{.Text = L"Hill Hill Hill Hill Hill", .MaxWidth = 60}, {0, 0, 60, height}}}) {
        XDisplayList list;
        list.AddText(row.text);
        list.FitTo(200, 60);
        canvas.Wipe();
        list.Paint(canvas, 0, 0);
        const RECT marked = canvas.Marked(), &within = row.within;
        EXPECT_TRUE(marked.left >= within.left && marked.top >= within.top)
            << marked.left << ',' << marked.top;
        EXPECT_TRUE(marked.right <= within.right && marked.bottom <= within.bottom)
            << marked.right << ',' << marked.bottom;
        EXPECT_GT(marked.right - marked.left, (within.right - within.left) * 2 / 3) << within.left;
        EXPECT_GT(marked.bottom - marked.top, (within.bottom - within.top) / 2) << within.top;
    }
    EXPECT_EQ(GetTextColor(canvas), 0x123456u);
    EXPECT_EQ(GetBkMode(canvas), OPAQUE);
    EXPECT_EQ(GetCurrentObject(canvas, OBJ_FONT), before);
}

TEST(XDisplayList, TextsOfOneListKeepTheirOwnLooks) {
    const auto paint = [](const clDLText& first, const clDLText& second) {
        XDisplayList list;
        list.AddText(first);
        list.AddText(second);
        Canvas canvas(100, 30);
        list.Paint(canvas, 0, 0);
        return canvas.Pixels();
    };
    const clDLText none, plain{.Text = L"Hill"}, blank{.Text = L" "};
    for (const clDLText& look :
         {clDLText{.Text = L"Hill", .Colour = 255}, clDLText{.Text = L"Hill", .Bold = 1},
          clDLText{.Text = L"Hill", .Italic = 1}, clDLText{.Text = L"Hill", .Underline = 1},
          clDLText{.Text = L"Hill", .Size = 20}}) {
        EXPECT_NE(paint(none, look), paint(none, plain)) << look.Size;
        EXPECT_EQ(paint(blank, look), paint(look, none)) << look.Size; // whatever font came before
    }
    EXPECT_EQ(paint({.Text = L"Hill", .Size = 13}, none), paint(plain, none));
}

// Every kind, with all that is made for the length of a paint.
void AddAll(XDisplayList& list, const XBuffer& shared, HICON icon) {
    for (const KindRow& row : kindRows)
        row.add(list, 0);
    list.AddGradient({.Right = all, .Bottom = all, .TopLeft = 1, .DropCache = 1});
    list.AddImage({.SharedEncoded = &shared});
    list.AddIcon({.SharedIcon = icon});
    list.AddText({.Text = L"text\twith tab\rand line", .Bold = 1, .MaxWidth = 30});
    list.AddText({.Left = 5, .Text = L"another", .FontName = L"Arial", .Size = 17});
    list.FitTo(20, 20);
}

// How many more GDI objects this process may have: where the system doesn't count, this does.
std::size_t TakeAllGdi(std::vector<XGdiObject>& taken) {
    while (HBRUSH brush = CreateSolidBrush(0))
        taken.emplace_back(brush);
    return taken.size();
}

TEST(XDisplayList, PaintingAndRebuildingLeaksNothing) {
    const XBuffer shared = Encoded(5, 5, 1);
    const XIcon icon = MakeIcon(8, 0xFF00FF00);
    Canvas canvas;
    XDisplayList list, copy;
    std::size_t first[3]{};
    for (int round = 0; round <= 200; ++round) {
        list.Clear();
        AddAll(list, shared, icon.Get());
        list.Paint(canvas, 0, 0);
        if (round % 20 == 0)
            copy.Copy(list);
        if (round != 0 && round != 200)
            continue;
        std::vector<XGdiObject> taken;
        const std::size_t now[] = {GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS),
                                   GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), TakeAllGdi(taken)};
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(now[i], round ? first[i] : now[i]) << i;
        std::copy_n(now, 3, first);
        EXPECT_GT(now[2], 1000u);
    }
}

TEST(XDisplayList, PaintsOnWithoutObjectsAndInAnySize) {
    const XBuffer shared = Encoded(5, 5, 1);
    const XIcon icon = MakeIcon(8, 0xFF00FF00);
    Canvas canvas;
    XDisplayList list, copy;
    AddAll(list, shared, icon.Get());
    {
        std::vector<XGdiObject> taken; // fonts, brushes, pens and bitmaps all fail now
        ASSERT_GT(TakeAllGdi(taken), 1000u);
        list.Paint(canvas, 0, 0);
        copy.Copy(list);
        copy.Paint(canvas, 0, 0);
        EXPECT_EQ(canvas.At(50, 50), white);
    }
    constexpr int most = 0x7FFFFFFF;
    for (const SIZE& size : {SIZE{0, 0}, {-5, -9}, {most, most}, {most, 1}, {1, -most}, {200000, 200000}}) {
        list.FitTo(size.cx, size.cy);
        list.Paint(canvas, 0, 0);
        list.Paint(canvas, most, -most);
        list.Paint(nullptr, 0, 0);
    }
    canvas.Wipe();
    list.Clear();
    kindRows[2].add(list, 0);
    list.FitTo(20, 20);
    list.Paint(canvas, 0, 0);
    EXPECT_EQ(canvas.At(12, 5), 13u); // as ever
}
} // namespace
