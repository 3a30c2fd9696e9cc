#pragma once
// A whole look record as the editor's defaults hold it, with the face and
// size given: for objects that take one look block, like timers.

#include <QString>

#include "render/fixed_string.h"
#include "render/text_records.h"

namespace orv::test {

inline UstDefaultAttr MakeLook(const QString& face, int size) {
    UstDefaultAttr a{};
    a.attr = MakeDefaultAttr();
    a.effect = MakeDefaultEffect();
    a.font.nCharSet = 1;
    a.font.nSize = size;
    QStringToFixed(face, &a.font.szFace);
    a.metric.nWidth = 100;
    return a;
}

}  // namespace orv::test
