#include "cli/cli_test.h"
#include "cli/link_health.h"

#include <QJsonArray>

namespace orbkl4::cli::test {
namespace {

class Doctor : public CliTest {
  protected:
    /// The advice of an examination that ends with 1, as one text.
    std::string Advice() const {
        const Outcome outcome = Run({"doctor", "--json", "--port=1", "--baud=38400"});
        EXPECT_EQ(1, outcome.exit) << outcome.err;
        std::string all;
        for (const auto& sentence : outcome.Json()["advice"].toArray())
            all += sentence.toString().toStdString() + "\n";
        return all;
    }

    static bool Has(const std::string& text, const char* part) {
        return text.find(part) != std::string::npos;
    }
};

TEST_F(Doctor, FindsAGoodLineWell) {
    Plug(1);
    constexpr int attempts = 5;  // a busy computer is no good line
    Outcome outcome;
    for (int attempt = 0; attempt < attempts && outcome.exit != 0; ++attempt)
        outcome = Run({"doctor", "--json"});
    ASSERT_EQ(0, outcome.exit) << outcome.out;
    const QJsonObject found = outcome.Json();
    EXPECT_EQ(300, found["roundTrips"].toInt());
    // One byte out and five back, of ten bits each, at 38400 baud.
    EXPECT_NEAR(1.5625, found["wire_ms"].toDouble(), 0.001);
    EXPECT_EQ(640, found["limit_per_s"].toDouble());
    EXPECT_GE(found["median_ms"].toDouble(), 1.5);
    EXPECT_GE(found["p99_ms"].toDouble(), found["median_ms"].toDouble());
    EXPECT_NEAR(found["median_ms"].toDouble() - 1.5625, found["adapterDelay_ms"].toDouble(), 0.01);
    EXPECT_GT(found["rate_per_s"].toDouble(), 50);
    EXPECT_LT(found["rate_per_s"].toDouble(), 660);
    EXPECT_EQ(0, found["badReplies"].toInt(-1));
    EXPECT_EQ(0, found["timeouts"].toInt(-1));
    EXPECT_EQ(QJsonArray(), found["advice"].toArray());
    EXPECT_EQ(12, found.size()) << "and format and version";
}

TEST_F(Doctor, SaysWhatIsNotWell) {
    auto& sensor = Plug(1);
    sensor.SetFaults({.delay = 1, .delayTime = std::chrono::milliseconds(15)});
    EXPECT_TRUE(Has(Advice(), "later than the line needs"));
    sensor.SetFaults({.corrupt = 0.05});
    EXPECT_TRUE(Has(Advice(), "replies were damaged"));
    sensor.SetFaults({.drop = 0.02});
    EXPECT_TRUE(Has(Advice(), "requests had no reply"));
    sensor.SetFaults({});
    sensor.SetWord(132, 0x0E);
    EXPECT_TRUE(Has(Advice(), "continuous mode"));
}

TEST(LinkHealth, TakesTheNearestRank) {
    EXPECT_EQ(0, Quantile({}, 0.5));
    EXPECT_EQ(7, Quantile({7}, 0.99));
    EXPECT_EQ(2, Quantile({4, 1, 3, 2}, 0.5));
    EXPECT_EQ(4, Quantile({4, 1, 3, 2}, 0.99));
}

TEST(LinkHealth, AdvisesWhatTheDriverAllows) {
    LinkHealth health{.roundTrips = 300, .median = 17, .p99 = 18, .wire = 1.5};
    const auto advice = [&] { return AdviceOn(health, "/dev/ttyUSB0"); };
    health.lowLatency = false;
    ASSERT_EQ(1U, advice().size());
    EXPECT_NE(std::string::npos, advice()[0].find("setserial /dev/ttyUSB0 low_latency"));
    EXPECT_NE(std::string::npos, advice()[0].find("15.5 ms later"));
    for (const auto& flag : {std::optional(true), std::optional<bool>()}) {
        health.lowLatency = flag;
        EXPECT_EQ(std::string::npos, advice()[0].find("setserial"));
    }
    health.median = 2;
    EXPECT_TRUE(advice().empty());
    health.p99 = 60;
    EXPECT_EQ(1U, advice().size());
}

}  // namespace
}  // namespace orbkl4::cli::test
