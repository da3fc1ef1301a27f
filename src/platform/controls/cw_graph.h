#pragma once

#include <QTimer>
#include <QWidget>

#include <cstddef>
#include <span>
#include <vector>

class QCustomPlot;

namespace orbkl4 {

/// A strip chart of several plots over the number of reads. It keeps and shows the last reads only,
/// as many as its window has room for, and draws at most 60 times a second.
class CWGraph : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int pointCount READ PointCount)
    Q_PROPERTY(int readCount READ ReadCount)
    Q_PROPERTY(QString text READ LastRead)

  public:
    /// An empty graph of `plots` plots with a window of 200 reads. Their lines are solid, dashed
    /// and dotted in turn; every three plots share a colour.
    explicit CWGraph(std::size_t plots, QWidget* parent = nullptr);

    /// Titles the X axis and sets its range; the width of the range is the window, in reads.
    void AxisX(const QString& title, double minimum, double maximum);

    /// Titles the Y axis and sets its range.
    void AxisY(const QString& title, double minimum, double maximum);

    /// Names plot `plot` (from 0) in the legend, which appears with the first name.
    void PlotName(std::size_t plot, const QString& name);

    /// Appends one read: a point to each plot. Error 9 unless there is one value for each plot.
    void Append(std::span<const double> values);

    /// Drops all points; the next one is at read 0, and the X axis back in its own range.
    void Clear();

    /// The number of points in each plot, at most the window.
    int PointCount() const { return static_cast<int>(filled_); }

    /// The number of reads since the last `Clear`.
    int ReadCount() const { return static_cast<int>(reads_); }

    /// The values of the last read with the names of their plots; empty if there is none.
    QString LastRead() const;

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void FollowFont();
    void DrawSoon();
    void Draw();
    void AddPlot(std::size_t plot);

    QCustomPlot* plot_;
    QTimer drawTimer_;
    double lowerX_ = 0;
    double upperX_ = 200;
    std::size_t plots_;
    std::size_t window_ = 200;
    std::vector<double> values_;  ///< ring of `window_` reads, `plots_` values each
    std::size_t filled_ = 0;      ///< reads in the ring
    std::size_t reads_ = 0;       ///< reads since `Clear`; the next goes to `reads_ % window_`
};

}  // namespace orbkl4
