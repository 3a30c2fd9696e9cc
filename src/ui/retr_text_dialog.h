#pragma once
// "Import Text File": the text to import, typed or opened from a file, the
// margins and baseline it goes between, how many lines make a page, and a
// preview of the first page in the editor's default look.

#include <QDialog>
#include <QImage>
#include <QTimer>

#include "import/text_import.h"
#include "render/text_records.h"

class QCheckBox;
class QComboBox;
class QPlainTextEdit;
class QSlider;

namespace orv {

// The preview pane: the frame scaled to fit, with the margins and the
// baseline drawn over it.
class CStaticView : public QWidget {
    Q_OBJECT
public:
    explicit CStaticView(QWidget* parent = nullptr);
    void SetImage(const QImage& frame, const UstTextImport& values);
    QSize sizeHint() const override { return {384, 216}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage m_image;
    UstTextImport m_values;
};

class CDlgRetrText : public QDialog {
    Q_OBJECT
public:
    CDlgRetrText(const UstDefaultAttr& look, int frameWidth, int frameHeight,
                 QWidget* parent = nullptr);
    // The dialog's values after Insert.
    UstTextImport Values() const;
    void SetText(const QString& text);
    // Reads a file into the edit box; false (and the box as it was) when
    // it does not read.
    bool OpenFile(const QString& path);
    // The preview is drawn a moment after the last change; at once here.
    void UpdatePreview();
    const QImage& PreviewImage() const { return m_surface; }

    static constexpr int DEFAULT_LINES_ROW = 1;  // two lines per page

private:
    void ChooseFile();
    void BuildControls();
    QSlider* MakeSlider(Qt::Orientation orientation, int maximum, int value, int id);

    const UstDefaultAttr& m_look;
    int m_nWidth, m_nHeight;
    // Exact until a slider moves them: the defaults are not whole pixels.
    float m_fLeft = 0, m_fTop = 0;
    QImage m_surface;  // frame size, premultiplied
    QTimer m_previewTimer;
    CStaticView* m_pPreview = nullptr;
    QSlider* m_pBaseline = nullptr;
    QSlider* m_pLeft = nullptr;
    QSlider* m_pRight = nullptr;
    QComboBox* m_pLines = nullptr;
    QCheckBox* m_pAppend = nullptr;
    QPlainTextEdit* m_pEdit = nullptr;
};

}  // namespace orv
