#include "panorel/handlers/PrintHandler.h"

#include "tests/handlers/PrinterTestCase.h"

using panorel::PrintHandler;

class PrintPictureTest : public PrinterTestCase
{
    Q_OBJECT

private:
    void setUp() override
    {
        PrinterTestCase::setUp();
        if (!picture().isWritable())
            QSKIP("The robot's home belongs to somebody else; build with a preset for a desk.");
    }

    void create(PluginInterface *host) override
    {
        for (const QString &topic :
             {QStringLiteral("printer.success"), QStringLiteral("printer.error"),
              QStringLiteral("printer.nopaper"), QStringLiteral("printer.noprinter")})
            watch(topic);
        install(new PrintHandler(host, brocker()), QStringLiteral("printer.print"), QString());
    }

    /// Has the page's value of "data" printed.
    void print(const QByteArray &value)
    {
        QCOMPARE(ask("{\"data\": " + value + '}'),
                 QStringList{text(QStringLiteral("printer.success"))});
        QCOMPARE(done(),
                 QStringList({QStringLiteral("printer.isConnected()"),
                              QStringLiteral("printer.print(%1)").arg(picture().path())}));
    }

    void write(const QByteArray &content) const
    {
        QFile file(picture().path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), static_cast<qint64>(content.size()));
    }

private Q_SLOTS:
    void decodes_data();
    void decodes();
    void keepsTheOldTail();
    void replacesALongerOne();
    void leavesTheFileWithoutData_data();
    void leavesTheFileWithoutData();
    void createsTheFileWithoutData();
    void writesBeforeItCallsThePrinter();
    void writesWhateverThePrinterSays_data();
    void writesWhateverThePrinterSays();
    void writesWithoutAPrinter();
    void writesWithoutAHost();
    void printsWhatCannotBeWritten_data();
    void printsWhatCannotBeWritten();
};

void PrintPictureTest::decodes_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QByteArray>("content");
    const QByteArray png = QByteArrayLiteral("\x89PNG\r\n\x1A\n\x00\xFF\xFE");
    const QByteArray base64 = png.toBase64();
    const QByteArray prefix = "data:image/png;base64,";
    const auto row = [](const char *name, const QByteArray &data, const QByteArray &content) {
        QTest::newRow(name) << '"' + data + '"' << content;
    };
    row("bare", base64, png);
    row("with the prefix", prefix + base64, png);
    row("with the prefix twice", prefix + prefix + base64, png);
    row("with the prefix inside", base64.left(4) + prefix + base64.mid(4), png);
    row("with the prefix at the end", base64 + prefix, png);
    row("plus and slash", "+/8=", "\xFB\xFF");
    row("without padding", "QUI", "AB");
    row("with line breaks", "QUJD\\r\\n RA==", "ABCD");
    row("one letter", "Q", "");
    // What is no base64 is passed over.
    row("strange letters", "Q!U#J-D_\xC3\xA9", "ABC");
    row("prefix in capitals", "Data:image/png;base64,QUJD",
        QByteArray::fromBase64("Dataimage/pngbase64QUJD"));
    row("another kind of picture", "data:image/jpeg;base64,QUJD",
        QByteArray::fromBase64("dataimage/jpegbase64QUJD"));
    row("prefix alone", prefix, "");

    const QByteArray large(300000, '\xA5');
    row("large", prefix + large.toBase64(), large);

    QTest::newRow("number") << QByteArray("1234") << QByteArray::fromBase64("1234");
    QTest::newRow("bool") << QByteArray("true") << QByteArray::fromBase64("true");
}

void PrintPictureTest::decodes()
{
    QFETCH(QByteArray, value);
    QFETCH(QByteArray, content);
    create(plugin());
    print(value);
    QVERIFY(picture().exists());
    QCOMPARE(picture().content(), content);
}

void PrintPictureTest::keepsTheOldTail()
{
    create(plugin());
    print("\"" + QByteArray("0123456789").toBase64() + '"');
    print("\"" + QByteArray("abc").toBase64() + '"');
    QCOMPARE(picture().content(), QByteArray("abc3456789"));
    print("\"" + QByteArray("XY").toBase64() + '"');
    QCOMPARE(picture().content(), QByteArray("XYc3456789"));
}

void PrintPictureTest::replacesALongerOne()
{
    create(plugin());
    write("old");
    print("\"" + QByteArray("longer").toBase64() + '"');
    QCOMPARE(picture().content(), QByteArray("longer"));
}

void PrintPictureTest::leavesTheFileWithoutData_data()
{
    QTest::addColumn<QByteArray>("json");
    for (const char *json :
         {"{}", R"({"data": null})", R"({"data": ""})", R"({"data": "!#?"})",
          R"({"data": ["QUJD"]})", R"({"data": {"data": "QUJD"}})", R"({"Data": "QUJD"})"})
        QTest::newRow(json) << QByteArray(json);
}

void PrintPictureTest::leavesTheFileWithoutData()
{
    QFETCH(QByteArray, json);
    makesUpAttributes({"Data"});
    create(plugin());
    write("old");
    QCOMPARE(ask(json), QStringList{text(QStringLiteral("printer.success"))});
    QCOMPARE(done().size(), 2);
    QCOMPARE(picture().content(), QByteArray("old"));
}

void PrintPictureTest::createsTheFileWithoutData()
{
    create(plugin());
    ask();
    done();
    QVERIFY(picture().exists());
    QCOMPARE(picture().content(), QByteArray());
}

void PrintPictureTest::writesBeforeItCallsThePrinter()
{
    create(plugin());
    QList<QByteArray> contents;
    printer().duringCall = [this, &contents] { contents.append(picture().content()); };
    print("\"QUJD\"");
    QCOMPARE(contents, QList<QByteArray>({"ABC", "ABC"})); // in the query, and when printing
}

void PrintPictureTest::writesWhateverThePrinterSays_data()
{
    QTest::addColumn<bool>("connected");
    QTest::addColumn<int>("errorCode");
    QTest::newRow("not connected") << false << 7;
    QTest::newRow("error without a code") << true << 0;
    QTest::newRow("no paper") << true << 1;
    QTest::newRow("other error") << true << 7;
}

void PrintPictureTest::writesWhateverThePrinterSays()
{
    QFETCH(bool, connected);
    QFETCH(int, errorCode);
    create(plugin());
    printer().connected = connected;
    announce(2, errorCode);
    ask(R"({"data": "QUJD"})");
    QCOMPARE(done(), QStringList{QStringLiteral("printer.isConnected()")});
    QCOMPARE(picture().content(), QByteArray("ABC"));
}

void PrintPictureTest::writesWithoutAPrinter()
{
    plugin()->printerDevice.reset();
    create(plugin());
    QCOMPARE(ask(R"({"data": "QUJD"})"), QStringList{text(QStringLiteral("printer.noprinter"))});
    QCOMPARE(picture().content(), QByteArray("ABC"));
}

void PrintPictureTest::writesWithoutAHost()
{
    create(nullptr);
    QCOMPARE(ask(R"({"data": "QUJD"})"), QStringList{text(QStringLiteral("printer.noprinter"))});
    QCOMPARE(picture().content(), QByteArray("ABC"));
}

void PrintPictureTest::printsWhatCannotBeWritten_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("a folder in its place") << QString();
    QTest::newRow("no folder") << QStringLiteral("/no such folder/picture.png");
    QTest::newRow("disk full") << QStringLiteral("/dev/full");
}

void PrintPictureTest::printsWhatCannotBeWritten()
{
    QFETCH(QString, target);
    create(plugin());
    if (target.isEmpty())
        QVERIFY(QDir().mkdir(picture().path()));
    else
        QVERIFY(QFile::link(target, picture().path()));
    print("\"QUJD\"");
}

QTEST_GUILESS_MAIN(PrintPictureTest)
#include "tst_printpicture.moc"
