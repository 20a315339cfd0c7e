// com.lumarest.smartgateway.voipservices.VoIPInfoQueryServiceImp: the gateway's analogue
// telephone ports (POTS lines) with the phone number and line status of each.
#include <stdlib.h>

#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_voip.h"
#include "common/text_table.h"

namespace {

// Line status names, indexed by the platform's status code (common/text_table.h).
const char kLineStatusNames[] = "SUCCESS\0IADERROR\0NOROUTE\0NORESPONSE\0ACCOUNTERR\0UNKNOWN";

// Lines asked even after the reply is full: far more than any gateway's POTS ports.
constexpr int kLinesAskedWhenFull = 256;

// A code outside the table reads as "UNKNOWN" rather than past its end.
const char *line_status_name(int32_t code) {
  const char *name = bundle::table_text(kLineStatusNames, code);
  return name[0] != '\0' ? name : bundle::table_text(kLineStatusNames, POTS_STATUS_UNKNOWN);
}

}  // namespace

extern "C" {

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_voipservices_VoIPInfoQueryServiceImp_getPOTSInfoJni(
    JNIEnv *env, jobject) {
  bundle::Reply<1024> reply;
  PotsLineNode *list = nullptr;
  int lines = brelo_voipGetNumberOfPOTS();
  reply.append("{\"Result\":0,\"POTSNum\":%d,\"Info\":[", lines);

  // The separator is empty before the very first object of the reply and "," before every
  // later one, so several nodes of one line give several objects with the same index.
  const char *separator = "";
  // Every line is asked, even once the reply is full. Only a line count no gateway has (more
  // than kLinesAskedWhenFull) stops the walk at the first line past a full reply, rather than
  // ask the platform about up to INT_MAX lines; the reply is the same either way.
  for (int line = 1; line <= lines && !(reply.truncated() && line > kLinesAskedWhenFull);
       ++line) {
    brelo_voipGetLineInfo(line, &list);
    if (list == nullptr) {
      // A line without information is listed with an empty number.
      reply.append("%s{\"POTSIndex\":%d,\"PhoneNumber\":\"%s\",\"LineStatus\":\"%s\"}",
                   separator, line, "", bundle::table_text(kLineStatusNames, POTS_STATUS_UNKNOWN));
      separator = ",";
      continue;
    }
    for (PotsLineNode *node = list; node != nullptr; node = node->next) {
      bundle::terminate_field(node->phone_number);
      reply.append("%s{\"POTSIndex\":%d,\"PhoneNumber\":\"%s\",\"LineStatus\":\"%s\"}",
                   separator, line, node->phone_number, line_status_name(node->status));
      separator = ",";
    }
    while (list != nullptr) {
      PotsLineNode *next = list->next;
      free(list);
      list = next;
    }
  }

  reply.append("]}");
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

}  // extern "C"
