#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <thread>

namespace orbkl4::cli {

/// Where and what to publish.
struct PublisherSettings {
    std::string host;
    int port = 1883;
    std::string user = {};      ///< empty: none
    std::string password = {};  ///< empty: none
    std::string topic = {};     ///< of the samples; `topic`/meta and `topic`/status besides
    std::string clientName = {};
    std::string meta = {};  ///< what the samples consist of

    std::string BrokerName() const { return "the broker " + host + ":" + std::to_string(port); }
};

/// Whether samples can be published under `topic`.
bool IsTopic(const std::string& topic);

struct PublisherShared;

/// Publishes samples to an MQTT broker on a thread of its own, which connects again and again.
/// Nothing here ever waits for the broker but `Finish`.
class Publisher {
  public:
    explicit Publisher(PublisherSettings settings);
    ~Publisher();
    Publisher(const Publisher&) = delete;
    Publisher& operator=(const Publisher&) = delete;

    /// Hands over a sample; it is dropped, and counted, where 1000 wait already.
    void Publish(const std::string& sample);

    /// Whether samples flow, which `topic`/status says as "online" and "offline".
    void SetFlowing(bool flowing);

    /// What has become of the connection, if anything since the last call.
    std::optional<std::string> News();

    /// Sends what waits, says "offline" and disconnects; gives up after two seconds.
    void Finish();

    /// Samples sent, and samples dropped; after `Finish` these are all.
    std::uint64_t Sent() const;
    std::uint64_t Dropped() const;

  private:
    std::shared_ptr<PublisherShared> shared_;  ///< with the thread, which may outlive this object
    std::thread thread_;
};

}  // namespace orbkl4::cli
