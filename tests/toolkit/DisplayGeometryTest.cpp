// What display lists compute before they draw: places, colours, sizes, shortened texts.
#include "toolkit/XGradientColours.h"
#include "toolkit/XIconFile.h"
#include "toolkit/XListMeasure.h"
#include "toolkit/XTextFit.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {
struct PlaceRow {
    int coordinate, size, extent, origin, expected;
};
constexpr PlaceRow placeRows[] = {
    {7, 50, 100, 3, 10},
    {0x120002, 50, 100, 0, 98},
    {0x90000, 10, 101, 0, 45},
    {0x160004, 10, 100, 0, 86},
    {0x30000, 10, 101, 1, 152}, // half and far add up
    {0xE0000, 11, 100, 0, 84},  // the half of 11 and the whole of it
    {0x10005, 0, -7, 0, 2},     // halves are truncated towards 0
    {0x90000, -7, 0, 0, 3},
    {0x100000, 0, 100, 20, 20},
    {0x10FFFF, 0, 0, 0, -0xFFFF},
    {-1, 0, 0, 0, 0x1F0001}, // all flags are set in it
    {0x20001, 0, 0x7FFFFFFF, 0, -0x7FFFFFFF - 1},
    {0x40000, -0x7FFFFFFF - 1, 0, 0, -0x7FFFFFFF - 1},
};
TEST(DisplayGeometry, CoordinatesResolve) {
    for (const PlaceRow& row : placeRows)
        EXPECT_EQ(ResolveCoordinate(row.coordinate, row.size, row.extent, row.origin), row.expected)
            << std::hex << row.coordinate << " of " << std::dec << row.size << " in " << row.extent;
}

TEST(DisplayGeometry, ColoursMoveByChannel) {
    struct Row {
        std::uint32_t from, to;
        int step, span;
        std::uint32_t expected;
    };
    for (const Row& row :
         {Row{0x00FF00, 0xFF00FF, 0, 10, 0x00FF00}, Row{0x00FF00, 0xFF00FF, 10, 10, 0xFF00FF},
          Row{0x00FF00, 0xFF00FF, 1, 2, 0x7F807F}, // a falling channel truncates its change, too
          Row{0, 0x030201, 1, 2, 0x010100}, Row{0xFF000000, 0xFF000000, 0, 1, 0},
          Row{0, 0xFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF, 0xFFFFFF}})
        EXPECT_EQ(ColourBetween(row.from, row.to, row.step, row.span), row.expected)
            << row.step << '/' << row.span;
}

// One character after the other, as the result is defined.
bool FitSlowly(XString& text, int maxWidth, const std::function<int(const XString&)>& measure) {
    text = text.Left(3000);
    for (int kept = text.Count(); kept > 0; --kept) {
        const bool dropped = kept < text.Count();
        const XString shown = dropped ? text.Left(kept) + L"..." : text;
        if (measure(shown) < maxWidth) {
            text = shown;
            return dropped;
        }
    }
    const bool had = !text.IsEmpty();
    text = L"";
    return had;
}

struct Script {
    const char* name;
    int (*width)(const XString&);
};
constexpr Script scripts[] = {
    {"equal characters", [](const XString& text) { return 7 * text.Count(); }},
    {"marks without a width",
     [](const XString& text) {
         int width = 0;
         for (int i = 1; i <= text.Count(); ++i)
             width += text.CharAt(i) == L'a' || text.CharAt(i) == L'd' ? 0 : text.CharAt(i) % 16;
         return width;
     }},
    {"a last character that is wider before it joins",
     [](const XString& text) {
         const int last = text.CharAt(text.Count() - 3) == L'b' ? 40 : 0;
         return 6 * text.Count() + last;
     }},
};
TEST(DisplayGeometry, ShorteningFindsTheLongestHead) {
    for (const Script& script : scripts)
        for (const wchar_t* text : {L"", L"a", L"abc", L"abcdabcdabcdefabdddd", L"bbbbbb abababab", L"...."})
            for (int maxWidth = -1; maxWidth < 180; ++maxWidth) {
                XString fast(text), slow(text);
                EXPECT_EQ(FitText(fast, maxWidth, script.width), FitSlowly(slow, maxWidth, script.width))
                    << script.name << ' ' << maxWidth;
                EXPECT_EQ(fast, slow) << script.name << ' ' << maxWidth;
            }
}

TEST(DisplayGeometry, LongTextsAreCutFirstAndShortenedInFewSteps) {
    struct Row {
        int characters, maxWidth, left;
        bool dropped;
    };
    for (const Row& row :
         {Row{4000, 100000, 3000, false}, Row{3000, 3001, 3000, false}, Row{3000, 3000, 2999, true},
          Row{4000, 50, 49, true}, Row{4000, 4, 0, true}, Row{4000, 5, 4, true}}) {
        XString text(L"x");
        text.SetLength(row.characters);
        int measured = 0;
        EXPECT_EQ(
            FitText(text, row.maxWidth, [&](const XString& shown) { return ++measured, shown.Count(); }),
            row.dropped)
            << row.maxWidth;
        EXPECT_EQ(text.Count(), row.left) << row.maxWidth;
        EXPECT_LE(measured, 24) << row.maxWidth;
    }
}

TEST(DisplayGeometry, TabStopsCountFromTheOrigin) {
    for (const int average : {1, 5, 13})
        for (const int origin : {-20, 0, 1, 39, 40, 41, 80, 81, 1000, 0x90000}) {
            int reduced = origin;
            while (reduced > average * 8)
                reduced -= average * 8;
            const std::vector<std::int32_t> stops = TabStops(average, origin, 100);
            ASSERT_EQ(stops.size(), 100u / static_cast<unsigned>(average) + 10);
            EXPECT_EQ(stops[0], average * 8 - reduced) << average << ' ' << origin;
            EXPECT_EQ(stops[9], average * 80 - reduced) << average << ' ' << origin;
        }
}

struct Placed {
    std::int32_t Left, Top, Right, Bottom;
};
struct MeasureRow {
    Placed edges, image, text; // sized by Right and Bottom
    int padRight, padBottom, minWidth, minHeight, width, height;
};
constexpr MeasureRow measureRows[] = {
    {{0, 0, 0x20000, 0x20000}, {}, {}, 0, 0, 0, 0, 4, 1}, // the room of the empty text alone
    {{0, 0, 0x2000A, 0x120005}, {}, {}, 0, 0, 0, 0, 10, 1},
    {{60, 70, 50, 40}, {}, {}, 3, 4, 0, 0, 63, 74},
    {{}, {5, 6, 16, 16}, {}, 0, 0, 0, 0, 21, 22},
    {{}, {0x160004, 0x90000, 16, 17}, {}, 0, 0, 0, 0, 16, 17},
    {{}, {}, {3, 2, 100, 13}, 0, 0, 0, 0, 107, 16},
    {{}, {}, {3, 2, 100, 13}, 1, 1, 108, 18, 108, 18},
    {{}, {}, {3, 2, 100, 13}, -50, 0, 0, 0, 57, 16},
    {{}, {}, {0x20000, 0x7FFF, 0x7FFFFFFF, 1}, 0, 0, 0, 0, 0, 0x8001}, // wraps, and adds nothing
};
TEST(DisplayGeometry, ListsMeasureTheirRecords) {
    for (const MeasureRow& row : measureRows) {
        XListMeasure measure;
        measure.AddEdges(row.edges);
        measure.AddSized(row.image, row.image.Right, row.image.Bottom);
        measure.AddText(row.text, row.text.Right, row.text.Bottom);
        measure.Finish(row.padRight, row.padBottom, row.minWidth, row.minHeight);
        EXPECT_EQ(measure.Width, row.width) << &row - measureRows;
        EXPECT_EQ(measure.Height, row.height) << &row - measureRows;
    }
}

TEST(DisplayGeometry, IconFilesMustStayWithinTheirBytes) {
    // One picture of 2 by 2 with 32 bits: 40 bytes of head, 16 of colours, 8 of mask.
    std::string sound("\0\0\1\0\1\0\2\2\0\0\1\0 \0@\0\0\0\x16\0\0\0(\0\0\0\2\0\0\0\4\0\0\0\1\0 \0", 38);
    sound.resize(22 + 64);
    struct Row {
        const char* name;
        std::size_t at;
        std::string with;
        bool broken;
    };
    const Row rows[] = {
        {"sound", 0, "", false},
        {"no icon", 0, "B", false},
        {"a cursor", 2, std::string(1, 2), false},
        {"another kind", 2, std::string(1, 3), true},
        {"no pictures", 4, std::string(1, 0), true},
        {"more than there are", 4, "\xFF\xFF", true},
        {"starts behind the end", 18, "\x17", true},
        {"longer than the file", 14, "A", true},
        {"shorter than its head", 14, "'", true},
        {"as large as can be", 14, "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", true},
        {"a PNG is not looked into", 22, "\x89PNG", false},
        {"another head", 22, "\x10", true},
        {"wider than its bytes", 26, std::string(1, 3), true},
        {"higher than its bytes", 30, std::string(1, 6), true},
        {"sides that multiply to nothing", 26, std::string("\0\0\0\x80\0\0\0\x80", 8), true},
        {"no depth", 36, std::string(1, 0), true},
        {"a palette that is not there", 36, std::string(1, 8), true},
    };
    for (const Row& row : rows) {
        std::string bytes = sound;
        bytes.replace(row.at, row.with.size(), row.with);
        const std::vector<unsigned char> exact(bytes.begin(), bytes.end());
        EXPECT_EQ(IsBrokenIconFile(exact.data(), exact.size()), row.broken) << row.name;
    }
    for (std::size_t size = 0; size < sound.size(); ++size) { // read nowhere behind the end
        const std::vector<unsigned char> cut(sound.begin(),
                                             sound.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_EQ(IsBrokenIconFile(cut.data(), cut.size()), size >= 6) << size;
    }
}
} // namespace
