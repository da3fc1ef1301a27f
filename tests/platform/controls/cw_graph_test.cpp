#include "platform/controls/cw_graph.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>
#include <qcustomplot.h>

#include <array>

namespace orbkl4 {
namespace {

/// Nine words that are different for each plot and each read.
std::array<double, 9> Read(int number) {
    std::array<double, 9> words{};
    for (std::size_t plot = 0; plot < words.size(); ++plot) {
        words.at(plot) = static_cast<double>(plot) * 10000 + number;
    }
    return words;
}

TEST(CWGraph, ShowsTheLastReadsOnlyAndDrawsABurstOnce) {
    CWGraph graph(9);
    const QCustomPlot& plot = *graph.findChild<QCustomPlot*>();
    graph.AxisX("Reads", 0, 200);
    QSignalSpy drawings(&plot, &QCustomPlot::afterReplot);
    const auto drawn = [&] {
        drawings.clear();
        return QTest::qWaitFor([&] { return drawings.count() > 0; });
    };
    ASSERT_TRUE(drawn());  // the empty graph
    for (int read = 0; read < 1000; ++read) graph.Append(Read(read));
    ASSERT_TRUE(drawn());
    EXPECT_EQ(drawings.count(), 1);
    EXPECT_EQ(plot.xAxis->range(), QCPRange(799, 999));
    const auto points = plot.graph(8)->data();
    ASSERT_EQ(points->size(), 200);
    EXPECT_EQ(points->at(0)->key, 800);
    EXPECT_EQ(points->at(0)->value, 80800);
    EXPECT_EQ(points->at(199)->key, 999);
    EXPECT_EQ(points->at(199)->value, 80999);

    graph.Clear();
    graph.Append(Read(5));
    ASSERT_TRUE(drawn());
    ASSERT_EQ(plot.graph(0)->data()->size(), 1);
    EXPECT_EQ(plot.graph(0)->data()->at(0)->key, 0);
}

TEST(CWGraph, DrawsEveryPlotInItsOwnLineStyleAndColour) {
    const CWGraph graph(9);
    const QCustomPlot& plot = *graph.findChild<QCustomPlot*>();
    constexpr std::array styles{Qt::SolidLine, Qt::DashLine, Qt::DotLine};
    for (int number = 0; number < 9; ++number) {
        const QPen pen = plot.graph(number)->pen();
        EXPECT_EQ(pen.style(), styles.at(static_cast<std::size_t>(number % 3)));
        EXPECT_EQ(pen.width(), 1);
        EXPECT_EQ(pen.color() == plot.graph(0)->pen().color(), number < 3);
    }
}

}  // namespace
}  // namespace orbkl4
