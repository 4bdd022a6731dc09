// Delivers a clsListado where the host's kdDispositivo says: the screen (a print preview), the
// printer chosen in kdImpresoras (by device name), a PDF file at a path the host gives, or a PDF
// handed to the desktop's mail composer (xdg-email --attach). Lists of more than 300 rows show a
// progress window with Cancel while they are laid out. Every failure is told to the clerk in an
// exclamation box titled after the operation and leaves nothing half-written behind.
#pragma once

#include "varnel_controles_export.h"

#include "Enums.h"
#include "clsListado.h"

class QPrintPreviewDialog;
class QWidget;

namespace Varnel_Controles {

class kdDispositivo;
class kdImpresoras;

namespace modListados {

/// Sends `listado` to `destino`: kdPantalla shows a print preview modally (through the UI seam),
/// kdImpresora prints on the printer whose device name is `impresora`, kdFichero writes a PDF
/// at `fichero` (written aside and renamed into place when complete), kdEMail opens a new
/// message with the PDF attached. True when delivered; false when it failed (the clerk has been
/// told) or was cancelled. Throws LegacyError 5 for a list without columns or an unknown
/// destination.
VARNEL_CONTROLES_EXPORT bool Imprimir(const clsListado &listado, enmDestination destino, const QString &impresora,
                                      const QString &fichero = QString());
/// The same with the destination of `dispositivo` and the printer of `impresoras`; an empty
/// destination list is told to the clerk.
VARNEL_CONTROLES_EXPORT bool Imprimir(const clsListado &listado, const kdDispositivo &dispositivo,
                                      const kdImpresoras &impresoras, const QString &fichero = QString());
/// A print preview of `listado`, not shown (the screen destination shows one modally). The
/// listado must outlive the dialog.
VARNEL_CONTROLES_EXPORT QPrintPreviewDialog *VistaPrevia(const clsListado &listado, QWidget *parent = nullptr);

} // namespace modListados
} // namespace Varnel_Controles
