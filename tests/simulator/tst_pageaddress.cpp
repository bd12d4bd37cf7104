#include "simulator/app/PageAddress.h"

#include "tests/support/TestCase.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

using simulator::PageAddress;

class PageAddressTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void findsTheSamplePage();
    void findsFilesAndFolders_data();
    void findsFilesAndFolders();
    void prefersAFileToAUrl();
    void takesUrls_data();
    void takesUrls();
    void saysWhatIsMissing_data();
    void saysWhatIsMissing();

private:
    QTemporaryDir m_folder;

    QString make(const QString &name)
    {
        QString path = m_folder.filePath(name);
        QDir().mkpath(QFileInfo(path).absolutePath());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }
};

void PageAddressTest::findsTheSamplePage()
{
    const PageAddress page((QString()));
    QVERIFY2(page.isFound(), qPrintable(page.error()));
    QVERIFY(page.url().isLocalFile());
    QCOMPARE(page.url().fileName(), QStringLiteral("index.html"));
}

void PageAddressTest::findsFilesAndFolders_data()
{
    QTest::addColumn<QString>("made");
    QTest::addColumn<QString>("asked");
    QTest::newRow("file") << "one/page.html"
                          << "one/page.html";
    QTest::newRow("folder") << "two/index.html"
                            << "two";
    QTest::newRow("blank, per cent, hash") << "a b/50%#.html"
                                           << "a b/50%#.html";
}

void PageAddressTest::findsFilesAndFolders()
{
    QFETCH(QString, made);
    QFETCH(QString, asked);
    const QString path = make(made);
    const PageAddress page(m_folder.filePath(asked));
    QVERIFY2(page.isFound(), qPrintable(page.error()));
    QCOMPARE(page.url().toLocalFile(), path);
    QVERIFY(page.isFile());
    QCOMPARE(page.folder(), QFileInfo(path).path());
    const QString name = QFileInfo(path).fileName();
    QCOMPARE(page.fileName(), name == QLatin1String("index.html") ? QString() : name);
}

void PageAddressTest::prefersAFileToAUrl()
{
    const QString path = make(QStringLiteral("http:page.html"));
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folder.path()));
    const PageAddress page(QStringLiteral("http:page.html"));
    QVERIFY(QDir::setCurrent(before));
    QVERIFY2(page.isFound(), qPrintable(page.error()));
    QCOMPARE(page.url().toLocalFile(), path);
}

void PageAddressTest::takesUrls_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("http") << "http://localhost:8000/a?b=c";
    QTest::newRow("https") << "https://example.com/";
    QTest::newRow("data") << "data:text/html,hello";
    QTest::newRow("resource") << "qrc:/page.html";
}

void PageAddressTest::takesUrls()
{
    QFETCH(QString, text);
    const PageAddress page(text);
    QVERIFY2(page.isFound(), qPrintable(page.error()));
    QCOMPARE(page.url().toString(), text);
}

void PageAddressTest::saysWhatIsMissing_data()
{
    QTest::addColumn<QString>("asked");
    QTest::newRow("no file") << m_folder.filePath(QStringLiteral("none.html"));
    QTest::newRow("folder without a page") << QDir(m_folder.path()).absolutePath();
    QTest::newRow("file URL") << QStringLiteral("file:///nowhere/page.html");
    QTest::newRow("no scheme") << QStringLiteral("www.example.com");
}

void PageAddressTest::saysWhatIsMissing()
{
    QFETCH(QString, asked);
    const PageAddress page(asked);
    QVERIFY(!page.isFound());
    QVERIFY2(page.error().contains(QStringLiteral("--page")), qPrintable(page.error()));
}

QTEST_GUILESS_MAIN(PageAddressTest)

#include "tst_pageaddress.moc"
