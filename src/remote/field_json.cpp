#include "remote/field_json.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>

namespace orv {

bool ParseFieldJson(const std::string& json, FieldValues& out, std::string& error) {
    QJsonParseError status{};
    const QJsonDocument doc = QJsonDocument::fromJson(
        QByteArray::fromRawData(json.data(), static_cast<qsizetype>(json.size())), &status);
    if (status.error != QJsonParseError::NoError) {
        error = "the data is not JSON: " + status.errorString().toStdString();
        return false;
    }
    if (!doc.isObject()) {
        error = "the data must be a JSON object of names and values";
        return false;
    }
    return FieldsFromJson(doc.object(), out, error);
}

bool FieldsFromJson(const QJsonObject& object, FieldValues& out, std::string& error) {
    out.clear();
    for (auto it = object.begin(); it != object.end(); ++it) {
        const QJsonValue v = it.value();
        if (v.isString())
            out[it.key()] = v.toString();
        else if (v.isDouble())
            out[it.key()] = QString::number(v.toDouble(), 'g', 15);
        else if (v.isBool())
            out[it.key()] = v.toBool() ? QStringLiteral("true") : QStringLiteral("false");
        else if (v.isNull())
            out[it.key()] = QString();
        else {
            error = "the value of '" + it.key().toStdString() + "' is not text";
            return false;
        }
    }
    return true;
}

}  // namespace orv
