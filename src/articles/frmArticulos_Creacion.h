// frmArticulos_Creacion: the quick creation of articles. The article takes its code first,
// typed or the next free one on F6 (Enter in `txtCodigo`), which writes the provisional article
// (Mod_Ficha 0) and one row per warehouse of the company; the clerk then fills supplier,
// reference, descriptions, families, brand, tax type, qualities, season and the check box that
// keeps the article out of the automatic EAN series, and accepts (`cmdAceptar` or F9): the
// validation runs, then in one transaction the article is completed, its principal supplier
// reference written and, when the company asks for it (Empresas.CodigoBarrasAuto), its automatic
// EAN-8 barcode created through clsArticulo_CBarra. A failed accept changes nothing: the article
// stays provisional and the clerk is told what failed. Cancel (`cmdCancelar`, F12, Escape while
// cancelling is possible) and closing (`cmdCerrar`, Escape otherwise, the close box) remove the
// provisional rows. The descriptions are composed from Formacion_Desc whenever the reference,
// brand, season or families change (a composition without rows leaves its description alone).
//
// Codes: an existing code is refused with "Este código ya está asignado a otro artículo.";
// a code above Empresas.MaxCodigoArt (when 1 or more), or below 1, is emptied without a word.
// A code another workstation takes between the check and the provisional rows is refused with
// the same message and the next free code is offered in the box (as after F6 on a taken code).
//
// Company settings used: FamiliaObligada (every family level must be filled), MaxCodigoArt,
// CualidadX_PorDefecto / CualidadY_PorDefecto (the qualities selected at first and after each
// article), Series_Automaticas (the check box is available only when it is True). The quality
// combos list the company's qualities (table Cualidades); a combo with entries must have one
// selected. Typing stops at each column's size (reference 30, description 60, ticket description
// 30, season 10). After the code, supplier, reference, family and quality checks, and before the
// question about an empty description, the validation refuses text longer than its column and a
// brand, tax type (table TiposImpuesto) or season that does not exist (an empty one means none).
#pragma once

#include "varnel_controles_export.h"

#include "ContextoDatos.h"
#include "DescripcionCompuesta.h"

#include <QDialog>
#include <array>

class QComboBox;
class QLabel;
class QPushButton;

namespace Varnel_Controles {

class kdCheckBox;
class kdFamilia;
class kdProveedor;
class kdTemporada;
class kdTextBox;

class VARNEL_CONTROLES_EXPORT frmArticulos_Creacion : public QDialog
{
    Q_OBJECT

public:
    explicit frmArticulos_Creacion(QWidget *parent = nullptr);
    /// A provisional article still held is removed (quietly: the window is going).
    ~frmArticulos_Creacion() override;

    /// The company object; the form's lookups and pickers get it too.
    void setCEmpresa(cEmpresa *company);
    /// The library-wide connection: kept only if none was handed to the library before.
    void setConexion(Conexion *connection) { m_context.setConexion(connection); }

    /// Reads the company's settings, its qualities, the family titles and the composition
    /// lists. Runs by itself as the form is first shown; call it to load earlier. False when the
    /// database failed (shown in a critical message titled "frmArticulos_Creacion::Form_Load").
    bool Cargar();
    /// Whether the company has an article with this code. Failures are shown (title
    /// "frmArticulos_Creacion::Existe") and give False.
    bool Existe(qint32 Codigo);
    /// Deletes the article and its warehouse rows, both or neither. Failures are shown (title
    /// "frmArticulos_Creacion::EliminarF6").
    void EliminarF6(qint32 Codigo);
    /// Checks the article as the accept does; on the first fault shows why (exclamation,
    /// "Validando artículo...") and puts the focus on the control to correct. An empty
    /// description is asked about (Yes goes on).
    bool Validar_Articulo();
    /// Every way the form closes ends here (Escape, cmdCerrar, the close box, reject, accept):
    /// the provisional rows are removed first.
    void done(int result) override;

Q_SIGNALS:
    /// An article was saved (after the commit); the form is then empty for the next one.
    void ArticuloCreado(qint32 Codigo);

protected:
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Ajustes
    {
        bool familiaObligada = false;
        qint32 maxCodigoArt = 0;
        int cualidadX = 0, cualidadY = 0;
        bool seriesAutomaticas = false;
    };
    enum class Toma { Tomado, Ocupado, Fallo };

    void buildLayout();
    void onCodigoKeyPress(qint16 &keyAscii);
    void siguienteCodigo();
    /// The F6 statement's code plus one; throws when it cannot be read as a number.
    bool leerSiguiente(qint32 &codigo);
    void tomarCodigo(bool ofrecerSiguiente);
    void ofrecerSiguiente();
    Toma insertarProvisional(qint32 codigo);
    bool existeCodigo(qint32 codigo);
    /// Both provisional deletes in one transaction; throws DbError.
    void eliminarFilas(qint32 codigo);
    bool eliminar(qint32 codigo);
    /// Validates; False with `mensaje` (maybe empty) and `foco` set. Throws DbError.
    bool validar(QString &mensaje, QWidget *&foco);
    void aceptar();
    void cancelar();
    void limpiar();
    void estadoVacio();
    void componer();
    void buscarMarca();
    void comprobarMarca();
    void mostrarMarca(const QString &codigo, const QString &nombre);
    QList<DescripcionCompuesta::Campo> leerComposicion(int descLarga);
    qint32 codigoCualidad(const QComboBox *combo) const;
    void seleccionarDefectos();

    ContextoDatos m_context;
    Ajustes m_ajustes;
    QList<DescripcionCompuesta::Campo> m_ticket, m_larga;
    bool m_cargado = false;
    qint32 m_provisional = 0; // the code whose provisional rows the form holds, 0 for none
    QString m_marcaMostrada;  // the brand code whose name lblMarca shows

    kdTextBox *txtCodigo;
    kdProveedor *txtProv;
    kdTextBox *txtRef;
    kdTextBox *txtDescripcion;
    kdTextBox *txtDesc_Ticket;
    kdFamilia *txtFamilia;
    std::array<QLabel *, 3> lblTFamilia;
    kdTextBox *txtMarca;
    QLabel *lblMarca;
    kdTextBox *txtImpuesto;
    std::array<QLabel *, 2> lblCualidades;
    QComboBox *cboCualX;
    QComboBox *cboCualY;
    kdTemporada *txtTemporada;
    kdCheckBox *chkNoGenerarSerieEAN;
    QPushButton *cmdAceptar;
    QPushButton *cmdCancelar;
    QPushButton *cmdCerrar;
};

} // namespace Varnel_Controles
