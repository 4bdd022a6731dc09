// A cupsd of the test's own: its configuration, spool and socket in a temporary folder, and
// CUPS_SERVER pointing at it. Start it before anything in the process asks for printers.
#pragma once

#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

namespace Varnel_Controles::Testing {

class PrivateCups
{
public:
    ~PrivateCups() { stop(); }

    /// Starts the daemon with these queues (raw, never printed to); false with a reason in
    /// error() when it does not come up.
    bool start(const QStringList &queues, const QString &defaultQueue);
    /// Before start(): a queue that writes what it prints to outputOf(name), or one that
    /// refuses every job.
    void addFileQueue(const QString &name) { m_fileQueues << name; }
    void addClosedQueue(const QString &name) { m_closedQueues << name; }
    QString outputOf(const QString &name) const { return m_dir.filePath(name + QStringLiteral(".prn")); }
    /// The daemon's log: a line "job N copies=C" for each job printed.
    QString log() const { return m_dir.filePath(QStringLiteral("log")); }
    /// Deletes a queue from the running daemon, as an administrator would (lpadmin -x).
    bool removeQueue(const QString &name);
    QString error() const { return m_error; }
    /// Stops the daemon (the socket goes away: the print system is down).
    void stop();

private:
    QTemporaryDir m_dir;
    QProcess m_daemon;
    QString m_error;
    QStringList m_fileQueues, m_closedQueues;
};

} // namespace Varnel_Controles::Testing
