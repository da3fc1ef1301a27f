#include "platform/controls/cw_graph.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

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
    graph.AxisX("Reads", 0, 200);
    QSignalSpy drawings(&graph, &QCustomPlot::afterReplot);
    const auto drawn = [&] {
        drawings.clear();
        return QTest::qWaitFor([&] { return drawings.count() > 0; });
    };
    ASSERT_TRUE(drawn());  // the empty graph
    for (int read = 0; read < 1000; ++read) graph.Append(Read(read));
    ASSERT_TRUE(drawn());
    EXPECT_EQ(drawings.count(), 1);
    EXPECT_EQ(graph.xAxis->range(), QCPRange(799, 999));
    const auto points = graph.graph(8)->data();
    ASSERT_EQ(points->size(), 200);
    EXPECT_EQ(points->at(0)->key, 800);
    EXPECT_EQ(points->at(0)->value, 80800);
    EXPECT_EQ(points->at(199)->key, 999);
    EXPECT_EQ(points->at(199)->value, 80999);

    graph.Clear();
    graph.Append(Read(5));
    ASSERT_TRUE(drawn());
    ASSERT_EQ(graph.graph(0)->data()->size(), 1);
    EXPECT_EQ(graph.graph(0)->data()->at(0)->key, 0);
}

TEST(CWGraph, DrawsEveryPlotInItsOwnLineStyleAndColour) {
    CWGraph graph(9);
    constexpr std::array styles{Qt::SolidLine, Qt::DashLine, Qt::DotLine};
    for (int plot = 0; plot < 9; ++plot) {
        const QPen pen = graph.graph(plot)->pen();
        EXPECT_EQ(pen.style(), styles.at(static_cast<std::size_t>(plot % 3)));
        EXPECT_EQ(pen.width(), 1);
        EXPECT_EQ(pen.color() == graph.graph(0)->pen().color(), plot < 3);
    }
}

}  // namespace
}  // namespace orbkl4
