#include "project/style_library.h"

namespace orv {

namespace {

QString Folder(const UstFolders& folders, const char* sub) {
    return QString::fromStdString(folders.StyleFolder(sub).string());
}

}  // namespace

CStyleLibraries::CStyleLibraries(const UstFolders& folders, bool korean)
    : m_text(Folder(folders, "TEXT"), "style.sttxt",
             [korean](UstText& s, const QString& f) { return MakeTextThumbnail(s, f, korean); }),
      m_shape(Folder(folders, "SHAPE"), "style.stshape",
              [](UstShape& s, const QString& f) { return MakeShapeThumbnail(s, f); }),
      m_color(Folder(folders, "COLOR"), "style.stcolor",
              [](UstColor& s, const QString& f) { return MakeColorThumbnail(s, f); }),
      m_backgrounds(Folder(folders, "BACKPIC")),
      m_pictures(Folder(folders, "PICTURE")) {}

void CStyleLibraries::Load() {
    m_text.Load();
    m_shape.Load();
    m_color.Load();
    m_backgrounds.Scan();
    m_pictures.Scan();
}

int CStyleLibraries::Count(int library) const {
    return Valid(library) ? With(*this, library, [](const auto& lib) { return lib.Count(); }) : 0;
}

QString CStyleLibraries::ThumbPath(int library, int index) const {
    if (!Valid(library)) return {};
    return With(*this, library, [index](const auto& lib) { return lib.ThumbPath(index); });
}

bool CStyleLibraries::Delete(int library, int index) {
    return Valid(library) && With(*this, library, [index](auto& lib) { return lib.Delete(index); });
}

UstText TextStyleOf(const UstCharAttr& character, const UstEffect& effect, const UstAttr& attr) {
    UstText s{};
    s.character = character;
    s.effect = effect;
    s.attr = attr;
    return s;
}

UstShape ShapeStyleOf(const UstEffect& effect, const UstAttr& attr) {
    UstShape s{};
    s.effect = effect;
    s.attr = attr;
    return s;
}

UstColor ColorStyleOf(const UstFill& fill) {
    UstColor s{};
    s.fill = fill;
    return s;
}

}  // namespace orv
