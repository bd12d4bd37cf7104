#include "simulator/app/ScanFields.h"

#include <QStringList>

namespace simulator {

QString ScanFields::toText(const QMap<QString, QString> &fields)
{
    QStringList lines;
    for (auto it = fields.cbegin(); it != fields.cend(); ++it) {
        QString text = it.value();
        text.replace(QLatin1Char('\n'), QStringLiteral("\\n"));
        lines.append(QStringLiteral("%1: ").arg(it.key()) + text);
    }
    return lines.join(QLatin1Char('\n'));
}

QMap<QString, QString> ScanFields::fromText(const QString &text)
{
    QMap<QString, QString> fields;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QString name = line.section(QLatin1Char(':'), 0, 0).trimmed();
        QString value = line.section(QLatin1Char(':'), 1).trimmed();
        value.replace(QStringLiteral("\\n"), QStringLiteral("\n"));
        if (!name.isEmpty())
            fields.insert(name, value);
    }
    return fields;
}

} // namespace simulator
