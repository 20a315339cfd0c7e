// eth.ini: the LAN Ethernet ports. Ports 0 to kPorts are asked; a port the platform does not
// know (it fails and writes nothing) gets no section, and fails again when replayed.
#include <string.h>

#include "capture/context.h"

namespace capture {
namespace {

constexpr int kPorts = 16;

}  // namespace

void capture_eth(Context &c, StateFile *f) {
  for (int port = 0; port <= kPorts; ++port) {
    char enable[64] = {}, status[64] = {}, rate[64] = {}, duplex[64] = {};
    int info_rc = -1;
    if (CAPTURE_HAVE(c, brelo_getLANEthernetInfo))
      info_rc = c.p.brelo_getLANEthernetInfo(port, enable, status, rate, duplex);
    bool texts = enable[0] != '\0' || status[0] != '\0' || rate[0] != '\0' || duplex[0] != '\0';
    unsigned int counters[4] = {};
    int stats_rc = -1;
    if (CAPTURE_HAVE(c, brelo_getLANEthernetStats))
      stats_rc = c.p.brelo_getLANEthernetStats(port, &counters[0], &counters[1], &counters[2],
                                                &counters[3]);
    bool numbers = any_bytes(counters, sizeof counters);
    if (CAPTURE_HAVE(c, brelo_getLANEthernetInfo)) c.noted(k_brelo_getLANEthernetInfo, info_rc, texts);
    if (CAPTURE_HAVE(c, brelo_getLANEthernetStats)) c.noted(k_brelo_getLANEthernetStats, stats_rc, numbers);
    if (info_rc != 0 && stats_rc != 0 && !texts && !numbers) continue;
    f->section("eth %d", port);
    f->field("enable", enable);
    f->field("status", status);
    f->field("bit_rate", rate);
    f->field("duplex", duplex);
    f->unsigned_number("bytes_sent", counters[0]);
    f->unsigned_number("bytes_received", counters[1]);
    f->unsigned_number("packets_sent", counters[2]);
    f->unsigned_number("packets_received", counters[3]);
  }
}

}  // namespace capture
