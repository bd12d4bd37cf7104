#pragma once

#include "tests/fuzz/ByteReader.h"
#include "tests/fuzz/Contract.h"

#include <QJsonDocument>
#include <QJsonObject>

/// Makes JSON of an input's bytes: what a page could send, and what it should not.
class JsonSource
{
public:
    /// @p reader is not owned.
    explicit JsonSource(ByteReader *reader)
        : m_reader(reader)
    { }

    /// A request on one of the table's topics, with its attributes, well-formed or not.
    QJsonObject request();
    QJsonObject request(const Request &request);

    /// Any value, with up to @p depth containers inside each other.
    QJsonValue value(int depth);
    QString text(const QStringList &words = {});
    double number();
    QJsonObject object(int depth);

private:
    QJsonArray array(int depth);
    void insertDrawn(QJsonObject *json, const QString &key, int depth);
    QJsonValue nest();
    QJsonArray lookalikes(int depth);
    QString repeated();
    QJsonValue numberValue();
    QJsonValue meant(const Field &field);
    void insertFields(QJsonObject *object, const QVector<Field> &fields);

    ByteReader *m_reader;
};

/// What Qt reads. Qt 5.15 loses the half-read value of a text that is no JSON: no finding, so the leak
/// sanitizer does not look.
QJsonObject readObject(const QByteArray &text, QJsonParseError *error = nullptr);

/// What a page's text makes of @p object on its way; lone surrogates do not survive it.
QJsonObject throughText(const QJsonObject &object);
