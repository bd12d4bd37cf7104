#pragma once

#include <QHash>
#include <QList>
#include <QTcpServer>

class QSocketNotifier;
class QTcpSocket;

namespace simulator {

/// Listens, and tells by the first bytes of a connection whether it opens the page's channel. Takes
/// none of these bytes away. A connection that says nothing is closed after a while. GUI thread.
class ConnectionSorter : public QTcpServer
{
    Q_OBJECT

public:
    explicit ConnectionSorter(QObject *parent = nullptr);
    ~ConnectionSorter() override;

    /// How long a connection may keep silent, in milliseconds; 10000 unless set.
    void setPatience(int milliseconds);

Q_SIGNALS:
    /// A request for "/channel". The receiver owns @p socket.
    void channelAsked(QTcpSocket *socket);
    /// Any other request. The receiver owns the descriptor.
    void pageAsked(qintptr descriptor);

protected:
    void incomingConnection(qintptr descriptor) override;

private:
    void sort(qintptr descriptor);
    void giveUp(qintptr descriptor);
    void forget(qintptr descriptor);

    QHash<qintptr, QSocketNotifier *> m_waiting;
    QList<qintptr> m_order; // of these, the oldest first
    int m_patience = 10000;
};

} // namespace simulator
