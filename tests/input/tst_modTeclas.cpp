// The keystrokes behind the focus moves; that the focus then moves, after the handlers have
// returned, is seen through the controls (tst_kdTextBox).
#include "input/modTeclas.h"
#include "platform/KeyInjector.h"

#include <QTest>

using namespace Varnel_Controles;

namespace {

// Records the synthesised keystrokes ("virtual key,scan code,flags,extra") instead of queueing them.
struct RecordingKeyInjector : KeyInjector
{
    QStringList calls;
    RecordingKeyInjector() { install(this); }
    ~RecordingKeyInjector() override { install(nullptr); }
    void keybd_event(quint8 vk, quint8 scan, quint32 flags, quintptr extra) override
    {
        calls << QStringLiteral("%1,%2,%3,%4").arg(vk).arg(scan).arg(flags).arg(extra);
    }
};

} // namespace

class tst_modTeclas : public QObject
{
    Q_OBJECT

private slots:
    void sequencesAreTheLegacyKeystrokes()
    {
        RecordingKeyInjector keys;
        modTeclas::MoveFocusNext();
        QCOMPARE(keys.calls, (QStringList{"9,9,1,0", "9,9,3,0"}));
        keys.calls.clear();
        modTeclas::MoveFocusPrevious();
        QCOMPARE(keys.calls, (QStringList{"16,16,1,0", "9,9,1,0", "9,9,3,0", "16,16,3,0"}));
    }
};

QTEST_GUILESS_MAIN(tst_modTeclas)
#include "tst_modTeclas.moc"
