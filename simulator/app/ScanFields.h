#pragma once

#include <QMap>
#include <QString>

namespace simulator {

/// What a scanner reads as text that a person can edit: a line "name: text" for each field, "\n" for
/// a line break inside the text.
class ScanFields
{
public:
    static QString toText(const QMap<QString, QString> &fields);
    /// A line without a colon is a field without a text; empty lines are passed over.
    static QMap<QString, QString> fromText(const QString &text);
};

} // namespace simulator
