#pragma once
// The five style libraries of the machine, shared by all projects: text,
// shape and colour styles in list files, backgrounds and pictures as
// folders. Owned by the main frame and passed to whoever needs them.

#include "project/folders.h"
#include "project/picture_library.h"
#include "project/style_list.h"

namespace orv {

enum EStyleLibrary {
    STYLE_TEXT = 0,
    STYLE_SHAPE = 1,
    STYLE_COLOR = 2,
    STYLE_BACKPIC = 3,
    STYLE_PICTURE = 4,
    STYLE_LIBRARY_COUNT = 5
};

class CStyleLibraries {
public:
    // korean: the interface language, which the text thumbnails show.
    CStyleLibraries(const UstFolders& folders, bool korean);

    // Reads the three lists and scans the two folders.
    void Load();

    CStyleList<UstText>& Text() { return m_text; }
    CStyleList<UstShape>& Shape() { return m_shape; }
    CStyleList<UstColor>& Color() { return m_color; }
    CPictureLibrary& Backgrounds() { return m_backgrounds; }
    CPictureLibrary& Pictures() { return m_pictures; }

    int Count(int library) const;
    // The thumbnail file of an entry; empty when there is none.
    QString ThumbPath(int library, int index) const;
    bool Delete(int library, int index);

private:
    static bool Valid(int library) { return library >= 0 && library < STYLE_LIBRARY_COUNT; }
    // Calls f with the library of the number, const or not as self is.
    template <class Self, class F>
    static auto With(Self& self, int library, F f) {
        switch (library) {
            case STYLE_TEXT:
                return f(self.m_text);
            case STYLE_SHAPE:
                return f(self.m_shape);
            case STYLE_COLOR:
                return f(self.m_color);
            case STYLE_BACKPIC:
                return f(self.m_backgrounds);
            default:
                return f(self.m_pictures);
        }
    }

    CStyleList<UstText> m_text;
    CStyleList<UstShape> m_shape;
    CStyleList<UstColor> m_color;
    CPictureLibrary m_backgrounds;
    CPictureLibrary m_pictures;
};

// A style record taken from an object's look.
UstText TextStyleOf(const UstCharAttr& character, const UstEffect& effect, const UstAttr& attr);
UstShape ShapeStyleOf(const UstEffect& effect, const UstAttr& attr);
UstColor ColorStyleOf(const UstFill& fill);

}  // namespace orv
