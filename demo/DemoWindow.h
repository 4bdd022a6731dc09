// The demo application's main window: a list of host screens and the screen chosen.
#pragma once

#include <QMainWindow>

namespace Varnel_Controles { class Conexion; class cEmpresa; }
class DemoScreen;
class QListWidget;
class QStackedWidget;

class DemoWindow : public QMainWindow
{
    Q_OBJECT

public:
    DemoWindow(Varnel_Controles::Conexion *conexion, Varnel_Controles::cEmpresa *empresa, QWidget *parent = nullptr);
    void addScreen(DemoScreen *screen);
    /// Renders every screen to DIR/NN-slug.png; returns the files written.
    QStringList writeScreenshots(const QString &dir);

private:
    QListWidget *m_list;
    QStackedWidget *m_stack;
    QList<DemoScreen *> m_screens;
};
