#include "cli/record_test.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <mosquitto.h>
#include <mutex>
#include <stdexcept>
#include <unistd.h>

namespace orbkl4::cli::test {
namespace {

using namespace std::chrono_literals;
using orbkl4sim::ContentOf;

constexpr const char* brokerProgram = "/usr/sbin/mosquitto";
constexpr const char* topic = "orb-kl4/1042/vectors";
// Two seconds to end, and what a busy machine takes; the keep-alive would take twenty.
constexpr auto longestEnding = 8s;

/// A port of the loopback that nobody else takes: tests run side by side, each in a process of its
/// own, and the system gives out none of these by itself.
int FreePort() {
    constexpr int first = 20'000;
    constexpr int count = 12'000;
    return first + ::getpid() % count;
}

/// What a subscriber to everything has received.
class Subscriber {
  public:
    struct Message {
        std::string topic, text;
        bool retained;
    };

    Subscriber(int port, const std::string& user, const std::string& password)
        : client_(mosquitto_new(nullptr, true, this)) {
        mosquitto_username_pw_set(client_, user.c_str(), password.c_str());
        mosquitto_connect_callback_set(client_, [](mosquitto* client, void*, int) {
            mosquitto_subscribe(client, nullptr, "#", 1);
        });
        mosquitto_message_callback_set(
            client_, [](mosquitto*, void* self, const mosquitto_message* message) {
                static_cast<Subscriber*>(self)->Take(*message);
            });
        if (!Comes([&] { return mosquitto_connect(client_, "127.0.0.1", port, 60) == 0; }))
            throw std::runtime_error("no broker");
        mosquitto_subscribe_callback_set(client_, [](mosquitto*, void* self, int, int, const int*) {
            static_cast<Subscriber*>(self)->subscribed_ = true;
        });
        mosquitto_loop_start(client_);
        if (!Comes([this] { return subscribed_.load(); }))
            throw std::runtime_error("the broker takes no subscription");
    }
    ~Subscriber() {
        mosquitto_disconnect(client_);
        mosquitto_loop_stop(client_, true);
        mosquitto_destroy(client_);
    }
    Subscriber(const Subscriber&) = delete;
    Subscriber& operator=(const Subscriber&) = delete;

    /// The messages so far to `subtopic` of the recording.
    std::vector<Message> To(const std::string& subtopic) const {
        const std::lock_guard lock(mutex_);
        std::vector<Message> found;
        for (const Message& message : messages_)
            if (message.topic == topic + subtopic) found.push_back(message);
        return found;
    }

    std::string LastStatus() const {
        const auto all = To("/status");
        return all.empty() ? "" : all.back().text;
    }

  private:
    void Take(const mosquitto_message& message) {
        const std::lock_guard lock(mutex_);
        messages_.push_back({message.topic,
                             {static_cast<const char*>(message.payload),
                              static_cast<std::size_t>(message.payloadlen)},
                             message.retain});
    }

    mosquitto* client_;
    std::atomic<bool> subscribed_ = false;
    mutable std::mutex mutex_;
    std::vector<Message> messages_;
};

class Mqtt : public Record {
  protected:
    void SetUp() override {
        if (!std::filesystem::exists(brokerProgram)) GTEST_SKIP() << "no mosquitto here";
        mosquitto_lib_init();
        QProcess::execute("mosquitto_passwd",
                          {"-b", "-c", File("users").c_str(), "logger", "secret word"});
        folder_.Write("broker.conf",
                      "listener " + std::to_string(port_) +
                          " 127.0.0.1\nlog_dest none\nallow_anonymous false\nuser root\n"
                          "password_file " +
                          File("users") + "\n");
        folder_.Write("password", "secret word\n");
    }
    void TearDown() override { StopBroker(); }

    /// Starts the broker, and subscribes once it listens.
    std::unique_ptr<Subscriber> StartBroker() {
        broker_ = std::make_unique<QProcess>();
        broker_->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        broker_->start(brokerProgram, {"-c", File("broker.conf").c_str()});
        return Subscribe();
    }
    void StopBroker() {
        if (!broker_) return;
        broker_->kill();
        broker_->waitForFinished();
        broker_.reset();
    }
    void SignalBroker(int number) const {
        ::kill(static_cast<pid_t>(broker_->processId()), number);
    }

    /// The words that publish a recording, and `more`.
    Words ToBroker(const Words& more = {}, const std::string& host = "127.0.0.1") const {
        return Words{"--format=jsonl", "--mqtt=" + host + ":" + std::to_string(port_),
                     "--mqtt-user=logger", "--mqtt-password-file=" + File("password")} +
               more;
    }

    /// Waits until the sensor has been asked for `count` samples more.
    testing::AssertionResult Samples(std::size_t count) const {
        sensors_.back()->ClearRecord();
        return testing::AssertionResult(sensors_.back()->WaitForRequests(count, 30s));
    }

    /// How many samples were "sent" or "dropped".
    int Counted(const char* fate) const {
        return Beside()["mqtt"].toObject()[QLatin1String(fate)].toInt();
    }

    /// Interrupts a recording for which the broker has been too slow: it must end well and in time
    /// with at least `rows`, each of which was either sent or dropped.
    void Ends(CliProcess& process, std::size_t rows) const {
        ::kill(process.Id(), SIGINT);
        const auto start = std::chrono::steady_clock::now();
        const Outcome outcome = process.AwaitEnd();
        EXPECT_EQ(0, outcome.exit) << outcome.err;
        EXPECT_LT(std::chrono::steady_clock::now() - start, longestEnding);
        EXPECT_GT(Counted("dropped"), 0);
        EXPECT_GE(Lines().size(), rows);
        EXPECT_EQ(static_cast<int>(Lines().size()), Counted("sent") + Counted("dropped"));
    }

    std::unique_ptr<Subscriber> Subscribe() const {
        return std::make_unique<Subscriber>(port_, "logger", "secret word");
    }

    const int port_ = FreePort();
    std::unique_ptr<QProcess> broker_;
};

TEST_F(Mqtt, PublishesEachRowWithItsColumnsAndStatus) {
    Plug(1);
    const auto early = StartBroker();
    const Outcome outcome = RunToFile(ToBroker({"--samples", "300"}));
    EXPECT_EQ(0, outcome.exit) << outcome.err;
    ASSERT_TRUE(Comes([&] { return early->LastStatus() == "offline"; }));
    std::string sent;
    for (const auto& message : early->To("")) {
        EXPECT_FALSE(message.retained);
        sent += message.text + "\n";
    }
    EXPECT_EQ(ContentOf(File()), sent);
    const auto status = early->To("/status");
    EXPECT_GT(std::ranges::count(status, "online", &Subscriber::Message::text), 0);
    EXPECT_EQ(300, Counted("sent"));
    EXPECT_EQ(0, Counted("dropped"));

    const auto late = Subscribe();
    ASSERT_TRUE(Comes([&] { return late->To("/meta").size() + late->To("/status").size() == 2; }));
    EXPECT_EQ("offline", late->LastStatus());
    const auto meta = JsonOf(late->To("/meta")[0].text);
    EXPECT_TRUE(late->To("/meta")[0].retained);
    EXPECT_EQ(Beside()["columns"], meta["columns"]);
    EXPECT_TRUE(late->To("").empty());
}

TEST_F(Mqtt, SaysOfflineWhereTheLineGoesAndWhereItIsKilled) {
    orbkl4sim::Simulator& sensor = Plug(1);
    const auto subscriber = StartBroker();
    const auto process = Start(ToBroker());
    ASSERT_TRUE(Comes([&] { return subscriber->LastStatus() == "online"; }));
    sensor.Unplug();
    ASSERT_TRUE(Comes([&] { return subscriber->LastStatus() == "offline"; }));
    sensor.Replug();
    ASSERT_TRUE(Comes([&] { return subscriber->LastStatus() == "online"; }));
    ::kill(process->Id(), SIGKILL);
    EXPECT_TRUE(Comes([&] { return subscriber->LastStatus() == "offline"; })) << "the last will";
}

TEST_F(Mqtt, RecordsOnWhileTheBrokerIsAwayAndComesBack) {
    Plug(1, {.paced = false});
    const auto process = Start(ToBroker());
    ASSERT_TRUE(Samples(1200)) << "away from the start, more samples than may wait";
    for (int round = 0; round < 2; ++round) {
        const auto subscriber = StartBroker();
        EXPECT_TRUE(Comes([&] { return subscriber->LastStatus() == "online"; }));
        EXPECT_TRUE(Comes([&] { return subscriber->To("").size() > 50; }));
        EXPECT_EQ(1U, subscriber->To("/meta").size());
        StopBroker();
        EXPECT_TRUE(Samples(1200)) << "stopped";
    }
    Ends(*process, 3000);
}

TEST_F(Mqtt, IsNotSlowedByAStalledBroker) {
    Plug(1, {.paced = false});
    const auto first = StartBroker();
    const auto process = Start(ToBroker());
    ASSERT_TRUE(Comes([&] { return first->To("").size() > 20; }));
    SignalBroker(SIGSTOP);
    // More than the system takes in for a broker that doesn't read, and than may wait besides.
    for (int part = 0; part < 12; ++part) ASSERT_TRUE(Samples(2000)) << "stalled";
    SignalBroker(SIGCONT);
    const std::size_t received = first->To("").size();
    EXPECT_TRUE(Comes([&] { return first->To("").size() > received + 50; }));
    SignalBroker(SIGSTOP);
    ASSERT_TRUE(Samples(100)) << "stalled again";
    Ends(*process, 24'000);
    SignalBroker(SIGCONT);
}

TEST_F(Mqtt, ReportsARefusalAndStillRecords) {
    Plug(1);
    StartBroker();
    folder_.Write("password", "wrong\n");
    const Outcome refused = RunToFile(ToBroker({"--samples", "100"}));
    EXPECT_EQ(0, refused.exit);
    EXPECT_NE(std::string::npos, refused.err.find("refuses the connection")) << refused.err;
    EXPECT_EQ(std::string::npos, refused.err.find("wrong")) << "the password isn't shown";
    const Outcome unknown =
        RunToFile(ToBroker({"--samples", "20", "--overwrite"}, "no-such-host.invalid"));
    EXPECT_EQ(0, unknown.exit) << unknown.err;
    EXPECT_EQ(20U, Lines().size());
}

}  // namespace
}  // namespace orbkl4::cli::test
