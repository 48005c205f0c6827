// Sending a message over TCP, against a listener on the loopback address.
// Every wait is bounded so that a fault fails the test instead of hanging it.

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <future>
#include <string>

#include "importers/oth/OthNetwork.h"

using namespace OthLib;

namespace {

// A listening socket on 127.0.0.1 with a port of the system's choosing.
class Listener {
 public:
  Listener() {
    fd_ = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof(address);
    if (::bind(fd_, reinterpret_cast<sockaddr*>(&address), size) == 0 && ::listen(fd_, 1) == 0 &&
        ::getsockname(fd_, reinterpret_cast<sockaddr*>(&address), &size) == 0)
      port_ = ntohs(address.sin_port);
  }
  ~Listener() { close(); }
  void close() {
    if (fd_ >= 0) ::close(fd_);
    fd_ = -1;
  }
  unsigned short port() const { return port_; }

  // Accepts one connection and reads until the peer closes, at most 5 s in all.
  std::string receive() {
    pollfd entry{fd_, POLLIN, 0};
    if (::poll(&entry, 1, 5000) != 1) return "<no connection>";
    const int peer = ::accept(fd_, nullptr, nullptr);
    std::string text;
    char buffer[4096];
    for (;;) {
      pollfd wait{peer, POLLIN, 0};
      if (::poll(&wait, 1, 5000) != 1) break;
      const ssize_t n = ::read(peer, buffer, sizeof(buffer));
      if (n <= 0) break;
      text.append(buffer, static_cast<size_t>(n));
    }
    ::close(peer);
    return text;
  }

 private:
  int fd_ = -1;
  unsigned short port_ = 0;
};

}  // namespace

TEST(OthTransmit, SendsTheWholeMessageInOneCall) {
  Listener listener;
  ASSERT_NE(listener.port(), 0);
  std::string message = formatMessageForNetwork("MSGID/GOLD/A/B/0001/JAN\nCTC/T1/ONE\nENDAT\n");
  for (int i = 0; i < 2000; ++i) message += "POS/121530Z2/JAN/3530N1/07530W5/A/045T/3NM/2NM/270.0T/12.0K\n";
  auto received = std::async(std::launch::async, [&listener] { return listener.receive(); });
  EXPECT_EQ(transmitMessage(message, "127.0.0.1", listener.port(), 2000), TRANSMIT_OK);
  ASSERT_EQ(received.wait_for(std::chrono::seconds(10)), std::future_status::ready);
  EXPECT_EQ(received.get(), message);
}

TEST(OthTransmit, FailuresAreResultsNotHangs) {
  Listener listener;
  const unsigned short port = listener.port();
  listener.close();  // nobody listens there any more
  EXPECT_EQ(transmitMessage("MSGID\n", "127.0.0.1", port, 1000), TRANSMIT_NO_CONNECTION);
}
