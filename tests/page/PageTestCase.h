#pragma once

#include "tests/page/WidgetTestCase.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QUrl>
#include <QWebEngineView>

/// Base of the tests with a page in a real widget. pages/recorder.html keeps in `received` what the
/// page receives, and holds the web channel's object as `robot`.
class PageTestCase : public WidgetTestCase
{
protected:
    static constexpr int timeoutMs = 30000;

    static QString recorderPage()
    {
        return QUrl::fromLocalFile(QStringLiteral(PANOREL_TEST_PAGES "/recorder.html")).toString();
    }

    QWebEnginePage *page() const { return screen->findChild<QWebEngineView *>()->page(); }

    /// Runs a script in the page and waits for its value.
    QVariant evaluate(const QString &script)
    {
        QVariant result;
        bool done = false;
        page()->runJavaScript(script, [&](const QVariant &value) {
            result = value;
            done = true;
        });
        if (!QTest::qWaitFor([&done] { return done; }, timeoutMs))
            QTest::qFail("the page did not answer", __FILE__, __LINE__);
        return result;
    }
    QJsonArray received()
    {
        return QJsonDocument::fromJson(
                   evaluate(QStringLiteral("JSON.stringify(received)")).toString().toUtf8())
            .array();
    }
    QStringList receivedTopics()
    {
        QStringList topics;
        const QJsonArray messages = received();
        for (const QJsonValue &message : messages)
            topics.append(message.toObject().value(QStringLiteral("type")).toString());
        return topics;
    }

    /// Waits until everything that was published before has reached the page.
    void settle()
    {
        static int barrier = 0;
        const QString name = QStringLiteral("barrier-%1").arg(++barrier);
        screen->customEvent({{QStringLiteral("barrier"), name}});
        QTRY_COMPARE_WITH_TIMEOUT(
            evaluate(QStringLiteral("received.some(m => m.barrier === '%1')").arg(name)).toBool(),
            true, timeoutMs);
        evaluate(QStringLiteral("received = received.filter(m => !m.barrier); null"));
    }

    void waitForChannel()
    {
        QTRY_COMPARE_WITH_TIMEOUT(
            evaluate(QStringLiteral("typeof robot === 'object' && robot !== null")).toBool(), true,
            timeoutMs);
    }

    void loadRecorder()
    {
        QSignalSpy loaded(page(), &QWebEnginePage::loadFinished);
        screen->load(recorderPage());
        QVERIFY(loaded.wait(timeoutMs));
        QVERIFY(loaded.first().first().toBool());
        waitForChannel();
    }
};
