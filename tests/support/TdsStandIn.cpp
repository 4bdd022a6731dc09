#include "TdsStandIn.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QtEndian>

namespace Varnel_Controles::Testing {

namespace {

// Pre-login answer: version 15.0, encryption not supported.
const QByteArray kPreLogin("\x00\x00\x0B\x00\x06\x01\x00\x11\x00\x01\xFF\x0F\x00\x10\x00\x00\x00\x02", 18);
// LOGINACK for T-SQL over TDS 7.4 from a program named "X".
const QByteArray kLoginAck("\xAD\x0C\x00\x01\x74\x00\x00\x04\x01X\x00\x0F\x00\x00\x00", 15);
const QByteArray kDone = QByteArray(1, '\xFD') + QByteArray(12, '\0');

QByteArray reply(const QByteArray &payload)
{
    QByteArray header("\x04\x01\x00\x00\x00\x00\x01\x00", 8); // tabular result, end of message
    qToBigEndian<quint16>(quint16(payload.size() + 8), header.data() + 2);
    return header + payload;
}

QString utf16(const QByteArray &bytes)
{
    return QString::fromUtf16(reinterpret_cast<const char16_t *>(bytes.constData()), bytes.size() / 2);
}

// A UTF-16 field of the login packet, by the place of its offset and length.
QByteArray loginField(const QByteArray &login, int at)
{
    return login.mid(qFromLittleEndian<quint16>(login.constData() + at), 2 * qFromLittleEndian<quint16>(login.constData() + at + 2));
}

} // namespace

TdsStandIn::TdsStandIn(bool acceptLogins)
    : m_acceptLogins(acceptLogins)
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
        if (server.waitForNewConnection(50)) {
            QTcpSocket *socket = server.nextPendingConnection();
            serve(*socket);
            delete socket;
        }
    }
}

void TdsStandIn::serve(QTcpSocket &socket)
{
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
        QByteArray answer = kDone;
        if (header[0] == 0x12) {
            answer = kPreLogin;
        } else if (header[0] == 0x10) {
            // The password's bytes have their nibbles swapped and are XOR-ed with 0xA5.
            QByteArray password = loginField(message, 44);
            for (char &b : password)
                b = char(quint8(((quint8(b) ^ 0xA5) << 4) | ((quint8(b) ^ 0xA5) >> 4)));
            QMutexLocker lock(&m_mutex);
            m_logins << Login{utf16(loginField(message, 40)), utf16(password), utf16(loginField(message, 68))};
            if (!m_acceptLogins)
                return;
            answer = kLoginAck + kDone;
        } else if (header[0] == 0x01) {
            QMutexLocker lock(&m_mutex); // the text follows the headers block, which gives its length first
            m_batches << utf16(message.mid(qFromLittleEndian<quint32>(message.constData())));
        }
        socket.write(reply(answer));
        socket.waitForBytesWritten(1000);
    }
}

} // namespace Varnel_Controles::Testing
