#include "cli/notify.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace orbkl4::cli {

ServiceNotifier::ServiceNotifier() {
    const char* const variable = std::getenv("NOTIFY_SOCKET");  // NOLINT(concurrency-mt-unsafe)
    const std::string_view name = variable == nullptr ? "" : variable;
    sockaddr_un address{};
    if (name.empty() || name.size() >= sizeof address.sun_path) return;
    address.sun_family = AF_UNIX;
    std::ranges::copy(name, address.sun_path);
    if (name.front() == '@') address.sun_path[0] = '\0';  // a name outside the file system
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
    socket_ = ::socket(AF_UNIX, SOCK_DGRAM, 0);
    ::fcntl(socket_, F_SETFD, FD_CLOEXEC);
    if (::connect(socket_, reinterpret_cast<const sockaddr*>(&address), size) == 0) return;
    ::close(socket_);
    socket_ = -1;
}

ServiceNotifier::~ServiceNotifier() {
    if (Active()) ::close(socket_);
}

void ServiceNotifier::Send(const std::string& message) const {
    if (Active()) ::send(socket_, message.data(), message.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
}

}  // namespace orbkl4::cli
