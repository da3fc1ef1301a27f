#include "platform/controls/cw_graph.h"

#include "base/number_text.h"
#include "base/run_time_error.h"
#include "platform/windows/colours.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace orbkl4 {

namespace {

constexpr int frameMilliseconds = 17;  // just under 60 drawings a second

constexpr std::array lineStyles{Qt::SolidLine, Qt::DashLine, Qt::DotLine};
constexpr std::array plotColours{colours::plot1, colours::plot2, colours::plot3, colours::plot4};

void StyleAxis(QCPAxis& axis) {
    axis.setLabelColor(colours::ink());
    axis.setTickLabelColor(colours::ink());
    for (const auto setPen :
         {&QCPAxis::setBasePen, &QCPAxis::setTickPen, &QCPAxis::setSubTickPen}) {
        (axis.*setPen)(QPen(colours::disabledInk(), 1));
    }
    axis.grid()->setPen(QPen(colours::grid(), 1));
}

}  // namespace

CWGraph::CWGraph(std::size_t plots, QWidget* parent)
    : QCustomPlot(parent), plots_(plots), values_(plots * window_) {
    setMinimumSize(240, 160);
    setBackground(colours::base());
    setNotAntialiasedElements(QCP::aeAll);
    setPlottingHint(QCP::phFastPolylines);
    setNoAntialiasingOnDrag(true);
    for (std::size_t plot = 0; plot < plots; ++plot) AddPlot(plot);
    for (QCPAxis* axis : {xAxis, yAxis}) StyleAxis(*axis);
    for (QCPAxis* axis : {xAxis2, yAxis2}) {
        axis->setVisible(true);
        axis->setTicks(false);
        axis->setBasePen(QPen(colours::line(), 1));
    }
    xAxis->setRange(rangeX_);
    FollowFont();
    drawTimer_.setSingleShot(true);
    drawTimer_.setInterval(frameMilliseconds);
    connect(&drawTimer_, &QTimer::timeout, this, &CWGraph::Draw);
}

void CWGraph::AddPlot(std::size_t plot) {
    QCPGraph* graph = addGraph();
    const QColor colour = plotColours.at(plot / lineStyles.size() % plotColours.size())();
    graph->setPen(QPen(colour, 1, lineStyles.at(plot % lineStyles.size())));
    graph->removeFromLegend();
}

void CWGraph::AxisX(const QString& title, double minimum, double maximum) {
    rangeX_ = {minimum, maximum};
    window_ = static_cast<std::size_t>(std::max(1L, std::lround(maximum - minimum)));
    values_.assign(plots_ * window_, 0);
    xAxis->setLabel(title);
    Clear();
}

void CWGraph::AxisY(const QString& title, double minimum, double maximum) {
    yAxis->setLabel(title);
    yAxis->setRange(minimum, maximum);
    DrawSoon();
}

void CWGraph::PlotName(std::size_t plot, const QString& name) {
    QCPGraph* named = graph(static_cast<int>(plot));
    named->setName(name);
    named->addToLegend();
    if (!legend->visible()) {
        // Beside the plots, not over them.
        plotLayout()->addElement(0, 1, legend);
        plotLayout()->setColumnStretchFactor(1, 0.001);
        legend->setBorderPen(Qt::NoPen);
        legend->setBrush(colours::base());
        legend->setTextColor(colours::ink());
        legend->setVisible(true);
    }
    DrawSoon();
}

void CWGraph::FollowFont() {
    for (QCPAxis* axis : {xAxis, yAxis}) {
        axis->setLabelFont(font());
        axis->setTickLabelFont(font());
    }
    const int line = fontMetrics().height();
    legend->setFont(font());
    legend->setIconSize(2 * line, line);
    constexpr int largeType = 24;  // in pixels of the display, beside which thin plots look faint
    const bool thick = IsContrast(CurrentLook()) || line * devicePixelRatioF() >= largeType;
    for (int plot = 0; plot < graphCount(); ++plot) {
        QPen pen = graph(plot)->pen();
        pen.setWidth(thick ? 2 : 1);
        graph(plot)->setPen(pen);
    }
}

void CWGraph::changeEvent(QEvent* event) {
    QCustomPlot::changeEvent(event);
    if (event->type() != QEvent::FontChange) return;
    FollowFont();
    DrawSoon();
}

void CWGraph::Append(std::span<const double> values) {
    if (values.size() != plots_) Raise(ErrorNumber::SubscriptOutOfRange);
    const auto place = static_cast<std::ptrdiff_t>(reads_ % window_ * plots_);
    std::copy(values.begin(), values.end(), values_.begin() + place);
    ++reads_;
    filled_ = std::min(filled_ + 1, window_);
    DrawSoon();
}

void CWGraph::Clear() {
    filled_ = 0;
    reads_ = 0;
    DrawSoon();
}

QString CWGraph::LastRead() const {
    QStringList values;
    for (std::size_t plot = 0; filled_ > 0 && plot < plots_; ++plot) {
        const double value = values_[(reads_ - 1) % window_ * plots_ + plot];
        values += graph(static_cast<int>(plot))->name() + QLatin1Char(' ') +
                  QString::fromStdString(ScreenText(value));
    }
    return values.join(QStringLiteral(", "));
}

void CWGraph::DrawSoon() {
    if (!drawTimer_.isActive()) drawTimer_.start();
}

void CWGraph::Draw() {
    const std::size_t first = reads_ - filled_;
    for (std::size_t plot = 0; plot < plots_; ++plot) {
        QVector<QCPGraphData> points;
        points.reserve(static_cast<qsizetype>(filled_));
        for (std::size_t read = first; read < reads_; ++read) {
            points.append({static_cast<double>(read), values_[read % window_ * plots_ + plot]});
        }
        graph(static_cast<int>(plot))->data()->set(points, true);
    }
    const double last = reads_ == 0 ? 0 : static_cast<double>(reads_ - 1);
    const double shift = std::max(0.0, last - rangeX_.upper);
    xAxis->setRange(rangeX_.lower + shift, rangeX_.upper + shift);
    replot();
}

}  // namespace orbkl4
