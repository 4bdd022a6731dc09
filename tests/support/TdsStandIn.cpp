#include "TdsStandIn.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QtEndian>

namespace Varnel_Controles::Testing {

namespace {

enum : quint8 { SqlBatch = 0x01, Reply = 0x04, Login7 = 0x10, PreLogin = 0x12 };

QByteArray packet(const QByteArray &payload)
{
    QByteArray header(8, '\0');
    header[0] = char(Reply);
    header[1] = 0x01; // end of message
    qToBigEndian<quint16>(quint16(payload.size() + 8), header.data() + 2);
    header[6] = 1;
    return header + payload;
}

// Version 15.0, and encryption not supported: the driver goes on in plain text.
QByteArray preLoginReply()
{
    const QByteArray version("\x0F\x00\x10\x00\x00\x00", 6);
    QByteArray head;
    const auto option = [&head](quint8 token, quint16 offset, quint16 length) {
        char bytes[5] = {char(token)};
        qToBigEndian(offset, bytes + 1);
        qToBigEndian(length, bytes + 3);
        head.append(bytes, 5);
    };
    option(0x00, 11, 6);
    option(0x01, 17, 1);
    return packet(head + '\xFF' + version + '\x02');
}

QByteArray done()
{
    QByteArray token(13, '\0');
    token[0] = char(0xFD);
    return token;
}

QByteArray loginAck()
{
    const QString name = QStringLiteral("Stand-in");
    QByteArray body;
    body += char(1);                            // T-SQL
    body += QByteArray("\x74\x00\x00\x04", 4);  // TDS 7.4
    body += char(name.size());
    body += QByteArray(reinterpret_cast<const char *>(name.utf16()), name.size() * 2);
    body += QByteArray("\x0F\x00\x00\x00", 4);
    QByteArray token(3, '\0');
    token[0] = char(0xAD);
    qToLittleEndian<quint16>(quint16(body.size()), token.data() + 1);
    return token + body;
}

// A UTF-16 field of the login packet, by the position of its offset and length pair.
QString loginField(const QByteArray &login, int at)
{
    const int offset = qFromLittleEndian<quint16>(login.constData() + at);
    const int chars = qFromLittleEndian<quint16>(login.constData() + at + 2);
    if (offset + chars * 2 > login.size())
        return QString();
    return QString::fromUtf16(reinterpret_cast<const char16_t *>(login.constData() + offset), chars);
}

// The login hides the password by swapping the nibbles of each byte and XOR-ing it with 0xA5.
QString loginPassword(const QByteArray &login)
{
    const int offset = qFromLittleEndian<quint16>(login.constData() + 44);
    const int chars = qFromLittleEndian<quint16>(login.constData() + 46);
    QByteArray bytes = login.mid(offset, chars * 2);
    for (char &b : bytes) {
        const quint8 x = quint8(b) ^ 0xA5;
        b = char(quint8((x << 4) | (x >> 4)));
    }
    return QString::fromUtf16(reinterpret_cast<const char16_t *>(bytes.constData()), chars);
}

} // namespace

TdsStandIn::TdsStandIn(Mode mode)
    : m_mode(mode)
{
    start();
    m_listening.acquire();
}

TdsStandIn::~TdsStandIn()
{
    m_stop = true;
    wait();
}

QList<TdsStandIn::Login> TdsStandIn::logins() const
{
    QMutexLocker lock(&m_mutex);
    return m_logins;
}

QStringList TdsStandIn::batches() const
{
    QMutexLocker lock(&m_mutex);
    return m_batches;
}

void TdsStandIn::run()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    m_port = server.serverPort();
    m_listening.release();
    while (!m_stop) {
        if (!server.waitForNewConnection(50))
            continue;
        QTcpSocket *socket = server.nextPendingConnection();
        serve(*socket);
        socket->close();
        delete socket;
    }
}

bool TdsStandIn::readMessage(QTcpSocket &socket, quint8 &type, QByteArray &payload)
{
    const auto readExactly = [&](qint64 n, QByteArray &out) {
        out.clear();
        while (out.size() < n) {
            if (socket.bytesAvailable() == 0 && !socket.waitForReadyRead(50)) {
                if (m_stop || socket.state() != QAbstractSocket::ConnectedState)
                    return false;
                continue;
            }
            out += socket.read(n - out.size());
        }
        return true;
    };
    payload.clear();
    for (;;) {
        QByteArray header, body;
        if (!readExactly(8, header))
            return false;
        type = quint8(header[0]);
        if (!readExactly(qFromBigEndian<quint16>(header.constData() + 2) - 8, body))
            return false;
        payload += body;
        if (header[1] & 0x01)
            return true;
    }
}

void TdsStandIn::serve(QTcpSocket &socket)
{
    quint8 type = 0;
    QByteArray payload;
    while (readMessage(socket, type, payload)) {
        if (type == PreLogin) {
            socket.write(preLoginReply());
        } else if (type == Login7 && payload.size() >= 72) {
            {
                QMutexLocker lock(&m_mutex);
                m_logins << Login{loginField(payload, 40), loginPassword(payload), loginField(payload, 68)};
            }
            if (m_mode == RefuseLogins)
                return;
            socket.write(packet(loginAck() + done()));
        } else {
            if (type == SqlBatch && payload.size() >= 4) {
                const int headers = int(qFromLittleEndian<quint32>(payload.constData()));
                const QByteArray text = payload.mid(headers);
                QMutexLocker lock(&m_mutex);
                m_batches << QString::fromUtf16(reinterpret_cast<const char16_t *>(text.constData()), text.size() / 2);
            }
            socket.write(packet(done()));
        }
        socket.waitForBytesWritten(1000);
    }
}

} // namespace Varnel_Controles::Testing
