#include "CalDataChart.h"

#include <QAbstractSpinBox>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QHash>
#include <QLabel>
#include <QListWidget>
#include <QMetaProperty>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <QtCharts/QChart>
#include <QtCharts/QChartView>
#include <QtCharts/QLineSeries>
#include <QtCharts/QScatterSeries>
#include <QtCharts/QValueAxis>

#include "FileDialogMan.h"
#include "Plausibility/CalPlausibility.h"

using namespace QtCharts;

const char *const CCalDataChart::kFaultProperty = "implausible";

namespace {

const char *const kMarkedStyle = "background-color: #ffc0c0;";

// The value a cell widget shows; a cell without one reads as 0.
double CellValue(const QTableWidget *table, int row, int column)
{
    const QWidget *cell = table->cellWidget(row, column);
    return cell ? cell->property("value").toDouble() : 0.0;
}

QVector<double> RowValues(const QTableWidget *table, int row)
{
    QVector<double> values;
    for (int column = 0; column < table->columnCount(); ++column)
        values << CellValue(table, row, column);
    return values;
}

// An axis over `low` to `high` with a little room on either side.
void Fit(QValueAxis *axis, double low, double high)
{
    const double room = high > low ? (high - low) * 0.05 : 1.0;
    axis->setRange(low - room, high + room);
}

} // namespace

CCalDataChart::CCalDataChart(QVector<QTableWidget *> tables, QVector<QSpinBox *> boxes, QWidget *parent)
    : QWidget(parent), m_tables(std::move(tables)), m_boxes(std::move(boxes)), m_faultList(new QListWidget(this))
{
    setObjectName("m_chartPanel");
    m_faultList->setObjectName("m_listFaults");
    m_faultList->setMaximumHeight(110);

    auto *save = new QPushButton("Save PNG...", this);
    save->setObjectName("m_btnSaveChart");
    connect(save, &QPushButton::clicked, this, &CCalDataChart::SavePicture);
    auto *tools = new QHBoxLayout;
    tools->addStretch();
    tools->addWidget(save);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel("Implausible values:", this));
    layout->addWidget(m_faultList);
    layout->addLayout(tools);
}

CCalDataChart *CCalDataChart::ForTpc(QTableWidget *dac, QTableWidget *power, const QVector<QSpinBox *> &hysteresis,
                                     QWidget *parent)
{
    auto *chart = new CCalDataChart({dac, power}, hysteresis, parent);
    chart->m_isTpc = true;
    return chart;
}

CCalDataChart *CCalDataChart::ForPathloss(QTableWidget *loss, QWidget *parent)
{
    auto *chart = new CCalDataChart({loss}, {}, parent);
    chart->m_isTpc = false;
    chart->m_maxJump = new QDoubleSpinBox(chart);
    chart->m_maxJump->setObjectName("m_spinMaxJump");
    chart->m_maxJump->setRange(0.125, 32.0);
    chart->m_maxJump->setSingleStep(0.125);
    chart->m_maxJump->setDecimals(3);
    chart->m_maxJump->setSuffix(" dB");
    chart->m_maxJump->setValue(CCalPlausibility::kDefaultLossJump);
    connect(chart->m_maxJump, QOverload<double>::of(&QDoubleSpinBox::valueChanged), chart,
            &CCalDataChart::ScheduleRedraw);
    auto *row = new QHBoxLayout;
    row->addWidget(new QLabel("Largest jump between neighbouring channels:", chart));
    row->addWidget(chart->m_maxJump);
    row->addStretch();
    static_cast<QVBoxLayout *>(chart->layout())->insertLayout(0, row);
    return chart;
}

void CCalDataChart::ScheduleRedraw()
{
    if (m_scheduled)
        return;
    m_scheduled = true;
    QTimer::singleShot(0, this, [this] {
        m_scheduled = false;
        Redraw();
    });
}

void CCalDataChart::WatchCells()
{
    QVector<QWidget *> widgets(m_boxes.cbegin(), m_boxes.cend());
    for (QTableWidget *table : m_tables) {
        for (int row = 0; row < table->rowCount(); ++row) {
            for (int column = 0; column < table->columnCount(); ++column)
                widgets << table->cellWidget(row, column);
        }
    }
    const int slot = metaObject()->indexOfSlot("ScheduleRedraw()");
    for (QWidget *widget : widgets) {
        if (!widget || widget->property("chartWatched").toBool())
            continue;
        const QMetaObject *meta = widget->metaObject();
        const QMetaProperty value = meta->property(meta->indexOfProperty("value"));
        if (value.hasNotifySignal())
            connect(widget, value.notifySignal(), this, metaObject()->method(slot));
        widget->setProperty("chartWatched", true);
    }
}

void CCalDataChart::Redraw()
{
    WatchCells();
    if (m_isTpc)
        BuildTpc();
    else
        BuildPathloss();
    m_faultList->clear();
    for (const SCalFault &fault : m_faults)
        m_faultList->addItem(fault.text);
    emit Signal_Checked(m_faults.size());
}

void CCalDataChart::BuildTpc()
{
    QTableWidget *dacTable = m_tables[0], *powerTable = m_tables[1];
    STpcCurves curves;
    for (int mode = 0; mode < STpcCurves::kModes; ++mode) {
        curves.dac[size_t(mode)] = RowValues(dacTable, mode);
        curves.power[size_t(mode)] = RowValues(powerTable, mode);
    }
    for (int pair = 0; pair + 1 < STpcCurves::kModes && 2 * pair + 1 < m_boxes.size(); ++pair) {
        curves.hysteresisStart[size_t(pair)] = m_boxes[2 * pair] ? m_boxes[2 * pair]->value() : 0;
        curves.hysteresisEnd[size_t(pair)] = m_boxes[2 * pair + 1] ? m_boxes[2 * pair + 1]->value() : 0;
    }
    m_faults = CCalPlausibility::CheckTpc(curves);

    QVector<QVector<QPointF>> lines(STpcCurves::kModes);
    QStringList names;
    for (int mode = 0; mode < STpcCurves::kModes; ++mode) {
        names << STpcCurves::kModeNames[size_t(mode)];
        for (int point = 0; point < curves.dac[size_t(mode)].size(); ++point)
            lines[mode] << QPointF(curves.dac[size_t(mode)][point], curves.power[size_t(mode)][point]);
    }
    QVector<QPointF> faulty;
    QVector<QPair<QWidget *, QString>> cells;
    for (const SCalFault &fault : m_faults) {
        // A DAC word out of order is the DAC cell's fault; the rest the power cell's.
        QTableWidget *table = fault.kind == SCalFault::EKind::DacNotRising ? dacTable : powerTable;
        for (const auto &[mode, point] : fault.points) {
            faulty << lines.value(mode).value(point);
            cells.append({table->cellWidget(mode, point), fault.text});
        }
    }
    if (!isHidden())
        Plot(lines, names, faulty);
    Mark(cells);
}

void CCalDataChart::BuildPathloss()
{
    QTableWidget *table = m_tables[0];
    SPathlossCurves curves;
    curves.channels = RowValues(table, 0);
    for (int row = 1; row < table->rowCount(); ++row) {
        if (table->isRowHidden(row))
            continue;
        const QTableWidgetItem *header = table->verticalHeaderItem(row);
        curves.modes << (header ? header->text() : QString("Mode %1").arg(row));
        curves.losses << RowValues(table, row);
    }
    m_faults = CCalPlausibility::CheckPathloss(curves, m_maxJump->value());

    QVector<QVector<QPointF>> lines(curves.losses.size());
    for (int mode = 0; mode < curves.losses.size(); ++mode) {
        for (int point = 0; point < curves.channels.size(); ++point) {
            if (curves.channels[point] != 0.0)
                lines[mode] << QPointF(curves.channels[point], curves.losses[mode].value(point));
        }
    }
    // The rows of the modes shown, by curve.
    QVector<int> rows;
    for (int row = 1; row < table->rowCount(); ++row) {
        if (!table->isRowHidden(row))
            rows << row;
    }
    QVector<QPointF> faulty;
    QVector<QPair<QWidget *, QString>> cells;
    for (const SCalFault &fault : m_faults) {
        for (const auto &[mode, point] : fault.points) {
            faulty << QPointF(curves.channels.value(point), curves.losses.value(mode).value(point));
            cells.append({table->cellWidget(rows.value(mode), point), fault.text});
        }
    }
    // The legend names the modes short: "LNA_EXT0_LOSS" as "EXT0".
    QStringList names;
    for (const QString &mode : qAsConst(curves.modes))
        names << QString(mode).remove("LNA_").remove("_LOSS");
    if (!isHidden())
        Plot(lines, names, faulty);
    Mark(cells);
}

void CCalDataChart::MakeView()
{
    m_chart = new QChart;
    m_chart->setTitle(m_isTpc ? "Power against VGA DAC word" : "RX path loss against channel");
    m_chart->legend()->setAlignment(Qt::AlignBottom);
    m_x = new QValueAxis; // the chart owns its axes
    m_y = new QValueAxis;
    m_x->setLabelFormat("%.0f");
    m_x->setTitleText(m_isTpc ? "VGA DAC word" : "UARFCN");
    m_y->setTitleText(m_isTpc ? "Power (dBm)" : "Loss (dB)");
    m_chart->addAxis(m_x, Qt::AlignBottom);
    m_chart->addAxis(m_y, Qt::AlignLeft);
    m_view = new QChartView(m_chart, this);
    m_view->setObjectName("m_chartView");
    m_view->setRenderHint(QPainter::Antialiasing);
    m_view->setMinimumSize(420, 300);
    static_cast<QVBoxLayout *>(layout())->insertWidget(0, m_view, 1);
}

void CCalDataChart::Plot(const QVector<QVector<QPointF>> &curves, const QStringList &names,
                         const QVector<QPointF> &faulty)
{
    // The chart is made when it is first shown: a page whose chart is never
    // shown does not pay for it.
    if (!m_view)
        MakeView();
    // The series go (and are deleted); the axes stay.
    m_chart->removeAllSeries();
    QValueAxis *x = m_x, *y = m_y;

    double minX = 0, maxX = 0, minY = 0, maxY = 0;
    bool any = false;
    const auto extend = [&](const QPointF &p) {
        minX = any ? qMin(minX, p.x()) : p.x();
        maxX = any ? qMax(maxX, p.x()) : p.x();
        minY = any ? qMin(minY, p.y()) : p.y();
        maxY = any ? qMax(maxY, p.y()) : p.y();
        any = true;
    };
    for (int i = 0; i < curves.size(); ++i) {
        auto *series = new QLineSeries;
        series->setName(names.value(i));
        series->setPointsVisible(true);
        series->replace(curves[i]);
        for (const QPointF &p : curves[i])
            extend(p);
        m_chart->addSeries(series);
        series->attachAxis(x);
        series->attachAxis(y);
    }
    auto *marks = new QScatterSeries;
    marks->setName("implausible");
    marks->setColor(Qt::red);
    marks->setMarkerSize(12);
    marks->replace(faulty);
    m_chart->addSeries(marks);
    marks->attachAxis(x);
    marks->attachAxis(y);
    Fit(x, minX, maxX);
    Fit(y, minY, maxY);
}

void CCalDataChart::Mark(const QVector<QPair<QWidget *, QString>> &cells)
{
    // Each faulty cell with all its faults' texts.
    QHash<QWidget *, QString> faulty;
    for (const auto &[cell, text] : cells) {
        if (cell)
            faulty[cell] += (faulty.contains(cell) ? "\n" : "") + text;
    }
    // Only the cells whose mark changes are restyled: a style sheet costs.
    for (const QPointer<QWidget> &cell : qAsConst(m_marked)) {
        if (cell && !faulty.contains(cell)) {
            cell->setProperty(kFaultProperty, QVariant());
            cell->setStyleSheet(QString());
        }
    }
    m_marked.clear();
    for (auto cell = faulty.cbegin(); cell != faulty.cend(); ++cell) {
        if (cell.key()->property(kFaultProperty).toString().isEmpty())
            cell.key()->setStyleSheet(kMarkedStyle);
        cell.key()->setProperty(kFaultProperty, cell.value());
        m_marked << cell.key();
    }
}

bool CCalDataChart::SaveImage(const QString &path) const { return m_view && m_view->grab().save(path, "PNG"); }

void CCalDataChart::SavePicture()
{
    CFileDialogMan dialog;
    QString path;
    dialog.GetSaveFilePath("Save the chart", "PNG image (*.png)|*.png", path);
    if (!path.isEmpty())
        SaveImage(path);
}
