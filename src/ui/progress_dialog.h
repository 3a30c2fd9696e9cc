#pragma once
// The progress of a long conversion, "Converting...", centred on the main
// window. It is modeless and repaints between the steps that report to it.

#include <QProgressDialog>

#include "media/sequence_convert.h"

namespace orv {

class CDlgProgress : public QProgressDialog, public CConvertProgress {
    Q_OBJECT
public:
    explicit CDlgProgress(QWidget* parent);
    void SetStatus(const QString& text) override;
    void SetPosition(int percent) override;

private:
    void Repaint();
};

}  // namespace orv
