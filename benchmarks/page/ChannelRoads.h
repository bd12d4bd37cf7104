#pragma once

#include "benchmarks/NaiveBus.h"
#include "benchmarks/page/Road.h"
#include "panorel/Panorel.h"
#include "simulator/core/RobotCore.h"

#include <QObject>
#include <QWebChannel>
#include <QWebEngineView>

#include <functional>
#include <memory>
#include <vector>

/// An object with the same signal and slot as the library's, and nothing behind them.
class Bridge : public QObject
{
    Q_OBJECT

public:
    /// What becomes of the page's envelopes.
    std::function<void(const QJsonObject &)> receive;

Q_SIGNALS:
    void message(QJsonObject message);

public Q_SLOTS:
    bool sendMessage(QJsonObject data)
    {
        receive(data);
        return false;
    }
};

/// The least: a bare view, a web channel, and objects that are finished before they are sent.
class RawRoad : public Road
{
public:
    RawRoad();

    void prepare(const QString &text) override;
    void send() override;
    void send(const QJsonObject &envelope);

protected:
    QWebEngineView *load(const QUrl &url) override;

private:
    QWebEngineView m_view;
    QWebChannel m_channel;
    Bridge m_bridge;
    QJsonObject m_event;
};

/// The straightforward implementation over the same channel.
class NaiveRoad : public Road
{
public:
    NaiveRoad();
    ~NaiveRoad() override;

    void prepare(const QString &text) override;
    void send() override;
    void publish(const naive::Message &message);

protected:
    QWebEngineView *load(const QUrl &url) override;

private:
    QWebEngineView m_view;
    QWebChannel m_channel;
    Bridge m_bridge;
    naive::Bus m_bus;
    std::vector<std::unique_ptr<naive::Handler>> m_handlers;
    QString m_text;
};

/// The library, with all its handlers.
class PanorelRoad : public Road
{
public:
    PanorelRoad();

    void prepare(const QString &text) override;
    void send() override;
    panorel::Panorel &screen() { return m_screen; }

protected:
    QWebEngineView *load(const QUrl &url) override;

private:
    simulator::RobotCore m_robot;
    panorel::Panorel m_screen;
    QString m_text;
};
