// traffic.ini: traffic monitoring destinations and traffic mirror rules, in the configuration
// tree: the monitoring groups (PVCs 0, 4, ... 28, each owning four PVCs of 255 entries) and
// the 255 mirror entries, every node the library reads.
#include "capture/context.h"
#include "capture/tree_node.h"

namespace capture {
namespace {

constexpr int kMonitoringPvcs = 32;
constexpr int kGroupPvcs = 4;
constexpr int kMonitoringEntries = 255;
constexpr int kMirrorEntries = 255;

}  // namespace

void capture_traffic(Context &c, StateFile *f) {
  for (int b = 0; b < kMonitoringPvcs; b += kGroupPvcs) {
    TreeNode group(c, f, "TrafficMonitoring_PVC%d", b);
    group.attr("bundleName");
  }
  for (int p = 0; p < kMonitoringPvcs; ++p) {
    for (int e = 0; e < kMonitoringEntries; ++e) {
      TreeNode entry(c, f, "TrafficMonitoring_PVC%d_Entry%d", p, e);
      entry.attr("destAddressList");
    }
  }
  for (int i = 0; i < kMirrorEntries; ++i) {
    TreeNode rule(c, f, "TrafficMirror_Entry%d", i);
    rule.attr("remoteAddress");
    rule.attr("remotePort");
    rule.attr("direction");
    rule.attr("protocol");
    rule.attr("hostMAC", Customer::kMac);
    rule.attr("mirrorToIP", Customer::kAddress);
    rule.attr("mirrorToPort");
  }
}

}  // namespace capture
