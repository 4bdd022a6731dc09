// A workstation creating articles through the quick creation form, offscreen: F6 (then Enter on
// a code offered after a collision, F6 on an emptied box), supplier 1, a reference of its own,
// the first value of each quality, F9. Prints every message shown on stderr (Yes answers each);
// fails when an article is not saved.
// Usage: kd_creacion_worker DATABASE COUNT REFERENCE_PREFIX
#include "articles/frmArticulos_Creacion.h"
#include "platform/UiSeam.h"

#include <QApplication>
#include <QComboBox>
#include <QTest>

using namespace Varnel_Controles;

struct Answers : UiSeam
{
    int MsgBox(const QString &text, int style, const QString &) override { return fprintf(stderr, "%d %s\n", style, qPrintable(text)), vbYes; }
    int ShowModal(QDialog &) override { return 0; }
} answers;

int main(int argc, char **argv)
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {}); // stderr is for the clerk's messages
    QApplication app(argc, argv);
    UiSeam::install(&answers);
    Conexion::setDefaultBusyTimeout(60000); // workers save back to back, far more often than clerks do
    const std::unique_ptr<Conexion> c(Conexion::open(QStringLiteral("sqlite:") + QString::fromLocal8Bit(argv[1])));
    Conexion::setShared(c.get());
    cEmpresa empresa(1);
    frmArticulos_Creacion form;
    form.setCEmpresa(&empresa);
    form.show();
    QWidget *codigo = form.findChild<QWidget *>(QStringLiteral("txtCodigo"));
    auto text = [codigo] { return codigo->property("Text").toString(); };
    for (int i = 0; i < atoi(argv[2]); ++i) {
        for (int tries = 0; codigo->isEnabled() && tries < 50; ++tries)
            QTest::keyClick(codigo->focusProxy(), tries > 0 && !text().isEmpty() ? Qt::Key_Return : Qt::Key_F6);
        form.findChild<QWidget *>(QStringLiteral("txtProv"))->setProperty("Codigo", 1);
        form.findChild<QWidget *>(QStringLiteral("txtRef"))->setProperty("Text", QString::fromLocal8Bit(argv[3]) + QString::number(i));
        for (const char *quality : {"cboCualX", "cboCualY"}) // the company's qualities: the first value of each
            form.findChild<QComboBox *>(QLatin1String(quality))->setCurrentIndex(0);
        QTest::keyClick(&form, Qt::Key_F9);
        if (!codigo->isEnabled() || !text().isEmpty())
            return 1;
    }
    return 0;
}
