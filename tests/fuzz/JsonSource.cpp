#include "tests/fuzz/JsonSource.h"

#include "panorel/PanorelMessageHandler.h"
#include "tests/fuzz/OddValues.h"

#include <QJsonArray>

#include <cmath>

// There when the leak sanitizer is.
extern "C" __attribute__((weak)) void __lsan_disable(); // NOLINT(bugprone-reserved-identifier)
extern "C" __attribute__((weak)) void __lsan_enable(); // NOLINT(bugprone-reserved-identifier)

namespace {

constexpr int deepest = 4;
// A page's text may be nested 1024 deep: that is as far as Qt reads it.
constexpr int mostNested = 1000;
// Texts are repeated up to 2^18 characters.
constexpr int mostDoublings = 18;
// What takes long is tried at one byte in 256, and not at one that fuzzers like.
constexpr int rare = 201;

} // namespace

QJsonObject JsonSource::request()
{
    // Rarely any message, or one that is meant for the page.
    switch (m_reader->below(32)) {
    case 30: {
        QJsonObject json = object(deepest);
        json.insert(QStringLiteral("type"),
                    m_reader->oneOf(panorel::PanorelMessageHandler::topics()));
        return json;
    }
    case 31:
        return object(deepest);
    default:
        return request(m_reader->oneOf(requests()));
    }
}

QJsonObject JsonSource::request(const Request &request)
{
    QJsonObject json;
    insertFields(&json, request.fields);
    if (m_reader->below(8) == 7)
        insertDrawn(&json, text(), deepest);
    if (m_reader->below(8) == 7)
        json.insert(QStringLiteral("id"), value(2));
    json.insert(QStringLiteral("type"), request.topic);
    return json;
}

void JsonSource::insertFields(QJsonObject *object, const QVector<Field> &fields)
{
    for (const Field &field : fields) {
        switch (m_reader->below(4)) {
        case 0:
            break;
        case 1:
            object->insert(field.name, value(deepest));
            break;
        default:
            object->insert(field.name, meant(field));
        }
    }
}

QJsonValue JsonSource::meant(const Field &field)
{
    switch (field.kind) {
    case Kind::Anything:
        return value(deepest);
    case Kind::Truth:
        return m_reader->flag();
    case Kind::Number:
        return numberValue();
    case Kind::Text:
        return text(field.words);
    case Kind::Texts: {
        QJsonArray texts;
        for (int count = m_reader->below(5); count > 0; --count)
            texts.append(text());
        return texts;
    }
    case Kind::TextMap: {
        QJsonObject texts;
        for (int count = m_reader->below(5); count > 0; --count) {
            const QString name = text();
            texts.insert(name, text());
        }
        return texts;
    }
    case Kind::Record: {
        QJsonObject record;
        insertFields(&record, field.members);
        return record;
    }
    case Kind::Records: {
        QJsonObject records;
        for (int count = m_reader->below(5); count > 0; --count) {
            QJsonObject record;
            insertFields(&record, field.members);
            records.insert(text(), record);
        }
        return records;
    }
    }
    return {};
}

QJsonValue JsonSource::value(int depth)
{
    switch (m_reader->below(depth > 0 ? 10 : 5)) {
    case 0:
        return QJsonValue::Null;
    case 1:
        return m_reader->flag();
    case 2:
        return numberValue();
    case 3:
    case 4:
        return text();
    case 5:
        return array(depth - 1);
    case 6:
    case 7:
        return object(depth - 1);
    case 8:
        return lookalikes(depth - 1);
    default:
        return nest();
    }
}

double JsonSource::number()
{
    switch (m_reader->below(3)) {
    case 0:
        return m_reader->signedByte();
    case 1:
        return m_reader->oneOf(edges);
    default: {
        const auto any = m_reader->bits<double>();
        return std::isfinite(any) ? any : 0.0; // JSON knows no others
    }
    }
}

QJsonValue JsonSource::numberValue()
{
    // A number in a page's text may become either kind.
    if (m_reader->below(4) == 3)
        return static_cast<qint64>(m_reader->bits<std::int64_t>());
    return number();
}

QString JsonSource::text(const QStringList &words)
{
    switch (m_reader->below(words.isEmpty() ? 6 : 10)) {
    case 0:
        return m_reader->oneOf(oddTexts);
    case 1:
        return QString::fromUtf8(m_reader->bytes(m_reader->byte()));
    case 2: {
        const QByteArray units = m_reader->bytes(std::size_t{2} * m_reader->byte());
        QString any(units.size() / 2, QChar());
        std::memcpy(any.data(), units.constData(), 2 * static_cast<std::size_t>(any.size()));
        return any;
    }
    case 3:
        return QString::number(number(), 'g', 17);
    case 4:
        return QString(1, QLatin1Char(static_cast<char>(m_reader->byte())));
    case 5:
        return m_reader->below(16) == 15 ? repeated() : m_reader->oneOf(oddTexts);
    default:
        return m_reader->oneOf(words);
    }
}

QString JsonSource::repeated()
{
    const QString piece = m_reader->flag() ? QStringLiteral("data:image/png;base64,")
                                           : QString::fromUtf8(m_reader->bytes(4));
    const int doublings = m_reader->byte() == rare ? mostDoublings : m_reader->below(14);
    return piece.repeated((1 << doublings) / qMax(1, piece.size()));
}

QJsonObject JsonSource::object(int depth)
{
    static const QStringList keys{QStringLiteral("id"),   QStringLiteral("type"),
                                  QStringLiteral("text"), QStringLiteral("uuid"),
                                  QStringLiteral("rect"), QStringLiteral("info")};
    QJsonObject json;
    for (int count = m_reader->below(6); count > 0; --count)
        insertDrawn(&json, text(keys), depth);
    return json;
}

/// The key was drawn first, whatever the compiler's order of arguments: inputs mean the same to all.
void JsonSource::insertDrawn(QJsonObject *json, const QString &key, int depth)
{
    json->insert(key, value(depth));
}

QJsonArray JsonSource::array(int depth)
{
    QJsonArray values;
    for (int count = m_reader->below(6); count > 0; --count)
        values.append(value(depth));
    return values;
}

/// Objects that mostly have the keys of the one before.
QJsonArray JsonSource::lookalikes(int depth)
{
    const QString keys[] = {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("\u00e9"),
                            QStringLiteral("id")};
    QJsonArray objects;
    for (int count = m_reader->below(8); count > 0; --count) {
        const int present = m_reader->byte();
        QJsonObject json;
        for (int i = 0; i < 4; ++i)
            if ((present & 1 << i) != 0)
                json.insert(keys[i], (present & 1 << (4 + i)) != 0 ? value(depth) : QJsonValue(i));
        objects.append(json);
    }
    return objects;
}

/// Containers inside each other, as deep as Qt reads them.
QJsonValue JsonSource::nest()
{
    const bool ofObjects = m_reader->flag();
    QJsonValue inner = value(0);
    const int levels = m_reader->byte();
    for (int depth = levels == rare ? mostNested : levels / 4; depth > 0; --depth) {
        if (ofObjects)
            inner = QJsonObject{{QStringLiteral("id"), inner}};
        else
            inner = QJsonArray{inner};
    }
    return inner;
}

QJsonObject readObject(const QByteArray &text, QJsonParseError *error)
{
    if (__lsan_disable)
        __lsan_disable();
    const QJsonDocument document = QJsonDocument::fromJson(text, error);
    if (__lsan_enable)
        __lsan_enable();
    return document.object();
}

QJsonObject throughText(const QJsonObject &object)
{
    return readObject(QJsonDocument(object).toJson(QJsonDocument::Compact));
}
