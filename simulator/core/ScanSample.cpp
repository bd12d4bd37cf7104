#include "simulator/core/ScanSample.h"

namespace simulator {

namespace {

ScanSample passport(const QString &name, const QString &surname, const QString &givenName,
                    const QString &number, const QString &birthDate)
{
    return {name,
            {{QStringLiteral("surname"), surname},
             {QStringLiteral("name"), givenName},
             {QStringLiteral("number"), number},
             {QStringLiteral("birth_date"), birthDate}}};
}

ScanSample document(const QString &name, const QString &title, const QString &text)
{
    return {name, {{QStringLiteral("title"), title}, {QStringLiteral("text"), text}}};
}

ScanSample nothing() { return {ScanSample::tr("Nothing read"), {}}; }

} // namespace

QList<ScanSample> ScanSample::passports()
{
    return {
        passport(tr("Latin names"), QStringLiteral("MUSTERMANN"), QStringLiteral("ERIKA"),
                 QStringLiteral("C01X00T47"), QStringLiteral("12.08.1983")),
        passport(tr("Chinese names"), QStringLiteral("王"), QStringLiteral("小明"),
                 QStringLiteral("E12345678"), QStringLiteral("03.05.1990")),
        passport(tr("Arabic names"), QStringLiteral("الأحمد"), QStringLiteral("فاطمة"),
                 QStringLiteral("A0012345"), QStringLiteral("21.11.1978")),
        nothing(),
    };
}

QList<ScanSample> ScanSample::documents()
{
    return {
        document(tr("Invitation"), QStringLiteral("Invitation"),
                 QStringLiteral("You are welcome at our open day.")),
        document(tr("Letter of two lines"), QStringLiteral("Grüße"),
                 QStringLiteral("Until Monday.\n再见")),
        nothing(),
    };
}

} // namespace simulator
