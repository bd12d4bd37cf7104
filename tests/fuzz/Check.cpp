#include "tests/fuzz/Check.h"

#include "panorel/Constants.h"
#include "panorel/Message.h"
#include "tests/fuzz/JsonSource.h"

#include <cstdio>
#include <cstdlib>

namespace {

bool isCarriedByJson(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::QVariantMap: {
        const QVariantMap map = value.toMap();
        for (const QVariant &inner : map)
            if (!isCarriedByJson(inner))
                return false;
        return true;
    }
    case QMetaType::QVariantList: {
        const QVariantList list = value.toList();
        for (const QVariant &inner : list)
            if (!isCarriedByJson(inner))
                return false;
        return true;
    }
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::Double:
    case QMetaType::QString:
    case QMetaType::QStringList:
    case QMetaType::QUuid:
    case QMetaType::QUrl:
        return true;
    default:
        return false;
    }
}

/// Such a message carries the robot's own records and stays inside.
bool isFaceReport(const panorel::Message &message)
{
    return message.type() == panorel::constants::GENERAL_TOUCH;
}

} // namespace

void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "FOUND: %s\n", what);
    std::abort();
}

void requirePublishable(const panorel::Message &message)
{
    require(message.id().version() == QUuid::Random && message.id().variant() == QUuid::DCE,
            "a message without a random id of its own");
    if (isFaceReport(message))
        return;
    require(isCarriedByJson(message.attributes()), "a message with what JSON cannot carry");

    const QByteArray text = QJsonDocument(message.toJson()).toJson(QJsonDocument::Compact);
    QJsonParseError error{};
    const QJsonObject read = readObject(text, &error);
    if (error.error == QJsonParseError::DeepNesting)
        return; // what a page nests to Qt's limit comes back inside of a reply
    require(error.error == QJsonParseError::NoError, "a message that is no JSON");
    require(read.value(QStringLiteral("type")).toString() == message.type()
                && read.value(QStringLiteral("id")).toString() == message.id().toString(),
            "a message whose JSON lost its id or topic");
}
