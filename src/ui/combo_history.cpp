#include "ui/combo_history.h"

#include <QLineEdit>
#include <QSettings>

namespace orv {

CComboHistory::CComboHistory(QWidget* parent) : QComboBox(parent) {
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setMaxCount(MAX_ENTRIES);
}

void CComboHistory::Init(const QString& section, const QString& prefix) {
    m_strSection = section;
    m_strPrefix = prefix;
    clear();
    if (section.isEmpty()) return;
    QSettings settings;
    settings.beginGroup(section);
    for (int i = 0; i < MAX_ENTRIES; ++i) {
        // Anything but a plain string (a list, bytes of junk) ends the list.
        const QVariant value = settings.value(prefix + QString::number(i));
        if (value.typeId() != QMetaType::QString) break;
        const QString entry = value.toString();
        if (entry.isEmpty()) break;
        addItem(entry);
    }
    const QVariant last = settings.value(LastKey());
    const QString text = last.typeId() == QMetaType::QString ? last.toString() : QString();
    const int listed = findText(text);
    if (listed >= 0)
        setCurrentIndex(listed);
    else
        setEditText(text);
}

void CComboHistory::AddEntry(const QString& text) {
    const QString entry = text.trimmed();
    if (entry.isEmpty()) return;
    const QString shown = currentText();
    for (int at = findText(entry, Qt::MatchFixedString | Qt::MatchCaseSensitive); at >= 0;
         at = findText(entry, Qt::MatchFixedString | Qt::MatchCaseSensitive))
        removeItem(at);
    while (count() >= MAX_ENTRIES)
        removeItem(count() - 1);
    insertItem(0, entry);
    setCurrentIndex(0);
    setEditText(shown);
}

QStringList CComboHistory::Entries() const {
    QStringList entries;
    for (int i = 0; i < count(); ++i)
        entries << itemText(i);
    return entries;
}

void CComboHistory::Save() const {
    if (m_strSection.isEmpty()) return;
    QSettings settings;
    settings.beginGroup(m_strSection);
    int i = 0;
    for (; i < count(); ++i)
        settings.setValue(m_strPrefix + QString::number(i), itemText(i));
    for (; i < MAX_ENTRIES; ++i)
        settings.remove(m_strPrefix + QString::number(i));
    settings.setValue(LastKey(), currentText());
}

}  // namespace orv
