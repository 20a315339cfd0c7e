// com.lumarest.smartgateway.lanservices.EthQueryServiceImp: state and counters of one LAN
// Ethernet port (the port number goes to the platform unchanged).
#include "common/native.h"
#include "common/platform_lan.h"

extern "C" {

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_lanservices_EthQueryServiceImp_getLANEthernetInfoJni(
    JNIEnv *env, jobject, jint port) {
  bundle::Reply<4096> reply;
  bundle::PlatformText<64> enable, status, bit_rate, duplex;
  if (brelo_getLANEthernetInfo(port, enable.out(), status.out(), bit_rate.out(), duplex.out()) ==
      0) {
    reply.append("{\"Result\":0,\"Enable\":\"%s\",\"Status\":\"%s\",\"BitRate\":\"%s\","
                 "\"DuplexMode\":\"%s\"}",
                 enable.text(), status.text(), bit_rate.text(), duplex.text());
  } else {
    reply.append(BUNDLE_FAIL_REASON, "Get LANEthernetInfo fail");
  }
  BUNDLE_TRACE_NAMED(", line = %d,  len=%d ,temp_buf=\n%s\n", __LINE__,
               static_cast<int>(strlen(reply.c_str())), reply.c_str());
  return bundle::new_reply_string(env, reply.c_str());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_lanservices_EthQueryServiceImp_getLANEthernetStatsJni(
    JNIEnv *env, jobject, jint port) {
  bundle::Reply<4096> reply;
  unsigned int bytes_sent = 0, bytes_received = 0, packets_sent = 0, packets_received = 0;
  if (brelo_getLANEthernetStats(port, &bytes_sent, &bytes_received, &packets_sent,
                                &packets_received) == 0) {
    // Unsigned 32-bit counters in decimal, the same on every target.
    reply.append("{\"Result\":0,\"BytesSent\":%u,\"BytesReceived\":%u,\"PacketsSent\":%u,"
                 "\"PacketsReceived\":%u}",
                 bytes_sent, bytes_received, packets_sent, packets_received);
  } else {
    reply.append(BUNDLE_FAIL_REASON, "Get LANEthernetStats fail");
  }
  BUNDLE_TRACE_NAMED(", line = %d,  len=%d ,temp_buf=\n%s\n", __LINE__,
               static_cast<int>(strlen(reply.c_str())), reply.c_str());
  return bundle::new_reply_string(env, reply.c_str());
}

}  // extern "C"
