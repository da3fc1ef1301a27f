#pragma once

#include "cli/publisher.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <set>
#include <string>

struct mosquitto;

namespace orbkl4::cli {

/// What a publisher and its thread share.
struct PublisherShared {
    explicit PublisherShared(PublisherSettings wanted);
    ~PublisherShared();
    PublisherShared(const PublisherShared&) = delete;
    PublisherShared& operator=(const PublisherShared&) = delete;

    /// Ends the thread's waiting for the broker.
    void Wake() const;

    /// Leaves `text` for `Publisher::News`, but not twice the same.
    void Report(const std::string& text);

    const PublisherSettings settings;
    int wakeReader = -1;
    int wakeWriter = -1;
    std::atomic<std::uint64_t> waiting = 0;  ///< samples handed over and not yet sent or dropped
    std::atomic<std::uint64_t> sent = 0;
    std::atomic<std::uint64_t> dropped = 0;
    std::atomic<bool> flowing = false;
    std::atomic<bool> abandoned = false;  ///< nobody waits for the end any more

    std::mutex mutex;  ///< guards what follows
    std::condition_variable changed;
    std::deque<std::string> queue;
    std::optional<std::string> news;
    std::string lastNews;
    bool ending = false;
    bool done = false;
};

/// One connection to a broker, used by one thread. Each begins without anything left of an earlier
/// one, so that no status is repeated that has been outdated since.
class BrokerConnection {
  public:
    /// Begins to connect to `address`, which is a number and so needs no look-up.
    BrokerConnection(PublisherShared& shared, const std::string& address);
    ~BrokerConnection();
    BrokerConnection(const BrokerConnection&) = delete;
    BrokerConnection& operator=(const BrokerConnection&) = delete;

    /// Publishes what there is until the connection breaks, which gives false, or publishing has
    /// ended and all is sent.
    bool Serve();

    /// Why the connection has broken, in words.
    const std::string& Problem() const { return problem_; }

    /// Whether the broker had taken the connection.
    bool WasUp() const { return up_; }

  private:
    int Begin(const std::string& address);
    int Round();
    int SendWaiting();
    int SendRetained(const char* subtopic, const std::string& text);
    bool Disconnect();
    std::string ProblemOf(int result, int error) const;

    PublisherShared& shared_;
    mosquitto* client_;
    int result_;  ///< of the last call
    std::string problem_;
    int refusal_ = 0;  ///< the broker's reason not to connect
    bool up_ = false;
    bool metaSent_ = false;
    bool ending_ = false;
    std::optional<bool> statusSent_;
    std::set<int> retained_;         ///< numbers of retained messages not yet confirmed
    std::uint64_t unconfirmed_ = 0;  ///< samples given to the library and not yet sent
};

}  // namespace orbkl4::cli
