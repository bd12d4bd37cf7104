#include "simulator/core/SettingsStore.h"

#include "tests/support/TestCase.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QTemporaryDir>

using simulator::SettingsStore;

class SettingsStoreTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void keepsValuesUnderTheirKeys();
    void givesTheDefaultWhenAbsent();
    void givesAWholeGroup();
    void keepsGroupsOfLikeNamesApart();
    void tellsOfChanges();
    void writesAndReadsText_data();
    void writesAndReadsText();
    void makesItsFile();
    void readsWhatAPersonWrote();
    void keepsWhatIsSet();
    void seesWhatAnEditorChanges();
    void saysWhyItIsNotKept_data();
    void saysWhyItIsNotKept();

protected:
    void setUp() override { m_folder.reset(new QTemporaryDir); }
    void tearDown() override { m_folder.reset(); }

private:
    QString file() const { return m_folder->filePath(QStringLiteral("etc/system.ini")); }
    void write(const QByteArray &text) const
    {
        QVERIFY(QDir().mkpath(m_folder->filePath(QStringLiteral("etc"))));
        QSaveFile ini(file()); // another file in its place, as many editors do
        QVERIFY(ini.open(QIODevice::WriteOnly));
        ini.write(text);
        QVERIFY(ini.commit());
    }

    QScopedPointer<QTemporaryDir> m_folder;
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

void SettingsStoreTest::tellsOfChanges()
{
    SettingsStore store;
    QSignalSpy changes(&store, &SettingsStore::changed);
    store.setValue(QStringLiteral("/a/b"), 1);
    store.setValue(QStringLiteral("/a/b"), 1);
    QCOMPARE(changes.size(), 1);
    store.setValue(QStringLiteral("/a/b"), 2);
    store.remove(QStringLiteral("/a/b"));
    store.remove(QStringLiteral("/a/b"));
    QCOMPARE(changes.size(), 3);
}

void SettingsStoreTest::writesAndReadsText_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const QVariant &value, const char *text) {
        QTest::newRow(name) << value << QString::fromUtf8(text);
    };
    row("text", QStringLiteral("hello"), "hello");
    row("nothing", QString(), "");
    row("true", true, "true");
    row("false", false, "false");
    row("whole", 50, "50");
    row("negative", -50, "-50");
    row("fraction", 0.6, "0.6");
    row("text of a number", QStringLiteral("50"), "\"50\"");
    row("text of a fraction", QStringLiteral("0.5"), "\"0.5\"");
    row("text of a flag", QStringLiteral("true"), "\"true\"");
    row("text in quotes", QStringLiteral("\"a\""), "\"\"a\"\"");
    row("a quote", QStringLiteral("\""), "\"\"\"");
    row("leading zeros", QStringLiteral("007"), "007");
    row("telephone number", QStringLiteral("+49301234"), "+49301234");
    row("too large", QStringLiteral("99999999999"), "99999999999");
    row("not a number", QStringLiteral("nan"), "nan");
    row("commas", QStringLiteral("a, b"), "a, b");
}

void SettingsStoreTest::writesAndReadsText()
{
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    QCOMPARE(SettingsStore::toText(value), text);
    QCOMPARE(SettingsStore::fromText(text), value);
    QCOMPARE(SettingsStore::fromText(text).userType(), value.userType());
}

void SettingsStoreTest::makesItsFile()
{
    SettingsStore store;
    store.setValue(QStringLiteral("/sound/volume"), 50);
    QCOMPARE(store.open(file()), QString());
    QCOMPARE(store.value(QStringLiteral("/sound/volume")), QVariant(50));
    QFile ini(file());
    QVERIFY(ini.open(QIODevice::ReadOnly));
    QCOMPARE(ini.readAll().trimmed(), QByteArray("[sound]\nvolume=50"));
    // It may hold a password.
    QCOMPARE(ini.permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}

void SettingsStoreTest::readsWhatAPersonWrote()
{
    write("[screen]\ntitle=Grüezi, liebe Gäste\ntimeout=60\ndark=true\n; a remark\n"
          "[drive]\nspeed=0.6\nname=\"42\"\n");
    SettingsStore store;
    store.setValue(QStringLiteral("/sound/volume"), 50);
    QCOMPARE(store.open(file()), QString());
    QCOMPARE(store.value(QStringLiteral("/screen/title")),
             QVariant(QString::fromUtf8("Grüezi, liebe Gäste")));
    QCOMPARE(store.value(QStringLiteral("/screen/timeout")), QVariant(60));
    QCOMPARE(store.value(QStringLiteral("/screen/dark")), QVariant(true));
    QCOMPARE(store.value(QStringLiteral("/drive/speed")), QVariant(0.6));
    QVERIFY(!store.value(QStringLiteral("/sound/volume")).isValid());
}

void SettingsStoreTest::keepsWhatIsSet()
{
    const QMap<QString, QVariant> values{
        {QStringLiteral("/g/text"), QString::fromUtf8("a, b; \"c\" = ünï\n世界")},
        {QStringLiteral("/g/number as text"), QStringLiteral("42")},
        {QStringLiteral("/g/flag"), true},
        {QStringLiteral("/other/deep/name"), -7},
    };
    {
        SettingsStore store;
        QCOMPARE(store.open(file()), QString());
        for (auto it = values.cbegin(); it != values.cend(); ++it)
            store.setValue(it.key(), it.value());
        store.setValue(QStringLiteral("/g/gone"), 1);
        store.remove(QStringLiteral("/g/gone"));
    }
    SettingsStore store;
    QCOMPARE(store.open(file()), QString());
    QCOMPARE(store.keys(), values.keys());
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        QCOMPARE(store.value(it.key()), it.value());
}

void SettingsStoreTest::seesWhatAnEditorChanges()
{
    SettingsStore store;
    QCOMPARE(store.open(file()), QString());
    QSignalSpy changes(&store, &SettingsStore::changed);
    for (int volume : {40, 30}) {
        write("[sound]\nvolume=" + QByteArray::number(volume) + "\n");
        QTRY_COMPARE(store.value(QStringLiteral("/sound/volume")), QVariant(volume));
    }
    QCOMPARE(changes.size(), 2);

    // What the store writes itself is no change.
    store.setValue(QStringLiteral("/sound/volume"), 20);
    QTest::qWait(500);
    QCOMPARE(changes.size(), 3);

    // A file that goes leaves the settings as they are.
    QVERIFY(QFile::remove(file()));
    QTest::qWait(500);
    QCOMPARE(store.value(QStringLiteral("/sound/volume")), QVariant(20));
}

void SettingsStoreTest::saysWhyItIsNotKept_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("says");
    QTest::newRow("no folder") << QStringLiteral("etc/system.ini/x.ini")
                               << QStringLiteral("written");
    QTest::newRow("no file") << QStringLiteral("etc") << QStringLiteral("read");
}

void SettingsStoreTest::saysWhyItIsNotKept()
{
    QFETCH(QString, name);
    QFETCH(QString, says);
    write("[a]\nb=1\n");
    SettingsStore store;
    store.setValue(QStringLiteral("/sound/volume"), 50);
    const QString problem = store.open(m_folder->filePath(name));
    QVERIFY2(problem.contains(says), qPrintable(problem));
    QVERIFY(problem.contains(name));
    store.setValue(QStringLiteral("/sound/volume"), 40);
    QCOMPARE(store.value(QStringLiteral("/sound/volume")), QVariant(40));
}

QTEST_GUILESS_MAIN(SettingsStoreTest)

#include "tst_settingsstore.moc"
