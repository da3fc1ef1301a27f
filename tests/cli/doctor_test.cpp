#include "cli/cli_test.h"
#include "cli/link_health.h"
#include "simulator/replies.h"

#include <QJsonArray>

namespace orbkl4::cli::test {
namespace {

class Doctor : public CliTest {
  protected:
    /// What an examination finds; its advice must hold `parts`.
    QJsonObject FindsFaults(const std::vector<const char*>& parts) const {
        const Outcome outcome = Run({"doctor", "--json", "--port=1", "--baud=38400"});
        EXPECT_EQ(1, outcome.exit) << outcome.err;
        for (const char* part : parts)
            EXPECT_NE(std::string::npos, outcome.out.find(part)) << part << outcome.out;
        return outcome.Json();
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
    sensor.SetFaults({.delay = 1, .delayTime = std::chrono::milliseconds(7)});  // 5 are allowed
    // The first reply finds the sensor, two are damaged, one is missing.
    const orbkl4sim::Bytes damaged{0xF0, 0x0C, 0x1D, 0x0D, 0x0E};
    for (const auto& reply :
         std::vector<orbkl4sim::Bytes>{orbkl4sim::kFirmware, damaged, damaged, {}})
        sensor.ReplyOnceTo(0xF0, reply);
    const QJsonObject found =
        FindsFaults({"later than the line needs", "replies were damaged", "requests had no reply"});
    EXPECT_EQ(2, found["badReplies"].toInt());
    EXPECT_EQ(1, found["timeouts"].toInt());
    sensor.SetFaults({});
    sensor.SetWord(132, 0x0E);
    FindsFaults({"continuous mode"});
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
