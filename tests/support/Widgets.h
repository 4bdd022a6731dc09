// Small helpers for driving widgets the way a clerk does.
#pragma once

#include "input/kdCombo.h"
#include "platform/PrinterSource.h"

#include <QApplication>
#include <QColor>
#include <QImage>
#include <QTest>
#include <QVBoxLayout>
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

/// Types a text key by key, letters QTest cannot name (such as ñ) included.
inline void typeText(QWidget *widget, const QString &text)
{
    for (QChar c : text) {
        const auto key = Qt::Key(c.toUpper().unicode());
        QTest::sendKeyEvent(QTest::Press, widget, key, QString(c), Qt::NoModifier);
        QTest::sendKeyEvent(QTest::Release, widget, key, QString(c), Qt::NoModifier);
    }
}

/// Lays the widgets out one under another in `window`, which is also their tab order.
inline void stack(QWidget &window, std::initializer_list<QWidget *> widgets)
{
    auto *layout = new QVBoxLayout(&window);
    for (QWidget *widget : widgets)
        layout->addWidget(widget);
}

/// The entries of a combo's list, in order.
inline QStringList entries(const kdCombo &combo)
{
    QStringList out;
    for (int i = 0; i < combo.ListCount(); ++i)
        out << combo.List(i);
    return out;
}

/// A print system with the given printers and default, in use for as long as it lives.
struct FixedPrinters : PrinterSource
{
    QStringList names;
    QString defaultName;
    FixedPrinters(QStringList n, QString d) : names(std::move(n)), defaultName(std::move(d)) { install(this); }
    ~FixedPrinters() override { install(nullptr); }
    QStringList printerNames() const override { return names; }
    QString defaultPrinterName() const override { return defaultName; }
};

/// Closes a shown window as its close box does (a close event from the window system).
void pressCloseBox(QWidget &window);

} // namespace Varnel_Controles::Testing
