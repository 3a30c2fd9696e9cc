#include "render/font_service.h"

#include <fontconfig/fontconfig.h>

#include <QString>

namespace orv {

std::u16string DefaultGuiFaceName() {
    std::u16string face = u"DejaVu Sans";
    if (!FcInit()) return face;
    FcPattern* pattern = FcNameParse(reinterpret_cast<const FcChar8*>("sans-serif"));
    if (!pattern) return face;
    FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result = FcResultNoMatch;
    FcPattern* match = FcFontMatch(nullptr, pattern, &result);
    if (match) {
        FcChar8* family = nullptr;
        if (FcPatternGetString(match, FC_FAMILY, 0, &family) == FcResultMatch && family)
            face = QString::fromUtf8(reinterpret_cast<const char*>(family)).toStdU16String();
        FcPatternDestroy(match);
    }
    FcPatternDestroy(pattern);
    return face;
}

}  // namespace orv
