#include "simulator/core/SettingsStore.h"

#include "tests/support/TestCase.h"

using simulator::SettingsStore;

class SettingsStoreTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void keepsValuesUnderTheirKeys();
    void givesTheDefaultWhenAbsent();
    void givesAWholeGroup();
    void keepsGroupsOfLikeNamesApart();
};

void SettingsStoreTest::keepsValuesUnderTheirKeys()
{
    SettingsStore store;
    store.setValue(QStringLiteral("/sound/volume"), 40);
    store.setValue(QStringLiteral("/sound/volume"), 50);
    QCOMPARE(store.value(QStringLiteral("/sound/volume")), QVariant(50));
    store.remove(QStringLiteral("/sound/volume"));
    QVERIFY(!store.value(QStringLiteral("/sound/volume")).isValid());
}

void SettingsStoreTest::givesTheDefaultWhenAbsent()
{
    const SettingsStore store;
    QCOMPARE(store.value(QStringLiteral("/a/b"), 7), QVariant(7));
    QVERIFY(!store.value(QStringLiteral("/a/b")).isValid());
    QVERIFY(store.group(QStringLiteral("a")).isEmpty());
}

void SettingsStoreTest::givesAWholeGroup()
{
    SettingsStore store;
    store.setValue(QStringLiteral("/g/one"), 1);
    store.setValue(QStringLiteral("/g/two"), 2);
    const QMap<QString, QVariant> expected{{QStringLiteral("one"), 1}, {QStringLiteral("two"), 2}};
    QCOMPARE(store.group(QStringLiteral("g")), expected);
}

void SettingsStoreTest::keepsGroupsOfLikeNamesApart()
{
    SettingsStore store;
    store.setValue(QStringLiteral("/sound/volume"), 1);
    store.setValue(QStringLiteral("/sounds/volume"), 2);
    store.setValue(QStringLiteral("/so/volume"), 3);
    QCOMPARE(store.group(QStringLiteral("sound")).size(), 1);
    QCOMPARE(store.group(QStringLiteral("sound")).value(QStringLiteral("volume")), QVariant(1));
}

QTEST_GUILESS_MAIN(SettingsStoreTest)

#include "tst_settingsstore.moc"
