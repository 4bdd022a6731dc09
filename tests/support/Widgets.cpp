#include "Widgets.h"

#include <QWindow>
#include <qpa/qwindowsysteminterface.h>

namespace Varnel_Controles::Testing {

void pressCloseBox(QWidget &window)
{
    QWindowSystemInterface::handleCloseEvent<QWindowSystemInterface::SynchronousDelivery>(window.windowHandle());
}

} // namespace Varnel_Controles::Testing
