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
    switch (library) {
        case STYLE_TEXT:
            return m_text.Count();
        case STYLE_SHAPE:
            return m_shape.Count();
        case STYLE_COLOR:
            return m_color.Count();
        case STYLE_BACKPIC:
            return m_backgrounds.Count();
        case STYLE_PICTURE:
            return m_pictures.Count();
        default:
            return 0;
    }
}

QString CStyleLibraries::ThumbPath(int library, int index) const {
    switch (library) {
        case STYLE_TEXT:
            return m_text.ThumbPath(index);
        case STYLE_SHAPE:
            return m_shape.ThumbPath(index);
        case STYLE_COLOR:
            return m_color.ThumbPath(index);
        case STYLE_BACKPIC:
            return m_backgrounds.ThumbPath(index);
        case STYLE_PICTURE:
            return m_pictures.ThumbPath(index);
        default:
            return {};
    }
}

bool CStyleLibraries::Delete(int library, int index) {
    switch (library) {
        case STYLE_TEXT:
            return m_text.Delete(index);
        case STYLE_SHAPE:
            return m_shape.Delete(index);
        case STYLE_COLOR:
            return m_color.Delete(index);
        case STYLE_BACKPIC:
            return m_backgrounds.Delete(index);
        case STYLE_PICTURE:
            return m_pictures.Delete(index);
        default:
            return false;
    }
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
