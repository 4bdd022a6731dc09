// A stand-in for SQL Server on 127.0.0.1, enough for a real ODBC driver to log in: it answers
// the pre-login (no encryption) and decodes the login packet (the password un-obfuscated);
// then it closes, or accepts the login and records each SQL batch, answering it with DONE.
// It serves on its own thread, since the driver's connect blocks the test's thread.
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
    struct Login
    {
        QString user, password, database;
    };

    explicit TdsStandIn(bool acceptLogins);
    ~TdsStandIn() override;

    quint16 port() const { return m_port; }
    QList<Login> logins() const;
    /// The text of the SQL batches received after a login, in order.
    QStringList batches() const;

protected:
    void run() override;

private:
    void serve(QTcpSocket &socket);

    const bool m_acceptLogins;
    quint16 m_port = 0;
    QSemaphore m_listening;
    std::atomic<bool> m_stop{false};
    mutable QMutex m_mutex;
    QList<Login> m_logins;
    QStringList m_batches;
};

} // namespace Varnel_Controles::Testing
