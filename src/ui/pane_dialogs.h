#pragma once
// The dialogs shown in the docking panes of editing. Their contents grow with
// the features that fill them; for now each is an empty surface of its own
// class so that the panes, their titles and their sizes are in place. The
// panes of play mode are in play_dlg.h, the page thumbnails in preview_dlg.h.

#include <QWidget>

namespace orv {

class CPaneDialog : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;
};

class CTextDlg : public CPaneDialog {  // "Outline": the pages' text
    Q_OBJECT
public:
    using CPaneDialog::CPaneDialog;
};

}  // namespace orv
