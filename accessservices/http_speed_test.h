// What the HTTP upload and download diagnostics share: the optional test parameters and the
// result reply, whose "Result" is the test state as a text.
#ifndef BUNDLE_ACCESSSERVICES_HTTP_SPEED_TEST_H
#define BUNDLE_ACCESSSERVICES_HTTP_SPEED_TEST_H

#include <jni.h>

#include "accessservices/diag_params.h"
#include "common/platform_diag.h"
#include "common/reply.h"
#include "common/text_table.h"
#include "common/trace.h"

namespace bundle {

// Starts the HTTP speed test in `direction` (kHttpUpload or kHttpDownload) on WAN `wan_index`;
// gives the platform's code, or -1 when the request is refused. `*pending` is set when the
// parameter text could not be obtained (an exception is pending): the native then returns -1
// without its closing line. The URL
// text is kept (the platform keeps the pointer); the parameter text is given back. An upload
// needs a parameter text with "TestFileLength" and a file length or duration; a download's
// parameter text is optional (a null or empty one gives every default). Traces under `native`.
int start_http_speed_test(JNIEnv *env, TraceName native, jint wan_index, jstring jurl,
                          jstring jparameter, uint32_t direction, bool *pending);

// Measurement offset, duration and connections from the parameter tree. Each keeps the low
// 16 bits of its value; out-of-range values fall back to the defaults rather than being refused.
inline void read_http_options(const ParamTree &params, HttpSpeedTestRequest *req) {
  req->measurement_offset = static_cast<uint16_t>(params.int_or("MeasurementOffset", 0));
  if (req->measurement_offset >= 301) req->measurement_offset = 0;
  req->duration = static_cast<uint16_t>(params.int_or("TestDuration", 30));
  if (req->duration >= 301) req->duration = 30;
  req->connections = static_cast<uint16_t>(params.int_or("NumberOfConnections", 1));
  if (req->connections >= 5) req->connections = 1;
}

// Fetches the state of the test in `direction` and composes its reply. An unknown state code
// leaves the reply empty.
inline void http_result_reply(Reply<1024> &reply, uint32_t direction) {
  HttpSpeedTestResult res;
  memset(&res, 0, sizeof res);
  res.direction = direction;
  brelo_getHttpSpeedTestDiagnostics(&res);  // the state word tells, not the return value
  if (res.state == kHttpCompleted) {
    terminate_field(res.rom_time);
    terminate_field(res.bom_time);
    terminate_field(res.eom_time);
    terminate_field(res.tcp_open_request_time);
    terminate_field(res.tcp_open_response_time);
    // The member names differ by direction; "TotalBytesSend" beside "TestBytesSent" is the
    // name Java bundles read for an upload.
    reply.append("{\"Result\":\"Completed\", \"Test%sRate\":%u, \"Total%sRate\":%u, "
                 "\"ROMTime\":\"%s\", \"BOMTime\":\"%s\", \"EOMTime\":\"%s\", "
                 "\"TestBytes%s\":%llu, \"TotalBytes%s\":%llu, "
                 "\"TCPOpenRequestTime\":\"%s\", \"TCPOpenResponseTime\":\"%s\"}",
                 direction == kHttpUpload ? "Upload" : "Download", res.test_rate,
                 direction == kHttpUpload ? "Upload" : "Download", res.total_rate, res.rom_time,
                 res.bom_time, res.eom_time, direction == kHttpUpload ? "Sent" : "Received",
                 static_cast<unsigned long long>(res.test_bytes),
                 direction == kHttpUpload ? "Send" : "Received",
                 static_cast<unsigned long long>(res.total_bytes), res.tcp_open_request_time,
                 res.tcp_open_response_time);
  } else if (res.state >= kHttpOtherError && res.state <= kHttpNone) {
    // The other states by name, indexed from kHttpOtherError ("Completed" is not used here).
    static const char kStateNames[] =
        "Other_Error\0Error_Timeout\0Error_NoResponse\0Error_InitConnectionFailed\0Completed\0"
        "Requested\0None";
    reply.append("{\"Result\":\"%s\"}", table_text(kStateNames, res.state - kHttpOtherError));
  }
}

}  // namespace bundle

#endif
