// One host screen of the demo application.
#pragma once

#include <QWidget>

class DemoScreen : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;
    /// Title shown in the screen list.
    virtual QString title() const = 0;
    /// File-name stem of the screen's PNG.
    virtual QString slug() const = 0;
    /// Puts the screen in a state worth a screenshot (sample input, focus).
    virtual void prepareScreenshot() {}
    /// Dialogs of the screen worth a screenshot of their own, ready to show (owned by the caller).
    virtual QList<QPair<QString, QWidget *>> screenshotDialogs() { return {}; }
    /// Documents the screen prints, written next to its screenshot as `stem`.pdf and the like;
    /// returns the files written.
    virtual QStringList writeDocuments(const QString &stem) { Q_UNUSED(stem); return {}; }
};
