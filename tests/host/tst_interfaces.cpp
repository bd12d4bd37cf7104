#include "host/CallState.h"
#include "host/Device.h"
#include "host/IDispenser.h"
#include "host/IInteractionService.h"
#include "host/IKeyboard.h"
#include "host/IPrinter.h"
#include "host/IScanner.h"
#include "host/Interaction.h"
#include "host/MailSender.h"
#include "host/PluginInterface.h"
#include "host/PrinterState.h"
#include "host/QuestionHandler.h"
#include "host/SIPMaster.h"
#include "host/ScannerState.h"
#include "tests/support/TestCase.h"
#include "tests/support/TestPlugin.h"

#include <QMetaEnum>
#include <QMetaMethod>

namespace {

class Keyboard : public IKeyboard
{
    Q_OBJECT

public:
    bool isVisible() override { return m_visible; }
    void setVisible(const bool &visible) override { m_visible = visible; }

private:
    bool m_visible = false;
};

QStringList ownSignals(const QMetaObject &meta)
{
    QStringList list;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == QMetaMethod::Signal)
            list.append(QString::fromLatin1(meta.method(i).methodSignature()));
    }
    return list;
}

} // namespace

Q_DECLARE_METATYPE(const QMetaObject *)

class InterfacesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void devicesHaveThePlatformsValues();
    void printerStatesHaveThePlatformsValues();
    void dispenserNamesEachBit_data();
    void dispenserNamesEachBit();
    void keyboardShowsAndHides();
    void keyboardHasNoLocaleOfItsOwn();
    void signalsReturnTheHostsAnswer();
    void signalsWithoutAHostAnswerNothing();
    void enumerationsAreMetaTypes();
    void interfacesHaveTheirSignals_data();
    void interfacesHaveTheirSignals();
    void servicesHoldOnePointer();
};

void InterfacesTest::devicesHaveThePlatformsValues()
{
    QCOMPARE(static_cast<int>(Device::Printer), 8);
    QCOMPARE(static_cast<int>(Device::CardDispenser), 128);
    QCOMPARE(static_cast<int>(Device::PassportScanner), 256);
    QCOMPARE(static_cast<int>(Device::DocumentScanner), 512);
}

void InterfacesTest::printerStatesHaveThePlatformsValues()
{
    QCOMPARE(static_cast<int>(PrinterState::Idle), 0);
    QCOMPARE(static_cast<int>(PrinterState::InProcess), 1);
    QCOMPARE(static_cast<int>(PrinterState::Error), 2);
    QCOMPARE(static_cast<int>(PrinterState::NotConnected), 3);
}

void InterfacesTest::dispenserNamesEachBit_data()
{
    QTest::addColumn<int>("bit");
    for (const int bit : {0x8000, 0x4000, 0x0800, 0x0010, 0x0008, 0x1000, 0x0040, 0x0020, 0x0200,
                          0x0100, 0x0004, 0x0002, 0x0001})
        QTest::newRow(qPrintable(QString::number(bit, 16))) << bit;
}

void InterfacesTest::dispenserNamesEachBit()
{
    QFETCH(int, bit);
    const int index = IDispenser::staticMetaObject.indexOfEnumerator("Codes");
    QVERIFY(index >= 0);
    const QMetaEnum codes = IDispenser::staticMetaObject.enumerator(index);
    QVERIFY(codes.isFlag());
    QVERIFY(codes.valueToKey(bit));
}

void InterfacesTest::keyboardShowsAndHides()
{
    Keyboard keyboard;
    keyboard.show();
    QVERIFY(keyboard.isVisible());
    keyboard.hide();
    QVERIFY(!keyboard.isVisible());
}

void InterfacesTest::keyboardHasNoLocaleOfItsOwn()
{
    Keyboard keyboard;
    keyboard.setLocale(QStringLiteral("en_GB"));
    QCOMPARE(keyboard.locale(), QString());
}

void InterfacesTest::signalsReturnTheHostsAnswer()
{
    TestPlugin plugin;
    plugin.replica = QSharedPointer<Replica>::create();
    plugin.scriptResult = QStringList({QStringLiteral("ok")});
    QCOMPARE(Q_EMIT plugin.signalGetReplica(Replica::Plain, {}, true, true, {}), plugin.replica);
    QCOMPARE(Q_EMIT plugin.signalGetAppReplica(QStringLiteral("s"), {}, true, true, {}),
             plugin.replica);
    QCOMPARE(Q_EMIT plugin.signalScriptStart(QStringLiteral("x")), plugin.scriptResult);
}

void InterfacesTest::signalsWithoutAHostAnswerNothing()
{
    TestPlugin plugin;
    plugin.disconnect(&plugin);
    const QSharedPointer<Replica> none;
    QCOMPARE(Q_EMIT plugin.signalGetReplica(Replica::Plain, {}, true, true, {}), none);
    QCOMPARE(Q_EMIT plugin.signalGetAppReplica(QStringLiteral("s"), {}, true, true, {}), none);
    QCOMPARE(Q_EMIT plugin.signalScriptStart(QStringLiteral("x")), QStringList());
}

void InterfacesTest::enumerationsAreMetaTypes()
{
    QCOMPARE(QMetaType::typeName(qMetaTypeId<ID>()), "ID");
    QCOMPARE(QMetaType::typeName(qMetaTypeId<ScannerState>()), "ScannerState");
    QCOMPARE(QMetaType::typeName(qMetaTypeId<PrinterState>()), "PrinterState");
    QCOMPARE(QMetaType::typeName(qMetaTypeId<CallState>()), "CallState");
    QCOMPARE(QMetaType::typeName(qMetaTypeId<Interaction::Reason>()), "Interaction::Reason");
}

void InterfacesTest::interfacesHaveTheirSignals_data()
{
    QTest::addColumn<const QMetaObject *>("meta");
    QTest::addColumn<QStringList>("signatures");
    const auto row = [](const QMetaObject &meta, const QList<QByteArray> &signatures) {
        QStringList list;
        for (const QByteArray &signature : signatures)
            list.append(QString::fromLatin1(signature));
        QTest::newRow(meta.className()) << &meta << list;
    };
    row(SIPMaster::staticMetaObject,
        {"signalHiddenCallResult(QUuid,bool)", "signalPublicCallState(CallState)",
         "signalTone(int)"});
    row(MailSender::staticMetaObject, {"signalFinished()", "signalError(int,QString)"});
    row(IPrinter::staticMetaObject, {"signalError(int,QString)", "signalState(PrinterState)"});
    row(IDispenser::staticMetaObject, {"statusChanged(ushort)"});
    row(IScanner::staticMetaObject,
        {"signalError(int,QString)", "signalState(ScannerState)", "signalProgress(double)",
         "signalFinish(QMap<QString,QString>)"});
    row(IInteractionService::staticMetaObject, {"started(Interaction::Reason)", "finished()"});
    row(QuestionHandler::staticMetaObject, {"hasAnswer(QUuid,QString)"});
    row(PluginInterface::staticMetaObject,
        {"signalGetReplica(Replica::Type,QVariant,bool,bool,FaceInfo)",
         "signalGetAppReplica(QString,QVariant,bool,bool,FaceInfo)",
         "signalTTSStart(QString,bool,bool,ID,Replica::Type)", "signalTTSCancel()",
         "signalAnswersAnchor(ID)", "signalScriptStart(QString)", "signalScriptCancel()",
         "signalLanguage(QString)", "signalOperatorCall(bool)", "signalFaceTrackingAuto(bool)",
         "signalFaceTracking(qlonglong)", "signalFaceAdd(qlonglong)", "signalFaceDelete(qlonglong)",
         "signalHeadEnable(bool)", "signalDrivePoint(ushort)", "signalDrivePause(bool)",
         "signalDriveMode(DriveMode)", "signalDriveCharger(bool)"});
}

void InterfacesTest::interfacesHaveTheirSignals()
{
    QFETCH(const QMetaObject *, meta);
    QFETCH(QStringList, signatures);
    QCOMPARE(ownSignals(*meta), signatures);
}

void InterfacesTest::servicesHoldOnePointer()
{
    // The robot core defines what is behind it, so its size must not change.
    QCOMPARE(sizeof(SIPMaster), sizeof(QObject) + sizeof(void *));
    QCOMPARE(sizeof(MailSender), sizeof(QObject) + sizeof(void *));
}

QTEST_GUILESS_MAIN(InterfacesTest)
#include "tst_interfaces.moc"
