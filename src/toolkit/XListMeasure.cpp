// Places never count as less than 0: a record that ends at the far edge needs its size all the same.
#include "toolkit/XListMeasure.h"

#include <algorithm>

void XListMeasure::Raise(std::int32_t x, std::int32_t y) noexcept {
    Width = std::max(Width, x);
    Height = std::max(Height, y);
}

void XListMeasure::AddPlaced(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height,
                             std::int32_t behind, std::int32_t below) noexcept {
    const std::int32_t x = std::max(XLayoutBox().Across(left, width), 0);
    const std::int32_t y = std::max(XLayoutBox().Down(top, height), 0);
    Raise(WrapAdd(WrapAdd(x, width), behind), WrapAdd(WrapAdd(y, height), below));
}

void XListMeasure::Finish(std::int32_t padRight, std::int32_t padBottom, std::int32_t minWidth,
                          std::int32_t minHeight) noexcept {
    Width = std::max(WrapAdd(Width, padRight), minWidth);
    Height = std::max(WrapAdd(Height, padBottom), minHeight);
}
