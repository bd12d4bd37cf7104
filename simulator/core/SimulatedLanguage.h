#pragma once

#include <QObject>
#include <QString>

namespace simulator {

/// The language that the robot speaks, as a code such as "en". GUI thread.
class SimulatedLanguage : public QObject
{
    Q_OBJECT

public:
    explicit SimulatedLanguage(QObject *parent = nullptr);

    QString code() const;
    /// An empty code changes nothing; any other is taken as it is.
    void setCode(const QString &code);

Q_SIGNALS:
    /// Only when the language is really another.
    void changed(const QString &code);

private:
    QString m_code = QStringLiteral("en");
};

} // namespace simulator
