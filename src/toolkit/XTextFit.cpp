// Shortening of texts and tab stops.
#include "toolkit/XTextFit.h"

#include <algorithm>

namespace {
constexpr const wchar_t* dots = L"...";

// A character that joins the one before, or completes a pair, can make a head narrower than the
// one that ends before it. So the search by halves is followed by a look at a few longer heads.
constexpr int lookAhead = 8;
} // namespace

bool FitText(XString& text, int maxWidth, const std::function<int(const XString&)>& measure) {
    if (text.Count() > longestFittedText)
        text.SetLength(longestFittedText);
    if (text.IsEmpty() || measure(text) < maxWidth)
        return false;

    const auto fits = [&](int kept) { return measure(text.Left(kept) + dots) < maxWidth; };
    int kept = 0;
    for (int tooLong = text.Count(); tooLong - kept > 1;) {
        const int middle = (kept + tooLong) / 2;
        (fits(middle) ? kept : tooLong) = middle;
    }
    int longer = std::min(kept + lookAhead, text.Count() - 1);
    while (longer > kept && !fits(longer))
        --longer;
    kept = longer;

    text.SetLength(kept);
    if (kept > 0)
        text.Append(dots);
    return true;
}

std::vector<std::int32_t> TabStops(int averageWidth, int tabOrigin, int desktopWidth) {
    const std::int64_t step = std::int64_t{8} * averageWidth;
    std::int64_t origin = tabOrigin;
    if (origin > step) // as many steps back as bring it to 1..step
        origin = (origin - 1) % step + 1;
    std::vector<std::int32_t> stops(static_cast<std::size_t>(std::max(desktopWidth / averageWidth + 10, 0)));
    for (std::size_t i = 0; i < stops.size(); ++i)
        stops[i] = static_cast<std::int32_t>((static_cast<std::int64_t>(i) + 1) * step - origin);
    return stops;
}
