#pragma once
// The ribbon: a row of tabs over groups of controls, all made from the
// command table. It holds no state of the document; the frame fills and
// reads its controls and hears what the operator did through its signals.

#include <QWidget>

#include <functional>
#include <map>

#include "shell/command_table.h"

class QAction;
class QComboBox;
class QHBoxLayout;
class QLineEdit;
class QSlider;
class QStackedWidget;
class QTabBar;
class QToolButton;
class QVBoxLayout;

namespace orv {

class CRibbonGallery;

class CRibbonBar : public QWidget {
    Q_OBJECT
public:
    // action gives the one action of a button, toggle, step or menu item.
    using ActionFn = std::function<QAction*(const UstCommand&)>;
    CRibbonBar(uint16_t language, const ActionFn& action, QWidget* parent = nullptr);

    // Form 0 the tooltip, 1 the short label, 2 the field's label; a form a
    // command lacks falls back to the one before. Korean has one label.
    static QString Label(const UstCommand& c, int form, uint16_t language);
    static QString TabLabel(const UstCommandTab& t, uint16_t language);

    // The quick access buttons stand at the left of the tabs.
    void SetQuickAccess(QWidget* bar);
    uint32_t CurrentTab() const;
    void SetCurrentTab(uint32_t tab);
    bool IsCollapsed() const { return m_bCollapsed; }
    void SetCollapsed(bool collapsed);
    void SetTabEnabled(uint32_t tab, bool enabled);
    bool IsTabEnabled(uint32_t tab) const;
    QByteArray SaveState() const;
    // False, with the ribbon as it was, when the bytes cannot be used.
    bool RestoreState(const QByteArray& state);

    QWidget* Control(uint32_t id) const;
    QLineEdit* Field(uint32_t id) const;
    QComboBox* Combo(uint32_t id) const;
    QSlider* Slider(uint32_t id) const;
    CRibbonGallery* Gallery(uint32_t id) const;
    QTabBar* Tabs() const { return m_pTabs; }
    const std::map<uint32_t, QWidget*>& Controls() const { return m_controls; }

Q_SIGNALS:
    void FieldEdited(uint32_t id, const QString& text);
    void ComboChosen(uint32_t id, int index);
    void SliderMoved(uint32_t id, int value);
    void GalleryPicked(uint32_t id, int index);
    void TabChanged(uint32_t tab);

private:
    QWidget* BuildTab(const UstCommandTab& tab);
    QWidget* BuildGroup(const UstCommandGroup& group);
    QWidget* MakeControl(const UstCommand& c, bool* large);
    QWidget* MakeButton(const UstCommand& c, bool* large);
    QWidget* MakeRow(const UstCommand& c, QWidget* control, bool labelled);
    QWidget* MakeFieldRow(const UstCommand& c);
    QWidget* MakeComboRow(const UstCommand& c);
    void AttachCompanions(const UstCommand& field, QHBoxLayout* row);
    void Register(uint32_t id, QWidget* w);

    uint16_t m_nLanguage;
    ActionFn m_fnAction;
    QTabBar* m_pTabs;
    QHBoxLayout* m_pHead = nullptr;
    QStackedWidget* m_pStack;
    QToolButton* m_pCollapse;
    bool m_bCollapsed = false;
    std::map<uint32_t, QWidget*> m_controls;
};

}  // namespace orv
