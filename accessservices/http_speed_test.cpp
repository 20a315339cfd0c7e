#include "accessservices/http_speed_test.h"

#include <string.h>

namespace bundle {

int start_http_speed_test(JNIEnv *env, TraceName native, jint wan_index, jstring jurl,
                          jstring jparameter, uint32_t direction, bool *pending) {
  const bool upload = direction == kHttpUpload;
  HttpSpeedTestRequest req;
  memset(&req, 0, sizeof req);
  JavaChars url(env, jurl);
  url.keep();  // the platform keeps the pointer: the URL text is never given back
  if (url.is_null()) return -1;

  JavaChars parameter(env, jparameter);
  ParamTree params;
  if (upload) {
    if (is_null_or_empty(parameter.get())) {  // an upload needs its file length
      parameter.release();
      return -1;
    }
  } else if (acquire_failed(env, parameter)) {
    *pending = true;  // no diagnostic is started
    return -1;
  }
  // A download's text may be left out: null or empty, offset 0, duration 30, one connection.
  if (!(upload ? params.parse(parameter.get()) : params.parse_optional(parameter.get()))) {
    trace_puts(native, __LINE__, "JSON Parse format error!");
    parameter.release();
    return -1;
  }
  if (upload) {
    const char *length = params.text("TestFileLength");
    if (length == nullptr) {
      trace_puts(native, __LINE__, "JSON Parse TestFileLength failed!");
      parameter.release();
      return -1;
    }
    // atol of a 32-bit long, sign-extended into the 64-bit member.
    req.file_length = static_cast<uint64_t>(static_cast<int64_t>(tree_atoi(length)));
  }
  read_http_options(params, &req);  // the file length is an upload's only
  parameter.release();

  // Unlike an upload, a download with a zero duration is not refused.
  if (upload && req.file_length == 0 && req.duration == 0) return -1;  // nothing to measure
  req.direction = direction;
  return brelo_startHttpSpeedTestDiagnostics(wan_index, url.get(), &req);
}

}  // namespace bundle
