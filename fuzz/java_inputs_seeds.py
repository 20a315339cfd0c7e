#!/usr/bin/env python3
"""Writes the hand-made seed inputs of java_inputs_fuzz into fuzz/corpus/java_inputs/seed, and
its dictionary fuzz/java_inputs.dict (every native's name line, texts the natives look for).

For every native taking Java texts or text arrays (read from tests/native_catalogue.cpp):
  <native>-valid     valid-looking arguments (the values below, per native or per kind)
  <native>-long      every text 70000 bytes, every array 30000 elements, ints at the extremes
  <native>-empty     empty texts and arrays, zero ints
  <native>-badutf    texts that are not modified UTF-8 or hold a NUL, arrays with null elements
  <native>-null      null texts and arrays; texts the JVM cannot copy where the native has two
The input layout is described in fuzz/java_inputs_harness.h and fuzz/native_input.h.
"""
import os
import re
import struct

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(HERE)

NULL = object()     # a null jstring / array / byte[]
FAILING = object()  # a string the JVM cannot copy


class Repeat:
    """A text made of `piece` repeated `count` times (kept cheap in the input)."""

    def __init__(self, piece, count):
        self.piece, self.count = piece, count


def enc_text(v):
    if v is NULL:
        return b"\x00"
    if v is FAILING:
        return b"\x01"
    if isinstance(v, Repeat):
        piece = v.piece if isinstance(v.piece, bytes) else v.piece.encode()
        if v.count < 256:
            return b"\x03" + bytes([len(piece)]) + piece + bytes([v.count])
        return b"\x04" + bytes([len(piece)]) + piece + struct.pack(">H", v.count)
    data = v if isinstance(v, bytes) else v.encode()
    assert len(data) < 256
    return b"\x02" + bytes([len(data)]) + data


def enc_int(v):
    if -16 <= v < 0xF0 - 16:
        return bytes([v + 16])
    return b"\xf0" + struct.pack(">i", v)


def enc_array(v):
    """NULL, or (count, [element texts]) whose elements cycle."""
    if v is NULL:
        return b"\x00"
    count, kinds = v
    if count < 256:
        out = b"\x02" + bytes([count]) + bytes([len(kinds) - 1])
    else:
        out = b"\x01" + struct.pack(">H", count) + bytes([len(kinds) - 1])
    for k in kinds:
        out += enc_text(k)
    return out


def encode(name, params, values):
    out = name.encode() + b"\n"
    for kind, v in zip(params, values):
        if kind == "I":
            out += enc_int(v)
        elif kind in "ZB":
            out += bytes([v & 0xFF])
        elif kind in "SY":
            out += enc_text(v)
        elif kind == "A":
            out += enc_array(v)
    return out


# Valid-looking texts by native (in parameter order; ints and booleans as numbers, arrays as
# lists). Natives not listed get the default of each kind.
VALID = {
    "LANHostsInfoQueryServiceImp.getLANHostInfoByInterfaceJni": ["LAN1"],
    "LANHostsInfoQueryServiceImp.getLANHostInfoByClassJni": ["Computer"],
    "LanNetworkNameConfigServiceImp.setGatewayNameJni": ["HomeGateway"],
    "LanNetworkNameConfigServiceImp.setLANHostNameJni": ["00:11:22:33:44:55", "laptop"],
    "LanHostSpeedLimitServiceImp.setLANHostSpeedLimitJni": ["00:11:22:33:44:55", 1024, 512],
    "LanHostSpeedQueryServiceImp.getLANHostSpeedJni": ["00:11:22:33:44:55"],
    "WlanConfigServiceImp.setWLANHardwareSwitchJni": ["2.4G", 1],
    "WlanConfigServiceImp.setWLANSSIDSecurityJni": [1, "HomeWifi", "WPA2-PSK", "secret123"],
    "WlanConfigServiceImp.setWLANStandardJni": ["2.4G", "b/g/n"],
    "WlanConfigServiceImp.setWLANRadioChannelJni": ["2.4G", 6],
    "WlanConfigServiceImp.setWLANRadioPowerJni": ["5G", 100],
    "WlanConfigServiceImp.setWLANRadioFrequencyWidthJni": ["5G", "80MHz"],
    "WlanQueryServiceImp.getWLANHardwareSwitchJni": ["2.4G"],
    "WlanQueryServiceImp.getWLANRadioInfoJni": ["5G"],
    "WlanQueryServiceImp.getWLANNeighborJni": ["2.4G"],
    "EthConfigServiceImp.setLANEthernetMaxBitRateJni": [1, "1000"],
    "EthConfigServiceImp.setLANEthernetDuplexModeJni": [1, "Full"],
    "WanConfigServiceImp.addWANIfJni": ["INTERNET", "Route", "PPPoE"],
    "WanConfigServiceImp.setWANIfJni": [1, '{"ConnectionType":"IP_Routed"}'],
    "IPPingDiagnosticsServiceImp.startIPPingDiagnosticsJni": [1, "192.168.1.1", '{"NumberOfRepetitions":3}'],
    "TraceRouteDiagnosticsServiceImp.startTraceRouteDiagnosticsJni": [1, "192.168.1.1", '{"MaxHopCount":30}'],
    "HttpUploadDiagnosticsServiceImp.startHttpUploadDiagnosticsJni": [1, "http://192.168.1.1/up", '{"TestFileLength":1024}'],
    "HttpDownloadDiagnosticsServiceImp.startHttpDownloadDiagnosticsJni": [1, "http://192.168.1.1/down", "{}"],
    "LANIPConfigServiceImp.setLANHostIPJni": ["192.168.1.1", "255.255.255.0"],
    "LANIPConfigServiceImp.setLANDHCPInfoJni": ["TRUE", "192.168.1.2", "192.168.1.254", 86400],
    "PortMappingConfigServiceImp.addPortMappingJni": [1, 8080, 80, "TCP", "192.168.1.20"],
    "UsbServiceImp.usbRegisterJni": ["com.example.bundle", 1],
    "UsbServiceImp.usbUnregisterJni": ["com.example.bundle", 1],
    "DeviceAccessRightConfigServiceImp.addFTPAccountJni": ["ftpuser", "ftppass"],
    "DeviceAccessRightConfigServiceImp.deleteFTPAccountJni": ["ftpuser"],
    "DeviceAccessRightConfigServiceImp.setHTTPUserPasswordJni": ["newpassword"],
    "DeviceAccessRightConfigServiceImp.addSambaAccountJni": ["smbuser", "smbpass"],
    "DeviceAccessRightConfigServiceImp.deleteSambaAccountJni": ["smbuser"],
    "RegistrationServiceImp.setPasswordRegistrationJni": ["12345678", 1, 0, "user"],
    "TrafficMonitoringConfigServiceImp.addTrafficMonitoringDestAddressJni": [["www.example.com", "192.0.2.7"], "com.example.bundle"],
    "TrafficMonitoringConfigServiceImp.deleteTrafficMonitoringDestAddressJni": [["www.example.com"], "com.example.bundle"],
    "TrafficMirrorServiceImp.addMirrorRuleJni": ["192.0.2.7", "80", "UP", "TCP", "00:11:22:33:44:55", "192.168.1.30", 1],
    "TrafficForwardServiceImp.addForwardRuleJni": ["192.0.2.7", "80", "TCP", "00:11:22:33:44:55", "192.168.1.30", 1],
    "TrafficDetailProcessServiceImp.addHTTPTrafficProcessRuleJni": ["www.example.com", 1, "GET", "Host", ["00:11:22:33:44:55"], ["/index"], ["text"], "http://192.0.2.9/"],
    "TrafficQoSServiceImp.addTrafficToFlowJni": ["192.0.2.7", "00:11:22:33:44:55", 1],
    "TrafficQoSServiceImp.deleteTrafficFromFlowJni": ["192.0.2.7", "00:11:22:33:44:55", 1],
    "StaticLayer3ForwardingConfigServiceImp.addLayer3ForwardingStaticJni": ["10.1.0.0", "255.255.0.0", "192.168.1.254", "br0"],
    "StaticLayer3ForwardingConfigServiceImp.addIPv6Layer3ForwardingStaticJni": ["2001:db8::/32", "fe80::1", "br0"],
    "VLANBindConfigServiceImp.setVLANBindJni": ["LAN1", "10/20"],
    "VLANBindConfigServiceImp.clearVLANBindJni": ["LAN1"],
    "L2TPVPNServiceImp.vpnOnJni": ["vpn.example.com", "vpnuser", "vpnpass"],
    "L2TPVPNServiceImp.vpnOffJni": ["vpn.example.com"],
    "L2TPVPNServiceImp.addVpnDestIPJni": [["192.0.2.7", "198.51.100.1"]],
    "L2TPVPNServiceImp.deleteVpnDestIPJni": [["192.0.2.7"]],
    "VoIPInfoSubscribeServiceImp.subscribeVoIPEventJni": ["com.example.bundle", ["CallIn", "CallOut"]],
    "VoIPInfoSubscribeServiceImp.unSubscribeVoIPEventJni": ["com.example.bundle", ["CallIn"]],
}
DEFAULT = {"I": 1, "Z": 1, "B": 1, "S": "00:11:22:33:44:55", "A": ["00:11:22:33:44:55"], "Y": b"\x01\x02"}


def valid(name, params):
    values = VALID.get(name, [DEFAULT[k] for k in params])
    out = []
    for kind, v in zip(params, values):
        out.append((len(v), list(v)) if kind == "A" else v)
    return out


def long_(params):
    return [{"I": 0x7FFFFFFF, "Z": 1, "B": 0x7F, "S": Repeat("0123456789:ABCDEF.", 4000),
             "A": (30000, ["00:11:22:33:44:55", Repeat("0123456789", 7000)]),
             "Y": Repeat(b"\xff", 4096)}[k] for k in params]


def empty(params):
    return [{"I": 0, "Z": 0, "B": 0, "S": "", "A": (0, [""]), "Y": b""}[k] for k in params]


def badutf(params):
    bad = [b"\xc0\x80mid\x00nul", b"\xff\xfe\xed\xa0\x80", b"\xe2\x82", b"%s%n%x"]
    out, n = [], 0
    for k in params:
        if k in "SY":
            out.append(bad[n % len(bad)])
            n += 1
        elif k == "A":
            out.append((5, [b"\xf0\x9f\x98\x80", NULL, b"00:11:22:33:44:5\x00"]))
        else:
            out.append(-1 if k == "I" else 0xFF)
    return out


def nulls(params):
    texts = sum(1 for k in params if k == "S")
    out, n = [], 0
    for k in params:
        if k == "S":
            # Where there are two texts or more, the second cannot be copied.
            out.append(FAILING if texts > 1 and n == 1 else NULL)
            n += 1
        elif k == "A":
            out.append(NULL)
        elif k == "Y":
            out.append(NULL)
        else:
            out.append(-0x80000000 if k == "I" else 0)
    return out


def natives():
    text = open(os.path.join(ROOT, "tests", "native_catalogue.cpp")).read()
    for cls, method, params in re.findall(
            r'\{"\w+",\s*"(\w+)",\s*"(\w+)",\s*"\w+",\s*"([IZBSAY]*)"', text):
        if "S" in params or "A" in params:
            yield cls + "." + method, params


def seed_dir(target):
    """The seed folder of a target, made when missing."""
    out_dir = os.path.join(HERE, "corpus", target, "seed")
    os.makedirs(out_dir, exist_ok=True)
    return out_dir


def write_seed(out_dir, name, tag, data):
    """Writes one seed of native `name` (Class.method), named after it and `tag`."""
    short = name.replace("ServiceImp.", ".").replace("Jni", "")
    with open(os.path.join(out_dir, short + "-" + tag), "wb") as f:
        f.write(data)


def write_dict(target, what, names, words):
    """fuzz/<target>.dict: the native name lines, then `words`."""
    with open(os.path.join(HERE, target + ".dict"), "w") as f:
        f.write("# %s_fuzz: native name lines, then %s.\n" % (target, what))
        for name in names:
            f.write('"%s\\x0a"\n' % name)
        for word in words:
            f.write('"%s"\n' % word.replace("\\", "\\\\").replace('"', '\\"'))


def main():
    out_dir = seed_dir("java_inputs")
    count = 0
    for name, params in natives():
        for tag, values in (("valid", valid(name, params)), ("long", long_(params)),
                            ("empty", empty(params)), ("badutf", badutf(params)),
                            ("null", nulls(params))):
            write_seed(out_dir, name, tag, encode(name, params, values))
            count += 1
    print("%d seeds in %s" % (count, out_dir))
    write_dict("java_inputs", "texts the natives look for", [n for n, _ in natives()], WORDS)


WORDS = ["00:11:22:33:44:55", "192.168.1.1", "255.255.255.0", "2001:db8::1", "fe80::1", "TCP",
         "UDP", "TCP/UDP", "TRUE", "FALSE", "UP", "DOWN", "ALL", "2.4G", "5G", "http://",
         "https://", "LAN1", "br0", "ppp100", "{}", "[]", '{"', '":', "null", "%s", "%n"]


if __name__ == "__main__":
    main()
