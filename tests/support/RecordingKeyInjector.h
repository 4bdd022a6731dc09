// Records synthesised keystrokes instead of queueing them.
#pragma once

#include "platform/KeyInjector.h"

#include <QList>

namespace Varnel_Controles::Testing {

class RecordingKeyInjector : public KeyInjector
{
public:
    struct Call { quint8 vk; quint8 scan; quint32 flags; quintptr extra;
                  bool operator==(const Call &o) const = default; };

    RecordingKeyInjector() { KeyInjector::install(this); }
    ~RecordingKeyInjector() override { KeyInjector::install(nullptr); }

    void keybd_event(quint8 vk, quint8 scan, quint32 flags, quintptr extra) override
    {
        calls.append({vk, scan, flags, extra});
    }

    QList<Call> calls;
};

} // namespace Varnel_Controles::Testing
