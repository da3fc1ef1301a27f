#include "cli/broker_connection.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <mosquitto.h>
#include <poll.h>
#include <unistd.h>
#include <utility>

namespace orbkl4::cli {

namespace {

constexpr int keepAliveSeconds = 10;
constexpr int longestPoll = 500;  // milliseconds, so that the keep-alive is looked after
constexpr int atMostOnce = 0;
constexpr int atLeastOnce = 1;
constexpr const char* metaTopic = "/meta";
constexpr const char* statusTopic = "/status";
constexpr const char* offline = "offline";
constexpr const char* online = "online";

const char* TextOrNull(const std::string& text) { return text.empty() ? nullptr : text.c_str(); }

void UseLibrary() { [[maybe_unused]] static const int started = mosquitto_lib_init(); }

}  // namespace

PublisherShared::PublisherShared(PublisherSettings wanted) : settings(std::move(wanted)) {
    std::array<int, 2> ends{-1, -1};
    if (::pipe(ends.data()) != 0) return;  // samples then leave by the half second
    for (const int end : ends) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
    wakeReader = ends[0];
    wakeWriter = ends[1];
}

PublisherShared::~PublisherShared() {
    ::close(wakeReader);
    ::close(wakeWriter);
}

void PublisherShared::Wake() const {
    [[maybe_unused]] const ssize_t size = ::write(wakeWriter, "", 1);
}

void PublisherShared::Report(const std::string& text) {
    const std::lock_guard lock(mutex);
    if (text != lastNews) news = text;
    lastNews = text;
}

BrokerConnection::BrokerConnection(PublisherShared& shared, const std::string& address)
    : shared_(shared) {
    UseLibrary();
    client_ = mosquitto_new(shared.settings.clientName.c_str(), true, this);
    result_ = client_ == nullptr ? MOSQ_ERR_NOMEM : Begin(address);
}

BrokerConnection::~BrokerConnection() {
    mosquitto_destroy(client_);
    shared_.dropped += unconfirmed_;
    shared_.waiting -= unconfirmed_;
}

int BrokerConnection::Begin(const std::string& address) {
    const PublisherSettings& settings = shared_.settings;
    mosquitto_connect_callback_set(client_, [](mosquitto*, void* self, int refusal) {
        auto& connection = *static_cast<BrokerConnection*>(self);
        connection.refusal_ = refusal;
        connection.up_ = refusal == 0;
    });
    mosquitto_publish_callback_set(client_, [](mosquitto*, void* self, int number) {
        auto& connection = *static_cast<BrokerConnection*>(self);
        if (connection.retained_.erase(number) > 0) return;
        --connection.unconfirmed_;
        --connection.shared_.waiting;
        ++connection.shared_.sent;
    });
    mosquitto_int_option(client_, MOSQ_OPT_TCP_NODELAY, 1);
    const std::string topic = settings.topic + statusTopic;
    int result = mosquitto_will_set(client_, topic.c_str(), static_cast<int>(std::strlen(offline)),
                                    offline, atLeastOnce, true);
    if (result == MOSQ_ERR_SUCCESS && !settings.user.empty())
        result = mosquitto_username_pw_set(client_, settings.user.c_str(),
                                           TextOrNull(settings.password));
    if (result != MOSQ_ERR_SUCCESS) return result;
    return mosquitto_connect_async(client_, address.c_str(), settings.port, keepAliveSeconds);
}

bool BrokerConnection::Serve() {
    int error = errno;
    while (result_ == MOSQ_ERR_SUCCESS && !shared_.abandoned) {
        if (up_ && Disconnect()) return true;
        result_ = Round();
        error = errno;
    }
    problem_ = ProblemOf(result_, error);
    return shared_.abandoned;
}

/// Sends what waits, and waits for the broker or for more to send.
int BrokerConnection::Round() {
    if (up_) {
        if (const int result = SendWaiting(); result != MOSQ_ERR_SUCCESS) return result;
    }
    const auto wanted =
        static_cast<short>(mosquitto_want_write(client_) ? POLLIN | POLLOUT : POLLIN);
    std::array<pollfd, 2> watched{pollfd{mosquitto_socket(client_), wanted, 0},
                                  pollfd{shared_.wakeReader, POLLIN, 0}};
    ::poll(watched.data(), watched.size(), longestPoll);
    std::array<char, 256> dropped;  // NOLINT(*-member-init): filled by read
    while (watched[1].revents != 0 &&
           ::read(shared_.wakeReader, dropped.data(), dropped.size()) > 0) {
    }
    int result = MOSQ_ERR_SUCCESS;
    if ((watched[0].revents & POLLOUT) != 0) result = mosquitto_loop_write(client_, 1);
    if (result == MOSQ_ERR_SUCCESS && (watched[0].revents & ~POLLOUT) != 0)
        result = mosquitto_loop_read(client_, 1);
    return result == MOSQ_ERR_SUCCESS ? mosquitto_loop_misc(client_) : result;
}

int BrokerConnection::SendWaiting() {
    if (!metaSent_) {
        metaSent_ = true;
        shared_.Report("publishing to " + shared_.settings.BrokerName());
        if (const int result = SendRetained(metaTopic, shared_.settings.meta); result != 0)
            return result;
    }
    const bool flowing = shared_.flowing;
    std::deque<std::string> samples;
    {
        const std::lock_guard lock(shared_.mutex);
        samples.swap(shared_.queue);
        ending_ = shared_.ending;
    }
    // Before the samples that it announces, after those that it ends.
    const auto sendStatus = [&](bool wanted) {
        if (statusSent_ == wanted) return static_cast<int>(MOSQ_ERR_SUCCESS);
        statusSent_ = wanted;
        return SendRetained(statusTopic, wanted ? online : offline);
    };
    int result = flowing ? sendStatus(true) : MOSQ_ERR_SUCCESS;
    unconfirmed_ += samples.size();
    for (std::size_t i = 0; i < samples.size() && result == MOSQ_ERR_SUCCESS; ++i)
        result = mosquitto_publish(client_, nullptr, shared_.settings.topic.c_str(),
                                   static_cast<int>(samples[i].size()), samples[i].data(),
                                   atMostOnce, false);
    if (result != MOSQ_ERR_SUCCESS) return result;
    return flowing && !ending_ ? result : sendStatus(false);
}

int BrokerConnection::SendRetained(const char* subtopic, const std::string& text) {
    int number = 0;
    const std::string topic = shared_.settings.topic + subtopic;
    const int result =
        mosquitto_publish(client_, &number, topic.c_str(), static_cast<int>(text.size()),
                          text.data(), atLeastOnce, true);
    if (result == MOSQ_ERR_SUCCESS) retained_.insert(number);
    return result;
}

/// Whether all has been sent and confirmed and the connection been closed.
bool BrokerConnection::Disconnect() {
    if (!ending_ || unconfirmed_ > 0 || !retained_.empty()) return false;
    return mosquitto_disconnect(client_) == MOSQ_ERR_SUCCESS && !mosquitto_want_write(client_);
}

std::string BrokerConnection::ProblemOf(int result, int error) const {
    const std::string name = shared_.settings.BrokerName();
    if (refusal_ != 0)
        return name + " refuses the connection: " + mosquitto_connack_string(refusal_);
    if (up_) return name + " is lost, trying again";
    const bool bySystem = result == MOSQ_ERR_ERRNO && error != 0;
    return name +
           " can't be reached: " + (bySystem ? std::strerror(error) : mosquitto_strerror(result));
}

}  // namespace orbkl4::cli
