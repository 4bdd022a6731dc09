// The demo application's main window: a list of host screens and the screen chosen.
#pragma once

#include <QMainWindow>

class DemoScreen;
class QListWidget;
class QStackedWidget;

class DemoWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit DemoWindow(QWidget *parent = nullptr);
    void addScreen(DemoScreen *screen);
    /// Renders every screen to DIR/NN-slug.png; returns the files written.
    QStringList writeScreenshots(const QString &dir);

private:
    QListWidget *m_list;
    QStackedWidget *m_stack;
    QList<DemoScreen *> m_screens;
};
