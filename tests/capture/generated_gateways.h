// Generated simulated gateways for the capture tests, written as state folders: the shapes a
// hand-written gateway does not reach (hundreds of hosts, full tree tables, odd texts), and a
// gateway whose platform fails.
#ifndef TESTS_CAPTURE_GENERATED_GATEWAYS_H
#define TESTS_CAPTURE_GENERATED_GATEWAYS_H

#include <string>

namespace gateways {

// A fresh folder under /tmp (removed with remove_folder).
std::string temp_folder(const char *tag);
void remove_folder(const std::string &path);

// The source tree's default gateway (sim/gateway).
std::string default_gateway();

// A crowded gateway: 250 hosts in every class and at every attachment point (shared MACs,
// names filling their fields, texts that are not UTF-8), 128 neighbours per radio with odd
// SSIDs, 130 stations, every tree table full (monitoring groups, mirror rules, port mappings,
// station speed limits), long route tables, many rules and flows. Written into `dir`.
void write_crowded(const std::string &dir);

// The default gateway's files with a platform that fails: programmed results for many read
// functions, a WAN list the platform does not hand over, counts that say more than the
// records hold, no Ethernet ports. Written into `dir`.
void write_failing(const std::string &dir);

}  // namespace gateways

#endif
