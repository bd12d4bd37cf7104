#include "tests/soak/Texts.h"

#include <array>

namespace texts {

namespace {

constexpr std::array<int, 5> sizes{100, 500, 2000, 10000, 100000};
constexpr int pieceCount = 6;

const QString &piece(int index)
{
    static const std::array<QString, pieceCount> pieces{
        QStringLiteral("abcdefghij"),
        QStringLiteral(u"Gr\u00fc\u00dfe aus K\u00f6ln "),
        QStringLiteral(
            u"\u0417\u0434\u0440\u0430\u0432\u0441\u0442\u0432\u0443\u0439\u0442\u0435 "),
        QStringLiteral(u"\u65e5\u672c\u8a9e\u306e\u6587\u7ae0"),
        QStringLiteral(u"\U0001F600\U0001F916"),
        QStringLiteral(u"\"\\\n\t\u2028<&>'/"),
    };
    return pieces.at(static_cast<std::size_t>(index));
}

/// Which of the sizes: out of 1,000 messages 550, 250, 150, 48 and 2.
std::size_t sizeIndex(int number)
{
    const unsigned dice = (static_cast<unsigned>(number) * 2654435761U >> 12U) % 1000U;
    if (dice < 550)
        return 0;
    if (dice < 800)
        return 1;
    if (dice < 950)
        return 2;
    return dice < 998 ? 3 : 4;
}

const QString &body(int number)
{
    static std::array<std::array<QString, sizes.size()>, pieceCount> bodies;
    const int pieceIndex = number % pieceCount;
    const std::size_t size = sizeIndex(number);
    QString &text = bodies.at(static_cast<std::size_t>(pieceIndex)).at(size);
    if (text.isEmpty())
        text = piece(pieceIndex).repeated(sizes.at(size) / piece(pieceIndex).size());
    return text;
}

} // namespace

QString textOf(int number) { return QString::number(number) + QLatin1Char(':') + body(number); }

int numberOf(const QString &text)
{
    const int colon = text.indexOf(QLatin1Char(':'));
    const int number = text.leftRef(colon).toInt();
    return number > 0 && text.midRef(colon + 1) == body(number) ? number : 0;
}

} // namespace texts
