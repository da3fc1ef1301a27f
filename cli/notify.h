#pragma once

#include <string>

namespace orbkl4::cli {

/// Says to a service manager such as systemd how things stand, by datagrams to the socket that
/// NOTIFY_SOCKET names; nothing where it names none. It never waits, and what fails is passed over.
class ServiceNotifier {
  public:
    ServiceNotifier();
    ~ServiceNotifier();
    ServiceNotifier(const ServiceNotifier&) = delete;
    ServiceNotifier& operator=(const ServiceNotifier&) = delete;

    /// Whether anybody listens.
    bool Active() const { return socket_ >= 0; }

    /// The service has started.
    void Ready() const { Send("READY=1"); }

    /// What the service is doing, in one line.
    void Status(const std::string& text) const { Send("STATUS=" + text); }

  private:
    void Send(const std::string& message) const;

    int socket_ = -1;
};

}  // namespace orbkl4::cli
