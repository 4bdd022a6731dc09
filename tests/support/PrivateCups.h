// A cupsd of the test's own: its configuration, spool and socket in a temporary folder,
// CUPS_SERVER pointing at it, queues that print to /dev/null. Start it before anything in the
// process asks for printers.
#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace Varnel_Controles::Testing {

class PrivateCups
{
public:
    PrivateCups();
    ~PrivateCups();

    /// Starts the daemon; false with a reason in error() when it does not come up.
    bool start();
    QString error() const { return m_error; }
    bool addQueue(const QString &name);
    bool removeQueue(const QString &name);
    bool setDefault(const QString &name);
    /// Stops the daemon (the socket goes away: the print system is down).
    void stop();

private:
    bool lpadmin(const QStringList &arguments);

    QTemporaryDir m_dir;
    QProcess m_daemon;
    QString m_error;
};

} // namespace Varnel_Controles::Testing
