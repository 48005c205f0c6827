#include "importers/oth/OthNetwork.h"

#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <memory>

namespace OthLib {

std::string formatMessageForNetwork(const std::string& message) {
  std::string out;
  size_t start = 0;
  while (start < message.size()) {
    size_t end = message.find('\n', start);
    if (end == std::string::npos) end = message.size();
    std::string line = message.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    start = end + 1;
    while (line.size() > NETWORK_LINE_WIDTH) {
      // The cut must leave something in front of the "/", or the rest would not shrink.
      const size_t cut = line.rfind('/', NETWORK_LINE_WIDTH - 1);
      if (cut == std::string::npos || cut == 0) break;
      out += line.substr(0, cut + 1) + '\n';
      line.erase(0, cut);
    }
    out += line + '\n';
  }
  return out;
}

namespace {

struct SocketCloser {
  void operator()(int* fd) const {
    if (*fd >= 0) ::close(*fd);
    delete fd;
  }
};

bool waitFor(int fd, short events, int timeoutMs) {
  pollfd entry{fd, events, 0};
  int ready = 0;
  do {
    ready = ::poll(&entry, 1, timeoutMs);
  } while (ready < 0 && errno == EINTR);
  return ready > 0 && (entry.revents & events) != 0;
}

// Non-blocking connect bounded by the timeout.
bool connectWithin(int fd, const sockaddr* address, socklen_t length, int timeoutMs) {
  const int flags = ::fcntl(fd, F_GETFL, 0);
  ::fcntl(fd, F_SETFL, flags | O_NONBLOCK);
  if (::connect(fd, address, length) != 0) {
    if (errno != EINPROGRESS || !waitFor(fd, POLLOUT, timeoutMs)) return false;
    int error = 0;
    socklen_t size = sizeof(error);
    if (::getsockopt(fd, SOL_SOCKET, SO_ERROR, &error, &size) != 0 || error != 0) return false;
  }
  return true;
}

}  // namespace

TransmitResult transmitMessage(const std::string& message, const std::string& host, unsigned short port,
                               int timeoutMs) {
  addrinfo hints{};
  hints.ai_family = AF_UNSPEC;
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (::getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found) != 0 || found == nullptr)
    return TRANSMIT_BAD_ADDRESS;
  std::unique_ptr<addrinfo, void (*)(addrinfo*)> addresses(found, ::freeaddrinfo);

  for (const addrinfo* address = found; address != nullptr; address = address->ai_next) {
    std::unique_ptr<int, SocketCloser> fd(new int(::socket(address->ai_family, address->ai_socktype,
                                                           address->ai_protocol)));
    if (*fd < 0 || !connectWithin(*fd, address->ai_addr, address->ai_addrlen, timeoutMs)) continue;
    size_t sent = 0;
    while (sent < message.size()) {
      if (!waitFor(*fd, POLLOUT, timeoutMs)) return TRANSMIT_SEND_FAILED;
      const ssize_t n = ::send(*fd, message.data() + sent, message.size() - sent, MSG_NOSIGNAL);
      if (n < 0 && (errno == EINTR || errno == EAGAIN || errno == EWOULDBLOCK)) continue;
      if (n <= 0) return TRANSMIT_SEND_FAILED;
      sent += static_cast<size_t>(n);
    }
    ::shutdown(*fd, SHUT_WR);
    return TRANSMIT_OK;
  }
  return TRANSMIT_NO_CONNECTION;
}

}  // namespace OthLib
