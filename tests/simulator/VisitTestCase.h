#pragma once

#include "panorel/MessageQueueBrocker.h"
#include "simulator/app/MessageReporter.h"
#include "simulator/app/RobotScreen.h"
#include "simulator/app/SimulatorWindow.h"
#include "simulator/core/RobotCore.h"
#include "tests/support/TestCase.h"

#include <QUrl>
#include <QWebEngineView>

#include <memory>

/// Base of the tests that visit the sample page: the page in the real simulator window, the real
/// handlers and devices behind it, and a finger that touches what is in sight. A test function fails
/// when the page's script does.
class VisitTestCase : public TestCase
{
protected:
    static constexpr int timeoutMs = 30000;

    simulator::RobotCore *core() const { return m_core.get(); }
    simulator::SimulatorWindow *window() const { return m_window.get(); }

    /// The page anew, before a robot with @p equipment.
    void open(const simulator::RobotCore::Equipment &equipment)
    {
        close();
        m_core = std::make_unique<simulator::RobotCore>(equipment);
        m_core->pace().setSpeed(20);
        m_window = std::make_unique<simulator::SimulatorWindow>(m_core.get());
        connect(m_window->screen()->reporter(), &simulator::MessageReporter::published, this,
                [this](const panorel::Message &message) { m_published.append(message); });
        m_window->show();
        m_window->load(QUrl::fromLocalFile(QStringLiteral(PANOREL_SAMPLE_PAGE "/index.html")));
        QTRY_COMPARE_WITH_TIMEOUT(
            evaluate(QStringLiteral("var c = document.getElementById('connection');"
                                    "c ? c.dataset.state : ''"))
                .toString(),
            QStringLiteral("connected"), timeoutMs);
        evaluate(QStringLiteral("window.failures = [];"
                                "window.addEventListener('error', e => failures.push(e.message));"
                                "null"));
    }

    void setUp() override { open({}); }
    void tearDown() override
    {
        const QString failures = evaluate(QStringLiteral("failures.join()")).toString();
        if (!failures.isEmpty())
            QTest::qFail(qPrintable(failures), __FILE__, __LINE__);
        close();
    }
    bool isForeign(const QString &warning) const override
    {
        return !warning.startsWith(QLatin1String("panorel:"));
    }

    /// Runs a script in the page and waits for its value.
    QVariant evaluate(const QString &script)
    {
        QVariant result;
        bool done = false;
        m_window->screen()->view()->page()->runJavaScript(script, [&](const QVariant &value) {
            result = value;
            done = true;
        });
        if (!QTest::qWaitFor([&done] { return done; }, timeoutMs))
            QTest::qFail("the page did not answer", __FILE__, __LINE__);
        return result;
    }

    /// Whether the page's element @p id shows @p text, among others.
    bool shows(const QString &id, const QString &text) { return textOf(id).contains(text); }
    QString textOf(const QString &id)
    {
        return evaluate(QStringLiteral("document.getElementById('%1').textContent").arg(id))
            .toString();
    }

    /// What stands first in the news of @p device.
    QString news(const QString &device)
    {
        return evaluate(QStringLiteral("document.querySelector('#%1-news .news-text').textContent")
                            .arg(device))
            .toString();
    }
    void openDevice(const QString &name)
    {
        touch(QStringLiteral("#tab-devices"));
        touch(QStringLiteral("#tab-") + name);
    }

    /// Touches what the CSS selector @p selector finds; fails when a finger could not.
    void touch(const QString &selector)
    {
        const bool touched =
            evaluate(QStringLiteral("var e = document.querySelector('%1');"
                                    "var inSight = e !== null && e.offsetParent !== null"
                                    "  && !e.matches(':disabled');"
                                    "if (inSight) e.click();"
                                    "inSight")
                         .arg(selector))
                .toBool();
        if (!touched)
            QTest::qFail(qPrintable(selector + QStringLiteral(" cannot be touched")), __FILE__,
                         __LINE__);
    }
    /// Types @p text into the field @p id, or moves the slider @p id there.
    void type(const QString &id, const QString &text)
    {
        evaluate(QStringLiteral("var f = document.getElementById('%1'); f.value = '%2';"
                                "f.dispatchEvent(new Event('input', {bubbles: true}));"
                                "f.dispatchEvent(new Event('change', {bubbles: true})); null")
                     .arg(id, text));
    }

    /// Publishes on the bus, as a handler would.
    void publish(const QString &topic, const QVariantMap &attributes = {})
    {
        m_window->screen()->brocker()->publish(panorel::Message(topic, attributes));
    }
    /// The attributes of the message on @p topic that was published last.
    QVariantMap published(const QString &topic) const
    {
        for (auto message = m_published.crbegin(); message != m_published.crend(); ++message)
            if (message->type() == topic)
                return message->attributes();
        return {};
    }
    /// How many messages on @p topic were published.
    int count(const QString &topic) const
    {
        int number = 0;
        for (const panorel::Message &message : m_published)
            number += message.type() == topic ? 1 : 0;
        return number;
    }

private:
    void close()
    {
        m_window.reset();
        m_core.reset();
        m_published.clear();
    }

    std::unique_ptr<simulator::RobotCore> m_core;
    std::unique_ptr<simulator::SimulatorWindow> m_window;
    QVector<panorel::Message> m_published;
};
