// A stand-in for SQL Server on 127.0.0.1, enough for a real ODBC driver to log in: it answers
// the pre-login (no encryption) and decodes the login packet (the password un-obfuscated);
// then it closes, or accepts the login and records each SQL batch, answering it with DONE.
// It serves on its own thread, since the driver's connect blocks the test's thread.
#pragma once

#include <QMutex>
#include <QSemaphore>
#include <QStringList>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <QtEndian>
#include <atomic>
#include <memory>

namespace Varnel_Controles::Testing {

class TdsStandIn : public QThread
{
public:
    explicit TdsStandIn(bool acceptLogins) : m_acceptLogins(acceptLogins)
    {
        start();
        m_listening.acquire();
    }
    ~TdsStandIn() override
    {
        m_stop = true;
        wait();
    }

    quint16 port() const { return m_port; }
    /// Each login received, as {user, password, database}.
    QList<QStringList> logins() const
    {
        QMutexLocker lock(&m_mutex);
        return m_logins;
    }
    /// The text of the SQL batches received after a login, in order.
    QStringList batches() const
    {
        QMutexLocker lock(&m_mutex);
        return m_batches;
    }

protected:
    void run() override
    {
        QTcpServer server;
        server.listen(QHostAddress::LocalHost);
        m_port = server.serverPort();
        m_listening.release();
        while (!m_stop) {
            if (server.waitForNewConnection(50)) {
                std::unique_ptr<QTcpSocket> socket(server.nextPendingConnection());
                serve(*socket);
            }
        }
    }

private:
    static QString utf16(const QByteArray &bytes)
    {
        return QString::fromUtf16(reinterpret_cast<const char16_t *>(bytes.constData()), bytes.size() / 2);
    }
    // A UTF-16 field of the login packet, by the place of its offset and length.
    static QByteArray loginField(const QByteArray &login, int at)
    {
        const auto *place = login.constData() + at;
        return login.mid(qFromLittleEndian<quint16>(place), 2 * qFromLittleEndian<quint16>(place + 2));
    }

    void serve(QTcpSocket &socket)
    {
        // Pre-login answer: version 15.0, encryption not supported. LOGINACK for T-SQL over TDS 7.4
        // from a program named "X". DONE.
        const QByteArray preLogin("\x00\x00\x0B\x00\x06\x01\x00\x11\x00\x01\xFF\x0F\x00\x10\x00\x00\x00\x02", 18);
        const QByteArray loginAck("\xAD\x0C\x00\x01\x74\x00\x00\x04\x01X\x00\x0F\x00\x00\x00", 15);
        const QByteArray done = QByteArray(1, '\xFD') + QByteArray(12, '\0');
        const auto read = [&](qint64 n, QByteArray &out) {
            out.clear();
            while (out.size() < n) {
                if (!socket.bytesAvailable() && !socket.waitForReadyRead(50)
                    && (m_stop || socket.state() != QAbstractSocket::ConnectedState))
                    return false;
                out += socket.read(n - out.size());
            }
            return true;
        };
        for (;;) {
            // A message: packets of an 8-byte header (type, status, big-endian length) and data.
            QByteArray message, header, data;
            do {
                if (!read(8, header) || !read(qFromBigEndian<quint16>(header.constData() + 2) - 8, data))
                    return;
                message += data;
            } while (!(header[1] & 0x01));
            QByteArray answer = done;
            QMutexLocker lock(&m_mutex);
            if (header[0] == 0x12) {
                answer = preLogin;
            } else if (header[0] == 0x10) {
                // The password's bytes have their nibbles swapped and are XOR-ed with 0xA5.
                QByteArray password = loginField(message, 44);
                for (char &b : password)
                    b = char(quint8(((quint8(b) ^ 0xA5) << 4) | ((quint8(b) ^ 0xA5) >> 4)));
                m_logins << QStringList{utf16(loginField(message, 40)), utf16(password), utf16(loginField(message, 68))};
                if (!m_acceptLogins)
                    return;
                answer = loginAck + done;
            } else if (header[0] == 0x01) { // the text follows the headers block, which gives its length first
                m_batches << utf16(message.mid(qFromLittleEndian<quint32>(message.constData())));
            }
            lock.unlock();
            // A reply: tabular result, end of message.
            QByteArray reply = QByteArray("\x04\x01\x00\x00\x00\x00\x01\x00", 8) + answer;
            qToBigEndian<quint16>(quint16(reply.size()), reply.data() + 2);
            socket.write(reply);
            socket.waitForBytesWritten(1000);
        }
    }

    const bool m_acceptLogins;
    quint16 m_port = 0;
    QSemaphore m_listening;
    std::atomic<bool> m_stop{false};
    mutable QMutex m_mutex;
    QList<QStringList> m_logins;
    QStringList m_batches;
};

} // namespace Varnel_Controles::Testing
