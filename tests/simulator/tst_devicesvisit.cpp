#include "host/IDispenser.h"
#include "panorel/Constants.h"
#include "simulator/core/SimulatedCamera.h"
#include "simulator/core/SimulatedDispenser.h"
#include "simulator/core/SimulatedKeyboard.h"
#include "simulator/core/SimulatedPrinter.h"
#include "tests/simulator/VisitTestCase.h"

#include <QImage>

using namespace simulator;
namespace topics = panorel::constants;

/// The sample page with the robot's printer, card dispenser and keyboard.
class DevicesVisitTest : public VisitTestCase
{
    Q_OBJECT

private:
    bool isLit(const QString &light)
    {
        return evaluate(QStringLiteral("document.getElementById('%1').classList.contains('is-on')")
                            .arg(light))
            .toBool();
    }

private Q_SLOTS:
    void theBadgeIsPrintedAsItIsShown();
    void theVisitorsNameIsOnTheBadge();
    void aBadgeNeedsAName();
    void thePrinterTellsWhatIsWrong();
    void thePrinterTellsItsState();
    void aCardComesOut();
    void theDispenserTellsWhatIsWrong();
    void theKeyboardIsShownAndHidden();
    void theKeyboardsLayoutIsChosen();
    void devicesThatAreMissingAreTold();
    void newsFollowTheLanguage();
};

void DevicesVisitTest::theBadgeIsPrintedAsItIsShown()
{
    openDevice(QStringLiteral("printer"));
    type(QStringLiteral("badge-name"), QStringLiteral("Grace Hopper"));
    const QString waves = evaluate(QStringLiteral("badge.toDataURL()")).toString();
    touch(QStringLiteral("input[value=dots]+span"));
    const QString shown = evaluate(QStringLiteral("badge.toDataURL()")).toString();
    QVERIFY(shown != waves);
    touch(QStringLiteral("#badge-print"));
    QTRY_COMPARE_WITH_TIMEOUT(core()->devices().printer->prints().size(), 1, timeoutMs);
    const QImage printed = QImage::fromData(core()->devices().printer->prints().constFirst());
    QCOMPARE(
        printed,
        QImage::fromData(QByteArray::fromBase64(shown.section(QLatin1Char(','), 1).toLatin1())));
    QCOMPARE(printed.size(), QSize(640, 400));
    QTRY_COMPARE_WITH_TIMEOUT(news(QStringLiteral("printer")),
                              QStringLiteral("The printer has taken the badge."), timeoutMs);
    QVERIFY(shows(QStringLiteral("messages"), topics::PRINT_SUCCESS));
}

void DevicesVisitTest::theVisitorsNameIsOnTheBadge()
{
    const QString name = QStringLiteral("document.getElementById('badge-name').value");
    openDevice(QStringLiteral("printer"));
    core()->camera()->enter(1);
    QTRY_COMPARE_WITH_TIMEOUT(evaluate(name).toString(), QStringLiteral("Anna"), timeoutMs);
    type(QStringLiteral("badge-name"), QStringLiteral("Bob"));
    touch(QStringLiteral("#badge-visitor"));
    QCOMPARE(evaluate(name).toString(), QStringLiteral("Anna"));
}

void DevicesVisitTest::aBadgeNeedsAName()
{
    openDevice(QStringLiteral("printer"));
    type(QStringLiteral("badge-name"), QStringLiteral("  "));
    touch(QStringLiteral("#badge-print"));
    QVERIFY2(news(QStringLiteral("printer")).startsWith(QStringLiteral("Who is the badge for?")),
             qPrintable(news(QStringLiteral("printer"))));
    QCOMPARE(count(topics::PRINT), 0);
}

void DevicesVisitTest::thePrinterTellsWhatIsWrong()
{
    const auto printer = core()->devices().printer;
    const auto print = [this] { touch(QStringLiteral("#badge-print")); };
    openDevice(QStringLiteral("printer"));
    type(QStringLiteral("badge-name"), QStringLiteral("Grace"));

    printer->setConnected(false);
    print();
    QTRY_VERIFY_WITH_TIMEOUT(
        news(QStringLiteral("printer")).startsWith(QStringLiteral("The printer could not print.")),
        timeoutMs);

    printer->setConnected(true);
    printer->setPaper(0);
    print();
    QTRY_COMPARE_WITH_TIMEOUT(news(QStringLiteral("printer")),
                              QStringLiteral("The printer has no paper."), timeoutMs);

    // Both replies stay to be read.
    printer->setPaper(3);
    print();
    QTRY_COMPARE_WITH_TIMEOUT(news(QStringLiteral("printer")),
                              QStringLiteral("The printer has taken the badge."), timeoutMs);
    QVERIFY(shows(QStringLiteral("printer-news"), QStringLiteral("The paper is running low.")));
}

void DevicesVisitTest::thePrinterTellsItsState()
{
    const auto printer = core()->devices().printer;
    openDevice(QStringLiteral("printer"));
    const auto asksAndHears = [this](const QString &answer) {
        touch(QStringLiteral("#printer-state"));
        return QTest::qWaitFor([this, answer] { return news(QStringLiteral("printer")) == answer; },
                               timeoutMs);
    };
    QVERIFY(asksAndHears(QStringLiteral("The printer is ready.")));
    printer->injectError(7, QStringLiteral("<b>Cover open</b>"));
    QVERIFY(asksAndHears(QStringLiteral("The printer has an error 7: <b>Cover open</b>")));
    printer->clearError();
    printer->setPaper(2);
    QVERIFY(asksAndHears(QStringLiteral("The printer is low on paper.")));
    printer->setPaper(0);
    QVERIFY(asksAndHears(QStringLiteral("The printer has no paper in its tray.")));
    printer->setConnected(false);
    QVERIFY(asksAndHears(QStringLiteral("The printer is not connected.")));
}

void DevicesVisitTest::aCardComesOut()
{
    openDevice(QStringLiteral("dispenser"));
    QVERIFY(!isLit(QStringLiteral("light-exit")));
    touch(QStringLiteral("#card-dispense"));
    QTRY_COMPARE_WITH_TIMEOUT(news(QStringLiteral("dispenser")),
                              QStringLiteral("Please take your card."), timeoutMs);
    QVERIFY(shows(QStringLiteral("dispenser-news"), QStringLiteral("A card is on its way")));
    QVERIFY(isLit(QStringLiteral("light-exit")));
    QVERIFY(!isLit(QStringLiteral("light-capture-1")));
    QCOMPARE(core()->devices().dispenser->position(), 4);
    QCOMPARE(core()->devices().dispenser->cards(), 19);
}

void DevicesVisitTest::theDispenserTellsWhatIsWrong()
{
    openDevice(QStringLiteral("dispenser"));
    const struct
    {
        int status;
        QString told;
    } rows[] = {
        {IDispenser::NotConnected, QStringLiteral("The card dispenser is not connected.")},
        {IDispenser::CommunicationTimeout, QStringLiteral("The card dispenser does not react.")},
        {IDispenser::CardDispensing, QStringLiteral("A card is on its way…")},
        {IDispenser::CardPreEmpty, QStringLiteral("Only few cards are left.")},
        {IDispenser::CardEmpty, QStringLiteral("There are no cards left.")},
        {IDispenser::CardBinFull, QStringLiteral("The bin for withdrawn cards is full.")},
        {IDispenser::CardJam, QStringLiteral("The card is stuck. Please call the staff.")},
        {IDispenser::CaptureSensor1, QStringLiteral("A card at the sensor CaptSensor1")},
        {IDispenser::CaptureSensor2, QStringLiteral("A card at the sensor CaptSensor2")},
    };
    for (const auto &row : rows) {
        core()->devices().dispenser->injectStatus(static_cast<unsigned short>(row.status));
        QTRY_COMPARE_WITH_TIMEOUT(news(QStringLiteral("dispenser")), row.told, timeoutMs);
    }
    QVERIFY(isLit(QStringLiteral("light-capture-1")));
    QVERIFY(isLit(QStringLiteral("light-capture-2")));
}

void DevicesVisitTest::theKeyboardIsShownAndHidden()
{
    const auto keyboard = core()->devices().keyboard;
    openDevice(QStringLiteral("keyboard"));
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("keyboard-visible")),
                              QStringLiteral("The keyboard is hidden."), timeoutMs);
    touch(QStringLiteral("#keyboard-show"));
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("keyboard-visible")),
                              QStringLiteral("The keyboard is on the screen."), timeoutMs);
    QVERIFY(keyboard->isVisible());
    touch(QStringLiteral("#keyboard-hide"));
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("keyboard-visible")),
                              QStringLiteral("The keyboard is hidden."), timeoutMs);
    QVERIFY(!keyboard->isVisible());
    keyboard->setVisible(true);
    touch(QStringLiteral("#keyboard-ask"));
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("keyboard-visible")),
                              QStringLiteral("The keyboard is on the screen."), timeoutMs);
}

void DevicesVisitTest::theKeyboardsLayoutIsChosen()
{
    openDevice(QStringLiteral("keyboard"));
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("keyboard-locale")),
                              QStringLiteral("Now: en_GB"), timeoutMs);
    touch(QStringLiteral("[data-locale=de_DE]"));
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("keyboard-locale")),
                              QStringLiteral("Now: de_DE"), timeoutMs);
    QCOMPARE(core()->devices().keyboard->locale(), QStringLiteral("de_DE"));
}

void DevicesVisitTest::devicesThatAreMissingAreTold()
{
    RobotCore::Equipment none;
    none.printer = none.dispenser = none.passportScanner = none.documentScanner = none.keyboard =
        false;
    open(none);
    openDevice(QStringLiteral("printer"));
    type(QStringLiteral("badge-name"), QStringLiteral("Grace"));
    touch(QStringLiteral("#badge-print"));
    QTRY_COMPARE_WITH_TIMEOUT(news(QStringLiteral("printer")),
                              QStringLiteral("This robot has no printer."), timeoutMs);
    openDevice(QStringLiteral("dispenser"));
    touch(QStringLiteral("#card-dispense"));
    QTRY_COMPARE_WITH_TIMEOUT(news(QStringLiteral("dispenser")),
                              QStringLiteral("This robot has no card dispenser."), timeoutMs);
    openDevice(QStringLiteral("document"));
    touch(QStringLiteral("#document-scan"));
    QTRY_VERIFY_WITH_TIMEOUT(
        news(QStringLiteral("document")).startsWith(QStringLiteral("The scanner did not start.")),
        timeoutMs);
    // A keyboard that is not there keeps silent.
    openDevice(QStringLiteral("keyboard"));
    QTRY_VERIFY_WITH_TIMEOUT(shows(QStringLiteral("keyboard-visible"), QStringLiteral("No answer")),
                             timeoutMs);
}

void DevicesVisitTest::newsFollowTheLanguage()
{
    openDevice(QStringLiteral("printer"));
    publish(topics::PRINT_LOW_PAPER);
    publish(topics::PRINT_NO_PAPER);
    QTRY_COMPARE_WITH_TIMEOUT(news(QStringLiteral("printer")),
                              QStringLiteral("The printer has no paper."), timeoutMs);
    touch(QStringLiteral("#language-de"));
    QCOMPARE(news(QStringLiteral("printer")), QStringLiteral("Der Drucker hat kein Papier."));
    QVERIFY(shows(QStringLiteral("printer-news"), QStringLiteral("Das Papier geht zur Neige.")));
}

QTEST_MAIN(DevicesVisitTest)
#include "tst_devicesvisit.moc"
