#pragma once
// The companion's JSON: one compact object a run, on one line.

#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <string>

#include "cli/Command.h"

namespace vt::cli {

inline QJsonValue JsonText(const std::string& text) {
    return QString::fromStdString(text);
}

inline void PrintJson(Output& out, const QJsonObject& object) {
    out.Line(QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString());
}

} // namespace vt::cli
