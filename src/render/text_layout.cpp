#include "render/text_layout.h"

#include <algorithm>
#include <cmath>

#include "render/pixels.h"
#include "render/text_measure.h"

namespace orv {

namespace {

// What one line contributes, gathered while its characters are placed.
struct UstLineScan {
    int first = 0, last = 0;
    int maxSize = 0;
    float minTop = 0, maxBottom = 0;
    std::vector<float> tops;  // each character's top offset from the baseline
};

// The running state across lines.
struct UstLayoutRun {
    float originX, originY, xScale, yScale;
    float penX = 0, left = 0, right = 0;
    float runningTop = 0, textTop = 0, textBottom = 0, baseline = 0;
};

UstLineScan PlaceLine(UstLayoutRun& run, UstTextLayout& out, const UstCharAttr* chars, int first,
                      int count) {
    UstLineScan line;
    line.first = first;
    run.penX = run.originX;
    int i = first;
    for (; i < count; ++i) {
        const UstCharAttr& c = chars[i];
        const float b = static_cast<float>(c.nOriginX) * run.xScale;
        if (b < 0 && run.penX + b < run.originX)
            run.left = std::min(run.left, std::trunc(run.penX + b));
        const float x = run.penX + b;
        out.pos[i].x = x;
        if (c.nChar != CHAR_LINE_END)
            run.right = std::max(run.right, x + static_cast<float>(c.nBoxWidth) * run.xScale);
        run.penX += static_cast<float>(c.metric.nSpacing) * run.xScale *
                        (static_cast<float>(c.metric.nWidth) / 100.0f) +
                    static_cast<float>(c.nAdvance) * run.xScale;
        const float top = static_cast<float>(-c.nOriginY) * run.yScale;
        const float bottom = static_cast<float>(c.nBoxHeight - c.nOriginY) * run.yScale;
        if (i == first || c.font.nSize > line.maxSize) line.maxSize = c.font.nSize;
        line.minTop = i == first ? top : std::min(line.minTop, top);
        line.maxBottom = i == first ? bottom : std::max(line.maxBottom, bottom);
        line.tops.push_back(top);
        if (c.nChar == CHAR_LINE_END) break;
    }
    line.last = std::min(i, count - 1);
    return line;
}

}  // namespace

void LayoutText(UstTextLayout& out, float originX, float originY, UstRect& rect,
                const UstCharAttr* chars, int count, float xScale, float yScale) {
    out = {};
    if (!chars || count <= 0) return;
    out.pos.resize(static_cast<size_t>(count) + 1);
    UstLayoutRun run{originX, originY, xScale, yScale};
    run.left = originX;
    float lastH = 0, lastA = 0, lastGap = 0;
    for (int first = 0; first < count; ++out.nLines) {
        const UstLineScan line = PlaceLine(run, out, chars, first, count);
        const UstLineMetric metric = LineMetricAt(line.maxSize);
        const float A = metric.ascent * yScale;
        const auto D = static_cast<float>(metric.descent);
        const float H = yScale * PT_TO_PX * static_cast<float>(line.maxSize);
        const auto L = static_cast<float>(chars[line.last].metric.nLeading);
        const bool isFirst = out.nLines == 0, isLast = line.last == count - 1;
        run.baseline = isFirst ? originY : run.runningTop + A;
        if (isFirst) run.textTop = originY + std::min(-A, line.minTop);
        for (int i = line.first; i <= line.last; ++i)
            out.pos[i].y = run.baseline + line.tops[static_cast<size_t>(i - line.first)];
        const float gap = (D + L) * yScale;
        float height = 0;
        if (!isLast) {
            if (isFirst) {
                run.runningTop = originY + H - A + gap;
                height = run.runningTop - run.textTop;
            } else {
                height = gap + H;
                run.runningTop += height;
            }
        } else {
            height = std::max(H - A, line.maxBottom) + A;
            run.textBottom = (isFirst ? run.textTop : run.runningTop) + height;
        }
        out.lineHeight.push_back(height);
        out.lineRange.emplace_back(line.first, line.last);
        lastH = H, lastA = A, lastGap = gap;
        first = line.last + 1;
    }
    UstCharPos& end = out.pos[static_cast<size_t>(count)];
    if (chars[count - 1].nChar == CHAR_LINE_END) {
        end = {originX, run.baseline + lastH - lastA + lastGap};
    } else {
        end = {run.penX, out.pos[static_cast<size_t>(count) - 1].y};
    }
    rect = {RoundToInt(run.left), RoundToInt(run.textTop), RoundToInt(run.right),
            RoundToInt(run.textBottom)};
}

}  // namespace orv
