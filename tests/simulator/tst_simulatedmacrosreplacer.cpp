#include "simulator/core/SimulatedMacrosReplacer.h"

#include "tests/support/TestCase.h"

using simulator::SimulatedMacrosReplacer;

class SimulatedMacrosReplacerTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void expands_data();
    void staysBelowALength();
    void expands();
    void takesTheLatestValue();
    void forgetsARemovedMacro();
    void aRemovedMacroFallsBackToItsDefault();
    void personalGoesBeforeDefaults();
};

void SimulatedMacrosReplacerTest::expands_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expanded");
    QTest::newRow("no macro") << "Hello"
                              << "Hello";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("one") << "Hello %name%!"
                         << "Hello Anna!";
    QTest::newRow("alone") << "%name%"
                           << "Anna";
    QTest::newRow("two") << "%name% has %count%"
                         << "Anna has 3";
    QTest::newRow("side by side") << "%name%%count%"
                                  << "Anna3";
    QTest::newRow("twice") << "%name%, %name%"
                           << "Anna, Anna";
    QTest::newRow("unknown") << "%nobody%"
                             << "%nobody%";
    QTest::newRow("plain per cent") << "50% of 100%"
                                    << "50% of 100%";
    QTest::newRow("per cent before a macro") << "50% for %name%"
                                             << "50% for Anna";
    QTest::newRow("not closed") << "%name"
                                << "%name";
    QTest::newRow("doubled mark") << "%%name%%"
                                  << "%Anna%";
    QTest::newRow("letter case counts") << "%Name%"
                                        << "%Name%";
    QTest::newRow("blank in the name") << "%full name%"
                                       << "Anna B.";
    QTest::newRow("value is not expanded again") << "%trick%"
                                                 << "%name%";
}

void SimulatedMacrosReplacerTest::expands()
{
    QFETCH(QString, text);
    SimulatedMacrosReplacer replacer;
    replacer.setMacros(QStringLiteral("name"), QStringLiteral("Anna"));
    replacer.setMacros(QStringLiteral("count"), QStringLiteral("3"));
    replacer.setMacros(QStringLiteral("full name"), QStringLiteral("Anna B."));
    replacer.setMacros(QStringLiteral("trick"), QStringLiteral("%name%"));
    QTEST(replacer.expand(text), "expanded");
}

void SimulatedMacrosReplacerTest::takesTheLatestValue()
{
    SimulatedMacrosReplacer replacer;
    replacer.setMacros(QStringLiteral("x"), QStringLiteral("1"));
    replacer.setMacros(QStringLiteral("x"), QStringLiteral("2"));
    QCOMPARE(replacer.expand(QStringLiteral("%x%")), QStringLiteral("2"));
    QCOMPARE(replacer.macros().size(), 1);
}

void SimulatedMacrosReplacerTest::forgetsARemovedMacro()
{
    SimulatedMacrosReplacer replacer;
    replacer.setMacros(QStringLiteral("x"), QStringLiteral("1"));
    replacer.removeMacros(QStringLiteral("x"));
    replacer.removeMacros(QStringLiteral("never there"));
    QCOMPARE(replacer.expand(QStringLiteral("%x%")), QStringLiteral("%x%"));
}

void SimulatedMacrosReplacerTest::aRemovedMacroFallsBackToItsDefault()
{
    SimulatedMacrosReplacer replacer;
    const QString name = QStringLiteral("name");
    replacer.setDefaults({{name, QStringLiteral("guest")}});
    QCOMPARE(replacer.expand(QStringLiteral("%name%")), QStringLiteral("guest"));
    replacer.setMacros(name, QStringLiteral("Anna"));
    QCOMPARE(replacer.expand(QStringLiteral("%name%")), QStringLiteral("Anna"));
    replacer.removeMacros(name);
    QCOMPARE(replacer.expand(QStringLiteral("%name%")), QStringLiteral("guest"));
    QVERIFY(replacer.macros().isEmpty());
    replacer.setDefaults({});
    QCOMPARE(replacer.expand(QStringLiteral("%name%")), QStringLiteral("%name%"));
}

void SimulatedMacrosReplacerTest::personalGoesBeforeDefaults()
{
    SimulatedMacrosReplacer replacer;
    const QString name = QStringLiteral("name");
    replacer.setDefaults({{name, QStringLiteral("guest")}});
    const QMap<QString, QString> personal{{name, QStringLiteral("Ben")}};
    QCOMPARE(replacer.expand(QStringLiteral("%name%"), personal), QStringLiteral("Ben"));
    replacer.setMacros(name, QStringLiteral("Anna"));
    QCOMPARE(replacer.expand(QStringLiteral("%name%"), personal), QStringLiteral("Anna"));
}

void SimulatedMacrosReplacerTest::staysBelowALength()
{
    SimulatedMacrosReplacer replacer;
    replacer.setMacros(QStringLiteral("a"), QString(30000, QLatin1Char('x')));
    const QString expanded = replacer.expand(QStringLiteral("%a%").repeated(1000));
    QVERIFY(expanded.size() > 60000);
    QVERIFY(expanded.size() < 110000);
    QVERIFY(expanded.endsWith(QStringLiteral("%a%"))); // the rest stays as it is
}

QTEST_GUILESS_MAIN(SimulatedMacrosReplacerTest)

#include "tst_simulatedmacrosreplacer.moc"
