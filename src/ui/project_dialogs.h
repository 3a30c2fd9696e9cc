#pragma once
// The project dialogs: a new project or Save As (name, place and, for a new
// one, format), and Open with the projects of a workspace listed.

#include <QDialog>

#include <vector>

#include "project/project_store.h"

class QButtonGroup;
class QCheckBox;
class QLineEdit;
class QRadioButton;
class QTreeWidget;

namespace orv {

class CDlgPrj : public QDialog {
    Q_OBJECT
public:
    enum class EKind { NEW, SAVE_AS };
    // currentName proposes the next name; wide: the current project's format.
    CDlgPrj(EKind kind, const QString& location, const QString& currentName, bool wide,
            QWidget* parent = nullptr);

    QString Folder() const { return m_strFolder; }  // location and name
    QString Location() const;
    bool Wide() const;

    void accept() override;

private:
    void Browse();

    EKind m_kind;
    QLineEdit* m_pLocation;
    QLineEdit* m_pName;
    QRadioButton* m_pHd = nullptr;
    QRadioButton* m_pSd = nullptr;
    QString m_strFolder;
};

class CDlgOpenPrj : public QDialog {
    Q_OBJECT
public:
    // openProjects: files of projects open in this program, never listed.
    CDlgOpenPrj(const QString& location, const QStringList& openProjects,
                QWidget* parent = nullptr);

    QString ProjectPath() const { return m_strPath; }
    QString Location() const;
    void Rescan();
    QTreeWidget* List() const { return m_pList; }

    void accept() override;

private:
    void Browse();
    void ShowSelected();
    void SetPreview(bool on);
    void SortBy(int column);

    QLineEdit* m_pLocation;
    QTreeWidget* m_pList;
    QLineEdit* m_pName;
    QLineEdit* m_pPages;
    QCheckBox* m_pPreview;
    QStringList m_openProjects;
    std::vector<UstPrjThumb> m_rows;
    QString m_strPath;
    int m_nSortedCol = 0;
    bool m_bAscending = true;
};

}  // namespace orv
