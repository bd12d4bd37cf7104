#pragma once

#include "tests/support/HostCall.h"

#include "host/IDispenser.h"
#include "host/IKeyboard.h"
#include "host/IPrinter.h"
#include "host/IScanner.h"

#include <functional>

// Doubles of the robot's devices. They append what they are told to the plugin's calls, each name
// with its device before it, answer what a test put in, and signal what a test emits.

/// What the doubles of devices have in common.
class TestDeviceState
{
public:
    /// @p hostCalls, not owned, takes the calls.
    TestDeviceState(const char *name, QVector<HostCall> *hostCalls)
        : m_name(QString::fromLatin1(name))
        , m_hostCalls(hostCalls)
    { }

    bool connected = true;
    std::function<void()> duringCall; ///< called at the end of each call, before it returns

    void keep(const char *call, const QVariantList &arguments = {})
    {
        m_hostCalls->append({m_name + QLatin1Char('.') + QLatin1String(call), arguments});
        if (duringCall)
            duringCall();
    }

    bool keepConnectionQuery()
    {
        keep("isConnected");
        return connected;
    }

private:
    QString m_name;
    QVector<HostCall> *m_hostCalls;
};

/// "printer.isConnected", "printer.print" (path).
class TestPrinter : public IPrinter, public TestDeviceState
{
    Q_OBJECT

public:
    explicit TestPrinter(QVector<HostCall> *hostCalls)
        : TestDeviceState("printer", hostCalls)
    { }

    bool isConnected() override { return keepConnectionQuery(); }
    bool print(const QString &file) override
    {
        keep("print", {file});
        return result;
    }

    bool result = true; ///< given for every print
};

/// "dispenser.isConnected", "dispenser.issueCard" (position).
class TestDispenser : public IDispenser, public TestDeviceState
{
    Q_OBJECT

public:
    explicit TestDispenser(QVector<HostCall> *hostCalls)
        : TestDeviceState("dispenser", hostCalls)
    { }

    bool isConnected() override { return keepConnectionQuery(); }
    void issueCard(const int &position) override { keep("issueCard", {position}); }
};

/// "scanner.isConnected", "scanner.scan" (seconds), and one call for each setter.
class TestScanner : public IScanner, public TestDeviceState
{
    Q_OBJECT

public:
    explicit TestScanner(QVector<HostCall> *hostCalls)
        : TestDeviceState("scanner", hostCalls)
    { }

    bool isConnected() override { return keepConnectionQuery(); }
    bool scan(const double &timeout) override
    {
        keep("scan", {timeout});
        return result;
    }
    void setMode(const quint8 &mode) override { keep("setMode", {static_cast<int>(mode)}); }
    void setBrightness(const quint8 &brightness) override
    {
        keep("setBrightness", {static_cast<int>(brightness)});
    }
    void setResolution(const quint16 &resolution) override
    {
        keep("setResolution", {static_cast<int>(resolution)});
    }

    bool result = true; ///< given for every scan
};

/// "keyboard.locale", "keyboard.setLocale" (locale), "keyboard.isVisible", "keyboard.setVisible".
class TestKeyboard : public IKeyboard, public TestDeviceState
{
    Q_OBJECT

public:
    explicit TestKeyboard(QVector<HostCall> *hostCalls)
        : TestDeviceState("keyboard", hostCalls)
    { }

    QString locale() override
    {
        keep("locale");
        return currentLocale;
    }
    void setLocale(const QString &locale) override
    {
        currentLocale = locale;
        keep("setLocale", {locale});
    }
    bool isVisible() override
    {
        keep("isVisible");
        return visible;
    }
    void setVisible(const bool &visibility) override
    {
        visible = visibility;
        keep("setVisible", {visibility});
    }

    QString currentLocale = QStringLiteral("en_GB");
    bool visible = false;
};
