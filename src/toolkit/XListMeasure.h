// Collects the size that the records of a display list need, from their places and real sizes.
#pragma once

#include "toolkit/XCoordinate.h"

// Records are measured against an empty box: what is anchored to its far edge adds its offset only.
class XListMeasure {
public:
    // A fill, box, frame, gradient or line.
    template <class Record>
    void AddEdges(const Record& record) noexcept {
        const XEdges edges = ResolveEdges(record, XLayoutBox());
        Raise(edges.Left, edges.Top);
        Raise(edges.Right, edges.Bottom);
    }
    // An image or icon; sizes in pixels.
    template <class Record>
    void AddSized(const Record& record, std::int32_t width, std::int32_t height) noexcept {
        AddPlaced(record.Left, record.Top, width, height, 0, 0);
    }
    // A text has some room behind and below it.
    template <class Record>
    void AddText(const Record& record, std::int32_t width, std::int32_t height) noexcept {
        AddPlaced(record.Left, record.Top, width, height, 4, 1);
    }
    void Finish(std::int32_t padRight, std::int32_t padBottom, std::int32_t minWidth,
                std::int32_t minHeight) noexcept;

    std::int32_t Width = 0, Height = 0; // pixels

private:
    void Raise(std::int32_t x, std::int32_t y) noexcept;
    void AddPlaced(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height,
                   std::int32_t behind, std::int32_t below) noexcept;
};
