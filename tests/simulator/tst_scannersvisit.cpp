#include "panorel/Constants.h"
#include "simulator/core/SimulatedScanner.h"
#include "tests/simulator/VisitTestCase.h"

using namespace simulator;
namespace topics = panorel::constants;

/// The sample page with the robot's scanners, and with what no robot should send.
class ScannersVisitTest : public VisitTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aPassportIsRead();
    void aDocumentIsScannedAsChosen();
    void theScannersTellWhatIsWrong();
    void longResultsKeepThePageInShape();
    void oddValuesBreakNothing();
};

void ScannersVisitTest::aPassportIsRead()
{
    openDevice(QStringLiteral("passport"));
    touch(QStringLiteral("input[name=passport-timeout][value=\"60\"]+span"));
    touch(QStringLiteral("#passport-scan"));
    QTRY_COMPARE_WITH_TIMEOUT(news(QStringLiteral("passport")),
                              QStringLiteral("Done: 4 fields read."), timeoutMs);
    QVERIFY(shows(QStringLiteral("passport-fields"), QStringLiteral("surnameMUSTERMANN")));
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("passport-state")), QStringLiteral("At rest"),
                              timeoutMs);
    QCOMPARE(published(topics::SCANNER_PASSPORT_REQUEST).value(QStringLiteral("timeout")).toInt(),
             60);
}

void ScannersVisitTest::aDocumentIsScannedAsChosen()
{
    const auto scanner = core()->devices().documentScanner;
    const QString progress = QStringLiteral(
        "document.getElementById('document-progress').getAttribute('aria-valuenow')");
    openDevice(QStringLiteral("document"));
    touch(QStringLiteral("input[name=document-mode][value=\"2\"]+span"));
    touch(QStringLiteral("input[name=document-resolution][value=\"600\"]+span"));
    type(QStringLiteral("document-brightness"), QStringLiteral("200"));
    scanner->setDocumentPresent(false);
    touch(QStringLiteral("#document-scan"));
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("document-state")),
                              QStringLiteral("Waiting for a sheet"), timeoutMs);
    QCOMPARE(int(scanner->mode()), 2);
    QCOMPARE(int(scanner->resolution()), 600);
    QCOMPARE(int(scanner->brightness()), 200);

    core()->pace().setSpeed(2);
    scanner->setDocumentPresent(true);
    QTRY_COMPARE_WITH_TIMEOUT(evaluate(progress).toInt(), 60, timeoutMs);
    QCOMPARE(textOf(QStringLiteral("document-state")), QStringLiteral("Scanning"));
    QTRY_COMPARE_WITH_TIMEOUT(news(QStringLiteral("document")),
                              QStringLiteral("Done: 2 fields read."), timeoutMs);
    QVERIFY(shows(QStringLiteral("document-fields"), QStringLiteral("titleInvitation")));
    QCOMPARE(evaluate(progress).toInt(), 100);
}

void ScannersVisitTest::theScannersTellWhatIsWrong()
{
    const auto scanners = {
        qMakePair(QStringLiteral("passport"), core()->devices().passportScanner),
        qMakePair(QStringLiteral("document"), core()->devices().documentScanner),
    };
    for (const auto &[name, scanner] : scanners) {
        openDevice(name);
        scanner->setConnected(false);
        QTRY_COMPARE_WITH_TIMEOUT(textOf(name + QStringLiteral("-state")),
                                  QStringLiteral("Not connected"), timeoutMs);
        const QString scan = QStringLiteral("#%1-scan").arg(name);
        touch(scan);
        QTRY_VERIFY_WITH_TIMEOUT(
            news(name).startsWith(QStringLiteral("The scanner did not start.")), timeoutMs);

        scanner->setConnected(true);
        scanner->setDocumentPresent(false);
        touch(scan);
        QTRY_COMPARE_WITH_TIMEOUT(news(name), QStringLiteral("The scanner has started."),
                                  timeoutMs);
        scanner->injectError(9, QStringLiteral("Lamp <i>broken</i>"));
        QTRY_COMPARE_WITH_TIMEOUT(news(name), QStringLiteral("Error 9: Lamp <i>broken</i>"),
                                  timeoutMs);
    }
}

void ScannersVisitTest::longResultsKeepThePageInShape()
{
    const QString longText = QString(100000, QLatin1Char('W'));
    core()->devices().passportScanner->setResult(
        {{QStringLiteral("<img src=x>"), longText}, {longText, QStringLiteral("<script>x()")}});
    openDevice(QStringLiteral("passport"));
    touch(QStringLiteral("#passport-scan"));
    QTRY_VERIFY_WITH_TIMEOUT(shows(QStringLiteral("passport-fields"), QStringLiteral("<script>x")),
                             timeoutMs);
    QVERIFY(shows(QStringLiteral("passport-fields"), QStringLiteral("<img src=x>WWW")));
    QVERIFY(textOf(QStringLiteral("passport-fields")).size() < 1000);
    for (const char *selector : {"html", "#view-devices", "#part-passport"})
        QVERIFY2(evaluate(QStringLiteral("var e = document.querySelector('%1');"
                                         "e.scrollWidth <= e.clientWidth")
                              .arg(QLatin1String(selector)))
                     .toBool(),
                 selector);
}

void ScannersVisitTest::oddValuesBreakNothing()
{
    makesUpMessages(); // of any kind
    // The script's failures are counted by the base class.
    const QVariantList odd{QVariant(),
                           true,
                           -1,
                           QStringLiteral("x"),
                           QVariantList{1},
                           QVariantMap{{QStringLiteral("a"), 1}}};
    for (const QVariant &value : odd) {
        QVariantMap attributes;
        for (const char *name : {"state",
                                 "error_code",
                                 "error_message",
                                 "sensor",
                                 "success",
                                 "progress",
                                 "code",
                                 "text",
                                 "data",
                                 "locale",
                                 "is_visible",
                                 "event",
                                 "uuid",
                                 "tone",
                                 "result",
                                 "file",
                                 "status",
                                 "error",
                                 "error_description",
                                 "sound",
                                 "settings",
                                 "environment",
                                 "mode",
                                 "charge",
                                 "name"})
            attributes.insert(QLatin1String(name), value);
        for (const QString &topic : {topics::PRINT_STATE_INFO,
                                     topics::DISPENSER_SENSOR,
                                     topics::SCANNER_DOCUMENT_RESPONSE,
                                     topics::SCANNER_DOCUMENT_STATE,
                                     topics::SCANNER_DOCUMENT_PROGRESS,
                                     topics::SCANNER_DOCUMENT_ERROR,
                                     topics::SCANNER_DOCUMENT_FINISH,
                                     topics::KEYBOARD_CONTROL_RESPONSE,
                                     topics::SIP_EVENTS,
                                     topics::SIP_CALL_RESPONSE,
                                     topics::SIP_TEXT_RESPONSE,
                                     topics::SIP_FILE_RESPONSE,
                                     topics::MAIL_SENDER_RESPONSE,
                                     topics::PLAY_STATUS,
                                     topics::RECORD_AUDIO_RESPONSE,
                                     topics::SOUND_LOAD,
                                     topics::SETTINGS_LOAD,
                                     topics::LOAD_ENVIRONMENT,
                                     topics::DRIVE_MODE,
                                     topics::DRIVE_STATUS,
                                     topics::DRIVE_CHARGE,
                                     topics::USER_HAS})
            publish(topic, attributes);
    }
    publish(topics::PRINT_NO_PAPER);
    QTRY_COMPARE_WITH_TIMEOUT(news(QStringLiteral("printer")),
                              QStringLiteral("The printer has no paper."), timeoutMs);
}

QTEST_MAIN(ScannersVisitTest)
#include "tst_scannersvisit.moc"
