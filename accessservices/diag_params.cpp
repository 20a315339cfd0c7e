#include "accessservices/diag_params.h"

namespace bundle {

ParamsRead read_diag_request(JNIEnv *env, jstring jhost, char (&host)[256], jstring jparameter,
                             TraceName native, const NumberParam *params, size_t count,
                             void *record) {
  if (!take_host(env, jhost, host)) return kParamsBad;
  JavaChars parameter(env, jparameter);
  if (acquire_failed(env, parameter)) return kParamsPending;
  ParamTree tree;  // a null or empty text gives every default
  if (!tree.parse_optional(parameter.get())) {
    trace_puts(native, __LINE__, "JSON Parse format error!");
    parameter.release();
    return kParamsBad;
  }
  // Zero means "not given": a Timeout below 1000 ms gets the default too.
  for (size_t i = 0; i < count; ++i) {
    const NumberParam &p = params[i];
    uint32_t *member = reinterpret_cast<uint32_t *>(static_cast<char *>(record) + p.offset);
    *member = tree.int_or(p.key, static_cast<int32_t>(p.dflt * p.divisor)) / p.divisor;
    if (*member == 0 && !p.zero_kept) *member = p.dflt;
  }
  parameter.release();
  return kParamsRead;
}

}  // namespace bundle
