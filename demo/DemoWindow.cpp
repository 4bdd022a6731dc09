#include "DemoWindow.h"

#include "DemoScreen.h"

#include <Varnel_Controles/Conexion.h>
#include <Varnel_Controles/cEmpresa.h>

#include <QApplication>
#include <QDir>
#include <QHBoxLayout>
#include <QListWidget>
#include <QStackedWidget>
#include <QStatusBar>

DemoWindow::DemoWindow(Varnel_Controles::Conexion *conexion, Varnel_Controles::cEmpresa *empresa, QWidget *parent)
    : QMainWindow(parent)
    , m_list(new QListWidget)
    , m_stack(new QStackedWidget)
{
    setWindowTitle(QStringLiteral("Varnel_Controles · aplicación de demostración"));
    auto *central = new QWidget;
    auto *layout = new QHBoxLayout(central);
    m_list->setFixedWidth(190);
    m_list->setFocusPolicy(Qt::NoFocus);
    layout->addWidget(m_list);
    layout->addWidget(m_stack, 1);
    setCentralWidget(central);
    connect(m_list, &QListWidget::currentRowChanged, m_stack, &QStackedWidget::setCurrentIndex);
    resize(900, 560);
    statusBar()->showMessage(QStringLiteral("Empresa %1 · %2 · %3")
                                 .arg(empresa->Codigo())
                                 .arg(empresa->Nombre(), conexion->database().databaseName()));
}

void DemoWindow::addScreen(DemoScreen *screen)
{
    m_screens.append(screen);
    m_stack->addWidget(screen);
    m_list->addItem(screen->title());
    if (m_list->currentRow() < 0)
        m_list->setCurrentRow(0);
}

QStringList DemoWindow::writeScreenshots(const QString &dir)
{
    QDir().mkpath(dir);
    QStringList files;
    show();
    for (int i = 0; i < m_screens.size(); ++i) {
        m_list->setCurrentRow(i);
        QApplication::processEvents();
        m_screens[i]->prepareScreenshot();
        for (int n = 0; n < 10; ++n)
            QApplication::processEvents();
        const QString file = QDir(dir).filePath(QStringLiteral("%1-%2.png").arg(i + 1, 2, 10, QLatin1Char('0')).arg(m_screens[i]->slug()));
        if (grab().save(file))
            files << file;
        files << m_screens[i]->writeDocuments(file.chopped(4));
        int n = 0;
        for (const auto &[slug, dialog] : m_screens[i]->screenshotDialogs()) {
            dialog->show();
            for (int k = 0; k < 10; ++k)
                QApplication::processEvents();
            const QString shot = QDir(dir).filePath(QStringLiteral("%1%2-%3.png")
                                                        .arg(i + 1, 2, 10, QLatin1Char('0'))
                                                        .arg(QChar(u'a' + n++))
                                                        .arg(slug));
            if (dialog->grab().save(shot))
                files << shot;
            delete dialog;
        }
    }
    return files;
}
