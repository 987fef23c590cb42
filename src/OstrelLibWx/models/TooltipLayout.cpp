#include "models/TooltipLayout.h"

#include <algorithm>

namespace Ostrel::Wx {

Array<String> breakTooltipLines(const String& text, int maximumWidth, const MeasureText& measure) {
    Array<String> lines;
    if (text.isEmpty()) {
        return lines;
    }
    std::size_t lineStart = 0;
    std::size_t lastSpace = String::npos;
    const auto endLine = [&](std::size_t end) {
        lines.push_back(text.getSubstr(lineStart, end - lineStart));
        lineStart = end + 1;
        lastSpace = String::npos;
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\n') {
            endLine(i);
        } else if (text[i] == L' ') {
            if (lastSpace != String::npos && measure(text.getSubstr(lineStart, i - lineStart)) > maximumWidth) {
                endLine(lastSpace);
            }
            lastSpace = i;
        }
    }
    endLine(text.size());
    return lines;
}

Pixel computeTooltipSize(ArrayView<const Pixel> lineExtents) {
    Pixel size;
    for (const Pixel& extent : lineExtents) {
        size = {std::max(size.x, extent.x), size.y + extent.y};
    }
    return size + Pixel{2 * TOOLTIP_MARGIN_PX, 2 * TOOLTIP_MARGIN_PX};
}

} // namespace Ostrel::Wx
