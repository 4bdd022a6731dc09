#include "PrivateCups.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QThread>

namespace Varnel_Controles::Testing {

namespace {

void writeFile(const QString &path, const QString &text)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(text.toUtf8());
}

} // namespace

bool PrivateCups::start(const QStringList &queues, const QString &defaultQueue)
{
    const QString root = m_dir.path();
    const QString socket = root + QStringLiteral("/cups.sock");
    const QString conf = root + QStringLiteral("/cupsd.conf");
    const QString files = root + QStringLiteral("/cups-files.conf");
    writeFile(conf, QStringLiteral("Listen %1\nBrowsing No\n").arg(socket));
    writeFile(files,
              QStringLiteral("ServerRoot %1\nRequestRoot %1\nStateDir %1\nCacheDir %1\nTempDir %1\nErrorLog %1/log\n"
                             "AccessLog %1/log\nPageLog %1/log\n")
                  .arg(root));
    QString printers;
    for (const QString &queue : queues) {
        const QString tag = queue == defaultQueue ? QStringLiteral("DefaultPrinter") : QStringLiteral("Printer");
        printers +=
            QStringLiteral("<%1 %2>\nDeviceURI file:///dev/null\nState Idle\nAccepting Yes\n</%1>\n").arg(tag, queue);
    }
    writeFile(root + QStringLiteral("/printers.conf"), printers);

    // The printers of this process are those of the private daemon, and no user default applies.
    qputenv("CUPS_SERVER", socket.toLocal8Bit());
    qputenv("HOME", root.toLocal8Bit());
    qunsetenv("PRINTER");
    qunsetenv("LPDEST");

    // cupsd lives in sbin, which a normal user's PATH may not hold.
    const QStringList sbin{QStringLiteral("/usr/sbin"), QStringLiteral("/sbin")};
    const QString cupsd = QStandardPaths::findExecutable(QStringLiteral("cupsd"), sbin);
    m_daemon.setProcessChannelMode(QProcess::MergedChannels);
    m_daemon.start(cupsd.isEmpty() ? QStringLiteral("cupsd") : cupsd,
                   {QStringLiteral("-f"), QStringLiteral("-c"), conf, QStringLiteral("-s"), files});
    QElapsedTimer timer;
    timer.start();
    while (!QFileInfo::exists(socket) && timer.elapsed() < 10000 && m_daemon.state() != QProcess::NotRunning)
        QThread::msleep(50);
    if (!QFileInfo::exists(socket))
        m_error = QStringLiteral("cupsd no abrió su socket: %1 %2")
                      .arg(m_daemon.errorString(), QString::fromLocal8Bit(m_daemon.readAll()));
    return m_error.isEmpty();
}

void PrivateCups::stop()
{
    m_daemon.terminate();
    if (!m_daemon.waitForFinished(5000))
        m_daemon.kill();
    m_daemon.waitForFinished(2000);
}

} // namespace Varnel_Controles::Testing
