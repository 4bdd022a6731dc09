#include "PrivateCups.h"

#include <QDir>
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
    // Anyone may administer this daemon (lpadmin -x without a password).
    writeFile(conf, QStringLiteral("Listen %1\nBrowsing No\nPageLogFormat \"job %j copies=%{copies}\"\n"
                                   "DefaultPolicy abierta\n<Policy abierta>\n<Limit All>\n"
                                   "Order allow,deny\nAllow all\n</Limit>\n</Policy>\n")
                        .arg(socket));
    QDir(root).mkpath(QStringLiteral("tmp"));
    QDir(root).mkpath(QStringLiteral("ppd"));
    writeFile(files,
              QStringLiteral("ServerRoot %1\nRequestRoot %1\nStateDir %1\nCacheDir %1\nTempDir %1/tmp\nErrorLog %1/log\n"
                             "AccessLog %1/log\nPageLog %1/log\nFileDevice Yes\n")
                  .arg(root));
    QString printers;
    for (const QString &queue : queues + m_fileQueues + m_closedQueues) {
        const QString tag = queue == defaultQueue ? QStringLiteral("DefaultPrinter") : QStringLiteral("Printer");
        const bool file = m_fileQueues.contains(queue);
        printers += QStringLiteral("<%1 %2>\nDeviceURI file://%3\nState Idle\nAccepting %4\n</%1>\n")
                        .arg(tag, queue, file ? outputOf(queue) : QStringLiteral("/dev/null"),
                             m_closedQueues.contains(queue) ? QStringLiteral("No") : QStringLiteral("Yes"));
        if (file) // a filter is what copies a job to a file device: one that passes it through
            writeFile(root + QStringLiteral("/ppd/%1.ppd").arg(queue),
                      QStringLiteral("*PPD-Adobe: \"4.3\"\n*cupsFilter: \"application/pdf 0 gziptoany\"\n"));
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

bool PrivateCups::removeQueue(const QString &name)
{
    return QProcess::execute(QStringLiteral("/usr/sbin/lpadmin"), {QStringLiteral("-x"), name}) == 0; // Debian's place
}

void PrivateCups::stop()
{
    m_daemon.terminate();
    if (!m_daemon.waitForFinished(5000))
        m_daemon.kill();
    m_daemon.waitForFinished(2000);
}

} // namespace Varnel_Controles::Testing
