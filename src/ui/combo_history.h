#pragma once
// An editable combo box that remembers its last ten entries and its last
// text in the settings, newest first.

#include <QComboBox>

namespace orv {

class CComboHistory : public QComboBox {
    Q_OBJECT
public:
    static constexpr int MAX_ENTRIES = 10;

    explicit CComboHistory(QWidget* parent = nullptr);

    // Reads the entries under "<prefix><n>" in the section, up to the first
    // empty one, and the last value under the prefix (or "Last").
    void Init(const QString& section, const QString& prefix);
    // Trimmed, to the head; an older copy goes, and so does the eleventh.
    void AddEntry(const QString& text);
    // Writes the entries, drops the keys behind them, and the present text
    // as the last value. An empty section keeps nothing.
    void Save() const;
    QStringList Entries() const;

private:
    QString LastKey() const { return m_strPrefix.isEmpty() ? QStringLiteral("Last") : m_strPrefix; }

    QString m_strSection;
    QString m_strPrefix;
};

}  // namespace orv
