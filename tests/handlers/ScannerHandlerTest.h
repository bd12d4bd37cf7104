#pragma once

#include "tests/handlers/DeviceTestCase.h"

/// Base of the tests of both scanners' handlers: the requests of both are tested alike.
class ScannerHandlerTest : public DeviceTestCase
{
    Q_OBJECT

protected:
    using Scanner = QSharedPointer<TestScanner>;

    /// @p kind stands in the topics: "document" or "passport".
    ScannerHandlerTest(const QString &kind, const QString &className);

    /// Installs a new handler.
    virtual void installHandler(PluginInterface *host) = 0;
    /// The host's scanners: the one that the handler drives, and the other kind.
    virtual Scanner &own() = 0;
    virtual Scanner &other() = 0;

    /// Listens, and installs a handler.
    void create(PluginInterface *host);
    void renew();
    Scanner newScanner();
    TestScanner &scanner() { return *own(); }

    QString topic(const char *what) const;
    QString className() const { return m_className; }

    // Messages, as published() gives them.
    QStringList response(bool success) const;
    QStringList errorMessage(const QString &code, const QString &text) const;
    QStringList stateMessage(int state) const;
    QStringList progressMessage(const QString &progress) const;
    QStringList finishMessage(const QVariantMap &data) const;

    void setUp() override;

    const QString m_isConnected = QStringLiteral("scanner.isConnected()");
    const QString m_scan = QStringLiteral("scanner.scan(30)");

private:
    const QString m_kind;
    const QString m_className;

private Q_SLOTS:
    void scans_data();
    void scans();
    void readsIgnoreNotConnected_data();
    void readsIgnoreNotConnected();
    void readsTheTimeout_data();
    void readsTheTimeout();
    void answersWithoutAScanner_data();
    void answersWithoutAScanner();
    void drivesItsOwnScanner();
    void keepsToItsScanner();
    void survivesClearingInAReply();
    void survivesClearingInACall_data();
    void survivesClearingInACall();
};
