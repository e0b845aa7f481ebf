// Fonts and bitmaps by themselves.
#include "Canvas.h"
#include "toolkit/XFont.h"

#include <gtest/gtest.h>
#include <objbase.h>

#include <string>

namespace {
TEST(XFont, FacesThatCannotBeBecomeTahoma) {
    struct Row {
        const wchar_t *name, *face;
    };
    for (const Row& row : {Row{L"Arial", L"Arial"}, Row{L"", L"Tahoma"}, Row{nullptr, L"Tahoma"},
                           Row{L"1234567890123456789012345678901", L"1234567890123456789012345678901"},
                           Row{L"12345678901234567890123456789012", L"Tahoma"}}) {
        XFont font;
        font.Create(nullptr, row.name, 21, 0, true, true);
        LOGFONTW made{};
        ASSERT_NE(GetObjectW(font.Handle(), sizeof made, &made), 0);
        EXPECT_EQ(XString(made.lfFaceName), XString(row.face));
        EXPECT_EQ(made.lfHeight, 21);
        EXPECT_EQ(made.lfWeight, 700);
        EXPECT_EQ(made.lfItalic, 1);
        EXPECT_EQ(made.lfUnderline, 0);
    }
}

TEST(XFont, MeasuresOnlyWhereItIsSelected) {
    const Canvas canvas;
    XFont font, none;
    XString text(L"some text");
    EXPECT_EQ(none.Width(canvas, L"text") + none.Height(L"text"), 0);
    EXPECT_FALSE(none.FitWidth(1, text));
    none.TextOut(0, 0, L"text");
    font.Create(nullptr, L"Tahoma", 13);
    EXPECT_EQ(font.Width(nullptr, L"text") + font.Height(L"text") + font.LineHeight(), 0);

    const int width = font.Width(canvas, L"text");
    EXPECT_GT(width, 10);
    EXPECT_EQ(font.Width(nullptr, L"text"), width); // it stays selected
    EXPECT_EQ(font.Width(nullptr, L"t\rtext\r\nex", true), width);
    EXPECT_EQ(font.Height(L"a\rb"), font.LineHeight());
    font.LineGap = 3;
    EXPECT_EQ(font.Height(L"a\r\nb\r", true), 2 * font.LineHeight() + 3);
    EXPECT_EQ(font.Height(L"", true), 0);
    const int average = font.Width(nullptr, L"abcdefABCDEF") / 12;
    const int ends = font.Width(nullptr, L"t");
    EXPECT_EQ(font.Width(nullptr, L"t\tt", true, average * 8 + 5), average * 8 - 5 + ends);
    EXPECT_TRUE(font.FitWidth(font.Width(nullptr, L"some text"), text));
    EXPECT_TRUE(text.StartsWith(L"some ") && text.Right(3) == L"...") << testing::PrintToString(text);
}

TEST(XFont, OpaqueTextsCoverTheirBackground) {
    const Canvas canvas;
    SetBkColor(canvas, 0x00FF00);
    for (const int transparent : {1, 0}) {
        XFont font;
        font.Create(nullptr, L"Tahoma", 13);
        font.Transparent = transparent;
        font.Select(canvas);
        font.TextOut(0, 0, L"text");
        font.Select(canvas); // again: the context's own state must not get lost
        font.Destroy();
        EXPECT_EQ(canvas.Count(0x00FF00) > 50, transparent == 0);
        EXPECT_EQ(GetBkMode(canvas), OPAQUE);
    }
}

TEST(XBitmap, DecodesPicturesAndRefusesTheRest) {
    const HRESULT com = CoInitialize(nullptr);
    const auto bytes = [](const std::vector<unsigned char>& v) { return std::string(v.begin(), v.end()); };
    const std::string bmp = bytes(EncodedBitmap(40, 30, 0x0000FF));
    const auto patched = [&](std::size_t at, const std::string& with) {
        std::string copy = bmp;
        return copy.replace(at, with.size(), with);
    };
    struct Row {
        const char* name;
        std::string bytes;
        int width, height; // -1: any, so long as it comes back
    };
    const std::string gif("GIF89a\1\0\1\0\x80\0\0\xFF\0\0\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;", 35);
    const std::string most("\xFF\xFF\xFF\x7F", 4), least("\0\0\0\x80", 4);
    const Row rows[] = {
        {"bitmap", bmp, 40, 30},
        {"gif", gif, 1, 1},
        {"nothing", "", 0, 0},
        {"seven bytes", bmp.substr(0, 7), 0, 0},
        {"head alone", bmp.substr(0, 14), -1, -1},
        {"text", "no picture at all, but long enough", 0, 0},
        {"half a gif", gif.substr(0, 20), -1, -1},
        {"half a bitmap", bmp.substr(0, bmp.size() / 2), -1, -1},
        {"pixels behind the end", patched(10, most), -1, -1},
        {"widest", patched(18, most), -1, -1},
        {"highest", patched(22, most), -1, -1},
        {"both", patched(18, most + most), -1, -1},
        {"least", patched(18, least + least), -1, -1},
        {"no depth", patched(28, std::string(2, '\0')), -1, -1},
        {"jpeg's start", "\xFF\xD8\xFF\xE0" + bmp, 0, 0},
        {"png's start", "\x89PNG\r\n\x1A\n" + bmp, 0, 0},
        {"an icon of pictures that are not there", std::string("\0\0\1\0\xFF\xFF", 6) + bmp, 0, 0},
        {"an icon that points behind its end",
         std::string("\0\0\1\0\1\0\x10\x10\0\0\1\0 \0\xFF\xFF\xFF\x7F\x16\0\0\0", 22) + bmp, 0, 0},
    };
    XBitmap bitmap;
    for (const Row& row : rows) {
        bitmap.Create(nullptr, 3, 3);
        bitmap.Decode(row.bytes.data(), row.bytes.size());
        if (row.width >= 0) {
            EXPECT_EQ(bitmap.Width(), row.width) << row.name;
            EXPECT_EQ(bitmap.Height(), row.height) << row.name;
        }
    }
    bitmap.Decode(gif.data(), gif.size());
    const Canvas canvas;
    bitmap.Blit(canvas, 2, 2);
    EXPECT_EQ(canvas.At(2, 2), 0x0000FFu);
    if (SUCCEEDED(com))
        CoUninitialize();
}

TEST(XBitmap, CopiesAndBlitsParts) {
    XBitmap made, copy, fromHandle;
    made.Create(nullptr, 8, 8);
    FillRect(made.Dc, std::data({RECT{0, 0, 8, 8}}), static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    SetPixel(made.Dc, 5, 6, 0x0000FF);
    copy.Copy(made);
    made.Free();
    EXPECT_EQ(made.Width() + made.Height(), 0);
    XBitmap moved(std::move(copy));
    EXPECT_FALSE(copy.IsValid());
    const Canvas canvas;
    moved.Blit(canvas, 1, 1, 2, 2, 5, 6);
    EXPECT_EQ(canvas.At(1, 1), 0x0000FFu);
    EXPECT_EQ(canvas.Count(0), 3);
    moved.Blit(canvas, 20, 20);
    EXPECT_EQ(canvas.Count(0), 3 + 63);
    for (const SIZE& size : {SIZE{0, 5}, {5, 0}, {-5, 5}}) {
        moved.Create(nullptr, size.cx, size.cy);
        EXPECT_FALSE(moved.IsValid());
    }
    for (const HBITMAP handle : {HBITMAP{nullptr}, canvas.Handle()}) { // selected elsewhere
        fromHandle.Copy(handle);
        EXPECT_FALSE(fromHandle.IsValid());
    }
    fromHandle.LoadResource(64000);
    EXPECT_FALSE(fromHandle.IsValid());
    fromHandle.LoadFile(L"no such file.bmp");
    EXPECT_FALSE(fromHandle.IsValid());
}
} // namespace
