#include "cli/publisher.h"

#include "cli/broker_connection.h"

#include <array>
#include <chrono>
#include <csignal>
#include <mosquitto.h>
#include <netdb.h>
#include <sys/socket.h>
#include <utility>
#include <vector>

namespace orbkl4::cli {

namespace {

using namespace std::chrono_literals;

constexpr std::uint64_t mostWaiting = 1000;
constexpr auto timeBetweenTries = 1s;
constexpr auto longestEnding = 1800ms;
constexpr auto longestAbandoning = 200ms;

/// The numeric addresses of the broker; empty, and reported, where its name isn't known.
std::vector<std::string> AddressesOf(PublisherShared& shared) {
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    const auto& settings = shared.settings;
    const int error = ::getaddrinfo(settings.host.c_str(), nullptr, &hints, &found);
    if (error != 0) {
        shared.Report(settings.BrokerName() + " isn't found: " + ::gai_strerror(error));
        return {};
    }
    std::vector<std::string> addresses;
    for (const addrinfo* one = found; one != nullptr; one = one->ai_next) {
        std::array<char, NI_MAXHOST> text{};
        if (::getnameinfo(one->ai_addr, one->ai_addrlen, text.data(), text.size(), nullptr, 0,
                          NI_NUMERICHOST) == 0)
            addresses.emplace_back(text.data());
    }
    ::freeaddrinfo(found);
    return addresses;
}

/// Tries the broker's addresses in turn until one connects; true where publishing has ended. Only
/// the last address's problem is reported: a name often has two, and the broker listens on one.
bool ServeOnce(PublisherShared& shared) {
    std::string problem;
    for (const std::string& address : AddressesOf(shared)) {
        BrokerConnection connection(shared, address);
        if (connection.Serve()) return true;
        problem = connection.Problem();
        if (connection.WasUp()) break;
    }
    if (!problem.empty()) shared.Report(problem);
    return false;
}

void ServeUntilEnd(const std::shared_ptr<PublisherShared>& shared) {
    const auto ended = [&] { return shared->ending; };
    while (!ServeOnce(*shared)) {
        std::unique_lock lock(shared->mutex);
        if (shared->changed.wait_for(lock, timeBetweenTries, ended)) break;
    }
    const std::lock_guard lock(shared->mutex);
    shared->done = true;
    shared->changed.notify_all();
}

/// Starts a thread that no signal interrupts: those are for the main one.
std::thread StartThread(const std::shared_ptr<PublisherShared>& shared) {
    sigset_t all;
    sigset_t former;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &former);
    std::thread thread(ServeUntilEnd, shared);
    ::pthread_sigmask(SIG_SETMASK, &former, nullptr);
    return thread;
}

}  // namespace

bool IsTopic(const std::string& topic) {
    return !topic.empty() && mosquitto_pub_topic_check(topic.c_str()) == MOSQ_ERR_SUCCESS;
}

Publisher::Publisher(PublisherSettings settings)
    : shared_(std::make_shared<PublisherShared>(std::move(settings))),
      thread_(StartThread(shared_)) {}

Publisher::~Publisher() { Finish(); }

void Publisher::Publish(const std::string& sample) {
    if (shared_->waiting >= mostWaiting) {
        ++shared_->dropped;
        return;
    }
    ++shared_->waiting;
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->queue.push_back(sample);
    }
    shared_->Wake();
}

void Publisher::SetFlowing(bool flowing) {
    if (shared_->flowing.exchange(flowing) != flowing) shared_->Wake();
}

std::optional<std::string> Publisher::News() {
    const std::lock_guard lock(shared_->mutex);
    return std::exchange(shared_->news, std::nullopt);
}

void Publisher::Finish() {
    if (!thread_.joinable()) return;
    std::unique_lock lock(shared_->mutex);
    const auto done = [&] { return shared_->done; };
    shared_->ending = true;
    shared_->changed.notify_all();
    shared_->Wake();
    if (!shared_->changed.wait_for(lock, longestEnding, done)) {
        shared_->abandoned = true;
        shared_->Wake();
        shared_->changed.wait_for(lock, longestAbandoning, done);
    }
    const bool ended = shared_->done;
    lock.unlock();
    // What is left is the look-up of a name, which nothing can interrupt.
    if (ended) {
        thread_.join();
    } else {
        thread_.detach();
    }
    shared_->dropped += shared_->waiting.exchange(0);
}

std::uint64_t Publisher::Sent() const { return shared_->sent; }

std::uint64_t Publisher::Dropped() const { return shared_->dropped; }

}  // namespace orbkl4::cli
