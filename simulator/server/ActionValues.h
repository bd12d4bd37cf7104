#pragma once

#include <QJsonObject>
#include <QMap>
#include <QString>
#include <QStringList>

#include <limits>
#include <optional>

namespace simulator {

/// What an action was given. Whoever performs the action takes out every value that it knows; then
/// mistake() tells of values of a wrong kind and of names that nobody took.
class ActionValues
{
public:
    explicit ActionValues(const QJsonObject &values);

    // Nothing when the value is not there, or wrong.
    std::optional<bool> flag(const QString &name);
    std::optional<QString> text(const QString &name);
    std::optional<QStringList> texts(const QString &name);
    std::optional<QMap<QString, QString>> textMap(const QString &name);
    std::optional<QJsonObject> object(const QString &name);
    /// A whole number within the bounds.
    std::optional<int> number(const QString &name, int low, int high);
    std::optional<double> factor(const QString &name, double low, double high);
    /// One of @p choices: its place.
    std::optional<int> choice(const QString &name, const QStringList &choices);

    /// Like text() and number(), but a mistake when the value is not there.
    QString neededText(const QString &name);
    int neededNumber(const QString &name, int low, int high);

    /// What is wrong with the values; empty when nothing is.
    QString mistake() const;

private:
    /// Null when it is not there.
    QJsonValue take(const QString &name);
    void refuse(const QString &name, const QString &wanted);
    void need(const QString &name, bool isThere);

    QJsonObject m_values;
    QStringList m_known;
    QString m_mistake;
};

} // namespace simulator
