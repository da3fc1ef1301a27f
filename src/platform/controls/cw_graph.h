#pragma once

#include <QTimer>
#include <qcustomplot.h>

#include <cstddef>
#include <span>
#include <vector>

namespace orbkl4 {

/// A strip chart of several plots over the number of reads: it keeps and shows the last window of
/// them, and draws at most 60 times a second.
class CWGraph : public QCustomPlot {
    Q_OBJECT
    Q_PROPERTY(int pointCount READ PointCount)
    Q_PROPERTY(int readCount READ ReadCount)

  public:
    /// An empty graph of `plots` plots with a window of 200 reads; its plots take turns at solid,
    /// dashed and dotted lines, each three of one colour.
    explicit CWGraph(std::size_t plots, QWidget* parent = nullptr);

    /// Titles the X axis and sets its range; the width of the range is the window, in reads.
    void AxisX(const QString& title, double minimum, double maximum);

    /// Titles the Y axis and sets its range.
    void AxisY(const QString& title, double minimum, double maximum);

    /// Names plot `plot` (from 0) in the legend, which is shown once a plot has a name.
    void PlotName(std::size_t plot, const QString& name);

    /// The pen style of plot `plot` (from 0).
    static Qt::PenStyle LineStyle(std::size_t plot);

    /// Appends one point to each plot, one read after the last; error 9 where there is not one
    /// value for each.
    void Append(std::span<const double> values);

    /// Drops all points; the next one stands at read 0 and the X axis where it was set.
    void Clear();

    /// The points that each plot holds, at most those of the window.
    int PointCount() const { return static_cast<int>(filled_); }

    /// The reads since the last `Clear`.
    int ReadCount() const { return static_cast<int>(reads_); }

  private:
    void DrawSoon();
    void Draw();
    void AddPlot(std::size_t plot);

    QTimer drawTimer_;
    QCPRange rangeX_{0, 200};
    std::size_t plots_;
    std::size_t window_ = 200;
    std::vector<double> values_;  ///< ring of `window_` reads, `plots_` values each
    std::size_t filled_ = 0;      ///< reads in the ring
    std::size_t reads_ = 0;       ///< reads since the start; the next goes to `reads_ % window_`
};

}  // namespace orbkl4
