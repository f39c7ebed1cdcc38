#include <cstdio>

#include "SocketContext.h"

using net::SocketContext;

// What the chart declares: here it only says what it would do.
void SocketContext::Send(Flags flags) {
  std::printf("send%s%s%s\n", flags & SYN ? " SYN" : "", flags & FIN ? " FIN" : "",
              flags & ACK ? " ACK" : "");
}
void SocketContext::StartTimer(int milliseconds) { std::printf("timer %d ms\n", milliseconds); }
void SocketContext::StopTimer() { std::puts("timer off"); }
void SocketContext::ChooseNumber() { std::puts("number chosen"); }
void SocketContext::NotifyOpen() { std::puts("open"); }
void SocketContext::NotifyPeer() { std::puts("the peer closes"); }
void SocketContext::SendPending() { std::puts("data flows"); }
void SocketContext::StartProbe() { std::puts("window full, probing"); }
void SocketContext::StopProbe() { std::puts("window open"); }

int main() {
  using Event = SocketContext::Event;
  constexpr Event events[] = {Event::Connect, Event::SynAck,  Event::Full,
                              Event::Drain,   Event::Close,   Event::Ack,
                              Event::Fin,     Event::Timeout, Event::Destroy};
  SocketContext socket;
  socket.Start();
  for (const Event event : events) socket.Dispatch(event);
  std::puts(socket.IsFinished() ? "finished" : "not finished");
}
