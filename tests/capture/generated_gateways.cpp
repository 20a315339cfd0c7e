#include "tests/capture/generated_gateways.h"

#include <ctype.h>
#include <dirent.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <vector>

namespace gateways {
namespace {

std::string source_root() {
  std::string root = __FILE__;  // <root>/tests/capture/generated_gateways.cpp
  for (int i = 0; i < 3; ++i) root = root.substr(0, root.rfind('/'));
  return root;
}

// A state value in double quotes with the simulator's escapes (any byte).
std::string q(const std::string &v) {
  std::string out = "\"";
  for (unsigned char c : v) {
    if (c == '\\' || c == '"') {
      out += '\\';
      out += static_cast<char>(c);
    } else if (c < 0x20 || c >= 0x7F) {
      char hex[8];
      snprintf(hex, sizeof hex, "\\x%02X", c);
      out += hex;
    } else {
      out += static_cast<char>(c);
    }
  }
  return out + "\"";
}

std::string mac(int a, int b) {
  char text[32];
  snprintf(text, sizeof text, "02:5C:%02X:%02X:%02X:%02X", a & 0xFF, (a >> 8) & 0xFF, b & 0xFF, (a * 7 + b) & 0xFF);
  return text;
}

class Writer {
 public:
  explicit Writer(const std::string &path) : f_(fopen(path.c_str(), "w")) {}
  ~Writer() {
    if (f_ != nullptr) fclose(f_);
  }
  Writer &section(const std::string &name) {
    fprintf(f_, "\n[%s]\n", name.c_str());
    return *this;
  }
  Writer &raw(const std::string &key, const std::string &value) {
    fprintf(f_, "%s = %s\n", key.c_str(), value.c_str());
    return *this;
  }
  Writer &text(const std::string &key, const std::string &value) { return raw(key, q(value)); }
  Writer &num(const std::string &key, long long v) { return raw(key, std::to_string(v)); }

 private:
  FILE *f_;
};

// Odd texts: quotes, backslashes, slashes, markup, controls, bytes that are not UTF-8, emoji,
// and texts that fill their fields.
std::string odd_text(int i, size_t fill) {
  static const char *const kOdd[] = {
      "Joe's \"Home\" AP", "back\\slash", "a/b/c", "<b>x</b>&amp;", "tab\there", "\x01\x1F ctl",
      "Caf\xC3\xA9 \xF0\x9F\x93\xB6", "GBK \xC4\xE3\xBA\xC3", "\xFF\xFE\xFD", " spaced ", "",
      "x\",\"Class\":\"TRUST"};
  std::string t = kOdd[i % (sizeof kOdd / sizeof kOdd[0])];
  if (i % 5 == 4) t = std::string(fill, static_cast<char>('A' + i % 26));
  return t;
}

void write_device(const std::string &dir) {
  Writer w(dir + "/device.ini");
  w.section("device").text("vendor", "Gen\xFFVendor \"X\"").text("product_class", std::string(127, 'P'))
      .text("hardware_version", "HV9").text("firmware_version", "FW\\9.9 \x01").num("flash_size", -1)
      .num("ram_size", 2147483647).text("main_chip_class", "").text("nfc", "YES").text("mac", "02:00:00:AA:BB:CC")
      .num("uptime", -5).num("cpu_occupancy", 100).num("ram_occupancy", 0);
  w.section("secrets").text("manufacturer_oui", "02ABCD").text("serial_number", std::string(128, 'S'))
      .text("default_web_password", "p\xE9ss").text("default_ssid1_name", "Gen-SSID")
      .text("default_ssid1_password", std::string(255, 'k')).text("password", "\"quoted\"");
}

void write_lan(const std::string &dir) {
  Writer w(dir + "/lan.ini");
  const int kHosts = 250;
  std::string black, trust, storage;
  for (int i = 0; i < kHosts; ++i) {
    std::string m = mac(i, 1);
    if (i % 7 == 0) black += (black.empty() ? "" : ",") + m;
    if (i % 11 == 5) trust += (trust.empty() ? "" : ",") + m;
    if (i % 13 == 2) storage += (storage.empty() ? "" : ",") + m;
  }
  w.section("lan").text("gateway_name", "Gen \"GW\" \\ \xC4").num("filter_mode", 2).text("black_list", black)
      .text("trust_list", trust).text("storage_black_list", storage);
  for (int i = 0; i < kHosts; ++i) {
    w.section("host " + std::to_string(i + 1));
    // Host 200 shares host 4's MAC (in lower case), with other names and another class.
    std::string m = mac(i == 199 ? 3 : i, 1);
    if (i == 199) for (char &ch : m) ch = static_cast<char>(tolower(ch));
    w.text("mac", m);
    w.text("dhcp_name", i % 9 == 3 ? std::string(260, 'd') : "dhcp-" + odd_text(i, 255));
    w.text("device_name", odd_text(i + 3, 256));
    w.text("ip", i % 17 == 0 ? std::string(18, '9') : "192.168." + std::to_string(i / 200) + "." + std::to_string(i % 200 + 2));
    w.text("ipv6", i % 3 == 0 ? "" : "2001:db8:" + std::to_string(i) + "::" + std::to_string(i + 1));
    w.num("port", i % 15 == 14 ? 0 : 1 + i % 12);
    w.num("online", i % 4 == 3 ? 0 : 1);
    w.raw("online_time", i == 1 ? "4294967295" : std::to_string(i * 97));
    w.num("up_speed", i * 3).num("down_speed", i * 11).num("up_limit", i % 6 == 0 ? 0 : i * 10)
        .num("down_limit", i * 100);
    w.raw("up_bytes", i == 2 ? "18446744073709551615" : std::to_string(i * 100003LL));
    w.raw("down_bytes", std::to_string(i * 7000001LL));
    if (i == 40) w.num("class_code", 7);  // out of range: listed only by attachment point
    if (i == 41) w.num("class_code", 1);  // offline, though online
    if (i == 199) w.num("class_code", 3);
    if (i == 60) w.num("storage_access", 5);
  }
}

void write_wlan(const std::string &dir) {
  Writer w(dir + "/wlan.ini");
  w.section("wlan radio 0").text("type", "2.4G").num("enable", 1).num("channel", 13).num("auto_channel", 0)
      .num("power_level", 5).num("width_code", 1).num("standard", 7);
  w.section("wlan radio 1").text("type", "5G").num("enable", 0).num("channel", 165).num("auto_channel", 1)
      .num("power_level", 3).num("width_code", 9).num("standard", 8);
  for (int s = 1; s <= 9; ++s) {
    w.section("wlan ssid " + std::to_string(s)).num("radio", s <= 4 ? 0 : 1).num("enable", s % 2)
        .num("hidden", s == 3).text("bssid", mac(s, 9)).text("name", odd_text(s, 127))
        .text("password", "pw-" + odd_text(s + 2, 200)).num("encryption", s % 6).num("wps_status", s == 2 ? 1 : 0);
    w.raw("bytes_sent", "4294967295").num("bytes_received", s).num("packets_sent", s * 2)
        .num("packets_received", s * 3).num("errors_sent", 0).num("errors_received", 1)
        .num("discard_sent", 2).num("discard_received", 3);
  }
  for (int n = 0; n < 260; ++n) {
    w.section("wlan neighbour " + std::to_string(n + 1)).num("radio", n % 2).text("ssid", odd_text(n, 127))
        .text("bssid", n % 10 == 9 ? std::string(32, 'b') : mac(n, 77)).num("channel", n % 14)
        .num("rssi", -30 - n % 70).num("standard", n % 13);
  }
  for (int s = 0; s < 130; ++s) {
    std::string m = mac(s, 1);
    if (s % 2) for (char &ch : m) ch = static_cast<char>(tolower(ch));
    w.section("wlan station " + std::to_string(s + 1)).num("ssid_index", 1 + s % 10).num("rssi", -20 - s % 60)
        .text("mac", m);
  }
  for (int e = 0; e < 2; ++e)
    w.section("tcapi WLanForGuest_Entry" + std::to_string(e)).num("SSIDIndex", 3 + e).num("Duration", 60 * e)
        .num("DurationRemain", 7).num("PortIsolation", e);
  for (int e = 0; e < 64; ++e) {
    std::string m = mac(e, 1);
    std::string plain;
    for (char ch : m)
      if (ch != ':') plain += e % 2 ? static_cast<char>(tolower(ch)) : ch;
    w.section("tcapi BandWidth_Entry" + std::to_string(e)).text("MAC", plain).num("upRate", e * 64)
        .num("downRate", e * 512);
  }
}

void write_wan(const std::string &dir) {
  Writer w(dir + "/wan.ini");
  w.section("wan_common").num("internet_index", 3);
  for (int i = 1; i <= 8; ++i) {
    w.section("wan " + std::to_string(i)).num("PVC", i - 1).num("Entry", i % 3).text("Name", std::to_string(i) + "_WAN_" + std::string(i * 4, 'N'));
    w.text("LanInterface", i == 2 ? std::string(255, 'L') : "LAN1,SSID" + std::to_string(i));
    w.num("VLANMode", i % 3).num("VLANIDMark", 40 + i).num("802-1pMark", i % 8).num("MulticastVlan", i == 4 ? 0 : i);
    w.num("LanInterface-DHCPEnable", i % 2).num("IPMode", 1 + i % 3).num("ConnectionType", i % 6).num("NATEnabled", 1);
    w.text("Username", i == 3 ? "user\xE9@isp" : "").num("AddressingType", i % 3);
    w.text("ExternalIPAddress", "100.64.0." + std::to_string(i)).text("SubnetMask", "255.255.255.0")
        .text("DefaultGateway", "100.64.0.254").num("DNSEnabled", 1).text("DNSServers", "8.8.8.8," + std::string(i * 8, '1'))
        .text("MACAddress", mac(i, 3)).num("ConnectionTrigger", i % 4).num("IPv6IPAddressOrigin", i % 4)
        .text("IPv6IPAddress", "2001:db8::" + std::to_string(i)).text("IPv6DNSServers", "2001:db8::53")
        .num("IPv6PrefixDelegationEnabled", 1).num("IPv6PrefixOrigin", i % 4).text("IPv6Prefix", "2001:db8:" + std::to_string(i) + "::/56")
        .num("IPv6PrefixPltime", -1).num("IPv6PrefixVltime", 2147483647).text("IPv6DefaultGateway", "fe80::1")
        .num("IPv6DsliteEnable", i % 2).num("IPv6AftrMode", i % 3).text("IPv6AftrAddress", "aftr" + odd_text(i, 119))
        .text("ServiceList", i == 1 ? "TR069" : "INTERNET").num("Uptime", i * 1000).num("ConnectionStatus", i % 4)
        .num("IPv6ConnStatus", i % 5).num("LastConnectionError", i % 6);
    w.raw("UsStats", i == 5 ? "18446744073709551615" : std::to_string(i * 1234567LL)).raw("DsStats", "42");
    w.text("UsBandwidth", std::to_string(i * 1024)).text("DsBandwidth", i == 6 ? std::string(127, '9') : "");
  }
}

void write_tree(const std::string &dir) {
  Writer w(dir + "/tree.ini");
  // Internal index 70 (PVC 8 entry 6) is listed beyond the usual PVCs 0-7.
  w.section("tcapi WanInfo_Common").text("ValidIFIndex", "0,9,18,27,36,45,54,63,70");
  const int valid[] = {0, 9, 18, 27, 36, 45, 54, 63, 70};
  int ifidx = 1;
  for (int v : valid) {
    w.section("tcapi Wan_PVC" + std::to_string(v >> 3)).text("VLANMode", v % 2 ? "TAG" : "UNTAG")
        .num("VLANID", 40 + (v >> 3));
    w.section("tcapi Wan_PVC" + std::to_string(v >> 3) + "_Entry" + std::to_string(v & 7))
        .num("IFIdx", ifidx).text("ServiceList", ifidx == 1 ? "TR069" : "INTERNET_" + std::string(ifidx, 'x'))
        .text("WanMode", v % 3 ? "Route" : "Bridge");
    for (int slot = 0; slot < 10; ++slot) {
      if (ifidx == 4 && slot % 3 == 1) continue;
      w.section("tcapi VirServer_Entry" + std::to_string(v) + "_Entry" + std::to_string(slot))
          .text("Protocal", slot % 2 ? "UDP" : "TCP").text("SrcIP", "0.0.0.0").num("STARTPORT", 1000 + slot)
          .num("ENDPORT", 1000 + slot).num("INTPORT", slot == 9 ? 65535 : 80 + slot)
          .text("LOCALIP", "192.168.1." + std::to_string(10 + slot)).text("MapName", "rule" + odd_text(slot, 20))
          .text("Active", slot % 3 ? "Yes" : "No");
    }
    ++ifidx;
  }
}

void write_traffic(const std::string &dir) {
  Writer w(dir + "/traffic.ini");
  for (int b = 0; b < 32; b += 4) w.section("tcapi TrafficMonitoring_PVC" + std::to_string(b)).text("bundleName", "com.gen.b" + std::to_string(b));
  for (int p = 0; p < 32; ++p)
    for (int e = 0; e < 255; ++e)
      w.section("tcapi TrafficMonitoring_PVC" + std::to_string(p) + "_Entry" + std::to_string(e))
          .text("destAddressList", e % 50 == 7 ? "a.example,b.example" : "198.51." + std::to_string(p) + "." + std::to_string(e));
  for (int i = 0; i < 255; ++i)
    w.section("tcapi TrafficMirror_Entry" + std::to_string(i)).text("remoteAddress", i % 4 ? "203.0.113." + std::to_string(i) : "")
        .num("remotePort", i).text("direction", i % 2 ? "UP" : "ALL").text("protocol", "TCP").text("hostMAC", mac(i, 1))
        .text("mirrorToIP", "192.168.1." + std::to_string(i % 250 + 2)).num("mirrorToPort", 5000 + i);
}

void write_misc(const std::string &dir) {
  Writer w(dir + "/misc.ini");
  w.section("lan_ip").text("ipv4", "10.0.0.1").text("mask", "255.0.0.0").text("ipv6_first", std::string(253, '6'))
      .text("ipv6_second", "").text("prefix_len", "48");
  w.section("dhcp_server").num("enabled", 7).text("start", "10.0.0.100").text("end", std::string(19, '1'));
  for (int p : {1, 2, 3, 4, 7}) {
    w.section("eth " + std::to_string(p)).text("enable", p == 7 ? "" : "1").text("status", odd_text(p, 63))
        .text("bit_rate", "Auto").text("duplex", "Half").raw("bytes_sent", "4294967295").num("bytes_received", p)
        .num("packets_sent", 0).num("packets_received", p * 9);
  }
  w.section("pon").num("TXPower", -2147483647).num("RXPower", 0).num("TransceiverTemperature", -40)
      .num("SupplyVoltage", 3300).num("BiasCurrent", 1).num("Duration", 0).num("RegisterState", 7)
      .raw("UsStats", "18446744073709551615").raw("DsStats", "0");
  w.section("ping").num("result", 3).num("success_count", 1).num("failure_count", 9).num("average_response_time", 100)
      .num("minimum_response_time", 1).num("maximum_response_time", 999);
  w.section("traceroute").num("result", 0).num("response_time", 77);
  for (int h = 1; h <= 30; ++h)
    w.section("traceroute hop " + std::to_string(h)).text("host", h == 5 ? std::string(257, 'h') : "hop" + odd_text(h, 100))
        .text("address", "198.51.100." + std::to_string(h)).num("error_code", h % 3).text("rt_times", "1,2," + std::to_string(h));
  w.section("http upload").num("state", -3).num("test_rate", 1).num("total_rate", 2).num("test_bytes", 3)
      .num("total_bytes", 4).text("rom_time", std::string(32, 't')).text("bom_time", "b").text("eom_time", "")
      .text("tcp_open_request_time", "r").text("tcp_open_response_time", "s");
  for (int s = 1; s <= 5; ++s)
    w.section("storage " + std::to_string(s)).text("path", "/mnt/" + odd_text(s, 300)).text("total", std::to_string(s * 1000000))
        .text("free", s == 4 ? std::string(32, '7') : "12");
  w.section("ftp").num("right", 3).num("anonymous", 255);
  for (int a = 1; a <= 6; ++a) {
    w.section("ftp account " + std::to_string(a)).text("user", "u" + odd_text(a, 256)).text("password", "p" + std::to_string(a));
    w.section("samba account " + std::to_string(a)).text("user", "s" + std::to_string(a)).text("password", std::string(256, 'q'));
  }
  w.section("http").num("right", 0).text("password", "");
  w.section("registration").num("status", 2).num("result", 1).num("service_num", 3).text("service_name", std::string(64, 'S'))
      .num("limit", 5).num("times", 5).text("province", "").text("gateway_province", std::string(31, 'G'));
  for (int r = 1; r <= 40; ++r) {
    w.section("forward rule " + std::to_string(r)).text("remote_port", std::to_string(r)).text("protocol", r % 2 ? "TCP" : "UDP")
        .text("forward_to_ip", "192.168.1." + std::to_string(r)).num("forward_to_port", r * 10);
    if (r % 3) w.text("remote_address", "203.0.113." + std::to_string(r));
    if (r % 4) w.text("host_mac", mac(r, 1));
    w.section("http rule " + std::to_string(r)).num("remote_port", r).text("direction", "DOWN")
        .text("method_list", "\"GET\",\"" + odd_text(r, 30) + "\"").text("header_list", "\"Host\"").text("bundle_name", "b" + std::to_string(r));
    if (r % 5) w.text("host_mac", mac(r, 2)).text("remote_address", "198.51.100.1");
    if (r % 2) w.text("second_list", "text/plain");
  }
  for (int flow = 1; flow <= 20; ++flow) {
    std::string traffic;
    for (int t = 0; t < flow; ++t) traffic += (t ? ";" : "") + std::string(t % 4 == 3 ? "(null)" : "203.0.113." + std::to_string(t)) + " " + std::to_string(1000 + t);
    w.section("flow " + std::to_string(flow)).text("traffic", traffic).num("up_bytes", flow * 1000).num("down_bytes", flow)
        .num("up_speed", flow * 100).num("down_speed", flow * 1000).num("up_limit", flow % 3 ? 0 : 50).num("down_limit", 0)
        .num("dscp", flow % 64 - 1);
  }
  for (int r = 1; r <= 16; ++r) {
    w.section("ipv4 static route " + std::to_string(r)).text("dest", "10." + std::to_string(r) + ".0.0")
        .text("mask", "255.255.0.0").text("gateway", r % 2 ? "" : "192.168.1.254").text("interface", std::string(r * 8, 'i'));
    w.section("ipv6 static route " + std::to_string(r)).text("prefix", "2001:db8:" + std::to_string(r) + "::/48")
        .text("next_hop", "fe80::1").text("interface", "br0");
  }
  for (int r = 100; r < 150; ++r) {
    w.section("ipv4 current route " + std::to_string(r)).text("dest", "172.16." + std::to_string(r) + ".0")
        .text("mask", "255.255.255.0").text("gateway", "").text("interface", "ppp0");
    if (r == 120) w.num("repeat", 40);
  }
  w.section("ipv6 current route 7").text("prefix", std::string(128, 'p')).text("next_hop", "").text("interface", "ppp0");
  w.section("vlan bind").text("0", "100/10").text("3", std::string(256, 'v')).text("8", "");
  w.section("iptv").num("status", 9);
  w.section("vpn").num("status", 2).text("tunnel_ips", "10.255.0.6").text("connected_ips", "10.255.0.6 10.255.0.1");
  w.section("voip").num("lines", 4);
  w.section("pots line 1").text("numbers", "01").text("statuses", "0");
  w.section("pots line 2").text("numbers", "02," + std::string(32, '9') + ",03").text("statuses", "1,7");
  w.section("pots line 4").text("numbers", "04").text("statuses", "-1");
}

void copy_file(const std::string &from, const std::string &to) {
  FILE *in = fopen(from.c_str(), "rb");
  FILE *out = fopen(to.c_str(), "wb");
  if (in != nullptr && out != nullptr) {
    char buf[4096];
    size_t n;
    while ((n = fread(buf, 1, sizeof buf, in)) > 0) fwrite(buf, 1, n, out);
  }
  if (in != nullptr) fclose(in);
  if (out != nullptr) fclose(out);
}

}  // namespace

std::string temp_folder(const char *tag) {
  std::string path = std::string("/tmp/bundle_sc_capture_") + tag + "_" + std::to_string(getpid());
  remove_folder(path);
  mkdir(path.c_str(), 0755);
  return path;
}

void remove_folder(const std::string &path) {
  if (DIR *d = opendir(path.c_str())) {
    std::vector<std::string> names;
    while (dirent *e = readdir(d)) {
      std::string n = e->d_name;
      if (n != "." && n != "..") names.push_back(n);
    }
    closedir(d);
    for (const std::string &n : names) {
      std::string child = path + "/" + n;
      struct stat st;
      if (lstat(child.c_str(), &st) == 0 && S_ISDIR(st.st_mode))
        remove_folder(child);
      else
        unlink(child.c_str());
    }
    rmdir(path.c_str());
  }
}

std::string default_gateway() { return source_root() + "/sim/gateway"; }

void write_crowded(const std::string &dir) {
  write_device(dir);
  write_lan(dir);
  write_wlan(dir);
  write_wan(dir);
  write_tree(dir);
  write_traffic(dir);
  write_misc(dir);
}

void write_failing(const std::string &dir) {
  const char *const kFiles[] = {"address.ini", "device.ini", "diag.ini", "forward.ini", "hosts.ini",
                                "lan.ini", "pon.ini", "qos.ini", "registration.ini", "route.ini",
                                "storage.ini", "traffic.ini", "tree.ini", "usb.ini", "voip.ini",
                                "vpn.ini", "wan.ini", "wlan.ini"};  // no eth.ini: no ports
  for (const char *f : kFiles) copy_file(default_gateway() + "/" + f, dir + "/" + f);
  Writer w(dir + "/zz-failing.ini");
  w.section("results")
      .num("brelo_deviceGetInfo", -5)
      .num("brelo_wlanGetNeighbor", -3)
      .num("brelo_wlanGetSSIDInfo", -7)
      .num("brelo_lanGethostInfobytype", -2)
      .num("brelo_getForwardRuleInfo", -2)
      .num("brelo_getStorageInfo", 1)
      .num("brelo_vlanGetBindInfo", -1)
      .num("brelo_getSpeedByFlow", -4)
      .num("brelo_wanGetVlanMode", -6)
      .num("brelo_passwordGetRegistrationInfo", -1)
      .num("brelo_getFTPRightInfo", 2)
      .num("brelo_routeinfoGetIp6Layer3ForwardingStaticConfig", -8)
      .num("tcapi_get", -9);
  w.section("wan_common").num("list_unavailable", 1);
  w.section("wlan").num("neighbour_count", 200).num("station_count", -1);
  w.section("ftp").num("account_count", 9).text("scribble", "x");
  w.section("samba").num("account_count", 7);
}

}  // namespace gateways
