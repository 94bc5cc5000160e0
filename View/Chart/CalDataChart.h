#pragma once

#include <QPointer>
#include <QVector>
#include <QWidget>

#include "Plausibility/CalCurves.h"

class QDoubleSpinBox;
class QListWidget;
class QSpinBox;
class QTableWidget;

namespace QtCharts {
class QChart;
class QChartView;
class QValueAxis;
} // namespace QtCharts

// A chart of a calibration page's curves beside its tables, with the
// plausibility check of what they show: power against DAC word for each PA
// mode (TPC), or loss against channel for each gain mode (RX path loss).
// It follows the tables: any value that changes (an edit, a Read, an Import,
// a band change) redraws it, once, as soon as the page's update is done. The
// implausible cells are marked in the tables and listed under the chart;
// nothing is stopped.
class CCalDataChart : public QWidget {
    Q_OBJECT
public:
    // The TPC tables (rows PA_H, PA_M, PA_L; a column per point) and the
    // four hysteresis boxes (start 0, end 0, start 1, end 1).
    static CCalDataChart *ForTpc(QTableWidget *dac, QTableWidget *power, const QVector<QSpinBox *> &hysteresis,
                                 QWidget *parent);
    // The path loss table: channels in its first row, a gain mode in each other.
    static CCalDataChart *ForPathloss(QTableWidget *loss, QWidget *parent);

    // Reads the tables, checks, marks, and redraws now if the chart is shown.
    void Redraw();
    const QVector<SCalFault> &Faults() const { return m_faults; }
    // The chart as a PNG file.
    bool SaveImage(const QString &path) const;

    // The dynamic property of a marked cell: why it is marked.
    static const char *const kFaultProperty;

public slots:
    // Redraws once the events in hand are handled: many changes, one redraw.
    void ScheduleRedraw();

signals:
    // After each redraw: how many implausible values the check found.
    void Signal_Checked(int faults);

private:
    CCalDataChart(QVector<QTableWidget *> tables, QVector<QSpinBox *> boxes, QWidget *parent);

    void BuildTpc();
    void BuildPathloss();
    // Every value cell of the tables and every box redraws the chart when it changes.
    void WatchCells();
    void MakeView();
    void Plot(const QVector<QVector<QPointF>> &curves, const QStringList &names, const QVector<QPointF> &faulty);
    void Mark(const QVector<QPair<QWidget *, QString>> &cells);
    void SavePicture();

    const QVector<QTableWidget *> m_tables;
    const QVector<QSpinBox *> m_boxes;
    bool m_isTpc = true;
    bool m_scheduled = false;
    // Made when the chart is first shown (MakeView).
    QtCharts::QChart *m_chart = nullptr;
    QtCharts::QChartView *m_view = nullptr;
    QtCharts::QValueAxis *m_x = nullptr;
    QtCharts::QValueAxis *m_y = nullptr;
    QListWidget *m_faultList;
    QDoubleSpinBox *m_maxJump = nullptr;
    QVector<SCalFault> m_faults;
    QVector<QPointer<QWidget>> m_marked;
};
