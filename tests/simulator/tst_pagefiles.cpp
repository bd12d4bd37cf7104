#include "simulator/server/PageFiles.h"

#include "tests/support/TestCase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using simulator::PageFiles;

class PageFilesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void finds_data();
    void finds();
    void findsNothing_data();
    void findsNothing();
    void wantsASlashAfterAFolder();
    void findsWhereALinkLeadsWithin();
    void findsInALinkedFolder();
    void knowsTypes_data();
    void knowsTypes();

protected:
    void setUp() override
    {
        m_outer.reset(new QTemporaryDir);
        for (const char *file : {"secret.txt", "pages/index.html", "pages/.env", "pages/a b.js",
                                 "pages/ünï/index.html", "pages/empty/x.css", "pages/.git/config",
                                 "pages2/index.html"})
            write(QString::fromUtf8(file));
        QFile::link(path("secret.txt"), path("pages/out.txt"));
        QFile::link(path("pages/index.html"), path("pages/in.html"));
        QFile::link(path("pages2"), path("pages/out"));
        QFile::link(path("pages"), path("linked"));
    }
    void tearDown() override { m_outer.reset(); }

private:
    QString path(const char *name) const { return m_outer->filePath(QString::fromUtf8(name)); }
    void write(const QString &name) const
    {
        const QFileInfo info(m_outer->filePath(name));
        QVERIFY(QDir().mkpath(info.path()));
        QFile file(info.filePath());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("x");
    }

    QScopedPointer<QTemporaryDir> m_outer;
};

void PageFilesTest::finds_data()
{
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("file");
    QTest::newRow("the page") << QStringLiteral("/") << QStringLiteral("pages/index.html");
    QTest::newRow("by name") << QStringLiteral("/index.html") << QStringLiteral("pages/index.html");
    QTest::newRow("blank") << QStringLiteral("/a b.js") << QStringLiteral("pages/a b.js");
    QTest::newRow("folder") << QString::fromUtf8("/ünï/")
                            << QString::fromUtf8("pages/ünï/index.html");
    QTest::newRow("slashes") << QStringLiteral("//empty///x.css")
                             << QStringLiteral("pages/empty/x.css");
}

void PageFilesTest::finds()
{
    QFETCH(QString, asked);
    QFETCH(QString, file);
    QCOMPARE(PageFiles(path("pages")).find(asked).file,
             QFileInfo(m_outer->filePath(file)).canonicalFilePath());
}

void PageFilesTest::findsNothing_data()
{
    QTest::addColumn<QString>("asked");
    for (const char *asked :
         {"", "index.html", "/none.html", "/empty/", "/../secret.txt", "/empty/../../secret.txt",
          "/..", "/.", "/.env", "/.git/config", "/out.txt", "/out/", "/out/index.html",
          "/../pages2/index.html", "/index.html/", "/index.html/x", "/..\\secret.txt"})
        QTest::newRow(asked) << QString::fromUtf8(asked);
}

void PageFilesTest::findsNothing()
{
    QFETCH(QString, asked);
    const PageFiles::Found found = PageFiles(path("pages")).find(asked);
    QCOMPARE(found.file, QString());
    QVERIFY(!found.isFolder);
    QCOMPARE(PageFiles(path("nowhere")).find(asked).file, QString());
}

void PageFilesTest::wantsASlashAfterAFolder()
{
    const PageFiles::Found found = PageFiles(path("pages")).find(QString::fromUtf8("/ünï"));
    QVERIFY(found.isFolder);
    QVERIFY(found.file.isEmpty());
}

void PageFilesTest::findsWhereALinkLeadsWithin()
{
    QCOMPARE(PageFiles(path("pages")).find(QStringLiteral("/in.html")).file,
             QFileInfo(path("pages/index.html")).canonicalFilePath());
}

void PageFilesTest::findsInALinkedFolder()
{
    QCOMPARE(PageFiles(path("linked")).find(QStringLiteral("/")).file,
             QFileInfo(path("pages/index.html")).canonicalFilePath());
}

void PageFilesTest::knowsTypes_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("type");
    QTest::newRow("page") << QStringLiteral("a.HTML") << QByteArray("text/html; charset=utf-8");
    QTest::newRow("script") << QStringLiteral("a.js")
                            << QByteArray("text/javascript; charset=utf-8");
    QTest::newRow("module") << QStringLiteral("a.mjs")
                            << QByteArray("text/javascript; charset=utf-8");
    QTest::newRow("style") << QStringLiteral("a.min.css") << QByteArray("text/css; charset=utf-8");
    QTest::newRow("drawing") << QStringLiteral("a.svg")
                             << QByteArray("image/svg+xml; charset=utf-8");
    QTest::newRow("picture") << QStringLiteral("a.png") << QByteArray("image/png");
    QTest::newRow("sound") << QStringLiteral("a.wav") << QByteArray("audio/x-wav");
    QTest::newRow("unknown") << QStringLiteral("a") << QByteArray("application/octet-stream");
}

void PageFilesTest::knowsTypes()
{
    QFETCH(QString, file);
    QTEST(PageFiles::typeOf(file), "type");
}

QTEST_GUILESS_MAIN(PageFilesTest)
#include "tst_pagefiles.moc"
