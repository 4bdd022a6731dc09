#include "PrivateCups.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QThread>
#include <grp.h>
#include <pwd.h>
#include <unistd.h>

namespace Varnel_Controles::Testing {

namespace {

// The CUPS programs live in sbin, which a normal user's PATH may not hold.
QString program(const QString &name)
{
    const QString found = QStandardPaths::findExecutable(name);
    if (!found.isEmpty())
        return found;
    const QString sbin = QStandardPaths::findExecutable(name, {QStringLiteral("/usr/sbin"), QStringLiteral("/sbin")});
    return sbin.isEmpty() ? name : sbin;
}

// A daemon started by a normal user runs as that user.
QString runAs()
{
    if (getuid() == 0)
        return QString();
    const passwd *user = getpwuid(getuid());
    const group *grp = getgrgid(getgid());
    if (!user || !grp)
        return QString();
    return QStringLiteral("User %1\nGroup %2\nSystemGroup %2\n").arg(QString::fromLocal8Bit(user->pw_name),
                                                                    QString::fromLocal8Bit(grp->gr_name));
}

} // namespace

PrivateCups::PrivateCups() = default;

PrivateCups::~PrivateCups() { stop(); }

bool PrivateCups::start()
{
    const QString root = m_dir.path();
    for (const char *sub : {"etc", "spool", "state", "cache", "tmp", "log"})
        QDir(root).mkpath(QString::fromLatin1(sub));
    const QString socket = root + QStringLiteral("/cups.sock");
    QFile conf(root + QStringLiteral("/etc/cupsd.conf"));
    conf.open(QIODevice::WriteOnly);
    conf.write(QStringLiteral("Listen %1\nLogLevel warn\nBrowsing No\nDefaultAuthType None\n"
                              "<Location />\n  Order allow,deny\n  Allow all\n</Location>\n"
                              "<Policy default>\n  <Limit All>\n    Order deny,allow\n    Allow all\n  </Limit>\n</Policy>\n")
                   .arg(socket).toUtf8());
    conf.close();
    QFile files(root + QStringLiteral("/etc/cups-files.conf"));
    files.open(QIODevice::WriteOnly);
    files.write(QStringLiteral("ServerRoot %1/etc\nRequestRoot %1/spool\nStateDir %1/state\nCacheDir %1/cache\n"
                               "TempDir %1/tmp\nErrorLog %1/log/error_log\nAccessLog %1/log/access_log\n"
                               "PageLog %1/log/page_log\nFileDevice Yes\nSandboxing Relaxed\n")
                    .arg(root).toUtf8()
               + runAs().toUtf8());
    files.close();

    // The printers of this process are those of the private daemon, and no user default applies.
    qputenv("CUPS_SERVER", socket.toLocal8Bit());
    qputenv("HOME", root.toLocal8Bit());
    qunsetenv("PRINTER");
    qunsetenv("LPDEST");

    m_daemon.setProcessChannelMode(QProcess::MergedChannels);
    m_daemon.start(program(QStringLiteral("cupsd")), {QStringLiteral("-f"), QStringLiteral("-c"), root + QStringLiteral("/etc/cupsd.conf"),
                                             QStringLiteral("-s"), root + QStringLiteral("/etc/cups-files.conf")});
    if (!m_daemon.waitForStarted(5000)) {
        m_error = QStringLiteral("cupsd no arranca: ") + m_daemon.errorString();
        return false;
    }
    QElapsedTimer timer;
    timer.start();
    while (!QFileInfo::exists(socket) && timer.elapsed() < 10000 && m_daemon.state() == QProcess::Running)
        QThread::msleep(50);
    if (!QFileInfo::exists(socket)) {
        m_error = QStringLiteral("cupsd no abrió su socket: ") + QString::fromLocal8Bit(m_daemon.readAll());
        return false;
    }
    return true;
}

bool PrivateCups::lpadmin(const QStringList &arguments)
{
    QProcess p;
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start(program(QStringLiteral("lpadmin")), arguments);
    if (!p.waitForFinished(20000) || p.exitCode() != 0) {
        m_error = QStringLiteral("lpadmin %1: %2").arg(arguments.join(u' '), QString::fromLocal8Bit(p.readAll()));
        return false;
    }
    return true;
}

bool PrivateCups::addQueue(const QString &name)
{
    return lpadmin({QStringLiteral("-p"), name, QStringLiteral("-E"), QStringLiteral("-v"), QStringLiteral("file:///dev/null"),
                    QStringLiteral("-m"), QStringLiteral("raw")});
}

bool PrivateCups::removeQueue(const QString &name) { return lpadmin({QStringLiteral("-x"), name}); }

bool PrivateCups::setDefault(const QString &name) { return lpadmin({QStringLiteral("-d"), name}); }

void PrivateCups::stop()
{
    if (m_daemon.state() != QProcess::NotRunning) {
        m_daemon.terminate();
        if (!m_daemon.waitForFinished(5000))
            m_daemon.kill();
        m_daemon.waitForFinished(2000);
    }
}

} // namespace Varnel_Controles::Testing
