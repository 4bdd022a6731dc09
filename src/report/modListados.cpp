#include "report/modListados.h"

#include "data/DbError.h"
#include "input/kdDispositivo.h"
#include "input/kdImpresoras.h"
#include "platform/LegacyError.h"
#include "platform/PrinterSource.h"
#include "platform/UiSeam.h"
#include "report/ReportRenderer.h"

#include <QApplication>
#include <QDir>
#include <QDateTime>
#include <QFileInfo>
#include <QPdfWriter>
#include <QPointer>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cups/cups.h>
#include <unistd.h>

namespace Varnel_Controles::modListados {

namespace {

const int kProgressAbove = 300; // rows

QString tituloDe(enmDestination destino)
{
    switch (destino) {
    case kdPantalla: return QStringLiteral("Vista previa del listado");
    case kdImpresora: return QStringLiteral("Imprimir listado");
    case kdFichero: return QStringLiteral("Guardar listado");
    case kdEMail: return QStringLiteral("Enviar listado por correo");
    }
    return QString();
}

bool aviso(const QString &text, const QString &title)
{
    UiSeam::current().MsgBox(text, UiSeam::vbExclamation, title);
    return false;
}

// The progress window of one delivery, opened once the list has more than 300 rows.
class Avance
{
public:
    Avance(const clsListado &listado, const QString &title)
        : m_text(QStringLiteral("Preparando «%1»…").arg(listado.Titulo())), m_title(title)
    {
    }
    bool operator()(qint64 done, qint64 total)
    {
        const qint64 rows = total > 0 ? total / 2 : done;
        if (!m_progreso) {
            if (rows <= kProgressAbove)
                return true;
            m_progreso = UiSeam::current().Progress(m_text, m_title, total);
            m_total = total;
        } else if (total != m_total) {
            m_progreso->setTotal(total);
            m_total = total;
        }
        return m_progreso->avanzar(done);
    }
    ReportLayout::Progress callback()
    {
        return [this](qint64 done, qint64 total) { return (*this)(done, total); };
    }

private:
    QString m_text, m_title;
    std::unique_ptr<Progreso> m_progreso;
    qint64 m_total = 0;
};

enum Outcome { Done, Cancelled, Failed };

// Paints the list; a failure of the rows' source or of the temporary spool is told to the clerk.
Outcome render(const clsListado &listado, QPagedPaintDevice &device, const QString &title)
{
    Avance avance(listado, title);
    try {
        QString why;
        switch (ReportRenderer::render(listado, device, avance.callback(), &why)) {
        case ReportRenderer::Done: return Done;
        case ReportRenderer::Cancelled: return Cancelled;
        case ReportRenderer::SpoolFailed:
            aviso(QStringLiteral("No se puede preparar el listado: no se ha podido escribir su copia temporal en la "
                                 "carpeta «%1» (¿disco lleno?): %2.")
                      .arg(QDir::toNativeSeparators(QDir::tempPath()), why),
                  title);
            return Failed;
        }
    } catch (const DbError &e) {
        reportError(e.Description(), QStringLiteral("modListados::Imprimir"));
    }
    return Failed;
}

// A4 (or the printer's paper) with 12 mm margins, landscape when the columns need it.
QPageLayout pageLayout(const clsListado &listado, const QPageSize &size)
{
    const QMarginsF margins(12, 12, 12, 12);
    qreal natural = 0; // inches
    for (const auto &c : listado.Columnas())
        natural += qMax(0, c.Ancho) / 1440.0;
    const qreal portrait = (size.size(QPageSize::Millimeter).width() - margins.left() - margins.right()) / 25.4;
    return QPageLayout(size, natural > portrait ? QPageLayout::Landscape : QPageLayout::Portrait, margins,
                       QPageLayout::Millimeter);
}

Outcome writePdf(const clsListado &listado, QIODevice &out, const QPageSize &size, const QString &title)
{
    QPdfWriter writer(&out);
    writer.setPageLayout(pageLayout(listado, size));
    writer.setTitle(listado.Titulo());
    writer.setCreator(QStringLiteral("Varnel_Controles"));
    return render(listado, writer, title);
}

QPrintPreviewDialog *preview(const clsListado &listado, QWidget *parent, std::function<void(Outcome)> painted)
{
    auto *dialog = new QPrintPreviewDialog(parent);
    dialog->setObjectName(QStringLiteral("frmVistaPrevia"));
    dialog->setWindowTitle(listado.Titulo());
    dialog->printer()->setPageLayout(pageLayout(listado, dialog->printer()->pageLayout().pageSize()));
    QObject::connect(dialog, &QPrintPreviewDialog::paintRequested, dialog,
                     [&listado, painted = std::move(painted)](QPrinter *printer) {
                         const Outcome outcome = render(listado, *printer, tituloDe(kdPantalla));
                         if (painted)
                             painted(outcome);
                     });
    return dialog;
}

bool toScreen(const clsListado &listado)
{
    bool first = true, shown = true;
    std::unique_ptr<QPrintPreviewDialog> dialog;
    dialog.reset(preview(listado, QApplication::activeWindow(), [&](Outcome outcome) {
        if (first && outcome != Done) { // nothing to show: the dialog goes at once
            shown = false;
            QMetaObject::invokeMethod(dialog.get(), &QDialog::reject, Qt::QueuedConnection);
        }
        first = false;
    }));
    dialog->resize(900, 1000);
    UiSeam::current().ShowModal(*dialog);
    return shown;
}

QString cupsReason(const QString &printer)
{
    switch (cupsLastError()) {
    case IPP_STATUS_ERROR_NOT_FOUND:
        return QStringLiteral("la impresora «%1» ya no existe en el sistema de impresión").arg(printer);
    case IPP_STATUS_ERROR_NOT_ACCEPTING_JOBS:
        return QStringLiteral("la impresora «%1» no admite trabajos en este momento").arg(printer);
    case IPP_STATUS_ERROR_FORBIDDEN:
    case IPP_STATUS_ERROR_NOT_AUTHORIZED:
    case IPP_STATUS_ERROR_NOT_AUTHENTICATED:
        return QStringLiteral("no tiene permiso para imprimir en «%1»").arg(printer);
    case IPP_STATUS_ERROR_SERVICE_UNAVAILABLE:
        return QStringLiteral("el sistema de impresión no responde");
    default:
        return QStringLiteral("el sistema de impresión respondió «%1»").arg(QString::fromUtf8(cupsLastErrorString()));
    }
}

// Whether the print system answers at all (a stopped cupsd lists no printers).
bool printSystemAnswers()
{
    http_t *http = httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1, 5000, nullptr);
    if (http)
        httpClose(http);
    return http != nullptr;
}

// A print job as lp sends it: to the queue before the "/" of an instance ("Oficina/dos"), with
// the options lpoptions gave that destination.
int printFile(const QString &printer, const QString &file, const QString &title)
{
    const QByteArray queue = printer.section(QLatin1Char('/'), 0, 0).toUtf8();
    const QByteArray instance = printer.section(QLatin1Char('/'), 1).toUtf8();
    cups_dest_t *dests = nullptr;
    const int count = cupsGetDests2(CUPS_HTTP_DEFAULT, &dests);
    int optionCount = 0;
    cups_option_t *options = nullptr;
    if (const cups_dest_t *dest = cupsGetDest(queue.constData(), instance.isEmpty() ? nullptr : instance.constData(),
                                              count, dests))
        for (int i = 0; i < dest->num_options; ++i)
            optionCount = cupsAddOption(dest->options[i].name, dest->options[i].value, optionCount, &options);
    cupsFreeDests(count, dests);
    const int job = cupsPrintFile2(CUPS_HTTP_DEFAULT, queue.constData(), QFile::encodeName(file).constData(),
                                   title.toUtf8().constData(), optionCount, options);
    cupsFreeOptions(optionCount, options);
    return job;
}

bool toPrinter(const clsListado &listado, const QString &printer)
{
    const QString title = tituloDe(kdImpresora);
    if (printer.isEmpty())
        return aviso(QStringLiteral("No hay ninguna impresora elegida. Elija una impresora en la lista."), title);
    if (!PrinterSource::current().printerNames().contains(printer)) {
        if (!printSystemAnswers())
            return aviso(QStringLiteral("No se puede imprimir el listado: el sistema de impresión de este equipo no "
                                        "responde. Compruebe que el servicio de impresión (CUPS) está en marcha."),
                         title);
        return aviso(QStringLiteral("La impresora «%1» ya no está en este equipo. Elija otra impresora en la lista.")
                         .arg(printer),
                     title);
    }
    QTemporaryDir dir(QDir::tempPath() + QStringLiteral("/varnel-listado-XXXXXX"));
    QFile pdf(dir.filePath(QStringLiteral("listado.pdf")));
    if (!dir.isValid() || !pdf.open(QIODevice::WriteOnly))
        return aviso(QStringLiteral("No se puede preparar el listado para la impresora: la carpeta temporal no admite "
                                    "ficheros (%1).")
                         .arg(dir.isValid() ? pdf.errorString() : dir.errorString()),
                     title);
    const QPageSize paper = QPrinterInfo::printerInfo(printer).defaultPageSize();
    const Outcome outcome = writePdf(listado, pdf, paper.isValid() ? paper : QPageSize(QPageSize::A4), title);
    pdf.close();
    if (outcome != Done)
        return false;
    if (pdf.error() != QFileDevice::NoError)
        return aviso(QStringLiteral("No se puede preparar el listado para la impresora: %1.").arg(pdf.errorString()), title);
    const int job = printFile(printer, pdf.fileName(), listado.Titulo());
    if (job <= 0)
        return aviso(QStringLiteral("No se ha podido imprimir el listado: %1.").arg(cupsReason(printer)), title);
    return true;
}

bool toFile(const clsListado &listado, const QString &path)
{
    const QString title = tituloDe(kdFichero);
    if (path.trimmed().isEmpty())
        return aviso(QStringLiteral("No se ha indicado el fichero donde guardar el listado."), title);
    const QFileInfo info(path);
    if (!info.absoluteDir().exists())
        return aviso(QStringLiteral("No se puede guardar el listado en «%1»: no existe la carpeta «%2».")
                         .arg(path, QDir::toNativeSeparators(info.absolutePath())),
                     title);
    if (info.isDir())
        return aviso(QStringLiteral("No se puede guardar el listado en «%1»: es una carpeta.").arg(path), title);
    QSaveFile file(path); // written aside, renamed into place by commit()
    if (!file.open(QIODevice::WriteOnly)) {
        QString why;
        if (info.exists() && !info.isWritable())
            why = QStringLiteral("ya existe un fichero con ese nombre y es de solo lectura; no se ha cambiado");
        else if (file.error() == QFileDevice::PermissionsError || !QFileInfo(info.absolutePath()).isWritable())
            why = QStringLiteral("no tiene permiso para escribir en esa carpeta");
        else
            why = QStringLiteral("no se ha podido crear el fichero (%1)").arg(file.errorString());
        return aviso(QStringLiteral("No se puede guardar el listado en «%1»: %2.").arg(path, why), title);
    }
    if (writePdf(listado, file, QPageSize(QPageSize::A4), title) != Done) {
        file.cancelWriting();
        return false;
    }
    if (!file.commit())
        return aviso(QStringLiteral("No se ha podido escribir el fichero «%1» (¿disco lleno?): %2. No se ha guardado "
                                    "nada.")
                         .arg(path, file.errorString()),
                     title);
    return true;
}

// The title as a file name that every mail composer's command line takes: letters (accented
// too), digits, blanks, "-" and "_"; any other character becomes "_".
QString attachmentName(const QString &titulo)
{
    QString name;
    for (QChar c : ReportLayout::printable(titulo).normalized(QString::NormalizationForm_C).simplified())
        name += c.isLetterOrNumber() || c.isMark() || c == QLatin1Char(' ') || c == QLatin1Char('-') ? c : QLatin1Char('_');
    return (name.isEmpty() ? QStringLiteral("Listado") : name.left(80)) + QStringLiteral(".pdf");
}

const QString kCarpetaCorreo = QStringLiteral("varnel-correo-");

// The folders of this user's attachments sent more than a day ago: their composers have long read them.
void removeOldAttachments()
{
    const QDateTime limit = QDateTime::currentDateTime().addDays(-1);
    const QFileInfoList folders = QDir(QDir::tempPath()).entryInfoList({kCarpetaCorreo + u'*'}, QDir::Dirs | QDir::NoSymLinks | QDir::NoDotAndDotDot);
    for (const QFileInfo &folder : folders)
        if (folder.ownerId() == ::getuid() && folder.lastModified() < limit)
            QDir(folder.absoluteFilePath()).removeRecursively();
}

bool toEMail(const clsListado &listado)
{
    const QString title = tituloDe(kdEMail);
    const QString program = QStandardPaths::findExecutable(QStringLiteral("xdg-email"));
    if (program.isEmpty())
        return aviso(QStringLiteral("No se puede enviar el listado por correo: este equipo no tiene el programa "
                                    "xdg-email (paquete xdg-utils), que abre el programa de correo. Guarde el listado "
                                    "en un fichero y adjúntelo a un mensaje."),
                     title);
    // The mail composer reads the attachment after xdg-email returns: the folder stays, and goes
    // with the next message sent a day later.
    removeOldAttachments();
    QTemporaryDir dir(QDir::tempPath() + u'/' + kCarpetaCorreo + QStringLiteral("XXXXXX"));
    QFile pdf(dir.filePath(attachmentName(listado.Titulo())));
    if (!dir.isValid() || !pdf.open(QIODevice::WriteOnly))
        return aviso(QStringLiteral("No se puede preparar el adjunto: la carpeta temporal no admite ficheros (%1).")
                         .arg(dir.isValid() ? pdf.errorString() : dir.errorString()),
                     title);
    const Outcome outcome = writePdf(listado, pdf, QPageSize(QPageSize::A4), title);
    pdf.close();
    if (outcome != Done)
        return false;
    if (pdf.error() != QFileDevice::NoError)
        return aviso(QStringLiteral("No se puede preparar el adjunto: %1.").arg(pdf.errorString()), title);

    auto *process = new QProcess;
    process->start(program, {QStringLiteral("--subject"), listado.Titulo(), QStringLiteral("--attach"), pdf.fileName()});
    if (!process->waitForStarted(10000)) {
        const QString why = process->errorString();
        delete process;
        return aviso(QStringLiteral("No se ha podido abrir el programa de correo: %1.").arg(why), title);
    }
    if (!process->waitForFinished(3000)) { // the composer keeps it running: the message is open
        QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
        dir.setAutoRemove(false);
        return true;
    }
    const int code = process->exitStatus() == QProcess::NormalExit ? process->exitCode() : -1;
    delete process;
    if (code == 0) {
        dir.setAutoRemove(false);
        return true;
    }
    if (code == 3)
        return aviso(QStringLiteral("No se puede enviar el listado por correo: no hay ningún programa de correo "
                                    "configurado en este equipo."),
                     title);
    return aviso(QStringLiteral("El programa de correo no ha podido preparar el mensaje (xdg-email terminó con el "
                                "código %1).")
                     .arg(code),
                 title);
}

} // namespace

bool Imprimir(const clsListado &listado, enmDestination destino, const QString &impresora, const QString &fichero)
{
    if (listado.Columnas().isEmpty())
        throw LegacyError(LegacyError::InvalidProcedureCall, QStringLiteral("El listado no tiene columnas."),
                          QStringLiteral("modListados::Imprimir"));
    switch (destino) {
    case kdPantalla: return toScreen(listado);
    case kdImpresora: return toPrinter(listado, impresora);
    case kdFichero: return toFile(listado, fichero);
    case kdEMail: return toEMail(listado);
    }
    throw LegacyError(LegacyError::InvalidProcedureCall, QStringLiteral("Destino de listado desconocido: %1.").arg(int(destino)),
                      QStringLiteral("modListados::Imprimir"));
}

bool Imprimir(const clsListado &listado, const kdDispositivo &dispositivo, const kdImpresoras &impresoras,
              const QString &fichero)
{
    enmDestination destino;
    try {
        destino = dispositivo.Destination();
    } catch (const LegacyError &) {
        return aviso(QStringLiteral("No hay ningún destino elegido para el listado."), QStringLiteral("Listado"));
    }
    return Imprimir(listado, destino, impresoras.Text(), fichero);
}

QPrintPreviewDialog *VistaPrevia(const clsListado &listado, QWidget *parent)
{
    return preview(listado, parent, {});
}

} // namespace Varnel_Controles::modListados
