#include "platform/controls/cw_graph.h"

#include "base/number_text.h"
#include "base/run_time_error.h"
#include "platform/windows/colours.h"

#include <QVBoxLayout>
#include <qcustomplot.h>

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
    : QWidget(parent), plot_(new QCustomPlot(this)), plots_(plots), values_(plots * window_) {
    auto* inside = new QVBoxLayout(this);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(plot_);
    setMinimumSize(240, 160);
    plot_->setBackground(colours::base());
    plot_->setNotAntialiasedElements(QCP::aeAll);
    plot_->setPlottingHint(QCP::phFastPolylines);
    plot_->setNoAntialiasingOnDrag(true);
    for (std::size_t plot = 0; plot < plots; ++plot) AddPlot(plot);
    for (QCPAxis* axis : {plot_->xAxis, plot_->yAxis}) StyleAxis(*axis);
    for (QCPAxis* axis : {plot_->xAxis2, plot_->yAxis2}) {
        axis->setVisible(true);
        axis->setTicks(false);
        axis->setBasePen(QPen(colours::line(), 1));
    }
    plot_->xAxis->setRange(lowerX_, upperX_);
    FollowFont();
    drawTimer_.setSingleShot(true);
    drawTimer_.setInterval(frameMilliseconds);
    connect(&drawTimer_, &QTimer::timeout, this, &CWGraph::Draw);
}

void CWGraph::AddPlot(std::size_t plot) {
    QCPGraph* graph = plot_->addGraph();
    const QColor colour = plotColours.at(plot / lineStyles.size() % plotColours.size())();
    graph->setPen(QPen(colour, 1, lineStyles.at(plot % lineStyles.size())));
    graph->removeFromLegend();
}

void CWGraph::AxisX(const QString& title, double minimum, double maximum) {
    lowerX_ = minimum;
    upperX_ = maximum;
    window_ = static_cast<std::size_t>(std::max(1L, std::lround(maximum - minimum)));
    values_.assign(plots_ * window_, 0);
    plot_->xAxis->setLabel(title);
    Clear();
}

void CWGraph::AxisY(const QString& title, double minimum, double maximum) {
    plot_->yAxis->setLabel(title);
    plot_->yAxis->setRange(minimum, maximum);
    DrawSoon();
}

void CWGraph::PlotName(std::size_t plot, const QString& name) {
    QCPGraph* named = plot_->graph(static_cast<int>(plot));
    named->setName(name);
    named->addToLegend();
    QCPLegend* legend = plot_->legend;
    if (!legend->visible()) {
        // Beside the plots, not over them.
        plot_->plotLayout()->addElement(0, 1, legend);
        plot_->plotLayout()->setColumnStretchFactor(1, 0.001);
        legend->setBorderPen(Qt::NoPen);
        legend->setBrush(colours::base());
        legend->setTextColor(colours::ink());
        legend->setVisible(true);
    }
    DrawSoon();
}

void CWGraph::FollowFont() {
    for (QCPAxis* axis : {plot_->xAxis, plot_->yAxis}) {
        axis->setLabelFont(font());
        axis->setTickLabelFont(font());
    }
    const int line = fontMetrics().height();
    plot_->legend->setFont(font());
    plot_->legend->setIconSize(2 * line, line);
    constexpr int largeType = 24;  // in pixels of the display, beside which thin plots look faint
    const bool thick = IsContrast(CurrentLook()) || line * devicePixelRatioF() >= largeType;
    for (int plot = 0; plot < plot_->graphCount(); ++plot) {
        QPen pen = plot_->graph(plot)->pen();
        pen.setWidth(thick ? 2 : 1);
        plot_->graph(plot)->setPen(pen);
    }
}

void CWGraph::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
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
        values += plot_->graph(static_cast<int>(plot))->name() + QLatin1Char(' ') +
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
        plot_->graph(static_cast<int>(plot))->data()->set(points, true);
    }
    const double last = reads_ == 0 ? 0 : static_cast<double>(reads_ - 1);
    const double shift = std::max(0.0, last - upperX_);
    plot_->xAxis->setRange(lowerX_ + shift, upperX_ + shift);
    plot_->replot();
}

}  // namespace orbkl4
