#pragma once
// The "Styles" pane: the five libraries as galleries on tabs. Every click
// leaves the pane as the gallery's command number and the item's index, for
// the frame to decode.

#include <QWidget>

#include <array>
#include <cstdint>

class QComboBox;
class QTabWidget;

namespace orv {

class CStyleGallery;
class CStyleLibraries;

// The ribbon's numbers for each library: gallery (apply), add, delete.
struct UstStyleCommands {
    uint32_t nApply, nAdd, nDelete;
};
extern const std::array<UstStyleCommands, 5> STYLE_COMMANDS;

class CStylesPane : public QWidget {
    Q_OBJECT
public:
    explicit CStylesPane(QWidget* parent = nullptr);

    // Shows what the libraries hold now.
    void Refresh(const CStyleLibraries& libraries);
    void Refresh(const CStyleLibraries& libraries, int library);
    CStyleGallery* Gallery(int library) const { return m_galleries[static_cast<size_t>(library)]; }
    QTabWidget* Tabs() const { return m_pTabs; }
    // The paint a colour style goes to: 0 fill, 1 edge, 2 outline, 3 shadow.
    int ColorPaint() const;

Q_SIGNALS:
    void Command(uint32_t id, int index);

private:
    QTabWidget* m_pTabs;
    QComboBox* m_pPaint;
    std::array<CStyleGallery*, 5> m_galleries{};
};

}  // namespace orv
