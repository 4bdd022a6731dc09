// A stand-in for SQL Server on 127.0.0.1, enough for a real ODBC driver to log in: it answers
// the pre-login (no encryption), reads the login packet and decodes what the driver sent (the
// password is un-obfuscated), then either refuses by closing or accepts and records every
// SQL batch, answering each with an empty result. It serves on its own thread, since the
// driver's connect blocks the test's thread.
#pragma once

#include <QMutex>
#include <QSemaphore>
#include <QStringList>
#include <QThread>
#include <atomic>

class QTcpSocket;

namespace Varnel_Controles::Testing {

class TdsStandIn : public QThread
{
public:
    enum Mode { RefuseLogins, AcceptLogins };
    struct Login
    {
        QString user, password, database;
    };

    explicit TdsStandIn(Mode mode);
    ~TdsStandIn() override;

    quint16 port() const { return m_port; }
    /// The logins received so far, in order.
    QList<Login> logins() const;
    /// The text of the SQL batches received after a login, in order.
    QStringList batches() const;

protected:
    void run() override;

private:
    void serve(QTcpSocket &socket);
    bool readMessage(QTcpSocket &socket, quint8 &type, QByteArray &payload);

    const Mode m_mode;
    quint16 m_port = 0;
    QSemaphore m_listening;
    std::atomic<bool> m_stop{false};
    mutable QMutex m_mutex;
    QList<Login> m_logins;
    QStringList m_batches;
};

} // namespace Varnel_Controles::Testing
