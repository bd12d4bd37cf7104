#pragma once

#include "tests/handlers/DeviceTestCase.h"
#include "tests/support/PictureFile.h"

/// Base of the tests of what the page has to do with the printer.
class PrinterTestCase : public DeviceTestCase
{
    Q_OBJECT

protected:
    QSharedPointer<TestPrinter> newPrinter()
    {
        return QSharedPointer<TestPrinter>::create(&plugin()->calls);
    }

    /// Lets the handler be the last to let go of its printer, which still signals on its way out.
    /// Fails when something keeps what it said then.
    void partWithThePrinter()
    {
        class PartingPrinter : public TestPrinter
        {
        public:
            PartingPrinter(QVector<HostCall> *hostCalls, const QString &farewell)
                : TestPrinter(hostCalls)
                , m_farewell(farewell)
            { }
            ~PartingPrinter() override
            {
                Q_EMIT signalState(PrinterState::NotConnected);
                Q_EMIT signalError(-1, m_farewell);
            }

        private:
            const QString m_farewell;
        };

        const QString farewell(1, QLatin1Char('x')); // no literal: it counts who holds it
        plugin()->printerDevice =
            QSharedPointer<PartingPrinter>::create(&plugin()->calls, farewell);
        create(plugin());
        plugin()->printerDevice.reset();
        brocker()->clear();
        QVERIFY(farewell.isDetached());
    }

    /// Lets the printer signal to a handler that was deleted, also what was on its way before. Fails
    /// when something keeps what it said, or publishes.
    void signalToADeletedHandler()
    {
        const QString message(1, QLatin1Char('x')); // no literal: it counts who holds it
        create(plugin());
        inAnotherThread([this] { announce(2, 1, QStringLiteral("on its way")); });
        brocker()->clear();
        announce(2, 7, message);
        turnEventLoop();
        QVERIFY(message.isDetached());
        QCOMPARE(heard(), QStringList());
    }

    /// Listens, and installs a handler.
    virtual void create(PluginInterface *host) = 0;

    TestPrinter &printer() { return *plugin()->printerDevice; }

    /// Lets the printer announce an error and, after it, @p state.
    void announce(int state, int errorCode, const QString &errorMessage = {})
    {
        Q_EMIT printer().signalError(errorCode, errorMessage);
        Q_EMIT printer().signalState(static_cast<PrinterState>(state));
    }

    void setUp() override
    {
        DeviceTestCase::setUp();
        m_picture = std::make_unique<PictureFile>();
        plugin()->printerDevice = newPrinter();
    }
    void tearDown() override
    {
        DeviceTestCase::tearDown();
        m_picture.reset();
    }

    const PictureFile &picture() const { return *m_picture; }

private:
    std::unique_ptr<PictureFile> m_picture;
};
