// Printed lists: the PDF's own text (pdftotext), each destination and its faults, the printer
// of a private cupsd, long lists with progress and Cancel.
#include "input/kdDispositivo.h"
#include "input/kdImpresoras.h"
#include "platform/LegacyError.h"
#include "report/ReportLayout.h"
#include "report/modListados.h"
#include "search/frmBusqueda_Articulos_2.h"
#include "support/PrivateCups.h"
#include "support/ScriptedUi.h"
#include "support/TestDatabase.h"
#include "support/Widgets.h"

#include <QAbstractItemView>
#include <QPushButton>
#include <QPdfWriter>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

using namespace Varnel_Controles;

namespace {

QString pdfText(const QString &path, const char *mode = "-layout")
{
    QProcess p;
    p.start(QStringLiteral("/usr/bin/pdftotext"), {QLatin1String(mode), path, QStringLiteral("-")});
    p.waitForFinished(120000);
    return QString::fromUtf8(p.readAllStandardOutput());
}

QString squeezed(QString text) { return text.remove(QRegularExpression(QStringLiteral("\\s"))); }

clsListado lista(int rows)
{
    clsListado l(QStringLiteral("Listado de prueba"));
    l.AgregarColumna(QStringLiteral("Código"), 800, RightJustify);
    l.AgregarColumna(QStringLiteral("Descripción"), 3200);
    for (int i = 1; i <= rows; ++i)
        l.AgregarFila({QString::number(i), QStringLiteral("ARTÍCULO %1").arg(i)});
    return l;
}

} // namespace

class tst_modListados : public QObject
{
    Q_OBJECT

    Testing::PrivateCups cups;
    QTemporaryDir tmp;

private Q_SLOTS:
    void initTestCase()
    {
        cups.addFileQueue(QStringLiteral("COLA_FICHERO"));
        cups.addClosedQueue(QStringLiteral("COLA_CERRADA"));
        QVERIFY2(cups.start({QStringLiteral("COLA_OFICINA")}, QStringLiteral("COLA_OFICINA")), qPrintable(cups.error()));
    }

    // The second article search prints its list: title, criteria and headings on every page,
    // "n de m", every row of the grid in the grid's order, from the search's own statement.
    void articleListPdfHoldsEveryRowInOrder()
    {
        Testing::TestDatabase db(200);
        Testing::ScriptedUi ui;
        frmBusqueda_Articulos_2 dialog;
        const QString path = tmp.filePath(QStringLiteral("articulos.pdf"));
        QVERIFY(!dialog.Imprimir(kdFichero, QString(), path)); // nothing searched yet: told, nothing written
        QCOMPARE(ui.messages.size(), 1);
        QVERIFY(!QFile::exists(path));
        dialog.setCEmpresa(db.empresa());
        dialog.setBusqueda_Descripcion(QStringLiteral("*"));
        dialog.Recuperar_Registros();
        QTest::keyClick(dialog.findChild<QWidget *>(QStringLiteral("vsListado")), Qt::Key_End, Qt::ControlModifier);
        const QStringList grid = Testing::TestDatabase::rows(*dialog.findChild<QAbstractItemView *>(QStringLiteral("vsListado"))->model());
        QCOMPARE(grid.size(), 200);
        dialog.setBusqueda_Descripcion(QStringLiteral("OTRA")); // typed, not searched: the list is still that of "*"
        QVERIFY_THROWS_EXCEPTION(LegacyError, dialog.setDestino(0)); // no enmDestination
        dialog.setDestino(kdFichero);
        dialog.setFichero(path);
        db.statements.clear();
        dialog.findChild<QPushButton *>(QStringLiteral("cmdImprimir"))->click();
        QCOMPARE(db.statements, QStringList{dialog.UltimaInstruccion()}); // read once: counted and painted
        const QStringList pages = pdfText(path).split(QLatin1Char('\f'), Qt::SkipEmptyParts);
        QVERIFY(pages.size() > 1);
        for (int i = 0; i < pages.size(); ++i)
            for (const QString &text : {QStringLiteral("Búsqueda de Artículos"), QStringLiteral("Desc: *"), QStringLiteral("Código"),
                                        QStringLiteral("Ref. Princip."), QStringLiteral("Tarifa 1"),
                                        QStringLiteral("Página %1 de %2").arg(i + 1).arg(pages.size())})
                QVERIFY2(pages[i].contains(text), qPrintable(QStringLiteral("página %1: %2").arg(i + 1).arg(text)));
        const QString raw = squeezed(pdfText(path, "-raw"));
        qsizetype at = 0;
        for (const QString &row : grid) { // in order: each code and description after the one before
            const QStringList cells = row.split(QLatin1Char('|'));
            QVERIFY2((at = raw.indexOf(squeezed(cells[0] + cells[1]), at)) >= 0, qPrintable(row));
        }
    }

    // Any text prints whole, wrapped inside its column; the next column's text stays intact.
    void cellsPrintWholeInsideTheirColumn_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("twips");
        QTest::newRow("accents, Ñ, TAB, line breaks") << QStringLiteral("CAÑÓN\tÁNGULO\r\nÜÑÇ\ràèìòù\nFIN") << 3200;
        QTest::newRow("one word wider than the column") << QStringLiteral("ÑANDÚ").repeated(60) << 800;
        QTest::newRow("long description, taller than a page") << QStringLiteral("LÍNEA LARGA DE TEXTO ").repeated(600) << 600;
    }
    void cellsPrintWholeInsideTheirColumn()
    {
        QFETCH(QString, text);
        QFETCH(int, twips);
        clsListado l(QStringLiteral("Textos"));
        QVERIFY_THROWS_EXCEPTION(LegacyError, l.AgregarColumna(QStringLiteral("Nada"), 99)); // under 100 twips
        l.AgregarColumna(QStringLiteral("Marca"), 1000);
        l.AgregarColumna(QStringLiteral("Texto"), twips);
        l.AgregarFila({QStringLiteral("FIN"), text});
        const QString path = tmp.filePath(QStringLiteral("textos.pdf"));
        QVERIFY(modListados::Imprimir(l, kdFichero, QString(), path));
        const QRegularExpression headings(QStringLiteral("Textos|Impresoel[0-9/:]+|Marca|Texto|Página\\d+de\\d+"));
        QVERIFY(squeezed(pdfText(path, "-raw")).remove(headings).contains("FIN" + squeezed(ReportLayout::printable(text))));

        QPdfWriter writer(tmp.filePath(QStringLiteral("medida.pdf")));
        const ReportLayout layout(l, &writer, QRectF(0, 0, 9000, 13000));
        const qreal inner = layout.columnWidth(1) - 2 * layout.hpad();
        for (const auto &line : layout.wrap(text, inner, layout.font(false)))
            QVERIFY2(line.width <= inner && !line.text.contains(QLatin1Char('\t')), qPrintable(line.text));
    }

    // A title and a criteria of any length print whole, wrapped: a heading taller than a page
    // goes on over the next pages' headings; the title's first line heads every page.
    void headingsPrintWhole()
    {
        QStringList words;
        for (int i = 0; i < 6000; ++i)
            words << QStringLiteral("C%1").arg(i);
        clsListado l = lista(150);
        l.setTitulo(words.mid(0, 60).join(u' '));
        l.setCriterio(words.mid(60).join(u' '));
        const QString path = tmp.filePath(QStringLiteral("cabecera.pdf"));
        QVERIFY(modListados::Imprimir(l, kdFichero, QString(), path));
        const QStringList pages = pdfText(path, "-raw").split(u'\f', Qt::SkipEmptyParts);
        const QStringList printed = pages.join(u' ').split(QRegularExpression(QStringLiteral("\\s+")));
        QVERIFY(QSet<QString>(printed.begin(), printed.end()).contains(QSet<QString>(words.begin(), words.end()) << "150"));
        for (const QString &page : pages)
            QVERIFY(page.startsWith(QStringLiteral("C0 C1")));
    }

    void destinations_data()
    {
        QTest::addColumn<int>("destino");
        QTest::addColumn<QString>("target"); // file path, printer, or the mail stand-in's exit code
        QTest::addColumn<QString>("message"); // "" when delivered
        QTest::newRow("file") << int(kdFichero) << tmp.filePath("ok.pdf") << "";
        QTest::newRow("file, no folder") << int(kdFichero) << tmp.filePath("no/x.pdf") << "no existe la carpeta";
        QTest::newRow("file, cannot be created") << int(kdFichero) << "/proc/listado.pdf" << "No se puede guardar";
        QTest::newRow("file, disk full") << int(kdFichero) << tmp.filePath("lleno.pdf") << "¿disco lleno?";
        QTest::newRow("file, read-only") << int(kdFichero) << tmp.filePath("solo-lectura.pdf") << "es de solo lectura";
        QTest::newRow("screen") << int(kdPantalla) << "" << "";
        QTest::newRow("no printer chosen") << int(kdImpresora) << "" << "No hay ninguna impresora";
        QTest::newRow("e-mail") << int(kdEMail) << "0" << "";
        QTest::newRow("e-mail, no composer set up") << int(kdEMail) << "3" << "ningún programa de correo configurado";
        QTest::newRow("e-mail, no xdg-email") << int(kdEMail) << "none" << "xdg-email (paquete xdg-utils)";
    }
    void destinations()
    {
        QFETCH(int, destino);
        QFETCH(QString, target);
        QFETCH(QString, message);
        Testing::ScriptedUi ui;
        QTemporaryDir bin;
        const QByteArray path = qgetenv("PATH");
        if (destino == kdEMail) { // a stand-in composer that records its arguments
            qputenv("PATH", bin.path().toLocal8Bit());
            if (target != QLatin1String("none")) {
                QFile script(bin.filePath(QStringLiteral("xdg-email")));
                QVERIFY(script.open(QIODevice::WriteOnly));
                script.write(QStringLiteral("#!/bin/sh\nprintf '%s\\n' \"$@\" > %1/args\nexit %2\n").arg(bin.path(), target).toUtf8());
                script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
            }
        }
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        const rlimit full{8192, limit.rlim_max}; // the disk is full past 8 KiB
        if (target.endsWith(QLatin1String("lleno.pdf")))
            std::signal(SIGXFSZ, SIG_IGN), setrlimit(RLIMIT_FSIZE, &full);
        const bool readOnly = target.endsWith(QLatin1String("solo-lectura.pdf")); // root writes it unless immutable
        const QStringList chattr{QStringLiteral("+i"), target};
        if (readOnly && (!QFile(target).open(QIODevice::WriteOnly) || !QFile::setPermissions(target, QFile::ReadOwner)
                         || (::geteuid() == 0 && QProcess::execute(QStringLiteral("chattr"), chattr) != 0)))
            QSKIP("no read-only file here");
        const QStringList before = QDir(tmp.path()).entryList(QDir::Files);
        const QString old = QDir::tempPath() + "/varnel-correo-antiguo"; // a message sent two days ago
        if (destino == kdEMail && target == QLatin1String("0"))
            QVERIFY(QDir().mkpath(old) && QProcess::execute("/usr/bin/touch", {"-d", "2 days ago", old}) == 0);
        clsListado l = lista(400);
        l.setTitulo(QStringLiteral("Listado de prueba, de O'Brien")); // the attachment: letters, digits, blanks, - and _
        const bool delivered = modListados::Imprimir(l, enmDestination(destino), target, target);
        if (readOnly && ::geteuid() == 0)
            QProcess::execute(QStringLiteral("chattr"), {QStringLiteral("-i"), target});
        setrlimit(RLIMIT_FSIZE, &limit);
        qputenv("PATH", path);

        QCOMPARE(delivered, message.isEmpty());
        QCOMPARE(ui.messages.size(), message.isEmpty() ? 0 : 1);
        QVERIFY2(message.isEmpty() || ui.messages[0].prompt.contains(message), qPrintable(ui.messages.value(0).prompt));
        QCOMPARE(ui.modalShown, destino == kdPantalla ? QStringList{"frmVistaPrevia"} : QStringList());
        if (destino == kdFichero) { // the final name holds the whole PDF, or nothing is left at all
            QCOMPARE(QFileInfo::exists(target), delivered || readOnly);
            QCOMPARE(QDir(tmp.path()).entryList(QDir::Files).size(), before.size() + (delivered ? 1 : 0));
        }
        if (destino == kdEMail && delivered) {
            QFile args(bin.filePath(QStringLiteral("args")));
            QVERIFY(args.open(QIODevice::ReadOnly));
            const auto attached = QRegularExpression(QStringLiteral("--attach\n(/.+/Listado de prueba_ de O_Brien\\.pdf)\n")).match(args.readAll());
            QVERIFY(pdfText(attached.captured(1)).contains(QStringLiteral("Página 1 de")));
            QVERIFY(!QFileInfo::exists(old)); // its attachment's folder goes, this one's stays
            QDir(QFileInfo(attached.captured(1)).path()).removeRecursively();
        }
    }

    // The printer chosen in kdImpresoras, found by device name; a closed or removed queue.
    void printsToAQueueChosenByDeviceName()
    {
        QDir home(qEnvironmentVariable("HOME")); // an instance made with lpoptions, printing two copies
        QVERIFY(home.mkpath(QStringLiteral(".cups")));
        QFile lpoptions(home.filePath(QStringLiteral(".cups/lpoptions")));
        QVERIFY(lpoptions.open(QIODevice::WriteOnly) && lpoptions.write("Dest COLA_FICHERO/dos copies=2\n") > 0);
        lpoptions.close();
        Testing::ScriptedUi ui;
        kdImpresoras impresoras;
        kdDispositivo dispositivo;
        dispositivo.setListIndex(1); // Impresora
        auto print = [&](const QString &queue) {
            impresoras.setListIndex(qint16(Testing::entries(impresoras).indexOf(queue)));
            return modListados::Imprimir(lista(30), dispositivo, impresoras);
        };
        QVERIFY(print(QStringLiteral("COLA_FICHERO")));
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(cups.outputOf(QStringLiteral("COLA_FICHERO"))).size() > 1000, 15000);
        QVERIFY(print(QStringLiteral("COLA_FICHERO/dos"))); // to the queue, with the instance's options
        const auto log = [&] { QFile f(cups.log()); return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray(); };
        QTRY_VERIFY_WITH_TIMEOUT(log().contains("copies=2"), 15000);
        QVERIFY(!print(QStringLiteral("COLA_CERRADA")));
        QVERIFY(cups.removeQueue(QStringLiteral("COLA_OFICINA")));
        QVERIFY(!print(QStringLiteral("COLA_OFICINA")));
        cups.stop();
        QVERIFY(!print(QStringLiteral("COLA_FICHERO")));
        QVERIFY(ui.messages.size() == 3 && ui.messages[0].style == UiSeam::vbExclamation
                && ui.messages[0].prompt.contains(QStringLiteral("«COLA_CERRADA» no admite trabajos"))
                && ui.messages[1].prompt.contains(QStringLiteral("«COLA_OFICINA» ya no está en este equipo"))
                && ui.messages[2].prompt.contains(QStringLiteral("el sistema de impresión de este equipo no responde")));
    }

    // Over 300 rows a progress window covers the counting and the painting; Cancel delivers
    // nothing. The rows are read once: a source whose rows change as it is read prints the rows
    // it gave, all of them.
    void longListsShowProgress_data()
    {
        QTest::addColumn<int>("rows");
        QTest::addColumn<bool>("streamed");
        QTest::addColumn<int>("cancelAt");
        QTest::newRow("300 rows: no window") << 300 << false << -1;
        QTest::newRow("301 rows") << 301 << false << -1;
        QTest::newRow("streamed: total known after the count") << 1000 << true << -1;
        QTest::newRow("cancelled") << 1000 << false << 1200;
    }
    void longListsShowProgress()
    {
        QFETCH(int, rows);
        QFETCH(bool, streamed);
        QFETCH(int, cancelAt);
        Testing::ScriptedUi ui;
        ui.cancelProgressAt(cancelAt);
        clsListado l = lista(streamed ? 0 : rows);
        int next = 0, readings = 0;
        if (streamed) // each reading gives other rows: "LECTURA" and the reading's number
            l.setFuente([&] { next = 0, ++readings; }, [&](QStringList &fila) {
                fila = QStringList{QString::number(++next), QStringLiteral("LECTURA%1").arg(readings)};
                return next <= rows;
            });
        const QString path = tmp.filePath(QLatin1String(QTest::currentDataTag()) + QStringLiteral(".pdf"));
        const bool ok = cancelAt < 0;
        QCOMPARE(modListados::Imprimir(l, kdFichero, QString(), path), ok);
        QCOMPARE(QFileInfo::exists(path), ok);
        QCOMPARE(ui.messages.size(), 0);
        if (streamed)
            QCOMPARE(QList<qsizetype>({readings, pdfText(path).count(QStringLiteral("LECTURA1"))}), QList<qsizetype>({1, rows}));
        QCOMPARE(ui.progress.size(), rows > 300 ? 1 : 0); // a window over both readings
        if (rows > 300) // steps: both readings, up to the last row or to Cancel
            QCOMPARE(QList<qint64>({ui.progress[0].total, ui.progress[0].steps.last()}),
                     QList<qint64>({2 * rows, cancelAt < 0 ? 2 * rows : cancelAt}));
    }
};

QTEST_MAIN(tst_modListados)
#include "tst_modListados.moc"
