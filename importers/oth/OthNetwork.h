#pragma once
// Putting a written message on the wire: lines cut to the width of the
// network link, and one call that sends a text over TCP.

#include <string>

namespace OthLib {

// The widest line a network link carries.
inline constexpr size_t NETWORK_LINE_WIDTH = 68;

// Every line longer than 68 characters is cut at its last "/" within the
// first 68, the piece keeping that "/" and the rest starting with it again,
// so that a reader joins the pieces back (a line that begins with "/"
// continues the one before, which loses its last character). A line with no
// "/" to cut at stays whole. Each piece ends with a line end.
std::string formatMessageForNetwork(const std::string& message);

// Results of transmitMessage.
enum TransmitResult {
  TRANSMIT_OK = 0,
  TRANSMIT_BAD_ADDRESS = 1,   // the host name doesn't resolve
  TRANSMIT_NO_CONNECTION = 2, // refused, unreachable or timed out
  TRANSMIT_SEND_FAILED = 3    // the peer went away or stalled
};

// Connects to host:port over TCP, sends the whole text and closes. Each
// step waits at most timeoutMs milliseconds.
TransmitResult transmitMessage(const std::string& message, const std::string& host, unsigned short port,
                               int timeoutMs = 5000);

}  // namespace OthLib
