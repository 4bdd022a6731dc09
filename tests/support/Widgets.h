// Small helpers for driving widgets the way a clerk does.
#pragma once

#include <QApplication>
#include <QColor>
#include <QImage>
#include <QTest>
#include <QWidget>

namespace Varnel_Controles::Testing {

/// Shows the window and waits until it is active, so focus moves land.
inline bool showActive(QWidget &window)
{
    window.show();
    window.activateWindow();
    (void)QTest::qWaitForWindowActive(&window);
    if (!window.isActiveWindow()) // a window shown again after hiding is not activated offscreen
        QApplication::setActiveWindow(&window);
    return window.isActiveWindow();
}

/// Lets queued key injections arrive.
inline void settle()
{
    for (int i = 0; i < 5; ++i)
        QApplication::processEvents();
}

/// The colour painted a few pixels inside the widget's right edge, halfway down
/// (inside the frame, clear of the text).
inline QColor paintedBackground(QWidget &widget)
{
    const QImage image = widget.grab().toImage();
    return image.pixelColor(image.width() - 4, image.height() / 2);
}

/// Types one character with the given text (for letters QTest cannot name, such as ñ).
inline void typeChar(QWidget *widget, QChar c)
{
    QTest::sendKeyEvent(QTest::Press, widget, Qt::Key(c.toUpper().unicode()), QString(c), Qt::NoModifier);
    QTest::sendKeyEvent(QTest::Release, widget, Qt::Key(c.toUpper().unicode()), QString(c), Qt::NoModifier);
}

/// Types a text key by key, letters outside ASCII included.
inline void typeText(QWidget *widget, const QString &text)
{
    for (QChar c : text) {
        if (c.unicode() < 128)
            QTest::keyClick(widget, char(c.unicode()));
        else
            typeChar(widget, c);
    }
}

/// Closes a shown window as its close box does (a close event from the window system).
void pressCloseBox(QWidget &window);

} // namespace Varnel_Controles::Testing
