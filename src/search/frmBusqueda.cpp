#include "search/frmBusqueda.h"

#include "data/ContextoDatos.h"
#include "data/DbError.h"
#include "data/Recordset.h"
#include "platform/KeyCodes.h"
#include "platform/Legacy.h"
#include "platform/LegacyColor.h"
#include "platform/TextField.h"
#include "platform/UiSeam.h"
#include "search/PagedRecordsetModel.h"
#include "search/SearchGrid.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace Varnel_Controles {

namespace {

// A filter holds at most the longest name (60) with wildcards between its words.
constexpr int kFilterMaxLength = 80;

// Suspends the grid's repainting while rows are added, and the scroll notifications that
// adding rows would cause; resumes both even on failure.
class RedrawOff
{
public:
    RedrawOff(QWidget *w, bool &adding) : m_widget(w), m_adding(adding), m_was(adding)
    {
        m_widget->setUpdatesEnabled(false);
        m_adding = true;
    }
    ~RedrawOff()
    {
        m_adding = m_was;
        m_widget->setUpdatesEnabled(true);
    }

private:
    QWidget *m_widget;
    bool &m_adding;
    bool m_was;
};

} // namespace

frmBusqueda::frmBusqueda(const QString &name, const QString &caption, int columns, int pageSize, QWidget *parent)
    : QDialog(parent)
    , m_layout(new QVBoxLayout(this))
    , m_model(new PagedRecordsetModel(columns, pageSize, this))
    , m_recordset(std::make_unique<Recordset>())
{
    setObjectName(name);
    setWindowTitle(caption);
    setModal(true);
    resize(560, 430);
}

// Created after the filters, so that the focus goes first to the filters, then the grid, then
// the buttons.
void frmBusqueda::addGrid()
{
    vsListado = new SearchGrid(this);
    cmdAceptar = new QPushButton(QStringLiteral("&Aceptar"), this);
    cmdCancelar = new QPushButton(QStringLiteral("&Cancelar"), this);
    vsListado->setAccessibleName(QStringLiteral("Resultados de la búsqueda"));
    vsListado->setObjectName(QStringLiteral("vsListado"));
    cmdAceptar->setObjectName(QStringLiteral("cmdAceptar"));
    cmdCancelar->setObjectName(QStringLiteral("cmdCancelar"));
    cmdAceptar->setAutoDefault(false);
    cmdCancelar->setAutoDefault(false);
    vsListado->setModel(m_model);

    m_layout->addWidget(vsListado, 1);
    m_buttons = new QHBoxLayout;
    m_buttons->addStretch();
    m_buttons->addWidget(cmdAceptar);
    m_buttons->addWidget(cmdCancelar);
    m_layout->addLayout(m_buttons);

    connect(cmdAceptar, &QPushButton::clicked, this, &frmBusqueda::onAceptar);
    connect(cmdCancelar, &QPushButton::clicked, this, &frmBusqueda::onCancelar);
    connect(vsListado, &SearchGrid::KeyDown, this, &frmBusqueda::onGridKeyDown);
    connect(vsListado, &SearchGrid::KeyPress, this, &frmBusqueda::onGridKeyPress);
    connect(vsListado->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        if (m_adding)
            return;
        readMore([this] {
            m_model->scrolled(vsListado->TopRow());
            fillView();
        });
    });
    connect(vsListado, &SearchGrid::ViewResized, this, [this] { readMore([this] { fillView(); }); });
}

frmBusqueda::~frmBusqueda() = default;

int frmBusqueda::pageSize() const { return m_model->pageSize(); }

TextField *frmBusqueda::addNameFilter(const QString &label1, const QString &label2)
{
    auto *lbl1 = new QLabel(label1, this);
    auto *lbl2 = new QLabel(label2, this);
    lbl1->setObjectName(QStringLiteral("lbl1"));
    lbl2->setObjectName(QStringLiteral("lbl2"));
    TextField *box = addFilter(QStringLiteral("txtNombre"), QStringLiteral("Nombre"));
    lbl1->setBuddy(box);
    m_filters = new QHBoxLayout;
    m_filters->addWidget(box);
    m_layout->addWidget(lbl1);
    m_layout->addLayout(m_filters);
    m_layout->addWidget(lbl2);
    addGrid();
    lbl2->setBuddy(vsListado);
    m_firstFilter = box;
    return box;
}

QWidget *frmBusqueda::firstFilter() const { return m_firstFilter; }

TextField *frmBusqueda::addFilter(const QString &name, const QString &accessibleName)
{
    auto *box = new TextField(this);
    box->setObjectName(name);
    box->setAccessibleName(accessibleName);
    box->setMaxLength(kFilterMaxLength);
    connectFilter(box);
    return box;
}

void frmBusqueda::connectFilter(TextField *box)
{
    connect(box, &TextField::KeyPress, this, [this, box](qint16 &keyAscii) {
        if (keyAscii == 13) {
            keyAscii = 0;
            filterEnter(box);
            return;
        }
        if (keyAscii > 0)
            keyAscii = qint16(Legacy::UCaseChar(QChar(char16_t(keyAscii))).unicode());
    });
    connect(box, &TextField::KeyDown, this, [this, box](qint16 &keyCode, qint16 &) {
        if (keyCode == KeyCodes::vbKeyDown && m_model->rowCount() > 0) {
            focusGrid();
            keyCode = 0;
            return;
        }
        filterKeyDown(box, keyCode);
    });
}

void frmBusqueda::paintFocus(TextField *box)
{
    connect(box, &TextField::GotFocus, box, [box] { box->setBackColor(LegacyColor::FocusBackColor); });
    connect(box, &TextField::LostFocus, box, [box] { box->setBackColor(LegacyColor::WindowBackground); });
}

void frmBusqueda::setHeaders(const QStringList &headers)
{
    m_model->setHeaders(headers);
    vsListado->horizontalHeader()->setVisible(!headers.isEmpty());
}

void frmBusqueda::setColumn(int column, int widthTwips, Qt::Alignment alignment)
{
    if (widthTwips > 0)
        vsListado->setColWidth(column, widthTwips);
    m_model->setColumnAlignment(column, alignment);
}

QString frmBusqueda::cell(int row, int column) const { return m_model->cell(row, column); }

// Rows read after the search (scrolling, PageDown, End) can fail, the database gone or its file
// damaged: the clerk is told once, the rows read stay in the grid, and the list reads no further.
void frmBusqueda::readMore(const std::function<void()> &read)
{
    try {
        RedrawOff redraw(vsListado, m_adding);
        read();
    } catch (const DbError &e) {
        m_model->setSource(nullptr, {});
        try {
            m_recordset->close();
        } catch (const DbError &) {
            // Already reported: the query failed.
        }
        reportError(e.Description(), objectName() + QStringLiteral("::Recuperar_Registros"));
    }
}

// A page of rows beyond the visible ones while the recordset has more: the grid has a
// scrollbar, and Down, PageDown, the wheel and the scrollbar always have rows to go to.
void frmBusqueda::fillView()
{
    m_model->fetchUpTo(vsListado->TopRow() + 2 * vsListado->VisibleRows());
}

void frmBusqueda::focusGrid()
{
    if (m_model->rowCount() == 0)
        return;
    vsListado->setFocus();
    vsListado->setRow(0);
}

void frmBusqueda::search(const QString &statement)
{
    RedrawOff redraw(vsListado, m_adding);
    m_model->clear();
    m_model->setSource(nullptr, {});
    if (m_recordset->isOpen())
        m_recordset->close();
    m_recordset->open(statement, ContextoDatos().conexion());
    m_model->setSource(m_recordset.get(), [this](const Recordset &rs) { return rowCells(rs); });
    m_model->fetch(m_model->pageSize());
    fillView();
    // Only this last step may fail silently (a list preloaded before the dialog is shown).
    focusGrid();
}

void frmBusqueda::filterEnter(TextField *)
{
    try {
        searchFromFilters();
    } catch (const DbError &e) {
        reportError(e.Description(), objectName() + QStringLiteral("::Recuperar_Registros"));
    }
}

void frmBusqueda::filterKeyDown(TextField *, qint16) {}

void frmBusqueda::takeRow(int row)
{
    m_codigo = Legacy::CLng(Legacy::Val(cell(row, 0)));
    m_nombre = cell(row, 1);
}

void frmBusqueda::clearResult()
{
    m_codigo = 0;
    m_nombre.clear();
}

QString frmBusqueda::cellText(const Recordset &rs, const QString &column)
{
    const QVariant value = rs.field(column);
    return value.isNull() ? QString() : value.toString();
}

QString frmBusqueda::withTradeName(const QString &name, const QVariant &tradeName)
{
    if (tradeName.isNull() || tradeName.toString().isEmpty())
        return name;
    return name + QStringLiteral(" / ") + tradeName.toString();
}

void frmBusqueda::onGridKeyDown(qint16 &keyCode, qint16 &shift)
{
    if (keyCode == KeyCodes::vbKeyUp && vsListado->Row() == 0) {
        if (QWidget *filter = firstFilter())
            filter->setFocus();
        keyCode = 0;
    } else if (keyCode == KeyCodes::vbKeyPageDown) {
        readMore([this] { m_model->pageDown(vsListado->Row(), [this] { return vsListado->TopRow(); }); });
    } else if (keyCode == KeyCodes::vbKeyEnd && (m_readsToEnd || m_endGoesToLastRead)) {
        readToEnd(m_readsToEnd && (shift & KeyCodes::CtrlMask));
        keyCode = 0;
    }
}

// End: the last row read (the view then reads a page beyond it); Ctrl+End: every row left, a
// thousand at a time, under a progress window (once there are more) whose Cancel keeps the rows
// read so far.
void frmBusqueda::readToEnd(bool everything)
{
    if (everything) {
        QApplication::setOverrideCursor(Qt::BusyCursor); // busy, and Cancel can still be clicked
        readMore([this] {
            constexpr int kStep = 1000;
            std::unique_ptr<Progreso> progress;
            while (m_model->fetch(kStep) == kStep && !m_model->sourceAtEnd()) {
                if (!progress)
                    progress = UiSeam::current().Progress(QStringLiteral("Leyendo todas las filas de la búsqueda…"),
                                                          windowTitle(), 0);
                if (!progress->avanzar(m_model->rowCount()))
                    break;
            }
        });
        QApplication::restoreOverrideCursor();
    }
    vsListado->setRow(m_model->rowCount() - 1);
}

void frmBusqueda::onGridKeyPress(qint16 &keyAscii)
{
    if (keyAscii == 13) {
        keyAscii = 0;
        onAceptar();
    }
}

void frmBusqueda::onAceptar()
{
    if (m_model->rowCount() == 0 || (m_storesResultFirst && vsListado->Row() < 0))
        return;
    const int row = qMax(0, vsListado->Row());
    if (m_storesResultFirst)
        takeRow(row);
    done(Accepted);
    QApplication::processEvents();
    if (!m_storesResultFirst)
        takeRow(row);
}

void frmBusqueda::onCancelar()
{
    if (m_storesResultFirst)
        clearResult();
    done(Rejected);
    QApplication::processEvents();
    if (!m_storesResultFirst)
        clearResult();
}

void frmBusqueda::closeEvent(QCloseEvent *event)
{
    if (event->spontaneous())
        onCancelar(); // the close box acts as Cancel
    else
        hide();       // closed by the program: the result stays as it is
    event->accept();
}

void frmBusqueda::reject()
{
    onCancelar(); // Escape, as Cancel
}

} // namespace Varnel_Controles
