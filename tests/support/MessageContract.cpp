#include "tests/support/MessageContract.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <fstream>
#include <map>
#include <string>

#include <nlohmann/json.hpp>
// Behind the header of its JSON library.
#include <valijson/adapters/nlohmann_json_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validation_results.hpp>
#include <valijson/validator.hpp>

using Json = nlohmann::json;

namespace {

/// One topic of the contract, its schema made when the first message comes.
// NOLINTNEXTLINE(bugprone-exception-escape): moving JSON checks it only with assertions
struct Topic
{
    Json attributes;
    bool isForPage = false;
    std::unique_ptr<valijson::Schema> schema;
};

/// Where a fault lies, such as "<root>[replica][text]", and what it is.
QString text(const valijson::ValidationResults::Error &error)
{
    std::string place;
    for (const std::string &part : error.context)
        place += part;
    return QString::fromStdString(place + ": " + error.description);
}

/// JSON of Qt, which may hold halves of a character; they become question marks.
Json parsed(QString message)
{
    static const QRegularExpression half(
        QStringLiteral(R"((?<!\\)((?:\\\\)*)\\u[dD][89a-fA-F][0-9a-fA-F]{2})"));
    message.replace(half, QStringLiteral("\\1?"));
    return Json::parse(message.toUtf8().constData(), nullptr, false);
}

} // namespace

class MessageContract::Private
{
public:
    Private()
    {
        const Json contract = Json::parse(std::ifstream(PANOREL_CONTRACT));
        for (const Json &entry : contract.at("topics")) {
            Topic topic;
            topic.attributes = entry.at("attributes");
            topic.attributes["$defs"] = contract.at("$defs"); // so that it stands alone
            topic.isForPage = entry.at("direction") == "to page";
            topics.emplace(entry.at("topic"), std::move(topic));
        }
    }

    static QStringList check(Topic &topic, const Json &attributes)
    {
        if (!topic.schema) {
            topic.schema = std::make_unique<valijson::Schema>();
            valijson::SchemaParser parser(valijson::SchemaParser::kDraft7);
            const valijson::adapters::NlohmannJsonAdapter adapter(topic.attributes);
            parser.populateSchema(adapter, *topic.schema);
        }
        valijson::Validator validator(valijson::Validator::kStrongTypes);
        valijson::ValidationResults results;
        const valijson::adapters::NlohmannJsonAdapter adapter(attributes);
        QStringList faults;
        if (validator.validate(*topic.schema, adapter, &results))
            return faults;
        for (const valijson::ValidationResults::Error &error : results)
            faults.append(text(error));
        return faults;
    }

    static QStringList unknownNames(const Topic &topic, const Json &attributes,
                                    const QStringList &madeUp)
    {
        QStringList faults;
        if (!topic.attributes.contains("additionalProperties"))
            return faults; // whatever host and page agree on
        const Json &known = topic.attributes.at("properties");
        for (const auto &attribute : attributes.items()) {
            const QString name = QString::fromStdString(attribute.key());
            if (!known.contains(attribute.key()) && !madeUp.contains(name))
                faults.append(QStringLiteral("the contract has no attribute \"%1\"").arg(name));
        }
        return faults;
    }

    std::map<std::string, Topic> topics;
};

MessageContract &MessageContract::instance()
{
    static MessageContract contract;
    return contract;
}

MessageContract::MessageContract()
    : d(std::make_unique<Private>())
{ }

MessageContract::~MessageContract() = default;

QStringList MessageContract::faults(const QString &message, const QStringList &madeUp)
{
    Json attributes = parsed(message);
    if (!attributes.is_object())
        return {QStringLiteral("no JSON object: ") + message};
    const std::string name = attributes.at("type");
    const auto found = d->topics.find(name);
    if (found == d->topics.end())
        return {};
    attributes.erase("id");
    attributes.erase("type");

    Topic &topic = found->second;
    QStringList faults = topic.isForPage ? Private::check(topic, attributes)
                                         : Private::unknownNames(topic, attributes, madeUp);
    for (QString &fault : faults)
        fault = QString::fromStdString(name) + QStringLiteral(": ") + fault;
    return faults;
}

void MessageContract::countAsUsed(const QJsonObject &message, const QStringList &madeUp)
{
    const QString topic = message.value(QStringLiteral("type")).toString();
    m_used.insert(topic);
    const QStringList attributes = message.keys();
    for (const QString &attribute : attributes)
        if (!madeUp.contains(attribute))
            m_used.insert(topic + QLatin1Char(' ') + attribute);
}

void MessageContract::writeUsed(const QString &path) const
{
    QStringList lines = m_used.values();
    std::sort(lines.begin(), lines.end());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write %s", qPrintable(path));
    for (const QString &line : qAsConst(lines))
        file.write(line.toUtf8() + '\n');
}
