// What the two article searches share: the filter frame `fraFiltro` with the description
// (`txtNombre`), code (`txtCodigo`), supplier reference (`txtReferencia`), supplier
// (`txtProveedor`, a kdProveedor) and family (`txtFamilia`, a kdFamilia) filters; the presets the
// article lookup sets before showing the dialog and reads back after it (the filters as the
// clerk left them); the chosen article's code and description as text.
//
// The frame shows, top to bottom, the description, the code, the family picker, the supplier and
// the reference; Tab and Enter walk them in that order (Enter through the family's levels):
// Enter leaving the family picker searches, and so does Enter in txtReferencia, the last filter.
// Searching: F9 anywhere in the dialog (or, while the filter frame is hidden, F9 shows it and
// puts the focus in txtNombre), Enter in txtReferencia, and Enter leaving the family picker.
// When the caller preset any filter, the search runs once as the dialog is first shown. Rows
// come 25 at a time as the grid needs them; Up on the first row goes back to txtNombre, and
// Down in txtNombre goes to the grid's first row when it has rows.
// Accept stores the current row's code and description, then hides the dialog (nothing happens
// without a current row); Cancel empties the code, then hides it.
//
// Set cEmpresa first, then the presets: the supplier's name and the families' descriptions are
// looked up as they are set. A search that fails is shown in a critical message titled
// "<dialog>::Recuperar_Registros" ("<dialog>::Form_Load" for the search as the dialog opens).
#pragma once

#include "varnel_controles_export.h"

#include "ContextoDatos.h"
#include "frmBusqueda.h"

#include <array>

class QFrame;
class QGridLayout;

namespace Varnel_Controles {

class kdFamilia;
class kdProveedor;
class kdTextBox;
struct FiltroArticulos;

class VARNEL_CONTROLES_EXPORT frmBusqueda_Articulos : public frmBusqueda
{
    Q_OBJECT
    Q_PROPERTY(qint32 Cliente READ Cliente WRITE setCliente)
    Q_PROPERTY(qint16 Almacen READ Almacen WRITE setAlmacen)
    Q_PROPERTY(QString Busqueda_Descripcion READ Busqueda_Descripcion WRITE setBusqueda_Descripcion)
    Q_PROPERTY(QString Busqueda_Codigo READ Busqueda_Codigo WRITE setBusqueda_Codigo)
    Q_PROPERTY(qint16 Busqueda_Proveedor READ Busqueda_Proveedor WRITE setBusqueda_Proveedor)
    Q_PROPERTY(QString Busqueda_Referencia READ Busqueda_Referencia WRITE setBusqueda_Referencia)
    Q_PROPERTY(qint16 Busqueda_Familia_1 READ Busqueda_Familia_1 WRITE setBusqueda_Familia_1)
    Q_PROPERTY(qint16 Busqueda_Familia_2 READ Busqueda_Familia_2 WRITE setBusqueda_Familia_2)
    Q_PROPERTY(qint16 Busqueda_Familia_3 READ Busqueda_Familia_3 WRITE setBusqueda_Familia_3)
    Q_PROPERTY(qint16 Familia_1 READ Familia_1 WRITE setFamilia_1)
    Q_PROPERTY(qint16 Familia_2 READ Familia_2 WRITE setFamilia_2)
    Q_PROPERTY(qint16 Familia_3 READ Familia_3 WRITE setFamilia_3)
    Q_PROPERTY(bool Extendido READ Extendido WRITE setExtendido)
    Q_PROPERTY(bool MostrarCodBarras READ MostrarCodBarras WRITE setMostrarCodBarras)
    Q_PROPERTY(bool MostrarFiltro READ MostrarFiltro WRITE setMostrarFiltro)
    Q_PROPERTY(QString Codigo READ Codigo)
    Q_PROPERTY(QString Descripcion READ Descripcion)

public:
    ~frmBusqueda_Articulos() override;

    /// The company object; its code is read at each query.
    void setCEmpresa(cEmpresa *company);

    /// Runs the search with the filters as they stand (what F9 does). May be called before the
    /// dialog is shown. Throws DbError when the query fails.
    void Recuperar_Registros();

    /// The customer whose prices the first layout's detail area shows (0 by default).
    qint32 Cliente() const { return m_cliente; }
    void setCliente(qint32 value) { m_cliente = value; }
    /// The warehouse whose stock (and, in the second layout, tariffs) are shown; 1 by default.
    qint16 Almacen() const { return m_almacen; }
    void setAlmacen(qint16 value) { m_almacen = value; }

    /// The filters: set before showing (any value preset makes the dialog search as it opens),
    /// read after it closes to open the next search where the clerk left this one.
    QString Busqueda_Descripcion() const;
    void setBusqueda_Descripcion(const QString &value);
    QString Busqueda_Codigo() const;
    void setBusqueda_Codigo(const QString &value);
    qint16 Busqueda_Proveedor() const;
    void setBusqueda_Proveedor(qint16 value);
    QString Busqueda_Referencia() const;
    void setBusqueda_Referencia(const QString &value);
    /// Families, from level 1 down: setting a level empties the levels below it, and a level
    /// whose level above is 0 stays 0.
    qint16 Busqueda_Familia_1() const;
    void setBusqueda_Familia_1(qint16 value);
    qint16 Busqueda_Familia_2() const;
    void setBusqueda_Familia_2(qint16 value);
    qint16 Busqueda_Familia_3() const;
    void setBusqueda_Familia_3(qint16 value);
    /// Fixed families: a level set here (not 0) is preset and cannot be changed by the clerk;
    /// every search filters by it.
    qint16 Familia_1() const { return m_fijas[0]; }
    void setFamilia_1(qint16 value) { setFija(1, value); }
    qint16 Familia_2() const { return m_fijas[1]; }
    void setFamilia_2(qint16 value) { setFija(2, value); }
    qint16 Familia_3() const { return m_fijas[2]; }
    void setFamilia_3(qint16 value) { setFija(3, value); }

    /// Extended mode (False by default): the first layout's description filter also searches
    /// the long description, and its detail area shows the current article. The second layout
    /// does not use it.
    bool Extendido() const { return m_extendido; }
    virtual void setExtendido(bool value);
    /// The barcode column is shown (False by default: hidden).
    bool MostrarCodBarras() const { return m_mostrarCodBarras; }
    void setMostrarCodBarras(bool value);
    /// The filter frame is shown (True by default). Hidden, the grid stands at the top of the
    /// dialog until F9 shows the frame.
    bool MostrarFiltro() const;
    void setMostrarFiltro(bool value);

    /// The chosen article's code, empty when nothing was chosen (Cancel empties it).
    QString Codigo() const { return m_codigoArticulo; }
    /// The chosen article's description (as it was listed).
    QString Descripcion() const { return m_nombre; }

protected:
    /// A dialog named `name` whose grid has `columns` columns.
    frmBusqueda_Articulos(const QString &name, const QString &caption, int columns, QWidget *parent);

    /// The statement for the company and the filters as they stand.
    virtual QString statement(qint16 empresa, const FiltroArticulos &filtro) = 0;
    /// What the dialog reads once, as it is first shown or before its first search. Throws DbError.
    virtual void load(qint16 empresa) { Q_UNUSED(empresa); }
    /// After each search (the grid's headers, for example).
    virtual void searched() {}

    /// The filters as they stand (fixed families included).
    FiltroArticulos filtro() const;
    /// The company code; throws DbError when no company object was given.
    qint16 empresa() const { return m_context.empresa(); }
    /// The grid's barcode column.
    static constexpr int kBarcodeColumn = 5;

    void searchFromFilters() override;
    void takeRow(int row) override;
    void clearResult() override;
    QWidget *firstFilter() const override;
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    QFrame *fraFiltro;
    // In the order of the frame, top to bottom, which is the focus order (created in it).
    kdTextBox *txtNombre;
    kdTextBox *txtCodigo;
    kdFamilia *txtFamilia;
    kdProveedor *txtProveedor;
    kdTextBox *txtReferencia;

private:
    void onF9();
    /// Runs load() once; with `fromShow` also the search of a caller's presets.
    void ensureLoaded(bool fromShow);
    void searchReporting(const QString &procedure);
    void setFija(int nivel, qint16 value);

    ContextoDatos m_context;
    qint32 m_cliente = 0;
    qint16 m_almacen = 1;
    std::array<qint16, 3> m_fijas{};
    bool m_extendido = false;
    bool m_mostrarCodBarras = false;
    bool m_preset = false;
    bool m_loaded = false;
    QString m_codigoArticulo;
};

} // namespace Varnel_Controles
